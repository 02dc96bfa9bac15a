#include "desk/open/session.h"

#include <zelaccess/DeskErrors.h>

#include <system_error>

namespace zel::desk {
namespace {

// A path without its extension, the only part in which the files of one library differ.
std::filesystem::path Stem(std::filesystem::path const& path) {
  std::error_code none;
  return std::filesystem::absolute(path, none).lexically_normal().replace_extension();
}

}  // namespace

void Session::NoteOpened(std::filesystem::path const& path, std::string const& shown) {
  opened_.push_back({path, shown});
}

std::string Session::ShownPath(std::string const& file) const {
  for (Opened const& library : opened_) {
    if (Stem(library.path) == Stem(file)) return library.shown;
  }
  return file;
}

void Session::LeaveOut(std::string const& line) { throw DamagedLibrary("", line); }

}  // namespace zel::desk
