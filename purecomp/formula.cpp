#include "purecomp/formula.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include "frame/ascii.h"

namespace zel {
namespace {

// D, deuterium, counts as an element.
constexpr std::string_view kElements[] = {
    "H",  "D",  "He", "Li", "Be", "B",  "C",  "N",  "O",  "F",  "Ne", "Na", "Mg", "Al", "Si",
    "P",  "S",  "Cl", "Ar", "K",  "Ca", "Sc", "Ti", "V",  "Cr", "Mn", "Fe", "Co", "Ni", "Cu",
    "Zn", "Ga", "Ge", "As", "Se", "Br", "Kr", "Rb", "Sr", "Y",  "Zr", "Nb", "Mo", "Tc", "Ru",
    "Rh", "Pd", "Ag", "Cd", "In", "Sn", "Sb", "Te", "I",  "Xe", "Cs", "Ba", "La", "Ce", "Pr",
    "Nd", "Pm", "Sm", "Eu", "Gd", "Tb", "Dy", "Ho", "Er", "Tm", "Yb", "Lu", "Hf", "Ta", "W",
    "Re", "Os", "Ir", "Pt", "Au", "Hg", "Tl", "Pb", "Bi", "Po", "At", "Rn", "Fr", "Ra", "Ac",
    "Th", "Pa", "U",  "Np", "Pu", "Am", "Cm", "Bk", "Cf", "Es", "Fm", "Md", "No", "Lr", "Rf",
    "Db", "Sg", "Bh", "Hs", "Mt", "Ds", "Rg", "Cn", "Fl", "Lv"};
static_assert(std::size(kElements) == 115);

constexpr std::string_view kMixture = "Mixture";
constexpr std::string_view kPetro = "Petro";
constexpr std::string_view kWater = "H2O";

bool IsUpper(char c) noexcept { return c >= 'A' && c <= 'Z'; }
bool IsLower(char c) noexcept { return c >= 'a' && c <= 'z'; }
bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }

std::int32_t Saturated(std::int64_t n) noexcept {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(n, INT32_MIN, INT32_MAX));
}

// By the letters of the symbol: upper case, then lower case or none.
constexpr std::size_t kLetters = 26;
using KnownSymbols = std::array<std::array<bool, kLetters + 1>, kLetters>;
constexpr std::size_t SecondLetter(char c) noexcept {
  return c == '\0' ? 0 : static_cast<std::size_t>(c - 'a') + 1;
}
constexpr KnownSymbols MakeKnownSymbols() noexcept {
  KnownSymbols known{};
  for (std::string_view const symbol : kElements) {
    std::size_t const second = SecondLetter(symbol.size() > 1 ? symbol[1] : '\0');
    known[static_cast<std::size_t>(symbol[0] - 'A')][second] = true;
  }
  return known;
}
constexpr KnownSymbols kKnownSymbols = MakeKnownSymbols();

// An empty symbol is that of a free slot.
bool IsKnownSymbol(ElementSymbol const& symbol) noexcept {
  if (symbol[0] == '\0') return true;
  bool const isSymbol = IsUpper(symbol[0]) && (symbol[1] == '\0' || IsLower(symbol[1]));
  return isSymbol &&
         kKnownSymbols[static_cast<std::size_t>(symbol[0] - 'A')][SecondLetter(symbol[1])];
}

class Parser {
 public:
  Parser(std::string_view text, ElementSlots slots, bool sequence, FormulaResult& result)
      : text_(text), slots_(slots), sequence_(sequence), result_(result) {}

  bool Run() {
    if (!ParseSequences()) return false;
    result_.hasCarbonAndHydrogen = sawCarbon_ && sawHydrogen_;
    if (!std::all_of(slots_.elements.begin(), slots_.elements.end(), IsKnownSymbol)) return false;
    return at_ == text_.size() || ParseHydrate();
  }

 private:
  struct Tally {
    std::size_t slot;
    std::int32_t count;
  };
  using Tallies = std::vector<Tally>;

  char Here() const noexcept { return at_ < text_.size() ? text_[at_] : '\0'; }

  // Parses the text up to a point or its end. Open parentheses are kept in a list, so that depth
  // costs no stack.
  bool ParseSequences() {
    while (true) {
      char const c = Here();
      bool const top = open_.empty();
      if (top && (c == '.' || at_ == text_.size())) return true;
      if (c == '(') {
        ++at_;
        open_.push_back(pending_.size());
      } else if (c == ')' && !top) {
        ++at_;
        CloseGroup();
      } else if (IsUpper(c)) {
        ParseElement();
      } else {
        return false;
      }
    }
  }

  // Adds the counts of the group to the sequence around it, times the count after the group.
  void CloseGroup() {
    std::int64_t const times = ReadCount();
    auto const first = pending_.begin() + static_cast<std::ptrdiff_t>(open_.back());
    Tallies const inner(first, pending_.end());
    pending_.erase(first, pending_.end());
    open_.pop_back();
    for (Tally const& tally : inner) Add(tally.slot, tally.count * times);
  }

  // Adds to the innermost open group, or to the result when none is open: a group that is never
  // closed is not counted.
  void Add(std::size_t slot, std::int64_t count) {
    if (open_.empty()) {
      slots_.counts[slot] = Saturated(slots_.counts[slot] + count);
      return;
    }
    for (std::size_t i = open_.back(); i < pending_.size(); ++i) {
      if (pending_[i].slot == slot) {
        pending_[i].count = Saturated(pending_[i].count + count);
        return;
      }
    }
    pending_.push_back({slot, Saturated(count)});
  }

  void ParseElement() {
    ElementSymbol symbol{};
    symbol[0] = text_[at_++];
    if (IsLower(Here())) symbol[1] = text_[at_++];
    std::string_view const name = symbol.data();
    sawCarbon_ = sawCarbon_ || name == "C";
    sawHydrogen_ = sawHydrogen_ || name == "H";
    std::int64_t const count = ReadCount();
    int const slot = SlotFor(symbol);
    if (slot < 0) return;
    slots_.elements[static_cast<std::size_t>(slot)] = symbol;
    Add(static_cast<std::size_t>(slot), count);
    result_.foundCount = std::max(result_.foundCount, slot + 1);
  }

  // The slot of an equal symbol, otherwise the first empty one; -1 when there is neither.
  int SlotFor(ElementSymbol const& symbol) const {
    int const capacity = static_cast<int>(slots_.elements.size());
    for (int i = 0; i < capacity; ++i) {
      ElementSymbol const& filled = slots_.elements[static_cast<std::size_t>(i)];
      if (filled[0] == '\0') return i;
      if ((!sequence_ || i < slots_.preset) && filled == symbol) return i;
    }
    return -1;
  }

  // 1 without digits here.
  std::int64_t ReadCount() {
    constexpr int kDigitsUsed = 4;
    if (!IsDigit(Here())) return 1;
    std::int64_t count = 0;
    for (int digits = 0; IsDigit(Here()); ++digits, ++at_) {
      if (digits < kDigitsUsed) count = count * 10 + (text_[at_] - '0');
    }
    return count;
  }

  bool ParseHydrate() {
    ++at_;  // the point
    std::int64_t const count = ReadCount();
    if (text_.substr(at_) != kWater) return false;
    result_.hydrate = Saturated(count);
    return true;
  }

  std::string_view text_;
  ElementSlots slots_;
  bool sequence_;
  FormulaResult& result_;
  std::size_t at_ = 0;
  Tallies pending_;                // counts of the open groups, the outermost first
  std::vector<std::size_t> open_;  // for each open group, where its own tallies begin
  bool sawCarbon_ = false;
  bool sawHydrogen_ = false;
};

bool ParseFormula(bool sequence, std::string_view formula, ElementSlots slots,
                  FormulaResult& result) {
  std::fill(slots.counts.begin(), slots.counts.end(), 0);
  for (std::size_t i = static_cast<std::size_t>(slots.preset); i < slots.elements.size(); ++i) {
    slots.elements[i] = {};
  }
  result = {slots.preset, 0, false};
  if (formula.empty() || SameText(formula, kMixture) || SameText(formula, kPetro)) return true;
  return Parser(formula, slots, sequence, result).Run();
}

constexpr std::size_t kSlots = 20;
constexpr std::size_t kFormulaSize = 21;

struct Slots {
  std::array<ElementSymbol, kSlots> elements{};
  std::array<std::int32_t, kSlots> counts{};
  ElementSlots View() { return {elements, counts, 0}; }
};

// An element of a normal form: its symbol, padded to two places for comparisons, and its text,
// which is the symbol and a count of 2 and more.
struct NormalElement {
  static constexpr std::size_t kLongest = 6;

  std::array<char, 2> symbol;
  std::array<char, kLongest> text;
  std::size_t size;

  NormalElement(std::string_view name, std::int32_t count) noexcept
      : symbol{name[0], name.size() > 1 ? name[1] : ' '} {
    char whole[16];
    char* end = std::copy(name.begin(), name.end(), whole);
    if (count >= 2) end = std::to_chars(end, std::end(whole), count).ptr;
    size = std::min(static_cast<std::size_t>(end - whole), kLongest);
    std::copy_n(whole, size, text.begin());
  }
  std::string_view Text() const noexcept { return {text.data(), size}; }
  int HillRank() const noexcept {
    if (symbol[1] != ' ') return 2;
    return symbol[0] == 'C' ? 0 : symbol[0] == 'H' ? 1 : 2;
  }
  bool ComesBefore(NormalElement const& other) const noexcept {
    return symbol != other.symbol ? symbol < other.symbol : Text() < other.Text();
  }
};

// Carbon first, then hydrogen, then the rest by bytes.
bool HillOrder(NormalElement const& a, NormalElement const& b) noexcept {
  return a.HillRank() != b.HillRank() ? a.HillRank() < b.HillRank() : a.ComesBefore(b);
}

std::string NormalForm(Slots const& slots, FormulaResult const& parsed) {
  std::vector<NormalElement> elements;
  elements.reserve(kSlots);
  for (std::size_t i = 0; i < static_cast<std::size_t>(parsed.foundCount); ++i) {
    if (slots.counts[i] >= 1) elements.emplace_back(slots.elements[i].data(), slots.counts[i]);
  }
  if (parsed.hasCarbonAndHydrogen) {
    std::sort(elements.begin(), elements.end(), HillOrder);
  } else {
    std::sort(elements.begin(), elements.end(),
              [](auto const& a, auto const& b) { return a.ComesBefore(b); });
  }
  std::string text;
  for (NormalElement const& element : elements) text += element.Text();
  if (parsed.hydrate == 1) text += ".H2O";
  if (parsed.hydrate > 1) text += "." + std::to_string(parsed.hydrate) + "H2O";
  text.resize(std::min(text.size(), kFormulaSize - 1));
  return text;
}

}  // namespace

bool ParseFormulaMerged(std::string_view formula, ElementSlots slots, FormulaResult& result) {
  return ParseFormula(false, formula, slots, result);
}

bool ParseFormulaSequence(std::string_view formula, ElementSlots slots, FormulaResult& result) {
  return ParseFormula(true, formula, slots, result);
}

bool CountElements(std::string_view formula, ElementSlots slots, std::int32_t& foundCount) {
  FormulaResult result;
  bool const parsed = ParseFormulaMerged(formula, slots, result);
  foundCount = result.foundCount;
  return parsed;
}

int NormaliseFormula(char* formula, char* work, bool strict) {
  for (std::string_view word : {kMixture, kPetro}) {
    if (SameText(formula, word)) {
      CopyText(word, formula, kFormulaSize);
      *work = '\0';
      return 1;
    }
  }
  Slots slots;
  FormulaResult parsed;
  if (!ParseFormulaMerged(formula, slots.View(), parsed)) return 1;
  std::string const normal = NormalForm(slots, parsed);
  bool const mayReplace = parsed.hasCarbonAndHydrogen && !strict;
  if (!mayReplace && normal != formula) {
    CopyText(normal, work, kFormulaSize);
    return 2;
  }
  CopyText(normal, formula, kFormulaSize);
  *work = '\0';
  return 1;
}

namespace {

// Appends a symbol in two places and its count in three or more, with zeros in front.
void AppendToKey(std::string_view symbol, std::int32_t count, std::string& key) {
  constexpr std::size_t kSymbolPlaces = 2, kCountPlaces = 3;
  char digits[12];
  auto const length =
      static_cast<std::size_t>(std::to_chars(digits, digits + sizeof digits, count).ptr - digits);
  key.append(symbol).append(kSymbolPlaces - std::min(symbol.size(), kSymbolPlaces), ' ');
  key.append(kCountPlaces - std::min(length, kCountPlaces), '0').append(digits, length);
}

}  // namespace

std::string FormulaSortKey(std::string_view formula) {
  for (std::string_view word : {kMixture, kPetro}) {
    if (SameText(formula, word)) return std::string(word);
  }
  Slots slots;
  FormulaResult parsed;
  if (!ParseFormulaSequence(formula, slots.View(), parsed)) return "\x01";
  std::string key;
  for (std::size_t i = 0; i < static_cast<std::size_t>(parsed.foundCount); ++i) {
    AppendToKey(slots.elements[i].data(), slots.counts[i], key);
  }
  if (parsed.hydrate != 0) AppendToKey("zz", parsed.hydrate, key);
  return key;
}

}  // namespace zel
