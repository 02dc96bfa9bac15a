// Three libraries in memory, and a search over them.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "lists/lib_search.h"
#include "maint/face_ref.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/sample_component.h"

namespace zel::test {

class SearchTest : public ::testing::Test {
 protected:
  static constexpr std::size_t kLibraries = 3;

  SearchTest() {
    for (std::size_t i = 0; i < kLibraries; ++i) {
      std::string const path = "/lib" + std::to_string(i) + ".lb1";
      std::string const name = "Lib" + std::to_string(i);
      files_.push_back(std::make_unique<LibFile_i>(system_, accUpdate, path.c_str(), name));
      EXPECT_EQ(files_.back()->CreateNew(libKind11), openOk);
      all_[i] = files_.back().get();
    }
  }
  ~SearchTest() override { LibFile::ClearOrdwinNameIndex(); }

  // Writes a pair into a bank of a library; the bank is made if it does not exist.
  void Write(std::size_t library, char const* type, char const* name, long i, long j, double aij,
             std::int32_t format = 0, char const* field = "aij") {
    LibMaint_i maint(files_[library].get());
    if (!maint.BankExists(type, name)) {
      ASSERT_TRUE(maint.CreateBank(type, name, format));
    }
    FaceRef<IZelBankDef> const bank(NewBank(type));
    ASSERT_EQ(bank->SetDoubleField(field, &aij), kStatusOk);
    Key_i key;
    key.SetKey(i, j);
    ASSERT_TRUE(maint.WriteItem(bank.Get(), name, &key));
  }
  void WriteComponent(std::size_t library, char const* name, std::int32_t number,
                      std::vector<std::pair<std::uint32_t, double>> const& constants) {
    LibMaint_i maint(files_[library].get());
    if (!maint.BankExists("PURECOMP", name)) {
      ASSERT_TRUE(maint.CreateBank("PURECOMP", name, 0));
    }
    ComponentBank bank;
    SetIdentity(bank.Get(), number, 64175, "ETHANOL", 1);
    for (auto const& [index, value] : constants) bank->SetProperty(index, value);
    Key_i key;
    key.SetKey(static_cast<long>(number));
    ASSERT_TRUE(maint.WriteItem(bank.Def(), name, &key));
  }

  // Puts a word into the head of the first library's bank A; returns the previous word.
  std::int32_t PutInHead(int word, std::int32_t value) {
    std::int32_t const* entry = nullptr;
    EXPECT_TRUE(files_[0]->FindBank("VANLAAR", "A", entry, false));
    std::int32_t* data = nullptr;
    EXPECT_TRUE(files_[0]->GetBankTree()->GetCurrentData(data));
    std::int32_t const before = std::exchange(data[format::kBankHead + word], value);
    files_[0]->GetBankTree()->WriteCurrentNode();
    return before;
  }

  bool Find(IZelBankDef* bank, long i, long j, bool allBanks = false) {
    Key_i key;
    key.SetKey(i, j);
    return search_.Search(&key, bank, allBanks);
  }
  bool FindComponent(ComponentBank& bank, long number, bool allBanks) {
    Key_i key;
    key.SetKey(number);
    return search_.Search(&key, bank.Def(), allBanks);
  }
  static double Aij(IZelBankDef* bank) {
    double value = 0.0;
    EXPECT_EQ(bank->GetDoubleField("aij", &value), kStatusOk);
    return value;
  }
  static std::string Source(IZelBankDef* bank) {
    char text[260];
    std::uint8_t isProtected = 0;
    bank->GetSource(text, &isProtected);
    return text;
  }

  MemoryFileSystem system_;
  std::vector<std::unique_ptr<LibFile_i>> files_;
  LibFile* all_[kLibraries] = {};
  LibSearch_i search_;
  FaceRef<IZelBankDef> vanLaar_{NewBank("VANLAAR")};
};

inline constexpr char kA[1][9] = {"A"};
inline constexpr char kAA[2][9] = {"A", "A"};
inline constexpr char kAAA[3][9] = {"A", "A", "A"};

}  // namespace zel::test
