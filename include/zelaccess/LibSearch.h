/// \file
/// LibSearch: items from a preference list of libraries.
#ifndef ZELACCESS_LIBSEARCH_H
#define ZELACCESS_LIBSEARCH_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

class IZelBankDef;
class Key;
class LibFile;

/// Finds an item in a list of library banks and fills the bank given. The host says once where to
/// look, and then requests item after item: the banks that were located for one bank type stay
/// located until another type is searched or the list changes.
///
///     LibSearch* search = LibSearch::NewLibSearch();
///     LibFile* libraries[] = {own, sample};
///     char const names[2][9] = {"MYDATA", "SAMPLE"};
///     search->SetLibraryBanks(2, libraries, names);
///     key->SetKey("ETHANOL");
///     if (search->Search(key, component, true)) ...   // merged, own data first, completed
///     LibSearch::DelLibSearch(search);
///
/// **Two ways to say where.** By pairs (SetLibraryBanks) every pair is searched in its order. By
/// libraries and names each name means one bank: that of the first library that has a usable bank
/// of that name; banks of the same name in later libraries are not searched, even if the first
/// lacks the key. A bank that is not there, or whose key or record length is not that of the bank
/// given, is skipped silently.
///
/// **Errors.** Failures are silent: false is returned, and the bank is cleared. Block errors of
/// LibFile pass through as exceptions; the bank then holds what was read before. Lack of memory
/// throws std::bad_alloc.
///
/// **Ownership.** Libraries are not owned: a host that closes one calls a Set operation first.
///
/// **Changes.** A located bank is searched through the tree that it had when it was located.
/// LibSearch does not notice that another object, a LibMaint on the same library for example, has
/// written to the bank, deleted from it or deleted it: items can then be missed, old values found,
/// or blocks read that now hold something else. After each such change, and before the next search,
/// call a Set operation; it locates the banks again.
///
/// **Threads.** One object belongs to one thread, together with its libraries, except those that
/// are open for reading: any number of threads may use them, each with a LibSearch of its own
/// (LibFile.h).
class ZEL_API LibSearch {
 public:
  /// Makes a search without libraries. Throws std::bad_alloc.
  /// \return the search, which the caller ends with DelLibSearch; never null
  static LibSearch* NewLibSearch();
  /// Ends the search and nulls the handle. Libraries stay open.
  /// \param search  the handle; null does nothing
  static void DelLibSearch(LibSearch*& search);

  /// Copies no data: these are handles.
  LibSearch(LibSearch const&) {}
  /// Copies nothing.
  /// \return this object
  LibSearch& operator=(LibSearch const&) { return *this; }

  /// Replaces the libraries and drops pairs; names set before stay.
  /// \param count      number of libraries
  /// \param libraries  in the order of preference, not owned; a null library is skipped, and a null
  ///                   array is one of null libraries
  virtual void SetLibraries(long count, LibFile* const* libraries) = 0;
  /// Replaces the bank names and drops pairs; libraries set before stay.
  /// \param count  number of names
  /// \param names  in the order of preference; a null array is one of empty names
  virtual void SetBankNames(long count, char const (*names)[9]) = 0;
  /// Replaces the bank names and drops pairs; libraries set before stay.
  /// \param count  number of names
  /// \param names  in the order of preference, each cut to 8 characters; a null name is the empty
  ///               name, and a null array is one of empty names
  virtual void SetBankNames(long count, char const* const* names) = 0;
  /// Replaces everything by pairs of libraries[i] and names[i].
  /// \param count      number of pairs
  /// \param libraries  in the order of preference, not owned; a null library is skipped, and a null
  ///                   array is one of null libraries
  /// \param names      a null array is one of empty names
  virtual void SetLibraryBanks(long count, LibFile* const* libraries, char const (*names)[9]) = 0;
  /// Clears the bank and fills it from the first located bank that has the key, swapped for a pair
  /// that is requested in reverse order. What was found is completed (IZelBankIO::Complete). In a
  /// search by pairs, IZelBankDef::GetSource then returns "Multiple" when several banks had data,
  /// and IZelBankDef::GetSourceFlags reports which ones.
  /// \param key       key of the item; null finds nothing
  /// \param bank      an object of the type to search for; null finds nothing
  /// \param allBanks  whether a pure component is merged from all banks, where for each datum the
  ///                  first bank that has it wins; other types ignore the flag
  /// \return false when nothing was found
  virtual bool Search(Key* key, IZelBankDef* bank, bool allBanks) = 0;

 protected:
  LibSearch() = default;
  virtual ~LibSearch();
};

}  // namespace zel

#endif  // ZELACCESS_LIBSEARCH_H
