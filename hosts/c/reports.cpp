// Tables made from libraries.
#include <zelaccess/DeskReports.h>

#include "border.h"

using zelc::AsHandle;
using zelc::MakeHandle;
using zelc::NeedText;
using zelc::NeedWords;

namespace desk = zel::desk;

namespace {

desk::ReportSettings SettingsOf(zel_report_options const* given) {
  zelc::Start();
  zel_report_options const options = zelc::OptionsOf(given);
  desk::ReportSettings settings;
  settings.names = zelc::TextOrEmpty(options.names);
  settings.units = zelc::TextOrEmpty(options.units);
  settings.acceptIdentity = options.accept_identity != 0;
  settings.waitSeconds = zelc::NeedSeconds(options.wait_seconds, "wait_seconds");
  settings.path = NeedWords(options.path, options.path_count, "path");
  return settings;
}

desk::CheckSettings SettingsOf(zel_check_options const* given) {
  zel_check_options const options = zelc::OptionsOf(given);
  desk::CheckSettings settings;
  settings.silent = NeedWords(options.silent, options.silent_count, "silent");
  settings.structureOnly = options.structure_only != 0;
  if (options.all_strengths != 0) settings.minStrength = 0.0;
  return settings;
}

}  // namespace

zel_status zel_why(char const* const* libraries, size_t count, char const* component,
                   char const* datum, zel_report_options const* options, zel_table** table) {
  return MakeHandle(table, "table", [&] {
    desk::ReportSettings const settings = SettingsOf(options);
    return AsHandle(desk::WhyOf(NeedWords(libraries, count, "libraries"),
                                NeedText(component, "component"), NeedText(datum, "datum"),
                                settings));
  });
}

zel_status zel_data(char const* const* libraries, size_t count, char const* const* components,
                    size_t component_count, char const* const* fields, size_t field_count,
                    int32_t with_sources, zel_report_options const* options, zel_table** table) {
  return MakeHandle(table, "table", [&] {
    desk::ReportSettings const settings = SettingsOf(options);
    return AsHandle(desk::DataOf(NeedWords(libraries, count, "libraries"),
                                 NeedWords(components, component_count, "components"),
                                 NeedWords(fields, field_count, "fields"), with_sources != 0,
                                 settings));
  });
}

zel_status zel_pairs(char const* const* libraries, size_t count, char const* type,
                     char const* const* fields, size_t field_count, char const* const* components,
                     size_t component_count, zel_report_options const* options, zel_table** table) {
  return MakeHandle(table, "table", [&] {
    desk::ReportSettings const settings = SettingsOf(options);
    return AsHandle(desk::PairsOf(NeedWords(libraries, count, "libraries"), NeedText(type, "type"),
                                  NeedWords(fields, field_count, "fields"),
                                  NeedWords(components, component_count, "components"), settings));
  });
}

zel_status zel_coverage(char const* const* libraries, size_t count, char const* type,
                        char const* const* components, size_t component_count,
                        zel_report_options const* options, zel_table** table) {
  return MakeHandle(table, "table", [&] {
    desk::ReportSettings const settings = SettingsOf(options);
    return AsHandle(
        desk::CoverageOf(NeedWords(libraries, count, "libraries"), NeedText(type, "type"),
                         NeedWords(components, component_count, "components"), settings));
  });
}

zel_status zel_check(char const* const* libraries, size_t count, zel_check_options const* check,
                     zel_report_options const* options, zel_table** table) {
  return MakeHandle(table, "table", [&] {
    desk::ReportSettings const settings = SettingsOf(options);
    return AsHandle(
        desk::FindingsOf(NeedWords(libraries, count, "libraries"), SettingsOf(check), settings));
  });
}
