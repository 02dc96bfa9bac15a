// Operations that stand in the interface and are not offered yet: they give false, or nothing.
// Pure components, their identity checks, interchange and text dumps come with their own sources.
#include "maint/lib_maint.h"

namespace zel {

void LibMaint_i::GetIdOfNumber(std::int32_t, char* id, bool& fromNameIndex) {
  fromNameIndex = false;
  *id = '\0';
}

void LibMaint_i::GetIdOfNumber(std::int32_t number, char* id) {
  bool fromNameIndex = false;
  GetIdOfNumber(number, id, fromNameIndex);
}

void LibMaint_i::GetCasOfNumber(std::int32_t, casn& cas, bool& fromNameIndex) {
  fromNameIndex = false;
  cas = casn();
}

void LibMaint_i::GetCasOfNumber(std::int32_t number, casn& cas) {
  bool fromNameIndex = false;
  GetCasOfNumber(number, cas, fromNameIndex);
}

bool LibMaint_i::CheckComponent(IZelPureComp*, Key*, char*) { return false; }
bool LibMaint_i::CheckComponent(IZelPureComp*, char*) { return false; }

char const* LibMaint_i::GetLastErrorText() const {
  return errorFlag_ ? lastError_.c_str() : nullptr;
}

bool LibMaint_i::Import(char const*, bool) { return false; }
bool LibMaint_i::ImportComponent(char const*, char const*, bool) { return false; }
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

void LibMaint_i::WriteTextDump(LibFile*) {}

}  // namespace zel
