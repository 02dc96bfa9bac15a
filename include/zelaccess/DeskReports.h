/// \file
/// Tables, comparisons and pages made from libraries, as values.
///
/// `libraries` is a preference list as in Desk.h: each LIBRARY or LIBRARY:BANK, the preferred one
/// first. Errors are those of Desk.h. Functions may be called by different threads at the same
/// time.
#ifndef ZELACCESS_DESKREPORTS_H
#define ZELACCESS_DESKREPORTS_H

#include <cstdint>
#include <string>
#include <vector>

#include "zelaccess/DeskErrors.h"
#include "zelaccess/DeskTable.h"

namespace zel::desk {

/// How libraries are read and numbers are returned.
struct ReportSettings {
  std::string names;            ///< A library for IDs and CAS numbers that the others do not know.
  std::string units;            ///< Units of numbers: words such as "bar,degC", or a unit system
                                ///< (Units.h). Empty: internal units.
  bool acceptIdentity = false;  ///< Merge sources that mean different substances.
  double waitSeconds = 0.0;     ///< How long to wait for a library that another program uses.
  std::vector<std::string> path;  ///< Folders in which libraries are found that are named without
                                  ///< one; see LibrariesOptions.
};

/// Returns constants and correlations of components side by side, merged and completed. Throws
/// MissingComponent, and Error for a field that does not exist.
/// \param libraries    the preference list
/// \param components   by number, ID, CAS number or name; all components if empty
/// \param fields       keywords of constants and names of correlations, which are shown as their
///                     equation and range
/// \param withSources  adds a column with the source of each datum
/// \param settings     how they are read
/// \return a row for each component: component, name, a column for each field, then for each
///         correlation "NAME equation", "NAME range from", "NAME range to", "NAME range unit"
ZEL_DESK_API Table DataOf(std::vector<std::string> const& libraries,
                          std::vector<std::string> const& components,
                          std::vector<std::string> const& fields, bool withSources = false,
                          ReportSettings const& settings = {});

/// Returns the pairs of a model; for each pair the first library that has it wins. Throws Error for
/// a type whose items are not pairs.
/// \param libraries   library files, without banks
/// \param type        a bank type, "NRTL" for example
/// \param fields      fields to show, "bij" for example
/// \param components  with one, all of its pairs; with more, the pairs of two of them; all pairs if
///                    empty
/// \param settings    how they are read
/// \return a row for each pair
ZEL_DESK_API Table PairsOf(std::vector<std::string> const& libraries, std::string const& type,
                           std::vector<std::string> const& fields,
                           std::vector<std::string> const& components = {},
                           ReportSettings const& settings = {});

/// Says which pairs of components a model has. Throws MissingComponent, and Error for a type whose
/// items are not pairs.
/// \param libraries   the preference list
/// \param type        a bank type, "NRTL" for example
/// \param components  by number, ID, CAS number or name; those of the model's pairs if empty
/// \param settings    how they are read
/// \return a row for each pair of two of the components: one, other, from, which is empty if the
///         pair is missing
ZEL_DESK_API Table CoverageOf(std::vector<std::string> const& libraries, std::string const& type,
                              std::vector<std::string> const& components = {},
                              ReportSettings const& settings = {});

/// Says where a datum of a component comes from. Throws MissingComponent, ConflictingIdentity, and
/// UnknownWord for a datum that does not exist.
/// \param libraries  the preference list
/// \param component  by number, ID, CAS number or name
/// \param datum      keyword of a constant or name of a correlation
/// \param settings   how they are read
/// \return a row for each bank of components of the list: source; for a constant value, for a
///         correlation equation, range from, range to and range unit; code; result, "won" for the
///         bank whose datum is used; citation, doi
ZEL_DESK_API Table WhyOf(std::vector<std::string> const& libraries, std::string const& component,
                         std::string const& datum, ReportSettings const& settings = {});

/// Checks the structure of libraries, then the data of the sound ones, alone and with each other.
/// Throws UnknownWord for a check that does not exist.
/// \param libraries      library files, without banks
/// \param silent         IDs of checks that are left out; damage never is
/// \param structureOnly  the data are not checked
/// \param settings       how they are read; units are internal
/// \return a row for each finding: severity (note, warning, error or damage), id, what, library,
///         place, bank, item, datum, value, unit, expected from, expected to, temperature [K],
///         strength (0 to 1: how likely the datum is wrong), fingerprint (the same for the same
///         finding), evidence (the comparisons that disagree), text; in order of severity, then of
///         strength; weaker ones than 0.5 are left out
ZEL_DESK_API Table CheckOf(std::vector<std::string> const& libraries,
                           std::vector<std::string> const& silent = {}, bool structureOnly = false,
                           ReportSettings const& settings = {});

/// What FindingsOf checks and reports.
struct CheckSettings {
  std::vector<std::string> silent;  ///< IDs of checks that are left out; damage never is.
  bool structureOnly = false;       ///< The data are not checked.
  double minStrength = 0.5;         ///< Findings of a lower strength, 0 to 1, are left out.
};

/// Does what CheckOf does, with a choice of the least strength.
/// \param libraries  library files, without banks
/// \param check      what is checked and reported
/// \param settings   how they are read; units are internal
/// \return as CheckOf
ZEL_DESK_API Table FindingsOf(std::vector<std::string> const& libraries, CheckSettings const& check,
                              ReportSettings const& settings = {});

/// What differs between two sources.
struct ComparedSources {
  std::int64_t components = 0;       ///< Components that were compared.
  Table constants{"constants", {}};  ///< component, constant, first, second, unit, deviation [%]
  Table correlations{"correlations", {}};  ///< component, correlation, first, second, unit,
                                           ///< greatest deviation [%], at T, mean [%], from T, to T
  Table notCompared{"not compared", {}};   ///< component, correlation, why, and the limits of both
                                           ///< records: first from, first to, second from,
                                           ///< second to [K]
  Table oneSided{"one source only", {}};   ///< component, datum, source
};

/// Compares the data of components by value, whatever banks, equations and units the sources use.
/// Throws MissingComponent for a named component that a source does not have, and
/// ConflictingIdentity.
/// \param first       LIBRARY or LIBRARY:BANK
/// \param second      LIBRARY or LIBRARY:BANK
/// \param components  by number, ID, CAS number or name; all that both have if empty
/// \param tolerance   relative to the first source, 0.01 for one percent
/// \param settings    how they are read
/// \return a row for each difference beyond the tolerance
ZEL_DESK_API ComparedSources CompareSources(std::string const& first, std::string const& second,
                                            std::vector<std::string> const& components = {},
                                            double tolerance = 0.0,
                                            ReportSettings const& settings = {});

/// Writes a bank as text that Change::ImportTable reads back to the same values. Throws Error for a
/// bank that does not exist, UnknownWord for a form that is not known.
/// \param library   a library file
/// \param bank      a bank
/// \param form      csv, tsv or json
/// \param kind      of components: constants, correlations or groups; empty: constants
/// \param settings  how it is read
/// \return the text
ZEL_DESK_API std::string TableTextOf(std::string const& library, std::string const& bank,
                                     std::string const& form, std::string const& kind = "",
                                     ReportSettings const& settings = {});

/// Saves what a search over libraries finds as one new library. Throws Error if it exists, and
/// ConflictingIdentity.
/// \param libraries   the preference list
/// \param path        the library to make
/// \param components  by number, ID, CAS number or name; all components if empty
/// \param settings    how they are read
/// \return what came from where: source, bank, items, constants, correlations
ZEL_DESK_API Table FlattenTo(std::vector<std::string> const& libraries, std::string const& path,
                             std::vector<std::string> const& components = {},
                             ReportSettings const& settings = {});

/// Makes a page of HTML, one file that needs no network, with the sheet of one or more components.
/// Throws MissingComponent and ConflictingIdentity.
/// \param libraries   the preference list
/// \param components  by number, ID, CAS number or name, side by side
/// \param each        a column for each source instead of the merged data
/// \param settings    how they are read
/// \return the page
ZEL_DESK_API std::string SheetOf(std::vector<std::string> const& libraries,
                                 std::vector<std::string> const& components, bool each = false,
                                 ReportSettings const& settings = {});

/// Makes a page of HTML with all components of a preference list, their pairs and what the checks
/// of data find.
/// \param libraries  the preference list
/// \param settings   how they are read
/// \return the page
ZEL_DESK_API std::string ReportOf(std::vector<std::string> const& libraries,
                                  ReportSettings const& settings = {});

}  // namespace zel::desk

#endif  // ZELACCESS_DESKREPORTS_H
