// Changes of libraries that are made as a whole or not at all, and their history.
#include <zelaccess/DeskChanges.h>

#include "border.h"

namespace desk = zel::desk;

struct zel_change {
  desk::Change change;
};

using zelc::Guarded;
using zelc::MakeHandle;
using zelc::Need;
using zelc::NeedText;
using zelc::NeedWords;

namespace {

// By zel_checks; the desk does not import without a check.
constexpr char const* kChecks[] = {"", "lenient", "checked", "strict"};

desk::ChangeSettings SettingsOf(zel_change_options const* given) {
  zelc::Start();
  zel_change_options const options = zelc::OptionsOf(given);
  desk::ChangeSettings settings;
  settings.password = zelc::TextOrEmpty(options.password);
  settings.names = zelc::TextOrEmpty(options.names);
  settings.units = zelc::TextOrEmpty(options.units);
  settings.command = zelc::TextOrEmpty(options.command);
  settings.waitSeconds = zelc::NeedSeconds(options.wait_seconds, "wait_seconds");
  settings.dryRun = options.dry_run != 0;
  return settings;
}

// Does work that returns a table, which the host may not want. Its memory is taken before, so that
// work that is done does not fail.
template <typename Work>
zel_status GiveTable(zel_table** table, Work const& work) noexcept {
  return Guarded([&] {
    if (table != nullptr) *table = nullptr;
    std::unique_ptr<zel_table> made = zelc::AsHandle(zelc::EmptyTable("", {}));
    made->table = work();
    if (table != nullptr) *table = made.release();
  });
}

}  // namespace

zel_status zel_change_begin(char const* library, zel_change_options const* options,
                            zel_change** change) {
  return MakeHandle(change, "change", [&] {
    desk::ChangeSettings const settings = SettingsOf(options);
    return std::unique_ptr<zel_change>(
        new zel_change{desk::Change(NeedText(library, "library"), settings)});
  });
}

zel_status zel_change_create(char const* library, zel_change_options const* options,
                             zel_change** change) {
  return MakeHandle(change, "change", [&] {
    desk::ChangeSettings const settings = SettingsOf(options);
    return std::unique_ptr<zel_change>(
        new zel_change{desk::Change::New(NeedText(library, "library"), settings)});
  });
}

zel_status zel_change_edit(zel_change* change, char const* const* words, size_t count,
                           zel_table** table) {
  return GiveTable(
      table, [&] { return Need(change, "change").change.Edit(NeedWords(words, count, "words")); });
}

zel_status zel_change_import_document(zel_change* change, char const* path, char const* bank,
                                      int32_t replace, int32_t checks, zel_import_counts* counts,
                                      zel_table** log) {
  return GiveTable(log, [&] {
    desk::Change& made = Need(change, "change").change;
    desk::DocumentSettings settings;
    settings.bank = zelc::TextOrEmpty(bank);
    settings.replace = replace != 0;
    settings.checks =
        kChecks[zelc::NeedAmong(checks, ZEL_IMPORT_TOLD, ZEL_IMPORT_STRICT, "checks")];
    desk::ImportedDocument stored = made.ImportDocument(NeedText(path, "path"), settings);
    if (counts != nullptr) *counts = {stored.components, stored.items, stored.banks};
    return std::move(stored.log);
  });
}

zel_status zel_change_import_table(zel_change* change, char const* path, char const* bank,
                                   zel_table** table) {
  return GiveTable(table, [&] {
    desk::Change& made = Need(change, "change").change;
    return made.ImportTable(NeedText(path, "path"), NeedText(bank, "bank")).rows;
  });
}

zel_status zel_change_findings(zel_change* change, zel_table** table) {
  return MakeHandle(table, "table",
                    [&] { return zelc::AsHandle(Need(change, "change").change.Findings()); });
}

zel_status zel_change_commit(zel_change** change) {
  return Guarded([&] {
    Need(Need(change, "change"), "change");
    std::unique_ptr<zel_change> const owned(std::exchange(*change, nullptr));
    owned->change.Commit();
  });
}

zel_status zel_change_drop(zel_change** change) { return zelc::EndHandle(change, "change"); }

zel_status zel_undo(char const* library, zel_change_options const* options, zel_table** table) {
  return GiveTable(table, [&] {
    desk::ChangeSettings const settings = SettingsOf(options);
    return desk::UndoLastChange(NeedText(library, "library"), settings);
  });
}

zel_status zel_history(char const* library, zel_table** table) {
  return MakeHandle(table, "table", [&] {
    zelc::Start();
    return zelc::AsHandle(desk::HistoryOf(NeedText(library, "library")));
  });
}
