// Import_i: reads the interchange format into an open library.
//
// Each import has its own object. Items are stored one by one: what has been read stays in the
// library, even if the import fails later.
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
  // The root is one component, whose bank is made if it does not exist.
  bool ImportComponent(char const* path, char const* bankName, bool replaceExisting);
  bool IsCancelled() const noexcept { return run_.progress.IsCancelled(); }
  // Reports that all is done.
  void EndProgress() noexcept { run_.progress.End(); }
  ZelImportCounts const& Counts() const noexcept { return run_.counts; }

 private:
  template <typename Walk>
  bool Run(char const* path, bool replaceExisting, Walk const& walk);
  Verdict WalkLibrary(XmlNode library);
  Verdict TakeText(XmlNode node, std::size_t match);
  Verdict WalkBank(XmlNode bank);
  // Returns the reason why the bank cannot be made; empty on success.
  std::string MakeBank(XmlNode bank, BankAttributes const& attributes);

  ImportRun run_;
};

}  // namespace zel
