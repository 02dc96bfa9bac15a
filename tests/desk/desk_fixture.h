// A folder with the libraries that the tests of the desk's face read.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>
#include <zelaccess/Desk.h>
#include <zelaccess/ZelAccess.h>

#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;

class DeskTest : public testing::Test {
 protected:
  // A folder with sample.lb1 (pairs and groups), perry.lb1 and crc.lb1 (components).
  static void SetUpTestSuite() {
    zel::InitZelAccess();
    folder_ = fs::path(testing::TempDir()) / ("desk_test_" + std::to_string(::getpid()));
    fs::create_directories(folder_);
    for (char const* name : {"sample", "perry", "crc"}) Import(name);
  }
  static void TearDownTestSuite() { fs::remove_all(folder_); }

  static std::string Path(std::string const& name) { return (folder_ / name).string(); }
  static std::vector<std::string> Paths(std::initializer_list<char const*> names) {
    std::vector<std::string> paths;
    for (char const* name : names) paths.push_back(Path(name));
    return paths;
  }

  static inline fs::path folder_;

 private:
  static void Import(std::string const& name) {
    zel::openErrors error = zel::openFailed;
    zel::Handle<zel::LibFile> const file(
        zel::LibFile::NewLibFile(zel::libKind11, Path(name + ".lb1").c_str(), error));
    ASSERT_TRUE(file);
    zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(file.get()));
    ASSERT_TRUE(maint->Import((std::string(ZEL_DATA "/") + name + ".xml").c_str(), false));
  }
};
