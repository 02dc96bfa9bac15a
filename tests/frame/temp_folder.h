// A folder for one test, removed with it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "tests/support/environment.h"

namespace zel::test {

class TempFolderTest : public ::testing::Test {
 protected:
  TempFolderTest()
      : folder_(std::filesystem::canonical(std::filesystem::temp_directory_path()) /
                ("zel_frame_" + std::to_string(ProcessNumber()))) {
    RemoveFolder(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~TempFolderTest() override { RemoveFolder(folder_); }

  std::filesystem::path const& Folder() const { return folder_; }
  std::string Path(std::string_view name) const { return (folder_ / name).generic_string(); }
  void MakeFile(std::string_view name, std::string_view content) const {
    std::ofstream(folder_ / name, std::ios::binary) << content;
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace zel::test
