// The text that is written for items.
#include <array>
#include <bit>
#include <cmath>
#include <random>
#include <unordered_map>

#include "store/packed_text.h"
#include "tests/xml/export_fixture.h"
#include "xml/export_items.h"
#include "xml/text_out.h"

namespace zel {
namespace {

constexpr std::int32_t kWildcard = 2147483647;

void Nothing(IZelBankDef*) {}

class ExportItemsTest : public test::ExportTest {};

// --- keys ----------------------------------------------------------------------------------------

TEST_F(ExportItemsTest, ComponentsHaveEightDigits) {
  EXPECT_EQ(Item("VANLAAR", {7, 123456789}, Nothing),
            "  <item>\n    <keys> 00000007 123456789 </keys>\n  </item>\n");
  std::string const alpha = Item("ALPHA", {-7}, Nothing);
  EXPECT_NE(alpha.find("    <keys> -0000007 </keys>\n"), std::string::npos) << alpha;
}

TEST_F(ExportItemsTest, IdsOfComponentsAreShown) {
  PutComponent(7, {"ETHANOL"});
  PutComponent(8, {"ABCDEFGH"});
  EXPECT_EQ(Item("VANLAAR", {7, 8}, Nothing),
            "  <item>\n    <keys> 00000007 00000008 </keys>\n"
            "    <!--   ETHANOL  ABCDEFGH     -->\n  </item>\n");
  EXPECT_EQ(Item("VANLAAR", {7, 9}, Nothing),
            "  <item>\n    <keys> 00000007 00000009 </keys>\n"
            "    <!--   ETHANOL               -->\n  </item>\n");
  EXPECT_EQ(Item("VANLAAR", {5, 8}, Nothing),
            "  <item>\n    <keys> 00000005 00000008 </keys>\n"
            "    <!--            ABCDEFGH     -->\n  </item>\n");
}

TEST_F(ExportItemsTest, NumericKeysAreNumbers) {
  EXPECT_EQ(Item("UNIFAC", {-123, 7}, Nothing),
            "  <item>\n    <numerickey> -123 7 </numerickey>\n  </item>\n");
}

TEST_F(ExportItemsTest, NumericKeysHaveNoIdsThoughComponentsHaveTheNumbers) {
  PutComponent(7, {"ETHANOL"});
  EXPECT_EQ(Item("UNIFAC", {7, 8}, Nothing),
            "  <item>\n    <numerickey> 7 8 </numerickey>\n  </item>\n");
}

TEST_F(ExportItemsTest, CharacterKeysAreText) {
  std::int32_t words[3];
  TextToWords("ABC d", words, 3);
  EXPECT_EQ(Item("MAPORW", {words[0], words[1], words[2]}, Nothing),
            "  <item>\n    <characterkey> ABC d </characterkey>\n  </item>\n");
}

TEST_F(ExportItemsTest, ItemsStandByTheLengthOfTheirKeys) {
  for (auto const& [i, j] :
       {std::pair{3, 4}, {3, kWildcard}, {kWildcard, kWildcard}, {2, 2}, {5, 9}}) {
    Put("UNFDORT", "U", {i, j}, Nothing);
  }
  EXPECT_TRUE(Maint().ExportBank("UNFDORT", "U", Out("u.xml").c_str()));
  auto const item = [](std::string const& key) { return "  <item>\n    " + key + "\n  </item>\n"; };
  EXPECT_EQ(Body("u.xml"), "<bank type=\"UNFDORT\" name=\"U\">\n" + item("<!-- no key -->") +
                               item("<numerickey> 2 </numerickey>") +
                               item("<numerickey> 3 </numerickey>") +
                               item("<numerickey> 3 4 </numerickey>") +
                               item("<numerickey> 5 9 </numerickey>") + "</bank>\n");
}

TEST_F(ExportItemsTest, ComponentWithItselfIsOneNumber) {
  EXPECT_EQ(Item("HOCV", {7, 7}, Nothing), "  <item>\n    <keys> 00000007 </keys>\n  </item>\n");
  EXPECT_EQ(Item("VANLAAR", {7, 7}, Nothing),
            "  <item>\n    <keys> 00000007 00000007 </keys>\n  </item>\n")
      << "where two must be given";
}

TEST_F(ExportItemsTest, KeyIsNoShorterThanItMustBe) {
  EXPECT_EQ(Item("HOCV", {kWildcard, kWildcard}, Nothing),
            "  <item>\n    <keys> 2147483647 </keys>\n  </item>\n");
}

// A look-up walks whole banks, so its result is kept for all later items and banks.
TEST_F(ExportItemsTest, IdsAreLookedUpOnce) {
  PutComponent(7, {"ETHANOL"});
  PutComponent(8, {"WATER"});
  Put("VANLAAR", "V", {7, 8}, Nothing);
  std::unordered_map<std::int32_t, std::string> ids = {{7, "KNOWN"}};
  platform::TextFile file(Out("items"));
  FaceRef<IZelBankDef> const bank(NewBank("VANLAAR"));
  ItemExport(Maint(), file, ids).Write(bank.Get(), "V", 1);
  file.Close();
  EXPECT_EQ(FileText(Out("items")),
            "  <item>\n    <keys> 00000007 00000008 </keys>\n"
            "    <!--   KNOWN    WATER        -->\n  </item>\n");
  EXPECT_EQ(ids, (std::unordered_map<std::int32_t, std::string>{{7, "KNOWN"}, {8, "WATER"}}));
}

// --- tags ----------------------------------------------------------------------------------------

TEST_F(ExportItemsTest, RealsHaveSevenDigits) {
  EXPECT_EQ(Item("VANLAAR", {1, 2},
                 [](IZelBankDef* bank) {
                   double const values[] = {123456.789, 1e-7, 1e10};
                   bank->SetDoubleField("aij", &values[0]);
                   bank->SetDoubleField("aji", &values[1]);
                   bank->SetDoubleField("tMax", &values[2]);
                 }),
            "  <item>\n    <keys> 00000001 00000002 </keys>\n    <tMax> 1e+10 </tMax>\n"
            "    <aij> 123456.8 </aij>\n    <aji> 1e-07 </aji>\n  </item>\n");
}

TEST_F(ExportItemsTest, UndefinedValuesAreHeldBack) {
  std::int32_t const u = gen_GetUndefInt();
  struct Row {
    std::array<std::int32_t, 10> values;
    char const* text;
  };
  for (Row const& row :
       {Row{{u, 3, 4, u, u, u, u, u, u, u}, ""},
        Row{{3, u, 4, u, u, u, u, u, u, u}, "    <groupCount> 3 - 4 </groupCount>\n"},
        Row{{3, u, u, u, u, u, u, u, u, u}, "    <groupCount> 3 </groupCount>\n"},
        Row{{1, 2, 3, 4, 5, 6, 7, 8, u, 10},
            "    <groupCount> 1 2 3 4 5 6 7 8 - 10 </groupCount>\n"}}) {
    EXPECT_EQ(Item("STRUCT", {7},
                   [&](IZelBankDef* bank) { bank->SetIntField("groupCount", row.values.data()); }),
              "  <item>\n    <keys> 00000007 </keys>\n" + std::string(row.text) + "  </item>\n");
  }
  double const kij[] = {0.5, gen_GetUndefDouble(), -2e35, 4.0};
  EXPECT_EQ(
      Item("PRO", {1, 2}, [&](IZelBankDef* bank) { bank->SetDoubleField("kij", kij); }),
      "  <item>\n    <keys> 00000001 00000002 </keys>\n    <kij> 0.5 - - 4 </kij>\n  </item>\n");
}

TEST_F(ExportItemsTest, TextsGoOutAsTheyStand) {
  EXPECT_EQ(
      Item("GRPDESC", {1, 2},
           [](IZelBankDef* bank) {
             bank->SetStringField("name", "A & <B>");
             bank->SetStringField("formula", "");
           }),
      "  <item>\n    <numerickey> 1 2 </numerickey>\n    <name> A & <B> </name>\n  </item>\n");
}

TEST_F(ExportItemsTest, NamedValuesGoByTheirNames) {
  std::string const text = Item("WILSON", {1, 2}, [](IZelBankDef* bank) {
    std::int32_t const form = 24013;
    std::int32_t const odd = 99;
    std::int32_t const none = gen_GetUndefInt();
    bank->SetIntField("form", &form);
    bank->SetIntField("eqnForm", &odd);
    bank->SetIntField("volRatio", &none);
  });
  EXPECT_EQ(text,
            "  <item>\n    <keys> 00000001 00000002 </keys>\n    <form> KCAL </form>\n"
            "    <eqnForm> 99 </eqnForm>\n  </item>\n");
}

TEST_F(ExportItemsTest, FieldsAreThoseOfTheFormat) {
  ASSERT_TRUE(Maint().CreateBank("WILSON", "OLD", 1));
  Put("WILSON", "OLD", {1, 2}, [](IZelBankDef* bank) {
    double const one = 1.0;
    bank->SetDoubleField("aij", &one);
    bank->SetDoubleField("bij", &one);
  });
  EXPECT_TRUE(Maint().ExportBank("WILSON", "OLD", Out("w.xml").c_str()));
  EXPECT_EQ(Body("w.xml").find("<bij>"), std::string::npos);
  EXPECT_NE(Body("w.xml").find("<aij> 1 </aij>"), std::string::npos);
}

// --- numbers -------------------------------------------------------------------------------------

class NumberTextTest : public test::TempFolderTest {
 protected:
  template <typename Number>
  std::string Written(Number number) {
    platform::TextFile file(Path("n"));
    file << number;
    file.Close();
    std::ifstream read(Path("n"));
    return {std::istreambuf_iterator<char>(read), {}};
  }
};

TEST_F(NumberTextTest, NumbersAreAsTheLibraryOfCPrintsThem) {
  char expected[64];
  for (std::int32_t value :
       {0, 7, -7, 12345678, 123456789, -1234567, -12345678, INT32_MAX, INT32_MIN}) {
    std::snprintf(expected, sizeof expected, "%08d", value);
    EXPECT_EQ(Written(Eight{value}), expected);
    std::snprintf(expected, sizeof expected, "%d", value);
    EXPECT_EQ(Written(value), expected);
  }
  EXPECT_EQ(Written(std::uint32_t{4000000000U}), "4000000000");
  std::mt19937_64 random(5);
  platform::TextFile file(Path("all"));
  std::string all;
  for (int i = 0; i < 50'000; ++i) {
    double value = std::bit_cast<double>(random());
    if (i % 2 == 0) value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (!std::isfinite(value)) continue;
    std::snprintf(expected, sizeof expected, "%.7g ", value);
    all += expected;
    file << Seven{value} << " ";
  }
  file.Close();
  std::ifstream read(Path("all"));
  std::string const written{std::istreambuf_iterator<char>(read), {}};
  EXPECT_TRUE(written == all);
}

}  // namespace
}  // namespace zel
