// Documents read into a library and written from one, and the checks of a library.
#include <zelaccess/DataCheck.h>
#include <zelaccess/Interchange.h>
#include <zelaccess/LibMaint_p.h>
#include <zelaccess/Types.h>
#include <zelaccess/Verify.h>

#include <cctype>
#include <filesystem>

#include "library.h"

namespace {

using zelc::Guarded;
using zelc::Need;
using zelc::Refusal;

static_assert(zelc::Agree(ZEL_IMPORT_TOLD, zel::importTold) &&
                  zelc::Agree(ZEL_IMPORT_CHECKED, zel::importChecked) &&
                  zelc::Agree(ZEL_IMPORT_STRICT, zel::importStrict) &&
                  zelc::Agree(ZEL_WARNING, zel::findingWarning) &&
                  zelc::Agree(ZEL_DAMAGE, zel::findingDamage) &&
                  zelc::Agree(ZEL_ERROR, zel::findingError),
              "the numbers are passed on");

// Keeps the errors and warnings of an import, which goes on after an error.
class KeptLog final : public zel::ZelLogSink {
 public:
  explicit KeptLog(zel::LibMaint& maint) : maint_(dynamic_cast<zel::LibMaint_p&>(maint)) {
    maint_.SetLogSink(this);
    maint_.SetLogLevel(1);
  }
  KeptLog(KeptLog const&) = delete;
  KeptLog& operator=(KeptLog const&) = delete;
  ~KeptLog() {
    maint_.SetLogLevel(0);
    maint_.SetLogSink(nullptr);
  }

  void Line(zel::ZelLogLine const& line) override {
    if (line.isError && firstError.empty()) {
      firstError = std::string(line.document) + ": " + line.message;
    }
    zel::desk::Cell number;
    if (line.line != 0) number = std::int64_t{line.line};
    lines.Add(std::string(line.isError ? "error" : "warning"), std::string(line.document), number,
              std::string(line.message));
  }
  void BankBegins(char const* /*type*/, char const* /*name*/) override {}

  zel::desk::Table lines = zelc::EmptyTable("log", {"severity", "document", "line", "message"});
  std::string firstError;

 private:
  zel::LibMaint_p& maint_;
};

// A path that does not depend on the documents that were read before.
std::string WholePath(char const* path, char const* name) {
  std::string const given = zelc::NeedText(path, name);
  return given.empty() ? given : std::filesystem::absolute(given).string();
}

// True if the name is that of a file of a library.
bool IsLibraryFile(std::filesystem::path const& path) {
  std::string ending = path.extension().string();
  for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return ending.size() == 4 && ending.compare(0, 3, ".lb") == 0 && ending[3] >= '1' &&
         ending[3] <= '9';
}

// A path for a document: a library is not overwritten by mistake.
std::string DocumentPath(char const* path) {
  std::string document = WholePath(path, "path");
  if (IsLibraryFile(document) && std::filesystem::exists(document)) {
    throw Refusal(ZEL_FAILED, document + ": is a library, and is not overwritten by a document");
  }
  return document;
}

// Writes a document; the library's own reason is used only if it is from this call.
template <typename Write>
void WriteDocument(zel::LibMaint const& maint, char const* path, Write const& write) {
  std::string const document = DocumentPath(path);
  auto const lastReason = [&]() -> std::string {
    char const* const reason = maint.GetLastErrorText();
    return reason == nullptr ? "" : reason;
  };
  std::string const before = lastReason();
  if (write(document.c_str())) return;
  std::string const after = lastReason();
  throw Refusal(ZEL_FAILED, document + ": " + (after == before ? "cannot be written" : after));
}

// Passes findings on to a function of the host.
class Passed final : public zel::ZelDataFindingSink {
 public:
  Passed(zel_finding_function callback, void* user) : callback_(callback), user_(user) {}

  void Found(zel::zelFindings severity, char const* id, char const* place,
             char const* text) override {
    zel::ZelDataFinding finding;
    finding.severity = severity;
    finding.id = id;
    finding.place = place;
    finding.text = text;
    FoundData(finding);
  }
  void FoundData(zel::ZelDataFinding const& found) override {
    if (callback_ == nullptr) return;
    std::string const texts[] = {zelc::Utf8(found.id), zelc::Utf8(found.place),
                                 zelc::Utf8(found.datum), zelc::Utf8(found.unit),
                                 zelc::Utf8(found.text)};
    auto const orNan = [](double value) {
      return zel::gen_IsUndefDouble(value) ? zelc::kNan : value;
    };
    zel_finding const finding = {found.severity,     texts[0].c_str(),        texts[1].c_str(),
                                 texts[2].c_str(),   texts[3].c_str(),        texts[4].c_str(),
                                 orNan(found.value), orNan(found.temperature)};
    if (callback_(&finding, user_) != 0) throw Refusal(ZEL_STOPPED, "the check was stopped");
  }

 private:
  zel_finding_function callback_;
  void* user_;
};

}  // namespace

zel_status zel_library_import(zel_library* library, char const* path, int32_t replace,
                              int32_t checks, zel_import_counts* counts, zel_table** log) {
  return Guarded([&] {
    if (log != nullptr) *log = nullptr;
    zel::LibMaint& maint = *zelc::NeedUpdate(library).maint;
    std::string const document = WholePath(path, "path");
    auto& wide = dynamic_cast<zel::LibMaint_p&>(maint);
    wide.SetImportChecks(static_cast<zel::zelImportChecks>(
        zelc::NeedAmong(checks, ZEL_IMPORT_UNCHECKED, ZEL_IMPORT_STRICT, "checks")));
    KeptLog kept(maint);
    bool const isGood = maint.Import(document.c_str(), replace != 0);
    zel::ZelImportCounts stored;
    wide.GetImportCounts(stored);
    zelc::Give(kept.lines, log);
    if (counts != nullptr) {
      *counts = {stored.componentsStored, stored.itemsStored, stored.banksStored};
    }
    if (isGood) return;
    throw Refusal(ZEL_FAILED,
                  kept.firstError.empty() ? document + ": cannot be imported" : kept.firstError);
  });
}

zel_status zel_library_export(zel_library* library, char const* path) {
  return Guarded([&] {
    zel::LibMaint& maint = *Need(library, "library").maint;
    WriteDocument(maint, path, [&](char const* document) { return maint.ExportLibrary(document); });
  });
}

zel_status zel_library_export_bank(zel_library* library, char const* type, char const* name,
                                   char const* path) {
  return Guarded([&] {
    zel_library& open = Need(library, "library");
    zelc::NeedBank(open, &Need(type, "type"), &Need(name, "name"));
    WriteDocument(*open.maint, path, [&](char const* document) {
      return open.maint->ExportBank(type, name, document);
    });
  });
}

zel_status zel_document_describe(char const* path, zel_document_facts* facts) {
  return Guarded([&] {
    zel_document_facts& out = Need(facts, "facts");
    out = {};
    std::string const document = WholePath(path, "path");
    zel::ZelDocumentContents contents;
    if (!zel::ReadDocumentContents(document.c_str(), contents)) {
      std::string const line =
          contents.line == 0 ? "" : "line " + std::to_string(contents.line) + ": ";
      throw Refusal(ZEL_FAILED, document + ": " + line + contents.reason);
    }
    out = {contents.banks, contents.items, contents.components, contents.imports};
  });
}

zel_status zel_library_check(zel_library* library, int32_t part, zel_finding_function callback,
                             void* user, int32_t* is_sound) {
  return Guarded([&] {
    zel::LibFile* const file = Need(library, "library").file.get();
    zelc::NeedAmong(part, ZEL_CHECK_STRUCTURE, ZEL_CHECK_DATA, "part");
    Passed passed(callback, user);
    bool const isSound = part == ZEL_CHECK_STRUCTURE
                             ? zel::VerifyLibrary(file, passed)
                             : zel::CheckLibraryData({file, nullptr}, {}, passed);
    if (is_sound != nullptr) *is_sound = isSound ? 1 : 0;
  });
}
