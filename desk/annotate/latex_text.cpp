#include "desk/annotate/latex_text.h"

#include <algorithm>
#include <string_view>

#include "desk/notes/utf8.h"

namespace zel::desk {
namespace {

// An accent, the letters that have it as one character, and the character that follows any other
// letter.
struct Accent {
  char command;
  std::string_view letters;
  std::u32string_view characters;
  char32_t combining;
};
constexpr Accent kAccents[] = {
    {'\'', "aeiouyAEIOUYcCnNsSzZlLrR", U"áéíóúýÁÉÍÓÚÝćĆńŃśŚźŹĺĹŕŔ", 0x301},
    {'`', "aeiouAEIOU", U"àèìòùÀÈÌÒÙ", 0x300},
    {'^', "aeiouAEIOU", U"âêîôûÂÊÎÔÛ", 0x302},
    {'"', "aeiouyAEIOU", U"äëïöüÿÄËÏÖÜ", 0x308},
    {'~', "anoANO", U"ãñõÃÑÕ", 0x303},
    {'=', "aeiouAEIOU", U"āēīōūĀĒĪŌŪ", 0x304},
    {'.', "zZeEcCgGI", U"żŻėĖċĊġĠİ", 0x307},
    {'u', "aAgGeEoOuU", U"ăĂğĞĕĔŏŎŭŬ", 0x306},
    {'v', "cCsSzZrReEnNdDtT", U"čČšŠžŽřŘěĚňŇďĎťŤ", 0x30C},
    {'H', "oOuU", U"őŐűŰ", 0x30B},
    {'c', "cCsStT", U"çÇşŞţŢ", 0x327},
    {'k', "aAeEiIuU", U"ąĄęĘįĮųŲ", 0x328},
    {'r', "aAuU", U"åÅůŮ", 0x30A},
    {'d', "", U"", 0x323},
    {'b', "", U"", 0x331}};

struct Letter {
  std::string_view command;
  std::string_view text;
};
constexpr Letter kLetters[] = {{"ss", "ß"},
                               {"o", "ø"},
                               {"O", "Ø"},
                               {"l", "ł"},
                               {"L", "Ł"},
                               {"ae", "æ"},
                               {"AE", "Æ"},
                               {"oe", "œ"},
                               {"OE", "Œ"},
                               {"aa", "å"},
                               {"AA", "Å"},
                               {"i", "i"},
                               {"j", "j"},
                               {"dh", "ð"},
                               {"DH", "Ð"},
                               {"dj", "đ"},
                               {"DJ", "Đ"},
                               {"th", "þ"},
                               {"TH", "Þ"},
                               {"textendash", "-"},
                               {"textemdash", "-"},
                               {"textbackslash", "\\"},
                               {"textasciitilde", "~"},
                               {"textasciicircum", "^"},
                               {"textquotesingle", "'"},
                               {"textdegree", "°"},
                               {"S", "§"},
                               {"copyright", "©"},
                               {"ldots", "..."},
                               {"dots", "..."}};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

class Reader {
 public:
  explicit Reader(std::string const& latex) : rest_(latex) {}

  std::string Take() {
    while (!rest_.empty()) Step();
    while (!text_.empty() && text_.back() == ' ') text_.pop_back();
    return std::move(text_);
  }

 private:
  void Put(std::string_view text) { text_ += text; }
  void Blank() {
    if (!text_.empty() && text_.back() != ' ') text_ += ' ';
  }
  bool Drop(std::string_view text) {
    if (rest_.substr(0, text.size()) != text) return false;
    rest_.remove_prefix(text.size());
    return true;
  }
  void DropBlanks() {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
  }

  void Step() {
    if (Drop("---") || Drop("--")) return Put("-");
    if (Drop("``") || Drop("''")) return Put("\"");
    char const c = rest_.front();
    rest_.remove_prefix(1);
    if (c == '\\') return Command();
    if (c == '~' || IsBlank(c)) return Blank();
    if (c != '{' && c != '}' && c != '$') text_ += c;
  }

  void Command() {
    if (rest_.empty()) return;
    std::size_t length = 1;
    if (IsLetter(rest_.front())) {
      while (length < rest_.size() && IsLetter(rest_[length])) ++length;
    }
    std::string_view const command = rest_.substr(0, length);
    rest_.remove_prefix(length);
    if (command.size() == 1 && Accented(command.front())) return;
    auto const at = std::find_if(std::begin(kLetters), std::end(kLetters),
                                 [&](Letter const& one) { return one.command == command; });
    if (IsLetter(command.front())) {
      DropBlanks();
      if (at != std::end(kLetters)) Put(at->text);
    } else if (command == "\\" || IsBlank(command.front())) {
      Blank();
    } else if (std::string_view("&%$#_{}").find(command) != std::string_view::npos) {
      Put(command);
    }
  }

  // The letter of an accent: "e", "{e}", "\i" or "{\i}". False if the command is not an accent.
  bool Accented(char command) {
    auto const accent = std::find_if(std::begin(kAccents), std::end(kAccents),
                                     [&](Accent const& one) { return one.command == command; });
    if (accent == std::end(kAccents)) return false;
    // "\c c" is an accent; "\copyright" has been read as one command before.
    DropBlanks();
    bool const isInBraces = Drop("{");
    Drop("\\");
    if (rest_.empty() || !IsLetter(rest_.front())) return true;
    char const letter = rest_.front();
    rest_.remove_prefix(1);
    std::size_t const at = accent->letters.find(letter);
    if (at != std::string_view::npos) {
      AppendUtf8(text_, accent->characters[at]);
    } else {
      text_ += letter;
      AppendUtf8(text_, accent->combining);
    }
    if (isInBraces) Drop("}");
    return true;
  }

  std::string_view rest_;
  std::string text_;
};

}  // namespace

std::string PlainText(std::string const& latex) { return Reader(latex).Take(); }

std::string LatexText(std::string const& plain) {
  std::string latex;
  for (char const c : plain) {
    bool const isPair = !latex.empty() && latex.back() == c && (c == '-' || c == '`' || c == '\'');
    if (isPair) latex += "{}";
    if (c == '\\') {
      latex += "\\textbackslash{}";
    } else if (c == '~') {
      latex += "\\textasciitilde{}";
    } else if (c == '^') {
      latex += "\\textasciicircum{}";
    } else {
      if (std::string_view("&%$#_{}").find(c) != std::string_view::npos) latex += '\\';
      latex += c;
    }
  }
  return latex;
}

}  // namespace zel::desk
