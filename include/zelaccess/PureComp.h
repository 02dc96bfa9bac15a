// The interface of the pure component bank, PURECOMP.
#ifndef ZELACCESS_PURECOMP_H
#define ZELACCESS_PURECOMP_H

#include "zelaccess/Banks.h"

namespace zel {

// Fixed constants by index: keyword, internal unit ("-" for a pure number), meaning. The indices in
// between are kept in memory and have no keyword and no place on file.
// clang-format off
enum zelProperties : std::uint32_t {
  propertyMW = 0,             // MW, kg/kg-mol: molecular weight
  propertyTC = 1,             // TC, K: critical temperature
  propertyPC = 2,             // PC, kPa: critical pressure
  propertyVC = 3,             // VC, m3/kg-mol: critical volume
  propertyZC = 4,             // ZC, -: critical compressibility factor
  propertyACENTRIC = 5,       // ACENTRIC, -: acentric factor
  propertyCHAO = 6,           // CHAO, -: value stored under this keyword
  propertyNMP = 7,            // NMP, K: normal melting point
  propertyNBP = 8,            // NBP, K: normal boiling point
  propertySG60F = 9,          // SG60F, -: specific gravity at 60 F
  propertyMVOL25C = 10,       // MVOL25C, m3/kg-mol: liquid molar volume at 25 C
  propertySOLUPARA = 11,      // SOLUPARA, (cal/cm3)^0.5: solubility parameter
  propertyPARACHOR = 12,      // PARACHOR, -: parachor
  propertyRACKETT = 13,       // RACKETT, -: Rackett parameter
  propertyDIPOLE = 14,        // DIPOLE, debye: dipole moment
  propertyRADIUS = 15,        // RADIUS, m: molecular radius
  propertyDIELECTRIC = 16,    // DIELECTRIC, -: dielectric constant
  propertyTDIELECTRIC = 17,   // TDIELECTRIC, K: temperature of the dielectric constant
  propertyVDWA = 18,          // VDWA, -: van der Waals area
  propertyVDWV = 19,          // VDWV, -: van der Waals volume
  propertyGFORMATION = 23,    // GFORMATION, kJ/kg-mol: Gibbs energy of formation
  propertyHFORMATION = 24,    // HFORMATION, kJ/kg-mol: heat of formation
  propertyFLASHPOINT = 25,    // FLASHPOINT, K: flash point
  propertyLOFLAMM = 26,       // LOFLAMM, fraction: lower flammability limit
  propertyHIFLAMM = 27,       // HIFLAMM, fraction: upper flammability limit
  propertyAUTOIGNITION = 28,  // AUTOIGNITION, K: autoignition temperature
  propertyGHV = 33,           // GHV, kJ/kg-mol: gross heating value
  propertyLHV = 34,           // LHV, kJ/kg-mol: lower heating value
  propertyCNUM = 35,          // CNUM, -: carbon number
  propertyZNUM = 36,          // ZNUM, -: value stored under this keyword
  propertyTTP = 37,           // TTP, K: triple point temperature
  propertyPTP = 38,           // PTP, kPa: triple point pressure
  propertySVTB = 39,          // SVTB, kJ/kg-mol-K: vapor entropy at the normal boiling point
  propertySLTB = 40,          // SLTB, kJ/kg-mol-K: liquid entropy at the normal boiling point
  propertySLTM = 41,          // SLTM, kJ/kg-mol-K: liquid entropy at the melting point
  propertyHVTB = 42,          // HVTB, kJ/kg-mol: vapor enthalpy at the normal boiling point
  propertyHLTB = 43,          // HLTB, kJ/kg-mol: liquid enthalpy at the normal boiling point
  propertyHLTM = 44,          // HLTM, kJ/kg-mol: liquid enthalpy at the melting point
  propertyHCOMBUST = 45,      // HCOMBUST, kJ/kg-mol: heat of combustion
  propertyHFUSIONNMP = 46,    // HFUSIONNMP, kJ/kg-mol: heat of fusion at the melting point
  propertyHVAPNBP = 47,       // HVAPNBP, kJ/kg-mol: heat of vaporization at the normal boiling point
  // Only after Complete, and never on file:
  propertyApiGravity = 50,        // -: API gravity, from SG60F
  propertyWatsonK = 52,           // -: Watson characterization factor, from NBP and SG60F
  propertyFirstNbpCopy = 53,      // K: the normal boiling point, 53 to 57
  propertyLastNbpCopy = 57,       // K
  propertyCarbonAtoms = 60,       // -: atoms in the formula, 60 to 64
  propertyHydrogenAtoms = 61,     // -
  propertyNitrogenAtoms = 62,     // -
  propertyOxygenAtoms = 63,       // -
  propertySulfurAtoms = 64,       // -
  propertyCarbonFraction = 70,    // kg/kg: weight fractions of the elements, 70 to 74
  propertyHydrogenFraction = 71,  // kg/kg
  propertyNitrogenFraction = 72,  // kg/kg
  propertyOxygenFraction = 73,    // kg/kg
  propertySulfurFraction = 74,    // kg/kg
  propertyCarbonToHydrogen = 80   // kg/kg: weight ratio of C to H
};

// Correlations by index: name, unit of an evaluated value ("-" for a pure number), meaning.
enum zelCorrelations : std::uint32_t {
  correlationVaporPressure = 0,         // VaporPressure, kPa: vapor pressure
  correlationIdealEnthalpy = 1,         // IdealEnthalpy, kJ/kg-mol: enthalpy of the ideal gas
  correlationLiquidEnthalpy = 2,        // LiquidEnthalpy, kJ/kg-mol: enthalpy of the saturated liquid
  correlationLatentHeat = 3,            // LatentHeat, kJ/kg-mol: heat of vaporization
  correlationLiquidDensity = 4,         // LiquidDensity, kg-mol/m3: density of the saturated liquid
  correlationLiquidThermal = 5,         // LiquidThermal, W/m-K: thermal conductivity of the liquid
  correlationVaporThermal = 6,          // VaporThermal, W/m-K: thermal conductivity of the vapor
  correlationLiquidViscosity = 7,       // LiquidViscosity, cP: viscosity of the liquid
  correlationVaporViscosity = 8,        // VaporViscosity, cP: viscosity of the vapor
  correlationSurfaceTension = 9,        // SurfaceTension, N/m: surface tension
  correlationExpansion = 10,            // Expansion, -: expansion, kept and not evaluated
  correlationSolidEnthalpy = 11,        // SolidEnthalpy, kJ/kg-mol: enthalpy of the solid
  correlationSolidDensity = 12,         // SolidDensity, kg-mol/m3: density of the solid
  correlationIdealGasCp = 13,           // IdealGasCp, kJ/kg-mol-K: heat capacity of the ideal gas
  correlationLiquidCp = 14,             // LiquidCp, kJ/kg-mol-K: heat capacity of the liquid
  correlationSolidCp = 15,              // SolidCp, kJ/kg-mol-K: heat capacity of the solid
  correlationDielectric = 16,           // Dielectric, -: dielectric constant
  correlationCharacteristicVolume = 17  // CharacteristicVolume, m3/kg-mol: characteristic volume
};
// clang-format on

// What an identity source is the source of.
enum zelIdentitySources : std::uint32_t {
  sourceFormula = 0,
  sourceCas = 1,
  sourceStructure = 2,
  sourceSmiles = 3
};

// Models of group structures: keyword of the interchange form.
enum zelStructureModels : std::uint32_t {
  structureLegacy = 0,      // legacy
  structureOrigPublic = 1,  // orig-public
  structureOrigCons = 2,    // orig-cons
  structureDortPublic = 3,  // dort-public
  structureDortCons = 4,    // dort-cons
  structureLyngby = 5,      // lyngby
  structureJoback = 6       // joback
};

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
// kPa, kJ/kg-mol, m3/kg-mol, debye, m; undefined when unset (Types.h). Indices are those of
// zelProperties and zelCorrelations.
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

  // Groups under a model of zelStructureModels. At most 10 ids and counts. A model without a
  // structure of its own takes the legacy one, converted, but for joback; an id that does not
  // convert is a failure with count 0.
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
  // The constants after Complete: what was missing and could be derived, and those from 50 on. The
  // parachor and the copies of the boiling point are computed from whatever is there, also from
  // undefined constants; GetConstantState in Verify.h says which values rest on data.
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
  // Index of zelIdentitySources.
  virtual ZelStatus GetIdentitySource(std::uint32_t index, char* text, std::uint8_t* flag) = 0;

 protected:
  ~IZelPureComp() = default;
};

}  // namespace zel

#endif  // ZELACCESS_PURECOMP_H
