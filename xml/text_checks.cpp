#include "xml/text_checks.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "frame/number_text.h"
#include "store/packed_text.h"

namespace zel {

namespace {

constexpr std::size_t kLongestShown = 120;
constexpr std::string_view kWhiteSpace = " \t\r\n";

enum class Form : std::uint8_t { kGood, kMalformed, kOutOfRange };

std::string_view Trimmed(std::string_view text) noexcept {
  std::size_t const start = text.find_first_not_of(kWhiteSpace);
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(kWhiteSpace) + 1 - start);
}

// Reads a number that must be the whole text.
template <typename Number>
Form FormOf(std::string_view text, Number& value) noexcept {
  text = Trimmed(text);
  bool const plus = text.size() > 1 && text[0] == '+' && text[1] != '-' && text[1] != '+';
  if (plus) text.remove_prefix(1);
  auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::invalid_argument || result.ptr != text.data() + text.size()) {
    return Form::kMalformed;
  }
  return result.ec == std::errc() ? Form::kGood : Form::kOutOfRange;
}

// Files hold reals in single precision.
Form FormOfReal(std::string_view text) noexcept {
  double value = 0.0;
  Form const form = FormOf(text, value);
  if (form != Form::kGood) return form;
  if (!std::isfinite(value)) return Form::kMalformed;
  double const size = std::abs(value);
  bool const fits =
      size <= static_cast<double>(std::numeric_limits<float>::max()) &&
      (size == 0.0 || size >= static_cast<double>(std::numeric_limits<float>::denorm_min()));
  return fits ? Form::kGood : Form::kOutOfRange;
}

Form FormOfInt(std::string_view text) noexcept {
  std::int32_t value = 0;
  return FormOf(text, value);
}

std::string OneLine(std::string_view text) {
  std::string line(Trimmed(text));
  for (char& c : line) {
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  return line;
}

// The text in quotes, on one line and of limited length.
std::string Quoted(std::string_view text) {
  return "\"" + OneLine(text.substr(0, kLongestShown)) +
         (text.size() > kLongestShown ? "...\"" : "\"");
}

std::string Fault(Form form, char const* what) {
  return form == Form::kOutOfRange ? " is out of range" : std::string(" is not ") + what;
}

}  // namespace

void TextChecks::Say(bool isError, XmlNode at, std::string_view attribute, std::string_view words,
                     LogDetail detail) {
  detail.line = at.Line();
  std::string message = "line " + std::to_string(at.Line()) + ": <" + std::string(at.Name()) + "> ";
  if (!attribute.empty()) message.append(attribute).append(" ");
  message.append(words);
  if (!isError) {
    log_.ReportWarning(message, detail);
  } else if (!Ended()) {
    refused_ = true;
    verdict_ = log_.ReportError(message, detail);
  }
}

void TextChecks::Malformed(XmlNode at, std::string_view attribute, std::string_view words,
                           std::string_view text, std::string kept) {
  ++malformed_;
  if (Refuses()) kept.clear();
  Say(Refuses(), at, attribute, words,
      {logMalformedNumber, 0, std::string(Trimmed(text)), std::move(kept)});
}

double TextChecks::Real(XmlNode at, std::string_view text, std::string_view attribute) {
  double const value = ParseReal(text);
  if (!On()) return value;
  Form const form = FormOfReal(text);
  if (form != Form::kGood) {
    constexpr int kDigits = 7;  // as many as a library keeps
    Malformed(at, attribute, Quoted(text) + Fault(form, "a number"), text,
              RealText(value, kDigits));
  }
  return value;
}

std::int32_t TextChecks::Int(XmlNode at, std::string_view text, std::string_view attribute) {
  std::int32_t const value = ParseInt(text);
  if (!On()) return value;
  Form const form = FormOfInt(text);
  if (form != Form::kGood) {
    Malformed(at, attribute, Quoted(text) + Fault(form, "a whole number"), text,
              std::to_string(value));
  }
  return value;
}

void TextChecks::CheckGroup(XmlNode at, std::string_view text) {
  if (!On()) return;
  std::string_view const group = Trimmed(text);
  std::size_t const open = std::min(group.find('('), group.size());
  bool const good = FormOfInt(group.substr(0, open)) == Form::kGood && open < group.size() &&
                    group.back() == ')' &&
                    FormOfInt(group.substr(open + 1, group.size() - open - 2)) == Form::kGood;
  if (!good) Malformed(at, {}, Quoted(text) + " is not a group, number(count)", text);
}

void TextChecks::CheckCount(XmlNode at, std::size_t found, std::size_t places) {
  if (!On() || found <= places) return;
  Malformed(at, {},
            "has " + std::to_string(found) + " values, of which " + std::to_string(places) +
                " have a place");
}

void TextChecks::CheckOnce(XmlNode at, std::string_view key, bool& seen) {
  if (On() && seen) Malformed(at, {}, Quoted(key) + " stands here a second time", key);
  seen = true;
}

std::string TextChecks::Packed(std::string_view text, std::size_t room) {
  constexpr std::size_t kLongest = 100;
  constexpr std::size_t kPerWord = 4;
  std::size_t const longest = std::min(room - 1, kLongest);
  std::int32_t words[kLongest / kPerWord];
  char kept[kLongest + 1];
  auto const count = static_cast<int>((longest + kPerWord - 1) / kPerWord);
  TextToWords(text.substr(0, longest), words, count);
  WordsToText(words, count, kept);
  return kept;
}

void TextChecks::CheckText(XmlNode at, std::string_view text, std::size_t room,
                           std::string_view attribute) {
  if (On()) CheckKept(at, text, Packed(text, room), attribute);
}

void TextChecks::CheckKept(XmlNode at, std::string_view text, std::string_view kept,
                           std::string_view attribute) {
  if (On() && OneLine(text) != OneLine(kept)) Altered(at, text, kept, attribute);
}

void TextChecks::Altered(XmlNode at, std::string_view text, std::string_view kept,
                         std::string_view attribute) {
  if (!On()) return;
  ++altered_;
  bool const isCut = kept.size() > kLongestShown && Trimmed(text).substr(0, kept.size()) == kept;
  std::string const how = isCut ? " is cut after " + std::to_string(kept.size()) + " characters"
                                : " is kept as " + Quoted(kept);
  Say(level_ >= importStrict, at, attribute, Quoted(text) + how,
      {logAlteredText, 0, std::string(Trimmed(text)), std::string(kept)});
}

}  // namespace zel
