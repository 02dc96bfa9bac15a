#include "output/defaults.h"

namespace zelhost {

Configuration const& Defaults::File() {
  if (!file_) file_ = ReadConfiguration(ConfigurationFile());
  return *file_;
}

LibraryPath const& Defaults::Path() {
  if (!path_) path_.emplace(SearchFolders(File()));
  return *path_;
}

}  // namespace zelhost
