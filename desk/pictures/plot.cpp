#include "desk/pictures/plot.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>

#include "desk/open/named_correlation.h"
#include "desk/pictures/plot_words.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

// One curve, over temperatures in K.
struct Drawn {
  std::string word;  // by which the component was named
  std::string label;
  std::unique_ptr<PureComponent> component;
  Curve curve;
  PureComponent const* reference = nullptr;  // its values divide those of the curve
  Curve referenceCurve;

  double Limit(double bound) const {
    return zel::gen_IsUndefDouble(bound) ? bound
                                         : zel::ConvertTemperature(bound, curve.tempUnit, kKelvin);
  }
};

Point AtKelvin(PureComponent const& component, Curve const& curve, std::uint32_t index,
               double kelvin) {
  return component.At(index, zel::ConvertTemperature(kelvin, kKelvin, curve.tempUnit));
}

// The value, or its ratio to the reference; not `there` if either has no value.
Point ValueOf(Drawn const& one, std::uint32_t index, double kelvin) {
  Point point = AtKelvin(*one.component, one.curve, index, kelvin);
  if (one.reference == nullptr || !point.there) return point;
  Point const below = AtKelvin(*one.reference, one.referenceCurve, index, kelvin);
  point.there = below.there && below.value != 0.0;
  if (point.there) point.value /= below.value;
  if (point.status == 0) point.status = below.status;
  return point;
}

class PlotMaker {
 public:
  PlotMaker(PreferenceList& list, PlotOptions const& options)
      : list_(list),
        o_(options),
        info_(CorrelationNamed(options.correlation)),
        index_(IndexOf(info_)) {}

  Plot Make() {
    Collect();
    Span const span = FindSpan();
    bool const isRatio = !o_.reference.empty();
    Plot plot{{}, CurveTable(isRatio ? "" : info_.unit, !o_.points.empty()), {}, {}};
    Chart& chart = plot.chart;
    chart.notes = notes_;
    chart.title = !o_.title.empty() ? o_.title : info_.label;
    chart.xName = "T";
    chart.xUnit = o_.units.UnitFor("K");
    chart.yName = info_.name;
    chart.yUnit = isRatio ? "" : o_.units.UnitFor(info_.unit);
    if (isRatio) chart.yName += " / " + list_.Name(referenceSource_);
    chart.isUnitFixed = !o_.units.AreInternal();
    chart.logarithmic = o_.logarithmic;
    SetSize(o_.size, chart);
    for (Drawn const& one : drawn_) AddLine(one, span, plot);
    AddHint(plot);
    for (ChartLine const& line : chart.lines) AddRows(line, plot.curves);
    AddPoints(plot);
    for (ChartLine& line : chart.lines) Convert(line);
    for (IdentityConflict const& conflict : list_.Accepted()) {
      chart.warnings.push_back("Warning: " + ToText(conflict));
    }
    if (chart.logarithmic) NoteHidden(chart);
    plot.notes = chart.notes;
    return plot;
  }

 private:
  // One curve for each component, or for each component and each bank that has the correlation.
  void Collect() {
    bool const isRatio = !o_.reference.empty();
    if (isRatio) referenceSource_ = SourceNamed(list_, o_.reference);
    std::set<std::int32_t> numbers;  // a component that is named twice is drawn once
    for (std::string const& word : o_.components) {
      auto merged = std::make_unique<PureComponent>();
      list_.Search(word, *merged);
      if (!numbers.insert(merged->ReadIdentity().number).second) continue;
      std::size_t const before = drawn_.size();
      std::string without;
      for (std::size_t i = 0; (o_.each || isRatio) && i < list_.Count(); ++i) {
        auto component = std::make_unique<PureComponent>();
        Curve curve;
        if (list_.Read(i, word, *component)) curve = component->ReadCurve(index_);
        if (!curve.present) without += (without.empty() ? "" : ", ") + list_.Name(i);
        if (curve.present) Add(word, std::move(component), std::move(curve), list_.Name(i));
      }
      if (drawn_.size() > before && !without.empty()) {
        std::string note = std::string("no ") + info_.name;
        notes_.push_back(note.append(" of ").append(word).append(" in ").append(without));
      }
      if (isRatio) Relate(word, before);
      if (drawn_.size() > before) continue;
      Curve curve = CurveOf(*merged, info_, word);
      std::string const source = curve.source;
      Add(word, std::move(merged), std::move(curve), source);
    }
  }

  void Add(std::string const& word, std::unique_ptr<PureComponent> component, Curve curve,
           std::string const& source) {
    std::string label = component->ReadIdentity().name;
    if (!source.empty()) label += ", " + source;
    drawn_.push_back({word, std::move(label), std::move(component), std::move(curve), nullptr, {}});
  }

  // Sets the reference of the curves from `first` on: the reference source's curve of the
  // component.
  void Relate(std::string const& word, std::size_t first) {
    auto reference = std::make_unique<PureComponent>();
    std::string const source = list_.Name(referenceSource_);
    Curve curve;
    if (list_.Read(referenceSource_, word, *reference)) curve = reference->ReadCurve(index_);
    if (!curve.present) {
      throw Failure(source + " has no " + info_.name + " of " + word + " to compare with");
    }
    for (std::size_t i = first; i < drawn_.size(); ++i) {
      drawn_[i].reference = reference.get();
      drawn_[i].referenceCurve = curve;
    }
    references_.push_back(std::move(reference));
  }

  Span FindSpan() const {
    Span span;
    if (!o_.from.empty()) span.low = ParseTemperature(o_.from, o_.units).In(kKelvin);
    if (!o_.to.empty()) span.high = ParseTemperature(o_.to, o_.units).In(kKelvin);
    bool const takesLow = !span.low;
    bool const takesHigh = !span.high;
    for (Drawn const& one : drawn_) {
      double const low = one.Limit(one.curve.tMin);
      double const high = one.Limit(one.curve.tMax);
      if (takesLow && !zel::gen_IsUndefDouble(low)) {
        span.low = std::min(span.low.value_or(low), low);
      }
      if (takesHigh && !zel::gen_IsUndefDouble(high)) {
        span.high = std::max(span.high.value_or(high), high);
      }
    }
    if (!span.low || !span.high) throw Failure("the records have no limits; give --from and --to");
    if (!(*span.low < *span.high)) {
      throw WrongUsage("nothing to draw from " + Digits(o_.units.Shown(*span.low, "K")) + " to " +
                       Digits(o_.units.Shown(*span.high, "K")) + " " + o_.units.UnitFor("K"));
    }
    return span;
  }

  ChartLine LineOf(Drawn const& one, Span const& span) const {
    constexpr int kPoints = 400;
    ChartLine line;
    line.label = one.label;
    double const limits[] = {one.Limit(one.curve.tMin), one.Limit(one.curve.tMax)};
    std::vector<double> at(std::begin(limits), std::end(limits));
    for (int i = 0; i <= kPoints; ++i) {
      at.push_back(*span.low + (*span.high - *span.low) * i / kPoints);
    }
    std::sort(at.begin(), at.end());
    at.erase(std::unique(at.begin(), at.end()), at.end());
    for (double const kelvin : at) {
      if (!span.Has(kelvin)) continue;
      Point const point = ValueOf(one, index_, kelvin);
      // Ratios of extrapolated values are meaningless and would hide the others.
      if (!point.there || (one.reference != nullptr && point.status != 0)) continue;
      ChartLine::Vertex const vertex = {kelvin, point.value, point.status != 0};
      line.vertices.push_back(vertex);
      if (kelvin == limits[0] || kelvin == limits[1]) line.marks.push_back(vertex);
    }
    return line;
  }

  // A source that shares no temperatures with the reference is left out with a warning.
  void AddLine(Drawn const& one, Span const& span, Plot& plot) const {
    ChartLine line = LineOf(one, span);
    std::string warning = WarningOf(one.word, info_, one.curve);
    if (!line.vertices.empty()) {
      plot.chart.lines.push_back(std::move(line));
    } else if (one.reference == nullptr) {
      throw NoValue(one.word, info_, one.curve);
    } else {
      warning = one.label + " and " + list_.Name(referenceSource_) + " have no values in common";
    }
    if (warning.empty()) return;
    plot.warnings.push_back(warning);
    plot.chart.warnings.push_back("Warning: " + warning);
  }

  void AddHint(Plot& plot) const {
    std::vector<Curve> curves;
    for (Drawn const& one : drawn_) curves.push_back(one.curve);
    std::string const hint = HintForBareNumber({o_.from, o_.to}, curves, o_.units);
    if (!hint.empty()) plot.warnings.push_back(hint);
  }

  // The first curve of the component that points belong to.
  Drawn const& CurveOfPoints(PlotPoints const& set) const {
    if (set.component.empty() && o_.components.size() > 1) {
      throw WrongUsage("points for several components need a column \"component\"");
    }
    std::string const wanted =
        UpperCase(set.component.empty() ? o_.components.front() : set.component);
    auto const at = std::find_if(drawn_.begin(), drawn_.end(), [&](Drawn const& one) {
      Identity const identity = one.component->ReadIdentity();
      return UpperCase(one.word) == wanted || UpperCase(identity.FirstId()) == wanted ||
             UpperCase(identity.name) == wanted || identity.cas == wanted;
    });
    if (at == drawn_.end()) {
      throw WrongUsage("there are points for " + set.component + ", which is not drawn");
    }
    return *at;
  }

  // Points are ratios like the curves: points without a value of the reference are left out.
  void AddPoints(Plot& plot) const {
    for (PlotPoints const& set : o_.points) {
      Drawn const& one = CurveOfPoints(set);
      ChartLine line;
      line.label = set.label;
      if (!set.component.empty()) line.label += ", " + set.component;
      line.isPoints = true;
      for (PlotPoints::Point const& point : set.points) {
        double value = point.value;
        if (one.reference != nullptr) {
          Point const below = AtKelvin(*one.reference, one.referenceCurve, index_, point.kelvin);
          if (!below.there || below.value == 0.0) continue;
          value /= below.value;
        }
        line.vertices.push_back({point.kelvin, value, false});
        plot.curves.Add(line.label, point.kelvin, Number(value), "point", Deviation(one, point));
      }
      plot.chart.lines.push_back(std::move(line));
    }
  }

  // The deviation in % of the curve; nothing outside its range.
  Cell Deviation(Drawn const& one, PlotPoints::Point const& point) const {
    constexpr double kPercent = 100.0;
    Point const curve = AtKelvin(*one.component, one.curve, index_, point.kelvin);
    if (!curve.there || curve.status != 0 || curve.value == 0.0) return {};
    return Number((point.value / curve.value - 1.0) * kPercent);
  }

  // Converts values from internal units to those of the chart.
  void Convert(ChartLine& line) const {
    for (std::vector<ChartLine::Vertex>* const some : {&line.vertices, &line.marks}) {
      for (ChartLine::Vertex& vertex : *some) {
        vertex.x = o_.units.Shown(vertex.x, "K");
        if (o_.reference.empty()) vertex.y = o_.units.Shown(vertex.y, info_.unit);
      }
    }
  }

  // A note for each line that has values which a logarithmic axis cannot show.
  static void NoteHidden(Chart& chart) {
    for (ChartLine const& line : chart.lines) {
      std::string stretches;
      bool wasHidden = false;
      for (std::size_t i = 0; i < line.vertices.size(); ++i) {
        auto const isHidden = [&](std::size_t at) {
          return at < line.vertices.size() && !(line.vertices[at].y > 0.0);
        };
        if (!isHidden(i)) {
          wasHidden = false;
          continue;
        }
        std::string const x = Digits(line.vertices[i].x);
        if (!wasHidden) stretches += (stretches.empty() ? "" : ", ") + x;
        if (wasHidden && !isHidden(i + 1)) stretches += " to " + x;
        wasHidden = true;
      }
      if (stretches.empty()) continue;
      chart.notes.push_back(line.label + ": values that are not above 0 are not drawn on the " +
                            "logarithmic axis, at " + stretches + " " + chart.xUnit);
    }
  }

  static Table CurveTable(std::string const& unit, bool withDeviations) {
    std::vector<Column> columns = {{"line", ""}, {"T", "K"}, {"value", unit}, {"range", ""}};
    if (withDeviations) columns.push_back({"deviation", "%"});
    return Table("curves", std::move(columns));
  }

  static void AddRows(ChartLine const& line, Table& table) {
    for (ChartLine::Vertex const& vertex : line.vertices) {
      std::vector<Cell> row =
          RowOf(line.label, vertex.x, Number(vertex.y), vertex.extrapolated ? "outside" : "inside");
      row.resize(table.Columns().size());
      table.Add(std::move(row));
    }
  }

  PreferenceList& list_;
  PlotOptions const& o_;
  zel::ZelCorrelationInfo const& info_;
  std::uint32_t index_;
  std::size_t referenceSource_ = 0;
  std::vector<Drawn> drawn_;
  std::vector<std::unique_ptr<PureComponent>> references_;
  std::vector<std::string> notes_;
};

}  // namespace

Plot MakePlot(PreferenceList& list, PlotOptions const& options) {
  return PlotMaker(list, options).Make();
}

}  // namespace zel::desk
