// An open library, and own.lb1, which does not exist before a test.
#pragma once

#include <string>

#include "c_fixture.h"

class CLibraryTest : public CFaceTest {
 protected:
  void SetUp() override {
    for (fs::directory_entry const& entry : fs::directory_iterator(Path(""))) {
      if (entry.path().filename().string().rfind("own", 0) == 0) fs::remove_all(entry.path());
    }
  }
  void TearDown() override {
    if (library_ == nullptr) return;
    EXPECT_EQ(zel_library_close(&library_), ZEL_OK) << ctest::Reason();
  }
  void CopyFrom(char const* name) {
    for (char const* ending : {".lb1", ".lb2"}) {
      fs::copy_file(Path(name) + ending, Path("own") + ending);
    }
  }
  zel_status Open(char const* name, zel_open_options const& options) {
    return zel_library_open(Path(name).c_str(), &options, &library_);
  }
  void OpenOwn(std::int32_t mode) {
    zel_open_options const options = {sizeof options, mode, 0, 0, 0, nullptr, nullptr};
    ASSERT_EQ(Open("own.lb1", options), ZEL_OK) << ctest::Reason();
  }
  std::string TextOf(std::int32_t which) {
    return ctest::Text([&](char* text, std::size_t size, std::size_t* length) {
      return zel_library_text(library_, which, text, size, length);
    });
  }

  zel_library* library_ = nullptr;
};
