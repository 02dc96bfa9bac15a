// Steps of imports and exports: LibMaint.h, Interchange.h and Progress.h.
#include <cstdio>

#include "tests/long/refused_steps.h"

namespace zel::test {
namespace {

class LineCounter final : public ZelLogSink {
 public:
  void Line(ZelLogLine const& line) override {
    ++lines;
    std::snprintf(last, sizeof last, "%s", line.message);
  }
  void BankBegins(char const*, char const*) override { ++banks; }
  int lines = 0;
  int banks = 0;
  char last[400] = {};
};
LineCounter lines;
CancelAt atTheEnd(3);

void Checked(Bench& b) {
  lines = {};
  b.Log().SetLogLevel(1);
  b.Log().SetLogSink(&lines);
  b.Log().SetImportChecks(importStrict);
}
void Cancelled(Bench& b) {
  atTheEnd = CancelAt(3);
  SetProgress(b.library.get(), &atTheEnd);
}
void Followed(Bench& b) {
  atTheEnd = CancelAt(0);
  SetProgress(b.library.get(), &atTheEnd);
}

// An import that fails says why, unless it throws.
void Imported(Bench& b, Outcome& o, bool isGood) {
  o.Done(isGood);
  if (isGood == (b.maint->GetLastErrorText() != nullptr)) o.Add("status and text contradict");
  if (!isGood && b.maint->GetLastErrorText() != nullptr) o.Add(b.maint->GetLastErrorText());
}
void Import(Bench& b, Outcome& o, char const* document) {
  Imported(b, o, b.maint->Import(b.Path(document), true));
}
void Read(Bench& b, Outcome& o, char const* document) {
  ZelDocumentContents contents;
  bool const isRead = ReadDocumentContents(b.Path(document), contents);
  o.Done(isRead);
  for (std::int64_t count :
       {contents.banks, contents.items, contents.components, contents.imports}) {
    o.Add(static_cast<long long>(count));
  }
}

Steps Imports() {
  return {
      {"import a bank", "LibMaint::Import LibMaint::GetLastErrorText", Opens::kUpdate,
       kImports | kOnce, nullptr, [](Bench& b, Outcome& o) { Import(b, o, kBankDocument); }},
      {"import a library", "LibMaint::Import", Opens::kUpdate, kImports | kOnce, nullptr,
       [](Bench& b, Outcome& o) { Import(b, o, kLibraryDocument); }},
      {"import with all checks", "LibMaint::Import LibMaint_p::GetImportCounts", Opens::kUpdate,
       kImports | kOnce, Checked,
       [](Bench& b, Outcome& o) {
         Import(b, o, kLibraryDocument);
         ZelImportCounts counts;
         b.Log().GetImportCounts(counts);
         o.Add(o.HasFailed() ? 0 : static_cast<long long>(counts.itemsStored));
         if (o.HasFailed()) o.Add(lines.last);
       }},
      {"import with a progress", "SetProgress LibMaint::Import", Opens::kUpdate, kImports | kOnce,
       Followed, [](Bench& b, Outcome& o) { Import(b, o, kLibraryDocument); }},
      {"import that is cancelled", "SetProgress LibMaint::Import", Opens::kUpdate, kImports | kOnce,
       Cancelled,
       [](Bench& b, Outcome& o) {
         o.Add(static_cast<long long>(b.maint->Import(b.Path(kLibraryDocument), false)));
       }},
      {"import a document that is damaged", "LibMaint::Import", Opens::kUpdate, kImports, nullptr,
       [](Bench& b, Outcome& o) {
         o.Add(static_cast<long long>(b.maint->Import(b.Path(kDamagedDocument), false)));
         o.Add(static_cast<long long>(b.maint->GetLastErrorText() != nullptr));
       }},
      {"import a component", "LibMaint::ImportComponent", Opens::kUpdate, kImports | kOnce, nullptr,
       [](Bench& b, Outcome& o) {
         Imported(b, o, b.maint->ImportComponent(b.Path(kComponentDocument), kComponents, true));
       }},
      {"contents of a document", "ReadDocumentContents", Opens::kNothing, kParses, nullptr,
       [](Bench& b, Outcome& o) { Read(b, o, kLibraryDocument); }},
      {"name of a file", "GetFileName", Opens::kNothing, kPlain, nullptr,
       [](Bench&, Outcome& o) {
         char file[64] = {};
         zel::GetFileName("Bank-NRTL-with a name that needs memory/x", file, sizeof file);
         o.Add(static_cast<long long>(file[0]));
       }},
      {"contents of a component's document", "ReadDocumentContents", Opens::kNothing, kPlain,
       nullptr, [](Bench& b, Outcome& o) { Read(b, o, kComponentDocument); }},
  };
}

Steps Exports() {
  return {
      {"export the library", "LibMaint::ExportLibrary", Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) { o.Done(b.maint->ExportLibrary(b.Path("out.xml"), true, true)); }},
      {"export the library as it is set", "LibMaint::ExportLibrary", Opens::kUpdate, kPlain,
       nullptr, [](Bench& b, Outcome& o) { o.Done(b.maint->ExportLibrary(b.Path("out.xml"))); }},
      {"export a bank", "LibMaint::ExportBank", Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         o.Done(b.maint->ExportBank("VANLAAR", kPairs, b.Path("bank.xml"), false, false));
       }},
      {"export a bank of components", "LibMaint::ExportBank", Opens::kRead, kPlain, Followed,
       [](Bench& b, Outcome& o) {
         o.Done(b.maint->ExportBank("PURECOMP", kComponents, b.Path("bank.xml"), true, true));
       }},
      {"export a component by number", "LibMaint::ExportComponentByNumber", Opens::kRead, kPlain,
       nullptr,
       [](Bench& b, Outcome& o) {
         o.Done(b.maint->ExportComponentByNumber(kComponents, kFirst + 1, b.Path("comp.xml")));
       }},
      {"export a component by ID", "LibMaint::ExportComponentById", Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         o.Done(b.maint->ExportComponentById(kComponents, "C1", b.Path("comp.xml"), true));
       }},
  };
}

}  // namespace

Steps DocumentSteps() {
  Steps steps = Imports();
  for (Step const& step : Exports()) steps.push_back(step);
  return steps;
}

}  // namespace zel::test
