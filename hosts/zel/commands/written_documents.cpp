#include "commands/written_documents.h"

#include <zelaccess/Interchange.h>

#include <algorithm>

#include "commands/command.h"
#include "desk/files/folder.h"
#include "desk/files/input_file.h"
#include "desk/files/output_file.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/words/failure.h"

namespace zelhost {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestFileName = 255;

zel::ZelDocumentContents ContentsOf(fs::path const& document) {
  zel::ZelDocumentContents contents;
  zel::ReadDocumentContents(document.string().c_str(), contents);
  return contents;
}

std::size_t ItemsOf(Library const& library, BankName const& bank) {
  zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
  return item ? Keys(library, bank, *item).size() : 0;
}

// The only control characters that XML allows are the tab and line ends.
bool IsNotInXml(char c) { return c >= 0 && c < ' ' && c != '\t' && c != '\n' && c != '\r'; }

// Removes the characters that XML cannot hold, which only memos can have, and returns their number.
std::int64_t LeaveOutControls(fs::path const& document) {
  std::ifstream file = OpenInput(document);
  std::string text(std::istreambuf_iterator<char>(file), {});
  auto const end = std::remove_if(text.begin(), text.end(), IsNotInXml);
  std::int64_t const count = text.end() - end;
  text.erase(end, text.end());
  if (count > 0) WriteFile(document.string(), text);
  return count;
}

// Adds findings, with their number as a fact.
void Tell(Session& session, Report& report, char const* fact, Table const& findings) {
  if (findings.Empty()) return;
  report.Fact(fact, static_cast<std::int64_t>(findings.Rows().size()));
  report.Add(findings);
  session.exitStatus = 1;
}

}  // namespace

std::string FileNameOf(std::string const& name) {
  char file[kLongestFileName + 1];
  zel::GetFileName(name.c_str(), file, sizeof(file));
  return file;
}

void ReportUnreadable(Session& session, Report& report, fs::path const& folder) {
  Table table("unreadable", {{"document", ""}, {"line", ""}, {"why", ""}});
  std::int64_t leftOut = 0;
  std::vector<fs::path> documents;
  for (std::string const& name : NamesIn(folder)) documents.push_back(Inside(folder, name));
  std::sort(documents.begin(), documents.end());
  for (fs::path const& document : documents) {
    zel::ZelDocumentContents contents = ContentsOf(document);
    if (contents.readable) continue;
    if (std::int64_t const count = LeaveOutControls(document); count > 0) {
      leftOut += count;
      contents = ContentsOf(document);
      if (contents.readable) continue;
    }
    table.Add(document.filename().string(), std::int64_t{contents.line},
              std::string(contents.reason));
  }
  if (leftOut > 0) report.Fact(kControlsLeftOut, leftOut);
  Tell(session, report, "cannot be read back", table);
}

void ReportMissing(Session& session, Report& report, Library const& library,
                   std::vector<BankName> const& banks, fs::path const& folder, fs::path const& name,
                   bool isSingle) {
  Table table("missing", {{"bank", ""}, {"items", ""}, {"written", ""}});
  std::string const extension = name.has_extension() ? name.extension().string() : ".xml";
  for (BankName const& bank : banks) {
    std::string const usual = FileNameOf("Bank-" + bank.type + "-" + bank.name + extension);
    fs::path const document = Inside(folder, isSingle && !name.empty() ? name.string() : usual);
    zel::ZelDocumentContents const contents = ContentsOf(document);
    if (!contents.readable) continue;
    // A component is in the document of its bank, or in one of its own that this one imports.
    auto const written = contents.items + contents.components + contents.imports;
    auto const items = static_cast<std::int64_t>(ItemsOf(library, bank));
    if (written != items) table.Add(ToText(bank), items, written);
  }
  Tell(session, report, "banks not whole", table);
}

}  // namespace zelhost
