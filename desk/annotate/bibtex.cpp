#include "desk/annotate/bibtex.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "desk/annotate/latex_text.h"
#include "desk/notes/utf8.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char const* kMonths[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                   "jul", "aug", "sep", "oct", "nov", "dec"};
constexpr char const* kMonthNames[] = {"January",   "February", "March",    "April",
                                       "May",       "June",     "July",     "August",
                                       "September", "October",  "November", "December"};

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
// The characters that names of entries, fields and texts, and keys can have.
bool IsOfName(char c) {
  return !IsBlank(c) && std::string_view("{}()\",=#%\\").find(c) == std::string_view::npos;
}

class Parser {
 public:
  Parser(std::string const& text, std::string const& shownAs) : text_(text), shownAs_(shownAs) {
    for (std::size_t i = 0; i < std::size(kMonths); ++i) strings_[kMonths[i]] = kMonthNames[i];
  }

  std::vector<BibEntry> Take() {
    std::vector<BibEntry> entries;
    while (SkipTo('@')) {
      std::size_t const line = Line();
      ++at_;
      std::string const type = LowerCase(Name("the type of an entry"));
      if (type == "comment") {
        SkipBlanks();
        if (Peek() == '{') Braced();
        continue;
      }
      char const end = Opened(type);
      if (type == "preamble") {
        Value();
      } else if (type == "string") {
        std::string const name = LowerCase(Name("the name of a text"));
        Expect('=');
        strings_[name] = Value();
      } else {
        entries.push_back(Entry(type, line, end));
        continue;
      }
      Expect(end);
    }
    return entries;
  }

 private:
  [[noreturn]] void Fail(std::string const& why) const {
    throw Failure(shownAs_ + ", line " + std::to_string(Line()) + ": " + why);
  }
  std::size_t Line() const {
    auto const begin = text_.begin();
    auto const end = begin + static_cast<std::ptrdiff_t>(std::min(at_, text_.size()));
    return static_cast<std::size_t>(std::count(begin, end, '\n')) + 1;
  }
  char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  bool SkipTo(char c) {
    at_ = std::min(text_.find(c, at_), text_.size());
    return at_ < text_.size();
  }
  void SkipBlanks() {
    while (at_ < text_.size() && IsBlank(text_[at_])) ++at_;
  }
  void Expect(char c) {
    SkipBlanks();
    if (Peek() != c) {
      Fail(std::string("\"") + c + "\" is missing" +
           (at_ < text_.size() ? std::string(" before \"") + Peek() + "\"" : " at the end"));
    }
    ++at_;
  }
  char Opened(std::string const& type) {
    SkipBlanks();
    if (Peek() != '{' && Peek() != '(') Fail("@" + type + " is not followed by {");
    return text_[at_++] == '{' ? '}' : ')';
  }
  std::string Name(std::string const& what) {
    SkipBlanks();
    std::size_t const begin = at_;
    while (at_ < text_.size() && IsOfName(text_[at_])) ++at_;
    if (at_ == begin) Fail(what + " is missing");
    return text_.substr(begin, at_ - begin);
  }
  // A text in braces, which can be nested, without the outer ones.
  std::string Braced() {
    std::size_t const begin = at_;
    int depth = 0;
    for (; at_ < text_.size(); ++at_) {
      if (text_[at_] == '\\' && at_ + 1 < text_.size()) {
        ++at_;
      } else if (text_[at_] == '{') {
        ++depth;
      } else if (text_[at_] == '}' && --depth == 0) {
        ++at_;
        return text_.substr(begin + 1, at_ - begin - 2);
      }
    }
    at_ = begin;
    Fail("the brace { is never closed");
  }
  // A text in quotes; quotes in braces belong to it.
  std::string InQuotes() {
    std::size_t const begin = at_++;
    int depth = 0;
    for (; at_ < text_.size(); ++at_) {
      char const c = text_[at_];
      if (c == '\\' && at_ + 1 < text_.size()) {
        ++at_;
      } else if (c == '{') {
        ++depth;
      } else if (c == '}') {
        --depth;
      } else if (c == '"' && depth == 0) {
        ++at_;
        return text_.substr(begin + 1, at_ - begin - 2);
      }
      if (depth < 0) Fail("a brace } is closed that was not opened");
    }
    at_ = begin;
    Fail("the quote \" is never closed");
  }
  std::string Piece() {
    SkipBlanks();
    if (Peek() == '{') return Braced();
    if (Peek() == '"') return InQuotes();
    std::size_t const before = at_;
    std::string name = Name("a value");
    if (name.find_first_not_of("0123456789") == std::string::npos) return name;
    auto const text = strings_.find(LowerCase(name));
    if (text != strings_.end()) return text->second;
    at_ = before;
    Fail("\"" + name + "\" is not in braces or quotes, and no @string has set it");
  }
  std::string Value() {
    std::string value = Piece();
    for (SkipBlanks(); Peek() == '#'; SkipBlanks()) {
      ++at_;
      value += Piece();
    }
    return value;
  }

  BibEntry Entry(std::string const& type, std::size_t line, char end) {
    BibEntry entry;
    entry.line = line;
    entry.type = type;
    SkipBlanks();
    // A key may be left out.
    if (Peek() != ',' && Peek() != end) entry.key = Name("the key of an entry");
    if (!entry.key.empty() && !keys_.insert(LowerCase(entry.key)).second) {
      Fail("an earlier entry has the key " + entry.key);
    }
    for (SkipBlanks(); Peek() == ','; SkipBlanks()) {
      ++at_;
      SkipBlanks();
      if (Peek() == end) break;
      std::string const name = LowerCase(Name("the name of a field"));
      Expect('=');
      Field(entry, name, Value());
    }
    Expect(end);
    return entry;
  }

  void Field(BibEntry& entry, std::string const& name, std::string const& value) const {
    if (!IsUtf8(value)) Fail("the field " + name + " is not in UTF-8");
    bool const isNames = name == "author" || name == "editor";
    bool const isAddress = name == "doi" || name == "url";
    std::string const text = isNames     ? Names(value)
                             : isAddress ? WithoutEscapes(value)
                                         : PlainText(value);
    if (!entry.fields.emplace(name, text).second) Fail("the field " + name + " occurs twice");
  }

  // Hyphens and tildes of an address stay.
  static std::string WithoutEscapes(std::string value) {
    value.erase(std::remove_if(value.begin(), value.end(),
                               [](char c) { return c == '\\' || c == '{' || c == '}'; }),
                value.end());
    return value;
  }

  // "A, B, and C D": the first name with the surname in front.
  static std::string Names(std::string const& value) {
    std::vector<std::string> const names = SplitNames(value);
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
      bool const isLast = i + 1 == names.size();
      if (i != 0) text += isLast ? ", and " : ", ";
      text += i == 0 ? SurnameFirst(names[i]) : SurnameLast(names[i]);
    }
    return text;
  }
  // Splits at "and" outside of braces.
  static std::vector<std::string> SplitNames(std::string const& value) {
    std::vector<std::string> names(1);
    int depth = 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
      bool const isAnd = depth == 0 && i != 0 && IsBlank(value[i - 1]) &&
                         value.compare(i, 3, "and") == 0 && i + 3 < value.size() &&
                         IsBlank(value[i + 3]);
      if (isAnd) {
        names.emplace_back();
        i += 3;
        continue;
      }
      if (value[i] == '{') ++depth;
      if (value[i] == '}') --depth;
      names.back() += value[i];
    }
    return names;
  }
  // The place of the first, or last, character `wanted` outside of braces; npos without one.
  static std::size_t Outside(std::string const& name, char wanted, bool last) {
    std::size_t found = std::string::npos;
    int depth = 0;
    for (std::size_t i = 0; i < name.size(); ++i) {
      if (name[i] == '{') ++depth;
      if (name[i] == '}') --depth;
      if (depth != 0 || name[i] != wanted) continue;
      found = i;
      if (!last) break;
    }
    return found;
  }
  static std::string SurnameFirst(std::string const& name) {
    if (Outside(name, ',', false) != std::string::npos) return PlainText(name);
    std::string trimmed = name;
    while (!trimmed.empty() && IsBlank(trimmed.back())) trimmed.pop_back();
    trimmed.erase(0, std::min(trimmed.find_first_not_of(" \t\r\n"), trimmed.size()));
    std::size_t const blank = Outside(trimmed, ' ', true);
    if (blank == std::string::npos) return PlainText(trimmed);
    return PlainText(trimmed.substr(blank + 1)) + ", " + PlainText(trimmed.substr(0, blank));
  }
  static std::string SurnameLast(std::string const& name) {
    if (PlainText(name) == "others") return "others";
    std::size_t const comma = Outside(name, ',', false);
    if (comma == std::string::npos) return PlainText(name);
    return PlainText(name.substr(comma + 1)) + " " + PlainText(name.substr(0, comma));
  }

  std::string const& text_;
  std::string const& shownAs_;
  std::size_t at_ = 0;
  std::map<std::string, std::string> strings_;
  std::set<std::string> keys_;
};

// Adds a part of a citation after a comma.
void Add(std::string& text, std::string const& part) {
  if (part.empty()) return;
  text += (text.empty() ? "" : ", ") + part;
}

std::string FirstOf(BibEntry const& entry, std::vector<std::string> const& names) {
  for (std::string const& name : names) {
    if (!entry.Field(name).empty()) return entry.Field(name);
  }
  return "";
}

std::string After(std::string const& blank, std::string const& text) {
  return text.empty() ? "" : blank + text;
}

// "AIChE J. 25 (1979) 653-663"
std::string InJournal(BibEntry const& entry) {
  std::string const year = FirstOf(entry, {"year", "date"});
  return entry.Field("journal") + entry.Field("journaltitle") + After(" ", entry.Field("volume")) +
         (year.empty() ? "" : " (" + year + ")") + After(" ", entry.Field("pages"));
}

}  // namespace

std::string const& BibEntry::Field(std::string const& name) const {
  static std::string const none;
  auto const at = fields.find(name);
  return at == fields.end() ? none : at->second;
}

std::vector<BibEntry> ParseBibTeX(std::string const& text, std::string const& shownAs) {
  return Parser(text, shownAs).Take();
}

std::string CitationText(BibEntry const& entry) {
  std::string text = FirstOf(entry, {"author", "editor"});
  Add(text, entry.Field("title"));
  if (!FirstOf(entry, {"journal", "journaltitle"}).empty()) {
    Add(text, InJournal(entry));
  } else {
    Add(text, entry.Field("booktitle"));
    std::string const edition = entry.Field("edition");
    Add(text, edition.empty() ? "" : edition + " ed.");
    Add(text, After("Vol. ", entry.Field("volume")));
    std::string const publisher =
        FirstOf(entry, {"publisher", "school", "institution", "organization", "howpublished"});
    std::string const year = FirstOf(entry, {"year", "date"});
    Add(text, publisher + (publisher.empty() || year.empty() ? "" : " ") + year);
    Add(text, After("pp. ", entry.Field("pages")));
  }
  Add(text, entry.Field("note"));
  return text;
}

std::string ToBibTeX(std::string const& key, std::string const& citation, std::string const& doi) {
  std::string text = "@misc{" + key + ",\n  note = {" + LatexText(citation) + "}";
  if (!doi.empty()) text += ",\n  doi = {" + LatexText(doi) + "}";
  return text + "\n}\n";
}

}  // namespace zel::desk
