// What all that takes part in one import shares.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "maint/lib_maint.h"
#include "xml/import_bounds.h"
#include "xml/import_ledger.h"
#include "xml/text_checks.h"
#include "xml/unit_words.h"

namespace zel {

// A document in memory with what is known of its arrival.
struct ReadDocument {
  std::string path;
  XmlDocument document;
  std::unique_ptr<DocumentLedger> ledger;
};

struct ImportRun {
  explicit ImportRun(LibMaint_i& maint)
      : owner(maint), log(maint.Log()), unitWords(log), texts(log, maint.ImportChecks()) {}

  LibMaint_i& owner;
  MaintLog& log;
  bool replaceExisting = false;  // an existing item is overwritten, not an error
  UnitWords unitWords;
  TextChecks texts;
  ImportBounds bounds;
  // Full paths of the documents that are open, outermost first.
  std::vector<std::string> openPaths;
  // Documents that are not settled yet.
  std::vector<std::shared_ptr<ReadDocument>> unsettled;
  ZelImportCounts counts;

  enum class Opened : std::uint8_t {
    kOpened,
    kFailed,  // this document alone
    kEnd      // a bound of the whole import was passed
  };
  // Reads the document of a full path; `message` says why not.
  Opened Open(std::string const& path, std::shared_ptr<ReadDocument>& document,
              std::string& message);
  // The text of a <memo>, which has arrived then.
  std::string Memo(XmlNode node);
  // Tells what of the document did not arrive, which is then done with. False when the import must
  // end.
  bool Settle(std::shared_ptr<ReadDocument> const& document);
  // The same for all that are left, and the counts for the host.
  void Finish();
};

}  // namespace zel
