// Identity checks of components.
#include <cstdio>
#include <string>

#include "frame/ascii.h"
#include "store/packed_text.h"
#include "tests/maint/maint_fixture.h"
#include "tests/support/file_words.h"
#include "tests/support/sample_component.h"

namespace zel {
namespace {

using test::ComponentBank;

constexpr char kNotFitting[] = "does not match";

class CheckTest : public test::MaintTest {
 protected:
  CheckTest()
      : reference_(std::make_unique<LibFile_i>(otherFiles_, accUpdate, "/ref.lb1", "Reference")) {
    EXPECT_TRUE(Maint().CreateBank("PURECOMP", "PURE", 0));
    EXPECT_EQ(reference_->CreateNew(libKind11), openOk);
  }
  void UseReference() { LibFile::SetOrdwinNameIndex(reference_.get()); }

  void Fill(std::int32_t number, std::int32_t cas, std::initializer_list<char const*> ids) {
    char texts[12][9] = {};
    std::size_t n = 0;
    for (char const* id : ids) CopyText(id, texts[n++], sizeof texts[0]);
    bank_.Io()->Clear();
    bank_->SetIdentity(number, cas, 0, texts, "A NAME", "C2H6O", 0);
  }
  bool WriteTo(LibMaint_i& maint, char const* name) {
    std::int32_t number = 0, cas = 0, refCode = 0;
    char ids[12][9], text[41], formula[21];
    std::uint8_t keep = 0;
    bank_->GetIdentity(&number, &cas, &refCode, ids, text, formula, &keep);
    key_.SetKey(static_cast<long>(number));
    return maint.WriteItem(bank_.Def(), name, &key_);
  }
  void Have(std::int32_t number, std::int32_t cas, std::initializer_list<char const*> ids) {
    Fill(number, cas, ids);
    ASSERT_TRUE(WriteTo(Maint(), "PURE"));
  }
  void HaveInReference(char const* bank, std::int32_t number, std::int32_t cas,
                       std::initializer_list<char const*> ids) {
    LibMaint_i maint(reference_.get());
    maint.CreateBank("PURECOMP", bank, 0);
    Fill(number, cas, ids);
    ASSERT_TRUE(WriteTo(maint, bank));
  }
  // The reasons that a check reports; empty if there are none.
  std::string Reasons(Key* key = nullptr) {
    char text[300] = "old";
    bool const good = key == nullptr ? Maint().CheckComponent(bank_.Get(), text)
                                     : Maint().CheckComponent(bank_.Get(), key, text);
    EXPECT_EQ(good, text[0] == '\0') << text;
    return text;
  }
  template <typename... Parts>
  std::string ReasonsFor(Parts... parts) {
    key_.SetKey(parts...);
    return Reasons(&key_);
  }
  std::string Warnings() {
    Maint().SetLogLevel(1);
    ::testing::internal::CaptureStdout();
    Maint().CheckComponent(bank_.Get(), nullptr);
    Maint().SetLogLevel(0);
    return ::testing::internal::GetCapturedStdout();
  }

  // Opens the reference library again, with another root of its n-th tree on file.
  void ReopenReferenceWithRoot(int tree, std::int32_t root) {
    LibFile::ClearOrdwinNameIndex();
    reference_->CloseLibFile();
    std::byte* const file1 = otherFiles_.Contents("/ref.lb1").data();
    std::int32_t const address =
        test::FileWord(file1 + format::kWordBytes * format::kTreeHeadsAddress);
    ASSERT_EQ(address / format::kFileFactor % 10, 1) << "the heads stand in file 1";
    std::int32_t const word = (address % format::kFileFactor - 1) * format::kBlockWordsOfFile1 +
                              tree * format::kHeadWords + format::kHeadRootAddress;
    test::PutFileWord(file1 + format::kWordBytes * word, root);
    reference_ = std::make_unique<LibFile_i>(otherFiles_, accRead, "/ref.lb1", "Reference");
    ASSERT_EQ(reference_->OpenExisting({true, ""}, nullptr), openOk);
    UseReference();
  }

  test::MemoryFileSystem otherFiles_;
  std::unique_ptr<LibFile_i> reference_;
  ComponentBank bank_;
};

// --- the key -------------------------------------------------------------------------------------

TEST_F(CheckTest, KeyThatFitsHasNothingSaid) {
  Fill(7, 64175, {"ETHANOL", "EtOH"});
  EXPECT_EQ(ReasonsFor(7L), "");
  EXPECT_EQ(ReasonsFor("ethanol"), "");
  EXPECT_EQ(ReasonsFor("ETOH"), "");
  EXPECT_EQ(ReasonsFor(casn("64-17-5")), "");
  EXPECT_EQ(Reasons(), "");
}

TEST_F(CheckTest, KeyThatDoesNotFitIsNamed) {
  Fill(7, 64175, {"ETHANOL"});
  EXPECT_EQ(ReasonsFor(8L), "Key \"8\" does not match the library ID number of the component");
  EXPECT_EQ(ReasonsFor("water"), "Key \"WATER\" does not match any library ID of the component");
  EXPECT_EQ(ReasonsFor(casn("7732-18-5")),
            "Key \"7732-18-5\" does not match the CAS number of the component");
}

TEST_F(CheckTest, KeyMustHaveOnePlace) {
  Fill(7, 0, {"ETHANOL"});
  EXPECT_EQ(ReasonsFor(7L, 7L), "Key contains more than one component");
  key_.ClearKey();
  EXPECT_EQ(Reasons(&key_), "Key contains more than one component");
}

TEST_F(CheckTest, DirectKeyIsUndefined) {
  std::int32_t const words[] = {7, 7};
  Fill(7, 0, {"ETHANOL"});
  key_.SetKey(7L);  // an earlier use must have no effect
  key_.SetKeyWords(1, words);
  EXPECT_EQ(Reasons(&key_), "Key is undefined");
  key_.SetKeyWords(2, words);
  EXPECT_EQ(Reasons(&key_), "Key contains more than one component");
}

// --- IDs -----------------------------------------------------------------------------------------

TEST_F(CheckTest, ComponentSavedAgainConflictsWithNothing) {
  Have(7, 64175, {"ETHANOL", "ETOH"});
  EXPECT_EQ(Reasons(), "");
  EXPECT_EQ(Warnings(), "");
  EXPECT_TRUE(WriteTo(Maint(), "PURE"));
}

TEST_F(CheckTest, ConflictsInThisLibraryAreListed) {
  Have(7, 0, {"A", "B", "C", "D"});
  Fill(8, 0, {"X", "b"});
  EXPECT_EQ(Reasons(), "Library ID \"b\" already refers to a component in this library");
  Fill(8, 0, {"A", "X", "B"});
  EXPECT_EQ(Reasons(), "Library IDs \"A\" and \"B\" already refer to components in this library");
  Fill(8, 0, {"A", "B", "C"});
  EXPECT_EQ(Reasons(),
            "Library IDs \"A\", \"B\", and \"C\" already refer to components in this library");
  Fill(8, 0, {"A", "B", "C", "D"});
  EXPECT_EQ(
      Reasons(),
      "Library IDs \"A\", \"B\", \"C\", and \"D\" already refer to components in this library");
}

TEST_F(CheckTest, ConflictsInTheReferenceLibraryAreListed) {
  UseReference();
  HaveInReference("ORDWIN", 7, 0, {"A", "B", "C"});
  Fill(8, 0, {"A"});
  EXPECT_EQ(Reasons(), "Library ID \"A\" already refers to a Ordwin component");
  Fill(8, 0, {"A", "B"});
  EXPECT_EQ(Reasons(), "Library IDs \"A\" and \"B\" already refer to Ordwin components");
  Fill(8, 0, {"A", "B", "C"});
  EXPECT_EQ(Reasons(), "Library IDs \"A\", \"B\", and \"C\" already refer to Ordwin components");
  LibFile::ClearOrdwinNameIndex();
  EXPECT_EQ(Reasons(), "");
}

TEST_F(CheckTest, IdInBothLibrariesStandsInTheReferenceListAlone) {
  Have(7, 0, {"A", "B"});
  UseReference();
  HaveInReference("ORDWIN", 9, 0, {"A", "C"});
  Fill(8, 0, {"A", "B", "C"});
  EXPECT_EQ(Reasons(),
            "Library ID \"B\" already refers to a component in this library  "
            "Library IDs \"A\" and \"C\" already refer to Ordwin components");
}

TEST_F(CheckTest, IdUnderNumberZeroIsNoConflict) {
  AddId("A", 0);
  std::int32_t key[10] = {};
  UseReference();
  TextToWords("B", key, 2);
  AddTo(*reference_->GetCharIdTree(), key, 0);
  Fill(8, 0, {"A", "B"});
  EXPECT_EQ(Reasons(), "");
}

// What is in a damaged index remains unknown; the other library is still searched.
TEST_F(CheckTest, IndexThatCannotBeReadKnowsNothing) {
  constexpr int kIdTree = 1;
  constexpr int kCasTree = 2;
  constexpr std::int32_t kNowhere = 112'999'999;
  HaveInReference("ORDWIN", 9, 64175, {"A"});
  Have(7, 0, {"B"});
  ReopenReferenceWithRoot(kIdTree, kNowhere);
  std::int32_t const* data = nullptr;
  ASSERT_THROW(reference_->FindIdNumbers("A", data), unsigned long) << "the damage is there";
  Fill(8, 64175, {"A", "B"});
  EXPECT_EQ(Reasons(), "Library ID \"B\" already refers to a component in this library");
  EXPECT_NE(Warnings(), "") << "the index of CAS numbers is whole";
  ReopenReferenceWithRoot(kCasTree, kNowhere);
  ASSERT_THROW(reference_->FindCasNumbers(casn("64-17-5"), data), unsigned long);
  EXPECT_EQ(Warnings(), "");
}

TEST_F(CheckTest, OtherComponentThatCannotBeReadIsWarnedOfByItsNumber) {
  constexpr int kDirectory = 0;
  constexpr std::int32_t kNowhere = 112'999'999;
  HaveInReference("ORDWIN", 9, 64175, {"A"});
  ReopenReferenceWithRoot(kDirectory, kNowhere);
  std::int32_t const* entry = nullptr;
  ASSERT_THROW(reference_->FindBank("PURECOMP", "ORDWIN", entry, false), unsigned long);
  Fill(8, 64175, {"B"});
  EXPECT_NE(Warnings().find("CAS number \"64-17-5\" duplicates component \"\" (00000009)"),
            std::string::npos)
      << Warnings();
}

TEST_F(CheckTest, LibraryItselfAsReferenceGivesOwnConflicts) {
  Have(7, 0, {"A"});
  LibFile::SetOrdwinNameIndex(&Library());
  Fill(8, 0, {"A"});
  EXPECT_EQ(Reasons(), "Library ID \"A\" already refers to a component in this library");
}

TEST_F(CheckTest, ReasonsStandTogetherWithTwoBlanks) {
  Have(7, 0, {"A"});
  UseReference();
  HaveInReference("ORDWIN", 9, 0, {"B"});
  Fill(8, 0, {"A", "B"});
  EXPECT_EQ(ReasonsFor(5L),
            "Key \"5\" does not match the library ID number of the component  "
            "Library ID \"A\" already refers to a component in this library  "
            "Library ID \"B\" already refers to a Ordwin component");
}

TEST_F(CheckTest, ReasonsAreCutAt299Characters) {
  Have(7, 0, {"ABCDEFG1", "ABCDEFG2", "ABCDEFG3", "ABCDEFG4", "ABCDEFG5", "ABCDEFG6"});
  UseReference();
  HaveInReference("ORDWIN", 9, 0,
                  {"ABCDEFG7", "ABCDEFG8", "ABCDEFG9", "ABCDEFGA", "ABCDEFGB", "ABCDEFGC"});
  Fill(8, 0,
       {"ABCDEFG1", "ABCDEFG2", "ABCDEFG3", "ABCDEFG4", "ABCDEFG5", "ABCDEFG6", "ABCDEFG7",
        "ABCDEFG8", "ABCDEFG9", "ABCDEFGA", "ABCDEFGB", "ABCDEFGC"});
  std::string const reasons = ReasonsFor(5L);
  EXPECT_EQ(reasons.size(), 299U);
  EXPECT_EQ(reasons.find("Key \"5\""), 0U);
  EXPECT_FALSE(Maint().CheckComponent(bank_.Get(), &key_, nullptr)) << "the text may be absent";
}

// --- CAS numbers ---------------------------------------------------------------------------------

TEST_F(CheckTest, SharedCasNumberIsOnlyAWarning) {
  Have(12, 64175, {"ETHANOL"});
  Fill(13, 64175, {"OTHER"});
  EXPECT_EQ(
      Warnings(),
      "***  : warning : CAS number \"64-17-5\" duplicates component \"ETHANOL\" (00000012)\n");
  EXPECT_EQ(Reasons(), "");
  EXPECT_TRUE(WriteTo(Maint(), "PURE")) << "written all the same";
  EXPECT_EQ(Maint().Log().WarningCount(), 3);
}

TEST_F(CheckTest, ReferenceLibraryIsAskedForTheCasNumberFirst) {
  Have(12, 64175, {"OWN"});
  UseReference();
  HaveInReference("ORDWIN", 10000007, 64175, {"ETHANOL"});
  Fill(13, 64175, {"OTHER"});
  EXPECT_EQ(Warnings(),
            "***  : warning : CAS number \"64-17-5\" duplicates component \"ETHANOL\" "
            "(10000007)\n");
  Fill(10000007, 64175, {"OTHER"});
  EXPECT_EQ(Warnings(),
            "***  : warning : CAS number \"64-17-5\" duplicates component \"OWN\" "
            "(00000012)\n")
      << "its own number there, so this library is asked";
}

TEST_F(CheckTest, CasNumberZeroIsNotLookedUp) {
  AddCas(0, 5);
  Fill(13, 0, {"OTHER"});
  EXPECT_EQ(Warnings(), "");
  ASSERT_TRUE(WriteTo(Maint(), "PURE"));
}

TEST_F(CheckTest, CasNumberZeroGetsNoEntry) {
  std::int32_t keyWords = 0, dataWords = 0;
  std::int32_t const* entry = nullptr;
  Have(13, 0, {"OTHER"});
  Library().GetCasTree()->WalkBegin(keyWords, dataWords);
  EXPECT_FALSE(Library().GetCasTree()->WalkNext(entry));
  Have(14, 64175, {"ETHANOL"});
  Library().GetCasTree()->WalkBegin(keyWords, dataWords);
  ASSERT_TRUE(Library().GetCasTree()->WalkNext(entry));
  EXPECT_EQ(entry[0], 64175);
  EXPECT_EQ(entry[keyWords], 14);
  EXPECT_FALSE(Library().GetCasTree()->WalkNext(entry));
}

TEST_F(CheckTest, WarningStandsBesideAnError) {
  Have(12, 64175, {"ETHANOL"});
  Fill(13, 64175, {"ETHANOL"});
  EXPECT_NE(Warnings(), "");
  EXPECT_NE(Reasons(), "");
}

// --- at a write ----------------------------------------------------------------------------------

TEST_F(CheckTest, RefusedComponentIsNotWritten) {
  Have(12, 64175, {"ETHANOL"});
  Fill(13, 0, {"ETHANOL"});
  EXPECT_FALSE(WriteTo(Maint(), "PURE"));
  EXPECT_EQ(Maint().Log().PendingText(),
            "Library ID \"ETHANOL\" already refers to a component in this library");
  EXPECT_FALSE(Maint().RewriteItem(bank_.Def()));
  EXPECT_EQ(Maint().Log().ReportError(""), Verdict::kStop);
  EXPECT_STREQ(Maint().GetLastErrorText(),
               "Library ID \"ETHANOL\" already refers to a component in this library");
  EXPECT_FALSE(Maint().ItemExists(bank_.Def(), "PURE", &key_));
}

TEST_F(CheckTest, RefusalLeavesEveryByteOfTheFiles) {
  Have(12, 64175, {"ETHANOL"});
  Library().FlushLibFile();
  auto const file1 = files_.Contents("/m.lb1");
  auto const file2 = files_.Contents("/m.lb2");
  ASSERT_FALSE(file2.empty());
  Fill(13, 7732185, {"NEW", "ETHANOL"});
  EXPECT_FALSE(WriteTo(Maint(), "PURE"));
  Fill(13, 7732185, {"NEW"});
  key_.SetKey(14L);
  EXPECT_FALSE(Maint().WriteItem(bank_.Def(), "PURE", &key_));
  Library().FlushLibFile();
  EXPECT_TRUE(files_.Contents("/m.lb1") == file1);
  EXPECT_TRUE(files_.Contents("/m.lb2") == file2);
  EXPECT_EQ(Maint().FindNumberById("NEW"), 0);
  EXPECT_TRUE(WriteTo(Maint(), "PURE"));
  Library().FlushLibFile();
  EXPECT_FALSE(files_.Contents("/m.lb2") == file2) << "a write shows in the files";
}

TEST_F(CheckTest, KeyOfAWriteMustFit) {
  Fill(13, 0, {"ETHANOL"});
  key_.SetKey(14L);
  EXPECT_FALSE(Maint().WriteItem(bank_.Def(), "PURE", &key_));
  EXPECT_NE(Maint().Log().PendingText().find(kNotFitting), std::string::npos);
}

TEST_F(CheckTest, RewriteIsCheckedWithoutItsKey) {
  Have(12, 0, {"ETHANOL"});
  Have(13, 0, {"WATER"});
  key_.SetKey(13L);
  ASSERT_TRUE(Maint().ReadItem(bank_.Def(), "PURE", &key_));
  char const ids[12][9] = {"ETHANOL"};
  bank_->SetIdentity(13, 0, 0, ids, "A", "", 0);
  EXPECT_FALSE(Maint().RewriteItem(bank_.Def()));
  EXPECT_EQ(Maint().Log().PendingText(),
            "Library ID \"ETHANOL\" already refers to a component in this library");
  char const free[12][9] = {"STEAM"};
  bank_->SetIdentity(13, 0, 0, free, "A", "", 0);
  EXPECT_FALSE(Maint().RewriteItem(bank_.Def())) << "the item is no longer the one that was read";
  ASSERT_TRUE(Maint().ReadItem(bank_.Def(), "PURE", &key_));
  bank_->SetIdentity(13, 0, 0, free, "A", "", 0);
  EXPECT_TRUE(Maint().RewriteItem(bank_.Def()));
}

TEST_F(CheckTest, OtherBanksAreNotLookedAt) {
  ASSERT_TRUE(Maint().CreateBank("VANLAAR", "V", 0));
  key_.SetKey(5L, 4L);
  EXPECT_TRUE(Maint().WriteItem(vanLaar_.Get(), "V", &key_));
  EXPECT_FALSE(Maint().CheckComponent(nullptr, nullptr)) << "no component";
}

// --- from numbers to identifiers -----------------------------------------------------------------

TEST_F(CheckTest, NumberGivesFirstIdAndCasNumber) {
  Have(12, 64175, {"ETHANOL", "ETOH"});
  char id[9] = "old";
  bool fromIndex = true;
  Maint().GetIdOfNumber(12, id, fromIndex);
  EXPECT_STREQ(id, "ETHANOL");
  EXPECT_FALSE(fromIndex);
  casn cas;
  Maint().GetCasOfNumber(12, cas);
  EXPECT_EQ(static_cast<long>(cas), 64175);
  Maint().GetIdOfNumber(99, id);
  EXPECT_STREQ(id, "");
  Maint().GetCasOfNumber(99, cas, fromIndex);
  EXPECT_EQ(static_cast<long>(cas), 0);
  EXPECT_FALSE(fromIndex);
}

TEST_F(CheckTest, BanksAreAskedInTheirOrderAndThenTheReferenceBanks) {
  UseReference();
  HaveInReference("PLANTIX", 50, 0, {"SECOND"});
  HaveInReference("ORDWIN", 51, 0, {"FIRST"});
  HaveInReference("OTHER", 52, 0, {"NEVER"});
  HaveInReference("PLANTIX", 53, 0, {"LATER"});
  HaveInReference("ORDWIN", 53, 0, {"SOONER"});
  Have(12, 0, {"OWN"});
  ASSERT_TRUE(Maint().CreateBank("PURECOMP", "ANOTHER", 0));
  Fill(12, 0, {"OWN"});
  char const ids[12][9] = {"EARLIER", "OWN"};
  bank_->SetIdentity(12, 0, 0, ids, "A", "", 0);
  key_.SetKey(12L);
  ASSERT_TRUE(Maint().WriteItem(bank_.Def(), "ANOTHER", &key_));
  struct Row {
    std::int32_t number;
    char const* id;
    bool fromIndex;
  };
  for (Row const& row : {Row{12, "EARLIER", false}, Row{50, "SECOND", true}, Row{51, "FIRST", true},
                         Row{52, "", false}, Row{53, "SOONER", true}}) {
    char id[9] = "old";
    bool fromIndex = !row.fromIndex;
    Maint().GetIdOfNumber(row.number, id, fromIndex);
    EXPECT_STREQ(id, row.id) << row.number;
    EXPECT_EQ(fromIndex, row.fromIndex) << row.number;
  }
  LibFile::SetOrdwinNameIndex(&Library());
  char id[9];
  bool fromIndex = true;
  Maint().GetIdOfNumber(50, id, fromIndex);
  EXPECT_STREQ(id, "");
  EXPECT_FALSE(fromIndex);
}

// A look-up does not disturb the current walk of the object.
TEST_F(CheckTest, LookUpLeavesTheWalkAlone) {
  Have(12, 0, {"OWN"});
  Maint().BeginBankWalk();
  char id[9], type[9], name[9];
  Maint().GetIdOfNumber(12, id);
  EXPECT_TRUE(Maint().NextBank(type, name));
}

}  // namespace
}  // namespace zel
