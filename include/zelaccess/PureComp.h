/// \file
/// The interface of the pure component bank, PURECOMP.
#ifndef ZELACCESS_PURECOMP_H
#define ZELACCESS_PURECOMP_H

#include "zelaccess/Banks.h"

namespace zel {

// clang-format off

/// Fixed constants by index: keyword, internal unit ("-" for a pure number), meaning. An index
/// without an enumerator exists in memory only: it has no keyword and is not stored in a file.
enum zelProperties : std::uint32_t {
  propertyMW = 0,             ///< MW, kg/kg-mol: molecular weight
  propertyTC = 1,             ///< TC, K: critical temperature
  propertyPC = 2,             ///< PC, kPa: critical pressure
  propertyVC = 3,             ///< VC, m3/kg-mol: critical volume
  propertyZC = 4,             ///< ZC, -: critical compressibility factor
  propertyACENTRIC = 5,       ///< ACENTRIC, -: acentric factor
  propertyCHAO = 6,           ///< CHAO, -: value stored under this keyword
  propertyNMP = 7,            ///< NMP, K: normal melting point
  propertyNBP = 8,            ///< NBP, K: normal boiling point
  propertySG60F = 9,          ///< SG60F, -: specific gravity at 60 F
  propertyMVOL25C = 10,       ///< MVOL25C, m3/kg-mol: liquid molar volume at 25 C
  propertySOLUPARA = 11,      ///< SOLUPARA, (cal/cm3)^0.5: solubility parameter
  propertyPARACHOR = 12,      ///< PARACHOR, -: parachor
  propertyRACKETT = 13,       ///< RACKETT, -: Rackett parameter
  propertyDIPOLE = 14,        ///< DIPOLE, debye: dipole moment
  propertyRADIUS = 15,        ///< RADIUS, m: molecular radius
  propertyDIELECTRIC = 16,    ///< DIELECTRIC, -: dielectric constant
  propertyTDIELECTRIC = 17,   ///< TDIELECTRIC, K: temperature of the dielectric constant
  propertyVDWA = 18,          ///< VDWA, -: van der Waals area
  propertyVDWV = 19,          ///< VDWV, -: van der Waals volume
  propertyGFORMATION = 23,    ///< GFORMATION, kJ/kg-mol: Gibbs energy of formation
  propertyHFORMATION = 24,    ///< HFORMATION, kJ/kg-mol: heat of formation
  propertyFLASHPOINT = 25,    ///< FLASHPOINT, K: flash point
  propertyLOFLAMM = 26,       ///< LOFLAMM, fraction: lower flammability limit
  propertyHIFLAMM = 27,       ///< HIFLAMM, fraction: upper flammability limit
  propertyAUTOIGNITION = 28,  ///< AUTOIGNITION, K: autoignition temperature
  propertyGHV = 33,           ///< GHV, kJ/kg-mol: gross heating value
  propertyLHV = 34,           ///< LHV, kJ/kg-mol: lower heating value
  propertyCNUM = 35,          ///< CNUM, -: carbon number
  propertyZNUM = 36,          ///< ZNUM, -: value stored under this keyword
  propertyTTP = 37,           ///< TTP, K: triple point temperature
  propertyPTP = 38,           ///< PTP, kPa: triple point pressure
  propertySVTB = 39,          ///< SVTB, kJ/kg-mol-K: vapor entropy at the normal boiling point
  propertySLTB = 40,          ///< SLTB, kJ/kg-mol-K: liquid entropy at the normal boiling point
  propertySLTM = 41,          ///< SLTM, kJ/kg-mol-K: liquid entropy at the melting point
  propertyHVTB = 42,          ///< HVTB, kJ/kg-mol: vapor enthalpy at the normal boiling point
  propertyHLTB = 43,          ///< HLTB, kJ/kg-mol: liquid enthalpy at the normal boiling point
  propertyHLTM = 44,          ///< HLTM, kJ/kg-mol: liquid enthalpy at the melting point
  propertyHCOMBUST = 45,      ///< HCOMBUST, kJ/kg-mol: heat of combustion
  propertyHFUSIONNMP = 46,    ///< HFUSIONNMP, kJ/kg-mol: heat of fusion at the melting point
  propertyHVAPNBP = 47,       ///< HVAPNBP, kJ/kg-mol: heat of vaporization at the normal boiling point
  // Only after Complete, and never on file:
  propertyApiGravity = 50,        ///< -: API gravity, from SG60F
  propertyWatsonK = 52,           ///< -: Watson characterization factor, from NBP and SG60F
  propertyFirstNbpCopy = 53,      ///< K: the normal boiling point; first of the copies 53 to 57
  propertyLastNbpCopy = 57,       ///< K: the normal boiling point; last of the copies
  propertyCarbonAtoms = 60,       ///< -: atoms of C in the formula
  propertyHydrogenAtoms = 61,     ///< -: atoms of H in the formula
  propertyNitrogenAtoms = 62,     ///< -: atoms of N in the formula
  propertyOxygenAtoms = 63,       ///< -: atoms of O in the formula
  propertySulfurAtoms = 64,       ///< -: atoms of S in the formula
  propertyCarbonFraction = 70,    ///< kg/kg: weight fraction of C
  propertyHydrogenFraction = 71,  ///< kg/kg: weight fraction of H
  propertyNitrogenFraction = 72,  ///< kg/kg: weight fraction of N
  propertyOxygenFraction = 73,    ///< kg/kg: weight fraction of O
  propertySulfurFraction = 74,    ///< kg/kg: weight fraction of S
  propertyCarbonToHydrogen = 80   ///< kg/kg: weight ratio of C to H
};

/// Correlations by index: name, unit of an evaluated value ("-" for a pure number), meaning.
enum zelCorrelations : std::uint32_t {
  correlationVaporPressure = 0,         ///< VaporPressure, kPa: vapor pressure
  correlationIdealEnthalpy = 1,         ///< IdealEnthalpy, kJ/kg-mol: enthalpy of the ideal gas
  correlationLiquidEnthalpy = 2,        ///< LiquidEnthalpy, kJ/kg-mol: enthalpy of the saturated liquid
  correlationLatentHeat = 3,            ///< LatentHeat, kJ/kg-mol: heat of vaporization
  correlationLiquidDensity = 4,         ///< LiquidDensity, kg-mol/m3: density of the saturated liquid
  correlationLiquidThermal = 5,         ///< LiquidThermal, W/m-K: thermal conductivity of the liquid
  correlationVaporThermal = 6,          ///< VaporThermal, W/m-K: thermal conductivity of the vapor
  correlationLiquidViscosity = 7,       ///< LiquidViscosity, cP: viscosity of the liquid
  correlationVaporViscosity = 8,        ///< VaporViscosity, cP: viscosity of the vapor
  correlationSurfaceTension = 9,        ///< SurfaceTension, N/m: surface tension
  correlationExpansion = 10,            ///< Expansion, -: expansion, kept and not evaluated
  correlationSolidEnthalpy = 11,        ///< SolidEnthalpy, kJ/kg-mol: enthalpy of the solid
  correlationSolidDensity = 12,         ///< SolidDensity, kg-mol/m3: density of the solid
  correlationIdealGasCp = 13,           ///< IdealGasCp, kJ/kg-mol-K: heat capacity of the ideal gas
  correlationLiquidCp = 14,             ///< LiquidCp, kJ/kg-mol-K: heat capacity of the liquid
  correlationSolidCp = 15,              ///< SolidCp, kJ/kg-mol-K: heat capacity of the solid
  correlationDielectric = 16,           ///< Dielectric, -: dielectric constant
  correlationCharacteristicVolume = 17  ///< CharacteristicVolume, m3/kg-mol: characteristic volume
};
// clang-format on

/// The parts of the identity that have a source of their own.
enum zelIdentitySources : std::uint32_t {
  sourceFormula = 0,    ///< The formula.
  sourceCas = 1,        ///< The CAS number.
  sourceStructure = 2,  ///< The group structures.
  sourceSmiles = 3      ///< The SMILES text.
};

/// Models of group structures: keyword of the interchange form.
enum zelStructureModels : std::uint32_t {
  structureLegacy = 0,      ///< legacy
  structureOrigPublic = 1,  ///< orig-public
  structureOrigCons = 2,    ///< orig-cons
  structureDortPublic = 3,  ///< dort-public
  structureDortCons = 4,    ///< dort-cons
  structureLyngby = 5,      ///< lyngby
  structureJoback = 6       ///< joback
};

/// One pure component: identity, group structures, fixed constants, eighteen temperature
/// correlations, a SMILES text and phase flags, with a reference code and a source for each datum.
///
/// The bank accumulates: reading an item fills only what is still empty, so reading one component
/// from several libraries in turn merges them; for each datum the first library that has it wins.
/// Clear starts over.
///
/// All operations return kStatusOk or kStatusFailed unless an operation says otherwise. An index
/// out of range is a failure and changes nothing. Indices are those of zelProperties and
/// zelCorrelations. Constants are in internal units: K, kPa, kJ/kg-mol, m3/kg-mol, debye, m;
/// undefined when unset (Types.h).
///
/// **Buffers** have 9 characters for an ID, 41 for a name, 21 for a formula, 101 for a SMILES text,
/// 260 for a source.
///
/// **Null pointers** as in Banks.h: a null output is skipped, a call whose outputs are all null
/// fails; a null text is the empty text; a null input array fails unless none of its elements would
/// be used.
///
/// **Threads.** One object belongs to one thread at a time. While none of them changes it, any
/// number of threads may call EvaluateCorrelation and the functions that begin with Get.
class ZEL_API IZelPureComp : public IUnknown {
 public:
  /// Reports whether Complete found that the stored critical constants contradict each other and
  /// come from several sources.
  /// \param flag  receives 1 when they do, else 0; may be null
  /// \param text  buffer of 260 characters that says why; may be null
  /// \return kStatusOk; kStatusFailed where both are null
  virtual ZelStatus GetConsistencyWarning(std::uint8_t* flag, char* text) = 0;

  /// \name Identity
  ///@{

  /// Copies the identity.
  /// \param number       receives the component number; may be null
  /// \param casNumber    receives the CAS number as one integer; may be null
  /// \param refCode      receives the reference code; may be null
  /// \param libraryIds   12 buffers of 9 characters for the character IDs; may be null
  /// \param name         buffer of 41 characters; may be null
  /// \param formula      buffer of 21 characters; may be null
  /// \param keepFormula  receives 1 when the formula must be kept as written, else 0; may be null
  /// \return kStatusOk; kStatusFailed where all are null
  virtual ZelStatus GetIdentity(std::int32_t* number, std::int32_t* casNumber,
                                std::int32_t* refCode, char (*libraryIds)[9], char* name,
                                char* formula, std::uint8_t* keepFormula) = 0;
  /// Sets the identity. Texts that are too long are cut.
  /// \param number       component number
  /// \param casNumber    CAS number as one integer
  /// \param refCode      reference code
  /// \param libraryIds   12 character IDs; null is a failure that changes nothing
  /// \param name         name; null is the empty text
  /// \param formula      formula; null is the empty text
  /// \param keepFormula  not 0 when the formula must be kept as written
  /// \return kStatusOk; kStatusFailed for null IDs
  virtual ZelStatus SetIdentity(std::int32_t number, std::int32_t casNumber, std::int32_t refCode,
                                char const (*libraryIds)[9], char const* name, char const* formula,
                                std::uint8_t keepFormula) = 0;

  ///@}
  /// \name Group structures
  /// At most 10 groups, each with its number and how often it occurs.
  ///@{

  /// Copies the groups under a model. A model without a structure of its own uses the legacy one,
  /// converted (lyngby: as is), except joback.
  /// \param model   one of zelStructureModels
  /// \param count   receives the number of groups; may be null
  /// \param ids     receives 10 group numbers; may be null
  /// \param counts  receives 10 numbers of occurrences; may be null
  /// \return kStatusFailed when there is no structure, where all outputs are null, and, with a
  ///         `count` of 0, when a legacy group does not convert
  virtual ZelStatus GetStructure(std::uint32_t model, std::int32_t* count, std::int32_t* ids,
                                 std::int32_t* counts) = 0;
  /// Copies the groups under a model as stored.
  /// \param model   one of zelStructureModels
  /// \param count   receives the number of groups; may be null
  /// \param ids     receives 10 group numbers; may be null
  /// \param counts  receives 10 numbers of occurrences; may be null
  /// \return kStatusFailed when there is no structure, and where all outputs are null
  virtual ZelStatus GetRawStructure(std::uint32_t model, std::int32_t* count, std::int32_t* ids,
                                    std::int32_t* counts) = 0;
  /// Copies the legacy structure.
  /// \param count   receives the number of groups; may be null
  /// \param ids     receives 10 group numbers; may be null
  /// \param counts  receives 10 numbers of occurrences; may be null
  /// \return kStatusFailed when there is no structure, and where all outputs are null
  virtual ZelStatus GetLegacyStructure(std::int32_t* count, std::int32_t* ids,
                                       std::int32_t* counts) = 0;
  /// Sets the groups under a model.
  /// \param model   one of zelStructureModels
  /// \param count   number of groups, of which at most 10 are kept; 0 removes the structure
  /// \param ids     group numbers; null is a failure unless `count` is 0
  /// \param counts  numbers of occurrences; null is a failure unless `count` is 0
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus SetStructure(std::uint32_t model, std::int32_t count, std::int32_t const* ids,
                                 std::int32_t const* counts) = 0;
  /// Sets the legacy structure.
  /// \param count   number of groups, of which at most 10 are kept; 0 removes the structure
  /// \param ids     group numbers; null is a failure unless `count` is 0
  /// \param counts  numbers of occurrences; null is a failure unless `count` is 0
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus SetLegacyStructure(std::int32_t count, std::int32_t const* ids,
                                       std::int32_t const* counts) = 0;

  ///@}
  /// \name Constants
  ///@{

  /// Copies the constants as read or set.
  /// \param values  receives 100 values in internal units; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetAllProperties(double* values) = 0;
  /// Copies a constant as read or set.
  /// \param index  one of zelProperties, up to 99
  /// \param value  receives the value in its internal unit; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetProperty(std::uint32_t index, double* value) = 0;
  /// Copies the constants after Complete: with what was missing and could be derived, and those
  /// from 50 on. The parachor and the copies of the boiling point are computed in any case, also
  /// from undefined constants; GetConstantState in Verify.h says which values are based on data.
  /// \param values  receives 100 values in internal units; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetAllCompleted(double* values) = 0;
  /// Copies a constant after Complete, as above.
  /// \param index  one of zelProperties, up to 99
  /// \param value  receives the value in its internal unit; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetCompleted(std::uint32_t index, double* value) = 0;
  /// Sets the constants.
  /// \param values  100 values in internal units; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus SetAllProperties(double const* values) = 0;
  /// Sets a constant.
  /// \param index  one of zelProperties, up to 99
  /// \param value  the value in its internal unit
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus SetProperty(std::uint32_t index, double value) = 0;
  /// Copies the reference codes of constants 0 to 49.
  /// \param codes  receives 50 codes, up to 32000; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetAllPropertyRefCodes(std::uint32_t* codes) = 0;
  /// Copies the reference code of a constant.
  /// \param index  one of zelProperties, up to 49
  /// \param code   receives the code, up to 32000; 0 for an index out of range; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetPropertyRefCode(std::uint32_t index, std::uint32_t* code) = 0;
  /// Sets the reference codes of constants 0 to 49.
  /// \param codes  50 codes; one above 32000 is stored as 0; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus SetAllPropertyRefCodes(std::uint32_t const* codes) = 0;
  /// Sets the reference code of a constant.
  /// \param index  one of zelProperties, up to 49
  /// \param code   the code; one above 32000 is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus SetPropertyRefCode(std::uint32_t index, std::uint32_t code) = 0;

  ///@}
  /// \name Correlations
  ///@{

  /// Copies the record of a correlation, and only then checks it: an equation above 100, a property
  /// unit above 50999, another temperature unit or a count outside 1 to 15 is a failure. So is a
  /// record that was never set or was reset.
  /// \param index             one of zelCorrelations, up to 17
  /// \param equation          receives the number of the equation (docs/equations.md); may be null
  /// \param tempUnit          receives the unit of temperatures: 10 K, 11 C, 12 R, 13 F; may be
  ///                          null
  /// \param propUnit          receives the unit code of the value (docs/unit-codes.md), 0 for none;
  ///                          may be null
  /// \param factor            receives what turns the form's value into internal units; may be null
  /// \param logBasis          receives 1 natural, 2 decimal; may be null
  /// \param moleWtBasis       receives 0 none, 1 molar, 2 weight; may be null
  /// \param coefficientCount  receives the number of coefficients; may be null
  /// \param tMin,tMax         receive the range in the unit of temperatures; may be null
  /// \param coefficients      array of 15, receives as many as there are; may be null
  /// \return kStatusOk; kStatusNothingNew (1) for a sound record that is not set; kStatusFailed for
  ///         an unsound one, and where all outputs are null
  virtual ZelStatus GetCorrelation(std::uint32_t index, std::int32_t* equation,
                                   std::int32_t* tempUnit, std::int32_t* propUnit, double* factor,
                                   std::int32_t* logBasis, std::int32_t* moleWtBasis,
                                   std::int32_t* coefficientCount, double* tMin, double* tMax,
                                   double* coefficients) = 0;
  /// Sets the record of a correlation without checking it.
  /// \param index             one of zelCorrelations, up to 17
  /// \param equation          number of the equation (docs/equations.md)
  /// \param tempUnit          unit of temperatures: 10 K, 11 C, 12 R, 13 F
  /// \param propUnit          unit code of the value (docs/unit-codes.md), 0 for none
  /// \param logBasis          1 natural, 2 decimal
  /// \param moleWtBasis       1 molar, 2 weight; 0 is stored for a correlation that has no basis,
  ///                          and 1 in place of 0 for any other
  /// \param coefficientCount  number of coefficients, up to 15
  /// \param tMin,tMax         range in the unit of temperatures
  /// \param coefficients      as many as the count; null is a failure unless the count is 0
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus SetCorrelation(std::uint32_t index, std::int32_t equation,
                                   std::int32_t tempUnit, std::int32_t propUnit,
                                   std::int32_t logBasis, std::int32_t moleWtBasis,
                                   std::int32_t coefficientCount, double tMin, double tMax,
                                   double const* coefficients) = 0;
  /// Removes the record of a correlation.
  /// \param index  one of zelCorrelations, up to 17
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus ResetCorrelation(std::uint32_t index) = 0;
  /// Copies the reference code of a correlation.
  /// \param index  one of zelCorrelations, up to 16: the code of the last correlation is on file
  ///               but cannot be read here
  /// \param code   receives the code, up to 32000; 0 for an index out of range; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetCorrelationRefCode(std::uint32_t index, std::uint32_t* code) = 0;
  /// Sets the reference code of a correlation.
  /// \param index  one of zelCorrelations, up to 16
  /// \param code   the code; one above 32000 is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus SetCorrelationRefCode(std::uint32_t index, std::uint32_t code) = 0;
  /// Evaluates a correlation and a derivative. A derivative is infinite where the form ends
  /// steeply, as a density of equation 16 does at the critical point.
  /// \param index        one of zelCorrelations, up to 17
  /// \param temperature  in the record's unit of temperatures
  /// \param order        1, 2, 3 for that derivative with respect to the temperature, 11 for the
  ///                     sensitivities to the coefficients
  /// \param value        in and out: receives the value in the unit of zelCorrelations; unchanged
  ///                     if the form has no value there; may be null
  /// \param derivative   in and out: receives the derivative, per the record's unit of temperatures
  ///                     to the power of the order; unchanged if the form has no value there; may
  ///                     be null
  /// \param weights      array of 15 for the sensitivities of order 11; else null; may be null
  /// \param status       receives 0 inside the range, 1 above, -1 below; may be null
  /// \return kStatusOk inside the range; kStatusNothingNew (1) when extrapolated; kStatusFailed for
  ///         a correlation that is not set, for correlationExpansion, and where all outputs are
  ///         null
  virtual ZelStatus EvaluateCorrelation(std::uint32_t index, double temperature, std::int32_t order,
                                        double* value, double* derivative, double* weights,
                                        std::int32_t* status) = 0;

  ///@}
  /// \name SMILES and phases
  ///@{

  /// Copies the SMILES text.
  /// \param text  buffer of 101 characters; null is a failure
  /// \return kStatusOk; kStatusNothingNew (1) when the text is empty
  virtual ZelStatus GetSmiles(char* text) = 0;
  /// Sets the SMILES text.
  /// \param text  at most 100 characters are kept; null is the empty text
  /// \return kStatusOk
  virtual ZelStatus SetSmiles(char const* text) = 0;
  /// Reports the phases of the component.
  /// \param phase  receives the sum of 1 vapor, 2 liquid, 4 solid; null is a failure
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetPhase(std::int32_t* phase) = 0;
  /// Sets the phases of the component.
  /// \param phase  the sum of 1 vapor, 2 liquid, 4 solid
  /// \return kStatusOk
  virtual ZelStatus SetPhase(std::int32_t phase) = 0;

  ///@}
  /// \name Sources
  /// Where each datum came from: a library's "name:bank", or for a constant the method that derived
  /// it. A flag is 1 when the source was a protected library, else 0. An operation whose outputs
  /// are both null fails.
  ///@{

  /// Copies the sources of all constants.
  /// \param texts  100 buffers of 260 characters, null ones are skipped; may be null
  /// \param flags  receives 100 flags; may be null
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetAllPropertySources(char** texts, std::uint8_t* flags) = 0;
  /// Copies the sources of all constants to one buffer.
  /// \param texts  100 rows of 260 characters; may be null
  /// \param flags  receives 100 flags; may be null
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetAllPropertySourcesFlat(char* texts, std::uint8_t* flags) = 0;
  /// Copies the source of a constant.
  /// \param index  one of zelProperties, up to 99
  /// \param text   buffer of 260 characters; may be null
  /// \param flag   receives the flag; may be null
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetPropertySource(std::uint32_t index, char* text, std::uint8_t* flag) = 0;
  /// Copies the sources of all correlations.
  /// \param texts  20 buffers of 260 characters, null ones are skipped; may be null
  /// \param flags  receives 20 flags; may be null
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetAllCorrelationSources(char** texts, std::uint8_t* flags) = 0;
  /// Copies the sources of all correlations to one buffer.
  /// \param texts  20 rows of 260 characters; may be null
  /// \param flags  receives 20 flags; may be null
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetAllCorrelationSourcesFlat(char* texts, std::uint8_t* flags) = 0;
  /// Copies the source of a correlation.
  /// \param index  one of zelCorrelations, up to 19
  /// \param text   buffer of 260 characters; may be null
  /// \param flag   receives the flag; may be null
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetCorrelationSource(std::uint32_t index, char* text, std::uint8_t* flag) = 0;
  /// Copies the sources of the identity.
  /// \param texts  5 buffers of 260 characters, null ones are skipped; may be null
  /// \param flags  receives 5 flags; may be null
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetAllIdentitySources(char** texts, std::uint8_t* flags) = 0;
  /// Copies the sources of the identity to one buffer.
  /// \param texts  5 rows of 260 characters; may be null
  /// \param flags  receives 5 flags; may be null
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetAllIdentitySourcesFlat(char* texts, std::uint8_t* flags) = 0;
  /// Copies a source of the identity.
  /// \param index  one of zelIdentitySources
  /// \param text   buffer of 260 characters; may be null
  /// \param flag   receives the flag; may be null
  /// \return kStatusOk or kStatusFailed
  virtual ZelStatus GetIdentitySource(std::uint32_t index, char* text, std::uint8_t* flag) = 0;

  ///@}

 protected:
  ~IZelPureComp() = default;
};

}  // namespace zel

#endif  // ZELACCESS_PURECOMP_H
