#include "desk/open/curve_record.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include "desk/open/storable.h"
#include "desk/words/display_units.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

constexpr std::int32_t kClassSize = 1000;
constexpr std::int32_t kFirstUnitCode = 1010;
constexpr std::int32_t kLastUnitCode = 50999;
constexpr std::int32_t kPerMole = 1;  // bases
constexpr std::int32_t kPerMass = 2;

// The first code from `begin` to before `end` that has this name; 0 if no code has it.
std::int32_t FirstCode(std::string const& name, std::int32_t begin, std::int32_t end) {
  if (name.empty()) return 0;
  std::string const wanted = LowerCase(name);
  for (std::int32_t code = begin; code < end; ++code) {
    std::string_view const one = zel::GetUnitCodeName(code);  // most codes are not in use
    if (one.size() == wanted.size() && LowerCase(std::string(one)) == wanted) return code;
  }
  return 0;
}

std::int32_t CodeInClass(std::string const& name, std::int32_t code) {
  std::int32_t const begin = code / kClassSize * kClassSize;
  return begin == 0 ? 0 : FirstCode(name, begin, begin + kClassSize);
}

std::int32_t CodeOfValues(zel::ZelCorrelationInfo const& row) {
  return FirstCode(row.unit, kFirstUnitCode, kLastUnitCode + 1);
}

// A code of the class of units in which records of the correlation are stored: that of the unit in
// which it is evaluated or, if that has no code, that of an empty record. 0 for pure numbers.
std::int32_t UsualCode(zel::ZelCorrelationInfo const& row) {
  if (*row.unit == '\0') return 0;
  if (std::int32_t const own = CodeOfValues(row)) return own;
  PureComponent const empty;
  empty.Def()->Clear();
  return empty.ReadCurve(IndexOf(row)).propUnit;
}

// True for enthalpies, entropies, densities and volumes, which are evaluated per mole.
bool IsSpecific(zel::ZelCorrelationInfo const& row) {
  return std::string_view(row.unit).find("kg-mol") != std::string_view::npos;
}

bool IsPerMole(std::string const& word, zel::ZelCorrelationInfo const& row) {
  return IsSpecific(row) && !UnitNamed(word, row.unit).empty();
}

// The code in the class of `code` whose unit, per mole, is that of a word; 0 if no code has it.
std::int32_t CodePerMole(std::string const& word, std::int32_t code,
                         zel::ZelCorrelationInfo const& row) {
  std::string const unit = UnitNamed(word, row.unit);
  std::int32_t const begin = code / kClassSize * kClassSize;
  if (begin == 0) return 0;
  auto const found = [&](auto const& isIt) {
    for (std::int32_t one = begin; one < begin + kClassSize; ++one) {
      std::string const name = zel::GetUnitCodeName(one);
      if (!name.empty() && isIt(UnitPerMole(name))) return one;
    }
    return 0;
  };
  // Other spellings take longer.
  std::int32_t const same = found([&](std::string const& name) { return name == unit; });
  if (same != 0) return same;
  return found([&](std::string const& name) { return UnitNamed(name, row.unit) == unit; });
}

std::vector<std::string> NamesInClass(std::int32_t code) {
  std::vector<std::string> names;
  std::int32_t const begin = code / kClassSize * kClassSize;
  for (std::int32_t one = begin; begin != 0 && one < begin + kClassSize; ++one) {
    std::string const name = zel::GetUnitCodeName(one);
    bool const isNew = std::find(names.begin(), names.end(), name) == names.end();
    if (!name.empty() && isNew) names.push_back(name);
  }
  return names;
}

[[noreturn]] void RefuseUnit(std::string const& word, zel::ZelCorrelationInfo const& row) {
  std::string names;
  for (std::string const& name : NamesInClass(UsualCode(row))) {
    names += (names.empty() ? "; it has " : ", ") + name;
  }
  if (!names.empty() && IsSpecific(row))
    names += "; or one per mole, such as " + std::string(row.unit);
  throw Failure(word + " is not a unit of " + row.name +
                (names.empty() ? ", which is a pure number" : names));
}

void CheckUnit(std::int32_t code, zel::ZelCorrelationInfo const& row) {
  if (code == 0) return;
  std::string const name = zel::GetUnitCodeName(code);
  if (!name.empty() && CodeInClass(name, UsualCode(row)) != 0) return;
  RefuseUnit("unit code " + std::to_string(code) + (name.empty() ? "" : " (" + name + ")"), row);
}

void CheckRange(Curve const& curve) {
  auto const isLimit = [](double value) { return !zel::gen_IsUndefDouble(value); };
  std::string const letter = TemperatureUnit(curve.tempUnit);
  for (double const limit : {curve.tMin, curve.tMax}) {
    if (isLimit(limit) && zel::ConvertTemperature(limit, curve.tempUnit, kKelvin) < 0.0) {
      throw WrongUsage(Digits(limit) + " " + letter + " is below absolute zero");
    }
  }
  if (isLimit(curve.tMin) && isLimit(curve.tMax) && curve.tMin > curve.tMax) {
    throw WrongUsage("the range " + Digits(curve.tMin) + " to " + Digits(curve.tMax) + " " +
                     letter + " ends before it begins");
  }
}

// Coefficients that an equation usually has, if its terms are not a series.
struct UsualCount {
  std::int32_t equation;
  std::size_t count;
};
constexpr UsualCount kUsualCounts[] = {
    {13, 5}, {14, 5}, {17, 6}, {18, 5}, {19, 4}, {20, 5}, {25, 7}, {29, 3}, {30, 3}, {32, 5},
    {34, 4}, {36, 5}, {37, 3}, {39, 7}, {46, 5}, {47, 4}, {48, 4}, {49, 6}, {52, 3}, {117, 5}};

}  // namespace

std::int32_t UnitCodeFor(std::string const& word, std::int32_t present,
                         zel::ZelCorrelationInfo const& row) {
  if (word.empty()) {
    std::int32_t const own = CodeOfValues(row);
    return own == 0 && IsSpecific(row) ? CodePerMole(row.unit, UsualCode(row), row) : own;
  }
  for (std::int32_t const code : {present, UsualCode(row)}) {
    if (std::int32_t const found = CodeInClass(word, code)) return found;
  }
  if (IsPerMole(word, row)) {
    if (std::int32_t const found = CodePerMole(word, UsualCode(row), row)) return found;
  }
  std::string const name = SameUnit(word, NamesInClass(UsualCode(row)));
  if (!name.empty()) return CodeInClass(name, UsualCode(row));
  RefuseUnit("\"" + word + "\"", row);
}

void SetValueUnit(Curve& curve, std::string const& word, std::int32_t given,
                  zel::ZelCorrelationInfo const& row, std::string const& how) {
  curve.propUnit = UnitCodeFor(word, curve.propUnit, row);
  if (IsPerMole(word, row)) {
    if (given == kPerMass) throw Failure(word + " is a unit per mole, but the basis is mass");
    curve.basis = kPerMole;
    return;
  }
  bool const isKnown = given != 0 || curve.basis == kPerMass || !IsSpecific(row);
  if (!isKnown) throw WrongUsage(word + " can be stored per mole or per mass: " + how);
  if (given != 0) curve.basis = given;
}

void SetCurve(PureComponent const& component, zel::ZelCorrelationInfo const& row,
              Curve const& curve) {
  std::string const fault = FaultOf(curve);
  if (!fault.empty()) throw Failure(fault);
  CheckUnit(curve.propUnit, row);
  CheckRange(curve);
  for (std::size_t i = 0; i < curve.coefficients.size(); ++i) {
    CheckStorable(curve.coefficients[i], "C" + std::to_string(i + 1));
  }
  CheckStorable(curve.tMin, "the lowest temperature");
  CheckStorable(curve.tMax, "the highest temperature");
  zel::ZelStatus const status = component->SetCorrelation(
      IndexOf(row), curve.equation, curve.tempUnit, curve.propUnit, curve.logBasis, curve.basis,
      static_cast<std::int32_t>(curve.coefficients.size()), curve.tMin, curve.tMax,
      curve.coefficients.data());
  if (status != zel::kStatusOk) throw Failure("cannot be set");
}

std::string MissingCoefficients(Curve const& curve) {
  auto const row =
      std::find_if(std::begin(kUsualCounts), std::end(kUsualCounts),
                   [&](UsualCount const& one) { return one.equation == curve.equation; });
  if (row == std::end(kUsualCounts) || curve.coefficients.size() >= row->count) return "";
  return "equation " + std::to_string(curve.equation) + " usually has " +
         std::to_string(row->count) + " coefficients, but the record has " +
         std::to_string(curve.coefficients.size()) + "; missing ones count as 0";
}

}  // namespace zel::desk
