/// \file
/// The C interface, part 1: statuses, reasons, texts, units, and tables of results. Include zel.h.
#ifndef ZELACCESS_ZEL_BASE_H
#define ZELACCESS_ZEL_BASE_H

#include <stddef.h>
#include <stdint.h>

/// \def ZEL_C_API
/// Marks what the library ZelC exports. Hosts of the static one on Windows define ZELC_STATIC.
#if !defined(_WIN32)
#define ZEL_C_API __attribute__((visibility("default")))
#elif defined(ZELC_STATIC)
#define ZEL_C_API
#elif defined(ZELC_BUILDING)
#define ZEL_C_API __declspec(dllexport)
#else
#define ZEL_C_API __declspec(dllimport)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// What a call returns: one of zel_statuses. A status other than ZEL_OK has a reason (zel_reason).
typedef int32_t zel_status;

/// The statuses.
enum zel_statuses {
  ZEL_OK = 0,                     ///< Done.
  ZEL_FAILED = 1,                 ///< Failed for a reason not listed below.
  ZEL_NULL_ARGUMENT = 2,          ///< A null pointer that must not be null.
  ZEL_BAD_ARGUMENT = 3,           ///< A number out of range, or a structure of another size.
  ZEL_NO_MEMORY = 4,              ///< Memory has run out.
  ZEL_TOO_SMALL = 5,              ///< A buffer or an array is too small.
  ZEL_NO_VALUE = 6,               ///< There is no such value: missing or undefined.
  ZEL_WRONG_TYPE = 7,             ///< A text where a number is asked for, or the reverse.
  ZEL_NOT_FOUND = 8,              ///< A library that does not exist.
  ZEL_IN_USE = 9,                 ///< A library that another program uses, or access denied.
  ZEL_CANNOT_OPEN = 10,           ///< A library that cannot be opened for another reason.
  ZEL_READ_ONLY = 11,             ///< A change of a library that is open for reading.
  ZEL_DAMAGED = 12,               ///< A block that cannot be read or written.
  ZEL_MISSING_COMPONENT = 13,     ///< A component that no library has.
  ZEL_CONFLICTING_IDENTITY = 14,  ///< Libraries that mean different substances by one word.
  ZEL_MISSING_ITEM = 15,          ///< An item, a pair for example, that no library has.
  ZEL_MISSING_BANK = 16,          ///< A bank that the library does not have.
  ZEL_MISSING_DATUM = 17,         ///< A correlation that the component does not have.
  ZEL_UNKNOWN_WORD = 18,          ///< A unit, field, keyword or type that does not exist.
  ZEL_STOPPED = 19                ///< The host's function has stopped the work.
};

/// Which text of an object is meant. Each function says which ones it has.
enum zel_texts {
  ZEL_TEXT_NAME = 0,         ///< Name.
  ZEL_TEXT_PATH = 1,         ///< Path of a file.
  ZEL_TEXT_DESCRIPTION = 2,  ///< Description of a library.
  ZEL_TEXT_VERSION = 3,      ///< Version text of a library.
  ZEL_TEXT_MEMO = 4,         ///< Memo of a library.
  ZEL_TEXT_CAS = 5,          ///< CAS number, "64-17-5" for example.
  ZEL_TEXT_FORMULA = 6,      ///< Formula.
  ZEL_TEXT_UNIT = 7,         ///< Unit of a value.
  ZEL_TEXT_SOURCE = 8,       ///< Where it is from: library and bank, or the method.
  ZEL_TEXT_CITATION = 9,     ///< What is cited for it.
  ZEL_TEXT_DOI = 10,         ///< DOI of the citation.
  ZEL_TEXT_EQUATION = 11,    ///< Equation in which parameters are used.
  ZEL_TEXT_LABEL = 12,       ///< Meaning of a field.
  ZEL_TEXT_MEANING = 13,     ///< How the data use a parameter.
  ZEL_TEXT_VALUE = 14        ///< The text that a field holds.
};

/// The result of a call as rows and columns.
typedef struct zel_table zel_table;

/// What a cell of a table holds.
enum zel_cells {
  ZEL_CELL_EMPTY = 0,    ///< Nothing: a datum that is undefined or missing.
  ZEL_CELL_TEXT = 1,     ///< A text.
  ZEL_CELL_INTEGER = 2,  ///< A whole number.
  ZEL_CELL_NUMBER = 3,   ///< A number.
  ZEL_CELL_YES_NO = 4    ///< Yes or no: 1 or 0.
};

/// \name The library as a whole
///@{

/// Starts the library: loads its units. Functions that need the units load them themselves; a host
/// calls this to know early whether it works.
/// \return ZEL_OK; ZEL_FAILED if the units cannot be loaded
ZEL_C_API zel_status zel_start(void);
/// Copies the version of the library, "0.2.0" for example.
/// \param text    receives the text
/// \param size    size of `text` in bytes
/// \param length  receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL
ZEL_C_API zel_status zel_version(char* text, size_t size, size_t* length);
/// Copies the reason of the last call in this thread that failed; empty if none has. It leaves the
/// reason as it is, also when it fails itself. A reason has at most 1023 bytes.
/// \param text    receives the text
/// \param size    size of `text` in bytes
/// \param length  receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL
ZEL_C_API zel_status zel_reason(char* text, size_t size, size_t* length);
/// Copies the name of a status, "ZEL_TOO_SMALL" for example.
/// \param status  one of zel_statuses; any other is ZEL_BAD_ARGUMENT
/// \param text    receives the text
/// \param size    size of `text` in bytes
/// \param length  receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL; ZEL_BAD_ARGUMENT
ZEL_C_API zel_status zel_status_name(zel_status status, char* text, size_t size, size_t* length);
///@}

/// \name Units and catalogues
///@{

/// Converts values in place. NaN stays NaN.
/// \param dimension  name of the dimension, "Pres" for example
/// \param from       unit of the values
/// \param to         unit to convert them to
/// \param values     the values; may be null if `count` is 0
/// \param count      number of values
/// \return ZEL_OK; ZEL_UNKNOWN_WORD, with unchanged values, for a dimension or a unit that does not
///         exist and for a value without a counterpart in the other unit
ZEL_C_API zel_status zel_convert(char const* dimension, char const* from, char const* to,
                                 double* values, size_t count);
/// Lists the constants: keyword, label, unit, dimension.
/// \param table  receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK or the reason of the failure
ZEL_C_API zel_status zel_list_constants(zel_table** table);
/// Lists the correlations: name, label, unit, dimension.
/// \param table  receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK or the reason of the failure
ZEL_C_API zel_status zel_list_correlations(zel_table** table);
/// Lists the bank types: type, description, key (components, numbers or text), key parts, shortest
/// key, formats.
/// \param table  receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK or the reason of the failure
ZEL_C_API zel_status zel_list_bank_types(zel_table** table);
/// Lists the fields of a bank type: name, label, unit, kind (real, integer, text or word), count.
/// \param type   keyword of the type, "NRTL" for example; pure components have no fields
/// \param table  receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK; ZEL_UNKNOWN_WORD for a type that does not exist
ZEL_C_API zel_status zel_list_fields(char const* type, zel_table** table);
/// Lists the checks of data: id, rule, severity.
/// \param table  receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK or the reason of the failure
ZEL_C_API zel_status zel_list_checks(zel_table** table);
///@}

/// \name Tables
/// Rows and columns count from 0. A row or a column that is not there is ZEL_BAD_ARGUMENT.
///@{

/// Ends a table and nulls the handle.
/// \param table  the handle
/// \return ZEL_OK; ZEL_NULL_ARGUMENT for a null handle
ZEL_C_API zel_status zel_table_free(zel_table** table);
/// Returns the size of a table.
/// \param table    the table
/// \param rows     receives the number of rows; may be null
/// \param columns  receives the number of columns; may be null
/// \return ZEL_OK
ZEL_C_API zel_status zel_table_size(zel_table const* table, size_t* rows, size_t* columns);
/// Finds a column by its heading.
/// \param table   the table
/// \param name    the heading, exactly
/// \param column  receives the column
/// \return ZEL_OK; ZEL_UNKNOWN_WORD for a column that the table does not have
ZEL_C_API zel_status zel_table_column(zel_table const* table, char const* name, size_t* column);
/// Copies the heading of a column.
/// \param table   the table
/// \param column  the column
/// \param text    receives the text
/// \param size    size of `text` in bytes
/// \param length  receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL
ZEL_C_API zel_status zel_table_heading(zel_table const* table, size_t column, char* text,
                                       size_t size, size_t* length);
/// Copies the unit of the numbers of a column; empty for pure numbers, for texts, and where each
/// row has its unit in the column "unit".
/// \param table   the table
/// \param column  the column
/// \param text    receives the text
/// \param size    size of `text` in bytes
/// \param length  receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL
ZEL_C_API zel_status zel_table_unit(zel_table const* table, size_t column, char* text, size_t size,
                                    size_t* length);
/// Says what a cell holds.
/// \param table   the table
/// \param row     the row
/// \param column  the column
/// \param kind    receives one of zel_cells
/// \return ZEL_OK
ZEL_C_API zel_status zel_table_kind(zel_table const* table, size_t row, size_t column,
                                    int32_t* kind);
/// Returns the number in a cell, a whole number and yes or no as well.
/// \param table   the table
/// \param row     the row
/// \param column  the column
/// \param number  receives the number
/// \return ZEL_OK; ZEL_NO_VALUE for an empty cell; ZEL_WRONG_TYPE for a text
ZEL_C_API zel_status zel_table_number(zel_table const* table, size_t row, size_t column,
                                      double* number);
/// Returns the whole number in a cell, or yes or no.
/// \param table    the table
/// \param row      the row
/// \param column   the column
/// \param integer  receives the number
/// \return ZEL_OK; ZEL_NO_VALUE for an empty cell; ZEL_WRONG_TYPE for anything else
ZEL_C_API zel_status zel_table_integer(zel_table const* table, size_t row, size_t column,
                                       int64_t* integer);
/// Copies the text in a cell.
/// \param table   the table
/// \param row     the row
/// \param column  the column
/// \param text    receives the text
/// \param size    size of `text` in bytes
/// \param length  receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL; ZEL_NO_VALUE for an empty cell; ZEL_WRONG_TYPE for a number
ZEL_C_API zel_status zel_table_text(zel_table const* table, size_t row, size_t column, char* text,
                                    size_t size, size_t* length);
/// Copies the numbers of a whole column, one for each row.
/// \param table   the table
/// \param column  the column
/// \param values  receives the numbers, NaN for empty cells and texts; may be null if `count` is 0
/// \param count   number of elements of `values`; less than the rows is ZEL_TOO_SMALL
/// \return ZEL_OK; ZEL_TOO_SMALL, with nothing copied
ZEL_C_API zel_status zel_table_numbers(zel_table const* table, size_t column, double* values,
                                       size_t count);
///@}

#ifdef __cplusplus
}  // extern "C"
#endif

#endif  // ZELACCESS_ZEL_BASE_H
