/// \file
/// Changes of libraries that are made as a whole or not at all, with a history and an undo.
///
///     zel::desk::Change change("own.lb1");
///     change.Edit({"ETHANOL", "NBP=78.31C"});
///     change.ImportTable("pairs.csv", "NRTL:OWN");
///     change.Commit();                          // without it, nothing has happened
///     zel::desk::UndoLastChange("own.lb1");
///
/// A change works on a copy next to the library, which is meanwhile locked against all other
/// programs. Errors and threads are those of Desk.h.
#ifndef ZELACCESS_DESKCHANGES_H
#define ZELACCESS_DESKCHANGES_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zelaccess/DeskErrors.h"
#include "zelaccess/DeskTable.h"

namespace zel::desk {

/// How a library is changed.
struct ChangeSettings {
  std::string password;      ///< Of a protected library.
  std::string names;         ///< A library for IDs and CAS numbers that the changed one lacks.
  std::string units;         ///< Units of numbers without one, and of tables that are returned:
                             ///< words such as "bar,degC", or a unit system (Units.h). Empty:
                             ///< internal units.
  std::string command;       ///< What the history says about the change.
  double waitSeconds = 0.0;  ///< How long to wait for a library that another program uses.
  int keep = 10;             ///< Versions that the history keeps for UndoLastChange; 0 removes it.
  bool dryRun = false;       ///< Everything is done except putting the change in place.
};

/// What an edit sets in addition to the values among its words.
struct EditSettings {
  std::vector<std::string> unset;         ///< Data to remove.
  std::optional<std::uint32_t> code;      ///< Reference code of what is set; else it stays.
  std::string from;                       ///< A library from which the item is copied first if
                                          ///< the changed one does not have it; empty for none.
  std::optional<int> equation;            ///< Of a correlation (docs/equations.md).
  std::vector<std::string> coefficients;  ///< Of a correlation, at most 15.
  std::string range;                      ///< Of a correlation, "159K:514K"; empty: it stays.
  std::string valueUnit;                  ///< Of the values of its equation; empty: it stays.
  std::string temperatureUnit;            ///< K, C, R or F, of coefficients and range.
  std::string logarithm;  ///< Whose value the equation gives: natural, decimal or none.
  std::string basis;      ///< mole or mass.
};

/// How a table is imported.
struct TableSettings {
  std::string mapPath;               ///< A file with lines HEAD = MEANING; empty for none.
  std::vector<std::string> ignored;  ///< Heads of columns that are left out.
  std::vector<std::string> where;    ///< HEAD=VALUE: only rows with this cell.
  bool skipBad = false;              ///< Rows that are refused do not refuse the whole table.
};

/// What an import of a table has done.
struct ImportedRows {
  std::int64_t read = 0;     ///< Rows of the table.
  std::int64_t isNew = 0;    ///< Rows whose item is new.
  std::int64_t changed = 0;  ///< Rows that changed an item.
  std::int64_t same = 0;     ///< Rows that changed nothing.
  std::int64_t refused = 0;  ///< Rows that were refused.
  Table rows{"rows", {}};    ///< The rows that changed something or were refused: line, item,
                             ///< result, what, and the parts of the item: item 1, item 2, item 3,
                             ///< datum (a correlation).
};

/// How a document is imported.
struct DocumentSettings {
  std::string bank;                ///< For a document of one component: its bank; else empty.
  bool replace = false;            ///< Replaces components that exist; with a bank only.
  std::string checks = "checked";  ///< lenient, checked or strict (Interchange.h: importTold,
                                   ///< importChecked, importStrict).
};

/// What an import of a document has done.
struct ImportedDocument {
  std::int64_t components = 0;  ///< Components that were stored.
  std::int64_t items = 0;       ///< Other items that were stored.
  std::int64_t banks = 0;       ///< Banks that were stored.
  Table log{"log", {}};         ///< The warnings: document, line, message.
};

/// What is done about items that both libraries of a merge have and that differ.
enum class MergeChoice {
  kRefuse,  ///< An error is thrown.
  kOurs,    ///< Those of the changed library are kept.
  kTheirs,  ///< They are replaced with those of the other library.
};

struct ChangeData;

/// A change of one library. If an operation throws, the change may be half done and should be
/// dropped: an object that is destroyed without Commit has changed nothing.
class ZEL_DESK_API Change {
 public:
  /// Locks a library and makes the copy that is changed. Throws OpenError, LibraryInUse or Error.
  /// \param library   a library file
  /// \param settings  how it is changed
  explicit Change(std::string const& library, ChangeSettings const& settings = {});
  /// Begins a library that does not exist yet; Commit makes it. Throws Error.
  /// \param library   where it will be
  /// \param settings  how it is changed
  /// \return the change
  static Change New(std::string const& library, ChangeSettings const& settings = {});
  /// Takes over the change of another object, which must not be used any more.
  Change(Change&&) noexcept;
  /// Takes over the change of another object, which must not be used any more.
  /// \return this object
  Change& operator=(Change&&) noexcept;
  /// Drops the change unless it was committed, and unlocks the library.
  ~Change();

  /// Sets data of an item. Throws UnknownWord for a datum that does not exist, with similar ones,
  /// and for values that do not suit it; MissingComponent; MissingItem; Error.
  /// \param words     the item, after a bank if it is not a component, then DATUM=VALUE or DATUM
  ///                  VALUE, as often as needed: {"NRTL", "ETHANOL", "WATER", "bij=-29.2"}. The
  ///                  fields of a pair are those in the order in which its components are named.
  /// \param settings  what else is set
  /// \return a row for each datum that changed: datum, old, new, unit, old code, new code
  Table Edit(std::vector<std::string> const& words, EditSettings const& settings = {});
  /// Imports a table (CSV, TSV, JSON). Throws Error if the table cannot be read, if a column means
  /// nothing, and for rows that are refused unless `skipBad` is set.
  /// \param path      the table
  /// \param bank      a bank, or TYPE:NAME for one that is made if it does not exist
  /// \param settings  how it is imported
  /// \return what was read, new, changed, the same and refused
  ImportedRows ImportTable(std::string const& path, std::string const& bank,
                           TableSettings const& settings = {});
  /// Imports a document of a library, a bank or a component (docs/interchange.md). Throws Error
  /// with the first error if there is any, UnknownWord for checks that do not exist.
  /// \param path      the document
  /// \param settings  how it is imported
  /// \return what was stored
  ImportedDocument ImportDocument(std::string const& path, DocumentSettings const& settings = {});
  /// Adds the items and banks that only the other library has. Throws ConflictingIdentity for
  /// components of one number that mean different substances, and Error if items differ and
  /// `choice` is kRefuse.
  /// \param library  the other library
  /// \param choice   what is done about items that differ
  /// \param banks    banks of the other library; all of them if empty
  /// \return a row for each bank: bank, added, same, differing
  Table Merge(std::string const& library, MergeChoice choice = MergeChoice::kRefuse,
              std::vector<std::string> const& banks = {});
  /// Gives a component another number in all banks. Throws MissingComponent, and Error if the new
  /// number is in use.
  /// \param component  by number, ID, CAS number or name
  /// \param number     the new number, above 0
  /// \return a row for each bank with changed items: bank, items
  Table Renumber(std::string const& component, std::int32_t number);

  /// Returns what the edits and imported tables of this change have made implausible, such as a
  /// negative pressure or a boiling point above the critical temperature. A finding that a
  /// component had before the change is not included. The change can be committed nevertheless.
  /// \return a row for each finding: severity ("error" or "warning"), id (of the check, DataCheck.h),
  ///         what, library, place, bank, item, datum, value, unit, expected from, expected to,
  ///         temperature, text
  Table Findings() const;

  /// Puts the change in place of the library, or, with `dryRun`, drops it. The object cannot be
  /// used afterwards. Throws Error; then the library is unchanged.
  void Commit();

 private:
  explicit Change(std::unique_ptr<ChangeData> data);
  ChangeData& Data() const;
  std::unique_ptr<ChangeData> data_;
};

/// Takes back the last change of a library that has not been taken back yet; this is a change of
/// its own. Throws Error if the history has no change to take back, or if another program has
/// changed the library since.
/// \param library   a library file
/// \param settings  how it is changed
/// \return a row for each value, note or item that is restored: item, field, before, after, unit
ZEL_DESK_API Table UndoLastChange(std::string const& library, ChangeSettings const& settings = {});

/// Lists the changes that the history of a library keeps. Throws Error if it cannot be read.
/// \param library  a library file
/// \return a row for each change, the last one first: change (its number), time (UTC), command
ZEL_DESK_API Table HistoryOf(std::string const& library);

}  // namespace zel::desk

#endif  // ZELACCESS_DESKCHANGES_H
