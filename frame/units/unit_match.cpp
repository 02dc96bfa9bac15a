#include "frame/units/unit_match.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "frame/ascii.h"

namespace zel {
namespace {

// A longer text is never a unit.
constexpr std::size_t kMostUnitText = 127;

class Matcher {
 public:
  Matcher(UnitCatalogue const& catalogue, int unitClass, std::string_view text, UnitForm form,
          bool exact, long& budget)
      : catalogue_(catalogue),
        class_(catalogue.ClassAt(unitClass)),
        text_(text),
        form_(form),
        exact_(exact),
        budget_(budget) {}

  bool List(UnitChoice& unit) {
    for (int const row : class_.rows) {
      std::string const& name = NameOf(row);
      if (name.size() != text_.size() || !StandsAt(name, 0)) continue;
      unit = {false, {row}};
      return true;
    }
    return false;
  }

  bool Product(UnitChoice& unit) {
    if (class_.factors.empty()) return false;
    unit = {true, std::vector<int>(class_.factors.size(), kNone)};
    if (HasOpen(unit, true)) return Side(0, true, unit);
    return text_.substr(0, 2) == "1/" && Side(2, false, unit);
  }

 private:
  static constexpr int kNone = -1;

  std::string const& NameOf(int row) const {
    UnitRow const& unit = catalogue_.Row(row);
    return form_ == UnitForm::kText ? unit.text : unit.keyword;
  }

  bool StandsAt(std::string const& name, std::size_t at) {
    if (--budget_ < 0 || text_.size() - at < name.size()) return false;
    std::string_view const piece = text_.substr(at, name.size());
    return exact_ ? piece == name : SameText(piece, name);
  }

  bool IsAbove(std::size_t factor) const { return class_.factors[factor].exponent > 0; }

  // True when a factor of one side has no unit yet.
  bool HasOpen(UnitChoice const& unit, bool above) const {
    for (std::size_t i = 0; i < unit.rows.size(); ++i) {
      if (unit.rows[i] == kNone && IsAbove(i) == above) return true;
    }
    return false;
  }

  // Matches one more unit of a side, from `at` on, and everything after it.
  bool Side(std::size_t at, bool above, UnitChoice& unit) {
    for (std::size_t i = 0; i < unit.rows.size(); ++i) {
      if (unit.rows[i] != kNone || IsAbove(i) != above) continue;
      if (OneFactor(at, i, unit)) return true;
    }
    return false;
  }

  bool OneFactor(std::size_t at, std::size_t factor, UnitChoice& unit) {
    auto const [unitClass, exponent] = class_.factors[factor];
    std::vector<int> rows;
    for (int const row : catalogue_.ClassAt(unitClass).rows) {
      std::string const& name = NameOf(row);
      if (name.empty() || IsGravity(catalogue_.Row(row))) continue;
      if (StandsAt(name, at)) rows.push_back(row);
    }
    // The longest first: kg-mol before kg.
    std::stable_sort(rows.begin(), rows.end(),
                     [this](int a, int b) { return NameOf(a).size() > NameOf(b).size(); });
    int const power = exponent < 0 ? -exponent : exponent;
    for (int const row : rows) {
      std::size_t next = at + NameOf(row).size();
      if (power > 1) {
        if (next == text_.size() || text_[next] != static_cast<char>('0' + power)) continue;
        ++next;
      }
      unit.rows[factor] = row;
      if (Behind(next, exponent > 0, unit)) return true;
    }
    unit.rows[factor] = kNone;
    return false;
  }

  bool Behind(std::size_t at, bool above, UnitChoice& unit) {
    char const sign = at < text_.size() ? text_[at] : '\0';
    if (HasOpen(unit, above)) return sign == '-' && Side(at + 1, above, unit);
    if (above && HasOpen(unit, false)) return sign == '/' && Side(at + 1, false, unit);
    return at == text_.size();
  }

  UnitCatalogue const& catalogue_;
  UnitCatalogue::Class const& class_;
  std::string_view text_;
  UnitForm form_;
  bool exact_;
  long& budget_;
};

}  // namespace

bool MatchUnit(UnitCatalogue const& catalogue, int unitClass, std::string_view text, UnitForm form,
               long& budget, UnitChoice& unit) {
  if (text.size() <= kMostUnitText) {
    for (bool const exact : {true, false}) {
      Matcher matcher(catalogue, unitClass, text, form, exact, budget);
      if (matcher.List(unit) || matcher.Product(unit)) return true;
    }
  }
  unit = {};
  return false;
}

}  // namespace zel
