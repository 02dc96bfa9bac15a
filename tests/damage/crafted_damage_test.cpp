// Damage made by hand in a library of all bank types, with the way in which it must be reported,
// and update sessions on damaged libraries.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>

#include "maint/lib_maint.h"
#include "store/bank_key.h"
#include "store/key.h"
#include "tests/support/sample_library.h"
#include "tests/support/sanitizers.h"

namespace zel {
namespace {

namespace f = format;
using Bytes = test::MemoryFileSystem::Bytes;

constexpr std::int32_t kHostile[] = {-1,        0,          1,         2,         INT32_MAX,
                                     INT32_MIN, 990000000,  0,         111000001, 112000000,
                                     112999999, 1120000001, 121000001, 119000001, 111999999};

class CraftedTest : public ::testing::Test, protected test::SampleFiles {
 protected:
  void SetUp() override {
    original1_ = files_.Contents(test::kSamplePath);
    original2_ = files_.Contents(test::kSamplePath2);
  }
  void Restore() {
    files_.Contents(test::kSamplePath) = original1_;
    files_.Contents(test::kSamplePath2) = original2_;
  }

  Bytes original1_;
  Bytes original2_;
};

// Under a sanitizer, each word gets one in three of them, unless ZEL_DAMAGE_ALL is set.
TEST_F(CraftedTest, HostileWordsInHeaderTableAndHeads) {
  bool const isSampled = ZEL_ADDRESS_SANITIZER && std::getenv("ZEL_DAMAGE_ALL") == nullptr;
  for (std::size_t byte = 0; byte < 2096; byte += 4) {
    std::size_t turn = byte / 4;
    for (std::int32_t word : kHostile) {
      if (isSampled && turn++ % 3 != 0) continue;
      Put(test::kSamplePath, byte, word);
      test::ReadEverything(files_);
      Restore();
    }
  }
}

TEST_F(CraftedTest, BankHeadsThatCannotBeTrue) {
  std::size_t const entry = EntryOf("VANLAAR", "B1");
  struct Row {
    int word;
    std::int32_t value;
    char const* reason;  // left by a failed read; null: the root's address is thrown
  };
  std::int32_t const root = Get(test::kSamplePath2, entry + 4 * (f::kBankHead + 7));
  Row const rows[] = {{1, 999, nullptr},
                      {1, -1, nullptr},
                      {2, 1, "Incorrect data block length"},
                      {2, 15, "Incorrect data block length"},
                      {2, INT32_MAX, "Incorrect data block length"},
                      {2, 994, nullptr},
                      {3, 0, "Incorrect key length"},
                      {3, 1, "Incorrect key length"},
                      {3, 11, "Incorrect key length"},
                      {4, 13, "Incorrect data block length"},
                      {4, -14, "Incorrect data block length"},
                      {5, 0, nullptr},
                      {5, 2, nullptr},
                      {5, 59, nullptr},
                      {5, INT32_MIN, nullptr}};
  for (Row const& row : rows) {
    Put(test::kSamplePath2, entry + 4 * static_cast<std::size_t>(f::kBankHead + row.word),
        row.value);
    LibFile_i library(files_, accRead, test::kSamplePath, "s");
    ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
    LibMaint_i maint(&library);
    FaceRef<IZelBankDef> const bank(NewBank("VANLAAR"));
    Key_i key;
    key.SetKey(1L, 2L);
    try {
      EXPECT_FALSE(maint.ReadItem(bank.Get(), "B1", &key));
      ASSERT_NE(row.reason, nullptr) << row.word << " " << row.value;
      EXPECT_EQ(maint.Log().PendingText(), row.reason) << row.word << " " << row.value;
    } catch (unsigned long word) {
      EXPECT_EQ(row.reason, nullptr) << row.word << " " << row.value;
      EXPECT_EQ(word, static_cast<unsigned long>(root));
    }
    Restore();
  }
}

TEST_F(CraftedTest, HostileWordsInADirectoryEntry) {
  std::size_t const entry = EntryOf("NRTL", "B2");
  for (std::size_t word = 0; word < 16; ++word) {
    for (std::int32_t value : kHostile) {
      Put(test::kSamplePath2, entry + 4 * word, value);
      test::Finding const found = test::ReadEverything(files_);
      EXPECT_EQ(found.openError, 0);
      EXPECT_EQ(found.banks.size(), 55U) << "the other banks stay";
      Restore();
    }
  }
}

TEST_F(CraftedTest, UpdateSessionsOnDamagedLibrariesEnd) {
  std::mt19937 random(7);
  for (int image = 0; image < 1500; ++image) {
    bool const first = random() % 4 == 0;
    char const* path = first ? test::kSamplePath : test::kSamplePath2;
    std::size_t const size = files_.Contents(path).size();
    for (int n = 0; n < 3; ++n) {
      std::size_t const byte = random() % (size / 4) * 4;
      Put(path, byte, kHostile[random() % std::size(kHostile)]);
    }
    try {
      LibFile_i library(files_, accUpdate, test::kSamplePath, "s");
      if (library.OpenExisting({true, ""}, nullptr) == openOk) {
        LibMaint_i maint(&library);
        FaceRef<IZelBankDef> const bank(NewBank("NRTL"));
        Key_i key;
        for (long i = 1; i <= 3; ++i) {
          key.SetKey(i, 500 + i);
          for (char const* name : {"B1", "B2"}) {
            try {
              maint.WriteItem(bank.Get(), name, &key);
              maint.DeleteItem("NRTL", name, &key);
            } catch (unsigned long) {
            }
          }
        }
        maint.CreateBank("WILSON", "NEW", 0);
        maint.DeleteBank("WILSON", "B1");
        library.CloseLibFile();
      }
    } catch (unsigned long) {
    }
    Restore();
  }
}

}  // namespace
}  // namespace zel
