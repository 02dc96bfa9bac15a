#include "desk/open/storable.h"

#include <zelaccess/Key_p.h>
#include <zelaccess/ZelAccess.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "desk/words/failure.h"

namespace zel::desk {
namespace {

using Letters = std::array<bool, 256>;

// What remains of each letter in a key: keys are coded like all texts of a library.
Letters FindLetters() {
  constexpr std::size_t kKeyText = 41;
  Letters letters = {};
  zel::Handle<zel::Key> const key(zel::Key::NewKey());
  for (std::size_t i = 1; i < letters.size(); ++i) {
    char const text[] = {static_cast<char>(i), '\0'};
    char kept[kKeyText] = {};
    key->SetKeyText(1, text);
    zel::GetKeyText(dynamic_cast<zel::Key_p const&>(*key).GetKeyWords(), 1, kept);
    letters[i] = kept[0] == text[0];
  }
  letters[' '] = true;
  return letters;
}

bool IsLetter(char letter) {
  static Letters const letters = FindLetters();
  return letters[static_cast<unsigned char>(letter)];
}

Cell ValueIn(std::vector<NamedValue> const& values, std::string const& name) {
  auto const at = std::find_if(values.begin(), values.end(),
                               [&](NamedValue const& value) { return value.name == name; });
  return at == values.end() ? Cell() : at->value;
}

}  // namespace

void CheckStorable(double value, std::string const& name) {
  if (value == zel::gen_GetUndefDouble()) return;
  constexpr double kLargest = std::numeric_limits<float>::max();
  bool const isFinite = std::abs(value) <= kLargest;
  bool const isDefined =
      isFinite && static_cast<float>(value) > static_cast<float>(zel::gen_GetUndefDouble());
  if (!isDefined) throw Failure(name + " cannot be stored as " + Digits(value));
}

void CheckLetters(std::string const& text, std::string const& what) {
  auto const bad =
      std::find_if(text.begin(), text.end(), [](char letter) { return !IsLetter(letter); });
  if (bad == text.end()) return;
  throw Failure(what + " has characters that a library cannot store, from \"" +
                std::string(bad, text.end()) + "\" on");
}

void CheckText(std::string const& text, std::size_t longest, std::string const& what) {
  if (text.size() > longest) {
    throw Failure(what + " has at most " + std::to_string(longest) + " characters, not " +
                  std::to_string(text.size()));
  }
  if (std::any_of(text.begin(), text.end(),
                  [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; })) {
    throw Failure(what + " has a control character");
  }
  CheckLetters(text, what);
}

std::string NotForDocument(std::string const& text, DocumentPlace place) {
  if (place == DocumentPlace::kMemo) {
    return text.find("]]>") == std::string::npos ? "" : "\"]]>\"";
  }
  std::size_t const at = text.find_first_of(place == DocumentPlace::kAttribute ? "&<\"" : "&<");
  if (at == std::string::npos) return "";
  return text[at] == '"' ? "a quotation mark" : "\"" + text.substr(at, 1) + "\"";
}

void CheckDocument(std::string const& text, DocumentPlace place, std::string const& what) {
  std::string const found = NotForDocument(text, place);
  if (!found.empty()) throw Failure(what + " has " + found + ", which a document cannot hold");
}

void CheckStored(std::vector<NamedValue> const& wanted, std::vector<NamedValue> const& stored) {
  constexpr double kRounding = 1e-6;
  for (NamedValue const& value : wanted) {
    Cell const kept = ValueIn(stored, value.name);
    auto const* const one = std::get_if<double>(&value.value);
    auto const* const other = std::get_if<double>(&kept);
    bool const isSame = one != nullptr && other != nullptr
                            ? std::abs(*one - *other) <= kRounding * std::abs(*one)
                            : kept == value.value;
    if (isSame) continue;
    throw Failure(value.name + " cannot be stored as " + CellText(value.value) + ", only as " +
                  CellText(kept));
  }
}

}  // namespace zel::desk
