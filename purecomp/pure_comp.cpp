// The pure component bank: item, identity, constants, correlations. Structures and sources are in
// separate files.
#include "purecomp/pure_comp.h"

#include <algorithm>

#include "frame/limits.h"
#include "purecomp/evaluate.h"
#include "purecomp/fill_in.h"
#include "purecomp/record_format.h"
#include "purecomp/record_io.h"

namespace zel {
namespace {

// No named fields; the block has the length of the main record.
constexpr FieldTable kFields(record::kMainWords);

constexpr std::int32_t kMolarBasis = 1;

// Correlations whose reference code can be accessed: all but the last named one.
constexpr std::uint32_t kCorrelationsWithCode = 17;

// GetCorrelation checks its results against these.
constexpr std::int32_t kLargestEquation = 100;
constexpr std::int32_t kLargestUnit = 50999;
constexpr std::int32_t kFirstTempUnit = 10;
constexpr std::int32_t kLastTempUnit = 13;

constexpr bool IsTempUnit(std::int32_t unit) noexcept {
  return unit == 0 || (unit >= kFirstTempUnit && unit <= kLastTempUnit);
}

template <std::size_t N>
void Take(std::array<char, N>& own, char const* text) noexcept {
  CopyText(TextOrEmpty(text), own.data(), N);
}

std::size_t HeldCoefficients(std::int32_t count) noexcept {
  return static_cast<std::size_t>(std::clamp(count, 0, kCoefficients));
}

}  // namespace

PureComp_i::PureComp_i(BankType const& type, ZelIid const& id)
    : BankWithFace<IZelPureComp>(type, kFields, FieldValues{}, id) {
  Clear();
}

// --- the item ------------------------------------------------------------------------------------

ZelStatus PureComp_i::Clear() {
  BankBase_i::Clear();
  c_.Clear();
  return kStatusOk;
}

ZelStatus PureComp_i::ReadFromFile(std::int32_t const* block, LibFile* library) {
  auto* file = dynamic_cast<LibFile_i*>(library);
  if (block == nullptr || file == nullptr) return kStatusFailed;
  return MergeRecord(c_, *block, *file, {Source(), SourceIsProtected()});
}

ZelStatus PureComp_i::WriteToFile(std::int32_t* block, LibFile* library) {
  auto* file = dynamic_cast<LibFile_i*>(library);
  if (block == nullptr || file == nullptr) return kStatusFailed;
  WriteRecord(c_, *block, *file);
  return kStatusOk;
}

ZelStatus PureComp_i::Complete() {
  CompleteComponent(c_);
  return kStatusOk;
}

ZelStatus PureComp_i::GetConsistencyWarning(std::uint8_t* flag, char* text) {
  if (NothingWanted(flag, text)) return kStatusFailed;
  Give(flag, c_.consistencyWarning ? 1 : 0);
  GiveText(c_.consistencyText.data(), text, c_.consistencyText.size());
  return kStatusOk;
}

// --- identity ------------------------------------------------------------------------------------

ZelStatus PureComp_i::GetIdentity(std::int32_t* number, std::int32_t* casNumber,
                                  std::int32_t* refCode, char (*libraryIds)[9], char* name,
                                  char* formula, std::uint8_t* keepFormula) {
  if (NothingWanted(number, casNumber, refCode, libraryIds, name, formula, keepFormula)) {
    return kStatusFailed;
  }
  Give(number, c_.number);
  Give(casNumber, c_.casNumber);
  Give(refCode, c_.refCode);
  for (std::size_t i = 0; libraryIds != nullptr && i < kLibraryIds; ++i) {
    CopyText(c_.libraryIds[i].data(), libraryIds[i], sizeof libraryIds[i]);
  }
  GiveText(c_.name.data(), name, c_.name.size());
  GiveText(c_.formula.data(), formula, c_.formula.size());
  Give(keepFormula, c_.keepFormula ? 1 : 0);
  return kStatusOk;
}

ZelStatus PureComp_i::SetIdentity(std::int32_t number, std::int32_t casNumber, std::int32_t refCode,
                                  char const (*libraryIds)[9], char const* name,
                                  char const* formula, std::uint8_t keepFormula) {
  if (libraryIds == nullptr) return kStatusFailed;
  c_.number = number;
  c_.casNumber = casNumber;
  c_.refCode = refCode;
  for (std::size_t i = 0; i < kLibraryIds; ++i) Take(c_.libraryIds[i], libraryIds[i]);
  Take(c_.name, name);
  Take(c_.formula, formula);
  c_.keepFormula = keepFormula != 0;
  return kStatusOk;
}

ZelStatus PureComp_i::GetSmiles(char* text) {
  if (text == nullptr) return kStatusFailed;
  CopyText(c_.smiles.data(), text, c_.smiles.size());
  return c_.smiles[0] == '\0' ? kStatusNothingNew : kStatusOk;
}

ZelStatus PureComp_i::SetSmiles(char const* text) {
  Take(c_.smiles, text);
  return kStatusOk;
}

ZelStatus PureComp_i::GetPhase(std::int32_t* phase) {
  if (phase == nullptr) return kStatusFailed;
  *phase = c_.phase;
  return kStatusOk;
}

ZelStatus PureComp_i::SetPhase(std::int32_t phase) {
  c_.phase = phase;
  return kStatusOk;
}

// --- constants -----------------------------------------------------------------------------------

ZelStatus PureComp_i::GetAllProperties(double* values) {
  if (values == nullptr) return kStatusFailed;
  std::copy(c_.fixed.begin(), c_.fixed.end(), values);
  return kStatusOk;
}

ZelStatus PureComp_i::GetProperty(std::uint32_t index, double* value) {
  if (index >= c_.fixed.size() || value == nullptr) return kStatusFailed;
  *value = c_.fixed[index];
  return kStatusOk;
}

ZelStatus PureComp_i::GetAllCompleted(double* values) {
  if (values == nullptr) return kStatusFailed;
  std::copy(c_.completed.begin(), c_.completed.end(), values);
  return kStatusOk;
}

ZelStatus PureComp_i::GetCompleted(std::uint32_t index, double* value) {
  if (index >= c_.completed.size() || value == nullptr) return kStatusFailed;
  *value = c_.completed[index];
  return kStatusOk;
}

ZelStatus PureComp_i::SetAllProperties(double const* values) {
  if (values == nullptr) return kStatusFailed;
  std::copy_n(values, c_.fixed.size(), c_.fixed.begin());
  return kStatusOk;
}

ZelStatus PureComp_i::SetProperty(std::uint32_t index, double value) {
  if (index >= c_.fixed.size()) return kStatusFailed;
  c_.fixed[index] = value;
  return kStatusOk;
}

ZelStatus PureComp_i::GetAllPropertyRefCodes(std::uint32_t* codes) {
  if (codes == nullptr) return kStatusFailed;
  std::copy(c_.fixedRefs.begin(), c_.fixedRefs.end(), codes);
  return kStatusOk;
}

ZelStatus PureComp_i::GetPropertyRefCode(std::uint32_t index, std::uint32_t* code) {
  if (code == nullptr) return kStatusFailed;
  bool const inRange = index < c_.fixedRefs.size();
  *code = inRange ? c_.fixedRefs[index] : 0;
  return inRange ? kStatusOk : kStatusFailed;
}

ZelStatus PureComp_i::SetAllPropertyRefCodes(std::uint32_t const* codes) {
  if (codes == nullptr) return kStatusFailed;
  std::transform(codes, codes + c_.fixedRefs.size(), c_.fixedRefs.begin(),
                 [](std::uint32_t code) { return code > kMaxRefCode ? 0 : code; });
  return kStatusOk;
}

ZelStatus PureComp_i::SetPropertyRefCode(std::uint32_t index, std::uint32_t code) {
  if (index >= c_.fixedRefs.size() || code > kMaxRefCode) return kStatusFailed;
  c_.fixedRefs[index] = code;
  return kStatusOk;
}

// --- correlations --------------------------------------------------------------------------------

ZelStatus PureComp_i::GetCorrelation(std::uint32_t index, std::int32_t* equation,
                                     std::int32_t* tempUnit, std::int32_t* propUnit, double* factor,
                                     std::int32_t* logBasis, std::int32_t* moleWtBasis,
                                     std::int32_t* coefficientCount, double* tMin, double* tMax,
                                     double* coefficients) {
  if (index >= kNamedCorrelations ||
      NothingWanted(equation, tempUnit, propUnit, factor, logBasis, moleWtBasis, coefficientCount,
                    tMin, tMax, coefficients)) {
    return kStatusFailed;
  }
  CorrelationRecord const& own = c_.correlations[index];
  Give(equation, own.equation);
  Give(tempUnit, own.tempUnit);
  Give(propUnit, own.propUnit);
  Give(factor, own.factor);
  Give(logBasis, own.logBasis);
  Give(moleWtBasis, own.moleWtBasis);
  Give(coefficientCount, own.coefficientCount);
  Give(tMin, own.tMin);
  Give(tMax, own.tMax);
  if (coefficients != nullptr) {
    std::copy_n(own.coefficients.begin(), HeldCoefficients(own.coefficientCount), coefficients);
  }
  bool const sound = own.equation <= kLargestEquation && own.propUnit <= kLargestUnit &&
                     IsTempUnit(own.tempUnit) && own.coefficientCount >= 1 &&
                     own.coefficientCount <= kCoefficients;
  if (!sound) return kStatusFailed;
  return own.present ? kStatusOk : kStatusNothingNew;
}

ZelStatus PureComp_i::SetCorrelation(std::uint32_t index, std::int32_t equation,
                                     std::int32_t tempUnit, std::int32_t propUnit,
                                     std::int32_t logBasis, std::int32_t moleWtBasis,
                                     std::int32_t coefficientCount, double tMin, double tMax,
                                     double const* coefficients) {
  std::size_t const held = HeldCoefficients(coefficientCount);
  if (index >= kNamedCorrelations || (coefficients == nullptr && held > 0)) return kStatusFailed;
  CorrelationRecord& own = c_.correlations[index];
  own.present = true;
  own.equation = equation;
  own.tempUnit = tempUnit;
  own.SetUnit(propUnit);
  own.logBasis = logBasis;
  own.moleWtBasis =
      kCorrelationRows[index].basis == Basis::kNone ? 0 : std::max(moleWtBasis, kMolarBasis);
  own.coefficientCount = coefficientCount;
  own.tMin = tMin;
  own.tMax = tMax;
  own.coefficients.fill(gen_GetUndefDouble());
  std::copy_n(coefficients, held, own.coefficients.begin());
  return kStatusOk;
}

// Records without a name can be reset but are still reported as out of range.
ZelStatus PureComp_i::ResetCorrelation(std::uint32_t index) {
  if (index >= c_.correlations.size()) return kStatusFailed;
  c_.ResetCorrelation(static_cast<int>(index));
  return index < kNamedCorrelations ? kStatusOk : kStatusFailed;
}

ZelStatus PureComp_i::GetCorrelationRefCode(std::uint32_t index, std::uint32_t* code) {
  if (code == nullptr) return kStatusFailed;
  bool const inRange = index < kCorrelationsWithCode;
  *code = inRange ? c_.correlationRefs[index] : 0;
  return inRange ? kStatusOk : kStatusFailed;
}

ZelStatus PureComp_i::SetCorrelationRefCode(std::uint32_t index, std::uint32_t code) {
  if (index >= kCorrelationsWithCode || code > kMaxRefCode) return kStatusFailed;
  c_.correlationRefs[index] = code;
  return kStatusOk;
}

ZelStatus PureComp_i::EvaluateCorrelation(std::uint32_t index, double temperature,
                                          std::int32_t order, double* value, double* derivative,
                                          double* weights, std::int32_t* status) {
  if (NothingWanted(value, derivative, weights, status)) return kStatusFailed;
  return EvaluateRecord(c_, index, temperature, order, value, derivative, weights, status);
}

IZelBankDef* NewPureComp() { return MakeBank<PureComp_i>(kPureComponentType, IID_IZelPureComp); }

}  // namespace zel
