/// \file
/// The C interface, part 3: libraries in order of preference, components, correlations and items.
/// Include zel.h.
#ifndef ZELACCESS_ZEL_SEARCH_H
#define ZELACCESS_ZEL_SEARCH_H

#include "zelaccess/zel_base.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Open libraries in order of preference: for each datum the first one that has it wins.
typedef struct zel_search zel_search;
/// A pure component, merged from the libraries of a search.
typedef struct zel_component zel_component;
/// A correlation of a component, prepared with units.
typedef struct zel_evaluator zel_evaluator;
/// An item of a bank, such as the interaction parameters of a pair.
typedef struct zel_item zel_item;

/// What a constant of a component is based on.
enum zel_states {
  ZEL_STORED = 1,    ///< Stored in a library.
  ZEL_FILLED_IN = 2  ///< Derived from data that are there.
};

/// How a batch is computed.
enum zel_batches {
  ZEL_BATCH_EXACT = 0,  ///< The results of single evaluations, bit for bit.
  ZEL_BATCH_VECTOR = 1  ///< Faster; a value differs by at most 1e-12 of itself.
};

/// How libraries are opened. Set `size`; zero in all other members is the default.
typedef struct zel_search_options {
  size_t size;  ///< sizeof(zel_search_options).
  /// A library for IDs and CAS numbers that the others do not know; there is one for the whole
  /// process, the last one that was set.
  char const* names;
  int32_t accept_identity;  ///< 1: merge sources that mean different substances.
  double wait_seconds;      ///< How long to wait for a library that another program uses.
  /// Folders in which to look for a library that is named without a folder and is not in the
  /// current one: "perry" and "perry.lb1" mean the first perry.lb1 found; null for none.
  char const* const* path;
  size_t path_count;  ///< Number of folders.
} zel_search_options;

/// The numbers of an identity.
typedef struct zel_identity {
  int32_t number;          ///< Component number; 0 for none.
  int32_t reference_code;  ///< Reference code of the identity; 0 for none.
  int32_t id_count;        ///< Number of character IDs.
  int32_t keeps_formula;   ///< 1 if the formula is kept as it was given.
} zel_identity;

/// A constant of a component.
typedef struct zel_constant {
  double value;             ///< In the unit that was asked for.
  int32_t state;            ///< One of zel_states.
  uint32_t reference_code;  ///< Reference code; 0 for none.
} zel_constant;

/// A correlation as it is stored.
typedef struct zel_correlation {
  int32_t equation;           ///< Number of the equation (docs/equations.md).
  int32_t coefficient_count;  ///< Number of coefficients, at most 15.
  double coefficients[15];    ///< In the units of the record; 0 after the last one.
  double t_min;               ///< Lower end of the range in K; NaN for none.
  double t_max;               ///< Upper end of the range in K; NaN for none.
  uint32_t reference_code;    ///< Reference code; 0 for none.
} zel_correlation;

/// How a correlation is evaluated. Set `size`; zero in all other members is the default.
typedef struct zel_evaluation {
  size_t size;                   ///< sizeof(zel_evaluation).
  char const* unit;              ///< Unit of the values; null or empty: the internal unit.
  char const* temperature_unit;  ///< Unit of the temperatures; null or empty: K.
  int32_t order;                 ///< The derivative: 1, 2 or 3; 0 means 1.
} zel_evaluation;

/// \name Search lists
/// Calls on one search are made one at a time.
///@{

/// Opens libraries for reading. A change that was interrupted is undone first.
/// \param libraries  each as LIBRARY or LIBRARY:BANK, the preferred one first
/// \param count      number of libraries
/// \param options    how they are opened; null for the defaults
/// \param search     receives the search, which the caller ends with zel_search_close; null on
///                   failure
/// \return ZEL_OK; ZEL_NOT_FOUND, ZEL_IN_USE, ZEL_CANNOT_OPEN
ZEL_C_API zel_status zel_search_open(char const* const* libraries, size_t count,
                                     zel_search_options const* options, zel_search** search);
/// Lists the folders in which zel looks for libraries, for the member `path` of options: those of
/// the environment variable ZEL_PATH, else those of the user's configuration file. Columns: folder.
/// \param table  receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK; ZEL_FAILED if the file cannot be read or is not valid
ZEL_C_API zel_status zel_search_path(zel_table** table);
/// Closes the libraries and nulls the handle. Components and items remain valid.
/// \param search  the handle
/// \return ZEL_OK; ZEL_NULL_ARGUMENT for a null handle
ZEL_C_API zel_status zel_search_close(zel_search** search);
/// Lists the components of all libraries, each once: number, CAS number, ID, name, formula.
/// \param search  the search
/// \param table   receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK; ZEL_DAMAGED
ZEL_C_API zel_status zel_search_components(zel_search* search, zel_table** table);
/// Reads a component, merged from all libraries, with missing constants derived where possible.
/// \param search     the search
/// \param word       ID, CAS number, number or name
/// \param component  receives the component, which the caller ends with zel_component_free; null on
///                   failure
/// \return ZEL_OK; ZEL_MISSING_COMPONENT, whose reason names similar ones;
///         ZEL_CONFLICTING_IDENTITY; ZEL_DAMAGED
ZEL_C_API zel_status zel_search_component(zel_search* search, char const* word,
                                          zel_component** component);
/// Reads the item of a pair from the first library that has it.
/// \param search  the search
/// \param type    a bank type, "NRTL" for example
/// \param one     a component
/// \param other   the other one; fields are for the components in this order
/// \param item    receives the item, which the caller ends with zel_item_free; null on failure
/// \return ZEL_OK; ZEL_UNKNOWN_WORD for the type; ZEL_MISSING_ITEM; ZEL_DAMAGED
ZEL_C_API zel_status zel_search_pair(zel_search* search, char const* type, char const* one,
                                     char const* other, zel_item** item);
/// Reads an item from the first library that has it in a bank of the type.
/// \param search  the search
/// \param type    a bank type
/// \param words   the components, numbers or text that name it
/// \param count   number of words
/// \param item    receives the item, which the caller ends with zel_item_free; null on failure
/// \return ZEL_OK; ZEL_UNKNOWN_WORD for the type; ZEL_MISSING_ITEM; ZEL_DAMAGED
ZEL_C_API zel_status zel_search_item(zel_search* search, char const* type, char const* const* words,
                                     size_t count, zel_item** item);
///@}

/// \name Components
/// A component keeps nothing open. Any number of threads may use one.
///@{

/// Ends a component and nulls the handle.
/// \param component  the handle
/// \return ZEL_OK; ZEL_NULL_ARGUMENT for a null handle
ZEL_C_API zel_status zel_component_free(zel_component** component);
/// Returns the numbers of the identity of a component.
/// \param component  the component
/// \param identity   receives the numbers
/// \return ZEL_OK
ZEL_C_API zel_status zel_component_identity(zel_component const* component, zel_identity* identity);
/// Copies a text of the identity of a component.
/// \param component  the component
/// \param which      ZEL_TEXT_NAME, ZEL_TEXT_CAS or ZEL_TEXT_FORMULA
/// \param text       receives the text
/// \param size       size of `text` in bytes
/// \param length     receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL
ZEL_C_API zel_status zel_component_text(zel_component const* component, int32_t which, char* text,
                                        size_t size, size_t* length);
/// Copies a character ID of a component.
/// \param component  the component
/// \param index      from 0, less than the identity's number of IDs
/// \param text       receives the text
/// \param size       size of `text` in bytes
/// \param length     receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL; ZEL_BAD_ARGUMENT for an ID that is not there
ZEL_C_API zel_status zel_component_id(zel_component const* component, int32_t index, char* text,
                                      size_t size, size_t* length);
/// Returns a constant of a component.
/// \param component  the component
/// \param keyword    keyword of the constant in any case of letters, "NBP" for example
/// \param unit       unit of the value, "degC" for example; null or empty for the internal unit
/// \param constant   receives the constant
/// \return ZEL_OK; ZEL_NO_VALUE if it is neither stored nor derived; ZEL_UNKNOWN_WORD for the keyword
///         or the unit
ZEL_C_API zel_status zel_component_constant(zel_component const* component, char const* keyword,
                                            char const* unit, zel_constant* constant);
/// Copies a text about a constant of a component.
/// \param component  the component
/// \param keyword    keyword of the constant in any case of letters
/// \param which      ZEL_TEXT_UNIT (the internal unit), ZEL_TEXT_SOURCE, ZEL_TEXT_CITATION or
///                   ZEL_TEXT_DOI
/// \param text       receives the text
/// \param size       size of `text` in bytes
/// \param length     receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL; ZEL_NO_VALUE; ZEL_UNKNOWN_WORD
ZEL_C_API zel_status zel_component_constant_text(zel_component const* component,
                                                 char const* keyword, int32_t which, char* text,
                                                 size_t size, size_t* length);
/// Returns the record of a correlation of a component.
/// \param component    the component
/// \param name         name of the correlation in any case of letters, "VaporPressure" for example
/// \param correlation  receives the record
/// \return ZEL_OK; ZEL_NO_VALUE if the component does not have it; ZEL_UNKNOWN_WORD for the name
ZEL_C_API zel_status zel_component_correlation(zel_component const* component, char const* name,
                                               zel_correlation* correlation);
/// Copies a text about a correlation of a component.
/// \param component  the component
/// \param name       name of the correlation in any case of letters
/// \param which      ZEL_TEXT_UNIT (of the record's values), ZEL_TEXT_SOURCE, ZEL_TEXT_CITATION or
///                   ZEL_TEXT_DOI
/// \param text       receives the text
/// \param size       size of `text` in bytes
/// \param length     receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL; ZEL_NO_VALUE; ZEL_UNKNOWN_WORD
ZEL_C_API zel_status zel_component_correlation_text(zel_component const* component,
                                                    char const* name, int32_t which, char* text,
                                                    size_t size, size_t* length);
///@}

/// \name Correlations
/// An evaluator may outlive its component. Any number of threads may use one.
///@{

/// Prepares a correlation of a component.
/// \param component   the component
/// \param name        name of the correlation in any case of letters
/// \param evaluation  units, and the order of the derivative; null for the defaults
/// \param evaluator   receives the evaluator, which the caller ends with zel_evaluator_free; null on
///                    failure
/// \return ZEL_OK; ZEL_MISSING_DATUM if the component does not have it; ZEL_UNKNOWN_WORD for the
///         name, a unit or the order
ZEL_C_API zel_status zel_evaluator_new(zel_component const* component, char const* name,
                                       zel_evaluation const* evaluation, zel_evaluator** evaluator);
/// Ends an evaluator and nulls the handle.
/// \param evaluator  the handle
/// \return ZEL_OK; ZEL_NULL_ARGUMENT for a null handle
ZEL_C_API zel_status zel_evaluator_free(zel_evaluator** evaluator);
/// Copies the unit of the values; empty for a pure number.
/// \param evaluator  the evaluator
/// \param text       receives the text
/// \param size       size of `text` in bytes
/// \param length     receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL
ZEL_C_API zel_status zel_evaluator_unit(zel_evaluator const* evaluator, char* text, size_t size,
                                        size_t* length);
/// Evaluates at one temperature, outside of the range by extrapolation.
/// \param evaluator    the evaluator
/// \param temperature  in the unit of temperatures
/// \param value        receives the value; NaN where the equation has none
/// \return ZEL_OK
ZEL_C_API zel_status zel_evaluator_value(zel_evaluator const* evaluator, double temperature,
                                         double* value);
/// Evaluates at many temperatures. Arrays must not overlap.
/// \param evaluator     the evaluator
/// \param count         number of elements of each array
/// \param temperatures  in the unit of temperatures; may be null if `count` is 0
/// \param values        receives the values, NaN where the equation has none; may be null
/// \param derivatives   receives the derivatives of the evaluator's order, per unit of temperatures
///                      to the power of the order; may be null
/// \param ranges        receives 0 inside the range, 1 above, -1 below; may be null
/// \param batch         one of zel_batches
/// \return ZEL_OK; ZEL_UNKNOWN_WORD for numbers without a counterpart in the other unit
ZEL_C_API zel_status zel_evaluator_batch(zel_evaluator const* evaluator, size_t count,
                                         double const* temperatures, double* values,
                                         double* derivatives, int32_t* ranges, int32_t batch);
///@}

/// \name Items
/// An item keeps nothing open. Any number of threads may use one.
///@{

/// Ends an item and nulls the handle.
/// \param item  the handle
/// \return ZEL_OK; ZEL_NULL_ARGUMENT for a null handle
ZEL_C_API zel_status zel_item_free(zel_item** item);
/// Copies a text about an item.
/// \param item    the item
/// \param which   ZEL_TEXT_SOURCE, ZEL_TEXT_CITATION, ZEL_TEXT_DOI or ZEL_TEXT_EQUATION
/// \param text    receives the text
/// \param size    size of `text` in bytes
/// \param length  receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL
ZEL_C_API zel_status zel_item_text(zel_item const* item, int32_t which, char* text, size_t size,
                                   size_t* length);
/// Lists the fields of an item in the order of its type: name, label, unit, count, value (the first
/// one), text, meaning.
/// \param item   the item
/// \param table  receives the table, which the caller ends with zel_table_free; null on failure
/// \return ZEL_OK
ZEL_C_API zel_status zel_item_fields(zel_item const* item, zel_table** table);
/// Returns the first value of a field.
/// \param item   the item
/// \param field  name of the field in any case of letters, "bij" for example
/// \param value  receives the value
/// \return ZEL_OK; ZEL_NO_VALUE if it is undefined or not a number; ZEL_UNKNOWN_WORD for the field
ZEL_C_API zel_status zel_item_value(zel_item const* item, char const* field, double* value);
/// Copies all values of a field.
/// \param item    the item
/// \param field   name of the field in any case of letters
/// \param values  receives the values, NaN where undefined; may be null if `size` is 0
/// \param size    number of elements of `values`
/// \param count   receives the number of values of the field; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL, with nothing copied; ZEL_UNKNOWN_WORD
ZEL_C_API zel_status zel_item_values(zel_item const* item, char const* field, double* values,
                                     size_t size, size_t* count);
/// Copies a text about a field.
/// \param item    the item
/// \param field   name of the field in any case of letters
/// \param which   ZEL_TEXT_VALUE (of a field that is not a number), ZEL_TEXT_LABEL, ZEL_TEXT_UNIT or
///                ZEL_TEXT_MEANING
/// \param text    receives the text
/// \param size    size of `text` in bytes
/// \param length  receives the length of the whole text; may be null
/// \return ZEL_OK; ZEL_TOO_SMALL; ZEL_UNKNOWN_WORD
ZEL_C_API zel_status zel_item_field_text(zel_item const* item, char const* field, int32_t which,
                                         char* text, size_t size, size_t* length);
///@}

#ifdef __cplusplus
}  // extern "C"
#endif

#endif  // ZELACCESS_ZEL_SEARCH_H
