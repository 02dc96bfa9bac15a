// Importing items of banks: keys, values by kind, which items are written and which are not.
#include <gtest/gtest.h>

#include "store/packed_text.h"
#include "tests/support/bank_types.h"
#include "tests/xml/import_fixture.h"

namespace zel {
namespace {

using test::ImportTest;

constexpr std::int32_t kWildcard = 2147483647;

class ImportItemsTest : public ImportTest {
 protected:
  static std::string Progress(std::string const& type) { return "  " + type + ":MINE\n"; }
  bool ImportInto(std::string const& type, std::string const& inner) {
    return ImportBank(inner, "type='" + type + "' name='MINE'");
  }
  // Checks the report on one item of a new bank of this type.
  void ExpectError(std::string const& type, std::string const& inner, std::string const& problem) {
    if (Maint().BankExists(type.c_str(), "MINE")) Maint().DeleteBank(type.c_str(), "MINE");
    EXPECT_FALSE(ImportInto(type, "<item>" + inner + "</item>")) << inner;
    EXPECT_EQ(Lines(), Progress(type) + Error(problem));
  }
  int ItemsOf(char const* type) {
    std::int32_t words[10];
    int count = 0;
    Maint().BeginItemWalk(type, "MINE");
    while (Maint().NextItemKey(words)) ++count;
    return count;
  }
  void AddId(char const* id, std::int32_t number, std::int32_t cas = 0) {
    std::int32_t key[10] = {};
    TextToWords(id, key, 2);
    Enter(*library_->GetCharIdTree(), key, number);
    if (cas == 0) return;
    std::int32_t const casKey[10] = {cas};
    Enter(*library_->GetCasTree(), casKey, number);
  }

 private:
  static void Enter(BTree_i& tree, std::int32_t const* key, std::int32_t number) {
    std::int32_t const* found = nullptr;
    ASSERT_FALSE(tree.Find(key, found));
    tree.Insert(key, format::kNullAddress, format::kNullAddress);
    std::int32_t* data = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(data));
    *data = number;
    tree.WriteCurrentNode();
  }
};

// --- keys ----------------------------------------------------------------------------------------

TEST_F(ImportItemsTest, SevenAndEightDigitsAreNumbers) {
  EXPECT_TRUE(ImportInto("VANLAAR", "<item><keys> 1234567 00000008 </keys><aij>3</aij></item>"));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {8, 1234567}, "aji"), 3.0) << "stored the other way round";
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 8}, "aij"), 3.0);
}

TEST_F(ImportItemsTest, SixDigitsAreAnId) {
  ExpectError("VANLAAR", "<keys>123456 1234567</keys>",
              "Item \"123456:1234567\" - Unable to identify components used in key");
  AddId("123456", 77);
  Maint().DeleteBank("VANLAAR", "MINE");
  EXPECT_TRUE(ImportInto("VANLAAR", "<item><keys>123456 1234567</keys><aij>3</aij></item>"));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {77, 1234567}, "aij"), 3.0);
}

TEST_F(ImportItemsTest, IdsAndShortCasNumbersAreLookedUp) {
  AddId("WATER", 12);
  AddId("ACETYL", 13, 50000);
  EXPECT_TRUE(ImportInto("VANLAAR", "<item><keys>water 50-00-0</keys><aij>3</aij></item>"));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {12, 13}, "aij"), 3.0);
}

TEST_F(ImportItemsTest, LongTokenIsAnErrorAndItsVerdictTheCount) {
  ExpectError("ALPHA", "<keys>12345678x</keys>",
              "Ordwin Id or Libary Number is exceeding more than 8 digits for the item 12345678x");
  Maint().DeleteBank("VANLAAR", "MINE");
  EXPECT_FALSE(ImportInto("VANLAAR", "<item><keys>7732-18-5 1234567</keys></item>"));
  EXPECT_EQ(Lines(), Progress("VANLAAR") +
                         Error("Ordwin Id or Libary Number is exceeding more than 8 digits for the "
                               "item 7732-18-5") +
                         Error("1 key was entered but 2 are required"));
}

// The key remains that of the previous item, and one key is enough here, so the item is written
// under that key.
TEST_F(ImportItemsTest, LongTokenLeavesTheKeyOfTheItemBefore) {
  MakeFile("doc.xml",
           "<bank type='RACKETT' "
           "name='MINE'><item><keys>1234567</keys><zRa>1</zRa></item><item><keys>"
           "123456789</keys><zRa>2</zRa></item></bank>");
  EXPECT_FALSE(ImportFile("doc.xml", true));
  EXPECT_EQ(ItemsOf("RACKETT"), 1);
  EXPECT_EQ(RealOf("RACKETT", "MINE", {1234567}, "zRa"), 2.0);
}

TEST_F(ImportItemsTest, LongTokenInASilentRunLeavesNoKey) {
  Maint().SetLogLevel(0);
  EXPECT_FALSE(ImportInto("ALPHA", "<item><keys>123456789</keys></item>"));
  EXPECT_EQ(Maint().Log().ErrorCount(), 2);
  EXPECT_STREQ(Maint().GetLastErrorText(), "0 keys were entered but 1 is required");
  EXPECT_EQ(ItemsOf("ALPHA"), 0);
}

TEST_F(ImportItemsTest, OneComponentStandsForItsPairWithItself) {
  EXPECT_TRUE(ImportInto("HOCV", "<item><keys>00000007</keys></item>"));
  EXPECT_FALSE(ImportFile("doc.xml"));
  std::int32_t words[10] = {};
  Maint().BeginItemWalk("HOCV", "MINE");
  ASSERT_TRUE(Maint().NextItemKey(words));
  EXPECT_EQ(words[0], 7);
  EXPECT_EQ(words[1], 7);
}

TEST_F(ImportItemsTest, PairInFullAndInShortAreOneItem) {
  EXPECT_FALSE(ImportInto("HOCV",
                          "<item><keys>00000007 00000007</keys></item><item><keys>00000007"
                          "</keys></item>"));
  EXPECT_EQ(Lines(),
            Progress("HOCV") + Error("Item \"00000007\" - Item already exists in this bank"));
}

TEST_F(ImportItemsTest, NumberOfKeysIsChecked) {
  ExpectError("VANLAAR", "", "0 keys were entered but 2 are required");
  ExpectError("VANLAAR", "<keys/>", "Item \"\" - 0 keys were entered but 2 are required");
  ExpectError("VANLAAR", "<keys>1234567</keys>",
              "Item \"1234567\" - 1 key was entered but 2 are required");
  ExpectError("VANLAAR", "<keys>1234567 1234568 1234569</keys>",
              "Item \"1234567:1234568:1234569\" - 3 keys were entered but only 2 are allowed");
  ExpectError("ALPHA", "<keys>1 2 3 4 5 6 7 8 9 10</keys>",
              "Item \"1:2:3:4:5:6:7:8:9:10\" - 10 keys were entere but only 1 is allowed");
  ExpectError("HOCV", "", "0 keys were entered but at least 1 is required");
  ExpectError("HOCV", "<keys>1234567 1234568 A</keys>",
              "Item \"1234567:1234568:A\" - 3 keys were entered but no more than 2 are allowed");
  ExpectError("ALPHA", "<keys>1234567 1234568</keys>",
              "Item \"1234567:1234568\" - 2 keys were entered but only 1 is allowed");
  ExpectError("UNIFAC", "<numerickey>1</numerickey>",
              "Item \"1\" - 1 key was entered but 2 are required");
}

TEST_F(ImportItemsTest, NumericKeysAreNumbersAsTheyStand) {
  EXPECT_TRUE(ImportInto("UNIFAC", "<item><numerickey> 1  -2 </numerickey></item>"));
  EXPECT_EQ(ItemsOf("UNIFAC"), 1);
  EXPECT_FALSE(ImportFile("doc.xml"));
  Maint().DeleteBank("UNIFAC", "MINE");
  EXPECT_FALSE(ImportInto("UNIFAC",
                          "<item><numerickey>1 2</numerickey></item><item><numerickey>1 "
                          "2</numerickey></item>"));
  EXPECT_EQ(Lines(), Progress("UNIFAC") + Error("Item \"1-2\" - Item already exists in this bank"));
}

TEST_F(ImportItemsTest, ShortNumericKeysAreWidened) {
  EXPECT_TRUE(ImportInto("UNFDORT",
                         "<item><numerickey>5</numerickey></item><item/>"
                         "<item><numerickey>5 6</numerickey></item>"));
  std::vector<std::int32_t> all;
  std::int32_t words[10] = {};
  Maint().BeginItemWalk("UNFDORT", "MINE");
  while (Maint().NextItemKey(words)) all.insert(all.end(), {words[0], words[1]});
  EXPECT_EQ(all, (std::vector<std::int32_t>{5, 5, 5, 6, kWildcard, kWildcard}));
}

TEST_F(ImportItemsTest, CharacterKeysAreAlwaysComplete) {
  EXPECT_FALSE(ImportInto("MAPORW",
                          "<item><characterkey> ABC d </characterkey><libnum>5</libnum>"
                          "</item><item><characterkey>ABC d</characterkey></item>"));
  EXPECT_EQ(Lines(),
            Progress("MAPORW") + Error("Item \"ABC d\" - Item already exists in this bank"));
  std::int32_t words[3];
  TextToWords("ABC d", words, 3);
  EXPECT_EQ(IntsOf("MAPORW", "MINE", {words[0], words[1], words[2]}, "libnum", 1)[0], 5);
}

TEST_F(ImportItemsTest, OtherKeyTagsAreUnknown) {
  EXPECT_FALSE(ImportInto("VANLAAR", "<item><numerickey>1 2</numerickey></item>"));
  EXPECT_EQ(Lines(), Progress("VANLAAR") +
                         Error("Unrecognized node <numerickey> found within <item> node") +
                         Error("0 keys were entered but 2 are required"));
}

// --- values --------------------------------------------------------------------------------------

TEST_F(ImportItemsTest, RealsAreReadInPlacesAndMayBeUndefined) {
  EXPECT_TRUE(ImportInto("VANLAAR",
                         "<item><keys>1234567 1234568</keys><AIJ> 1.25e-3 7 </AIJ><aji> - "
                         "</aji></item><item><keys>1234567 1234569</keys><aij>2.0\n3.0"
                         "</aij></item>"));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij"), 0.00125);
  EXPECT_TRUE(gen_IsUndefDouble(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aji")));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234569}, "aij"), 2.0) << "a line end is no blank";
  EXPECT_TRUE(gen_IsUndefDouble(RealOf("VANLAAR", "MINE", {1234567, 1234569}, "aji")));
}

TEST_F(ImportItemsTest, IntegersAreReadInPlaces) {
  EXPECT_TRUE(
      ImportInto("STRUCT",
                 "<item><keys>1234567</keys><count>2</count><groupNumber> 3 - 4x 99999999999 "
                 "</groupNumber><groupCount>1 2 3 4 5 6 7 8 9 10 11 12</groupCount>"
                 "</item>"));
  std::int32_t const undefined = gen_GetUndefInt();
  EXPECT_EQ(IntsOf("STRUCT", "MINE", {1234567}, "groupNumber", 5),
            (std::vector<std::int32_t>{3, undefined, 4, INT32_MAX, undefined}));
  EXPECT_EQ(IntsOf("STRUCT", "MINE", {1234567}, "groupCount", 10),
            (std::vector<std::int32_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(ImportItemsTest, TextsAreCut) {
  EXPECT_TRUE(ImportInto("GRPDESC",
                         "<item><numerickey>1 1</numerickey><name> A text of more than "
                         "twenty characters </name><formula/></item>"));
  EXPECT_EQ(TextOf("GRPDESC", "MINE", {1, 1}, "name"), "A text of more than")
      << "a blank at its end is lost on file";
  EXPECT_EQ(TextOf("GRPDESC", "MINE", {1, 1}, "formula"), "");
}

TEST_F(ImportItemsTest, NamedValuesAreSoughtOnTheirList) {
  char names[10][13];
  std::int32_t values[10];
  std::int32_t count = 0;
  std::int32_t byDefault = 0;
  FaceRef<IZelBankDef> const wilson(NewBank("WILSON"));
  ASSERT_EQ(wilson->GetEnumCount("form", &count), kStatusOk);
  wilson->GetEnumList("form", names, values, &byDefault);
  std::string inner;
  for (int i = 0; i < count; ++i) {
    std::string name = names[i];
    for (char& c : name) c = static_cast<char>(i % 2 == 0 ? std::toupper(c) : std::tolower(c));
    inner += "<item><keys>1234567 " + std::to_string(2000000 + i) + "</keys><form> " + name +
             " </form></item>";
  }
  EXPECT_TRUE(ImportInto("WILSON", inner));
  for (int i = 0; i < count; ++i) {
    EXPECT_EQ(IntsOf("WILSON", "MINE", {1234567, 2000000 + i}, "form", 1)[0], values[i])
        << names[i];
  }
}

TEST_F(ImportItemsTest, ValueNotOnItsListIsReportedAndTheItemWritten) {
  EXPECT_FALSE(ImportInto("WILSON",
                          "<item><keys>1234567 1234568</keys><form>no such</form><aij>4</aij>"
                          "</item>"));
  EXPECT_EQ(Lines(),
            Progress("WILSON") +
                Error("Item \"1234567:1234568\" - \"no such\" is not a valid value for tag "
                      "<form>"));
  EXPECT_EQ(RealOf("WILSON", "MINE", {1234567, 1234568}, "aij"), 4.0);
}

TEST_F(ImportItemsTest, ValueNotOnItsListLeavesTheItemOfASilentRunUnwritten) {
  Maint().SetLogLevel(0);
  EXPECT_FALSE(
      ImportInto("WILSON", "<item><keys>1234567 1234568</keys><form>no such</form></item>"));
  EXPECT_EQ(ItemsOf("WILSON"), 0);
}

TEST_F(ImportItemsTest, FormatDecidesTheTags) {
  std::string const item = "<item><keys>1234567 1234568</keys><bij>2</bij></item>";
  EXPECT_TRUE(ImportBank(item, "type='WILSON' name='MINE'"));
  EXPECT_EQ(RealOf("WILSON", "MINE", {1234567, 1234568}, "bij"), 2.0);
  EXPECT_TRUE(ImportBank(item, "type='WILSON' name='TWO' format='2'"));
  EXPECT_FALSE(ImportBank(item, "type='WILSON' name='ONE' format='1'"));
  EXPECT_EQ(Lines(),
            "  WILSON:ONE\n" +
                Error("Item \"1234567:1234568\" - Unrecognized node <bij> found within <item> "
                      "node"));
}

// --- what is written -----------------------------------------------------------------------------

TEST_F(ImportItemsTest, EachItemStartsClear) {
  EXPECT_TRUE(ImportInto("VANLAAR",
                         "<item><keys>1234567 1234568</keys><aij>1</aij></item><item><keys>"
                         "1234567 1234569</keys></item>"));
  EXPECT_TRUE(gen_IsUndefDouble(RealOf("VANLAAR", "MINE", {1234567, 1234569}, "aij")));
}

TEST_F(ImportItemsTest, SecondTagIsReportedAndItsValueNotRead) {
  EXPECT_FALSE(ImportInto("VANLAAR",
                          "<item><keys>1234567 1234568</keys><aij>1</aij><aij>2</aij><aji>3"
                          "</aji></item>"));
  EXPECT_EQ(Lines(),
            Progress("VANLAAR") + Error("Item \"1234567:1234568\" - Duplicate <aij> node found "
                                        "within <item> node"));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij"), 1.0);
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aji"), 3.0);
}

TEST_F(ImportItemsTest, SecondMemoOfABankIsReported) {
  EXPECT_FALSE(ImportInto("VANLAAR", "<memo>.a</memo><item/><memo>.b</memo>"));
  EXPECT_EQ(Lines(), Progress("VANLAAR") + Error("0 keys were entered but 2 are required") +
                         Error("Duplicate <memo> node found within <bank> node"));
  char memo[4000];
  Maint().GetBankMemo("VANLAAR", "MINE", memo);
  EXPECT_STREQ(memo, "a");
}

TEST_F(ImportItemsTest, ItemThatBreaksOffIsWrittenWhenItsKeyIsThere) {
  Maint().SetLogLevel(0);
  EXPECT_FALSE(
      ImportInto("VANLAAR",
                 "<item><keys>1234567 1234568</keys><aij>1</aij><aij>2</aij><aji>3</aji></item>"
                 "<item><keys>1234567 1234569</keys></item>"));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij"), 1.0);
  EXPECT_TRUE(gen_IsUndefDouble(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aji")));
  EXPECT_EQ(ItemsOf("VANLAAR"), 1) << "the bank has ended";
  EXPECT_EQ(Maint().Log().ErrorCount(), 1);
}

TEST_F(ImportItemsTest, ItemThatBreaksOffBeforeItsKeyIsNotWritten) {
  Maint().SetLogLevel(0);
  EXPECT_FALSE(
      ImportInto("VANLAAR", "<item><aij>1</aij><aij>2</aij><keys>1234567 1234568</keys></item>"));
  EXPECT_EQ(ItemsOf("VANLAAR"), 0);
  EXPECT_EQ(Maint().Log().ErrorCount(), 2);
}

TEST_F(ImportItemsTest, ExistingItemIsReplacedOnlyWhenAsked) {
  std::string const text =
      "<bank type='VANLAAR' name='MINE'><item><keys>1234567 1234568</keys><aij>1</aij>"
      "</item><item><keys>1234568 1234567</keys><aij>2</aij></item></bank>";
  EXPECT_FALSE(Import(text));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234567, 1234568}, "aij"), 1.0);
  Maint().DeleteBank("VANLAAR", "MINE");
  EXPECT_TRUE(Import(text, true));
  EXPECT_EQ(RealOf("VANLAAR", "MINE", {1234568, 1234567}, "aij"), 2.0);
  EXPECT_EQ(ItemsOf("VANLAAR"), 1);
}

TEST_F(ImportItemsTest, FailureOfTheWriteIsReportedWithItsReason) {
  EXPECT_FALSE(ImportInto("VANLAAR", "<item><keys>NOBODY 1234567</keys></item>"));
  EXPECT_EQ(Lines(), Progress("VANLAAR") + Error("Item \"NOBODY:1234567\" - Unable to identify "
                                                 "components used in key"));
  EXPECT_FALSE(ImportFile("doc.xml", true)) << "the bank is there";
}

TEST_F(ImportItemsTest, ErrorOfOneItemDoesNotStopALoudRun) {
  EXPECT_FALSE(ImportInto("VANLAAR", "<item/><item><keys>1234567 1234568</keys></item>"));
  EXPECT_EQ(ItemsOf("VANLAAR"), 1);
}

TEST_F(ImportItemsTest, EveryTypeTakesItsItems) {
  constexpr char const* kKeys[] = {"<keys>1234567%</keys>", "<numerickey>3%</numerickey>",
                                   "<characterkey>AB</characterkey>"};
  for (char const* const type : test::BankTypes()) {
    if (std::string_view(type) == "PURECOMP") continue;
    FaceRef<IZelBankDef> const bank(NewBank(type));
    BankInfo const info(bank.Get());
    std::string key = kKeys[info.keyKind];
    std::size_t const at = key.find('%');
    if (at != std::string::npos) key.replace(at, 1, info.keyWords == 2 ? " 1234568" : "");
    char names[20][13];
    char labels[20][20];
    char units[20][20];
    std::int32_t kinds[20];
    std::int32_t counts[20];
    std::int32_t fields = 0;
    bank->GetFieldCount(0, &fields);
    bank->GetFieldList(0, names, labels, kinds, counts, units);
    std::string tags;
    for (int i = 0; i < fields; ++i) {
      if (kinds[i] == fieldEnumerated) continue;
      tags += std::string("<") + names[i] + "> 1 </" + names[i] + ">";
    }
    EXPECT_TRUE(ImportInto(type, "<item>" + key + tags + "</item>")) << type << "\n" << Lines();
    EXPECT_EQ(ItemsOf(type), 1) << type;
  }
}

}  // namespace
}  // namespace zel
