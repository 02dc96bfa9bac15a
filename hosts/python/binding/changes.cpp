// Changes of libraries, their history and undo.
#include <zelaccess/DeskChanges.h>

#include <memory>

#include "common.h"

namespace zelpython {
namespace {

// The settings of a change from keyword arguments.
desk::ChangeSettings SettingsOf(py::dict const& given) {
  desk::ChangeSettings settings;
  settings.password = given["password"].cast<std::string>();
  settings.names = given["names"].cast<std::string>();
  settings.units = given["units"].cast<std::string>();
  settings.command = given["note"].cast<std::string>();
  settings.waitSeconds = given["wait"].cast<double>();
  settings.keep = given["keep"].cast<int>();
  settings.dryRun = given["dry_run"].cast<bool>();
  return settings;
}

// What an edit sets of a correlation, from the members of a dict, all of them optional.
desk::EditSettings EditOf(py::dict const& given) {
  desk::EditSettings edit;
  auto const take = [&](char const* name, auto& member) {
    if (given.contains(name)) member = given[name].cast<std::decay_t<decltype(member)>>();
  };
  take("unset", edit.unset);
  take("code", edit.code);
  take("source", edit.from);
  take("equation", edit.equation);
  take("coefficients", edit.coefficients);
  take("range", edit.range);
  take("value_unit", edit.valueUnit);
  take("temperature_unit", edit.temperatureUnit);
  take("logarithm", edit.logarithm);
  take("basis", edit.basis);
  return edit;
}

py::tuple RowsOf(desk::ImportedRows const& rows) {
  return py::make_tuple(rows.read, rows.isNew, rows.changed, rows.same, rows.refused,
                        zelpython::ToPython(rows.rows));
}

desk::MergeChoice ChoiceNamed(std::string const& word) {
  if (word == "refuse") return desk::MergeChoice::kRefuse;
  if (word == "ours") return desk::MergeChoice::kOurs;
  if (word == "theirs") return desk::MergeChoice::kTheirs;
  throw desk::UnknownWord("", "choice is \"refuse\", \"ours\" or \"theirs\", not \"" + word + "\"");
}

// A change; one thread at a time may use it.
class Change {
 public:
  explicit Change(desk::Change change) : change_(std::move(change)) {}

  template <typename Work>
  auto Use(Work const& work) {
    py::gil_scoped_release const released;
    std::lock_guard const alone(lock_);
    if (!change_)
      throw desk::Error("", "this edit has ended; begin another one with zelaccess.edit");
    return work(*change_);
  }
  void Drop() {
    py::gil_scoped_release const released;
    std::lock_guard const alone(lock_);
    change_.reset();
  }

 private:
  std::mutex lock_;
  std::optional<desk::Change> change_;
};

std::unique_ptr<Change> Begin(std::string const& library, py::dict const& given, bool isNew) {
  desk::ChangeSettings const settings = SettingsOf(given);
  return Unlocked([&] {
    return std::make_unique<Change>(isNew ? desk::Change::New(library, settings)
                                          : desk::Change(library, settings));
  });
}

void AddChange(py::module_& module) {
  py::class_<Change>(module, "Change")
      .def(py::init(&Begin), py::arg("library"), py::arg("settings"), py::arg("new") = false)
      .def(
          "edit",
          [](Change& change, std::vector<std::string> const& words, py::dict const& settings) {
            desk::EditSettings const edit = EditOf(settings);
            return ToPython(change.Use([&](desk::Change& one) { return one.Edit(words, edit); }));
          },
          py::arg("words"), py::arg("settings") = py::dict())
      .def(
          "import_table",
          [](Change& change, std::string const& path, std::string const& bank, bool skipBad) {
            desk::TableSettings settings;
            settings.skipBad = skipBad;
            return RowsOf(change.Use(
                [&](desk::Change& one) { return one.ImportTable(path, bank, settings); }));
          },
          py::arg("path"), py::arg("bank"), py::arg("skip_bad") = false)
      .def(
          "import_document",
          [](Change& change, std::string const& path, std::string const& bank, bool replace,
             std::string const& checks) {
            desk::ImportedDocument const done = change.Use([&](desk::Change& one) {
              return one.ImportDocument(path, {bank, replace, checks});
            });
            return py::make_tuple(done.components, done.items, done.banks, ToPython(done.log));
          },
          py::arg("path"), py::arg("bank") = "", py::arg("replace") = false,
          py::arg("checks") = "checked")
      .def(
          "merge",
          [](Change& change, std::string const& library, std::string const& choice,
             std::vector<std::string> const& banks) {
            return ToPython(change.Use(
                [&](desk::Change& one) { return one.Merge(library, ChoiceNamed(choice), banks); }));
          },
          py::arg("library"), py::arg("choice") = "refuse",
          py::arg("banks") = std::vector<std::string>())
      .def(
          "renumber",
          [](Change& change, std::string const& component, std::int32_t number) {
            return ToPython(
                change.Use([&](desk::Change& one) { return one.Renumber(component, number); }));
          },
          py::arg("component"), py::arg("number"))
      .def("commit",
           [](Change& change) {
             change.Use([](desk::Change& one) {
               one.Commit();
               return 0;
             });
             change.Drop();
           })
      .def("drop", &Change::Drop);
}

}  // namespace

void AddChanges(py::module_& module) {
  AddChange(module);
  module.def(
      "undo",
      [](std::string const& library, py::dict const& given) {
        desk::ChangeSettings const settings = SettingsOf(given);
        return ToPython(Unlocked([&] { return desk::UndoLastChange(library, settings); }));
      },
      py::arg("library"), py::arg("settings"));
  module.def(
      "history",
      [](std::string const& library) {
        return ToPython(Unlocked([&] { return desk::HistoryOf(library); }));
      },
      py::arg("library"));
}

}  // namespace zelpython
