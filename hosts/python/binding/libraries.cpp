// Libraries in order of preference, their components and items.
#include <zelaccess/Verify.h>

#include <limits>
#include <memory>

#include "common.h"
#include "curves.h"

namespace zelpython {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// A preference list that opens its files when it is used.
class Sources {
 public:
  Sources(std::vector<std::string> libraries, desk::LibrariesOptions options)
      : libraries_(std::move(libraries)), options_(std::move(options)) {}

  template <typename Work>
  auto Use(Work const& work) {
    return open_.Use([this] { return desk::Libraries(libraries_, options_); }, work);
  }
  void Close() { open_.Close(); }

 private:
  std::vector<std::string> libraries_;
  desk::LibrariesOptions options_;
  Reopened<desk::Libraries> open_;
};

char const* StateWord(zel::zelConstantStates state) {
  return state == zel::constantStored ? "stored" : "filled in";
}

py::tuple IdentityOf(desk::Identity const& identity) {
  py::list ids;
  for (std::string const& id : identity.ids) ids.append(Str(id));
  return py::make_tuple(identity.number, ids, StrOrNone(identity.cas), StrOrNone(identity.name),
                        StrOrNone(identity.formula));
}

// (value, unit, source, code, state, citation, doi), or None.
py::object ConstantOf(desk::Component const& component, std::uint32_t index,
                      std::string const& unit) {
  auto const constant =
      Unlocked([&] { return component.Constant(static_cast<zel::Constant>(index), unit); });
  if (!constant) return py::none();
  return py::make_tuple(constant->value, StrOrNone(constant->unit), StrOrNone(constant->source),
                        constant->code == 0 ? py::object(py::none()) : py::int_(constant->code),
                        StateWord(constant->state), StrOrNone(constant->citation),
                        StrOrNone(constant->doi));
}

// (equation, coefficients, tMin, tMax, unit, source, code, citation, doi), or None.
py::object RecordedOf(desk::Component const& component, std::uint32_t index) {
  auto const record = component.Correlation(static_cast<zel::Correlation>(index));
  if (!record) return py::none();
  return py::make_tuple(record->equation, record->coefficients, record->tMin.value_or(kNan),
                        record->tMax.value_or(kNan), StrOrNone(record->unit),
                        StrOrNone(record->source),
                        record->code == 0 ? py::object(py::none()) : py::int_(record->code),
                        StrOrNone(record->citation), StrOrNone(record->doi));
}

py::list Components(Sources& sources) {
  std::vector<desk::Identity> const all =
      sources.Use([](desk::Libraries const& libraries) { return libraries.Components(); });
  py::list identities;
  for (desk::Identity const& identity : all) identities.append(IdentityOf(identity));
  return identities;
}

// Identities, and for each constant an array of values, a list of sources and its unit.
py::tuple Constants(Sources& sources, std::vector<std::uint32_t> const& indices,
                    std::vector<std::string> const& units, std::vector<std::string> const& words) {
  struct Row {
    desk::Identity identity;
    std::vector<std::optional<desk::ConstantValue>> values;
  };
  std::vector<Row> const rows = sources.Use([&](desk::Libraries const& libraries) {
    std::vector<std::string> chosen = words;
    if (chosen.empty()) {
      for (desk::Identity const& one : libraries.Components()) {
        chosen.push_back(std::to_string(one.number));
      }
    }
    std::vector<Row> found;
    for (std::string const& word : chosen) {
      desk::Component const component = libraries.Component(word);
      Row row{component.Identity(), {}};
      for (std::size_t i = 0; i < indices.size(); ++i) {
        row.values.push_back(component.Constant(static_cast<zel::Constant>(indices[i]), units[i]));
      }
      found.push_back(std::move(row));
    }
    return found;
  });
  py::list identities;
  for (Row const& row : rows) identities.append(IdentityOf(row.identity));
  py::list columns;
  for (std::size_t i = 0; i < indices.size(); ++i) {
    py::array_t<double> values(static_cast<py::ssize_t>(rows.size()));
    py::list from;
    for (std::size_t k = 0; k < rows.size(); ++k) {
      auto const& value = rows[k].values[i];
      values.mutable_data()[k] = value ? value->value : kNan;
      from.append(value ? StrOrNone(value->source) : py::none());
    }
    columns.append(py::make_tuple(values, from));
  }
  return py::make_tuple(identities, columns);
}

void AddItem(py::module_& module) {
  py::class_<desk::Item>(module, "Item")
      .def_property_readonly("source", [](desk::Item const& item) { return Str(item.Source()); })
      .def_property_readonly("citation",
                             [](desk::Item const& item) { return StrOrNone(item.Citation()); })
      .def_property_readonly("doi", [](desk::Item const& item) { return StrOrNone(item.Doi()); })
      .def_property_readonly("equation",
                             [](desk::Item const& item) { return StrOrNone(item.Equation()); })
      .def("fields", [](desk::Item const& item) {
        py::list fields;
        for (desk::ItemField const& field : item.Fields()) {
          fields.append(py::make_tuple(Str(field.name), Str(field.label), Str(field.unit),
                                       field.values, StrOrNone(field.text), Str(field.meaning)));
        }
        return fields;
      });
}

}  // namespace

void AddLibraries(py::module_& module) {
  AddItem(module);
  py::class_<desk::Component>(module, "Component")
      .def("identity",
           [](desk::Component const& component) {
             return IdentityOf(Unlocked([&] { return component.Identity(); }));
           })
      .def("constant", &ConstantOf, py::arg("index"), py::arg("unit") = "")
      .def("correlation", &RecordedOf, py::arg("index"));
  py::class_<Sources>(module, "Sources")
      .def(py::init([](std::vector<std::string> libraries, std::string names, bool acceptIdentity,
                       double wait, std::vector<std::string> path) {
             return std::make_unique<Sources>(
                 std::move(libraries),
                 desk::LibrariesOptions{std::move(names), acceptIdentity, wait, std::move(path)});
           }),
           py::arg("libraries"), py::arg("names") = "", py::arg("accept_identity") = false,
           py::arg("wait") = 0.0, py::arg("path") = std::vector<std::string>())
      .def("open", [](Sources& sources) { sources.Use([](desk::Libraries const&) { return 0; }); })
      .def("close", &Sources::Close)
      .def(
          "component",
          [](Sources& sources, std::string const& word) {
            return sources.Use(
                [&](desk::Libraries const& libraries) { return libraries.Component(word); });
          },
          py::arg("word"))
      .def("components", &Components)
      .def("constants", &Constants, py::arg("indices"), py::arg("units"), py::arg("words"))
      .def(
          "item",
          [](Sources& sources, std::string const& type, std::vector<std::string> const& words) {
            return sources.Use(
                [&](desk::Libraries const& libraries) { return libraries.Item(type, words); });
          },
          py::arg("type"), py::arg("words"));
}

}  // namespace zelpython
