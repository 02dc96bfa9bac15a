// Items: writing, reading, rewriting and deleting them.

#include "frame/module.h"
#include "store/packed_text.h"
#include "tests/maint/maint_fixture.h"
#include "tests/support/file_words.h"

namespace zel {
namespace {

class ItemsTest : public test::MaintTest {
 protected:
  ItemsTest() { Maint().CreateBank("VANLAAR", "A", 0); }

  bool Write(long i, long j, double aij, double aji) {
    SetAij(aij, aji);
    key_.SetKey(i, j);
    return Maint().WriteItem(vanLaar_.Get(), "A", &key_);
  }
  bool Read(long i, long j) {
    key_.SetKey(i, j);
    return Maint().ReadItem(vanLaar_.Get(), "A", &key_);
  }
};

TEST_F(ItemsTest, AbsentItemIsToldAndThenInserted) {
  EXPECT_FALSE(Read(1, 2));
  EXPECT_EQ(Maint().Log().PendingText(), "Error reading bank index");
  EXPECT_FALSE(Maint().ItemExists(vanLaar_.Get(), "A", &key_));
  EXPECT_TRUE(Write(1, 2, 3, 4));
  EXPECT_TRUE(Maint().ItemExists(vanLaar_.Get(), "A", &key_));
  ASSERT_TRUE(Read(1, 2));
  EXPECT_EQ(Aij(), 3.0);
}

TEST_F(ItemsTest, ReversedPairIsTurnedRoundBothWays) {
  EXPECT_TRUE(Write(9, 3, 1.5, 2.5));
  EXPECT_EQ(Aij(), 1.5) << "the bank still shows the caller's order";
  ASSERT_TRUE(Read(3, 9));
  EXPECT_EQ(Aij(), 2.5);
  ASSERT_TRUE(Read(9, 3));
  EXPECT_EQ(Aij(), 1.5);
  EXPECT_TRUE(Maint().WriteItem(vanLaar_.Get(), "A", &key_));
  EXPECT_TRUE(Maint().RewriteItem(vanLaar_.Get()));
  EXPECT_EQ(Aij(), 1.5);
  ASSERT_TRUE(Read(3, 9));
  EXPECT_EQ(Aij(), 2.5) << "stored in stored order";
  std::int32_t const words[] = {9, 3};
  key_.SetKeyWords(2, words);
  EXPECT_TRUE(Maint().ItemExists(vanLaar_.Get(), "A", &key_));
  ASSERT_TRUE(Maint().ReadItem(vanLaar_.Get(), "A", &key_));
  EXPECT_EQ(Aij(), 1.5) << "plain words are turned at each use";
}

TEST_F(ItemsTest, WriteThatBreaksOffGivesTheCallersOrderBack) {
  ASSERT_TRUE(Write(9, 3, 1.5, 2.5));
  Reopen(accRead);
  EXPECT_THROW(Write(9, 3, 7.5, 8.5), unsigned long);
  EXPECT_EQ(Aij(), 7.5);
  EXPECT_THROW(Write(9, 4, 7.5, 8.5), unsigned long) << "a new one";
  EXPECT_EQ(Aij(), 7.5);
  ASSERT_TRUE(Read(9, 3));
  EXPECT_EQ(Aij(), 1.5) << "nothing of it is in the library";
  EXPECT_THROW(Maint().RewriteItem(vanLaar_.Get()), unsigned long);
  EXPECT_EQ(Aij(), 1.5);
}

TEST_F(ItemsTest, SymmetricPairDoesNotChangeAndOrderedPairIsItsOwn) {
  FaceRef<IZelBankDef> const pro(NewBank("PRO"));
  FaceRef<IZelBankDef> const henry(NewBank("HENRY"));
  Maint().CreateBank("PRO", "P", 0);
  Maint().CreateBank("HENRY", "H", 0);
  double const values[5] = {0.5, 1.5, 2.5, 3.5, 4.5};
  pro->SetDoubleField("kij", values);
  henry->SetDoubleField("c", values);
  key_.SetKey(1L, 2L);
  ASSERT_TRUE(Maint().WriteItem(pro.Get(), "P", &key_));
  ASSERT_TRUE(Maint().WriteItem(henry.Get(), "H", &key_));
  key_.SetKey(2L, 1L);
  ASSERT_TRUE(Maint().ReadItem(pro.Get(), "P", &key_));
  double out[5];
  pro->GetDoubleField("kij", out);
  EXPECT_TRUE(std::equal(out, out + 4, values));
  EXPECT_FALSE(Maint().ReadItem(henry.Get(), "H", &key_));
}

TEST_F(ItemsTest, ReasonsOfFailures) {
  struct Row {
    char const* type;
    char const* name;
    char const* reason;
  };
  key_.SetKey("NOBODY", "NOWHERE");
  EXPECT_FALSE(Maint().ReadItem(vanLaar_.Get(), "A", &key_));
  EXPECT_EQ(Maint().Log().PendingText(), "Unable to identify components used in key");
  key_.SetKey(1L, 2L);
  EXPECT_FALSE(Maint().ReadItem(vanLaar_.Get(), "NONE", &key_));
  EXPECT_EQ(Maint().Log().PendingText(), "Unable to locate \"VANLAAR\" bank \"NONE\"");
  EXPECT_FALSE(Maint().WriteItem(vanLaar_.Get(), "NONE", &key_));
  EXPECT_FALSE(Maint().ReadItem(vanLaar_.Get(), "A", nullptr));
  EXPECT_FALSE(Maint().ReadItem(nullptr, "A", &key_));
  EXPECT_FALSE(Maint().DeleteItem("NOTYPE", "A", &key_));
  EXPECT_FALSE(Maint().DeleteItem("VANLAAR", "A", &key_));
  EXPECT_EQ(Maint().Log().PendingText(), "Error reading bank index");
}

// Changes a word of the head of bank A in the directory.
void PatchHead(LibFile_i& library, int word, std::int32_t value) {
  std::int32_t const* found = nullptr;
  ASSERT_TRUE(library.FindBank("VANLAAR", "A", found, false));
  std::int32_t* entry = nullptr;
  ASSERT_TRUE(library.GetBankTree()->GetCurrentData(entry));
  entry[format::kBankHead + word] = value;
  library.GetBankTree()->WriteCurrentNode();
}

TEST_F(ItemsTest, WriteToABankOfAnotherShapeChangesNothing) {
  ASSERT_TRUE(Write(1, 2, 3, 4));
  struct {
    int word;
    std::int32_t value, whole;
    char const* reason;
  } const rows[] = {{format::kHeadKeyWords, 1, 2, "Incorrect key length"},
                    {format::kHeadDataWords, 13, 14, "Incorrect data block length"},
                    {format::kHeadEntryWords, 15, 16, "Incorrect data block length"}};
  for (auto const& row : rows) {
    PatchHead(Library(), row.word, row.value);
    Library().FlushLibFile();
    auto const before = files_.Contents("/m.lb2");
    EXPECT_FALSE(Write(5, 6, 7, 8)) << row.reason;
    EXPECT_EQ(Maint().Log().PendingText(), row.reason);
    EXPECT_EQ(files_.Contents("/m.lb2"), before);
    PatchHead(Library(), row.word, row.whole);
  }
  EXPECT_TRUE(Read(1, 2));
}

// The record length matches, but an entry has no room for the record: it holds one word, since the
// head says that the data are in other blocks, or it is some words too short.
TEST_F(ItemsTest, RecordsLongerThanTheirEntriesAreNotRead) {
  ASSERT_TRUE(Write(1, 2, 3, 4));
  for (std::int32_t entryWords : {3, 15}) {
    PatchHead(Library(), format::kHeadDigits, entryWords == 3 ? 1 : 0);
    PatchHead(Library(), format::kHeadEntryWords, entryWords);
    std::int32_t words[10] = {};
    SetAij(7, 8);
    EXPECT_FALSE(Read(1, 2)) << entryWords;
    EXPECT_EQ(Maint().Log().PendingText(), "Incorrect data block length");
    EXPECT_TRUE(gen_IsUndefDouble(Aij()));
    EXPECT_FALSE(Maint().ItemExists(vanLaar_.Get(), "A", &key_)) << entryWords;
    SetAij(7, 8);
    if (Maint().BeginItemWalk("VANLAAR", "A")) {
      EXPECT_FALSE(Maint().NextItem(words, vanLaar_.Get())) << entryWords;
      EXPECT_TRUE(gen_IsUndefDouble(Aij()));
      EXPECT_EQ(words[0], 0);
    }
  }
  PatchHead(Library(), format::kHeadDigits, 0);
  PatchHead(Library(), format::kHeadEntryWords, 16);
  EXPECT_TRUE(Read(1, 2));
}

// The length of a key alone is never an error: excess parts are ignored, too few find nothing.
TEST_F(ItemsTest, KeysOfOtherLengthsAreNotRefusedForTheirLength) {
  ASSERT_TRUE(Write(1, 2, 3, 4));
  std::int32_t const words[3] = {1, 2, 3};
  for (long parts : {0L, 1L, 2L, 3L}) {
    Key_i key;
    key.SetKeyWords(parts, words);
    EXPECT_EQ(Maint().ReadItem(vanLaar_.Get(), "A", &key), parts >= 2) << parts;
    if (parts < 2) {
      EXPECT_EQ(Maint().Log().PendingText(), "Error reading bank index") << parts;
    }
  }
  key_.SetKey(1L, 2L, 3L);
  EXPECT_TRUE(Maint().ReadItem(vanLaar_.Get(), "A", &key_));
}

TEST_F(ItemsTest, NothingIsReportedBeforeABatchRuns) {
  EXPECT_FALSE(Read(1, 2));
  EXPECT_EQ(Maint().GetLastErrorText(), nullptr);
}

TEST_F(ItemsTest, RewriteNeedsAnItemReadOrWritten) {
  EXPECT_FALSE(Maint().RewriteItem(vanLaar_.Get()));
  Write(1, 2, 3, 4);
  ASSERT_TRUE(Read(1, 2));
  SetAij(30, 40);
  EXPECT_TRUE(Maint().RewriteItem(vanLaar_.Get()));
  ASSERT_TRUE(Read(1, 2));
  EXPECT_EQ(Aij(), 30.0);
  FaceRef<IZelBankDef> const other(NewBank("MARGULES"));
  EXPECT_FALSE(Maint().RewriteItem(other.Get())) << "another type";
  EXPECT_FALSE(Maint().RewriteItem(vanLaar_.Get())) << "and the item is gone";
  Read(1, 2);
  Maint().BeginBankWalk();
  EXPECT_FALSE(Maint().RewriteItem(vanLaar_.Get()));
}

TEST_F(ItemsTest, SourceNamesLibraryAndBank) {
  Library().SetPassword(2, "lock");
  Write(1, 2, 3, 4);
  ASSERT_TRUE(Read(1, 2));
  char source[260];
  std::uint8_t isProtected = 0;
  vanLaar_->GetSource(source, &isProtected);
  EXPECT_STREQ(source, "Mine:A");
  EXPECT_EQ(isProtected, 1);
}

TEST_F(ItemsTest, ComponentsAreNamedByIdAndCas) {
  AddId("ETHANOL", 7);
  AddCas(7732185, 12);
  Write(7, 12, 1, 2);
  key_.SetKey(casn("7732-18-5"), "ethanol");
  ASSERT_TRUE(Maint().ReadItem(vanLaar_.Get(), "A", &key_));
  EXPECT_EQ(Aij(), 2.0) << "and turned round by number";
}

// What a key remembers of the name index is used once: the next use searches again.
TEST_F(ItemsTest, KeyAsksTheNameIndexAtEachUse) {
  test::MemoryFileSystem files[2];
  std::unique_ptr<LibFile_i> index[2];
  ASSERT_TRUE(Write(7, 12, 1, 2));
  ASSERT_TRUE(Write(8, 12, 3, 4));
  key_.SetKey("ETHANOL", 12L);
  for (std::int32_t i : {0, 1}) {
    index[i] = std::make_unique<LibFile_i>(files[i], accUpdate, "/i.lb1", "Index");
    ASSERT_EQ(index[i]->CreateNew(libKind12), openOk);
    std::int32_t id[10] = {};
    TextToWords("ETHANOL", id, 2);
    AddTo(*index[i]->GetCharIdTree(), id, 7 + i);
    LibFile::SetOrdwinNameIndex(index[i].get());
    ASSERT_TRUE(Maint().ReadItem(vanLaar_.Get(), "A", &key_));
    EXPECT_EQ(Aij(), i == 0 ? 1.0 : 3.0);
  }
  LibFile::ClearOrdwinNameIndex();
  EXPECT_FALSE(Maint().ReadItem(vanLaar_.Get(), "A", &key_));
  EXPECT_EQ(Maint().Log().PendingText(), "Unable to identify components used in key");
}

TEST_F(ItemsTest, ShortKeysFindTheirItems) {
  FaceRef<IZelBankDef> const hocv(NewBank("HOCV"));
  Maint().CreateBank("HOCV", "H", 0);
  double eta = 0.25;
  hocv->SetDoubleField("eta", &eta);
  key_.SetKey(7L);
  ASSERT_TRUE(Maint().WriteItem(hocv.Get(), "H", &key_));
  key_.SetKey(7L, 7L);
  EXPECT_TRUE(Maint().ReadItem(hocv.Get(), "H", &key_));

  FaceRef<IZelBankDef> const unf(NewBank("UNFDORT"));
  Maint().CreateBank("UNFDORT", "U", 0);
  auto const write = [&](std::vector<std::int32_t> words, double r) {
    unf->Clear();
    unf->SetDoubleField("r", &r);
    key_.SetKeyWords(static_cast<long>(words.size()), words.data());
    return Maint().WriteItem(unf.Get(), "U", &key_);
  };
  EXPECT_TRUE(write({}, 1.0));
  EXPECT_TRUE(write({5}, 2.0));
  EXPECT_TRUE(write({5, 3}, 3.0));
  auto const read = [&](std::vector<std::int32_t> words) {
    key_.SetKeyWords(static_cast<long>(words.size()), words.data());
    double r = 0.0;
    return Maint().ReadItem(unf.Get(), "U", &key_) && unf->GetDoubleField("r", &r) == kStatusOk
               ? r
               : -1.0;
  };
  EXPECT_EQ(read({}), 1.0);
  EXPECT_EQ(read({2147483647, 2147483647}), 1.0);
  EXPECT_EQ(read({5, 5}), 2.0);
  EXPECT_EQ(read({3, 5}), 3.0);
}

TEST_F(ItemsTest, CharacterKeysAreTexts) {
  FaceRef<IZelBankDef> const map(NewBank("MAPORW"));
  Maint().CreateBank("MAPORW", "M", 0);
  std::int32_t number = 4711;
  map->SetIntField("libnum", &number);
  key_.SetKeyText(3, "Their name");
  ASSERT_TRUE(Maint().WriteItem(map.Get(), "M", &key_));
  key_.SetKeyText(3, "their name");
  EXPECT_FALSE(Maint().ReadItem(map.Get(), "M", &key_)) << "text keys keep their case";
  key_.SetKeyText(3, "Their name");
  number = 0;
  ASSERT_TRUE(Maint().ReadItem(map.Get(), "M", &key_));
  map->GetIntField("libnum", &number);
  EXPECT_EQ(number, 4711);
}

TEST_F(ItemsTest, OlderFormatLeavesLaterFieldsUndefined) {
  FaceRef<IZelBankDef> const nrtl(NewBank("NRTL"));
  Maint().CreateBank("NRTL", "OLD", 1);
  double const one = 1.0;
  nrtl->SetDoubleField("aij", &one);
  nrtl->SetDoubleField("dij", &one);
  key_.SetKey(1L, 2L);
  ASSERT_TRUE(Maint().WriteItem(nrtl.Get(), "OLD", &key_));
  ASSERT_TRUE(Maint().ReadItem(nrtl.Get(), "OLD", &key_));
  double value = 0.0;
  nrtl->GetDoubleField("dij", &value);
  EXPECT_TRUE(gen_IsUndefDouble(value));
  nrtl->GetDoubleField("aij", &value);
  EXPECT_EQ(value, 1.0);
}

TEST_F(ItemsTest, DeletedItemIsGoneAndOthersStay) {
  for (long i = 1; i <= 200; ++i) ASSERT_TRUE(Write(i, i + 1, double(i), 0));
  for (long i = 1; i <= 200; i += 3) {
    key_.SetKey(i, i + 1);
    EXPECT_TRUE(Maint().DeleteItem("VANLAAR", "A", &key_));
  }
  Reopen(accRead);
  for (long i = 1; i <= 200; ++i) {
    EXPECT_EQ(Read(i, i + 1), i % 3 != 1) << i;
    if (i % 3 != 1) {
      EXPECT_EQ(Aij(), double(i));
    }
  }
}

// A delete that rebuilds the tree moves its root: without the new head in the directory the bank
// would be lost at the next open.
TEST_F(ItemsTest, RootMovedByADeleteIsFoundAfterAReopen) {
  SetDeleteTestFlag(true);
  Maint().CreateBank("VANLAAR", "D", 0);
  SetDeleteTestFlag(false);
  for (long i = 1; i <= 60; ++i) {
    SetAij(double(i), 0);
    key_.SetKey(i, i + 100);
    ASSERT_TRUE(Maint().WriteItem(vanLaar_.Get(), "D", &key_));
  }
  std::vector<long> left;
  for (long i = 1; i <= 60; ++i) left.push_back(i);
  unsigned state = 1;
  while (!left.empty()) {
    state = state * 1664525U + 1013904223U;
    std::size_t const at = state / 65536 % left.size();
    key_.SetKey(left[at], left[at] + 100);
    ASSERT_TRUE(Maint().DeleteItem("VANLAAR", "D", &key_));
    left.erase(left.begin() + static_cast<long>(at));
    Reopen(accUpdate);
    for (long i : left) {
      key_.SetKey(i, i + 100);
      ASSERT_TRUE(Maint().ReadItem(vanLaar_.Get(), "D", &key_)) << i << " of " << left.size();
      ASSERT_EQ(Aij(), double(i));
    }
  }
}

// The head of a bank's tree is in a node of the directory; the growth of one bank must not change
// what the directory's buffer holds of another.
TEST_F(ItemsTest, BanksThatGrowInTurnKeepTheirHeads) {
  SetDeleteTestFlag(true);
  for (int b = 0; b < 60; ++b) {
    ASSERT_TRUE(Maint().CreateBank("VANLAAR", ("T" + std::to_string(b)).c_str(), 0));
  }
  SetDeleteTestFlag(false);
  char memo[4000];
  for (long i = 1; i <= 25; ++i) {
    for (int b = 0; b < 60; ++b) {
      std::string const name = "T" + std::to_string(b);
      SetAij(double(i * 100 + b), 0);
      key_.SetKey(i, i + 1);
      ASSERT_TRUE(Maint().WriteItem(vanLaar_.Get(), name.c_str(), &key_));
      Maint().GetBankMemo("VANLAAR", ("T" + std::to_string((b * 7) % 60)).c_str(), memo);
    }
  }
  Reopen(accRead);
  for (long i = 1; i <= 25; ++i) {
    for (int b = 0; b < 60; ++b) {
      key_.SetKey(i, i + 1);
      ASSERT_TRUE(Maint().ReadItem(vanLaar_.Get(), ("T" + std::to_string(b)).c_str(), &key_));
      ASSERT_EQ(Aij(), double(i * 100 + b));
    }
  }
}

TEST_F(ItemsTest, LibraryMadeByAFixedListOfCallsHasFixedWords) {
  ASSERT_TRUE(Write(2, 1, 1.0, 2.0));
  Reopen(accRead);
  auto const& bytes = files_.Contents("/m.lb2");
  ASSERT_EQ(bytes.size(), 8000U);
  auto const word = [&](std::size_t block, std::size_t index) {
    return test::FileWord(bytes.data() + block * 4000 + 4 * index);
  };
  std::int32_t const null = 990000000;
  std::int32_t const undefined = static_cast<std::int32_t>(0xf99a130c);  // the float nearest -1e35
  // Block 1: the directory. "VANL" is 22 01 14 12, "AAR" 01 01 18, "A" 01.
  std::vector<std::int32_t> const directory = {
      1, null, null, null, null, 22011412, 1011800, 1000000, 0,  0,  0,         1000,      null,
      0, 0,    0,    0,    2,    1000,     16,      2,       14, 58, 112000000, 112000002, null};
  for (std::size_t i = 0; i < 1000; ++i) {
    ASSERT_EQ(word(0, i), i < directory.size() ? directory[i] : 0) << "directory word " << i;
  }
  // Block 2: the item, stored as (1, 2): aij 2, aji 1.
  std::vector<std::int32_t> const items = {
      1,         null,       null,       null, null, 1, 2, 0, undefined, undefined, undefined,
      undefined, 0x40000000, 0x3f800000, 0,    0,    0, 0, 0, 0,         INT32_MIN, null};
  for (std::size_t i = 0; i < 1000; ++i) {
    ASSERT_EQ(word(1, i), i < items.size() ? items[i] : 0) << "item word " << i;
  }
}

}  // namespace
}  // namespace zel
