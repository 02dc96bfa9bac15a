// Bank objects: what they allocate, how they are destroyed, and their state when memory is short.
#include <gtest/gtest.h>

#include <cstring>
#include <new>

#include "banks/interface_ids.h"
#include "tests/banks/bank_fields.h"
#include "tests/banks/expected_fields.h"
#include "tests/support/allocations.h"
#include "tests/support/bank_types.h"

namespace zel {
namespace {

using test::AllocationWatch;
using test::ExpectedType;
using test::Typed;

// The first bank of a type, like any later one, allocates only the object itself.
TEST(BankObjects, TakeOnePieceOfMemoryOrAreNull) {
  for (char const* keyword : test::BankTypes()) {
    IZelBankDef* bank = nullptr;
    int requested = 0;
    {
      AllocationWatch const watch(2);
      bank = NewBank(keyword);
      requested = watch.Requested();
    }
    EXPECT_EQ(requested, 1) << keyword;
    ASSERT_NE(bank, nullptr) << keyword;
    bank->Release();
    {
      AllocationWatch const watch(1);
      bank = NewBank(keyword);
    }
    EXPECT_EQ(bank, nullptr) << keyword;
  }
}

TEST(BankObjects, ClearReadAndWriteTakeNoMemory) {
  for (ExpectedType const& type : test::ExpectedTypes()) {
    Typed<IZelBankDef> bank(type.keyword, IID_IZelBankDef);
    std::vector<std::int32_t> block(64);
    for (std::size_t f = 1; f <= type.recordWords.size(); ++f) {
      auto const format = static_cast<std::int32_t>(f);
      AllocationWatch const watch;
      bank->Clear();
      bank.IO()->WriteBlock(block.data(), format);
      bank.IO()->ReadBlock(block.data(), format);
      EXPECT_EQ(watch.Requested(), 0) << type.keyword;
    }
  }
}

TEST(BankObjects, EndThroughAnyFace) {
  for (ZelIid const* id :
       {&IID_IUnknown, &IID_IZelBankDef, &IID_IZelBankIO, &IID_IZelBankTest, &IID_IZelWilson}) {
    IZelBankDef* bank = NewWilson();
    void* face = nullptr;
    ASSERT_EQ(bank->QueryInterface(*id, &face), kStatusOk);
    auto* last = static_cast<IUnknown*>(face);
    EXPECT_EQ(bank->Release(), 1);
    AllocationWatch const watch;
    EXPECT_EQ(last->AddRef(), 2);
    EXPECT_EQ(last->Release(), 1);
    EXPECT_EQ(watch.Freed(), 0);
    EXPECT_EQ(last->Release(), 0);
    EXPECT_EQ(watch.Freed(), 1);
  }
}

TEST(BankObjects, EndWithTheFlagsOfTheirSources) {
  Typed<IZelLkp> bank("LKP", IID_IZelLkp);
  std::uint8_t const flags[3] = {1, 0, 0};
  AllocationWatch const watch;
  bank.IO()->SetSourceList(3, flags, flags);
  bank.IO()->SetSourceList(2, flags, flags);
  EXPECT_EQ(watch.Requested(), 2);
  EXPECT_EQ(watch.Freed(), 1) << "the list before";
}

// Clear and GetSourceFlags use the number of flags: it must not be set before them.
TEST(BankObjects, ShortMemoryLeavesTheFlagsOfTheirSources) {
  Typed<IZelLkp> bank("LKP", IID_IZelLkp);
  std::uint8_t const two[2] = {1, 1};
  std::uint8_t const many[32] = {};
  bank.IO()->SetSourceList(2, two, two);
  {
    AllocationWatch const watch(1);
    EXPECT_THROW(bank.IO()->SetSourceList(32, many, many), std::bad_alloc);
  }
  std::uint8_t flags[32];
  std::memset(flags, 9, sizeof flags);
  bank.Def()->GetSourceFlags(flags);
  EXPECT_EQ(flags[0], 1);
  EXPECT_EQ(flags[1], 1);
  EXPECT_EQ(flags[2], 9);
  char source[260];
  std::uint8_t isProtected = 0;
  bank.Def()->GetSource(source, &isProtected);
  EXPECT_STREQ(source, "Multiple");
  EXPECT_EQ(isProtected, 1);
}

}  // namespace
}  // namespace zel
