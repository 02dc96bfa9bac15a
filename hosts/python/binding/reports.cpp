// Tables, comparisons, checks and pages made from libraries.
#include <zelaccess/DeskReports.h>

#include "common.h"

namespace zelpython {
namespace {

using Words = std::vector<std::string>;

// (names, units, accept_identity, wait, path)
desk::ReportSettings SettingsOf(py::tuple const& given) {
  return {given[0].cast<std::string>(), given[1].cast<std::string>(), given[2].cast<bool>(),
          given[3].cast<double>(), given[4].cast<Words>()};
}

// Calls `report` with the settings and without the interpreter's lock.
template <typename Report>
auto Made(py::tuple const& given, Report const& report) {
  desk::ReportSettings const settings = SettingsOf(given);
  return Unlocked([&] { return report(settings); });
}

void AddTables(py::module_& module) {
  module.def("pairs_of", [](Words const& libraries, std::string const& type, Words const& fields,
                            Words const& components, py::tuple const& given) {
    return ToPython(Made(given, [&](desk::ReportSettings const& settings) {
      return desk::PairsOf(libraries, type, fields, components, settings);
    }));
  });
  module.def("coverage_of", [](Words const& libraries, std::string const& type,
                               Words const& components, py::tuple const& given) {
    return ToPython(Made(given, [&](desk::ReportSettings const& settings) {
      return desk::CoverageOf(libraries, type, components, settings);
    }));
  });
  module.def("why_of", [](Words const& libraries, std::string const& component,
                          std::string const& datum, py::tuple const& given) {
    return ToPython(Made(given, [&](desk::ReportSettings const& settings) {
      return desk::WhyOf(libraries, component, datum, settings);
    }));
  });
  module.def("check_of", [](Words const& libraries, Words const& silent, bool structureOnly,
                            double minStrength, py::tuple const& given) {
    return ToPython(Made(given, [&](desk::ReportSettings const& settings) {
      return desk::FindingsOf(libraries, {silent, structureOnly, minStrength}, settings);
    }));
  });
}

}  // namespace

void AddReports(py::module_& module) {
  AddTables(module);
  module.def("compare", [](std::string const& first, std::string const& second,
                           Words const& components, double tolerance, py::tuple const& given) {
    desk::ComparedSources const found = Made(given, [&](desk::ReportSettings const& settings) {
      return desk::CompareSources(first, second, components, tolerance, settings);
    });
    return py::make_tuple(found.components, ToPython(found.constants), ToPython(found.correlations),
                          ToPython(found.notCompared), ToPython(found.oneSided));
  });
  module.def("table_text_of",
             [](std::string const& library, std::string const& bank, std::string const& form,
                std::string const& kind, py::tuple const& given) {
               return Str(Made(given, [&](desk::ReportSettings const& settings) {
                 return desk::TableTextOf(library, bank, form, kind, settings);
               }));
             });
  module.def("flatten", [](Words const& libraries, std::string const& path, Words const& components,
                           py::tuple const& given) {
    return ToPython(Made(given, [&](desk::ReportSettings const& settings) {
      return desk::FlattenTo(libraries, path, components, settings);
    }));
  });
  module.def("sheet_of", [](Words const& libraries, Words const& components, bool each,
                            py::tuple const& given) {
    return Str(Made(given, [&](desk::ReportSettings const& settings) {
      return desk::SheetOf(libraries, components, each, settings);
    }));
  });
  module.def("report_of", [](Words const& libraries, py::tuple const& given) {
    return Str(Made(given, [&](desk::ReportSettings const& settings) {
      return desk::ReportOf(libraries, settings);
    }));
  });
}

}  // namespace zelpython
