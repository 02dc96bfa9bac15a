#include "xml/import_run.h"

#include <algorithm>

#include "maint/document_stack.h"
#include "xml/import_text.h"

namespace zel {

// Without checks, a reason is added to a message only if a bound was exceeded; all other messages
// are those that hosts know.
ImportRun::Opened ImportRun::Open(std::string const& path, std::shared_ptr<ReadDocument>& document,
                                  std::string& message) {
  std::string const title = " XML document \"" + path + "\"";
  message = "Format error in" + title;
  auto const fail = [&](std::string_view why) {
    if (texts.On()) message.append(": ").append(why);
    return Opened::kFailed;
  };
  // A document that is already open would be read again without end.
  if (std::find(openPaths.begin(), openPaths.end(), path) != openPaths.end()) {
    return fail("it imports itself");
  }
  auto opened = std::make_shared<ReadDocument>();
  platform::ReadResult const read = opened->text.Open(path);
  if (read == platform::ReadResult::kMissing) {
    message = "Unable to locate" + title;
    return Opened::kFailed;
  }
  if (read != platform::ReadResult::kRead) return fail("it cannot be read");
  if (std::string_view const bound = bounds.Take(path, opened->text.Size()); !bound.empty()) {
    message = "Import ended at" + title + ": " + std::string(bound);
    return Opened::kEnd;
  }
  if (openPaths.size() >= ImportBounds::kMostOpenDocuments) {
    return fail("more than 100 documents within each other");
  }
  if (!progress.Open(opened->text)) return Opened::kEnd;
  opened->document.Watch(opened->ledger);
  if (texts.On()) opened->ledger.KeepDifferences();
  if (!opened->document.Load(opened->text)) {
    if (progress.IsCancelled()) return Opened::kEnd;
    if (opened->text.HasFailed()) return fail("it cannot be read");
    XmlProblem const& problem = opened->document.Problem();
    if (texts.On() || problem.toldAlways) {
      if (problem.line > 0) message += ", line " + std::to_string(problem.line);
      if (!problem.reason.empty()) message += ": " + problem.reason;
    }
    return Opened::kFailed;
  }
  opened->path = path;
  openPaths.push_back(path);
  unsettled.push_back(opened);
  document = std::move(opened);
  return Opened::kOpened;
}

std::string ImportRun::Memo(XmlNode node) {
  std::string_view const text = node.Text();
  bool lost = false;
  std::string memo = MemoText(text, lost);
  if (lost) texts.Altered(node, text, memo);
  DocumentLedger::Arrived(node);
  return memo;
}

// An import that ended at its first error has left out all the rest; this needs no further report.
Verdict ImportRun::Settle(std::shared_ptr<ReadDocument> const& document) {
  auto const at = std::find(unsettled.begin(), unsettled.end(), document);
  if (at == unsettled.end()) return Verdict::kGoOn;
  std::shared_ptr<ReadDocument> const settled = *at;
  unsettled.erase(at);
  settled->Finish();
  DocumentLedger& ledger = settled->ledger;
  counts.itemsFound += ledger.Found(DocumentLedger::kItem);
  counts.itemsStored += ledger.Stored(DocumentLedger::kItem);
  counts.componentsFound += ledger.Found(DocumentLedger::kComponent);
  counts.componentsStored += ledger.Stored(DocumentLedger::kComponent);
  counts.banksFound += ledger.Found(DocumentLedger::kBank);
  counts.banksStored += ledger.Stored(DocumentLedger::kBank);
  counts.textsFound += ledger.Found(DocumentLedger::kLibraryText);
  counts.textsStored += ledger.Stored(DocumentLedger::kLibraryText);
  counts.importsFound += ledger.Found(DocumentLedger::kImport);
  counts.importsFollowed += ledger.Stored(DocumentLedger::kImport);
  if (!texts.On() || (log.IsSilent() && log.HasErrors())) return Verdict::kGoOn;
  for (DocumentLedger::Difference const& difference : ledger.Differences()) {
    log.SetItemLabel("");
    LogDetail const detail = {logLostPart, difference.line, {}, {}};
    // After an error, a missing part is not reported as another error.
    if (!texts.Refuses() || log.HasErrors()) {
      log.ReportWarning(difference.text, detail);
    } else if (log.ReportError(difference.text, detail) == Verdict::kStop) {
      return Verdict::kStop;
    }
  }
  return Verdict::kGoOn;
}

// Without checks, the reason is not reported, as for any document that cannot be read as a whole.
void ImportRun::ReportChange(XmlDocumentChanged const& changed) {
  if (anyChanged || progress.IsCancelled()) return;
  anyChanged = true;
  log.SetItemLabel("");
  log.ReportError("Format error in XML document \"" + changed.path + "\"" +
                  (texts.On() ? ": it changed while it was read" : ""));
}

void ImportRun::ReportCancelled() {
  log.SetItemLabel("");
  log.ReportError("Import was cancelled", {logCancelled, 0, {}, {}});
}

// Nothing of a cancelled import is stored, and its documents are not read to their ends.
void ImportRun::Finish() {
  if (progress.IsCancelled()) {
    unsettled.clear();
    counts = {};
    ReportCancelled();
  }
  while (!unsettled.empty()) {
    std::shared_ptr<ReadDocument> const document = unsettled.back();
    Documents().Push(document->path);
    try {
      Settle(document);  // all of them, so that the counts are complete
    } catch (XmlDocumentChanged const& changed) {
      ReportChange(changed);
    }
    Documents().Pop();
  }
  counts.documents = bounds.Documents();
  counts.malformedNumbers = texts.MalformedCount();
  counts.alteredTexts = texts.AlteredCount();
  counts.errors = log.ErrorCount();
  counts.warnings = log.WarningCount();
}

}  // namespace zel
