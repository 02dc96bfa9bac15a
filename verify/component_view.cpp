#include "verify/component_view.h"

#include <algorithm>

#include "banks/catalogue.h"
#include "frame/limits.h"

namespace zel {
std::span<ZelConstantInfo const> ConstantRows() {
  std::int32_t count = 0;
  ZelConstantInfo const* const first = GetConstantCatalogue(count);
  return {first, static_cast<std::size_t>(count)};
}

ZelConstantInfo const& ConstantRow(zelProperties index) {
  auto const rows = ConstantRows();
  return *std::find_if(rows.begin(), rows.end(),
                       [&](ZelConstantInfo const& row) { return row.index == index; });
}

std::span<ZelCorrelationInfo const> CorrelationRows() {
  std::int32_t count = 0;
  ZelCorrelationInfo const* const first = GetCorrelationCatalogue(count);
  return {first, static_cast<std::size_t>(count)};
}

char const* TemperatureLetter(std::int32_t unit) {
  switch (unit) {
    case 11: return "C";
    case 12: return "R";
    case 13: return "F";
    default: return "K";
  }
}

ComponentView::ComponentView()
    : owner_(NewKnownBank(kPureComponentType)), bank_(dynamic_cast<PureComp_i*>(owner_.Get())) {}

ZelIdentity ComponentView::Identity() const {
  ZelIdentity identity;
  GetComponentIdentity(Face(), identity);
  return identity;
}

// GetCorrelation fails both for a missing record and for one that it does not return, which can
// still be evaluated; only the latter has an equation.
CorrelationRecord const* ComponentView::Record(std::uint32_t index) const {
  std::int32_t equation = 0;
  ZelStatus const status =
      bank_->GetCorrelation(index, &equation, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                            nullptr, nullptr, nullptr);
  bool const isThere = status == kStatusOk || (status == kStatusFailed && equation != 0);
  return isThere ? &Data().correlations[index] : nullptr;
}

std::span<double const> ComponentView::Coefficients(CorrelationRecord const& record) {
  return std::span(record.coefficients)
      .first(static_cast<std::size_t>(std::clamp(record.coefficientCount, 0, kCoefficients)));
}

double ComponentView::ValueAt(std::uint32_t index, double temperature) const {
  double value = 0.0, slope = 0.0;
  std::int32_t status = 0;
  GetCorrelationValue(Face(), index, temperature, 1, value, slope, status);
  return value;
}

double ComponentView::InsideAt(std::uint32_t index, double kelvin) const {
  CorrelationRecord const* const record = Record(index);
  if (record == nullptr) return gen_GetUndefDouble();
  double value = 0.0, slope = 0.0;
  std::int32_t status = 0;
  double const temperature = ConvertTemperature(kelvin, kKelvin, record->tempUnit);
  GetCorrelationValue(Face(), index, temperature, 1, value, slope, status);
  return status == 0 ? value : gen_GetUndefDouble();
}

}  // namespace zel
