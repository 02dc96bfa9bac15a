// A component that gets another number.
#include <cstring>
#include <string>

#include "frame/ascii.h"
#include "tests/maint/maint_fixture.h"
#include "tests/support/sample_component.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

using test::ComponentBank;

// Collects the kinds of what is wrong with the structure of a library.
struct Kinds final : ZelFindingSink {
  void Found(zelFindings severity, char const* id, char const*, char const*) override {
    if (severity != findingNote) text += std::string(id) + " ";
  }
  std::string text;
};

class RenumberComponentTest : public test::MaintTest {
 protected:
  RenumberComponentTest() {
    EXPECT_TRUE(Maint().CreateBank("PURECOMP", "PURE", 0));
    Write(7, 64175, {"ETHANOL", "ETOH"});
    Write(8, 7732185, {"WATER"});
  }
  void Write(std::int32_t number, std::int32_t cas, std::initializer_list<char const*> ids) {
    char texts[12][9] = {};
    std::size_t n = 0;
    for (char const* id : ids) CopyText(id, texts[n++], sizeof texts[0]);
    bank_.Io()->Clear();
    bank_->SetIdentity(number, cas, 3, texts, "A NAME", "C2H6O", 1);
    bank_->SetProperty(0, 46.0);
    key_.SetKey(static_cast<long>(number));
    EXPECT_TRUE(Maint().WriteItem(bank_.Def(), "PURE", &key_));
  }
  template <typename Part>
  std::int32_t NumberOf(Part part) {
    key_.SetKey(part);
    std::int32_t number = 0;
    if (!Maint().ReadItem(bank_.Def(), "PURE", &key_)) return 0;
    bank_->GetIdentity(&number, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    return number;
  }
  std::string Refused(char const* name, std::int32_t from, std::int32_t to) {
    char text[300] = "?";
    EXPECT_FALSE(Maint().RenumberComponent(name, from, to, text));
    return text;
  }

  ComponentBank bank_;
};

TEST_F(RenumberComponentTest, AllIdentifiersLeadToTheNewNumber) {
  // An ID that the component once had.
  AddId("SPIRIT", 7);
  char text[300] = "?";
  ASSERT_TRUE(Maint().RenumberComponent("PURE", 7, 21000001, text));
  EXPECT_STREQ(text, "");
  Reopen(accRead);
  EXPECT_EQ(NumberOf(7L), 0);
  EXPECT_EQ(NumberOf(21000001L), 21000001);
  for (char const* id : {"ETHANOL", "ETOH", "SPIRIT"}) EXPECT_EQ(NumberOf(id), 21000001) << id;
  EXPECT_EQ(NumberOf(casn("64-17-5")), 21000001);
  EXPECT_EQ(NumberOf("WATER"), 8);
  EXPECT_EQ(NumberOf(casn("7732-18-5")), 8);
}

TEST_F(RenumberComponentTest, RecordStaysWhole) {
  ASSERT_TRUE(Maint().RenumberComponent("PURE", 7, 9, nullptr));
  EXPECT_EQ(NumberOf(9L), 9);
  std::int32_t number = 0, cas = 0, code = 0;
  char ids[12][9] = {};
  char name[41] = {};
  char formula[21] = {};
  std::uint8_t keep = 0;
  bank_->GetIdentity(&number, &cas, &code, ids, name, formula, &keep);
  EXPECT_EQ(cas, 64175);
  EXPECT_EQ(code, 3);
  EXPECT_STREQ(ids[1], "ETOH");
  EXPECT_STREQ(name, "A NAME");
  EXPECT_STREQ(formula, "C2H6O");
  EXPECT_EQ(keep, 1);
  double mw = 0.0;
  bank_->GetProperty(0, &mw);
  EXPECT_EQ(mw, 46.0);
  Reopen(accRead);
  Kinds kinds;
  EXPECT_TRUE(VerifyLibrary(&Library(), kinds));
  EXPECT_EQ(kinds.text, "") << "no block is left over, no identifier leads nowhere";
}

// So many that the tree has several levels, moved from one end to the other.
TEST_F(RenumberComponentTest, ManyInOneBank) {
  for (std::int32_t i = 100; i < 400; ++i) Write(i, 0, {("C" + std::to_string(i)).c_str()});
  for (std::int32_t i = 100; i < 400; ++i) {
    ASSERT_TRUE(Maint().RenumberComponent("PURE", i, 10000 - i, nullptr)) << i;
  }
  for (std::int32_t i = 100; i < 400; ++i) {
    EXPECT_EQ(NumberOf(("C" + std::to_string(i)).c_str()), 10000 - i);
  }
  Reopen(accRead);
  Kinds kinds;
  EXPECT_TRUE(VerifyLibrary(&Library(), kinds));
  EXPECT_EQ(kinds.text, "");
}

TEST_F(RenumberComponentTest, RefusedWithoutAChange) {
  EXPECT_EQ(Refused("PURE", 7, 8), "The new number is in use");
  EXPECT_EQ(Refused("PURE", 7, 7), "The numbers are the same");
  EXPECT_EQ(Refused("PURE", 6, 9), "The component is not there");
  EXPECT_EQ(Refused("NONE", 7, 9), "The component is not there");
  EXPECT_EQ(Refused(nullptr, 7, 9), "The component is not there");
  EXPECT_FALSE(Maint().RenumberComponent("PURE", 7, 8, nullptr));
  EXPECT_EQ(NumberOf("ETHANOL"), 7);
  EXPECT_EQ(NumberOf(8L), 8);
}

// An ID of the record leads to another component. What led to the old number does so again, and
// nothing else.
TEST_F(RenumberComponentTest, RefusedByTheIdentityCheck) {
  AddId("STALE", 9);
  std::int32_t const* data = nullptr;
  ASSERT_TRUE(Library().FindIdNumbers("ETOH", data));
  std::int32_t* word = nullptr;
  ASSERT_TRUE(Library().GetCharIdTree()->GetCurrentData(word));
  *word = 8;
  Library().GetCharIdTree()->WriteCurrentNode();
  EXPECT_NE(Refused("PURE", 7, 9).find("\"ETOH\" already refers to a component in this library"),
            std::string::npos);
  EXPECT_EQ(Maint().FindNumberById("ETHANOL"), 7);
  EXPECT_EQ(Maint().FindNumberById("STALE"), 9);
  EXPECT_EQ(NumberOf(7L), 7);
  EXPECT_EQ(NumberOf(9L), 0);
}

}  // namespace
}  // namespace zel
