#include "desk/tables/plot_points.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <optional>

#include "desk/tables/text_table.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_words.h"

namespace zel::desk {
namespace {

constexpr char kTemperatureUnit[] = "K";
constexpr char kPercentUnit[] = "%";

// A head "uncertainty", followed or not by a unit in brackets.
bool IsUncertainty(std::string const& head) {
  std::string name = LowerCase(head.substr(0, head.find('[')));
  name.erase(name.find_last_not_of(' ') + 1);
  return name == "uncertainty";
}

// A column of numbers and the unit that its head says.
struct NumberColumn {
  std::size_t at = 0;
  std::string unit;  // internal
  std::string word;  // as in the head; empty for the display unit
};

class PointTable {
 public:
  PointTable(std::string const& path, zel::ZelCorrelationInfo const& correlation,
             DisplayUnits const& units)
      : path_(path), units_(units), table_(ReadTextTable(path)) {
    temperature_ = Column({"T", "temperature"}, kTemperatureUnit);
    value_ = Column({"value", correlation.name}, correlation.unit);
    if (table_.heads.end() !=
        std::find_if(table_.heads.begin(), table_.heads.end(), IsUncertainty)) {
      uncertainty_ = Column({"uncertainty"}, correlation.unit);
    }
    component_ = table_.Find("component");
    label_ = table_.Find("label");
  }

  std::vector<PlotPoints> Sets() const {
    std::vector<PlotPoints> sets;
    for (TextRow const& row : table_.rows) {
      if (row.cells[value_.at].empty()) continue;
      PlotPoints::Point const point = {NumberIn(row, temperature_), NumberIn(row, value_),
                                       UncertaintyIn(row)};
      if (!(point.kelvin > 0.0)) {
        throw Failure(Place(row) + "the temperature is not above 0 K");
      }
      SetOf(row, sets).points.push_back(point);
    }
    if (sets.empty()) throw Failure(path_ + ": has no points");
    for (PlotPoints& set : sets) {
      std::stable_sort(set.points.begin(), set.points.end(),
                       [](PlotPoints::Point const& a, PlotPoints::Point const& b) {
                         return a.kelvin < b.kelvin;
                       });
    }
    return sets;
  }

 private:
  std::string Place(TextRow const& row) const {
    return path_ + ": line " + std::to_string(row.line) + ": ";
  }

  std::string NotAUnit(std::string const& head, std::string const& unit) const {
    return path_ + ": " + head + ": is not a unit for values in " + unit;
  }

  // The column whose head is one of the names, followed or not by a unit in brackets.
  NumberColumn Column(std::vector<std::string> const& names, std::string const& unit) const {
    for (std::size_t i = 0; i < table_.heads.size(); ++i) {
      std::string const& head = table_.heads[i];
      std::size_t const open = head.find('[');
      std::string name = LowerCase(head.substr(0, open));
      name.erase(name.find_last_not_of(' ') + 1);
      bool const isWanted = std::any_of(names.begin(), names.end(), [&](std::string const& one) {
        return LowerCase(one) == name;
      });
      if (!isWanted) continue;
      std::string word;
      if (open != std::string::npos) word = head.substr(open + 1, head.find(']') - open - 1);
      bool const isPercent = word == kPercentUnit && names[0] == "uncertainty";
      if (!word.empty() && word != unit && !isPercent && UnitNamed(word, unit).empty()) {
        throw Failure(NotAUnit(head, unit));
      }
      return {i, unit, word};
    }
    std::string why = path_ + ": has no column \"" + names[0] + "\"";
    if (names[0] == "value") why += " and none with the name of the correlation";
    throw Failure(why);
  }

  double NumberIn(TextRow const& row, NumberColumn const& column) const {
    std::string const& cell = row.cells[column.at];
    std::string const& head = table_.heads[column.at];
    if (!IsNumberWord(cell)) {
      std::string why = Place(row) + head + ": ";
      why += cell.empty() ? "nothing" : cell;
      throw Failure(why + " is not a number");
    }
    std::string const unit = column.word.empty() ? units_.UnitFor(column.unit) : column.word;
    double const number = std::strtod(cell.c_str(), nullptr);
    double const value = unit == column.unit ? number : ToInternal(number, unit, column.unit);
    if (!std::isfinite(value)) throw Failure(Place(row) + head + ": " + cell + " is too large");
    return value;
  }

  // A difference of values: without the zero of their unit. NaN for none.
  double UncertaintyIn(TextRow const& row) const {
    if (!uncertainty_ || row.cells[uncertainty_->at].empty()) {
      return std::numeric_limits<double>::quiet_NaN();
    }
    if (uncertainty_->word == kPercentUnit) {
      constexpr double kPercent = 100.0;
      NumberColumn plain = *uncertainty_;
      plain.word = plain.unit;
      return NumberIn(row, plain) / kPercent * std::abs(NumberIn(row, value_));
    }
    std::string const& unit = uncertainty_->unit;
    std::string const word = uncertainty_->word.empty() ? units_.UnitFor(unit) : uncertainty_->word;
    double const zero = word == unit ? 0.0 : ToInternal(0.0, word, unit);
    return NumberIn(row, *uncertainty_) - zero;
  }

  PlotPoints& SetOf(TextRow const& row, std::vector<PlotPoints>& sets) const {
    auto const cell = [&](std::size_t column) {
      return column < row.cells.size() ? row.cells[column] : std::string();
    };
    PlotPoints set;
    set.component = cell(component_);
    set.label = cell(label_);
    if (set.label.empty()) set.label = std::filesystem::path(path_).filename().string();
    auto const at = std::find_if(sets.begin(), sets.end(), [&](PlotPoints const& one) {
      return one.component == set.component && one.label == set.label;
    });
    if (at != sets.end()) return *at;
    sets.push_back(std::move(set));
    return sets.back();
  }

  std::string path_;
  DisplayUnits const& units_;
  TextTable table_;
  NumberColumn temperature_;
  NumberColumn value_;
  std::optional<NumberColumn> uncertainty_;
  std::size_t component_ = 0;
  std::size_t label_ = 0;
};

}  // namespace

std::vector<PlotPoints> ReadPlotPoints(std::string const& path,
                                       zel::ZelCorrelationInfo const& correlation,
                                       DisplayUnits const& units) {
  return PointTable(path, correlation, units).Sets();
}

}  // namespace zel::desk
