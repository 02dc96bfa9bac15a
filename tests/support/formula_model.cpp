#include "tests/support/formula_model.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace zel::test {

char const kElementList[] =
    "H D He Li Be B C N O F Ne Na Mg Al Si P S Cl Ar K Ca Sc Ti V Cr Mn Fe Co Ni Cu Zn Ga Ge As Se "
    "Br Kr Rb Sr Y Zr Nb Mo Tc Ru Rh Pd Ag Cd In Sn Sb Te I Xe Cs Ba La Ce Pr Nd Pm Sm Eu Gd Tb Dy "
    "Ho Er Tm Yb Lu Hf Ta W Re Os Ir Pt Au Hg Tl Pb Bi Po At Rn Fr Ra Ac Th Pa U Np Pu Am Cm Bk Cf "
    "Es Fm Md No Lr Rf Db Sg Bh Hs Mt Ds Rg Cn Fl Lv";

namespace {

bool Upper(char c) {
  return std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ").find(c) != std::string::npos;
}
bool Lower(char c) {
  return std::string("abcdefghijklmnopqrstuvwxyz").find(c) != std::string::npos;
}
bool Digit(char c) { return std::string("0123456789").find(c) != std::string::npos; }

std::string LowerCase(std::string text) {
  for (char& c : text) {
    if (Upper(c)) c = static_cast<char>(c + ('a' - 'A'));
  }
  return text;
}

bool Known(std::string const& symbol) {
  std::istringstream list(kElementList);
  std::string element;
  while (list >> element) {
    if (element == symbol) return true;
  }
  return false;
}

class Reader {
 public:
  Reader(std::string text, std::size_t presets, bool sequence, ModelFormula& result)
      : rest_(std::move(text)), presets_(presets), sequence_(sequence), result_(result) {}

  bool Whole() {
    if (!Sequence(result_.counts, false)) return false;
    result_.carbonAndHydrogen = carbon_ && hydrogen_;
    for (std::string const& symbol : result_.elements) {
      if (!symbol.empty() && !Known(symbol)) return false;
    }
    if (rest_.empty()) return true;
    rest_.erase(0, 1);
    int const count = Count();
    if (rest_ != "H2O") return false;
    result_.hydrate = count;
    return true;
  }

 private:
  // Parses up to the end of the sequence, which is not consumed: a point or the end of the text, or
  // a closing parenthesis.
  bool Sequence(std::vector<double>& counts, bool inParentheses) {
    char const end = inParentheses ? ')' : '.';
    if (rest_.empty()) return !inParentheses;
    if (rest_[0] == end) return true;
    if (rest_[0] == '(') {
      rest_.erase(0, 1);
      std::vector<double> inner(counts.size(), 0.0);
      if (!Sequence(inner, true)) return false;
      rest_.erase(0, 1);
      int const times = Count();
      for (std::size_t i = 0; i < counts.size(); ++i) counts[i] += inner[i] * times;
    } else if (Upper(rest_[0])) {
      Element(counts);
    } else {
      return false;
    }
    return Sequence(counts, inParentheses);
  }

  void Element(std::vector<double>& counts) {
    std::string const symbol = rest_.substr(0, rest_.size() > 1 && Lower(rest_[1]) ? 2 : 1);
    rest_.erase(0, symbol.size());
    carbon_ = carbon_ || symbol == "C";
    hydrogen_ = hydrogen_ || symbol == "H";
    int const count = Count();
    std::size_t slot = 0;
    while (slot < counts.size() && !result_.elements[slot].empty()) {
      bool const compared = !sequence_ || slot < presets_;
      if (compared && result_.elements[slot] == symbol) break;
      ++slot;
    }
    if (slot == counts.size()) return;
    result_.elements[slot] = symbol;
    counts[slot] += count;
    result_.found = std::max(result_.found, static_cast<int>(slot) + 1);
  }

  int Count() {
    std::string digits;
    for (; !rest_.empty() && Digit(rest_[0]); rest_.erase(0, 1)) digits += rest_[0];
    return digits.empty() ? 1 : std::stoi(digits.substr(0, 4));
  }

  std::string rest_;
  std::size_t presets_;
  bool sequence_;
  ModelFormula& result_;
  bool carbon_ = false;
  bool hydrogen_ = false;
};

// Hill order for keys of symbols: "C " before "H " before the others.
std::string Rank(std::string const& key, bool hill) {
  if (hill && key.substr(0, 2) == "C ") return "0" + key;
  if (hill && key.substr(0, 2) == "H ") return "1" + key;
  return "2" + key;
}

std::string NormalModel(ModelFormula const& parsed) {
  std::vector<std::string> keys;
  for (std::size_t i = 0; i < parsed.elements.size(); ++i) {
    auto const count = static_cast<long>(parsed.counts[i]);
    if (count == 0) continue;
    std::ostringstream key;
    key << std::left << std::setw(3) << parsed.elements[i] << parsed.elements[i];
    if (count > 1) key << count;
    keys.push_back(Rank(key.str().substr(0, 9), parsed.carbonAndHydrogen));
  }
  std::sort(keys.begin(), keys.end());
  std::string text;
  for (std::string const& key : keys) text += key.substr(4);
  text = text.substr(0, 20);
  if (parsed.hydrate == 1) text += ".H2O";
  if (parsed.hydrate > 1) text += "." + std::to_string(parsed.hydrate) + "H2O";
  return text.substr(0, 20);
}

constexpr std::size_t kSlots = 20;

}  // namespace

ModelFormula ParseModel(std::string const& text, std::size_t capacity,
                        std::vector<std::string> const& preset, bool sequence) {
  ModelFormula result;
  result.elements = preset;
  result.elements.resize(capacity);
  result.counts.resize(capacity, 0.0);
  result.found = static_cast<int>(preset.size());
  std::string const word = LowerCase(text);
  bool const none = word.empty() || word == "mixture" || word == "petro";
  result.parsed = none || Reader(text, preset.size(), sequence, result).Whole();
  return result;
}

ModelNormal NormaliseModel(std::string const& formula, std::string const& work, bool strict) {
  if (LowerCase(formula) == "mixture") return {1, "Mixture", ""};
  if (LowerCase(formula) == "petro") return {1, "Petro", ""};
  ModelFormula const parsed = ParseModel(formula, kSlots, {}, false);
  if (!parsed.parsed) return {1, formula, work};
  std::string const normal = NormalModel(parsed);
  if (parsed.carbonAndHydrogen && !strict) return {1, normal, ""};
  if (normal != formula) return {2, formula, normal};
  return {1, normal, ""};
}

std::string SortKeyModel(std::string const& formula) {
  if (LowerCase(formula) == "mixture") return "Mixture";
  if (LowerCase(formula) == "petro") return "Petro";
  ModelFormula const parsed = ParseModel(formula, kSlots, {}, true);
  if (!parsed.parsed) return std::string(1, '\1');
  std::ostringstream key;
  for (std::size_t i = 0; i < static_cast<std::size_t>(parsed.found); ++i) {
    key << std::left << std::setfill(' ') << std::setw(2) << parsed.elements[i];
    key << std::right << std::setfill('0') << std::setw(3) << static_cast<long>(parsed.counts[i]);
  }
  if (parsed.hydrate != 0) {
    key << "zz" << std::right << std::setfill('0') << std::setw(3) << parsed.hydrate;
  }
  return key.str();
}

}  // namespace zel::test
