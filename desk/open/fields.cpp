#include "desk/open/fields.h"

#include <algorithm>
#include <new>

#include "desk/open/library.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/nearest_word.h"

namespace zel::desk {
namespace {

constexpr std::size_t kFieldNameSize = 13;
constexpr std::size_t kLabelSize = 20;
constexpr std::size_t kLongestText = 261;

Cell Whole(std::int32_t value) {
  if (zel::gen_IsUndefInt(value)) return {};
  return std::int64_t{value};
}

// The word of an enumeration for a value; the number for a value without a word.
Cell Word(zel::IZelBankDef& bank, Field const& field, std::int32_t value) {
  std::int32_t count = 0;
  if (bank.GetEnumCount(field.name.c_str(), &count) != zel::kStatusOk || count < 1) {
    return Whole(value);
  }
  auto const rows = static_cast<std::size_t>(count);
  std::vector<char> text(rows * kFieldNameSize);
  std::vector<std::int32_t> values(rows);
  std::int32_t standard = 0;
  bank.GetEnumList(field.name.c_str(), reinterpret_cast<char(*)[kFieldNameSize]>(text.data()),
                   values.data(), &standard);
  for (std::size_t i = 0; i < rows; ++i) {
    if (values[i] == value) return std::string(&text[i * kFieldNameSize]);
  }
  return Whole(value);
}

// Banks name a dimension if their numbers are in its internal unit. Other texts are returned as
// they are; group areas and volumes are relative.
std::string UnitOf(std::string const& dimension) {
  if (dimension == "temp") return "K";
  if (dimension == "pres") return "kPa";
  return dimension;
}

Cell Joined(std::vector<Cell> const& cells) {
  if (cells.size() == 1) return cells.front();
  bool const any = std::any_of(cells.begin(), cells.end(), [](Cell const& cell) {
    return !std::holds_alternative<std::monostate>(cell);
  });
  if (!any) return {};
  std::string text;
  for (Cell const& cell : cells) text += (text.empty() ? "" : " ") + CellText(cell);
  return text;
}

}  // namespace

BankFacts::BankFacts(zel::IZelBankDef& bank) {
  char typeText[kNameSize] = {};
  char descriptionText[50] = {};
  std::int32_t length = 0;
  std::uint8_t listed = 0;
  bank.GetBankInfo(typeText, descriptionText, &keyKind, &keyWords, &shortestKey, &formats, &length,
                   &listed);
  type = typeText;
  description = descriptionText;
}

namespace {

std::vector<std::string> BankTypes() {
  auto const count = static_cast<std::size_t>(zel::GetBankTypeCount());
  std::vector<char> list(count * kNameSize);
  auto* const names = reinterpret_cast<char(*)[kNameSize]>(list.data());
  zel::GetBankTypeList(static_cast<long>(count), names);
  return {names, names + count};
}

bool IsKnown(std::string const& type) {
  std::vector<std::string> const types = BankTypes();
  return std::find(types.begin(), types.end(), type) != types.end();
}

}  // namespace

// The library returns null for a type that it does not know, and also if memory has run out.
zel::Handle<zel::IZelBankDef> BankOrNone(std::string const& type) {
  zel::Handle<zel::IZelBankDef> bank(zel::NewBank(type.c_str()));
  if (!bank && IsKnown(UpperCase(type))) throw std::bad_alloc();
  return bank;
}

zel::Handle<zel::IZelBankDef> BankOfType(std::string const& type) {
  zel::Handle<zel::IZelBankDef> bank = BankOrNone(type);
  if (!bank) {
    throw Failure("there is no bank type " + type + DidYouMean(type, BankTypes()) +
                  " `zel types` lists them");
  }
  return bank;
}

std::vector<Field> FieldsOf(zel::IZelBankDef& bank) {
  std::int32_t count = 0;
  if (bank.GetFieldCount(0, &count) != zel::kStatusOk || count < 1) return {};
  auto const rows = static_cast<std::size_t>(count);
  std::vector<char> names(rows * kFieldNameSize), labels(rows * kLabelSize),
      units(rows * kLabelSize);
  std::vector<std::int32_t> types(rows), counts(rows);
  if (bank.GetFieldList(0, reinterpret_cast<char(*)[kFieldNameSize]>(names.data()),
                        reinterpret_cast<char(*)[kLabelSize]>(labels.data()), types.data(),
                        counts.data(),
                        reinterpret_cast<char(*)[kLabelSize]>(units.data())) != zel::kStatusOk) {
    return {};
  }
  std::vector<Field> fields;
  for (std::size_t i = 0; i < rows; ++i) {
    fields.push_back({&names[i * kFieldNameSize], &labels[i * kLabelSize],
                      UnitOf(&units[i * kLabelSize]), types[i], counts[i]});
  }
  return fields;
}

Field FieldNamed(zel::IZelBankDef& bank, std::string const& name) {
  std::vector<Field> const fields = FieldsOf(bank);
  auto const at = std::find_if(fields.begin(), fields.end(), [&](Field const& field) {
    return LowerCase(field.name) == LowerCase(name);
  });
  if (at == fields.end()) {
    std::string const type = BankFacts(bank).type;
    std::vector<std::string> names;
    names.reserve(fields.size());
    for (Field const& field : fields) names.push_back(field.name);
    throw Failure("banks of type " + type + " have no field " + name + DidYouMean(name, names) +
                  " `zel types " + type + "` lists them");
  }
  return *at;
}

std::string KindOf(Field const& field) {
  switch (field.type) {
    case zel::fieldInteger: return "whole number";
    case zel::fieldReal: return "number";
    case zel::fieldText: return "text";
    default: return "word";
  }
}

Cell ValueOf(zel::IZelBankDef& bank, Field const& field) {
  auto const count = static_cast<std::size_t>(std::max(field.count, 1));
  char const* const name = field.name.c_str();
  std::vector<Cell> cells;
  if (field.type == zel::fieldText) {
    char text[kLongestText] = {};
    bank.GetStringField(name, text);
    return Text(text);
  }
  if (field.type == zel::fieldReal) {
    std::vector<double> values(count, zel::gen_GetUndefDouble());
    bank.GetDoubleField(name, values.data());
    for (double const value : values) cells.push_back(Number(value));
    return Joined(cells);
  }
  std::vector<std::int32_t> values(count, zel::gen_GetUndefInt());
  bank.GetIntField(name, values.data());
  for (std::int32_t const value : values) {
    cells.push_back(field.type == zel::fieldEnumerated ? Word(bank, field, value) : Whole(value));
  }
  return Joined(cells);
}

}  // namespace zel::desk
