// Items and their fields, compared with those of the desk.
#include <cmath>
#include <optional>

#include "search_fixture.h"

using ctest::Held;
using ctest::Reason;
using ctest::Text;

namespace desk = zel::desk;

namespace {

class CItemTest : public CSearchTest {};

void ExpectItem(zel_item const* item, desk::Item const& expected) {
  auto const textOf = [&](std::int32_t which) {
    return Text([&](char* text, std::size_t size, std::size_t* length) {
      return zel_item_text(item, which, text, size, length);
    });
  };
  EXPECT_EQ(textOf(ZEL_TEXT_SOURCE), expected.Source());
  EXPECT_EQ(textOf(ZEL_TEXT_CITATION), expected.Citation());
  EXPECT_EQ(textOf(ZEL_TEXT_DOI), expected.Doi());
  EXPECT_EQ(textOf(ZEL_TEXT_EQUATION), expected.Equation());
  desk::Table fields("", {{"name", ""},
                          {"label", ""},
                          {"unit", ""},
                          {"count", ""},
                          {"value", ""},
                          {"text", ""},
                          {"meaning", ""}});
  for (desk::ItemField const& field : expected.Fields()) {
    auto const first = expected.Value(field.name);
    fields.Add(field.name, field.label, field.unit, static_cast<std::int64_t>(field.values.size()),
               first ? desk::Cell(*first) : desk::Cell(), field.text, field.meaning);
    double value = -9.0;
    EXPECT_EQ(zel_item_value(item, field.name.c_str(), &value), first ? ZEL_OK : ZEL_NO_VALUE);
    EXPECT_EQ(value, first.value_or(-9.0));
    std::size_t count = 99;
    ASSERT_EQ(zel_item_values(item, field.name.c_str(), nullptr, 0, &count), ZEL_OK);
    ASSERT_EQ(count, field.values.size());
    std::vector<double> values(count + 1, -9.0);
    if (count > 0) {
      EXPECT_EQ(zel_item_values(item, field.name.c_str(), values.data(), count - 1, nullptr),
                ZEL_TOO_SMALL);
      EXPECT_EQ(values[0], -9.0) << "nothing is copied";
    }
    ASSERT_EQ(zel_item_values(item, field.name.c_str(), values.data(), count + 1, nullptr), ZEL_OK);
    for (std::size_t i = 0; i < count; ++i) {
      EXPECT_TRUE(values[i] == field.values[i] ||
                  (std::isnan(values[i]) && std::isnan(field.values[i])));
    }
    EXPECT_EQ(values[count], -9.0);
    auto const fieldText = [&](std::int32_t which) {
      return Text([&](char* text, std::size_t size, std::size_t* length) {
        return zel_item_field_text(item, field.name.c_str(), which, text, size, length);
      });
    };
    EXPECT_EQ(fieldText(ZEL_TEXT_VALUE), field.text);
    EXPECT_EQ(fieldText(ZEL_TEXT_LABEL), field.label);
    EXPECT_EQ(fieldText(ZEL_TEXT_UNIT), field.unit);
    EXPECT_EQ(fieldText(ZEL_TEXT_MEANING), field.meaning);
  }
  Held table;
  ASSERT_EQ(zel_item_fields(item, &table), ZEL_OK);
  ctest::ExpectSame(table, fields);
}

TEST_F(CItemTest, ItemsAreThoseOfTheDesk) {
  desk::Libraries const libraries(libraries_.Texts());
  for (auto const& [one, other] : {std::pair("ETHANOL", "WATER"), std::pair("WATER", "ETHANOL")}) {
    zel_item* pair = nullptr;
    ASSERT_EQ(zel_search_pair(search_, "NRTL", one, other, &pair), ZEL_OK) << Reason();
    ExpectItem(pair, libraries.Pair("NRTL", one, other));
    EXPECT_EQ(zel_item_free(&pair), ZEL_OK);
    EXPECT_EQ(pair, nullptr);
  }
  zel_item* group = nullptr;
  char const* const words[] = {"1"};
  ASSERT_EQ(zel_search_item(search_, "UNFORIG", words, 1, &group), ZEL_OK) << Reason();
  ExpectItem(group, libraries.Item("UNFORIG", {"1"}));
  EXPECT_EQ(zel_item_free(&group), ZEL_OK);
}

TEST_F(CItemTest, AFieldOfAPairIsFoundByName) {
  zel_item* pair = nullptr;
  double value = 0.0;
  ASSERT_EQ(zel_search_pair(search_, "nrtl", "WATER", "64-17-5", &pair), ZEL_OK) << Reason();
  ASSERT_EQ(zel_item_value(pair, "BIJ", &value), ZEL_OK);
  EXPECT_NEAR(value, 624.867, 1e-3);
  EXPECT_EQ(zel_item_value(pair, "cij9", &value), ZEL_UNKNOWN_WORD);
  EXPECT_EQ(zel_item_values(pair, "cij9", nullptr, 0, nullptr), ZEL_UNKNOWN_WORD);
  EXPECT_EQ(zel_item_field_text(pair, "cij9", ZEL_TEXT_UNIT, nullptr, 0, nullptr),
            ZEL_UNKNOWN_WORD);
  EXPECT_EQ(zel_item_field_text(pair, "bij", ZEL_TEXT_CAS, nullptr, 0, nullptr), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_item_text(pair, ZEL_TEXT_MEMO, nullptr, 0, nullptr), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_item_free(&pair), ZEL_OK);
  EXPECT_EQ(zel_search_pair(search_, "NRTL", "WATER", "HELIUM-4", &pair), ZEL_MISSING_ITEM);
  EXPECT_EQ(zel_search_pair(search_, "NRTK", "WATER", "ETHANOL", &pair), ZEL_UNKNOWN_WORD);
  EXPECT_EQ(zel_search_item(search_, "NRTL", nullptr, 0, &pair), ZEL_FAILED) << "no words";
  EXPECT_EQ(pair, nullptr);
}

}  // namespace
