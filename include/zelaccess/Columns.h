/// \file
/// Columns: chosen fields of all items of a bank, read into a host's arrays.
///
/// A walk with LibMaint::NextItem decodes every field of every item into a bank object, from which
/// the host fetches what it needs. A ColumnReader decodes only the fields that were asked for,
/// directly into the host's arrays: for data frames, pick lists and statistics.
///
///     std::vector<std::int32_t> keys(2 * 1000);
///     std::vector<double> aij(1000), bij(1000);
///     zel::Handle<zel::ColumnReader> reader(
///         zel::ColumnReader::NewColumnReader(library.get(), "NRTL", "SAMPLE"));
///     if (!reader) return;   // no such bank
///     reader->AddKeys(keys.data());
///     reader->AddReals("aij", aij.data());
///     reader->AddReals("bij", bij.data());
///     while (std::int32_t const rows = reader->Read(1000)) {
///       ...   // rows 0 to rows - 1 of the arrays
///     }
#ifndef ZELACCESS_COLUMNS_H
#define ZELACCESS_COLUMNS_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

class LibFile;

/// One walk over the items of a bank, in key order, that fills columns.
///
/// **Columns.** A column is an array of the host with room for as many rows as are read at once. A
/// row has as many elements as the field: element e of row r is at r x count + e. IZelBankDef::
/// GetFieldList reports the fields of a bank's type, their types, and their counts; for a text the
/// count is the size of its buffer, terminator included. The same field can be added more than
/// once.
///
/// **Values** are those that GetDoubleField, GetIntField and GetStringField return after NextItem:
/// floats with their decimal digits, pairs in stored order, and what Clear sets for a field that
/// the record format of the bank does not have. Characters after the terminator of a text are
/// unspecified.
///
/// **Pure components** have these columns:
///
/// | Name | Type | Count | Value |
/// |---|---|---|---|
/// | a keyword of GetConstantCatalogue (Verify.h) | real | 1 | as GetProperty returns it |
/// | `number`, `cas`, `refCode` | integer | 1 | as GetIdentity returns them |
/// | `keepFormula` | integer | 1 | 1 when the formula is kept as written, else 0 |
/// | `ids` | text | 108 | 12 IDs of 9 characters each |
/// | `name`, `formula`, `smiles` | text | 41, 21, 101 | as GetIdentity and GetSmiles return them |
///
/// Only the first block of a component is read: a component whose correlations or structures cannot
/// be read has its row nevertheless.
///
/// **Errors.** A failed read is never taken for an empty value. A block that cannot be read throws
/// a block error (BlockError.h), and the rows of that call are not valid; the next call continues
/// after the item. While the library has a sink for items that cannot be read (SetItemFindings in
/// Verify.h), such an item is reported to it and left out. A tree that cannot be read throws in
/// both cases.
///
/// **Null pointers.** A null name is the empty text, which is not the name of a field; a null array
/// is a failure. In both cases no column is added.
///
/// **Changes** of the bank end the walk: what Read returns after them is undefined, except that a
/// library that was closed has no more rows. The library must outlive the reader.
///
/// **Threads.** A reader belongs to one thread, together with its library unless that is open for
/// reading (LibFile.h).
class ZEL_API ColumnReader {
 public:
  /// Begins a walk over the items of a bank. Throws a block error and std::bad_alloc.
  /// \param library  an open library; null is a failure
  /// \param type     type keyword; null is the empty text
  /// \param name     bank name; null is the empty text
  /// \return the reader, which the caller ends with DelColumnReader; null for an unknown type, when
  ///         there is no such bank, and when its keys or records have another length than the type
  static ColumnReader* NewColumnReader(LibFile* library, char const* type, char const* name);
  /// Ends the reader and nulls the handle.
  /// \param reader  the handle; null does nothing
  static void DelColumnReader(ColumnReader*& reader);

  /// Copies no data: readers are handles.
  ColumnReader(ColumnReader const&) {}
  /// Copies nothing.
  /// \return this object
  ColumnReader& operator=(ColumnReader const&) { return *this; }

  /// Returns the number of words of a key, the elements of a row of AddKeys.
  /// \return 1 to 10
  virtual std::int32_t GetKeyWords() const = 0;
  /// Adds a column of keys, as NextItem returns them.
  /// \param words  receives GetKeyWords() words per row; null is a failure
  /// \return false on failure
  virtual bool AddKeys(std::int32_t* words) = 0;
  /// Adds a column of a real field.
  /// \param field   name of the field in any case of letters
  /// \param values  receives the field's count of doubles per row; null is a failure
  /// \return false when there is no such field
  virtual bool AddReals(char const* field, double* values) = 0;
  /// Adds a column of an integer or enumerated field.
  /// \param field   name of the field in any case of letters
  /// \param values  receives the field's count of integers per row; null is a failure
  /// \return false when there is no such field
  virtual bool AddIntegers(char const* field, std::int32_t* values) = 0;
  /// Adds a column of a text field.
  /// \param field  name of the field in any case of letters
  /// \param texts  receives the field's count of characters per row; null is a failure
  /// \return false when there is no such field
  virtual bool AddTexts(char const* field, char* texts) = 0;

  /// Reads the next items into the columns, from row 0 on. Without columns it counts them. Throws a
  /// block error.
  /// \param rows  the number of rows for which all columns have room; below 1 reads nothing
  /// \return the rows read; fewer than `rows` only at the end of the bank, 0 after it
  virtual std::int32_t Read(std::int32_t rows) = 0;

 protected:
  ColumnReader() = default;
  virtual ~ColumnReader();
};

}  // namespace zel

#endif  // ZELACCESS_COLUMNS_H
