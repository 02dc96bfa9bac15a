// The interface of the pure component bank, PURECOMP.
#ifndef ZELACCESS_PURECOMP_H
#define ZELACCESS_PURECOMP_H

#include "zelaccess/Banks.h"

namespace zel {

// One pure component: identity, group structures, fixed constants, eighteen temperature
// correlations, a SMILES text and phase flags, with a reference code and a source for each datum.
//
// The bank accumulates: reading an item fills only what is still empty, so reading one component
// from several libraries in turn merges them, the first library winning each datum. Clear starts
// over.
//
// All operations return kStatusOk or kStatusFailed unless a row says otherwise. An index out of
// range is a failure and changes nothing. Null pointers as in Banks.h: EvaluateCorrelation without
// a buffer for the derivative gives the value alone. Text arguments are caller buffers: IDs 9
// characters, name 41, formula 21, SMILES 101, sources 260. Constants are in internal units: K,
// kPa, kJ/kg-mol, m3/kg-mol, debye, m; undefined when unset (Types.h). Constants by index: 0 MW, 1
// TC, 2 PC, 3 VC, 4 ZC, ...; correlations: 0 VaporPressure, 1 IdealEnthalpy, 2 LiquidEnthalpy, 3
// LatentHeat, 4 LiquidDensity, ...
class ZEL_API IZelPureComp : public IUnknown {
 public:
  // Set by Complete: the stored critical constants contradict each other and come from several
  // sources.
  virtual ZelStatus GetConsistencyWarning(std::uint8_t* flag, char* text) = 0;

  // Component number, CAS number as one integer, reference code, 12 library IDs, name, formula, and
  // whether the formula must be kept as written.
  virtual ZelStatus GetIdentity(std::int32_t* number, std::int32_t* casNumber,
                                std::int32_t* refCode, char (*libraryIds)[9], char* name,
                                char* formula, std::uint8_t* keepFormula) = 0;
  virtual ZelStatus SetIdentity(std::int32_t number, std::int32_t casNumber, std::int32_t refCode,
                                char const (*libraryIds)[9], char const* name, char const* formula,
                                std::uint8_t keepFormula) = 0;

  // Groups under a model: 0 legacy, 1 orig-public, 2 orig-cons, 3 dort-public, 4 dort-cons, 5
  // lyngby, 6 joback. At most 10 ids and counts. A model without a structure of its own takes the
  // legacy one, converted, but for joback; an id that does not convert is a failure with count 0.
  virtual ZelStatus GetStructure(std::uint32_t model, std::int32_t* count, std::int32_t* ids,
                                 std::int32_t* counts) = 0;
  // As stored; a failure when there is none.
  virtual ZelStatus GetRawStructure(std::uint32_t model, std::int32_t* count, std::int32_t* ids,
                                    std::int32_t* counts) = 0;
  virtual ZelStatus GetLegacyStructure(std::int32_t* count, std::int32_t* ids,
                                       std::int32_t* counts) = 0;
  virtual ZelStatus SetStructure(std::uint32_t model, std::int32_t count, std::int32_t const* ids,
                                 std::int32_t const* counts) = 0;
  virtual ZelStatus SetLegacyStructure(std::int32_t count, std::int32_t const* ids,
                                       std::int32_t const* counts) = 0;

  // The constants as read or set: 100 values, or one by index up to 99.
  virtual ZelStatus GetAllProperties(double* values) = 0;
  virtual ZelStatus GetProperty(std::uint32_t index, double* value) = 0;
  // The constants after Complete. Beside what was missing they hold: 50 API gravity, 52 Watson K,
  // 53 to 57 the normal boiling point, 60 to 64 atoms of C, H, N, O, S, 70 to 74 their weight
  // fractions, 80 the weight ratio of C to H. The parachor and the boiling point copies are
  // computed from whatever is there, also from undefined constants.
  virtual ZelStatus GetAllCompleted(double* values) = 0;
  virtual ZelStatus GetCompleted(std::uint32_t index, double* value) = 0;
  virtual ZelStatus SetAllProperties(double const* values) = 0;
  virtual ZelStatus SetProperty(std::uint32_t index, double value) = 0;
  // Reference codes of constants 0 to 49, up to 32000.
  virtual ZelStatus GetAllPropertyRefCodes(std::uint32_t* codes) = 0;
  virtual ZelStatus GetPropertyRefCode(std::uint32_t index, std::uint32_t* code) = 0;
  // A code above 32000 is stored as 0.
  virtual ZelStatus SetAllPropertyRefCodes(std::uint32_t const* codes) = 0;
  // A code above 32000 is a failure.
  virtual ZelStatus SetPropertyRefCode(std::uint32_t index, std::uint32_t code) = 0;

  // One correlation, index up to 17; 15 coefficients, of which `coefficientCount` are given.
  // `factor` turns the form's value into internal units. tempUnit 10 K, 11 C, 12 R, 13 F; logBasis
  // 1 natural, 2 decimal; moleWtBasis 0 none, 1 molar, 2 weight. The record is copied out before it
  // is judged: an equation above 100, a property unit above 50999, another temperature unit or a
  // count outside 1 to 15 is a failure, so that one never set or reset is a failure too.
  // kStatusNothingNew (1) for a sound record that is not set.
  virtual ZelStatus GetCorrelation(std::uint32_t index, std::int32_t* equation,
                                   std::int32_t* tempUnit, std::int32_t* propUnit, double* factor,
                                   std::int32_t* logBasis, std::int32_t* moleWtBasis,
                                   std::int32_t* coefficientCount, double* tMin, double* tMax,
                                   double* coefficients) = 0;
  virtual ZelStatus SetCorrelation(std::uint32_t index, std::int32_t equation,
                                   std::int32_t tempUnit, std::int32_t propUnit,
                                   std::int32_t logBasis, std::int32_t moleWtBasis,
                                   std::int32_t coefficientCount, double tMin, double tMax,
                                   double const* coefficients) = 0;
  virtual ZelStatus ResetCorrelation(std::uint32_t index) = 0;
  // Index up to 16: the last correlation has a code on file and none through here.
  virtual ZelStatus GetCorrelationRefCode(std::uint32_t index, std::uint32_t* code) = 0;
  virtual ZelStatus SetCorrelationRefCode(std::uint32_t index, std::uint32_t code) = 0;
  // Value and derivative at a temperature in the record's unit. `order`: 1, 2, 3 for that
  // derivative with respect to the temperature, 11 for the sensitivities (`weights`, 15; else
  // null). A derivative is infinite where the form ends steeply, as a density of equation 16 does
  // at the critical point. kStatusOk inside the range, kStatusNothingNew (1) when extrapolated.
  // `status`: 0 inside, 1 above, -1 below. `value` and `derivative` are in and out: a form without
  // a value there leaves them.
  virtual ZelStatus EvaluateCorrelation(std::uint32_t index, double temperature, std::int32_t order,
                                        double* value, double* derivative, double* weights,
                                        std::int32_t* status) = 0;

  // kStatusNothingNew (1) when the text is empty.
  virtual ZelStatus GetSmiles(char* text) = 0;
  virtual ZelStatus SetSmiles(char const* text) = 0;
  // 1 vapor, 2 liquid, 4 solid, added up.
  virtual ZelStatus GetPhase(std::int32_t* phase) = 0;
  virtual ZelStatus SetPhase(std::int32_t phase) = 0;

  // Where each datum came from: a library's "name:bank", or for a constant the method that derived
  // it. A flag is 1 when the source was a protected library. The forms with pointers take an array
  // of buffers and skip null ones, the flat forms one buffer of rows of 260 characters.
  virtual ZelStatus GetAllPropertySources(char** texts, std::uint8_t* flags) = 0;  // 100
  virtual ZelStatus GetAllPropertySourcesFlat(char* texts, std::uint8_t* flags) = 0;
  virtual ZelStatus GetPropertySource(std::uint32_t index, char* text, std::uint8_t* flag) = 0;
  virtual ZelStatus GetAllCorrelationSources(char** texts, std::uint8_t* flags) = 0;  // 20
  virtual ZelStatus GetAllCorrelationSourcesFlat(char* texts, std::uint8_t* flags) = 0;
  virtual ZelStatus GetCorrelationSource(std::uint32_t index, char* text, std::uint8_t* flag) = 0;
  virtual ZelStatus GetAllIdentitySources(char** texts, std::uint8_t* flags) = 0;  // 5
  virtual ZelStatus GetAllIdentitySourcesFlat(char* texts, std::uint8_t* flags) = 0;
  // 0 formula, 1 CAS number, 2 structure, 3 SMILES.
  virtual ZelStatus GetIdentitySource(std::uint32_t index, char* text, std::uint8_t* flag) = 0;

 protected:
  ~IZelPureComp() = default;
};

}  // namespace zel

#endif  // ZELACCESS_PURECOMP_H
