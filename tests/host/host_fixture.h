// A folder for one test of a host, removed after the test, and a library in it.
#pragma once

#include <gtest/gtest.h>
#include <zelaccess/ZelAccess.h>

#include <filesystem>
#include <string>

class HostFolderTest : public ::testing::Test {
 protected:
  HostFolderTest() {
    auto const* unit = ::testing::UnitTest::GetInstance();
    auto const* info = unit->current_test_info();
    folder_ = std::filesystem::temp_directory_path() /
              ("zel_host_" + std::to_string(unit->random_seed()) + info->test_suite_name() +
               info->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~HostFolderTest() override { std::filesystem::remove_all(folder_); }

  std::string Path(std::string const& name) const { return (folder_ / name).string(); }
  zel::Handle<zel::LibFile> NewLibrary(std::string const& name) const {
    zel::openErrors error{};
    zel::Handle<zel::LibFile> library(
        zel::LibFile::NewLibFile(zel::libKind11, Path(name).c_str(), error));
    EXPECT_EQ(error, zel::openOk);
    return library;
  }
  zel::Handle<zel::LibFile> Open(zel::accModes mode, std::string const& name) const {
    zel::openErrors error{};
    zel::Handle<zel::LibFile> library(
        zel::LibFile::OpenLibFile(mode, Path(name).c_str(), "", error));
    EXPECT_EQ(error, zel::openOk);
    return library;
  }

 private:
  std::filesystem::path folder_;
};
