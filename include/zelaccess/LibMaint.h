// LibMaint: the working surface on one open library.
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

// Creates and deletes banks, reads, writes and deletes items, walks banks, items and component IDs,
// and translates between component identifiers.
//
//   LibMaint* maint = LibMaint::NewLibMaint(library);
//   IZelBankDef* nrtl = NewBank("NRTL");
//   key->SetKey("ETHANOL", "WATER");
//   if (maint->ReadItem(nrtl, "VLE", key)) ...   // else: bank, component or pair unknown
//   nrtl->Release();
//   LibMaint::DelLibMaint(maint);
//
// One object works on one library, which must stay open while it lives. It has one current bank
// tree and one current walk: beginning something new ends what was current. There are no
// transactions; a failing step leaves what earlier steps wrote. Operations give false (or 0, or an
// empty text) on failure; block errors of LibFile pass through as exceptions. Outputs that are null
// are passed over; where nothing else is asked for, the operation fails. A null text is the empty
// text.
//
// Several objects may work on one library in turn. An item that one has read is found again before
// it is rewritten when another has written to the library since, and is not rewritten when it is
// gone. A walk keeps to what was there when it began: no other object writes while it runs.
//
// Use a new key for each item: a key that is used again keeps the words that are not set anew, and
// so can read, overwrite or delete an item of before (Key.h).
//
// Buffers: type keywords, bank names and character IDs 9 characters, memos 4000, key words 10
// words.
class ZEL_API LibMaint {
 public:
  static LibMaint* NewLibMaint(LibFile* library);
  static void DelLibMaint(LibMaint*& maint);

  LibMaint(LibMaint const&) {}                            // copies no data: these are handles
  LibMaint& operator=(LibMaint const&) { return *this; }  // copies nothing

  // Component number of a CAS number or character ID, 0 when neither the library nor the name index
  // knows it; `fromNameIndex` is set when the name index did.
  virtual std::int32_t FindNumberByCas(casn const& number, bool& fromNameIndex) = 0;
  virtual std::int32_t FindNumberByCas(casn const& number) = 0;
  virtual std::int32_t FindNumberById(char const* id, bool& fromNameIndex) = 0;
  virtual std::int32_t FindNumberById(char const* id) = 0;
  // First character ID and CAS number of a component number, empty when no pure component bank of
  // the library and neither bank ORDWIN nor PLANTIX of the name index holds it. Reads components:
  // for many numbers, keep what you get.
  virtual void GetIdOfNumber(std::int32_t number, char* id, bool& fromNameIndex) = 0;
  virtual void GetIdOfNumber(std::int32_t number, char* id) = 0;
  virtual void GetCasOfNumber(std::int32_t number, casn& cas, bool& fromNameIndex) = 0;
  virtual void GetCasOfNumber(std::int32_t number, casn& cas) = 0;
  // Holds a component's identifiers (and a key, if given) against this library and the name index.
  // False, with the reasons in `text` (300 characters, may be null), when the key does not fit the
  // component or a library ID means another component already. A CAS number that another has is a
  // warning in the log. Every write of a component makes this check and is refused by it.
  virtual bool CheckComponent(IZelPureComp* component, Key* key, char* text) = 0;
  virtual bool CheckComponent(IZelPureComp* component, char* text) = 0;

  // Makes an empty bank; format 0 means the type's highest. False for an unknown type, a format
  // that the type does not have, a bank that exists, a type or name of more than 8 characters.
  virtual bool CreateBank(char const* type, char const* name, std::int32_t format) = 0;
  // Removes the bank from the directory. Its blocks are not freed. True also when the bank was not
  // there; throws when the library has no bank at all. A type or name of more than 8 characters,
  // which CreateBank refuses, is cut to 8 here, and deletes the bank of that name.
  virtual bool DeleteBank(char const* type, char const* name) = 0;
  virtual void GetBankMemo(char const* type, char const* name, char* memo) = 0;
  virtual void SetBankMemo(char const* type, char const* name, char const* memo) = 0;
  // Record format of a bank; 0 for a type of one format and for a bank that is not there.
  virtual std::int32_t GetBankFormat(char const* type, char const* name) = 0;
  virtual bool BankExists(char const* type, char const* name) = 0;

  // Items. The key is widened to the bank's length and resolved; an asymmetric pair asked for in
  // the other order is turned round on the way.
  virtual bool ItemExists(IZelBankDef* bank, char const* name, Key* key) = 0;
  virtual bool ReadItem(IZelBankDef* bank, char const* name, Key* key) = 0;
  // Writes the bank back to the item last read or written, without a search.
  virtual bool RewriteItem(IZelBankDef* bank) = 0;
  // Overwrites the item or inserts a new one. A component goes where the key leads: a key by CAS
  // number that the library knows as that of another component overwrites that one, and all that
  // says so is a warning in the log. With a key by number that cannot happen.
  virtual bool WriteItem(IZelBankDef* bank, char const* name, Key* key) = 0;
  virtual bool DeleteItem(char const* type, char const* name, Key* key) = 0;

  // A number from 21000000 on that no component of this library or of the name index has.
  virtual std::int32_t NextComponentNumber() = 0;
  virtual void CollectUsedNumbers() = 0;

  // Walks, in key order. A Next... gives false at the end and when its walk is not the current one.
  // `keyWords` has room for ten words, the most that a key of any bank has.
  virtual void BeginIdWalk() = 0;
  virtual bool NextId(std::int32_t& number, char* id) = 0;
  virtual void EndIdWalk() = 0;
  virtual void BeginBankWalk(char const* type) = 0;  // only banks of exactly this type
  virtual void BeginBankWalk() = 0;
  virtual bool NextBank(char* type, char* name) = 0;
  virtual void EndBankWalk() = 0;
  virtual bool BeginItemWalk(char const* type, char const* name) = 0;
  virtual bool NextItem(std::int32_t* keyWords, IZelBankDef* bank) = 0;
  virtual bool NextItemKey(std::int32_t* keyWords) = 0;
  virtual void EndItemWalk() = 0;

  // XML in and out; docs/interchange.md has the form. Import reads a <library> or <bank> document,
  // whose banks must be new; ImportComponent a <comp> document into a bank that is made when it is
  // not there. An item that exists is an error unless `replaceExisting`. True when no error was
  // reported. What was read before an error stays in the library. By default the first error ends
  // an import; with a log level (LibMaint_p) errors are lines on standard output and the import
  // goes on. A relative path is taken from the folder of the document that the process read last,
  // so give full paths. Threads can import into different libraries at the same time; each starts
  // from the folder of the document that was read last. Components need InitZelAccess first.
  virtual bool Import(char const* path, bool replaceExisting) = 0;
  virtual bool ImportComponent(char const* path, char const* bankName, bool replaceExisting) = 0;
  // The last reported error; null when none was reported since the last import began. Where an
  // import goes on after an error, the next bank or item empties the text. The text is this
  // object's and valid until its next import, or its end: copy it where it must last.
  virtual char const* GetLastErrorText() const = 0;
  // Folder, file name and extension count where `path` has them; otherwise the files lie beside
  // the library under names made from library, bank and component, with ".xml". Files that are
  // there are emptied and written anew, also through a symbolic link in their place: a host that
  // writes to a folder of others checks it first, or exports to a fresh folder and moves. False
  // when a file cannot be opened or written, or what is asked for is not there. `writeBanner` adds
  // a block for a maintenance log, `componentFiles` gives each component of a bank a file of its
  // own; forms without them take the switches of LibMaint_p.
  virtual bool ExportLibrary(char const* path, bool writeBanner, bool componentFiles) = 0;
  virtual bool ExportLibrary(char const* path, bool writeBanner) = 0;
  virtual bool ExportLibrary(char const* path) = 0;
  virtual bool ExportBank(char const* type, char const* name, char const* path, bool writeBanner,
                          bool componentFiles) = 0;
  virtual bool ExportBank(char const* type, char const* name, char const* path,
                          bool writeBanner) = 0;
  virtual bool ExportBank(char const* type, char const* name, char const* path) = 0;
  virtual bool ExportComponentByNumber(char const* bankName, std::int32_t number, char const* path,
                                       bool writeBanner) = 0;
  virtual bool ExportComponentByNumber(char const* bankName, std::int32_t number,
                                       char const* path) = 0;
  virtual bool ExportComponentById(char const* bankName, char const* id, char const* path,
                                   bool writeBanner) = 0;
  virtual bool ExportComponentById(char const* bankName, char const* id, char const* path) = 0;

  // Names of the banks that the bank refers to, for each of `count` type keywords; empty texts when
  // there is no such bank or it refers to none.
  virtual void GetRefBankNames(char const* type, char const* name, std::int32_t count,
                               char const (*types)[9], char (*names)[9]) = 0;
  // Writes tab-separated indexes beside a library, in place of those that are there: <name>.bnk
  // lists its banks, <name>.<bank>.cmp the components of each pure component bank. What cannot be
  // written does not appear. A symbolic link in the place of one is removed and not followed.
  virtual void WriteTextDump(LibFile* library) = 0;

 protected:
  LibMaint() = default;
  virtual ~LibMaint();
};

}  // namespace zel

#endif  // ZELACCESS_LIBMAINT_H
