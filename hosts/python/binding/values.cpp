// Texts, cells and tables as Python values.
#include <variant>

#include "common.h"

namespace zelpython {

py::str Str(std::string const& text) {
  PyObject* const made =
      PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace");
  if (made == nullptr) throw py::error_already_set();
  return py::reinterpret_steal<py::str>(made);
}

py::object StrOrNone(std::string const& text) {
  return text.empty() ? py::object(py::none()) : py::object(Str(text));
}

py::object ToPython(desk::Cell const& cell) {
  struct Visitor {
    py::object operator()(std::monostate) const { return py::none(); }
    py::object operator()(std::string const& text) const { return Str(text); }
    py::object operator()(std::int64_t value) const { return py::int_(value); }
    py::object operator()(double value) const { return py::float_(value); }
    py::object operator()(bool value) const { return py::bool_(value); }
  };
  return std::visit(Visitor{}, static_cast<desk::Cell::Variant const&>(cell));
}

py::tuple ToPython(desk::Table const& table) {
  py::list columns;
  py::list data;
  for (std::size_t i = 0; i < table.Columns().size(); ++i) {
    desk::Column const& column = table.Columns()[i];
    columns.append(py::make_tuple(Str(column.name), StrOrNone(column.unit)));
    py::list values;
    for (auto const& row : table.Rows()) {
      values.append(i < row.size() ? ToPython(row[i]) : py::none());
    }
    data.append(values);
  }
  return py::make_tuple(Str(table.Name()), columns, data);
}

}  // namespace zelpython
