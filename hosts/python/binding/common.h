// What the sources of the module have in common.
#pragma once

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <zelaccess/Desk.h>
#include <zelaccess/DeskTable.h>

#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zelpython {

namespace py = pybind11;
namespace desk = zel::desk;

// Arrays without gaps; an array that has none is not copied.
using Doubles = py::array_t<double, py::array::c_style | py::array::forcecast>;

// A text of a library, whose bytes may be damaged.
py::str Str(std::string const& text);
// The same; None for an empty text.
py::object StrOrNone(std::string const& text);
// The value of a cell; None for an empty one.
py::object ToPython(desk::Cell const& cell);
// (name, [(heading, unit), ...], [values of the first column, ...])
py::tuple ToPython(desk::Table const& table);

// Does work without the interpreter's lock.
template <typename Work>
auto Unlocked(Work const& work) {
  py::gil_scoped_release const released;
  return work();
}

// An object of the library that is made when it is first used, and again after it was closed. One
// thread at a time uses it; no thread waits for it with the interpreter's lock.
template <typename Object>
class Reopened {
 public:
  // Calls `work` with the object, which `open` makes on first use and after a close.
  template <typename Open, typename Work>
  auto Use(Open const& open, Work const& work) {
    py::gil_scoped_release const released;
    std::lock_guard const alone(lock_);
    if (!object_) object_.emplace(open());
    return work(*object_);
  }
  void Close() {
    py::gil_scoped_release const released;
    std::lock_guard const alone(lock_);
    object_.reset();
  }

 private:
  std::mutex lock_;
  std::optional<Object> object_;
};

// Each adds its functions and classes to the module.
void AddErrors(py::module_& module);
void AddCatalogue(py::module_& module);
void AddCurves(py::module_& module);
void AddLibraries(py::module_& module);
void AddBanks(py::module_& module);
void AddChanges(py::module_& module);
void AddReports(py::module_& module);

}  // namespace zelpython
