// Rows that set correlations of components.
#include <algorithm>

#include "desk/open/curve_record.h"
#include "desk/open/field_text.h"
#include "desk/tables/component_rows.h"
#include "desk/tables/table_heads.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

constexpr std::size_t kMostCoefficients = 15;

// The value that belongs to the first of the words that the cell is; `missing` for an empty cell.
std::int32_t Choice(std::string const& cell, std::int32_t missing, char const* what,
                    std::vector<std::pair<char const*, std::int32_t>> const& words) {
  if (cell.empty()) return missing;
  for (auto const& [word, value] : words) {
    if (LowerCase(cell) == word) return value;
  }
  throw Failure("\"" + cell + "\" is not " + what);
}

class CorrelationRows final : public ComponentRows {
 public:
  CorrelationRows(TableTarget const& target, std::vector<TableColumn> columns)
      : ComponentRows(target, columns),
        name_(TakeColumn(columns, {"correlation"})),
        equation_(TakeColumn(columns, {"equation"})),
        tempUnit_(TakeColumn(columns, {"tempUnit", "T in"})),
        unitCode_(TakeColumn(columns, {"propUnitCode", "unitCode"})),
        unit_(TakeColumn(columns, {"propUnit", "unit"})),
        logBasis_(TakeColumn(columns, {"logBasis", "log"})),
        basis_(TakeColumn(columns, {"moleWtBasis", "basis", "per"})),
        tMin_(TakeColumn(columns, {"tMin", "from T"})),
        tMax_(TakeColumn(columns, {"tMax", "to T"})),
        code_(TakeColumn(columns, {"refCode", "code"})),
        count_(TakeColumn(columns, {"n"})),
        list_(TakeColumn(columns, {"coefficients"})) {
    for (std::size_t i = 1; i <= kMostCoefficients; ++i) {
      if (auto one = TakeColumn(columns, {"C" + std::to_string(i)})) {
        each_.push_back(std::move(*one));
      }
    }
    if (!equation_ || (!list_ && each_.empty())) {
      throw Failure("a table of correlations needs the columns equation and coefficients");
    }
    std::vector<std::string> candidates;
    for (TableHead const& head : HeadsOf(kPureType, TableKind::kCorrelations)) {
      candidates.push_back(head.name);
    }
    RefuseRest(columns, candidates);
  }

 protected:
  std::string DatumOf(TextRow const& row) const override { return CellOf(name_, row); }

  void Set(TextRow const& row, PureComponent& component, bool isNew) override {
    if (isNew) throw Failure("is not in bank " + ToText(Target().bank));
    std::string const name = CellOf(name_, row);
    zel::ZelCorrelationInfo const* const info = FindCorrelation(name);
    if (info == nullptr) {
      throw Failure("\"" + name + "\" is not a correlation" + DidYouMeanCorrelation(name) +
                    " `zel types PURECOMP` lists them");
    }
    Curve const curve = CurveOf(row, *info);
    std::uint32_t const index = IndexOf(*info);
    SetCurve(component, *info, curve);
    Curve const stored = component.ReadCurve(index);
    if (!stored.present || stored.equation != curve.equation) {
      throw Failure("equation " + std::to_string(curve.equation) + " cannot be stored so");
    }
    Warn(MissingCoefficients(curve));
    SetCode(component, index, CellOf(code_, row));
  }

 private:
  Curve CurveOf(TextRow const& row, zel::ZelCorrelationInfo const& info) const {
    Curve curve;
    curve.equation = WholeNumber(CellOf(equation_, row), "the number of an equation");
    std::string const tempUnit = CellOf(tempUnit_, row);
    if (!tempUnit.empty()) curve.tempUnit = TemperatureUnitNamed(tempUnit);
    curve.logBasis =
        Choice(CellOf(logBasis_, row), 1, "ln or log",
               {{"ln", 1}, {"log", 2}, {"natural", 1}, {"decimal", 2}, {"1", 1}, {"2", 2}});
    curve.basis =
        Choice(CellOf(basis_, row), 0, "m or wt",
               {{"m", 1}, {"mole", 1}, {"molar", 1}, {"wt", 2}, {"mass", 2}, {"1", 1}, {"2", 2}});
    SetUnit(row, info, curve);
    curve.tMin = Limit(tMin_, row, curve.tempUnit);
    curve.tMax = Limit(tMax_, row, curve.tempUnit);
    curve.coefficients = Coefficients(row);
    return curve;
  }

  static void SetCode(PureComponent& component, std::uint32_t index, std::string const& word) {
    if (word.empty()) return;
    std::int32_t const code = WholeNumber(word, "a reference code");
    bool const isStored =
        code >= 0 &&
        component->SetCorrelationRefCode(index, static_cast<std::uint32_t>(code)) == zel::kStatusOk;
    if (!isStored) throw Failure(word + " cannot be stored as a reference code");
  }

  // The code decides, so that a record reads back exactly.
  void SetUnit(TextRow const& row, zel::ZelCorrelationInfo const& info, Curve& curve) const {
    std::string const code = CellOf(unitCode_, row);
    std::string const word = CellOf(unit_, row);
    if (!code.empty()) {
      curve.propUnit = WholeNumber(code, "a unit code");
    } else if (!word.empty()) {
      SetValueUnit(curve, word, curve.basis, info, "give moleWtBasis wt, or m");
    }
  }

  // A limit without a unit, in the cell or the head, is in the unit of the record if the row names
  // that, else in the display unit.
  double Limit(std::optional<TableColumn> const& column, TextRow const& row,
               std::int32_t tempUnit) const {
    std::string const word = CellOf(column, row);
    if (word.empty()) return zel::gen_GetUndefDouble();
    bool const isBare = word.find_last_of("0123456789.") + 1 == word.size();
    bool const isOfRecord = !CellOf(tempUnit_, row).empty();
    if (isBare && column->Unit().empty() && isOfRecord) return ParseNumber(word, "a temperature");
    return ParseTemperature(word, column->UnitsFor("K", Target().units)).In(tempUnit);
  }

  std::vector<double> Coefficients(TextRow const& row) const {
    std::vector<std::string> words = ListWords(CellOf(list_, row));
    for (TableColumn const& one : each_) words.push_back(one.In(row));
    while (!words.empty() && words.back().empty()) words.pop_back();
    if (words.empty() || words.size() > kMostCoefficients) {
      throw Failure("has " + std::to_string(words.size()) + " coefficients, not 1 to 15");
    }
    std::string const count = CellOf(count_, row);
    if (!count.empty() && count != std::to_string(words.size())) {
      throw Failure("has " + std::to_string(words.size()) + " coefficients, but n is " + count);
    }
    std::vector<double> values;
    values.reserve(words.size());
    for (std::string const& word : words) values.push_back(ParseNumber(word, "a coefficient"));
    return values;
  }

  std::optional<TableColumn> name_;
  std::optional<TableColumn> equation_;
  std::optional<TableColumn> tempUnit_;
  std::optional<TableColumn> unitCode_;
  std::optional<TableColumn> unit_;
  std::optional<TableColumn> logBasis_;
  std::optional<TableColumn> basis_;
  std::optional<TableColumn> tMin_;
  std::optional<TableColumn> tMax_;
  std::optional<TableColumn> code_;
  std::optional<TableColumn> count_;
  std::optional<TableColumn> list_;
  std::vector<TableColumn> each_;
};

}  // namespace

std::unique_ptr<RowForm> CorrelationForm(TableTarget const& target,
                                         std::vector<TableColumn> columns) {
  return std::make_unique<CorrelationRows>(target, std::move(columns));
}

}  // namespace zel::desk
