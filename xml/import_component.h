// Components of one bank, read from `comp` elements.
//
// An element of a component that cannot be read is reported and passed over, when the verdict lets
// the import go on; the component is written without it. Without an identity it is not written at
// all.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "maint/held.h"
#include "store/key.h"
#include "xml/import_iterator.h"
#include "zelaccess/PureComp.h"

namespace zel {

class ComponentImport {
 public:
  ComponentImport(ImportRun& run, std::string_view bankName);

  // The memo and the components of a bank that has just been made. False when the import must end.
  bool WalkBank(XmlNode bank);
  // One component, whose bank is made when it is not there.
  bool ImportAlone(XmlNode component);

 private:
  bool WalkComponent(XmlNode component);
  bool StoreComponent(XmlNode component);
  // Checks that an element is the first of its kind.
  void CheckFirst(XmlNode node, std::string_view kind, std::uint32_t index, std::string_view key);

  // Elements of a component; false ends it, and nothing of it is written.
  bool ReadElement(std::size_t element, XmlNode node);
  bool ReadPhase(XmlNode node);
  bool ReadSmiles(XmlNode node);
  bool ReadStructure(XmlNode node);
  // import_component_id.cpp
  bool ReadIdentity(XmlNode node);
  // import_component_data.cpp
  bool ReadProperty(XmlNode node);
  bool ReadCorrelation(XmlNode node);

  bool Report(std::string_view message) { return run_.log.ReportError(message); }
  // Says that a word is none of those that are known, of a kind and name when one is given.
  bool Unrecognized(std::string_view what, std::string_view word, std::string_view kind = {},
                    std::string_view name = {});

  ImportRun& run_;
  std::string bankName_;
  bool checksFormulas_;
  Held<IZelBankDef> record_;
  Held<IZelPureComp> component_;
  Key_i key_;
  std::int32_t number_ = 0;  // 0 until the identity was read
  // What of the component has been read, by kind and index; kept only where texts are checked.
  std::set<std::pair<std::string_view, std::uint32_t>> seen_;
  bool identityRefused_ = false;
};

}  // namespace zel
