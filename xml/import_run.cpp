#include "xml/import_run.h"

#include <algorithm>

#include "frame/platform/text_file.h"
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
  std::string text;
  platform::ReadResult const read = platform::ReadTextFile(path, text);
  if (read == platform::ReadResult::kMissing) {
    message = "Unable to locate" + title;
    return Opened::kFailed;
  }
  if (read != platform::ReadResult::kRead) return fail("it cannot be read");
  if (std::string_view const bound = bounds.Take(path, text.size()); !bound.empty()) {
    message = "Import ended at" + title + ": " + std::string(bound);
    return Opened::kEnd;
  }
  if (openPaths.size() >= ImportBounds::kMostOpenDocuments) {
    return fail("more than 100 documents within each other");
  }
  auto opened = std::make_shared<ReadDocument>();
  if (!opened->document.Load(text)) {
    XmlProblem const& problem = opened->document.Problem();
    if (texts.On() || problem.toldAlways) {
      if (problem.line > 0) message += ", line " + std::to_string(problem.line);
      if (!problem.reason.empty()) message += ": " + problem.reason;
    }
    return Opened::kFailed;
  }
  opened->path = path;
  opened->ledger = std::make_unique<DocumentLedger>(opened->document);
  openPaths.push_back(path);
  unsettled.push_back(opened);
  document = std::move(opened);
  return Opened::kOpened;
}

std::string ImportRun::Memo(XmlNode node) {
  std::string scratch;
  std::string_view const text = node.Text(scratch);
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
  DocumentLedger const& ledger = *settled->ledger;
  counts.itemsFound += ledger.Found(DocumentLedger::kItem);
  counts.itemsStored += ledger.Stored(DocumentLedger::kItem);
  counts.componentsFound += ledger.Found(DocumentLedger::kComponent);
  counts.componentsStored += ledger.Stored(DocumentLedger::kComponent);
  counts.banksFound += ledger.Found(DocumentLedger::kBank);
  counts.banksStored += ledger.Stored(DocumentLedger::kBank);
  counts.textsFound += ledger.Found(DocumentLedger::kText);
  counts.textsStored += ledger.Stored(DocumentLedger::kText);
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

void ImportRun::Finish() {
  while (!unsettled.empty()) {
    std::shared_ptr<ReadDocument> const document = unsettled.back();
    Documents().Push(document->path);
    Verdict const verdict = Settle(document);
    Documents().Pop();
    if (verdict == Verdict::kStop) break;
  }
  counts.documents = bounds.Documents();
  counts.malformedNumbers = texts.MalformedCount();
  counts.alteredTexts = texts.AlteredCount();
  counts.errors = log.ErrorCount();
  counts.warnings = log.WarningCount();
}

}  // namespace zel
