// Fields of items of all types but components.
#include <algorithm>
#include <charconv>

#include "desk/edit/edit_values.h"
#include "desk/open/field_text.h"
#include "desk/open/fields.h"
#include "desk/open/storable.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr std::size_t kEnumNameSize = 13;
constexpr char kCodeField[] = "refCode";

std::vector<std::string> Parts(std::string const& text) {
  std::vector<std::string> parts;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const end = std::min(text.find_first_of(" ,", at), text.size());
    if (end > at) parts.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return parts;
}

std::int32_t WholeOf(std::string const& word, std::string const& field) {
  std::int32_t number = 0;
  auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) {
    throw WrongUsage("\"" + word + "\" is not a value of " + field + ", a whole number");
  }
  return number;
}

// The values of an enumeration by their words in lower case, in the order of the table; `standard`
// is what an item has at first.
std::vector<std::pair<std::string, std::int32_t>> EnumOf(zel::IZelBankDef& item, Field const& field,
                                                         std::int32_t& standard) {
  std::int32_t count = 0;
  item.GetEnumCount(field.name.c_str(), &count);
  auto const rows = static_cast<std::size_t>(std::max(count, 0));
  std::vector<char> text((rows + 1) * kEnumNameSize);
  std::vector<std::int32_t> values(rows + 1);
  std::int32_t index = 0;
  item.GetEnumList(field.name.c_str(), reinterpret_cast<char(*)[kEnumNameSize]>(text.data()),
                   values.data(), &index);
  standard = values[static_cast<std::size_t>(std::clamp(index, 0, count))];
  std::vector<std::pair<std::string, std::int32_t>> all;
  for (std::size_t i = 0; i < rows; ++i) {
    all.emplace_back(LowerCase(&text[i * kEnumNameSize]), values[i]);
  }
  return all;
}

std::int32_t WordOf(zel::IZelBankDef& item, Field const& field, std::string const& word) {
  std::int32_t standard = 0;
  std::string names;
  for (auto const& [name, value] : EnumOf(item, field, standard)) {
    if (name == LowerCase(word) || std::to_string(value) == word) return value;
    names += (names.empty() ? "" : ", ") + name;
  }
  throw WrongUsage("\"" + word + "\" is not a value of " + field.name + "; it has " + names);
}

void CheckCount(Field const& field, std::size_t given) {
  auto const count = static_cast<std::size_t>(std::max(field.count, 1));
  if (given == count) return;
  throw WrongUsage(field.name + " has " + std::to_string(count) + " value(s), not " +
                   std::to_string(given));
}

void SetField(zel::IZelBankDef& item, Field const& field, std::string const& text,
              DisplayUnits const& units) {
  if (field.type == zel::fieldText) return SetTextField(item, field, text);
  std::vector<std::string> const parts = Parts(text);
  CheckCount(field, parts.size());
  if (field.type == zel::fieldReal) {
    std::vector<double> numbers;
    numbers.reserve(parts.size());
    for (std::string const& part : parts) {
      numbers.push_back(ReadNumber(
          field, part, units,
          "a value of " + field.name + (field.unit.empty() ? ", a number" : ", in " + field.unit)));
      CheckStorable(numbers.back(), field.name);
    }
    item.SetDoubleField(field.name.c_str(), numbers.data());
    return;
  }
  std::vector<std::int32_t> numbers;
  numbers.reserve(parts.size());
  for (std::string const& part : parts) {
    numbers.push_back(field.type == zel::fieldEnumerated ? WordOf(item, field, part)
                                                         : WholeOf(part, field.name));
  }
  item.SetIntField(field.name.c_str(), numbers.data());
}

void Unset(zel::IZelBankDef& item, Field const& field) {
  auto const count = static_cast<std::size_t>(std::max(field.count, 1));
  if (field.type == zel::fieldText) return SetTextField(item, field, "");
  if (field.type == zel::fieldReal) {
    item.SetDoubleField(field.name.c_str(),
                        std::vector<double>(count, zel::gen_GetUndefDouble()).data());
    return;
  }
  std::int32_t none = zel::gen_GetUndefInt();
  if (field.type == zel::fieldEnumerated) EnumOf(item, field, none);
  item.SetIntField(field.name.c_str(), std::vector<std::int32_t>(count, none).data());
}

}  // namespace

std::vector<std::string> SetData(zel::IZelBankDef& item, std::vector<Field> const& fields,
                                 ItemEdit const& edit, DisplayUnits const& units) {
  if (!edit.curve.Empty()) {
    throw WrongUsage("--equation, --coefficients and the like are for correlations of components");
  }
  std::vector<std::string> names;
  auto const named = [&](std::string const& datum) {
    Field field = FieldNamed(item, datum);
    for (Field const& one : fields) {
      if (one.name == field.name) field = one;
    }
    if (std::find(names.begin(), names.end(), field.name) != names.end()) {
      throw WrongUsage(field.name + " is named twice");
    }
    names.push_back(field.name);
    return field;
  };
  for (Setting const& setting : edit.settings) {
    Field const field = named(setting.datum);
    if (!setting.value) {
      throw WrongUsage(field.name + " needs a value: " + field.name + "=VALUE");
    }
    SetField(item, field, *setting.value, units);
  }
  for (std::string const& datum : edit.unset) Unset(item, named(datum));
  if (edit.code) SetField(item, named(kCodeField), std::to_string(*edit.code), units);
  return names;
}

}  // namespace zel::desk
