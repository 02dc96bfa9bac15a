#include "desk/formats/formats.h"

#include <algorithm>

#include "desk/formats/nasa.h"
#include "desk/words/failure.h"

namespace zel::desk {

std::vector<ForeignFormat> const& ForeignFormats() {
  static std::vector<ForeignFormat> const formats = {
      {"chemsep", "the XML of pure components that several simulators share", ReadChemsep, false},
      {"coolprop", "fluids in JSON", ReadCoolProp, false},
      {"nasa", "polynomials of ideal gases with 7 or 9 coefficients", ReadNasa, true},
  };
  return formats;
}

ForeignFormat const& ForeignFormatNamed(std::string const& name) {
  auto const& formats = ForeignFormats();
  auto const at = std::find_if(formats.begin(), formats.end(),
                               [&](ForeignFormat const& one) { return one.name == name; });
  if (at != formats.end()) return *at;
  std::string names;
  for (FormatName const& one : AllFormats()) names += (names.empty() ? "" : ", ") + one.name;
  throw WrongUsage("\"" + name + "\" is not a format; there are " + names);
}

std::vector<FormatName> AllFormats() {
  std::vector<FormatName> all;
  for (ForeignFormat const& one : ForeignFormats()) all.push_back({one.name, one.what});
  all.push_back({kSqliteFormat, "libraries as databases, which export --sqlite writes"});
  return all;
}

}  // namespace zel::desk
