#include "verify/constant_bounds.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace zel {
namespace {

// A constant without a row here can have any value: enthalpies, entropies and Gibbs energies depend
// on the reference state, and heats of combustion on the sign convention.
enum class Bound : std::uint8_t { kAbove, kAtLeast, kFraction };

struct Row {
  zelProperties index;
  Bound bound;
  double low;  // in the constant's unit
};

// The acentric factor is -log10(p(0.7 TC)/PC) - 1, and the vapor pressure below TC is less than PC.
constexpr Row kRows[] = {
    {propertyMW, Bound::kAbove, 0.0},           {propertyTC, Bound::kAbove, 0.0},
    {propertyPC, Bound::kAbove, 0.0},           {propertyVC, Bound::kAbove, 0.0},
    {propertyZC, Bound::kAbove, 0.0},           {propertyACENTRIC, Bound::kAbove, -1.0},
    {propertyNMP, Bound::kAbove, 0.0},          {propertyNBP, Bound::kAbove, 0.0},
    {propertySG60F, Bound::kAbove, 0.0},        {propertyMVOL25C, Bound::kAbove, 0.0},
    {propertySOLUPARA, Bound::kAtLeast, 0.0},   {propertyPARACHOR, Bound::kAtLeast, 0.0},
    {propertyRACKETT, Bound::kAbove, 0.0},      {propertyDIPOLE, Bound::kAtLeast, 0.0},
    {propertyRADIUS, Bound::kAtLeast, 0.0},     {propertyDIELECTRIC, Bound::kAtLeast, 1.0},
    {propertyTDIELECTRIC, Bound::kAbove, 0.0},  {propertyVDWA, Bound::kAtLeast, 0.0},
    {propertyVDWV, Bound::kAtLeast, 0.0},       {propertyFLASHPOINT, Bound::kAbove, 0.0},
    {propertyLOFLAMM, Bound::kFraction, 0.0},   {propertyHIFLAMM, Bound::kFraction, 0.0},
    {propertyAUTOIGNITION, Bound::kAbove, 0.0}, {propertyCNUM, Bound::kAtLeast, 0.0},
    {propertyTTP, Bound::kAbove, 0.0},          {propertyPTP, Bound::kAbove, 0.0},
    {propertyHFUSIONNMP, Bound::kAbove, 0.0},   {propertyHVAPNBP, Bound::kAbove, 0.0}};

bool IsInside(Row const& row, double value) {
  if (row.bound == Bound::kAbove) return value > row.low;
  return value >= row.low && (row.bound == Bound::kAtLeast || value <= 1.0);
}

Expected ExpectedBy(Row const& row) {
  if (row.bound == Bound::kAtLeast) return Expected::AtLeast(row.low);
  if (row.bound == Bound::kFraction) return Expected(row.low, 1.0, "0 to 1");
  return Expected(row.low, gen_GetUndefDouble(), "above " + Shown(row.low));
}

}  // namespace

void CheckBounds(ComponentView const& component, CheckedItem const& item, DataFindings& findings) {
  for (Row const& row : kRows) {
    double const value = component.Constant(row.index);
    if (!IsDefined(value) || IsInside(row, value)) continue;
    ZelConstantInfo const& info = ConstantRow(row.index);
    findings.Tell(
        item, DataFinding("bounds", info.keyword).Value(value, info.unit).Expect(ExpectedBy(row)),
        "{datum} is {value}, which is impossible: expected {expected}");
  }
}

}  // namespace zel
