#include "desk/open/field_text.h"

#include <algorithm>
#include <charconv>

#include "desk/open/storable.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

constexpr std::size_t kEnumNameSize = 13;

// The words of an enumeration in their order.
std::vector<std::pair<std::string, std::int32_t>> WordsOf(zel::IZelBankDef& bank,
                                                          std::string const& field) {
  std::int32_t count = 0;
  if (bank.GetEnumCount(field.c_str(), &count) != zel::kStatusOk || count < 1) return {};
  auto const rows = static_cast<std::size_t>(count);
  std::vector<char> names(rows * kEnumNameSize);
  std::vector<std::int32_t> values(rows);
  std::int32_t standard = 0;
  bank.GetEnumList(field.c_str(), reinterpret_cast<char(*)[kEnumNameSize]>(names.data()),
                   values.data(), &standard);
  std::vector<std::pair<std::string, std::int32_t>> words;
  for (std::size_t i = 0; i < rows; ++i) {
    words.emplace_back(&names[i * kEnumNameSize], values[i]);
  }
  return words;
}

std::string EnumText(zel::IZelBankDef& bank, std::string const& field, std::int32_t value) {
  auto const words = WordsOf(bank, field);
  auto const own = std::find_if(words.begin(), words.end(),
                                [value](auto const& row) { return row.second == value; });
  if (own == words.end()) return std::to_string(value);
  auto const first = std::find_if(words.begin(), words.end(), [&](auto const& row) {
    return LowerCase(row.first) == LowerCase(own->first);
  });
  return first == own && !own->first.empty() ? own->first : std::to_string(value);
}

std::int32_t EnumValue(zel::IZelBankDef& bank, std::string const& field, std::string const& word) {
  std::string known;
  for (auto const& [name, value] : WordsOf(bank, field)) {
    if (LowerCase(name) == LowerCase(word)) return value;
    known += (known.empty() ? "" : ", ") + name;
  }
  return WholeNumber(word, "one of the words of " + field + ": " + known);
}

std::size_t CountOf(Field const& field) {
  return static_cast<std::size_t>(std::max(field.count, 1));
}

std::string Listed(std::vector<std::string> const& words) {
  bool const any = std::any_of(words.begin(), words.end(),
                               [](std::string const& word) { return !word.empty(); });
  if (!any) return "";
  std::string text;
  for (std::string const& word : words) {
    text += (text.empty() ? "" : " ") + (word.empty() && words.size() > 1 ? "-" : word);
  }
  return text;
}

// As many words as the field has values, "" for those that are undefined.
std::vector<std::string> Elements(Field const& field, std::string const& text) {
  std::vector<std::string> words = ListWords(text);
  if (CountOf(field) == 1 && !words.empty()) words = {text};  // such as "1.2 bar"
  if (words.size() > CountOf(field)) {
    throw Failure(field.name + " has " + std::to_string(CountOf(field)) + " values, not " +
                  std::to_string(words.size()));
  }
  words.resize(CountOf(field));
  for (std::string& word : words) {
    if (word == "-") word.clear();
  }
  return words;
}

}  // namespace

std::string AllDigits(double value) {
  if (zel::gen_IsUndefDouble(value)) return "";
  char text[40];
  auto const [end, error] = std::to_chars(text, text + sizeof(text), value);
  return {text, end};
}

std::int32_t WholeNumber(std::string const& word, std::string const& what) {
  std::int32_t value = 0;
  char const* const last = word.data() + word.size();
  auto const [end, error] = std::from_chars(word.data(), last, value);
  if (error != std::errc() || end != last) throw Failure("\"" + word + "\" is not " + what);
  return value;
}

std::string FieldText(zel::IZelBankDef& bank, Field const& field, DisplayUnits const& units) {
  char const* const name = field.name.c_str();
  if (field.type == zel::fieldText) {
    std::vector<char> text(std::max<std::size_t>(CountOf(field), 261));
    bank.GetStringField(name, text.data());
    return text.data();
  }
  std::vector<std::string> words;
  if (field.type == zel::fieldReal) {
    std::vector<double> values(CountOf(field), zel::gen_GetUndefDouble());
    bank.GetDoubleField(name, values.data());
    for (double const value : values) words.push_back(AllDigits(units.Shown(value, field.unit)));
    return Listed(words);
  }
  std::vector<std::int32_t> values(CountOf(field), zel::gen_GetUndefInt());
  bank.GetIntField(name, values.data());
  for (std::int32_t const value : values) {
    words.push_back(zel::gen_IsUndefInt(value)           ? ""
                    : field.type == zel::fieldEnumerated ? EnumText(bank, field.name, value)
                                                         : std::to_string(value));
  }
  return Listed(words);
}

double ReadNumber(Field const& field, std::string const& word, DisplayUnits const& units,
                  std::string const& what) {
  if (!field.isNoteUnit) return units.Read(word, field.unit, what);
  std::size_t const end = std::min(word.find_last_of("0123456789.") + 1, word.size());
  std::string const& unit = field.unit;
  bool const hasUnit = word.size() > unit.size() &&
                       word.compare(word.size() - unit.size(), std::string::npos, unit) == 0;
  std::string number = hasUnit ? word.substr(0, word.size() - unit.size()) : word;
  number.erase(number.find_last_not_of(' ') + 1);
  if (!hasUnit && end > 0 && end < word.size() && word.find(',') == std::string::npos) {
    throw WrongUsage("\"" + word + "\" is not " + what + ": its unit is " + unit +
                     ", as a note says, and such units are not converted");
  }
  return ParseNumber(number, what);
}

void SetTextField(zel::IZelBankDef& bank, Field const& field, std::string const& text) {
  CheckText(text, CountOf(field) - 1, field.name);
  if (text != FieldText(bank, field, {})) {
    CheckDocument(text, DocumentPlace::kElement, field.name);
  }
  bank.SetStringField(field.name.c_str(), text.c_str());
}

void SetFieldText(zel::IZelBankDef& bank, Field const& field, std::string const& text,
                  DisplayUnits const& units) {
  char const* const name = field.name.c_str();
  if (field.type == zel::fieldText) return SetTextField(bank, field, text);
  std::vector<std::string> const words = Elements(field, text);
  if (field.type == zel::fieldReal) {
    std::vector<double> values(words.size(), zel::gen_GetUndefDouble());
    for (std::size_t i = 0; i < words.size(); ++i) {
      if (words[i].empty()) continue;
      values[i] = ReadNumber(field, words[i], units, "a number");
      CheckStorable(values[i], field.name);
    }
    bank.SetDoubleField(name, values.data());
    return;
  }
  std::vector<std::int32_t> values(words.size(), zel::gen_GetUndefInt());
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i].empty()) continue;
    values[i] = field.type == zel::fieldEnumerated ? EnumValue(bank, field.name, words[i])
                                                   : WholeNumber(words[i], "a whole number");
  }
  bank.SetIntField(name, values.data());
}

}  // namespace zel::desk
