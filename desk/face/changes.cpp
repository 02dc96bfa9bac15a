#include <zelaccess/DeskChanges.h>
#include <zelaccess/LibMaint_p.h>

#include <filesystem>
#include <system_error>
#include <utility>

#include "desk/change/library_change.h"
#include "desk/change/undo.h"
#include "desk/combine/merge.h"
#include "desk/combine/renumber.h"
#include "desk/compare/library_difference.h"
#include "desk/edit/item_edit.h"
#include "desk/face/data.h"
#include "desk/face/guarded.h"
#include "desk/open/members.h"
#include "desk/open/unfinished_change.h"
#include "desk/tables/table_import.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {

struct ChangeData {
  Session session;
  std::string path;
  std::optional<LibraryChange> change;
  std::vector<Finding> findings;  // about what was written
};

namespace {

ChangeOptions OptionsOf(ChangeSettings const& settings) {
  ChangeOptions options;
  options.password = settings.password;
  options.dryRun = settings.dryRun;
  options.keep = settings.keep;
  return options;
}

void Prepare(Session& session, ChangeSettings const& settings) {
  session.patience = PatienceOf(settings.waitSeconds);
  session.units = DisplayUnits(settings.units);
  session.command = settings.command;
  session.namesPath = settings.names;
  OpenNames(session);
}

// Begins a change with `begin`, which is passed the session.
template <typename Begin>
std::unique_ptr<ChangeData> Begun(std::string const& path, ChangeSettings const& settings,
                                  Begin const& begin) {
  auto data = std::make_unique<ChangeData>();
  data->path = path;
  Guarded(data->session, [&] {
    zel::InitZelAccess();
    Prepare(data->session, settings);
    data->change.emplace(begin(data->session));
  });
  return data;
}

CurveEdit CurveOf(EditSettings const& settings) {
  return {settings.equation,        settings.coefficients, settings.range, settings.valueUnit,
          settings.temperatureUnit, settings.logarithm,    settings.basis};
}

zel::zelImportChecks ChecksNamed(std::string const& word) {
  if (word == "lenient") return zel::importTold;
  if (word == "checked") return zel::importChecked;
  if (word == "strict") return zel::importStrict;
  throw UnknownWord("", "checks are lenient, checked or strict, not " + word);
}

// Keeps the first error and the warnings of an import.
class KeptLog final : public zel::ZelLogSink {
 public:
  void Line(zel::ZelLogLine const& line) override {
    std::string const message = line.message;
    if (!line.isError) {
      warnings.Add(std::string(line.document),
                   line.line == 0 ? Cell() : Cell(std::int64_t{line.line}), message);
    } else if (error.empty()) {
      error = message;
    }
  }
  void BankBegins(char const* /*type*/, char const* /*name*/) override {}

  std::string error;
  Table warnings{"log", {{"document", ""}, {"line", ""}, {"message", ""}}};
};

bool AreSame(std::string const& one, std::string const& other) {
  std::error_code none;
  return std::filesystem::equivalent(one, other, none);
}

}  // namespace

Change::Change(std::unique_ptr<ChangeData> data) : data_(std::move(data)) {}
Change::Change(std::string const& library, ChangeSettings const& settings)
    : data_(Begun(library, settings, [&](Session& session) {
        return LibraryChange(session, library, OptionsOf(settings));
      })) {}
Change Change::New(std::string const& library, ChangeSettings const& settings) {
  return Change(Begun(library, settings, [&](Session& session) {
    if (std::filesystem::exists(library)) throw Error(library, "exists");
    return LibraryChange::New(session, library, {}, OptionsOf(settings));
  }));
}
Change::Change(Change&&) noexcept = default;
Change& Change::operator=(Change&&) noexcept = default;
Change::~Change() = default;

ChangeData& Change::Data() const {
  if (!data_ || !data_->change) throw Error("", "this change is committed, or was moved from");
  return *data_;
}

Table Change::Edit(std::vector<std::string> const& words, EditSettings const& settings) {
  ChangeData& data = Data();
  return Guarded(data.session, [&] {
    std::optional<Library> from;
    if (AreSame(settings.from, data.path)) throw Error(settings.from, "is the library to edit");
    if (!settings.from.empty()) from.emplace(OpenFinished(data.session, settings.from));
    Library const* const source = from ? &*from : nullptr;
    ItemEdit edit = EditOf(data.change->Open(), source, words);
    edit.unset = settings.unset;
    edit.code = settings.code;
    edit.curve = CurveOf(settings);
    EditedItem const edited = EditItem(data.change->Open(), edit, source);
    Append(data.findings, edited.findings);
    return InDisplayUnits(edited.changes, data.session.units);
  });
}

ImportedRows Change::ImportTable(std::string const& path, std::string const& bank,
                                 TableSettings const& settings) {
  ChangeData& data = Data();
  return Guarded(data.session, [&] {
    TableTarget target;
    target.library = &data.change->Open();
    target.bank = BankForTable(data.change->Open(), bank);
    target.units = data.session.units;
    ImportedTable done = desk::ImportTable(
        target, path, {settings.mapPath, settings.ignored, settings.where}, false);
    if (done.refused != 0 && !settings.skipBad) {
      for (auto const& row : done.rows.Rows()) {
        if (row[2] != Cell(std::string(ToText(RowState::kRefused)))) continue;
        throw Error(path, "line " + CellText(row[0]) + ": " + CellText(row[3]) + "; " +
                              std::to_string(done.refused) + " rows are refused");
      }
    }
    Append(data.findings, done.findings);
    return ImportedRows{done.read, done.isNew,   done.changed,
                        done.same, done.refused, std::move(done.rows)};
  });
}

ImportedDocument Change::ImportDocument(std::string const& path, DocumentSettings const& settings) {
  ChangeData& data = Data();
  return Guarded(data.session, [&] {
    if (!std::filesystem::is_regular_file(path)) throw Error(path, "not found, or not a file");
    auto* const maint = dynamic_cast<zel::LibMaint_p*>(&data.change->Open().Maint());
    KeptLog log;
    maint->SetLogLevel(1);  // an import goes on after an error, and reports them all
    maint->SetLogSink(&log);
    maint->SetImportChecks(ChecksNamed(settings.checks));
    std::string const document = std::filesystem::absolute(path).string();
    bool const good =
        settings.bank.empty()
            ? maint->Import(document.c_str(), settings.replace)
            : maint->ImportComponent(document.c_str(), UpperCase(settings.bank).c_str(),
                                     settings.replace);
    maint->SetLogSink(nullptr);
    zel::ZelImportCounts counts;
    maint->GetImportCounts(counts);
    if (!good) {
      throw Error(path, log.error.empty() ? "cannot be imported" : log.error);
    }
    return ImportedDocument{counts.componentsStored, counts.itemsStored, counts.banksStored,
                            std::move(log.warnings)};
  });
}

Table Change::Merge(std::string const& library, MergeChoice choice,
                    std::vector<std::string> const& banks) {
  ChangeData& data = Data();
  return Guarded(data.session, [&] {
    if (AreSame(library, data.path)) throw Error(library, "is the library that is changed");
    MergeOptions options;
    options.side = choice == MergeChoice::kOurs     ? MergeSide::kOurs
                   : choice == MergeChoice::kTheirs ? MergeSide::kTheirs
                                                    : MergeSide::kRefuse;
    options.banks = banks;
    Library const from = OpenFinished(data.session, library);
    return desk::Merge(data.change->Open(), from, options).banks;
  });
}

Table Change::Renumber(std::string const& component, std::int32_t number) {
  ChangeData& data = Data();
  return Guarded(data.session, [&] {
    return desk::Renumber(data.change->Open(), component, std::to_string(number)).banks;
  });
}

Table Change::Findings() const {
  ChangeData const& data = Data();
  return InDisplayUnits(FindingTable("findings", data.findings), data.session.units);
}

void Change::Commit() {
  ChangeData& data = Data();
  Guarded(data.session, [&] {
    if (!data.change->IsDryRun()) data.change->PutInPlace();
    data.change.reset();
  });
}

Table UndoLastChange(std::string const& library, ChangeSettings const& settings) {
  Session session;
  return Guarded(session, [&] {
    zel::InitZelAccess();
    Prepare(session, settings);
    Undo undo = BeginUndo(session, library, {}, OptionsOf(settings));
    DifferenceOptions options;
    options.first = "before";
    options.second = "after";
    Table differences = [&] {
      Library const old = Library::OpenRead(session, undo.version.first.string());
      return DifferencesOf(undo.change.Open(), old, options);
    }();
    Table shown = InDisplayUnits(differences, session.units);
    undo.change.Restore(undo.version);
    if (!settings.dryRun) undo.change.PutInPlace();
    return shown;
  });
}

Table HistoryOf(std::string const& library) {
  Session const session;
  return Guarded(session, [&] {
    Table changes("changes", {{"change", ""}, {"time", ""}, {"command", ""}});
    std::vector<Version> const versions = VersionsOf(WithoutLinks(library));
    for (auto version = versions.rbegin(); version != versions.rend(); ++version) {
      changes.Add(std::int64_t{version->number}, Text(version->change.time),
                  Text(version->change.command));
    }
    return changes;
  });
}

}  // namespace zel::desk
