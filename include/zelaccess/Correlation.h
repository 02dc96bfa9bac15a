/// \file
/// ZelCorrelation: one correlation by itself, as a small value that a host takes out of a
/// component, keeps, copies and evaluates.
#ifndef ZELACCESS_CORRELATION_H
#define ZELACCESS_CORRELATION_H

#include "zelaccess/PureComp.h"

namespace zel {

/// A correlation by itself: its record, and the constants of its component that equations use.
///
/// TakeCorrelation fills it in; a host may also do so itself, or change it, for example to try
/// other coefficients. It refers to nothing: it can be copied, kept in arrays, and evaluated after
/// its component is gone.
///
/// **Threads.** A plain value. Any number of threads may evaluate one that none of them changes.
struct ZelCorrelation {
  std::uint32_t index = 0;    ///< One of zelCorrelations: decides on limits and extrapolation.
  std::int32_t equation = 0;  ///< Number of the equation (docs/equations.md).
  std::int32_t coefficientCount = 0;   ///< Number of coefficients in use, 0 to 15.
  std::int32_t tempUnit = 10;          ///< Unit of temperatures: 10 K, 11 C, 12 R, 13 F.
  std::int32_t propUnit = 0;           ///< Unit code of the form's value; not used by evaluations.
  std::int32_t logBasis = 1;           ///< 1 natural, 2 decimal.
  std::int32_t moleWtBasis = 0;        ///< 0 none, 1 molar, 2 weight.
  std::int32_t reserved = 0;           ///< 0.
  double factor = 1.0;                 ///< Turns the form's value into the unit of zelCorrelations.
  double tMin = gen_GetUndefDouble();  ///< Lower end of the range in tempUnit, undefined for none.
  double tMax = gen_GetUndefDouble();  ///< Upper end of the range in tempUnit, undefined for none.
  double coefficients[15] = {};        ///< Coefficients.
  double molecularWeight = gen_GetUndefDouble();      ///< In kg/kg-mol; for a weight basis.
  double criticalTemperature = gen_GetUndefDouble();  ///< In K; for equations that have Tc.
  double criticalPressure = gen_GetUndefDouble();     ///< In kPa; for equations that have Pc.
  double boilingPoint = gen_GetUndefDouble();         ///< Normal, in K; for equations that have Tb.
};
static_assert(sizeof(ZelCorrelation) <= 400, "a million of them fit into memory");

/// Takes a correlation out of a component.
///
/// Equations 38 and 54 evaluate other correlations of their component, so that they are not
/// correlations by themselves: they fail here, and are evaluated through their component.
/// \param component    the component; null is a failure
/// \param index        one of zelCorrelations, up to 17
/// \param correlation  receives the correlation; unchanged on failure
/// \return kStatusOk; kStatusFailed for a correlation that is not set, for equations 38 and 54, and
///         for a component that is not of this library
ZEL_API ZelStatus TakeCorrelation(IZelPureComp* component, std::uint32_t index,
                                  ZelCorrelation& correlation);

/// Returns the factor from the value of the equation itself to that of the correlation: `factor`,
/// and for a weight basis the molecular weight, by which densities are divided and everything else
/// is multiplied.
/// \param correlation  the correlation
/// \return the factor; undefined (gen_IsUndefDouble) or meaningless without the molecular weight
inline double FactorOf(ZelCorrelation const& correlation) noexcept {
  bool const isWeightBasis = correlation.moleWtBasis == 2;
  if (!isWeightBasis) return correlation.factor;
  bool const isDensity =
      correlation.index == correlationLiquidDensity || correlation.index == correlationSolidDensity;
  return isDensity ? correlation.factor / correlation.molecularWeight
                   : correlation.factor * correlation.molecularWeight;
}

/// Evaluates a correlation and a derivative. The results are bit for bit those of
/// IZelPureComp::EvaluateCorrelation for the component that it was taken from.
/// \param correlation  the correlation
/// \param temperature  in the correlation's unit of temperatures
/// \param order        1, 2, 3 for that derivative with respect to the temperature, 11 for the
///                     sensitivities to the coefficients
/// \param value        in and out: receives the value in the unit of zelCorrelations; unchanged if
///                     the form has no value there; may be null
/// \param derivative   in and out: receives the derivative, per the correlation's unit of
///                     temperatures to the power of the order; unchanged if the form has no value
///                     there; may be null
/// \param weights      array of 15 for the sensitivities of order 11; else null; may be null
/// \param status       receives 0 inside the range, 1 above, -1 below; may be null
/// \return kStatusOk inside the range; kStatusNothingNew (1) when extrapolated; kStatusFailed for an
///         index above 17, for correlationExpansion, for equations 38 and 54, and where all outputs
///         are null
ZEL_API ZelStatus EvaluateOne(ZelCorrelation const& correlation, double temperature,
                              std::int32_t order, double* value, double* derivative,
                              double* weights, std::int32_t* status);

}  // namespace zel

#endif  // ZELACCESS_CORRELATION_H
