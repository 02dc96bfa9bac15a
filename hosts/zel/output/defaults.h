// The defaults for what the command line does not set: the environment, then the user's
// configuration file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/open/configuration.h"
#include "desk/open/library_path.h"
#include "output/desk.h"

namespace zelhost {

class Defaults {
 public:
  // The file is read when it is first asked for. Throws Error if it is not valid.
  Configuration const& File();
  // The folders of ZEL_PATH, else those of the file.
  LibraryPath const& Path();

 private:
  std::optional<Configuration> file_;
  std::optional<LibraryPath> path_;
};

}  // namespace zelhost
