#include "purecomp/component.h"

#include "frame/units/unit_factors.h"
#include "zelaccess/Types.h"

namespace zel {

namespace {

template <typename Texts>
void ClearTexts(Texts& texts) noexcept {
  for (auto& text : texts) text[0] = '\0';
}

}  // namespace

void CorrelationRecord::Reset(std::int32_t defaultUnit) noexcept {
  constexpr std::int32_t kKelvin = 10;
  present = false;
  equation = 0;
  coefficientCount = 0;
  tempUnit = kKelvin;
  logBasis = 1;
  moleWtBasis = 0;
  SetUnit(defaultUnit);
  tMin = gen_GetUndefDouble();
  tMax = gen_GetUndefDouble();
  coefficients.fill(gen_GetUndefDouble());
}

void CorrelationRecord::SetUnit(std::int32_t code) noexcept {
  propUnit = code;
  factor = code == 0 ? 1.0 : GetUnitFactor(code);
}

void Component::ResetCorrelation(int index) noexcept {
  auto const at = static_cast<std::size_t>(index);
  correlations[at].Reset(index < kNamedCorrelations ? kCorrelationRows[at].defaultUnit : 0);
}

void Component::Clear() noexcept {
  number = 0;
  casNumber = 0;
  refCode = 0;
  ClearTexts(libraryIds);
  name[0] = '\0';
  formula[0] = '\0';
  keepFormula = false;
  structures.fill({});
  smiles[0] = '\0';
  phase = 0;
  fixed.fill(gen_GetUndefDouble());
  completed.fill(gen_GetUndefDouble());
  for (int i = 0; i < kCorrelations; ++i) ResetCorrelation(i);
  fixedRefs.fill(0);
  correlationRefs.fill(0);
  sources.Clear();
  fixedSources.fill(0);
  correlationSources.fill(0);
  identitySources.fill(0);
  fixedSourceFlags.fill(0);
  correlationSourceFlags.fill(0);
  identitySourceFlags.fill(0);
  consistencyWarning = false;
  consistencyText[0] = '\0';
}

}  // namespace zel
