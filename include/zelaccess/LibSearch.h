// LibSearch: items from a preference list of libraries.
#ifndef ZELACCESS_LIBSEARCH_H
#define ZELACCESS_LIBSEARCH_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

class IZelBankDef;
class Key;
class LibFile;

// Finds an item in a list of library banks and fills the bank given. The host says once where to
// look, and then asks for item after item: the banks that were located for one bank type stay
// located until another type is searched or the list changes.
//
//   LibSearch* search = LibSearch::NewLibSearch();
//   LibFile* libraries[] = {own, sample};
//   char const names[2][9] = {"MYDATA", "SAMPLE"};
//   search->SetLibraryBanks(2, libraries, names);
//   key->SetKey("ETHANOL");
//   if (search->Search(key, component, true)) ...   // merged, own data first, completed
//   LibSearch::DelLibSearch(search);
//
// Two ways to say where. By pairs (SetLibraryBanks) every pair is searched in its order. By
// libraries and names each name stands for one bank: that of the first library that has a usable
// bank of that name; banks of the same name in later libraries are not searched, even if the first
// lacks the key. A bank that is not there, or whose key or record length is not that of the bank
// given, is passed over without a word.
//
// All failures are quiet: false, and the bank is cleared. Block errors of LibFile pass through as
// exceptions; the bank then holds what was read before. Libraries are not owned: a host that closes
// one calls a Set operation first.
//
// A located bank is searched through the tree that it had when it was located. LibSearch does not
// notice that another object, a LibMaint on the same library for one, has written to the bank,
// deleted from it or deleted it: items can then be missed, old values found, or blocks read that
// hold something else by now. After each such change, and before the next search, call a Set
// operation; it locates the banks again.
//
// One object belongs to one thread, together with its libraries (LibFile.h).
class ZEL_API LibSearch {
 public:
  static LibSearch* NewLibSearch();
  // Ends the search and nulls the handle; does nothing on null.
  static void DelLibSearch(LibSearch*& search);

  LibSearch(LibSearch const&) {}                            // copies no data: these are handles
  LibSearch& operator=(LibSearch const&) { return *this; }  // copies nothing

  // Replaces the libraries and drops pairs; names set before stay. A null library is passed over,
  // and a null array is one of null libraries.
  virtual void SetLibraries(long count, LibFile* const* libraries) = 0;
  // Replaces the bank names, each cut to 8 characters, and drops pairs; libraries set before stay.
  virtual void SetBankNames(long count, char const (*names)[9]) = 0;
  virtual void SetBankNames(long count, char const* const* names) = 0;
  // Replaces everything by pairs of libraries[i] and names[i].
  virtual void SetLibraryBanks(long count, LibFile* const* libraries, char const (*names)[9]) = 0;
  // Clears the bank and fills it from the first located bank that has the key, turned round for a
  // pair asked for in the other order. With `allBanks` a pure component is merged from all banks,
  // the first one winning each datum; other types ignore the flag. What was found is completed
  // (IZelBankIO::Complete). By pairs GetSource then gives "Multiple" when several banks gave data,
  // and GetSourceFlags which. False when there is nothing.
  virtual bool Search(Key* key, IZelBankDef* bank, bool allBanks) = 0;

 protected:
  LibSearch() = default;
  virtual ~LibSearch();
};

}  // namespace zel

#endif  // ZELACCESS_LIBSEARCH_H
