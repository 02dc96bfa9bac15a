/// \file
/// The C interface, part 2: one library, its banks by columns, its documents and its checks.
/// Include zel.h.
#ifndef ZELACCESS_ZEL_LIBRARY_H
#define ZELACCESS_ZEL_LIBRARY_H

#include "zelaccess/zel_base.h"

#ifdef __cplusplus
extern "C" {
#endif

/// An open library.
typedef struct zel_library zel_library;
/// A walk over the items of a bank that fills arrays of the host.
typedef struct zel_columns zel_columns;

/// How a library is open.
enum zel_modes {
  ZEL_READ = 0,   ///< For reading; any number of programs at a time.
  ZEL_UPDATE = 1  ///< For reading and writing; excludes every other program.
};

/// How changes of a library open for update get into its files (docs/durability.md).
enum zel_writes {
  ZEL_WRITES_PLAIN = 0,   ///< At once.
  ZEL_WRITES_MARKED = 1,  ///< At once; a mark next to the library says that it is being changed.
  ZEL_WRITES_HELD = 2     ///< At each flush, as a whole or not at all.
};

/// What is done about a library that was not closed cleanly.
enum zel_unclean {
  ZEL_UNCLEAN_IGNORED = 0,  ///< Nothing.
  ZEL_UNCLEAN_REFUSED = 1,  ///< It is not opened.
  ZEL_UNCLEAN_VERIFIED = 2  ///< It is verified, and opened if that finds no damage.
};

/// How strictly an import checks a document; a higher number is stricter.
enum zel_checks {
  ZEL_IMPORT_UNCHECKED = 0,  ///< Malformed numbers, lost parts and altered texts pass silently.
  ZEL_IMPORT_TOLD = 1,       ///< All three are warnings.
  ZEL_IMPORT_CHECKED = 2,    ///< Malformed numbers and lost parts are errors.
  ZEL_IMPORT_STRICT = 3      ///< All three are errors.
};

/// How bad a finding is.
enum zel_severities {
  ZEL_NOTE = 0,     ///< Worth knowing; nothing is wrong.
  ZEL_WARNING = 1,  ///< Data that cannot all be right, or room that is lost.
  ZEL_DAMAGE = 2,   ///< The library is not what a writer leaves.
  ZEL_ERROR = 3     ///< Data that cannot be used safely.
};

/// What zel_library_check looks at.
enum zel_check_parts {
  ZEL_CHECK_STRUCTURE = 0,  ///< The structure of the files.
  ZEL_CHECK_DATA = 1        ///< Whether the data are plausible.
};

/// How a library is opened. Set `size`; zero in all other members is the default.
typedef struct zel_open_options {
  size_t size;                ///< sizeof(zel_open_options).
  int32_t mode;               ///< One of zel_modes; zel_library_create does not use it.
  int32_t writes;             ///< One of zel_writes.
  int32_t unclean;            ///< One of zel_unclean.
  int32_t wait_milliseconds;  ///< How long to wait for a library in use; 0 does not wait.
  char const* name;           ///< Display name; null is the file name.
  char const* password;       ///< Of a protected library; null for none, as for a new one.
} zel_open_options;

/// The numbers that describe a library.
typedef struct zel_library_facts {
  int32_t kind;                 ///< Kind of the library: 11, 12 or 13.
  int32_t mode;                 ///< One of zel_modes.
  int32_t password_level;       ///< Level of protection, 0 to 2.
  int32_t is_marked;            ///< 1 if it was not closed cleanly, as its mark says.
  int32_t is_completed;         ///< 1 if this open completed a flush that had been cut off.
  int32_t has_foreign_journal;  ///< 1 if the journal next to it was written for other files.
} zel_library_facts;

/// What an import of a document has done.
typedef struct zel_import_counts {
  int64_t components;  ///< Components that were stored.
  int64_t items;       ///< Other items that were stored.
  int64_t banks;       ///< Banks that were stored.
} zel_import_counts;

/// What one document holds, without the documents that it imports.
typedef struct zel_document_facts {
  int64_t banks;       ///< Banks.
  int64_t items;       ///< Items.
  int64_t components;  ///< Components.
  int64_t imports;     ///< Elements that import other documents.
} zel_document_facts;

/// A finding of a check. Texts are never null, valid only during the call, and empty where they do
/// not apply; numbers that do not apply are NaN.
typedef struct zel_finding {
  int32_t severity;    ///< One of zel_severities.
  char const* id;      ///< Names the kind of finding and is stable, "tree-order" for example.
  char const* place;   ///< File, tree, bank or item.
  char const* datum;   ///< Keyword of a constant, name of a correlation or of a field.
  char const* unit;    ///< Unit of `value`.
  char const* text;    ///< What is wrong.
  double value;        ///< The value, in `unit`.
  double temperature;  ///< Temperature in K of the value of a correlation.
} zel_finding;

/// What a host passes to receive findings. It is called in the thread of the check, must not use
/// this interface, and must return: it must not throw, jump or end its thread.
/// \param finding  valid only during the call
/// \param user     what the host passed to the check
/// \return 0 to go on, anything else to stop the check
typedef int32_t (*zel_finding_function)(zel_finding const* finding, void* user);

/// \name One library
/// Calls on one library, and on the columns that read it, are made one at a time. Columns of a
/// library that was closed have no more rows.
///@{

/// Opens a library. A flush that was cut off is completed first.
/// \param path     the first file, ending in ".lb1"
/// \param options  how it is opened; null for reading with the defaults
/// \param library  receives the library, which the caller ends with zel_library_close; null on
///                 failure
/// \return ZEL_OK; ZEL_NOT_FOUND, ZEL_IN_USE, ZEL_CANNOT_OPEN
ZEL_C_API zel_status zel_library_open(char const* path, zel_open_options const* options,
                                      zel_library** library);
/// Makes an empty library, open for update. An existing file is overwritten.
/// \param path     the first file, ending in ".lb1"
/// \param kind     kind of the library: 11, 12 or 13; 11 is usual
/// \param options  how it is opened; null for the defaults
/// \param library  receives the library, which the caller ends with zel_library_close; null on
///                 failure
/// \return ZEL_OK; ZEL_IN_USE, ZEL_CANNOT_OPEN
ZEL_C_API zel_status zel_library_create(char const* path, int32_t kind,
                                        zel_open_options const* options, zel_library** library);
/// Puts all changes on disk. Does nothing for a library open for reading.
/// \param library  the library
/// \return ZEL_OK; ZEL_DAMAGED if something cannot be written; then it may be called again
ZEL_C_API zel_status zel_library_flush(zel_library* library);
/// Flushes and closes a library and nulls the handle, also when the flush fails. To be able to try
/// again, call zel_library_flush first.
/// \param library  the handle
/// \return ZEL_OK; ZEL_NULL_ARGUMENT for a null handle; ZEL_DAMAGED if the last changes are lost
ZEL_C_API zel_status zel_library_close(zel_library** library);
/// Describes a library in numbers.
/// \param library  the library
/// \param facts    receives the numbers
/// \return ZEL_OK
ZEL_C_API zel_status zel_library_describe(zel_library* library, zel_library_facts* facts);
/// Copies a text of a library.
/// \param library  the library
/// \param which    ZEL_TEXT_NAME, ZEL_TEXT_PATH, ZEL_TEXT_DESCRIPTION, ZEL_TEXT_VERSION or
///                 ZEL_TEXT_MEMO
/// \param text     receives the text
/// \param size     size of `text` in bytes
/// \param length   receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL
ZEL_C_API zel_status zel_library_text(zel_library* library, int32_t which, char* text, size_t size,
                                      size_t* length);
/// Sets a text of a library. It is cut to the room that the library has: 100 characters of a
/// description, 12 of a version, 3999 of a memo; see LibFile.h for the characters that are kept.
/// \param library  a library open for update
/// \param which    ZEL_TEXT_DESCRIPTION, ZEL_TEXT_VERSION or ZEL_TEXT_MEMO
/// \param text     the text
/// \return ZEL_OK; ZEL_READ_ONLY
ZEL_C_API zel_status zel_library_set_text(zel_library* library, int32_t which, char const* text);
/// Lists the banks of a library: type, name, items, format.
/// \param library  the library
/// \param table    receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK; ZEL_DAMAGED
ZEL_C_API zel_status zel_library_banks(zel_library* library, zel_table** table);
/// Makes an empty bank.
/// \param library  a library open for update
/// \param type     keyword of the type
/// \param name     name of the bank, at most 8 characters
/// \param format   record format; 0 for the highest of the type
/// \return ZEL_OK; ZEL_READ_ONLY; ZEL_FAILED for an unknown type, a format that the type does not
///         have, a bank that exists, and a type or a name that is too long
ZEL_C_API zel_status zel_library_create_bank(zel_library* library, char const* type,
                                             char const* name, int32_t format);
/// Deletes a bank.
/// \param library  a library open for update
/// \param type     keyword of the type
/// \param name     name of the bank
/// \return ZEL_OK; ZEL_READ_ONLY; ZEL_MISSING_BANK
ZEL_C_API zel_status zel_library_delete_bank(zel_library* library, char const* type,
                                             char const* name);
///@}

/// \name Documents
///@{

/// Imports a document of a library or of a bank (docs/interchange.md). It goes on after an error;
/// what could be read stays in the library. zel_change_import_document imports all or nothing.
/// \param library  a library open for update
/// \param path     the document
/// \param replace  1 to replace items that exist, which are errors otherwise
/// \param checks   one of zel_checks
/// \param counts   receives what was stored, also if there were errors; may be null
/// \param log      receives a table of the errors and warnings: severity (error or warning),
///                 document, line, message; null unless something was read; may be null
/// \return ZEL_OK if there was no error; ZEL_FAILED, with the first error as the reason; ZEL_READ_ONLY
ZEL_C_API zel_status zel_library_import(zel_library* library, char const* path, int32_t replace,
                                        int32_t checks, zel_import_counts* counts, zel_table** log);
/// Exports a library: one document for it and one for each bank. Documents that exist are replaced.
/// \param library  the library
/// \param path     the document of the library, "out/perry.xml" for example; the others are next to
///                 it
/// \return ZEL_OK; ZEL_FAILED if a document cannot be written, or would replace a file of a library
ZEL_C_API zel_status zel_library_export(zel_library* library, char const* path);
/// Exports one bank as a document. One that exists is replaced.
/// \param library  the library
/// \param type     keyword of the type
/// \param name     name of the bank
/// \param path     the document
/// \return ZEL_OK; ZEL_MISSING_BANK; ZEL_FAILED if the document cannot be written, or would replace
///         a file of a library
ZEL_C_API zel_status zel_library_export_bank(zel_library* library, char const* type,
                                             char const* name, char const* path);
/// Counts what a document holds, without a library.
/// \param path   the document
/// \param facts  receives the counts; all 0 on failure
/// \return ZEL_OK; ZEL_FAILED if it is not a document that an import accepts
ZEL_C_API zel_status zel_document_describe(char const* path, zel_document_facts* facts);
///@}

/// \name Checks of one library
///@{

/// Checks an open library and passes each finding to the host. zel_check lists findings, and weighs
/// the data of several libraries.
/// \param library   the library
/// \param part      one of zel_check_parts; check the structure before the data
/// \param callback  receives the findings; may be null
/// \param user      passed to `callback`; may be null
/// \param is_sound  receives 1 if there was no damage and no error, else 0; may be null
/// \return ZEL_OK when the check is complete, whatever it found; ZEL_STOPPED
ZEL_C_API zel_status zel_library_check(zel_library* library, int32_t part,
                                       zel_finding_function callback, void* user,
                                       int32_t* is_sound);
///@}

/// \name Banks by columns
/// A column is an array of the host that receives one field of many items; it must stay where it is
/// until the columns are closed. A row has as many elements as zel_columns_width says: element e of
/// row r is at r x width + e.
///@{

/// Begins a walk over the items of a bank, in key order.
/// \param library  the library; must not be changed meanwhile
/// \param type     keyword of the type
/// \param name     name of the bank
/// \param columns  receives the walk, which the caller ends with zel_columns_close; null on failure
/// \return ZEL_OK; ZEL_MISSING_BANK for a bank that the library does not have or whose type is unknown
ZEL_C_API zel_status zel_columns_open(zel_library* library, char const* type, char const* name,
                                      zel_columns** columns);
/// Ends a walk and nulls the handle.
/// \param columns  the handle
/// \return ZEL_OK; ZEL_NULL_ARGUMENT for a null handle
ZEL_C_API zel_status zel_columns_close(zel_columns** columns);
/// Returns the number of elements of a field in a row.
/// \param columns  the walk
/// \param field    name of the field in any case of letters; an empty text for the key; of pure
///                 components keywords of constants, number, cas, refCode, keepFormula, ids (12
///                 texts of 9 bytes), name, formula, smiles
/// \param width    receives the number; for a text its bytes with the terminator
/// \return ZEL_OK; ZEL_UNKNOWN_WORD
ZEL_C_API zel_status zel_columns_width(zel_columns* columns, char const* field, size_t* width);
/// Adds a column of keys.
/// \param columns  the walk
/// \param words    receives the words of the keys: component numbers for banks of components
/// \param length   number of elements of `words`
/// \return ZEL_OK
ZEL_C_API zel_status zel_columns_add_keys(zel_columns* columns, int32_t* words, size_t length);
/// Adds a column of a real field.
/// \param columns  the walk
/// \param field    name of the field in any case of letters
/// \param values   receives the values, NaN where undefined
/// \param length   number of elements of `values`
/// \return ZEL_OK; ZEL_UNKNOWN_WORD if there is no such real field
ZEL_C_API zel_status zel_columns_add_reals(zel_columns* columns, char const* field, double* values,
                                           size_t length);
/// Adds a column of an integer field.
/// \param columns  the walk
/// \param field    name of the field in any case of letters
/// \param values   receives the values, INT32_MIN where undefined
/// \param length   number of elements of `values`
/// \return ZEL_OK; ZEL_UNKNOWN_WORD if there is no such integer field
ZEL_C_API zel_status zel_columns_add_integers(zel_columns* columns, char const* field,
                                              int32_t* values, size_t length);
/// Adds a column of a text field.
/// \param columns  the walk
/// \param field    name of the field in any case of letters
/// \param texts    receives the texts as they are on file, each with its terminator
/// \param length   number of bytes of `texts`
/// \return ZEL_OK; ZEL_UNKNOWN_WORD if there is no such text field
ZEL_C_API zel_status zel_columns_add_texts(zel_columns* columns, char const* field, char* texts,
                                           size_t length);
/// Reads the next items into the columns, from row 0 on. Without columns it counts them.
/// \param columns  the walk
/// \param rows     how many items at most
/// \param read     receives how many were read; fewer than `rows` only at the end, 0 after it and
///                 where something cannot be read
/// \return ZEL_OK; ZEL_TOO_SMALL, with nothing read, if a column has no room for so many rows;
///         ZEL_DAMAGED if something cannot be read: the rows of this call are not valid. The next
///         call goes on after an item that cannot be read, but not after a part of the tree, so a
///         host should stop at the second failure in a row
ZEL_C_API zel_status zel_columns_read(zel_columns* columns, size_t rows, size_t* read);
///@}

#ifdef __cplusplus
}  // extern "C"
#endif

#endif  // ZELACCESS_ZEL_LIBRARY_H
