// A folder for the files of one run, removed at its end.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace zel::bench {

class OwnFolder {
 public:
  explicit OwnFolder(std::filesystem::path const& parent)
      : path_(parent / ("zel-bench-" + std::to_string(::getpid()))) {
    std::filesystem::create_directory(path_);
  }
  OwnFolder(OwnFolder const&) = delete;
  OwnFolder& operator=(OwnFolder const&) = delete;
  ~OwnFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  std::filesystem::path const& Path() const noexcept { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace zel::bench
