// Counts what a document holds, for hosts.
#include "frame/ascii.h"
#include "frame/file_name.h"
#include "xml/import_ledger.h"
#include "xml/xml_document.h"
#include "zelaccess/Interchange.h"

namespace zel {

namespace {

// False, with the reason in `contents`, if the document cannot be read.
bool ReadContents(std::string const& path, DocumentLedger& ledger, ZelDocumentContents& contents) {
  auto const fail = [&](std::string_view reason) {
    CopyText(reason, contents.reason, sizeof contents.reason);
    return false;
  };
  DocumentText text;
  platform::ReadResult const read = text.Open(path);
  if (read == platform::ReadResult::kMissing) return fail("not found");
  if (read != platform::ReadResult::kRead) return fail("cannot be read");
  XmlDocument document;
  document.Watch(ledger);
  try {
    if (!document.Load(text)) {
      contents.line = document.Problem().line;
      return fail(text.HasFailed() ? "cannot be read" : document.Problem().reason);
    }
    document.Finish();
  } catch (XmlDocumentChanged const&) {
    return fail("it changed while it was read");
  }
  return true;
}

}  // namespace

bool ReadDocumentContents(char const* path, ZelDocumentContents& contents) {
  contents = {};
  DocumentLedger ledger;
  contents.readable = ReadContents(std::string(TextOrEmpty(path)), ledger, contents);
  if (!contents.readable) return false;
  contents.banks = ledger.Found(DocumentLedger::kBank);
  contents.items = ledger.Found(DocumentLedger::kItem);
  contents.components = ledger.Found(DocumentLedger::kComponent);
  contents.imports = ledger.Found(DocumentLedger::kImport);
  return true;
}

void GetFileName(char const* name, char* file, std::size_t size) {
  GiveText(FileNameOf(TextOrEmpty(name)), file, size);
}

}  // namespace zel
