// The smallest host: gets the bank types and the version of the library, which is that of the
// headers and of the package.
#include <zelaccess/ZelAccess.h>

#include <string>

int main() {
  if (zel::GetBankTypeCount() != 50) return 1;
  std::string const version = zel::GetZelAccessVersion();
  std::string const parts = std::to_string(ZELACCESS_VERSION_MAJOR) + "." +
                            std::to_string(ZELACCESS_VERSION_MINOR) + "." +
                            std::to_string(ZELACCESS_VERSION_PATCH);
  return version == ZELACCESS_VERSION && version == parts && version == PACKAGE_VERSION ? 0 : 2;
}
