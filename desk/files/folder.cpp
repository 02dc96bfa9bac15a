// What does not depend on the system.
#include "desk/files/folder.h"

#include <system_error>

namespace zel::desk {

namespace fs = std::filesystem;

fs::path Inside(fs::path const& folder, fs::path const& name) {
  if (name.is_absolute()) return name;
  fs::path::string_type whole = folder.native();
  if (folder.has_filename()) whole += fs::path::preferred_separator;
  whole += name.native();
  return whole;
}

std::vector<std::string> NamesIn(fs::path const& folder) {
  std::error_code error;
  std::vector<std::string> names = NamesIn(folder, error);
  if (error) throw fs::filesystem_error("", folder, error);
  return names;
}

void RemoveTree(fs::path const& path) {
  std::error_code error;
  RemoveTree(path, error);
  if (error) throw fs::filesystem_error("", path, error);
}

}  // namespace zel::desk
