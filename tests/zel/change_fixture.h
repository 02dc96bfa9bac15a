// A small library next to the others, in a folder whose old state can be restored.
#pragma once

#include <filesystem>
#include <string>

#include "tests/zel/zel_fixture.h"

namespace zel::test {

class ChangeTest : public ZelTest {
 protected:
  // Makes the library, and keeps the bytes of its files.
  void SetUp() override {
    std::filesystem::create_directory(Own());
    Good("copy sample.lb1 own/own.lb1 --create --bank OCTANE");
    old_ = Now();
    ASSERT_EQ(old_.size(), 2U);
  }
  std::filesystem::path Own() const { return Folder() / "own"; }
  void PutBack(Contents const& contents) const {
    std::filesystem::remove_all(Own());
    std::filesystem::create_directory(Own());
    for (auto const& [name, bytes] : contents) MakeFile("own/" + name, bytes);
  }
  // True if both files have the bytes of the library, or are missing in both.
  static bool HasLibrary(Contents const& folder, Contents const& library) {
    for (char const* name : {"own.lb1", "own.lb2"}) {
      auto const in = folder.find(name);
      auto const wanted = library.find(name);
      if ((in == folder.end()) != (wanted == library.end())) return false;
      if (in != folder.end() && in->second != wanted->second) return false;
    }
    return true;
  }
  Contents Now() const { return ContentsOf(Own()); }

  Contents old_;
};

}  // namespace zel::test
