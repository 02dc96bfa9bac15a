/// \file
/// LibMaint: banks, items, walks and documents of one open library.
#ifndef ZELACCESS_LIBMAINT_H
#define ZELACCESS_LIBMAINT_H

#include <cstdint>

#include "zelaccess/Casn.h"
#include "zelaccess/Export.h"

namespace zel {

class IZelBankDef;
class IZelPureComp;
class Key;
class LibFile;

/// Creates and deletes banks, reads, writes and deletes items, walks banks, items and component
/// IDs, and translates between component identifiers.
///
///     LibMaint* maint = LibMaint::NewLibMaint(library);
///     IZelBankDef* nrtl = NewBank("NRTL");
///     key->SetKey("ETHANOL", "WATER");
///     if (maint->ReadItem(nrtl, "VLE", key)) ...   // else: bank, component or pair unknown
///     nrtl->Release();
///     LibMaint::DelLibMaint(maint);
///
/// One object works on one library, which must stay open while it lives. It has one current bank
/// tree and one current walk: beginning something new ends what was current. There are no
/// transactions; a failing step leaves what earlier steps wrote.
///
/// **Several objects may work on one library in turn.** If another object has written to the
/// library since an item was read, the item is searched for again before it is rewritten, and is
/// not rewritten if it is gone. A walk shows what was there when it began: no other object writes
/// while it runs.
///
/// **Use a new key for each item**: a key that is used again keeps the words that are not set anew,
/// and so can read, overwrite or delete a previous item (Key.h).
///
/// **Buffers.** Type keywords, bank names and character IDs have 9 characters, memos 4000, key
/// words 10 words.
///
/// **Null pointers.** Every pointer may be null. Outputs that are null are skipped; where nothing
/// else is requested, the operation fails. A null text is the empty text. A null bank, key or
/// component is a failure.
///
/// **Errors.** Operations return false (or 0, or an empty text) on failure. Block errors of LibFile
/// pass through as exceptions (`unsigned long`, BlockError.h); lack of memory throws
/// std::bad_alloc.
///
/// **Threads.** One object belongs to one thread at a time. So does its library, unless that is
/// open for reading: then any number of threads may use it, each with a LibMaint of its own
/// (LibFile.h).
class ZEL_API LibMaint {
 public:
  /// Makes an object that works on a library. Throws std::bad_alloc.
  /// \param library  stays the caller's and open; with null every operation fails
  /// \return the object, which the caller ends with DelLibMaint; never null
  static LibMaint* NewLibMaint(LibFile* library);
  /// Ends the object and nulls the handle. The library stays open.
  /// \param maint  the handle; null does nothing
  static void DelLibMaint(LibMaint*& maint);

  /// Copies no data: these are handles.
  LibMaint(LibMaint const&) {}
  /// Copies nothing.
  /// \return this object
  LibMaint& operator=(LibMaint const&) { return *this; }

  /// \name Identifiers of components
  ///@{

  /// Finds the component number of a CAS number.
  /// \param number         the CAS number; the empty casn finds nothing
  /// \param fromNameIndex  receives true when the name index knew the number and the library did
  ///                       not
  /// \return the component number; 0 when neither knows it
  virtual std::int32_t FindNumberByCas(casn const& number, bool& fromNameIndex) = 0;
  /// Finds the component number of a CAS number.
  /// \param number  the CAS number; the empty casn finds nothing
  /// \return the component number; 0 when neither the library nor the name index knows it
  virtual std::int32_t FindNumberByCas(casn const& number) = 0;
  /// Finds the component number of a character ID.
  /// \param id             the ID in upper or lower case; null is the empty text
  /// \param fromNameIndex  receives true when the name index knew the ID and the library did not
  /// \return the component number; 0 when neither knows it
  virtual std::int32_t FindNumberById(char const* id, bool& fromNameIndex) = 0;
  /// Finds the component number of a character ID.
  /// \param id  the ID in upper or lower case; null is the empty text
  /// \return the component number; 0 when neither the library nor the name index knows it
  virtual std::int32_t FindNumberById(char const* id) = 0;
  /// Finds the first character ID of a component number in the pure component banks of the library
  /// and then in the banks ORDWIN and PLANTIX of the name index. Reads components, so a host that
  /// needs many IDs should keep the results.
  /// \param number         component number
  /// \param id             buffer of 9 characters, empty when no bank holds the component; may be
  ///                       null
  /// \param fromNameIndex  receives true when the name index had the component
  virtual void GetIdOfNumber(std::int32_t number, char* id, bool& fromNameIndex) = 0;
  /// Finds the first character ID of a component number, as above.
  /// \param number  component number
  /// \param id      buffer of 9 characters, empty when no bank holds the component; null does
  ///                nothing
  virtual void GetIdOfNumber(std::int32_t number, char* id) = 0;
  /// Finds the CAS number of a component number in the banks that GetIdOfNumber reads.
  /// \param number         component number
  /// \param cas            receives the CAS number, empty when no bank holds the component
  /// \param fromNameIndex  receives true when the name index had the component
  virtual void GetCasOfNumber(std::int32_t number, casn& cas, bool& fromNameIndex) = 0;
  /// Finds the CAS number of a component number in the banks that GetIdOfNumber reads.
  /// \param number  component number
  /// \param cas     receives the CAS number, empty when no bank holds the component
  virtual void GetCasOfNumber(std::int32_t number, casn& cas) = 0;
  /// Compares a component's identifiers, and those of a key, with this library and the name index.
  /// Every write of a component makes this check, and fails if the check does. A CAS number that
  /// another component has is a warning in the log.
  /// \param component  the component; null is a failure
  /// \param key        the key under which it is to be written; null checks the component alone
  /// \param text       buffer of 300 characters for the reasons, empty on success; may be null
  /// \return false when the key does not fit the component or a library ID means another component
  ///         already
  virtual bool CheckComponent(IZelPureComp* component, Key* key, char* text) = 0;
  /// Compares a component's identifiers with this library and the name index, as above.
  /// \param component  the component; null is a failure
  /// \param text       buffer of 300 characters for the reasons; may be null
  /// \return false when a library ID means another component already
  virtual bool CheckComponent(IZelPureComp* component, char* text) = 0;

  ///@}
  /// \name Banks
  ///@{

  /// Makes an empty bank.
  /// \param type    type keyword, at most 8 characters; null is the empty text, an unknown type
  /// \param name    bank name, at most 8 characters; null is the empty name
  /// \param format  record format; 0 means the highest of the type
  /// \return false for an unknown type, a format that the type does not have, a bank that exists,
  ///         and a type or name of more than 8 characters
  virtual bool CreateBank(char const* type, char const* name, std::int32_t format) = 0;
  /// Removes a bank from the directory. Its blocks are not freed. Throws when the library has no
  /// bank at all. A type or name of more than 8 characters, which CreateBank refuses, is cut to 8
  /// here, and deletes the bank of that name.
  /// \param type  type keyword; null is the empty text
  /// \param name  bank name; null is the empty text
  /// \return true, also when the bank did not exist; false when the library is not open
  virtual bool DeleteBank(char const* type, char const* name) = 0;
  /// Copies the memo of a bank.
  /// \param type  type keyword; null is the empty text
  /// \param name  bank name; null is the empty text
  /// \param memo  buffer of 4000 characters, empty when there is no memo or no such bank; null does
  ///              nothing
  virtual void GetBankMemo(char const* type, char const* name, char* memo) = 0;
  /// Writes the memo of a bank; does nothing when there is no such bank.
  /// \param type  type keyword; null is the empty text
  /// \param name  bank name; null is the empty text
  /// \param memo  3999 characters are kept; null is the empty text
  virtual void SetBankMemo(char const* type, char const* name, char const* memo) = 0;
  /// Returns the record format of a bank.
  /// \param type  type keyword; null is the empty text
  /// \param name  bank name; null is the empty text
  /// \return the format from 1; 0 for a type of one format and for a bank that is not there
  virtual std::int32_t GetBankFormat(char const* type, char const* name) = 0;
  /// Returns whether the library has a bank.
  /// \param type  type keyword; null is the empty text
  /// \param name  bank name; null is the empty text
  /// \return true when the bank is there
  virtual bool BankExists(char const* type, char const* name) = 0;

  ///@}
  /// \name Items
  /// The key is widened to the bank's length and resolved to component numbers; an asymmetric pair
  /// that is requested in reverse order is swapped on the way.
  ///@{

  /// Returns whether a bank has an item. The fields of `bank` stay as they are.
  /// \param bank  an object of the bank's type; null is a failure
  /// \param name  bank name; null is the empty text
  /// \param key   key of the item; null is a failure
  /// \return true when the item is there
  virtual bool ItemExists(IZelBankDef* bank, char const* name, Key* key) = 0;
  /// Clears `bank` and reads an item into it.
  /// \param bank  an object of the bank's type; null is a failure
  /// \param name  bank name; null is the empty text
  /// \param key   key of the item; null is a failure
  /// \return false, and the bank is empty, when the bank, a component or the item is not there
  virtual bool ReadItem(IZelBankDef* bank, char const* name, Key* key) = 0;
  /// Writes the bank back to the item last read or written, without a search.
  /// \param bank  an object of the type that was read; null is a failure
  /// \return false when no item is current, the bank is of another type or record length, the item
  ///         is gone, or CheckComponent refuses the component
  virtual bool RewriteItem(IZelBankDef* bank) = 0;
  /// Overwrites an item or inserts a new one. A component is written where the key leads: a key by
  /// CAS number that the library knows as that of another component overwrites that component, and
  /// the only sign of this is a warning in the log. With a key by number that cannot happen.
  /// \param bank  an object of the bank's type with the fields to write; null is a failure
  /// \param name  bank name; null is the empty text
  /// \param key   key of the item; null is a failure
  /// \return false when the bank or a component of the key is not there, the bank has another key
  ///         or record length, or CheckComponent refuses the component
  virtual bool WriteItem(IZelBankDef* bank, char const* name, Key* key) = 0;
  /// Deletes an item.
  /// \param type  type keyword; null is the empty text
  /// \param name  bank name; null is the empty text
  /// \param key   key of the item; null is a failure
  /// \return false when the bank, a component or the item is not there
  virtual bool DeleteItem(char const* type, char const* name, Key* key) = 0;

  ///@}
  /// \name New component numbers
  ///@{

  /// Returns the next number for a component of the host's own. The first call reads the numbers in
  /// use, as CollectUsedNumbers does.
  /// \return a number from 21000000 on that no component of this library or of the name index has,
  ///         and that this object has not returned before
  virtual std::int32_t NextComponentNumber() = 0;
  /// Reads again which numbers this library and the name index use. Numbers that
  /// NextComponentNumber returned and that are not in use can be returned again.
  virtual void CollectUsedNumbers() = 0;

  ///@}
  /// \name Walks
  /// In key order. A Next... returns false at the end and when its walk is not the current one.
  ///@{

  /// Begins a walk over the component IDs of the library.
  virtual void BeginIdWalk() = 0;
  /// Moves to the next component ID.
  /// \param number  receives the component number; 0 at the end
  /// \param id      buffer of 9 characters for the ID, empty at the end; may be null
  /// \return false at the end
  virtual bool NextId(std::int32_t& number, char* id) = 0;
  /// Ends the walk.
  virtual void EndIdWalk() = 0;
  /// Begins a walk over the banks of exactly one type.
  /// \param type  type keyword; null and the empty text walk over all banks
  virtual void BeginBankWalk(char const* type) = 0;
  /// Begins a walk over all banks.
  virtual void BeginBankWalk() = 0;
  /// Moves to the next bank.
  /// \param type  buffer of 9 characters for the type keyword; may be null
  /// \param name  buffer of 9 characters for the bank name; may be null, but not both
  /// \return false at the end; also, without moving, if both are null
  virtual bool NextBank(char* type, char* name) = 0;
  /// Ends the walk.
  virtual void EndBankWalk() = 0;
  /// Begins a walk over the items of a bank.
  /// \param type  type keyword; null is the empty text
  /// \param name  bank name; null is the empty text
  /// \return false when there is no such bank
  virtual bool BeginItemWalk(char const* type, char const* name) = 0;
  /// Clears `bank`, moves to the next item and reads it. Pairs are read as they are stored. An item
  /// that cannot be read throws, unless the host wants such items skipped (SetItemFindings in
  /// Verify.h).
  /// \param keyWords  room for ten words, the most that a key of any bank has; receives the key;
  ///                  may be null
  /// \param bank      an object of the walked type; null is a failure
  /// \return false at the end, and without moving for a null bank and for one of another type
  virtual bool NextItem(std::int32_t* keyWords, IZelBankDef* bank) = 0;
  /// Moves to the next item without reading it.
  /// \param keyWords  room for ten words; receives the key; null is a failure that does not move
  /// \return false at the end
  virtual bool NextItemKey(std::int32_t* keyWords) = 0;
  /// Ends the walk.
  virtual void EndItemWalk() = 0;

  ///@}
  /// \name Reading XML documents
  /// docs/interchange.md describes the format. An import returns true when no error was reported.
  /// What was read before an error stays in the library. By default the first error ends an import;
  /// with a log level (LibMaint_p) errors are lines on standard output and the import goes on.
  ///
  /// A relative path is relative to the folder of the document that the process read last, so give
  /// full paths. Threads can import into different libraries at the same time; each starts from the
  /// folder of the document that was read last. Components need InitZelAccess first.
  ///@{

  /// Imports a `library` or `bank` document, whose banks must be new.
  /// \param path             path of the document; null is the empty path, which is an error
  /// \param replaceExisting  whether an item that exists is replaced; it is an error otherwise
  /// \return true when no error was reported
  virtual bool Import(char const* path, bool replaceExisting) = 0;
  /// Imports a `comp` document into a bank of pure components, which is made when it is not there.
  /// \param path             path of the document; null is the empty path, which is an error
  /// \param bankName         bank name, cut to 8 characters; null is the empty name
  /// \param replaceExisting  whether a component that exists is replaced; it is an error otherwise
  /// \return true when no error was reported
  virtual bool ImportComponent(char const* path, char const* bankName, bool replaceExisting) = 0;
  /// Returns the last reported error. If an import continues after an error, the next bank or item
  /// clears the text.
  /// \return null when no error was reported since the last import began; otherwise a text that
  ///         belongs to this object and is valid until its next import or its end: copy it if it is
  ///         needed longer
  virtual char const* GetLastErrorText() const = 0;

  ///@}
  /// \name Writing XML documents
  /// Folder, file name and extension are those of `path` where it has them; otherwise the files are
  /// next to the library under names made from library, bank and component, with ".xml". Overloads
  /// without a switch use the setting of LibMaint_p.
  ///
  /// Existing files are emptied and rewritten, also through a symbolic link in their place: a host
  /// that writes to a folder that others can write to should check it first, or export to a new
  /// folder and then move the files.
  ///@{

  /// Exports the whole library: one document for it and one for each bank.
  /// \param path            where to write; null is the empty text
  /// \param writeBanner     whether a block for a maintenance log is added
  /// \param componentFiles  whether each component of a bank has a file of its own
  /// \return false when a file cannot be opened or written, or the library is not open
  virtual bool ExportLibrary(char const* path, bool writeBanner, bool componentFiles) = 0;
  /// Exports the whole library, as above.
  /// \param path         where to write; null is the empty text
  /// \param writeBanner  whether a block for a maintenance log is added
  /// \return false when a file cannot be opened or written, or the library is not open
  virtual bool ExportLibrary(char const* path, bool writeBanner) = 0;
  /// Exports the whole library, as above.
  /// \param path  where to write; null is the empty text
  /// \return false when a file cannot be opened or written, or the library is not open
  virtual bool ExportLibrary(char const* path) = 0;
  /// Exports one bank.
  /// \param type            type keyword; null is the empty text
  /// \param name            bank name; null is the empty text
  /// \param path            where to write; null is the empty text
  /// \param writeBanner     whether a block for a maintenance log is added
  /// \param componentFiles  whether each component of the bank has a file of its own
  /// \return false when a file cannot be opened or written, or the bank is not there
  virtual bool ExportBank(char const* type, char const* name, char const* path, bool writeBanner,
                          bool componentFiles) = 0;
  /// Exports one bank, as above.
  /// \param type         type keyword; null is the empty text
  /// \param name         bank name; null is the empty text
  /// \param path         where to write; null is the empty text
  /// \param writeBanner  whether a block for a maintenance log is added
  /// \return false when a file cannot be opened or written, or the bank is not there
  virtual bool ExportBank(char const* type, char const* name, char const* path,
                          bool writeBanner) = 0;
  /// Exports one bank, as above.
  /// \param type  type keyword; null is the empty text
  /// \param name  bank name; null is the empty text
  /// \param path  where to write; null is the empty text
  /// \return false when a file cannot be opened or written, or the bank is not there
  virtual bool ExportBank(char const* type, char const* name, char const* path) = 0;
  /// Exports one pure component by its number.
  /// \param bankName     bank name; null is the empty text
  /// \param number       component number
  /// \param path         where to write; null is the empty text
  /// \param writeBanner  whether a block for a maintenance log is added
  /// \return false when the file cannot be opened or written, or the component is not there
  virtual bool ExportComponentByNumber(char const* bankName, std::int32_t number, char const* path,
                                       bool writeBanner) = 0;
  /// Exports one pure component by its number, as above.
  /// \param bankName  bank name; null is the empty text
  /// \param number    component number
  /// \param path      where to write; null is the empty text
  /// \return false when the file cannot be opened or written, or the component is not there
  virtual bool ExportComponentByNumber(char const* bankName, std::int32_t number,
                                       char const* path) = 0;
  /// Exports one pure component by its character ID.
  /// \param bankName     bank name; null is the empty text
  /// \param id           character ID; null is the empty text
  /// \param path         where to write; null is the empty text
  /// \param writeBanner  whether a block for a maintenance log is added
  /// \return false when the file cannot be opened or written, or the component is not there
  virtual bool ExportComponentById(char const* bankName, char const* id, char const* path,
                                   bool writeBanner) = 0;
  /// Exports one pure component by its character ID, as above.
  /// \param bankName  bank name; null is the empty text
  /// \param id        character ID; null is the empty text
  /// \param path      where to write; null is the empty text
  /// \return false when the file cannot be opened or written, or the component is not there
  virtual bool ExportComponentById(char const* bankName, char const* id, char const* path) = 0;

  ///@}

  /// Copies the names of the banks that a bank refers to.
  /// \param type   type keyword; null is the empty text
  /// \param name   bank name; null is the empty text
  /// \param count  number of type keywords and of names
  /// \param types  type keywords of the banks referred to; with null all names are empty
  /// \param names  buffers of 9 characters, in the order of `types`; empty when there is no such
  ///               bank or it refers to none; null does nothing
  virtual void GetRefBankNames(char const* type, char const* name, std::int32_t count,
                               char const (*types)[9], char (*names)[9]) = 0;
  /// Writes tab-separated indexes next to a library, replacing those that exist: name.bnk
  /// lists its banks, name.BANK.cmp the components of each pure component bank except OLILIB. An
  /// index that cannot be written is left out. A symbolic link in the place of one is removed and
  /// not followed.
  /// \param library  an open library, not necessarily that of this object; null does nothing
  virtual void WriteTextDump(LibFile* library) = 0;

 protected:
  LibMaint() = default;
  virtual ~LibMaint();
};

}  // namespace zel

#endif  // ZELACCESS_LIBMAINT_H
