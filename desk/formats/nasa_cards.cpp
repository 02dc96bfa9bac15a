// Files of fixed columns: four cards a species for 7 coefficients, three a range for 9.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <sstream>

#include "desk/formats/nasa.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"
#include "desk/words/number_words.h"

namespace zel::desk {
namespace {

struct Card {
  std::size_t line = 0;
  std::string text;
};

std::string Trimmed(std::string const& text) {
  std::size_t const first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// Columns from 1; empty beyond the end of the card.
std::string Columns(Card const& card, std::size_t from, std::size_t to) {
  return from > card.text.size() ? "" : Trimmed(card.text.substr(from - 1, to - from + 1));
}

// A number, whose exponent may be written with D. Throws Failure.
double NumberAt(Card const& card, std::size_t from, std::size_t to) {
  std::string text = Columns(card, from, to);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == 'D' || c == 'd'; }, 'E');
  // "1.5E 03" is written by some programs for 1.5E+03.
  std::size_t const blank = text.find("E ");
  if (blank != std::string::npos) text[blank + 1] = '+';
  try {
    return ParseNumber(text, "a number");
  } catch (WrongUsage const& error) {
    throw Failure("line " + std::to_string(card.line) + ", columns " + std::to_string(from) +
                  " to " + std::to_string(to) + ": " + error.what());
  }
}

std::vector<double> NumbersOf(std::string const& text) {
  std::istringstream stream(text);
  std::vector<double> numbers;
  for (std::string word; stream >> word;) {
    if (!IsNumberWord(word)) break;
    numbers.push_back(ParseNumber(word, "a number"));
  }
  return numbers;
}

void AddElement(Card const& card, std::size_t from, std::size_t letters, std::size_t digits,
                NasaSpecies& species) {
  std::string symbol = Columns(card, from, from + letters - 1);
  std::string const count = Columns(card, from + letters, from + letters + digits - 1);
  bool const isSymbol = std::all_of(symbol.begin(), symbol.end(),
                                    [](unsigned char letter) { return std::isalpha(letter) != 0; });
  if (symbol.empty() || !isSymbol || count.empty()) return;
  symbol = LowerCase(symbol);
  symbol[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(symbol[0])));
  if (IsNumberWord(count)) species.elements[symbol] += ParseNumber(count, "a number");
}

class CardReader {
 public:
  CardReader(std::string const& path, ForeignOptions const& options)
      : path_(path), options_(options) {
    std::istringstream text(ForeignText(path));
    std::size_t number = 0;
    for (std::string line; std::getline(text, line);) {
      ++number;
      if (!line.empty() && line.back() == '\r') line.pop_back();
      bool const isSpare = Trimmed(line).empty() || line[0] == '!' || line[0] == '#';
      if (!isSpare) cards_.push_back({number, line});
    }
  }

  ForeignFile Read() {
    bool const hasHeader = SkipTo();
    ForeignFile file;
    file.namesAreFormulas = true;
    while (at_ < cards_.size() && !IsEnd(cards_[at_])) {
      NasaSpecies const species = isNine_ ? ReadNine() : ReadSeven();
      file.components.push_back(FromNasa(species, options_));
    }
    if (file.components.empty()) {
      throw Failure(path_ + (hasHeader ? ": has no species" : ": has no line THERMO"));
    }
    return file;
  }

 private:
  static bool IsEnd(Card const& card) {
    std::string const word = UpperCase(card.text.substr(0, 3));
    return word == "END" && (card.text.size() == 3 || card.text[3] == ' ');
  }
  static bool IsHeader(Card const& card) {
    return UpperCase(Trimmed(card.text)).rfind("THERMO", 0) == 0;
  }

  // To the first species, past the line THERMO and that of the usual temperatures.
  bool SkipTo() {
    while (at_ < cards_.size() && !IsHeader(cards_[at_])) ++at_;
    if (at_ == cards_.size()) return false;
    std::string const header = UpperCase(cards_[at_].text);
    isNine_ = header.find("NASA9") != std::string::npos;
    ++at_;
    if (at_ == cards_.size()) return true;
    std::vector<double> const numbers = NumbersOf(cards_[at_].text);
    constexpr std::size_t kOfSeven = 3;
    if (numbers.size() < kOfSeven) return true;
    usual_ = numbers;
    isNine_ = isNine_ || numbers.size() > kOfSeven;
    ++at_;
    return true;
  }

  // The next card, which must be there.
  Card const& Next(std::size_t first) {
    if (at_ < cards_.size() && !IsEnd(cards_[at_])) return cards_[at_++];
    throw Failure(path_ + ", line " + std::to_string(first) +
                  ": the file ends within this species");
  }

  NasaSpecies ReadSeven() {
    Card const& first = cards_[at_++];
    CheckCard(first, '1', first.line);
    NasaSpecies species;
    species.line = first.line;
    species.name = Columns(first, 1, 18);
    species.name = species.name.substr(0, species.name.find(' '));
    for (std::size_t const column : {25U, 30U, 35U, 40U}) AddElement(first, column, 2, 3, species);
    bool const hasWeight = HasWeight(first, species);
    if (!hasWeight) AddElement(first, 74, 2, 3, species);
    std::string const phase = UpperCase(Columns(first, 45, 45));
    if (phase == "S" || phase == "L" || phase == "C") species.notGas = kNotGas;
    std::vector<Card> cards;
    for (char number = '2'; number <= '4'; ++number) {
      cards.push_back(Next(first.line));
      CheckCard(cards.back(), number, first.line);
    }
    Fill(species, [&] { species.ranges = RangesOfSeven(first, cards, hasWeight, species.remark); });
    return species;
  }

  void CheckCard(Card const& card, char number, std::size_t first) const {
    constexpr std::size_t kColumn = 80;
    if (card.text.size() >= kColumn && card.text[kColumn - 1] == number) return;
    throw Failure(path_ + ", line " + std::to_string(card.line) + ": column 80 is not " + number +
                  (card.line == first ? "" : ", in the species of line " + std::to_string(first)));
  }

  // True if columns 66 to 78 do not have a common temperature and an element, but a molecular
  // weight, perhaps with a letter before it: they are one number, the columns of the temperature
  // are not a number, or one out of the range or the weight of the atoms.
  static bool HasWeight(Card const& first, NasaSpecies const& species) {
    std::string const text = Columns(first, 66, 73);
    if (text.empty()) return false;
    if (!IsNumberWord(text)) return true;
    bool const isOneWord = first.text[72] != ' ' && first.text.size() > 73 && first.text[73] != ' ';
    if (isOneWord && IsNumberWord(Columns(first, 66, 78))) return true;
    double const number = ParseNumber(text, "");
    double const weight = zel::GetFormulaWeight(FormulaOf(species.elements).c_str());
    constexpr double kRounding = 0.1;
    if (!zel::gen_IsUndefDouble(weight) && std::abs(number - weight) < kRounding) return true;
    std::string const low = Columns(first, 46, 55);
    std::string const high = Columns(first, 56, 65);
    bool const hasRange = IsNumberWord(low) && IsNumberWord(high);
    return hasRange && !(number > ParseNumber(low, "") && number < ParseNumber(high, ""));
  }

  std::vector<NasaRange> RangesOfSeven(Card const& first, std::vector<Card> const& cards,
                                       bool hasWeight, std::string& remark) const {
    constexpr std::size_t kWidth = 15;
    constexpr std::size_t kEach = 7;
    std::vector<double> all;  // of the high range first
    for (std::size_t i = 0; i < 2 * kEach; ++i) {
      std::size_t const column = 1 + i % 5 * kWidth;
      all.push_back(NumberAt(cards[i / 5], column, column + kWidth - 1));
    }
    double const low = NumberAt(first, 46, 55);
    double const high = NumberAt(first, 56, 65);
    bool const hasCommon = !hasWeight && !Columns(first, 66, 73).empty();
    if (!hasCommon && usual_.size() < 3) throw Failure("it has no common temperature");
    double const common = hasCommon ? NumberAt(first, 66, 73) : usual_[1];
    constexpr double kMuch = 2.0;
    bool const isFar =
        usual_.size() >= 3 && (common > kMuch * usual_[1] || common < usual_[1] / kMuch);
    if (hasWeight) {
      remark = "columns 66 to 78 are not a common temperature; the usual one, " + Digits(common) +
               " K, is taken";
    } else if (isFar) {
      remark = "the common temperature " + Digits(common) + " K is far from the usual one, " +
               Digits(usual_[1]) + " K";
    }
    auto const begin = all.begin();
    return {{first.line, low, common, {begin + kEach, all.end()}},
            {first.line, common, high, {begin, begin + kEach}}};
  }

  NasaSpecies ReadNine() {
    Card const& first = cards_[at_++];
    Card const& second = Next(first.line);
    NasaSpecies species;
    species.line = first.line;
    species.name = Columns(first, 1, 24);
    species.name = species.name.substr(0, species.name.find(' '));
    for (std::size_t column = 11; column <= 43; column += 8)
      AddElement(second, column, 2, 6, species);
    std::string const count = Columns(second, 1, 2);
    constexpr double kMost = 9.0;
    bool const isCount = IsNumberWord(count) && ParseNumber(count, "") >= 0.0 &&
                         ParseNumber(count, "") <= kMost &&
                         ParseNumber(count, "") == std::floor(ParseNumber(count, ""));
    if (!isCount) {
      throw Failure(path_ + ", line " + std::to_string(second.line) +
                    ": columns 1 to 2 are not the number of ranges");
    }
    if (Columns(second, 51, 52) != "0") species.notGas = kNotGas;
    auto const ranges = static_cast<std::size_t>(ParseNumber(count, ""));
    if (ranges == 0) {
      Next(first.line);  // a temperature and its enthalpy alone
      return species;
    }
    std::vector<Card> cards;
    for (std::size_t i = 0; i < 3 * ranges; ++i) cards.push_back(Next(first.line));
    Fill(species, [&] {
      for (std::size_t i = 0; i < ranges; ++i) {
        species.ranges.push_back(RangeOfNine({cards[3 * i], cards[3 * i + 1], cards[3 * i + 2]}));
      }
    });
    return species;
  }

  static NasaRange RangeOfNine(std::vector<Card> const& cards) {
    constexpr std::size_t kWidth = 16;
    NasaRange range;
    range.line = cards[0].line;
    range.low = NumberAt(cards[0], 1, 11);
    range.high = NumberAt(cards[0], 12, 22);
    std::vector<double> exponents = NumbersOf(Columns(cards[0], 24, 63));
    std::vector<double> const usual = {-2, -1, 0, 1, 2, 3, 4};
    exponents.resize(std::min(exponents.size(), usual.size()));
    if (exponents != usual) {
      throw Failure("line " + std::to_string(range.line) + ": the exponents are not -2 to 4");
    }
    for (std::size_t i = 0; i < 5; ++i) {
      range.a.push_back(NumberAt(cards[1], 1 + i * kWidth, (i + 1) * kWidth));
    }
    for (std::size_t const i : {0U, 1U, 3U, 4U}) {
      range.a.push_back(NumberAt(cards[2], 1 + i * kWidth, (i + 1) * kWidth));
    }
    return range;
  }

  // Numbers that are wrong are a fault of the species.
  template <typename Work>
  static void Fill(NasaSpecies& species, Work const& work) {
    try {
      work();
      for (NasaRange const& range : species.ranges) {
        if (!(range.low > 0.0 && range.low < range.high)) {
          throw Failure("the range " + Digits(range.low) + " to " + Digits(range.high) +
                        " K is not one");
        }
      }
    } catch (Failure const& failure) {
      species.fault = failure.what();
    }
  }

  std::string path_;
  ForeignOptions const& options_;
  std::vector<Card> cards_;
  std::size_t at_ = 0;
  bool isNine_ = false;
  std::vector<double> usual_;
};

}  // namespace

ForeignFile ReadNasa(std::string const& path, ForeignOptions const& options) {
  std::string const lower = LowerCase(path);
  auto const ends = [&](std::string const& ending) {
    return lower.size() > ending.size() &&
           lower.compare(lower.size() - ending.size(), ending.size(), ending) == 0;
  };
  if (ends(".yaml") || ends(".yml")) return ReadNasaYaml(path, options);
  return CardReader(path, options).Read();
}

}  // namespace zel::desk
