// Exports of LibMaint.
#include "maint/lib_maint.h"

namespace zel {

bool LibMaint_i::ExportLibrary(char const*, bool, bool) { return false; }
bool LibMaint_i::ExportBank(char const*, char const*, char const*, bool, bool) { return false; }
bool LibMaint_i::ExportComponentByNumber(char const*, std::int32_t, char const*, bool) {
  return false;
}
bool LibMaint_i::ExportComponentById(char const*, char const*, char const*, bool) { return false; }

// Forms without a switch take the stored one.
bool LibMaint_i::ExportLibrary(char const* path, bool writeBanner) {
  return ExportLibrary(path, writeBanner, componentFiles_);
}
bool LibMaint_i::ExportLibrary(char const* path) { return ExportLibrary(path, writeBanner_); }
bool LibMaint_i::ExportBank(char const* type, char const* name, char const* path,
                            bool writeBanner) {
  return ExportBank(type, name, path, writeBanner, componentFiles_);
}
bool LibMaint_i::ExportBank(char const* type, char const* name, char const* path) {
  return ExportBank(type, name, path, writeBanner_);
}
bool LibMaint_i::ExportComponentByNumber(char const* bankName, std::int32_t number,
                                         char const* path) {
  return ExportComponentByNumber(bankName, number, path, writeBanner_);
}
bool LibMaint_i::ExportComponentById(char const* bankName, char const* id, char const* path) {
  return ExportComponentById(bankName, id, path, writeBanner_);
}

}  // namespace zel
