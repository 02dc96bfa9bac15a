// The catalogues of data and bank types, and units.
#include <zelaccess/DeskBanks.h>
#include <zelaccess/Units.h>
#include <zelaccess/Verify.h>

#include <limits>

#include "common.h"

namespace zelpython {
namespace {

py::list Constants() {
  std::int32_t count = 0;
  zel::ZelConstantInfo const* const rows = zel::GetConstantCatalogue(count);
  py::list all;
  for (std::int32_t i = 0; i < count; ++i) {
    all.append(py::make_tuple(rows[i].keyword, rows[i].index, rows[i].unit, rows[i].label));
  }
  return all;
}

py::list Correlations() {
  std::int32_t count = 0;
  zel::ZelCorrelationInfo const* const rows = zel::GetCorrelationCatalogue(count);
  py::list all;
  for (std::int32_t i = 0; i < count; ++i) {
    all.append(py::make_tuple(rows[i].name, i, rows[i].unit, rows[i].label));
  }
  return all;
}

py::list BankTypes() {
  py::list all;
  for (desk::BankType const& type : desk::BankTypes()) {
    char const* const kinds[] = {"components", "numbers", "text"};
    all.append(py::make_tuple(type.type, type.description,
                              kinds[static_cast<std::int32_t>(type.keyKind)], type.keyParts,
                              type.shortestKey, type.formats));
  }
  return all;
}

py::list FieldsOfType(std::string const& type) {
  char const* const kinds[] = {"whole number", "number", "text", "word"};
  py::list all;
  for (desk::FieldInfo const& field : desk::FieldsOfType(type)) {
    all.append(py::make_tuple(field.name, field.label, field.unit, kinds[field.type], field.count));
  }
  return all;
}

// A dimension that has both units; empty if no dimension has both.
std::string DimensionOf(std::string const& from, std::string const& to) {
  char name[zel::kUnitTextSize] = {};
  for (std::int32_t i = 0; i < zel::GetDimensionCount(); ++i) {
    if (zel::GetDimension(i, name) && zel::FindUnit(name, from.c_str(), nullptr) &&
        zel::FindUnit(name, to.c_str(), nullptr)) {
      return name;
    }
  }
  return "";
}

Doubles Convert(Doubles const& values, std::string const& from, std::string const& to,
                std::string const& dimension) {
  std::string const in = dimension.empty() ? DimensionOf(from, to) : dimension;
  Doubles result(std::vector<py::ssize_t>(values.shape(), values.shape() + values.ndim()));
  double* const out = result.mutable_data();
  py::ssize_t const count = values.size();
  std::copy(values.data(), values.data() + count, out);
  bool const good = Unlocked([&] {
    constexpr py::ssize_t kMost = std::numeric_limits<std::int32_t>::max();
    return !in.empty() && count <= kMost &&
           zel::ConvertUnits(in.c_str(), from.c_str(), to.c_str(), out,
                             static_cast<std::int32_t>(count));
  });
  if (!good) {
    throw desk::UnknownWord("", "values in \"" + from + "\" cannot be converted to \"" + to + "\"");
  }
  return result;
}

}  // namespace

void AddCatalogue(py::module_& module) {
  module.def("constants", &Constants, "Keyword, index, unit and label of each constant.");
  module.def("correlations", &Correlations, "Name, index, unit and label of each correlation.");
  module.def("bank_types", &BankTypes,
             "Type, description, kind of key, most and fewest parts of a key, formats.");
  module.def("fields_of_type", &FieldsOfType, py::arg("type"),
             "Name, label, unit, kind and count of each field.");
  module.def("convert", &Convert, py::arg("values"), py::arg("from_unit"), py::arg("to_unit"),
             py::arg("dimension") = "", "Values in another unit.");
  module.def("search_path", &desk::SearchPath, "The folders in which libraries are looked up.");
}

}  // namespace zelpython
