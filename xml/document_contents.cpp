// Counts what a document holds, for hosts.
#include "frame/ascii.h"
#include "frame/platform/text_file.h"
#include "xml/import_ledger.h"
#include "xml/xml_document.h"
#include "zelaccess/Interchange.h"

namespace zel {

bool ReadDocumentContents(char const* path, ZelDocumentContents& contents) {
  contents = {};
  std::string text;
  platform::ReadResult const read = platform::ReadTextFile(std::string(TextOrEmpty(path)), text);
  XmlDocument document;
  if (read != platform::ReadResult::kRead) {
    CopyText(read == platform::ReadResult::kMissing ? "not found" : "cannot be read",
             contents.reason, sizeof contents.reason);
  } else if (!document.Load(text)) {
    contents.line = document.Problem().line;
    CopyText(document.Problem().reason, contents.reason, sizeof contents.reason);
  } else {
    DocumentLedger const ledger(document);
    contents.readable = true;
    contents.banks = ledger.Found(DocumentLedger::kBank);
    contents.items = ledger.Found(DocumentLedger::kItem);
    contents.components = ledger.Found(DocumentLedger::kComponent);
    contents.imports = ledger.Found(DocumentLedger::kImport);
  }
  return contents.readable;
}

}  // namespace zel
