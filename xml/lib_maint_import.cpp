// Imports of LibMaint.
#include "maint/lib_maint.h"
#include "xml/import.h"

namespace zel {

bool LibMaint_i::Import(char const* path, bool replaceExisting) {
  return library_ != nullptr && Import_i(*this).Import(path, replaceExisting);
}

bool LibMaint_i::ImportComponent(char const* path, char const* bankName, bool replaceExisting) {
  return library_ != nullptr && Import_i(*this).ImportComponent(path, bankName, replaceExisting);
}

}  // namespace zel
