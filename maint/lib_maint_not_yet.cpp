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

void LibMaint_i::WriteTextDump(LibFile*) {}

}  // namespace zel
