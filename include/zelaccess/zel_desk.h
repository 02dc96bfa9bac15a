/// \file
/// The C interface, part 4: tables made from libraries, and changes that are made as a whole or not
/// at all. Include zel.h.
#ifndef ZELACCESS_ZEL_DESK_H
#define ZELACCESS_ZEL_DESK_H

#include "zelaccess/zel_base.h"
#include "zelaccess/zel_library.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A change of one library, on a copy that takes its place at the end.
typedef struct zel_change zel_change;

/// How libraries are read and numbers are returned. Set `size`; zero in all other members is the
/// default.
typedef struct zel_report_options {
  size_t size;              ///< sizeof(zel_report_options).
  char const* names;        ///< A library for IDs and CAS numbers that the others do not know.
  char const* units;        ///< "bar,degC" for example, or a unit system; null: internal units.
  int32_t accept_identity;  ///< 1: merge sources that mean different substances.
  double wait_seconds;      ///< How long to wait for a library that another program uses.
  char const* const* path;  ///< Folders in which libraries are looked up; see zel_search_options.
  size_t path_count;        ///< Number of folders.
} zel_report_options;

/// What zel_check looks at and reports. Set `size`; zero in all other members is the default.
typedef struct zel_check_options {
  size_t size;                ///< sizeof(zel_check_options).
  char const* const* silent;  ///< IDs of checks that are left out; may be null.
  size_t silent_count;        ///< Number of IDs.
  int32_t structure_only;     ///< 1: the data are not checked.
  int32_t all_strengths;      ///< 1: weak findings, too; 0: those of strength 0.5 and more.
} zel_check_options;

/// How a library is changed. Set `size`; zero in all other members is the default.
typedef struct zel_change_options {
  size_t size;           ///< sizeof(zel_change_options).
  char const* password;  ///< Of a protected library.
  char const* names;     ///< A library for IDs and CAS numbers that the changed one lacks.
  char const* units;     ///< Units of numbers without one, and of tables that are returned.
  char const* command;   ///< What the history says about the change.
  double wait_seconds;   ///< How long to wait for a library that another program uses.
  int32_t dry_run;       ///< 1: everything is done except putting the change in place.
} zel_change_options;

/// \name Tables made from libraries
/// `libraries` is a preference list, each LIBRARY or LIBRARY:BANK, the preferred one first. Options
/// may be null for the defaults. A list of 0 words may be null.
///@{

/// Says where a datum of a component comes from.
/// \param libraries  the preference list
/// \param count      number of libraries
/// \param component  ID, CAS number, number or name
/// \param datum      keyword of a constant or name of a correlation
/// \param options    how libraries are read; null for the defaults
/// \param table      receives a row for each bank of components: source; for a constant value, for a
///                   correlation equation, range from, range to and range unit; code; result ("won"
///                   for the bank whose datum is used); citation; doi. The caller ends it with
///                   zel_table_free; null on failure
/// \return ZEL_OK; ZEL_MISSING_COMPONENT, ZEL_CONFLICTING_IDENTITY, ZEL_UNKNOWN_WORD
ZEL_C_API zel_status zel_why(char const* const* libraries, size_t count, char const* component,
                             char const* datum, zel_report_options const* options,
                             zel_table** table);
/// Returns constants and correlations of components side by side.
/// \param libraries        the preference list
/// \param count            number of libraries
/// \param components       IDs, CAS numbers, numbers or names
/// \param component_count  number of components; 0 for all
/// \param fields           keywords of constants and names of correlations
/// \param field_count      number of fields
/// \param with_sources     1 adds a column with the source of each datum
/// \param options          how libraries are read; null for the defaults
/// \param table            receives a row for each component; the caller ends it with
///                         zel_table_free; null on failure
/// \return ZEL_OK; ZEL_MISSING_COMPONENT; ZEL_FAILED for a field that does not exist
ZEL_C_API zel_status zel_data(char const* const* libraries, size_t count,
                              char const* const* components, size_t component_count,
                              char const* const* fields, size_t field_count, int32_t with_sources,
                              zel_report_options const* options, zel_table** table);
/// Returns the pairs of a model; for each pair the first library that has it wins.
/// \param libraries        libraries, without banks
/// \param count            number of libraries
/// \param type             a bank type, "NRTL" for example
/// \param fields           fields to show, "bij" for example
/// \param field_count      number of fields
/// \param components       with one, all of its pairs; with more, the pairs of two of them
/// \param component_count  number of components; 0 for all pairs
/// \param options          how libraries are read; null for the defaults
/// \param table            receives a row for each pair; the caller ends it with zel_table_free; null
///                         on failure
/// \return ZEL_OK; ZEL_FAILED for a type whose items are not pairs
ZEL_C_API zel_status zel_pairs(char const* const* libraries, size_t count, char const* type,
                               char const* const* fields, size_t field_count,
                               char const* const* components, size_t component_count,
                               zel_report_options const* options, zel_table** table);
/// Says which pairs of components a model has.
/// \param libraries        the preference list
/// \param count            number of libraries
/// \param type             a bank type, "NRTL" for example
/// \param components       IDs, CAS numbers, numbers or names
/// \param component_count  number of components; 0 for those of the model's pairs
/// \param options          how libraries are read; null for the defaults
/// \param table            receives a row for each pair: one, other, from (empty if missing); the
///                         caller ends it with zel_table_free; null on failure
/// \return ZEL_OK; ZEL_MISSING_COMPONENT; ZEL_FAILED for a type whose items are not pairs
ZEL_C_API zel_status zel_coverage(char const* const* libraries, size_t count, char const* type,
                                  char const* const* components, size_t component_count,
                                  zel_report_options const* options, zel_table** table);
/// Checks the structure of libraries, then the data of the sound ones, alone and with each other.
/// \param libraries  libraries, without banks
/// \param count      number of libraries
/// \param check      what is checked and reported; null for the defaults
/// \param options    how libraries are read; null for the defaults
/// \param table      receives a row for each finding, with the columns severity (note, warning,
///                   error or damage), id, library, place, datum, value, unit, strength and text
///                   among others; the caller ends it with zel_table_free; null on failure
/// \return ZEL_OK, whatever was found; ZEL_UNKNOWN_WORD for a check that does not exist
ZEL_C_API zel_status zel_check(char const* const* libraries, size_t count,
                               zel_check_options const* check, zel_report_options const* options,
                               zel_table** table);
///@}

/// \name Changes
/// Without zel_change_commit, nothing has happened. Calls on one change are made one at a time. If
/// one fails, drop the change.
///@{

/// Locks a library and begins a change of it.
/// \param library  a library file
/// \param options  how it is changed; null for the defaults
/// \param change   receives the change, which the caller ends with zel_change_commit or
///                 zel_change_drop; null on failure
/// \return ZEL_OK; ZEL_NOT_FOUND, ZEL_IN_USE, ZEL_CANNOT_OPEN
ZEL_C_API zel_status zel_change_begin(char const* library, zel_change_options const* options,
                                      zel_change** change);
/// Begins a library that does not exist yet; the commit makes it.
/// \param library  where it will be
/// \param options  how it is changed; null for the defaults
/// \param change   receives the change, which the caller ends with zel_change_commit or
///                 zel_change_drop; null on failure
/// \return ZEL_OK; ZEL_FAILED if it exists
ZEL_C_API zel_status zel_change_create(char const* library, zel_change_options const* options,
                                       zel_change** change);
/// Sets data of an item.
/// \param change  the change
/// \param words   the item, after a bank if it is not a component, then DATUM=VALUE as often as
///                needed: "ETHANOL", "NBP=78.31C"
/// \param count   number of words
/// \param table   receives a row for each datum that changed: datum, old, new, unit, old code, new
///                code; the caller ends it with zel_table_free; null on failure; may be null
/// \return ZEL_OK; ZEL_UNKNOWN_WORD for a value that does not suit its datum; ZEL_FAILED for a datum
///         or an item that does not exist, with similar ones in the reason
ZEL_C_API zel_status zel_change_edit(zel_change* change, char const* const* words, size_t count,
                                     zel_table** table);
/// Imports a document of a library, a bank or a component.
/// \param change   the change
/// \param path     the document
/// \param bank     for a document of one component: its bank; else null or empty
/// \param replace  1 to replace components that exist; with a bank only
/// \param checks   one of zel_checks from ZEL_IMPORT_TOLD on
/// \param counts   receives what was stored; may be null
/// \param log      receives a table of the warnings: document, line, message; the caller ends it with
///                 zel_table_free; null on failure; may be null
/// \return ZEL_OK; ZEL_FAILED with the first error
ZEL_C_API zel_status zel_change_import_document(zel_change* change, char const* path,
                                                char const* bank, int32_t replace, int32_t checks,
                                                zel_import_counts* counts, zel_table** log);
/// Imports a table in a file (CSV, TSV, JSON).
/// \param change  the change
/// \param path    the file
/// \param bank    a bank, or TYPE:NAME for one that is made if it does not exist
/// \param table   receives the rows that changed something: line, item, result, what and others; the
///                caller ends it with zel_table_free; null on failure; may be null
/// \return ZEL_OK; ZEL_FAILED if a row is refused or a column means nothing
ZEL_C_API zel_status zel_change_import_table(zel_change* change, char const* path, char const* bank,
                                             zel_table** table);
/// Lists what this change has made implausible.
/// \param change  the change
/// \param table   receives a row for each finding, as zel_check lists them; the caller ends it with
///                zel_table_free; null on failure
/// \return ZEL_OK
ZEL_C_API zel_status zel_change_findings(zel_change* change, zel_table** table);
/// Puts the change in place of the library, or, with `dry_run`, drops it. Ends the change and nulls
/// the handle in any case.
/// \param change  the handle
/// \return ZEL_OK; ZEL_NULL_ARGUMENT for a null handle; any other status: the library is unchanged
ZEL_C_API zel_status zel_change_commit(zel_change** change);
/// Drops a change and nulls the handle.
/// \param change  the handle
/// \return ZEL_OK; ZEL_NULL_ARGUMENT for a null handle
ZEL_C_API zel_status zel_change_drop(zel_change** change);
/// Takes back the last change of a library.
/// \param library  a library file
/// \param options  how it is changed; null for the defaults
/// \param table    receives a row for each value that is restored: item, field, before, after, unit;
///                 the caller ends it with zel_table_free; null on failure; may be null
/// \return ZEL_OK; ZEL_FAILED if there is nothing to take back
ZEL_C_API zel_status zel_undo(char const* library, zel_change_options const* options,
                              zel_table** table);
/// Lists the changes that the history of a library keeps, the last one first: change, time,
/// command.
/// \param library  a library file
/// \param table    receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK or the reason of the failure
ZEL_C_API zel_status zel_history(char const* library, zel_table** table);
///@}

#ifdef __cplusplus
}  // extern "C"
#endif

#endif  // ZELACCESS_ZEL_DESK_H
