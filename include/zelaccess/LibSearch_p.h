// LibSearch_p: the wider layer of LibSearch.
#ifndef ZELACCESS_LIBSEARCH_P_H
#define ZELACCESS_LIBSEARCH_P_H

#include "zelaccess/LibSearch.h"

namespace zel {

class ZEL_API LibSearch_p : public LibSearch {
 public:
  static void DelLibSearch(LibSearch_p*& search);

  LibSearch_p(LibSearch_p const&) : LibSearch() {}
  LibSearch_p& operator=(LibSearch_p const&) { return *this; }

  virtual void ReservedSearch() = 0;  // does nothing

 protected:
  LibSearch_p() = default;
  ~LibSearch_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_LIBSEARCH_P_H
