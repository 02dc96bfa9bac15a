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
  // The folder without the histories of libraries.
  Contents Now() const { return Part(false); }
  // The files of the histories, by their paths in them; those of a version by its number first.
  Contents History() const { return Part(true); }
  // After one change of a library in the folder `before`, which is, or is not, in place: the only
  // version is that library, or there is no history.
  void HistoryFits(Contents const& before, bool isChanged) const {
    Contents history = History();
    if (!isChanged || before.empty()) {
      EXPECT_TRUE(history.empty()) << history.begin()->first;
      return;
    }
    EXPECT_EQ(history.erase("1") + history.erase("1/change"), 2U);
    EXPECT_FALSE(history.empty());
    for (auto const& [name, bytes] : history) {
      auto const old = before.find(name.substr(name.find('/') + 1));
      EXPECT_TRUE(old != before.end() && old->second == bytes) << name;
    }
  }

  Contents old_;

 private:
  Contents Part(bool ofHistory) const {
    std::string const folder = ".zel-history";
    Contents part;
    for (auto const& [name, bytes] : ContentsOf(Own())) {
      std::size_t const at = name.find(folder);
      bool const isInside = at != std::string::npos;
      std::size_t const begin = at + folder.size() + 1;
      if (ofHistory && isInside && begin < name.size()) part[name.substr(begin)] = bytes;
      if (!ofHistory && !isInside) part[name] = bytes;
    }
    return part;
  }
};

}  // namespace zel::test
