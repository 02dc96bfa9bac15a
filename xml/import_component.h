// Components of one bank, read from `comp` elements.
#pragma once

#include <string>
#include <string_view>

#include "xml/import_iterator.h"

namespace zel {

class ComponentImport {
 public:
  ComponentImport(ImportRun& run, std::string_view bankName) : run_(run), bankName_(bankName) {}

  // The memo and the components of a bank that has just been made. False when the import must end.
  bool WalkBank(XmlNode bank);
  // One component, whose bank is made when it is not there.
  bool ImportAlone(XmlNode component);

 private:
  ImportRun& run_;
  std::string bankName_;
};

}  // namespace zel
