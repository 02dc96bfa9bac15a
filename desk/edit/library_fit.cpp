#include "desk/edit/library_fit.h"

#include <zelaccess/Verify.h>

#include <algorithm>
#include <charconv>
#include <limits>

#include "desk/combine/bank_copy.h"
#include "desk/open/curve_record.h"
#include "desk/open/item_key.h"
#include "desk/open/named_correlation.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

// All digits of a number that matter to a record.
std::string NumberWord(double value) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof(text), value).ptr};
}

class RecordFit {
 public:
  RecordFit(Library const& library, LibraryFit const& asked, std::vector<PlotPoints> const& sets,
            Library const* from)
      : library_(library), o_(asked), sets_(sets), from_(from) {}

  FittedRecord Make() {
    result_.info = &CorrelationNamed(o_.correlation);
    if (IndexOf(*result_.info) == zel::correlationExpansion) {
      throw Failure(std::string(result_.info->name) + " is kept and not evaluated");
    }
    ReadItem();
    span_ = ParseTemperatureSpan(o_.range, "temperatures such as 280K:350K", Units());
    CollectPoints();
    FitTask task;
    task.record = BlankRecord();
    task.points = result_.points;
    task.quantity = Quantity();
    SetFixed(task);
    if (span_ && span_->low) task.record.tMin = *span_->low;
    if (span_ && span_->high) task.record.tMax = *span_->high;
    result_.fit = FitCurve(task);
    Warn();
    result_.edited = EditItem(library_, Edit(), from_);
    return std::move(result_);
  }

 private:
  DisplayUnits const& Units() const { return library_.InSession().units; }
  std::string Name() const { return result_.info->name; }

  // The constants of the component, of this library or of the one from which it will be copied.
  void ReadItem() {
    bool const isHere = from_ == nullptr || !library_.Banks(kPureType).empty();
    if (isHere && ReadIn(library_, library_.ComponentBank(o_.bank))) return;
    if (from_ == nullptr) {
      RefuseItem(library_, library_.ComponentBank(o_.bank), words_.front(),
                 "does not exist" + WhyNotFound(library_, *component_.Def(), words_) +
                     "; --from LIBRARY copies it");
    }
    for (BankName const& bank : from_->Banks(kPureType)) {
      if (ReadIn(*from_, bank)) return;
    }
    throw Failure(o_.component + " exists neither in " + library_.Path() + " nor in " +
                  from_->Path());
  }

  bool ReadIn(Library const& library, BankName const& bank) {
    words_ = ItemWords(library, *component_.Def(), {o_.component});
    return ReadComponent(library, bank, words_.front(), component_);
  }

  // True for points of this component: a set without one is.
  bool AreMeant(PlotPoints const& set) const {
    if (set.component.empty()) return true;
    std::string const word = UpperCase(set.component);
    Identity const identity = component_.ReadIdentity();
    return word == UpperCase(o_.component) || word == UpperCase(identity.FirstId()) ||
           word == UpperCase(identity.name) || word == identity.cas;
  }

  void CollectPoints() {
    std::size_t others = 0;
    for (PlotPoints const& set : sets_) {
      if (!AreMeant(set)) others += set.points.size();
      if (!AreMeant(set)) continue;
      for (PlotPoints::Point const& point : set.points) {
        bool const isInside = !span_ || span_->Has(point.kelvin);
        if (!isInside) ++result_.leftOut;
        if (isInside) result_.points.push_back({point.kelvin, point.value, Uncertainty(point)});
      }
    }
    std::stable_sort(
        result_.points.begin(), result_.points.end(),
        [](FitPoint const& one, FitPoint const& other) { return one.kelvin < other.kelvin; });
    if (!result_.points.empty()) return;
    if (result_.leftOut > 0) throw Failure("no point is in the range " + o_.range);
    throw Failure("there are no points of " + o_.component +
                  (others == 0 ? "" : ", only of other components"));
  }

  double Uncertainty(PlotPoints::Point const& point) const {
    return o_.isUnweighted ? std::numeric_limits<double>::quiet_NaN() : point.uncertainty;
  }

  // The record without coefficients, with the factor of its unit and the component's constants.
  zel::ZelCorrelation BlankRecord() const {
    Curve curve;
    curve.equation = 1;
    curve.coefficients = {1.0};
    curve.logBasis = Logarithm();
    std::int32_t const basis = Basis();
    curve.propUnit = UnitCodeFor("", 0, *result_.info);
    if (!UnitWord().empty()) {
      SetValueUnit(curve, UnitWord(), basis, *result_.info, "give --basis mass, or mole");
    }
    component_->ResetCorrelation(IndexOf(*result_.info));
    SetCurve(component_, *result_.info, curve);
    zel::ZelCorrelation record;
    if (zel::TakeCorrelation(component_.operator->(), IndexOf(*result_.info), record) !=
        zel::kStatusOk) {
      throw Failure(Name() + " cannot be set");
    }
    constexpr std::int32_t kMass = 2;
    if (record.moleWtBasis == kMass && zel::gen_IsUndefDouble(record.molecularWeight)) {
      throw Failure("--basis mass needs MW, which the component does not have");
    }
    record.equation = o_.equation;
    record.coefficientCount = o_.coefficients;
    record.coefficients[0] = 0.0;
    return record;
  }

  std::string UnitWord() const { return o_.unit.empty() ? result_.info->unit : o_.unit; }

  std::int32_t Logarithm() const {
    std::string const word = LowerCase(o_.logarithm);
    if (word.empty() || word == "natural") return 1;
    if (word == "decimal") return 2;
    throw WrongUsage("--logarithm is natural or decimal, not " + o_.logarithm);
  }

  std::int32_t Basis() const {
    std::string const word = LowerCase(o_.basis);
    if (word.empty()) return 0;
    if (word == "mole") return 1;
    if (word == "mass") return 2;
    throw WrongUsage("--basis is mole or mass, not " + o_.basis);
  }

  std::optional<FitQuantity> Quantity() const {
    std::string const word = LowerCase(o_.deviations);
    if (word.empty()) return std::nullopt;
    if (word == "relative") return FitQuantity::kLogarithm;
    if (word == "absolute") return FitQuantity::kValue;
    throw WrongUsage("--deviations are relative or absolute, not " + o_.deviations);
  }

  // "C5=2": a number, or a constant of the component.
  void SetFixed(FitTask& task) const {
    constexpr int kMost = 15;
    task.kept.resize(kMost);
    for (std::string const& word : o_.fixed) {
      std::size_t const sign = word.find('=');
      int place = 0;
      if (sign != std::string::npos && sign > 1 && sign < 4 && (word[0] == 'C' || word[0] == 'c')) {
        for (std::size_t i = 1; i < sign; ++i) {
          place = word[i] >= '0' && word[i] <= '9' ? 10 * place + (word[i] - '0') : kMost + 1;
        }
      }
      if (place < 1 || place > kMost) {
        throw WrongUsage("--fix is a coefficient and a number, such as C5=2, not " + word);
      }
      std::string const value = word.substr(sign + 1);
      auto const* const constant = FindConstant(value);
      double const number = constant != nullptr ? component_.Constant(constant->index)
                                                : ParseNumber(value, "a coefficient");
      if (constant != nullptr && zel::gen_IsUndefDouble(number)) {
        throw Failure(o_.component + " has no " + constant->keyword + " for --fix " + word);
      }
      std::optional<double>& kept = task.kept[static_cast<std::size_t>(place - 1)];
      if (kept) throw WrongUsage("--fix names C" + std::to_string(place) + " twice");
      kept = number;
    }
  }

  void Warn() {
    CurveFit const& fit = result_.fit;
    std::string list;
    for (std::size_t j = 0; j < fit.coefficients.size(); ++j) {
      if (!fit.isDetermined[j]) list += (list.empty() ? "C" : ", C") + std::to_string(j + 1);
    }
    if (!list.empty()) {
      result_.warnings.push_back("the points do not determine " + list +
                                 "; fewer coefficients or --fix make the fit unique");
    }
    constexpr double kDisagreement = 4.0;  // twice the uncertainties
    if (ReducedSum(fit) > kDisagreement) {
      result_.warnings.push_back(
          "the points are farther from the curve than their uncertainties: the reduced sum of "
          "squares is " +
          Digits(ReducedSum(fit)) + ", not about 1; the standard errors are too small");
    }
    zel::ZelCorrelation const& record = fit.record;
    double const low = result_.points.front().kelvin;
    double const high = result_.points.back().kelvin;
    if (record.tMin < low || record.tMax > high) {
      result_.warnings.push_back("the range goes beyond the points, which are from " +
                                 Digits(Units().Shown(low, "K")) + " to " +
                                 Digits(Units().Shown(high, "K")) + " " + Units().UnitFor("K"));
    }
  }

  ItemEdit Edit() const {
    zel::ZelCorrelation const& record = result_.fit.record;
    ItemEdit edit;
    edit.bank = o_.bank;
    edit.item = {o_.component};
    edit.settings.push_back({Name(), std::nullopt});
    edit.code = o_.code;
    edit.curve.equation = record.equation;
    for (double const c : result_.fit.coefficients) {
      edit.curve.coefficients.push_back(NumberWord(c));
    }
    edit.curve.range = NumberWord(record.tMin) + "K:" + NumberWord(record.tMax) + "K";
    edit.curve.unit = UnitWord();
    edit.curve.temperatureUnit = "K";
    edit.curve.logarithm = Logarithm() == 2 ? "decimal" : "natural";
    edit.curve.basis = o_.basis;
    return edit;
  }

  Library const& library_;
  LibraryFit const& o_;
  std::vector<PlotPoints> const& sets_;
  Library const* from_;
  PureComponent component_;
  std::vector<std::string> words_;  // what names the component
  std::optional<Span> span_;
  FittedRecord result_;
};

}  // namespace

FittedRecord FitInLibrary(Library const& library, LibraryFit const& asked,
                          std::vector<PlotPoints> const& sets, Library const* from) {
  NeedLeastSquares();
  return RecordFit(library, asked, sets, from).Make();
}

}  // namespace zel::desk
