// The state that all parts of one import share.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "maint/lib_maint.h"
#include "xml/import_bounds.h"
#include "xml/import_ledger.h"
#include "xml/import_progress.h"
#include "xml/text_checks.h"
#include "xml/unit_words.h"

namespace zel {

// A document that is read, with a record of what was stored.
struct ReadDocument {
  std::string path;
  DocumentText text;
  XmlDocument document;
  DocumentLedger ledger;

  // Reads what the walk has not reached, so that the ledger is complete, and releases everything
  // except the ledger. Throws XmlDocumentChanged.
  void Finish() {
    document.Finish();
    text.Close();
  }
};

struct ImportRun {
  explicit ImportRun(LibMaint_i& maint)
      : owner(maint),
        log(maint.Log()),
        progress(maint.Library()->Progress()),
        unitWords(log),
        texts(log, maint.ImportChecks()) {}

  LibMaint_i& owner;
  MaintLog& log;
  ImportProgress progress;
  bool replaceExisting = false;  // an existing item is overwritten, not an error
  UnitWords unitWords;
  TextChecks texts;
  ImportBounds bounds;
  // Full paths of the documents that are open, outermost first.
  std::vector<std::string> openPaths;
  // Documents that are not settled yet.
  std::vector<std::shared_ptr<ReadDocument>> unsettled;
  ZelImportCounts counts;
  bool anyChanged = false;

  enum class Opened : std::uint8_t {
    kOpened,
    kFailed,  // only this document
    kEnd      // of the whole import: a bound was exceeded, or the host cancelled
  };
  // Reads the document with a full path; on failure `message` says why.
  Opened Open(std::string const& path, std::shared_ptr<ReadDocument>& document,
              std::string& message);
  // Returns the text of a <memo> and marks it as stored.
  std::string Memo(XmlNode node);
  // Reports that the host cancelled the import.
  void ReportCancelled();
  // Reports that a document changed while it was read, which ends the import, unless the host
  // ended the reading.
  void ReportChange(XmlDocumentChanged const& changed);
  // Reports what of the document was not stored, and drops the document.
  Verdict Settle(std::shared_ptr<ReadDocument> const& document);
  // Does this for all remaining documents, and completes the counts for the host.
  void Finish();
};

}  // namespace zel
