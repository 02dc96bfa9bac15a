// Exceptions of the desk as those of zelaccess._errors.
#include <zelaccess/BlockError.h>
#include <zelaccess/DeskErrors.h>

#include "common.h"

namespace zelpython {
namespace {

void Raise(char const* name, std::string const& what, std::string const& file) {
  py::object const type = py::module_::import("zelaccess._errors").attr(name);
  py::object const error = type(Str(what), Str(file));
  PyErr_SetObject(type.ptr(), error.ptr());
}

void Raise(char const* name, desk::Error const& error) { Raise(name, error.what(), error.File()); }

// The most special class comes first.
void Translate(std::exception_ptr thrown) {
  try {
    if (thrown) std::rethrow_exception(std::move(thrown));
  } catch (desk::LibraryInUse const& error) {
    Raise("LibraryInUse", error);
  } catch (desk::OpenError const& error) {
    Raise(error.Code() == zel::openNotFound ? "LibraryNotFound" : "OpenError", error);
  } catch (desk::DamagedLibrary const& error) {
    Raise("DamagedLibrary", error);
  } catch (desk::MissingComponent const& error) {
    Raise("MissingComponent", error);
  } catch (desk::ConflictingIdentity const& error) {
    Raise("IdentityConflict", error);
  } catch (desk::MissingItem const& error) {
    Raise("MissingItem", error);
  } catch (desk::MissingBank const& error) {
    Raise("MissingBank", error);
  } catch (desk::MissingDatum const& error) {
    Raise("MissingDatum", error);
  } catch (desk::UnknownWord const& error) {
    Raise("WrongUsage", error);
  } catch (desk::Error const& error) {
    Raise("ZelError", error);
  } catch (zel::BlockError const& error) {
    Raise("DamagedLibrary", error.what(), error.File());
  }
}

}  // namespace

void AddErrors(py::module_& /*module*/) { py::register_exception_translator(&Translate); }

}  // namespace zelpython
