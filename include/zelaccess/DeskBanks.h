/// \file
/// The banks of one library and their items, by names of fields: for tools that show, walk, export
/// and convert whatever a library holds.
///
///     zel::desk::LibraryFile const library("sample.lb1");
///     for (zel::desk::BankInfo const& bank : library.Banks()) use(bank.type, bank.name);
///     auto const nrtl = library.Item("NRTL:SAMPLE", {"ETHANOL", "WATER"});
///
/// Errors are those of Desk.h.
#ifndef ZELACCESS_DESKBANKS_H
#define ZELACCESS_DESKBANKS_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "zelaccess/BankDef.h"
#include "zelaccess/Desk.h"

namespace zel::desk {

/// What the items of a bank are named by.
enum class KeyKind : std::int32_t {
  kComponents = 0,  ///< Components.
  kNumbers = 1,     ///< Plain numbers, of groups for example.
  kText = 2         ///< A text.
};

/// A bank type.
struct BankType {
  std::string type;                        ///< Keyword, "NRTL" for example.
  std::string description;                 ///< What it holds.
  KeyKind keyKind = KeyKind::kComponents;  ///< What its items are named by.
  std::int32_t keyParts = 0;               ///< The most parts of a key; 1 for a text.
  std::int32_t shortestKey = 0;            ///< The fewest parts that a key needs.
  std::int32_t formats = 0;                ///< Number of record formats.
};

/// A bank of a library.
struct BankInfo {
  std::string type;         ///< Keyword of its type.
  std::string name;         ///< Its name.
  std::int64_t items = 0;   ///< Number of its items.
  std::int32_t format = 0;  ///< Record format; 0 for a type of one format.
};

/// A field of a bank type.
struct FieldInfo {
  std::string name;                ///< "bij" for example.
  std::string label;               ///< Its meaning.
  std::string unit;                ///< Internal unit; empty for a pure number and if not known.
  zelFieldTypes type = fieldReal;  ///< What its values are.
  std::int32_t count = 1;          ///< Number of values; for a text the size of its buffer.
};

/// Returns the bank types, in the order of the catalogue.
/// \return all of them
ZEL_DESK_API std::vector<BankType> BankTypes();
/// Returns the fields of a bank type. Throws UnknownWord for a type that does not exist.
/// \param type  its keyword, in any case of letters
/// \return the fields in the order of the type's table; none for pure components (PureComp.h)
ZEL_DESK_API std::vector<FieldInfo> FieldsOfType(std::string const& type);

struct LibraryFileData;

/// One library, open for reading. `bank` is a name or a type that only one bank has, or TYPE:NAME,
/// in any case of letters; functions with one throw MissingBank.
///
/// **Threads.** Calls on one object must be made one at a time.
class ZEL_DESK_API LibraryFile {
 public:
  /// Opens a library. A change that was interrupted is undone first. Throws OpenError, LibraryInUse
  /// or Error.
  /// \param library  a library file
  /// \param options  how it is opened
  explicit LibraryFile(std::string const& library, LibrariesOptions const& options = {});
  /// Takes over the library of another object, which must not be used any more.
  LibraryFile(LibraryFile&&) noexcept;
  /// Takes over the library of another object, which must not be used any more.
  /// \return this object
  LibraryFile& operator=(LibraryFile&&) noexcept;
  /// Closes the library.
  ~LibraryFile();

  /// Returns its banks, in the order of the directory.
  /// \return all of them
  std::vector<BankInfo> Banks() const;
  /// Returns the bank that a word means.
  /// \param bank  see above
  /// \return the bank
  BankInfo Bank(std::string const& bank) const;
  /// Returns an item. Throws MissingItem, and Error for words that cannot name one.
  /// \param bank   see above
  /// \param words  the components, numbers or text that name it
  /// \return the item; for a pure component its constants and texts
  desk::Item Item(std::string const& bank, std::vector<std::string> const& words) const;
  /// Returns the words that name each item of a bank.
  /// \param bank  see above
  /// \return the words of each item, in key order: IDs of components if the library has them, else
  ///         numbers
  std::vector<std::vector<std::string>> Keys(std::string const& bank) const;
  /// Returns the memo of a bank.
  /// \param bank  see above; empty for the memo of the library
  /// \return the memo; empty if the bank has none
  std::string Memo(std::string const& bank = "") const;
  /// Writes documents (docs/interchange.md), all or none: one for the library and one for each
  /// bank, or that of one bank. Throws Error if they cannot be written.
  /// \param target  a document, or the folder for documents with the usual names
  /// \param bank    see above; empty for the whole library
  /// \return the number of documents
  std::int64_t Export(std::string const& target, std::string const& bank = "") const;
  /// Writes the text indexes of LibMaint::WriteTextDump. Throws Error if they cannot be written.
  /// \param folder  an existing folder
  /// \return the number of files
  std::int64_t Dump(std::string const& folder) const;
  /// Returns the open library, for ColumnReader and other functions of the library.
  /// \return valid as long as this object lives
  zel::LibFile& File() const;

 private:
  std::unique_ptr<LibraryFileData> data_;
};

}  // namespace zel::desk

#endif  // ZELACCESS_DESKBANKS_H
