// A library in memory, and its first file's words.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "store/lib_file.h"
#include "tests/support/file_words.h"
#include "tests/support/memory_file_system.h"

namespace zel::test {

class LibFileTest : public ::testing::Test {
 protected:
  using Bytes = MemoryFileSystem::Bytes;

  void TearDown() override { LibFile::ClearOrdwinNameIndex(); }

  std::unique_ptr<LibFile_i> Make(accModes mode, char const* path = "/lib.lb1") {
    return std::make_unique<LibFile_i>(files_, mode, path, "Library");
  }
  // A flushed library with one node in its second file.
  void MakeLibrary() {
    auto library = Make(accUpdate);
    ASSERT_EQ(library->CreateNew(libKind11), openOk);
    std::int32_t address = format::kNullAddress;
    std::int32_t const node[1000] = {};
    library->WriteBlock(address, 1000, node, 0);
    ASSERT_EQ(address, 112000001);
    library->CloseLibFile();
  }
  // The library opened without a password; it must open.
  std::unique_ptr<LibFile_i> Opened(accModes mode) {
    auto library = Make(mode);
    EXPECT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
    return library;
  }
  openErrors OpenAs(accModes mode, char const* password = "") {
    return Make(mode)->OpenExisting({true, password}, nullptr);
  }
  Bytes& File1() { return files_.Contents("/lib.lb1"); }

  static std::int32_t WordAt(Bytes const& bytes, std::size_t offset) {
    return test::FileWord(bytes.data() + offset);
  }
  static void PutWord(Bytes& bytes, std::size_t offset, std::int32_t word) {
    test::PutFileWord(bytes.data() + offset, word);
  }
  // The word that an action throws.
  template <typename Action>
  static unsigned long Thrown(Action const& action) {
    try {
      action();
    } catch (unsigned long word) {
      return word;
    }
    ADD_FAILURE() << "nothing was thrown";
    return 0;
  }

  MemoryFileSystem files_;
};

}  // namespace zel::test
