// Import_i: the interchange form read into an open library.
//
// One object lives for one import. Work is done item by item: what has been read is in the library,
// also when the import breaks off further on.
#pragma once

#include "xml/import_run.h"
#include "xml/xml_document.h"

namespace zel {

struct BankAttributes;

class Import_i {
 public:
  explicit Import_i(LibMaint_i& owner) : run_(owner) {}

  // The root is a library or a bank, which must be new. True when no error was reported.
  bool Import(char const* path, bool replaceExisting);
  // The root is one component, whose bank is made when it is not there.
  bool ImportComponent(char const* path, char const* bankName, bool replaceExisting);
  ZelImportCounts const& Counts() const noexcept { return run_.counts; }

 private:
  bool OpenDocument(char const* path, bool replaceExisting);
  bool WalkLibrary(XmlNode library);
  bool TakeText(XmlNode node, std::size_t match);
  bool WalkBank(XmlNode bank);
  // Gives what stands in the way, or nothing.
  std::string MakeBank(XmlNode bank, BankAttributes const& attributes);
  bool Finish();

  ImportRun run_;
  XmlNode root_;
};

}  // namespace zel
