#include "verify/item_fields.h"

#include <algorithm>

#include "frame/number_text.h"

namespace zel {
namespace {

constexpr std::size_t kNameSize = 13;
constexpr std::size_t kUnitSize = 20;
constexpr std::size_t kLongestText = 261;
constexpr char kNothing[] = "-";

std::string RealOrNothing(double value) {
  constexpr int kDigits = 7;
  return gen_IsUndefDouble(value) ? kNothing : RealText(value, kDigits);
}

std::string WholeOrNothing(std::int32_t value) {
  return gen_IsUndefInt(value) ? kNothing : std::to_string(value);
}

// The word of an enumeration for a value; the number for a value without a word.
std::string WordOf(IZelBankDef& item, ItemField const& field, std::int32_t value) {
  std::int32_t count = 0;
  if (item.GetEnumCount(field.name.c_str(), &count) != kStatusOk || count < 1) {
    return WholeOrNothing(value);
  }
  auto const rows = static_cast<std::size_t>(count);
  std::vector<char> names(rows * kNameSize);
  std::vector<std::int32_t> values(rows);
  std::int32_t standard = 0;
  item.GetEnumList(field.name.c_str(), reinterpret_cast<char(*)[kNameSize]>(names.data()),
                   values.data(), &standard);
  auto const at = std::find(values.begin(), values.end(), value);
  if (at == values.end()) return WholeOrNothing(value);
  return &names[static_cast<std::size_t>(at - values.begin()) * kNameSize];
}

std::string Joined(std::vector<std::string> const& texts) {
  if (std::all_of(texts.begin(), texts.end(), [](auto const& text) { return text == kNothing; })) {
    return kNothing;
  }
  std::string joined;
  for (std::string const& text : texts) joined += (joined.empty() ? "" : " ") + text;
  return joined;
}

}  // namespace

std::vector<ItemField> FieldsOf(IZelBankDef& item) {
  std::int32_t count = 0;
  if (item.GetFieldCount(0, &count) != kStatusOk || count < 1) return {};
  auto const rows = static_cast<std::size_t>(count);
  std::vector<char> names(rows * kNameSize), labels(rows * kUnitSize), units(rows * kUnitSize);
  std::vector<std::int32_t> types(rows), counts(rows);
  if (item.GetFieldList(0, reinterpret_cast<char(*)[kNameSize]>(names.data()),
                        reinterpret_cast<char(*)[kUnitSize]>(labels.data()), types.data(),
                        counts.data(),
                        reinterpret_cast<char(*)[kUnitSize]>(units.data())) != kStatusOk) {
    return {};
  }
  std::vector<ItemField> fields;
  for (std::size_t i = 0; i < rows; ++i) {
    fields.emplace_back(&names[i * kNameSize], &units[i * kUnitSize], types[i], counts[i]);
  }
  return fields;
}

bool HasField(IZelBankDef& item, std::string_view name) {
  std::vector<ItemField> const fields = FieldsOf(item);
  return std::any_of(fields.begin(), fields.end(),
                     [&](ItemField const& field) { return field.name == name; });
}

std::vector<double> RealsOf(IZelBankDef& item, ItemField const& field) {
  std::vector<double> values(static_cast<std::size_t>(std::max(field.count, 1)),
                             gen_GetUndefDouble());
  item.GetDoubleField(field.name.c_str(), values.data());
  return values;
}

FieldValue ValueOf(IZelBankDef& item, ItemField const& field) {
  if (field.type == fieldText) {
    char text[kLongestText] = {};
    item.GetStringField(field.name.c_str(), text);
    return {*text != '\0' ? text : kNothing};
  }
  FieldValue value;
  std::vector<std::string> texts;
  if (field.type == fieldReal) {
    std::vector<double> const reals = RealsOf(item, field);
    for (double const real : reals) texts.push_back(RealOrNothing(real));
    if (reals.size() == 1) value.number = reals.front();
  } else {
    std::vector<std::int32_t> whole(static_cast<std::size_t>(std::max(field.count, 1)),
                                    gen_GetUndefInt());
    item.GetIntField(field.name.c_str(), whole.data());
    for (std::int32_t const one : whole) {
      texts.push_back(field.type == fieldEnumerated ? WordOf(item, field, one)
                                                    : WholeOrNothing(one));
    }
    bool const isNumber = field.type == fieldInteger && whole.size() == 1;
    if (isNumber && !gen_IsUndefInt(whole.front())) value.number = whole.front();
  }
  value.text = Joined(texts);
  return value;
}

}  // namespace zel
