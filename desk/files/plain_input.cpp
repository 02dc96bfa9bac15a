#include "desk/files/plain_input.h"

#include "desk/files/input_file.h"
#include "desk/words/failure.h"

namespace zel::desk {

std::ifstream OpenPlainInput(std::filesystem::path const& path) {
  namespace fs = std::filesystem;
  std::error_code none;
  if (!fs::exists(path, none)) throw Failure(path.string() + ": not found");
  if (fs::is_directory(path, none)) throw Failure(path.string() + ": is a folder");
  if (!fs::is_regular_file(path, none)) {
    throw Failure(path.string() + ": is not a regular file; - means standard input");
  }
  std::ifstream file = OpenInput(path);
  if (!file) throw Failure(path.string() + ": cannot be read");
  return file;
}

}  // namespace zel::desk
