#include "desk/formats/formats.h"

#include <algorithm>

#include "desk/words/failure.h"

namespace zel::desk {

std::vector<ForeignFormat> const& ForeignFormats() {
  static std::vector<ForeignFormat> const formats = {
      {"chemsep", "the XML of pure components that several simulators share", ReadChemsep, false},
  };
  return formats;
}

ForeignFormat const& ForeignFormatNamed(std::string const& name) {
  auto const& formats = ForeignFormats();
  auto const at = std::find_if(formats.begin(), formats.end(),
                               [&](ForeignFormat const& one) { return one.name == name; });
  if (at != formats.end()) return *at;
  std::string names;
  for (ForeignFormat const& one : formats)
    names += (names.empty() ? "" : ", ") + std::string(one.name);
  throw WrongUsage("\"" + name + "\" is not a format; there are " + names);
}

}  // namespace zel::desk
