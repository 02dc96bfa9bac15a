// Constants and correlations.
#include <algorithm>

#include "desk/edit/edit_values.h"
#include "desk/open/curve_record.h"
#include "desk/open/storable.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"

namespace zel::desk {

zel::ZelConstantInfo const* ConstantMeant(std::string const& word) {
  zel::ZelCorrelationInfo const* const curve = FindCorrelation(word);
  return curve != nullptr && curve->name == word ? nullptr : FindConstant(word);
}

bool CurveEdit::Empty() const {
  return !equation && coefficients.empty() && range.empty() && unit.empty() &&
         temperatureUnit.empty() && logarithm.empty() && basis.empty();
}

namespace {

constexpr std::uint32_t kCurvesWithCode = 17;
constexpr std::size_t kMostCoefficients = 15;

void Check(zel::ZelStatus status, std::string const& datum) {
  if (status != zel::kStatusOk) throw Failure(datum + " cannot be set");
}

std::int32_t OneOf(std::string const& word, std::vector<std::string> const& words,
                   std::string const& what) {
  auto const at = std::find(words.begin(), words.end(), LowerCase(word));
  if (at != words.end()) return static_cast<std::int32_t>(at - words.begin());
  throw WrongUsage("\"" + word + "\" is not " + what);
}

std::vector<double> Coefficients(std::vector<std::string> const& words) {
  std::vector<double> numbers;
  numbers.reserve(words.size());
  for (std::string const& word : words) numbers.push_back(ParseNumber(word, "a coefficient"));
  if (numbers.size() > kMostCoefficients) {
    throw WrongUsage("a correlation has at most " + std::to_string(kMostCoefficients) +
                     " coefficients");
  }
  return numbers;
}

class ComponentEdit {
 public:
  ComponentEdit(PureComponent const& component, ItemEdit const& edit, DisplayUnits const& units)
      : component_(component), edit_(edit), units_(units) {}

  std::vector<std::string> Apply() {
    for (Setting const& setting : edit_.settings) {
      Note(setting.datum);
      if (auto const* constant = ConstantMeant(setting.datum)) {
        SetConstant(*constant, setting.value);
      } else {
        SetCurve(CurveNamed(setting.datum), setting.value);
      }
    }
    for (std::string const& datum : edit_.unset) {
      Note(datum);
      if (auto const* constant = ConstantMeant(datum)) {
        Check(component_->SetProperty(constant->index, zel::gen_GetUndefDouble()), datum);
        Check(component_->SetPropertyRefCode(constant->index, 0), datum);
      } else {
        RemoveCurve(CurveNamed(datum));
      }
    }
    if (!edit_.curve.Empty() && curves_ != 1) {
      throw WrongUsage("--equation, --coefficients and the like are for one correlation; name it");
    }
    return std::move(names_);
  }

 private:
  void Note(std::string const& datum) {
    auto const* const constant = ConstantMeant(datum);
    std::string const name = constant != nullptr ? constant->keyword : CurveNamed(datum).name;
    if (std::find(names_.begin(), names_.end(), name) != names_.end()) {
      throw WrongUsage(name + " is named twice");
    }
    names_.push_back(name);
  }

  static zel::ZelCorrelationInfo const& CurveNamed(std::string const& datum) {
    if (auto const* const curve = FindCorrelation(datum)) return *curve;
    throw Failure(datum + " is not a constant or a correlation" + DidYouMeanDatum(datum) +
                  " `zel types " + kPureType + "` lists them");
  }

  void SetConstant(zel::ZelConstantInfo const& row, std::optional<std::string> const& value) const {
    std::string const name = row.keyword;
    if (value) {
      std::string const unit = row.unit;
      double const number = units_.Read(
          *value, unit, "a value of " + name + (unit.empty() ? ", a number" : ", in " + unit));
      CheckStorable(number, name);
      Check(component_->SetProperty(row.index, number), name);
    } else if (!edit_.code) {
      throw WrongUsage(name + " needs a value: " + name + "=VALUE");
    } else if (zel::gen_IsUndefDouble(component_.Constant(row.index))) {
      throw Failure("there is no " + name + " to which a code can be given");
    }
    if (edit_.code) Check(component_->SetPropertyRefCode(row.index, *edit_.code), Code(name));
  }

  std::string Code(std::string const& name) const {
    return name + ": the reference code " + std::to_string(*edit_.code);
  }

  void SetCurve(zel::ZelCorrelationInfo const& row, std::optional<std::string> const& value) {
    ++curves_;
    std::string const name = row.name;
    std::uint32_t const index = IndexOf(row);
    if (value) {
      throw WrongUsage(name +
                       " is a correlation; set it with --equation, --coefficients and --range");
    }
    if (edit_.curve.Empty() && !edit_.code) {
      throw WrongUsage(name + " needs --equation, --coefficients or --range");
    }
    Curve curve = component_.ReadCurve(index);
    CurveEdit const& change = edit_.curve;
    if (!curve.present && (!change.equation || change.coefficients.empty())) {
      throw Failure("there is no " + name + "; a new one needs --equation and --coefficients");
    }
    if (change.equation && change.coefficients.empty() && *change.equation != curve.equation) {
      throw WrongUsage("another --equation needs --coefficients");
    }
    if (!change.Empty()) Put(row, Changed(curve, row));
    if (!edit_.code) return;
    if (index >= kCurvesWithCode) throw Failure(name + " has no reference code");
    Check(component_->SetCorrelationRefCode(index, *edit_.code), Code(name));
  }

  Curve Changed(Curve curve, zel::ZelCorrelationInfo const& row) const {
    CurveEdit const& change = edit_.curve;
    if (change.equation) curve.equation = *change.equation;
    if (!change.coefficients.empty()) curve.coefficients = Coefficients(change.coefficients);
    if (!change.temperatureUnit.empty()) ChangeTemperatureUnit(curve);
    if (!change.logarithm.empty()) {
      curve.logBasis =
          OneOf(change.logarithm, {"none", "natural", "decimal"}, "natural, decimal or none");
    }
    std::int32_t basis = 0;
    if (!change.basis.empty()) {
      basis = 1 + OneOf(change.basis, {"mole", "mass"}, "mole or mass");
      curve.basis = basis;
    }
    if (!change.unit.empty()) {
      SetValueUnit(curve, change.unit, basis, row, "give --basis mass, or mole");
    } else if (!curve.present) {
      curve.propUnit = UnitCodeFor("", curve.propUnit, row);
    }
    if (auto const span =
            ParseTemperatureSpan(change.range, "temperatures such as 159K:514K", units_)) {
      auto const limit = [&](std::optional<double> const& kelvin) {
        return kelvin ? zel::ConvertTemperature(*kelvin, kKelvin, curve.tempUnit)
                      : zel::gen_GetUndefDouble();
      };
      curve.tMin = limit(span->low);
      curve.tMax = limit(span->high);
    }
    return curve;
  }

  // The range is converted, so that its temperatures stay the same.
  void ChangeTemperatureUnit(Curve& curve) const {
    std::int32_t const unit = TemperatureUnitNamed(edit_.curve.temperatureUnit);
    for (double* const limit : {&curve.tMin, &curve.tMax}) {
      if (zel::gen_IsUndefDouble(*limit)) continue;
      *limit = zel::ConvertTemperature(*limit, curve.tempUnit, unit);
    }
    curve.tempUnit = unit;
  }

  void Put(zel::ZelCorrelationInfo const& row, Curve const& curve) const {
    try {
      desk::SetCurve(component_, row, curve);
    } catch (Failure const& failure) {
      throw Failure(std::string(row.name) + ": " + failure.what());
    }
  }

  void RemoveCurve(zel::ZelCorrelationInfo const& row) const {
    std::uint32_t const index = IndexOf(row);
    Check(component_->ResetCorrelation(index), row.name);
    if (index < kCurvesWithCode) Check(component_->SetCorrelationRefCode(index, 0), row.name);
  }

  PureComponent const& component_;
  ItemEdit const& edit_;
  DisplayUnits const& units_;
  std::vector<std::string> names_;
  int curves_ = 0;
};

}  // namespace

std::vector<std::string> SetData(PureComponent const& component, ItemEdit const& edit,
                                 DisplayUnits const& units) {
  return ComponentEdit(component, edit, units).Apply();
}

}  // namespace zel::desk
