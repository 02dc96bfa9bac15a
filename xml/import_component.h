// Reads the components of one bank from `comp` elements.
//
// An element of a component that cannot be read is reported and, if the import may continue,
// skipped; the component is written without it. A component without an identity is not written at
// all.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "maint/face_ref.h"
#include "store/key.h"
#include "xml/import_iterator.h"
#include "zelaccess/PureComp.h"

namespace zel {

class ComponentImport {
 public:
  ComponentImport(ImportRun& run, std::string_view bankName);

  // Reads the memo and the components of a bank that was just made.
  Verdict WalkBank(XmlNode bank);
  // Reads one component, whose bank is made if it does not exist.
  Verdict ImportAlone(XmlNode component);

 private:
  Verdict WalkComponent(XmlNode component);
  Verdict StoreComponent(XmlNode component);
  // Checks that an element is the first of its kind.
  void CheckFirst(XmlNode node, std::string_view kind, std::uint32_t index, std::string_view key);

  // Read elements of a component; false ends the component, and nothing of it is written.
  Verdict ReadElement(std::size_t element, XmlNode node);
  Verdict ReadPhase(XmlNode node);
  Verdict ReadSmiles(XmlNode node);
  Verdict ReadStructure(XmlNode node);
  // import_component_id.cpp
  Verdict ReadIdentity(XmlNode node);
  // import_component_data.cpp
  Verdict ReadProperty(XmlNode node);
  Verdict ReadCorrelation(XmlNode node);

  Verdict Report(std::string_view message) { return run_.log.ReportError(message); }
  // Reports that a word is not one of the known ones, with a kind and name if they are given.
  Verdict Unrecognized(std::string_view what, std::string_view word, std::string_view kind = {},
                       std::string_view name = {});

  ImportRun& run_;
  std::string bankName_;
  bool checksFormulas_;
  FaceRef<IZelBankDef> record_;
  FaceRef<IZelPureComp> component_;
  Key_i key_;
  std::int32_t number_ = 0;  // 0 until the identity was read
  // The elements of the component read so far, by kind and index; kept only if texts are checked.
  std::set<std::pair<std::string_view, std::uint32_t>> seen_;
  bool identityRefused_ = false;
};

}  // namespace zel
