// Identifiers of interfaces, and the faces that they return.
#include <gtest/gtest.h>

#include <climits>

#include "tests/banks/bank_fields.h"
#include "tests/support/bank_types.h"

namespace zel {
namespace {

// Copied before any constructor of ordinary priority runs, as a host's global objects may do.
struct EarlyIdentifiers {
  EarlyIdentifiers()
      : bankDef(IID_IZelBankDef),
        bankIO(IID_IZelBankIO),
        first(IID_IZelAlpha),
        component(IID_IZelPureComp),
        last(IID_IZelWilson),
        unknown(IID_IUnknown) {}
  ZelIid bankDef, bankIO, first, component, last, unknown;
};
[[gnu::init_priority(101)]] EarlyIdentifiers const early;

TEST(Identifiers, AreThereBeforeAnyConstructor) {
  EXPECT_EQ(early.bankDef, (ZelIid{0xDEADBEEF, 0, 0, {}}));
  EXPECT_EQ(early.bankIO, (ZelIid{0xDEADBEEF, 0, 1, {}}));
  EXPECT_EQ(early.first, (ZelIid{0xDEADBEEF, 1, 0, {}}));
  EXPECT_EQ(early.component, (ZelIid{0xDEADBEEF, 1, 29, {}}));
  EXPECT_EQ(early.last, (ZelIid{0xDEADBEEF, 1, 49, {}}));
  EXPECT_EQ(early.unknown, (ZelIid{0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}));
}

// Every face derives from IUnknown separately, but the object has one identity.
TEST(Identifiers, UnknownIsTheDefinitionFaceWhicheverFaceIsAsked) {
  for (char const* type : test::BankTypes()) {
    IZelBankDef* bank = NewBank(type);
    for (ZelIid const* id : {&IID_IUnknown, &IID_IZelBankDef, &IID_IZelBankIO}) {
      void* face = nullptr;
      void* unknown = nullptr;
      ASSERT_EQ(bank->QueryInterface(*id, &face), kStatusOk);
      auto* asked = static_cast<IUnknown*>(face);
      ASSERT_EQ(asked->QueryInterface(IID_IUnknown, &unknown), kStatusOk) << type;
      EXPECT_EQ(unknown, static_cast<void*>(bank)) << type;
      EXPECT_EQ(asked->QueryInterface(IID_IUnknown, nullptr), kStatusNoInterface);
      EXPECT_EQ(asked->Release(), 2);
      EXPECT_EQ(bank->Release(), 1);
    }
    EXPECT_EQ(bank->Release(), 0);
  }
}

TEST(Identifiers, NegativeListsOfTypesHoldNothing) {
  char list[2][9] = {"KEPT", "KEPT"};
  for (long count : {0L, -1L, LONG_MIN}) {
    GetBankTypeList(count, list);
    GetRefBankTypeList("PSRK", count, list);
  }
  EXPECT_STREQ(list[0], "KEPT");
  EXPECT_STREQ(list[1], "KEPT");
}

}  // namespace
}  // namespace zel
