/// \file
/// Batches: one correlation at many temperatures, and many correlations in one call. Results go to
/// the caller's arrays; nothing is allocated, and nothing throws.
///
///     zel::ZelCorrelation pressure;
///     zel::TakeCorrelation(component, zel::correlationVaporPressure, pressure);
///     zel::ZelBatch batch;
///     batch.count = 1000;
///     batch.temperatures = temperatures;
///     batch.values = values;
///     batch.derivatives = slopes;
///     zel::EvaluateBatch(pressure, batch);
#ifndef ZELACCESS_BATCH_H
#define ZELACCESS_BATCH_H

#include "zelaccess/Correlation.h"

namespace zel {

/// How the results of a batch compare with those of single evaluations.
enum zelBatchModes : std::int32_t {
  batchExact = 0,  ///< The same, bit for bit.
  /// Faster where the processor's vector instructions can be used; a value differs by at most 1e-12
  /// of itself, unless the terms of the equation cancel to a value far smaller than they are. Range
  /// status and result are the same. Applies to the value and the first derivative of equations 1,
  /// 15, 16, 19, 20, 21, 47 and 48; everything else is exact.
  batchVector = 1
};

/// What to evaluate, and the arrays for it. Element i of an array is at `pointer[stride * i]`. A
/// stride is 1 for an array without gaps and 0 for one element that all share, which for results
/// keeps the last one; any other stride, also a negative one, is for members of larger structures.
///
/// The results are those of single evaluations in the order of the elements. So values and
/// derivatives are input and output, as for IZelPureComp::EvaluateCorrelation: where a form has no
/// value at a temperature, they stay unchanged. Temperatures must not share memory with results,
/// unless they are the same elements with the same stride.
struct ZelBatch {
  std::int64_t count = 0;                ///< Number of elements.
  double const* temperatures = nullptr;  ///< In the correlation's unit; null is a failure.
  std::int64_t temperatureStride = 1;    ///< 0: one temperature for all elements.
  std::int32_t order = 1;                ///< 1, 2, 3 for that derivative, 11 for the sensitivities.
  zelBatchModes mode = batchExact;       ///< One of zelBatchModes.
  double* values = nullptr;              ///< Receives the values; may be null.
  std::int64_t valueStride = 1;          ///< Stride of the values.
  double* derivatives = nullptr;         ///< Receives the derivatives of the order; may be null.
  std::int64_t derivativeStride = 1;     ///< Stride of the derivatives.
  double* weights = nullptr;         ///< Receives 15 sensitivities each for order 11; may be null.
  std::int64_t weightStride = 15;    ///< From the first sensitivity of an element to the next one.
  std::int32_t* statuses = nullptr;  ///< Receives 0 inside, 1 above, -1 below; may be null.
  std::int64_t statusStride = 1;     ///< Stride of the statuses.
  /// Receives what single evaluations return: kStatusOk, kStatusNothingNew, kStatusFailed; may be
  /// null.
  ZelStatus* results = nullptr;
  std::int64_t resultStride = 1;  ///< Stride of the results.
};

/// \name Batches
/// Each returns kStatusOk when all elements are inside their range; kStatusNothingNew (1) when some
/// were extrapolated; kStatusFailed when some failed, which does not keep the others from being
/// evaluated; and kStatusFailed, with nothing done, for a count below 0, for temperatures that are
/// null while the count is not 0, and where values, derivatives, weights and statuses are all null.
///@{

/// Evaluates one correlation at many temperatures.
/// \param correlation  the correlation; see EvaluateOne
/// \param batch        temperatures and results
/// \return see above
ZEL_API ZelStatus EvaluateBatch(ZelCorrelation const& correlation, ZelBatch const& batch);

/// Evaluates one correlation of a component at many temperatures, also one whose equation evaluates
/// other correlations of the component.
/// \param component  the component; null is a failure
/// \param index      one of zelCorrelations, up to 17
/// \param batch      temperatures and results
/// \return see above; kStatusFailed, with nothing done, for a component that is not of this library
ZEL_API ZelStatus EvaluateComponentBatch(IZelPureComp* component, std::uint32_t index,
                                         ZelBatch const& batch);

/// Evaluates many correlations: element i is correlation i, at temperature i.
/// \param correlations  as many as the batch's count; null is a failure unless that is 0
/// \param batch         temperatures and results; the mode has no effect
/// \return see above
ZEL_API ZelStatus EvaluateEachCorrelation(ZelCorrelation const* correlations,
                                          ZelBatch const& batch);

/// Evaluates the correlations of a component: element i is its correlation i. The result of one
/// that is not set is kStatusFailed.
/// \param component  the component; null is a failure
/// \param batch      temperatures and results; a count above 18 is a failure with nothing done; the
///                   mode has no effect
/// \return see above; kStatusFailed, with nothing done, for a component that is not of this library
ZEL_API ZelStatus EvaluateAllCorrelations(IZelPureComp* component, ZelBatch const& batch);

/// Evaluates one correlation of many components: element i is that of component i.
/// \param components  as many as the batch's count; null is a failure unless that is 0; a null
///                    component, and one that is not of this library, fails as an element
/// \param index       one of zelCorrelations, up to 17
/// \param batch       temperatures and results; the mode has no effect
/// \return see above
ZEL_API ZelStatus EvaluateEachComponent(IZelPureComp* const* components, std::uint32_t index,
                                        ZelBatch const& batch);
///@}

}  // namespace zel

#endif  // ZELACCESS_BATCH_H
