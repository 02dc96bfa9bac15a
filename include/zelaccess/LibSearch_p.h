/// \file
/// LibSearch_p: the wider layer of LibSearch.
#ifndef ZELACCESS_LIBSEARCH_P_H
#define ZELACCESS_LIBSEARCH_P_H

#include "zelaccess/LibSearch.h"

namespace zel {

/// The wider layer of a search: every LibSearch is one of these, which dynamic_cast returns.
/// Threads as in LibSearch.
class ZEL_API LibSearch_p : public LibSearch {
 public:
  /// Ends the search and nulls the handle.
  /// \param search  the handle; null does nothing
  static void DelLibSearch(LibSearch_p*& search);

  /// Copies no data: these are handles.
  LibSearch_p(LibSearch_p const&) : LibSearch() {}
  /// Copies nothing.
  /// \return this object
  LibSearch_p& operator=(LibSearch_p const&) { return *this; }

  /// Reserved; does nothing.
  virtual void ReservedSearch() = 0;

 protected:
  LibSearch_p() = default;
  ~LibSearch_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_LIBSEARCH_P_H
