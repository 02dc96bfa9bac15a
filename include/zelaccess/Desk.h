/// \file
/// The desk: component libraries for hosts in modern C++, with values, optionals and exceptions.
///
///     zel::desk::Libraries libs({"own.lb1", "perry.lb1", "crc.lb1"});
///     auto ethanol = libs.Component("ETHANOL");
///     if (auto nbp = ethanol.Constant(zel::Constant::NBP)) {
///       use(nbp->value, nbp->unit, nbp->source);
///     }
///     auto p = ethanol.Evaluate(zel::Correlation::VaporPressure, {300.0, 350.0}, {"bar"});
///     auto nrtl = libs.Pair("NRTL", "ETHANOL", "WATER");
///     use(nrtl.Value("bij"));
///
/// A component and an item keep nothing open and may outlive the libraries that they came from.
/// All functions throw an exception derived from Error where they cannot do what they are asked,
/// std::bad_alloc when memory runs out, and nothing else.
///
/// **Threads.** Different objects may be used by different threads at the same time. Calls on one
/// Libraries must be made one at a time. Any number of threads may use one component, or copies of
/// it, and one item.
///
/// **Link** with the library ZelDesk. It passes classes of the standard library, so it must be
/// built with the compiler and the settings of the host.
#ifndef ZELACCESS_DESK_H
#define ZELACCESS_DESK_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zelaccess/DeskErrors.h"
#include "zelaccess/PureComp.h"
#include "zelaccess/Verify.h"

namespace zel {

// clang-format off

/// The constants that have a keyword. The comment gives the internal unit, "-" for a pure number.
enum class Constant : std::uint32_t {
  MW = propertyMW,                      ///< kg/kg-mol: molecular weight
  TC = propertyTC,                      ///< K: critical temperature
  PC = propertyPC,                      ///< kPa: critical pressure
  VC = propertyVC,                      ///< m3/kg-mol: critical volume
  ZC = propertyZC,                      ///< -: critical compressibility factor
  ACENTRIC = propertyACENTRIC,          ///< -: acentric factor
  CHAO = propertyCHAO,                  ///< -: value stored under this keyword
  NMP = propertyNMP,                    ///< K: normal melting point
  NBP = propertyNBP,                    ///< K: normal boiling point
  SG60F = propertySG60F,                ///< -: specific gravity at 60 F
  MVOL25C = propertyMVOL25C,            ///< m3/kg-mol: liquid molar volume at 25 C
  SOLUPARA = propertySOLUPARA,          ///< (cal/cm3)^0.5: solubility parameter
  PARACHOR = propertyPARACHOR,          ///< -: parachor
  RACKETT = propertyRACKETT,            ///< -: Rackett parameter
  DIPOLE = propertyDIPOLE,              ///< debye: dipole moment
  RADIUS = propertyRADIUS,              ///< m: molecular radius
  DIELECTRIC = propertyDIELECTRIC,      ///< -: dielectric constant
  TDIELECTRIC = propertyTDIELECTRIC,    ///< K: temperature of the dielectric constant
  VDWA = propertyVDWA,                  ///< -: van der Waals area
  VDWV = propertyVDWV,                  ///< -: van der Waals volume
  GFORMATION = propertyGFORMATION,      ///< kJ/kg-mol: Gibbs energy of formation
  HFORMATION = propertyHFORMATION,      ///< kJ/kg-mol: heat of formation
  FLASHPOINT = propertyFLASHPOINT,      ///< K: flash point
  LOFLAMM = propertyLOFLAMM,            ///< fraction: lower flammability limit
  HIFLAMM = propertyHIFLAMM,            ///< fraction: upper flammability limit
  AUTOIGNITION = propertyAUTOIGNITION,  ///< K: autoignition temperature
  GHV = propertyGHV,                    ///< kJ/kg-mol: gross heating value
  LHV = propertyLHV,                    ///< kJ/kg-mol: lower heating value
  CNUM = propertyCNUM,                  ///< -: carbon number
  ZNUM = propertyZNUM,                  ///< -: value stored under this keyword
  TTP = propertyTTP,                    ///< K: triple point temperature
  PTP = propertyPTP,                    ///< kPa: triple point pressure
  SVTB = propertySVTB,                  ///< kJ/kg-mol-K: vapor entropy at the normal boiling point
  SLTB = propertySLTB,                  ///< kJ/kg-mol-K: liquid entropy at the normal boiling point
  SLTM = propertySLTM,                  ///< kJ/kg-mol-K: liquid entropy at the melting point
  HVTB = propertyHVTB,                  ///< kJ/kg-mol: vapor enthalpy at the normal boiling point
  HLTB = propertyHLTB,                  ///< kJ/kg-mol: liquid enthalpy at the normal boiling point
  HLTM = propertyHLTM,                  ///< kJ/kg-mol: liquid enthalpy at the melting point
  HCOMBUST = propertyHCOMBUST,          ///< kJ/kg-mol: heat of combustion
  HFUSIONNMP = propertyHFUSIONNMP,      ///< kJ/kg-mol: heat of fusion at the melting point
  HVAPNBP = propertyHVAPNBP,            ///< kJ/kg-mol: heat of vaporization at the normal boiling point
};

/// The correlations. The comment gives the internal unit of a value, "-" for a pure number.
enum class Correlation : std::uint32_t {
  VaporPressure = correlationVaporPressure,                ///< kPa: vapor pressure
  IdealEnthalpy = correlationIdealEnthalpy,                ///< kJ/kg-mol: enthalpy of the ideal gas
  LiquidEnthalpy = correlationLiquidEnthalpy,              ///< kJ/kg-mol: enthalpy of the saturated liquid
  LatentHeat = correlationLatentHeat,                      ///< kJ/kg-mol: heat of vaporization
  LiquidDensity = correlationLiquidDensity,                ///< kg-mol/m3: density of the saturated liquid
  LiquidThermal = correlationLiquidThermal,                ///< W/m-K: thermal conductivity of the liquid
  VaporThermal = correlationVaporThermal,                  ///< W/m-K: thermal conductivity of the vapor
  LiquidViscosity = correlationLiquidViscosity,            ///< cP: viscosity of the liquid
  VaporViscosity = correlationVaporViscosity,              ///< cP: viscosity of the vapor
  SurfaceTension = correlationSurfaceTension,              ///< N/m: surface tension
  Expansion = correlationExpansion,                        ///< -: expansion, kept and not evaluated
  SolidEnthalpy = correlationSolidEnthalpy,                ///< kJ/kg-mol: enthalpy of the solid
  SolidDensity = correlationSolidDensity,                  ///< kg-mol/m3: density of the solid
  IdealGasCp = correlationIdealGasCp,                      ///< kJ/kg-mol-K: heat capacity of the ideal gas
  LiquidCp = correlationLiquidCp,                          ///< kJ/kg-mol-K: heat capacity of the liquid
  SolidCp = correlationSolidCp,                            ///< kJ/kg-mol-K: heat capacity of the solid
  Dielectric = correlationDielectric,                      ///< -: dielectric constant
  CharacteristicVolume = correlationCharacteristicVolume,  ///< m3/kg-mol: characteristic volume
};
// clang-format on

namespace desk {

/// The identity of a component, as far as its sources state it.
struct Identity {
  std::int32_t number = 0;       ///< Component number; 0 for none.
  std::int32_t refCode = 0;      ///< Reference code of the identity.
  std::string cas;               ///< CAS number, "64-17-5" for example; empty for none.
  std::vector<std::string> ids;  ///< Character IDs, the first one first.
  std::string name;              ///< Name.
  std::string formula;           ///< Formula.
  bool keepsFormula = false;     ///< The formula is kept as it was given, not normalised.

  /// Returns the first ID.
  /// \return the ID; empty if the component has no ID
  std::string FirstId() const { return ids.empty() ? "" : ids.front(); }
};

/// A constant of a component.
struct ConstantValue {
  double value = 0.0;                        ///< In `unit`.
  std::string unit;                          ///< Empty for a pure number.
  std::string source;                        ///< "perry.lb1:PERRY", or the method that derived it.
  std::uint32_t code = 0;                    ///< Reference code; 0 for none.
  zelConstantStates state = constantStored;  ///< constantStored or constantFilledIn.
  std::string citation;                      ///< What is cited for the code; empty for none.
  std::string doi;                           ///< Its DOI, "10.1021/..."; empty for none.
};

/// A correlation as it is stored.
struct CorrelationData {
  std::int32_t equation = 0;         ///< Number of the equation (docs/equations.md).
  std::vector<double> coefficients;  ///< In the units of the record.
  std::optional<double> tMin;        ///< Lower end of the range in K.
  std::optional<double> tMax;        ///< Upper end of the range in K.
  std::string unit;                  ///< Unit of the record's values; empty for a pure number.
  std::string source;                ///< "perry.lb1:PERRY" for example.
  std::uint32_t code = 0;            ///< Reference code; 0 for none.
  std::string citation;              ///< What is cited for the code; empty for none.
  std::string doi;                   ///< Its DOI; empty for none.
};

/// How a correlation is evaluated.
struct EvaluationOptions {
  std::string unit;                   ///< Unit word of the values (Units.h); empty: internal unit.
  std::string temperatureUnit = "K";  ///< Unit word of the temperatures.
  std::int32_t order = 1;             ///< 1, 2 or 3: the derivative that is evaluated.
};

/// The values of a correlation; the vectors have an element for each temperature.
struct CorrelationValues {
  std::vector<double> values;          ///< In `unit`; NaN where the correlation has no value.
  std::vector<double> derivatives;     ///< Of the order asked for, per `temperatureUnit` to the
                                       ///< power of the order; NaN where it has none.
  std::vector<std::int32_t> statuses;  ///< 0 inside the range, 1 above, -1 below.
  std::string unit;                    ///< Unit of the values; empty for a pure number.
  std::string temperatureUnit;         ///< Unit of the temperatures.
};

struct ComponentData;
class Evaluator;
class LibraryFile;
struct ItemData;
struct LibrariesData;

/// A pure component, merged from the libraries of a preference list. Copies are cheap: they share
/// the data, which do not change.
class ZEL_DESK_API Component {
 public:
  /// Returns the identity.
  /// \return its parts, merged from all sources
  desk::Identity Identity() const;
  /// Returns a constant. Throws UnknownWord if it cannot be converted to the unit.
  /// \param constant  the constant
  /// \param unit      a unit word, "bar" for example; empty for the internal unit
  /// \return nothing if it is not stored and cannot be derived from stored data
  std::optional<ConstantValue> Constant(zel::Constant constant, std::string const& unit = "") const;
  /// Returns the record of a correlation.
  /// \param correlation  the correlation
  /// \return nothing if the component does not have it
  std::optional<CorrelationData> Correlation(zel::Correlation correlation) const;
  /// Evaluates a correlation, outside of its range by extrapolation, but not below absolute zero.
  /// Evaluator (DeskEvaluator.h) does the same with arrays of the caller.
  /// Throws MissingDatum if the component does not have it, UnknownWord for a unit that does not
  /// suit it and for an order that is not 1, 2 or 3.
  /// \param correlation   the correlation
  /// \param temperatures  in `options.temperatureUnit`
  /// \param options       units, and the order of the derivative
  /// \return the values, with an element for each temperature
  CorrelationValues Evaluate(zel::Correlation correlation, std::vector<double> const& temperatures,
                             EvaluationOptions const& options = {}) const;

 private:
  friend class Evaluator;
  friend class Libraries;
  explicit Component(std::shared_ptr<ComponentData const> data) : data_(std::move(data)) {}
  std::shared_ptr<ComponentData const> data_;
};

/// A field of an item.
struct ItemField {
  std::string name;            ///< Name of the field, "bij" for example.
  std::string label;           ///< Its meaning.
  std::string unit;            ///< Unit of its values; "-" for what is noted to be a pure number,
                               ///< empty if not known.
  std::vector<double> values;  ///< The values of a number or a whole number; NaN if undefined.
  std::string text;            ///< The text or the word of a field that is not a number.
  std::string meaning;         ///< How the data use a parameter; empty if that is not known.
};

/// An item of a bank, such as the interaction parameters of a pair.
class ZEL_DESK_API Item {
 public:
  /// Returns the bank that it was read from.
  /// \return "perry.lb1:NRTL:PERRY" for example
  std::string const& Source() const;
  /// Returns what is cited for its reference code.
  /// \return empty if nothing is, or if it has no code
  std::string const& Citation() const;
  /// Returns the DOI of the citation.
  /// \return "10.1021/..." for example; empty for none
  std::string const& Doi() const;
  /// Returns the equation in which the data use their parameters.
  /// \return empty if it is not known
  std::string const& Equation() const;
  /// Returns its fields in the order of the bank type.
  /// \return the fields; those of a pair are for the components in the order in which they were
  ///         asked for, however the pair is stored
  std::vector<ItemField> const& Fields() const;
  /// Returns a field. Throws UnknownWord if there is no such field.
  /// \param name  its name, in any case of letters
  /// \return the field
  ItemField const& Field(std::string const& name) const;
  /// Returns the first value of a field. Throws UnknownWord if there is no such field.
  /// \param field  its name, in any case of letters
  /// \return nothing if it is undefined or not a number
  std::optional<double> Value(std::string const& field) const;

 private:
  friend class Libraries;
  friend class LibraryFile;
  explicit Item(std::shared_ptr<ItemData const> data) : data_(std::move(data)) {}
  std::shared_ptr<ItemData const> data_;
};

/// How libraries are opened.
struct LibrariesOptions {
  std::string names;            ///< A library for IDs and CAS numbers that the others do not know.
  bool acceptIdentity = false;  ///< Merge sources that mean different substances.
  double waitSeconds = 0.0;     ///< How long to wait for a library that another program uses.
  /// Folders in which to look for a library that is named without a folder and is not in the
  /// current one: "perry" and "perry.lb1" mean the first perry.lb1 found.
  std::vector<std::string> path;
};

/// Returns the folders in which zel looks for libraries, for LibrariesOptions::path: those of the
/// environment variable ZEL_PATH, else those of the user's configuration file. Throws Error if that
/// file cannot be read or is not valid.
/// \return the folders in order; empty if none are set
ZEL_DESK_API std::vector<std::string> SearchPath();

/// Open libraries in order of preference: for each datum the first one that has it wins.
class ZEL_DESK_API Libraries {
 public:
  /// Opens libraries for reading. A change that was interrupted is undone first. Throws OpenError,
  /// LibraryInUse or Error.
  /// \param libraries  each as LIBRARY or LIBRARY:BANK, the preferred one first
  /// \param options    how they are opened
  explicit Libraries(std::vector<std::string> const& libraries,
                     LibrariesOptions const& options = {});
  /// Takes over the libraries of another object, which must not be used any more.
  Libraries(Libraries&&) noexcept;
  /// Takes over the libraries of another object, which must not be used any more.
  /// \return this object
  Libraries& operator=(Libraries&&) noexcept;
  /// Closes the libraries.
  ~Libraries();

  /// Returns a component, merged from all libraries and completed. Throws MissingComponent, which
  /// names similar ones; ConflictingIdentity if the libraries mean different substances;
  /// DamagedLibrary.
  /// \param word  ID, CAS number, number or name
  /// \return the component
  desk::Component Component(std::string const& word) const;
  /// Returns the components of all libraries.
  /// \return each once, in the order of the libraries
  std::vector<Identity> Components() const;
  /// Returns an item of the first library that has it in a bank of the type. A component that names
  /// it is found in each library by the number that it has there. Throws UnknownWord for
  /// a type that does not exist, MissingItem, DamagedLibrary.
  /// \param type   a bank type, "NRTL" for example
  /// \param words  the components, numbers or text that name it
  /// \return the item
  desk::Item Item(std::string const& type, std::vector<std::string> const& words) const;
  /// Returns the item of a pair; see Item.
  /// \param type   a bank type, "NRTL" for example
  /// \param one    a component
  /// \param other  the other one
  /// \return the item, whose fields are for the components in this order
  desk::Item Pair(std::string const& type, std::string const& one, std::string const& other) const;

 private:
  std::unique_ptr<LibrariesData> data_;
};

}  // namespace desk
}  // namespace zel

#endif  // ZELACCESS_DESK_H
