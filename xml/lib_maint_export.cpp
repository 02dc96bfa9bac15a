// Exports of LibMaint. The overloads without a switch use the stored one.
#include "frame/ascii.h"
#include "maint/lib_maint.h"
#include "xml/export.h"

namespace zel {

namespace {

constexpr char const* OrEmpty(char const* text) noexcept { return text == nullptr ? "" : text; }

}  // namespace

// Runs an export of an open library. Afterwards there is no current item.
template <typename Run>
bool LibMaint_i::RunExport(char const* path, bool writeBanner, bool componentFiles,
                           Run const& run) {
  DropTree();
  if (Directory() == nullptr) return false;
  ExportSwitches const switches{writeFormat_, writeBanner, writeNotice_, componentFiles};
  Export_i exporter(*this, switches, TextOrEmpty(path));
  bool const written = !exporter.IsCancelled() && run(exporter);
  DropTree();
  if (exporter.IsCancelled()) {
    log_.SetItemLabel("");
    log_.ReportError("Export was cancelled", {logCancelled, 0, {}, {}});
  }
  return written && !exporter.IsCancelled();
}

bool LibMaint_i::ExportLibrary(char const* path, bool writeBanner, bool componentFiles) {
  return RunExport(path, writeBanner, componentFiles,
                   [](Export_i& exporter) { return exporter.ExportLibrary(); });
}

bool LibMaint_i::ExportBank(char const* type, char const* name, char const* path, bool writeBanner,
                            bool componentFiles) {
  return RunExport(path, writeBanner, componentFiles, [&](Export_i& exporter) {
    return exporter.ExportBank(OrEmpty(type), OrEmpty(name));
  });
}

bool LibMaint_i::ExportComponentByNumber(char const* bankName, std::int32_t number,
                                         char const* path, bool writeBanner) {
  return RunExport(path, writeBanner, false, [&](Export_i& exporter) {
    return exporter.ExportComponentByNumber(OrEmpty(bankName), number);
  });
}

bool LibMaint_i::ExportComponentById(char const* bankName, char const* id, char const* path,
                                     bool writeBanner) {
  return RunExport(path, writeBanner, false, [&](Export_i& exporter) {
    return exporter.ExportComponentById(OrEmpty(bankName), OrEmpty(id));
  });
}

bool LibMaint_i::ExportLibrary(char const* path, bool writeBanner) {
  return ExportLibrary(path, writeBanner, componentFiles_);
}
bool LibMaint_i::ExportLibrary(char const* path) { return ExportLibrary(path, writeBanner_); }
bool LibMaint_i::ExportBank(char const* type, char const* name, char const* path,
                            bool writeBanner) {
  return ExportBank(type, name, path, writeBanner, componentFiles_);
}
bool LibMaint_i::ExportBank(char const* type, char const* name, char const* path) {
  return ExportBank(type, name, path, writeBanner_);
}
bool LibMaint_i::ExportComponentByNumber(char const* bankName, std::int32_t number,
                                         char const* path) {
  return ExportComponentByNumber(bankName, number, path, writeBanner_);
}
bool LibMaint_i::ExportComponentById(char const* bankName, char const* id, char const* path) {
  return ExportComponentById(bankName, id, path, writeBanner_);
}

}  // namespace zel
