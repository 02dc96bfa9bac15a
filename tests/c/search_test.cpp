// Components, correlations and items, compared with those of the desk.
#include <zelaccess/DeskEvaluator.h>

#include <cmath>

#include "c_fixture.h"

using ctest::Held;
using ctest::Reason;
using ctest::Text;

namespace desk = zel::desk;

namespace {

class CSearchTest : public CFaceTest {
 protected:
  void SetUp() override {
    ASSERT_EQ(zel_search_open(libraries_.data(), libraries_.size(), nullptr, &search_), ZEL_OK)
        << Reason();
  }
  void TearDown() override { EXPECT_EQ(zel_search_close(&search_), ZEL_OK); }
  zel_component* Read(char const* word) {
    zel_component* component = nullptr;
    EXPECT_EQ(zel_search_component(search_, word, &component), ZEL_OK) << Reason();
    return component;
  }

  ctest::Words libraries_{Paths({"crc.lb1", "perry.lb1", "sample.lb1"})};
  zel_search* search_ = nullptr;
};

std::string TextOf(zel_component const* component, std::int32_t which) {
  return Text([&](char* text, std::size_t size, std::size_t* length) {
    return zel_component_text(component, which, text, size, length);
  });
}

void ExpectConstant(zel_component const* component, zel::ZelConstantInfo const& info,
                    desk::Component const& expected) {
  auto const constant = static_cast<zel::Constant>(info.index);
  auto const found = expected.Constant(constant);
  zel_constant value = {-5.0, -5, 5};
  auto const textOf = [&](std::int32_t which) {
    return Text([&](char* text, std::size_t size, std::size_t* length) {
      return zel_component_constant_text(component, info.keyword, which, text, size, length);
    });
  };
  if (!found) {
    EXPECT_EQ(zel_component_constant(component, info.keyword, "", &value), ZEL_NO_VALUE);
    EXPECT_EQ(value.value, -5.0) << "unchanged";
    EXPECT_EQ(textOf(ZEL_TEXT_UNIT).substr(0, 6), "failed");
    return;
  }
  ASSERT_EQ(zel_component_constant(component, info.keyword, nullptr, &value), ZEL_OK) << Reason();
  EXPECT_EQ(value.value, found->value);
  EXPECT_EQ(value.state, found->state);
  EXPECT_EQ(value.reference_code, found->code);
  EXPECT_EQ(textOf(ZEL_TEXT_UNIT), found->unit);
  EXPECT_EQ(textOf(ZEL_TEXT_SOURCE), found->source);
  EXPECT_EQ(textOf(ZEL_TEXT_CITATION), found->citation);
  EXPECT_EQ(textOf(ZEL_TEXT_DOI), found->doi);
}

void ExpectCorrelation(zel_component const* component, char const* name,
                       std::optional<desk::CorrelationData> const& expected) {
  zel_correlation record = {};
  auto const textOf = [&](std::int32_t which) {
    return Text([&](char* text, std::size_t size, std::size_t* length) {
      return zel_component_correlation_text(component, name, which, text, size, length);
    });
  };
  if (!expected) {
    EXPECT_EQ(zel_component_correlation(component, name, &record), ZEL_NO_VALUE);
    EXPECT_EQ(textOf(ZEL_TEXT_UNIT).substr(0, 6), "failed");
    return;
  }
  ASSERT_EQ(zel_component_correlation(component, name, &record), ZEL_OK) << Reason();
  EXPECT_EQ(record.equation, expected->equation);
  ASSERT_EQ(static_cast<std::size_t>(record.coefficient_count), expected->coefficients.size());
  for (std::size_t i = 0; i < 15; ++i) {
    bool const isThere = i < expected->coefficients.size();
    EXPECT_EQ(record.coefficients[i], isThere ? expected->coefficients[i] : 0.0);
  }
  EXPECT_EQ(std::isnan(record.t_min), !expected->tMin);
  if (expected->tMin) {
    EXPECT_EQ(record.t_min, *expected->tMin);
  }
  EXPECT_EQ(std::isnan(record.t_max), !expected->tMax);
  if (expected->tMax) {
    EXPECT_EQ(record.t_max, *expected->tMax);
  }
  EXPECT_EQ(record.reference_code, expected->code);
  EXPECT_EQ(textOf(ZEL_TEXT_UNIT), expected->unit);
  EXPECT_EQ(textOf(ZEL_TEXT_SOURCE), expected->source);
  EXPECT_EQ(textOf(ZEL_TEXT_CITATION), expected->citation);
  EXPECT_EQ(textOf(ZEL_TEXT_DOI), expected->doi);
}

TEST_F(CSearchTest, ComponentsAreThoseOfTheDesk) {
  desk::Libraries const libraries(libraries_.Texts());
  std::int32_t constants = 0;
  std::int32_t correlations = 0;
  zel::ZelConstantInfo const* const keywords = zel::GetConstantCatalogue(constants);
  zel::ZelCorrelationInfo const* const names = zel::GetCorrelationCatalogue(correlations);
  for (char const* const word : {"ETHANOL", "7732-18-5", "Benzene", "HE"}) {
    desk::Component const expected = libraries.Component(word);
    zel_component* component = Read(word);
    ASSERT_NE(component, nullptr);
    desk::Identity const identity = expected.Identity();
    zel_identity numbers = {};
    ASSERT_EQ(zel_component_identity(component, &numbers), ZEL_OK);
    EXPECT_EQ(numbers.number, identity.number);
    EXPECT_EQ(numbers.reference_code, identity.refCode);
    EXPECT_EQ(numbers.keeps_formula, identity.keepsFormula ? 1 : 0);
    ASSERT_EQ(static_cast<std::size_t>(numbers.id_count), identity.ids.size());
    for (std::int32_t i = 0; i < numbers.id_count; ++i) {
      EXPECT_EQ(Text([&](char* text, std::size_t size, std::size_t* length) {
                  return zel_component_id(component, i, text, size, length);
                }),
                identity.ids[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(TextOf(component, ZEL_TEXT_NAME), identity.name);
    EXPECT_EQ(TextOf(component, ZEL_TEXT_CAS), identity.cas);
    EXPECT_EQ(TextOf(component, ZEL_TEXT_FORMULA), identity.formula);
    for (std::int32_t i = 0; i < constants; ++i) ExpectConstant(component, keywords[i], expected);
    for (std::int32_t i = 0; i < correlations; ++i) {
      ExpectCorrelation(component, names[i].name,
                        expected.Correlation(static_cast<zel::Correlation>(i)));
    }
    EXPECT_EQ(zel_component_free(&component), ZEL_OK);
    EXPECT_EQ(component, nullptr);
  }
}

TEST_F(CSearchTest, APublishedConstantHasItsSourceAndUnit) {
  zel_component* ethanol = Read("ETHANOL");
  zel_constant nbp = {};
  ASSERT_EQ(zel_component_constant(ethanol, "nbp", "degC", &nbp), ZEL_OK) << "any case of letters";
  EXPECT_NEAR(nbp.value, 351.39 - 273.15, 1e-9);
  EXPECT_EQ(nbp.state, ZEL_STORED);
  EXPECT_EQ(nbp.reference_code, 54U);
  ASSERT_EQ(zel_component_constant(ethanol, "CNUM", nullptr, &nbp), ZEL_OK);
  EXPECT_EQ(nbp.value, 2.0);
  EXPECT_EQ(nbp.state, ZEL_FILLED_IN);
  EXPECT_EQ(zel_component_free(&ethanol), ZEL_OK);
}

TEST_F(CSearchTest, WhatAComponentDoesNotHaveIsReported) {
  zel_component* ethanol = Read("ETHANOL");
  zel_constant constant = {};
  zel_correlation correlation = {};
  EXPECT_EQ(zel_component_constant(ethanol, "CHAO", nullptr, &constant), ZEL_NO_VALUE);
  EXPECT_EQ(Reason(), "the component has no CHAO");
  EXPECT_EQ(zel_component_constant(ethanol, "NPB", nullptr, &constant), ZEL_UNKNOWN_WORD);
  EXPECT_EQ(Reason(), "there is no constant \"NPB\"");
  EXPECT_EQ(zel_component_constant(ethanol, "NBP", "bar", &constant), ZEL_UNKNOWN_WORD);
  EXPECT_EQ(zel_component_correlation(ethanol, "CharacteristicVolume", &correlation), ZEL_NO_VALUE);
  EXPECT_EQ(zel_component_correlation(ethanol, "Pressure", &correlation), ZEL_UNKNOWN_WORD);
  for (std::int32_t const which : {-1, int{ZEL_TEXT_MEMO}, 99}) {
    EXPECT_EQ(zel_component_text(ethanol, which, nullptr, 0, nullptr), ZEL_BAD_ARGUMENT);
    EXPECT_EQ(zel_component_constant_text(ethanol, "NBP", which, nullptr, 0, nullptr),
              ZEL_BAD_ARGUMENT);
    EXPECT_EQ(zel_component_correlation_text(ethanol, "VaporPressure", which, nullptr, 0, nullptr),
              ZEL_BAD_ARGUMENT);
  }
  EXPECT_EQ(zel_component_id(ethanol, -1, nullptr, 0, nullptr), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_component_id(ethanol, 12, nullptr, 0, nullptr), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_component_free(&ethanol), ZEL_OK);
  EXPECT_EQ(zel_search_component(search_, "ETHANLO", &ethanol), ZEL_MISSING_COMPONENT);
  EXPECT_EQ(ethanol, nullptr);
  EXPECT_NE(Reason().find("the nearest ID is ETHANOL"), std::string::npos) << Reason();
}

TEST_F(CSearchTest, AllComponentsAreListed) {
  desk::Libraries const libraries(libraries_.Texts());
  desk::Table expected(
      "", {{"number", ""}, {"CAS number", ""}, {"ID", ""}, {"name", ""}, {"formula", ""}});
  for (desk::Identity const& one : libraries.Components()) {
    expected.Add(std::int64_t{one.number}, one.cas, one.FirstId(), one.name, one.formula);
  }
  EXPECT_GT(expected.Rows().size(), 300U);
  Held table;
  ASSERT_EQ(zel_search_components(search_, &table), ZEL_OK);
  ctest::ExpectSame(table, expected);
}

TEST_F(CSearchTest, ValuesAreThoseOfTheDesk) {
  desk::Component const expected = desk::Libraries(libraries_.Texts()).Component("ETHANOL");
  zel_component* ethanol = Read("ETHANOL");
  std::vector<double> temperatures = {-1000.0, -100.0, 25.0, 78.3, 260.0, std::nan("")};
  std::size_t const count = temperatures.size();
  for (std::int32_t order = 0; order <= 3; ++order) {
    zel_evaluation const how = {sizeof(zel_evaluation), "bar", "degC", order};
    zel_evaluator* pressure = nullptr;
    ASSERT_EQ(zel_evaluator_new(ethanol, "vaporpressure", &how, &pressure), ZEL_OK) << Reason();
    auto const wanted = expected.Evaluate(zel::Correlation::VaporPressure, temperatures,
                                          {"bar", "degC", order == 0 ? 1 : order});
    std::vector<double> values(count + 1, -1.0), slopes(count + 1, -1.0);
    std::vector<std::int32_t> ranges(count + 1, 9);
    ASSERT_EQ(zel_evaluator_batch(pressure, count, temperatures.data(), values.data(),
                                  slopes.data(), ranges.data(), ZEL_BATCH_EXACT),
              ZEL_OK);
    for (std::size_t i = 0; i < count; ++i) {
      double single = -1.0;
      ASSERT_EQ(zel_evaluator_value(pressure, temperatures[i], &single), ZEL_OK);
      bool const isNone = std::isnan(wanted.values[i]);
      EXPECT_TRUE(isNone ? std::isnan(values[i]) : values[i] == wanted.values[i]) << i;
      EXPECT_TRUE(isNone ? std::isnan(single) : single == wanted.values[i]) << i;
      EXPECT_TRUE(isNone ? std::isnan(slopes[i]) : slopes[i] == wanted.derivatives[i]) << i;
      EXPECT_EQ(ranges[i], wanted.statuses[i]);
    }
    EXPECT_EQ(values[count], -1.0);
    EXPECT_EQ(slopes[count], -1.0);
    EXPECT_EQ(ranges[count], 9);
    EXPECT_EQ(Text([&](char* text, std::size_t size, std::size_t* length) {
                return zel_evaluator_unit(pressure, text, size, length);
              }),
              "bar");
    EXPECT_EQ(zel_evaluator_free(&pressure), ZEL_OK);
    EXPECT_EQ(pressure, nullptr);
  }
  EXPECT_EQ(zel_component_free(&ethanol), ZEL_OK);
}

TEST_F(CSearchTest, ABatchCanBeFasterAndWithoutSomeResults) {
  zel_component* ethanol = Read("ETHANOL");
  zel_evaluator* pressure = nullptr;
  ASSERT_EQ(zel_evaluator_new(ethanol, "VaporPressure", nullptr, &pressure), ZEL_OK);
  EXPECT_EQ(zel_component_free(&ethanol), ZEL_OK);  // the evaluator goes on
  std::vector<double> temperatures;
  for (double t = 200.0; t < 500.0; t += 0.5) temperatures.push_back(t);
  std::vector<double> exact(temperatures.size()), fast(temperatures.size());
  ASSERT_EQ(zel_evaluator_batch(pressure, temperatures.size(), temperatures.data(), exact.data(),
                                nullptr, nullptr, ZEL_BATCH_EXACT),
            ZEL_OK);
  ASSERT_EQ(zel_evaluator_batch(pressure, temperatures.size(), temperatures.data(), fast.data(),
                                nullptr, nullptr, ZEL_BATCH_VECTOR),
            ZEL_OK);
  for (std::size_t i = 0; i < exact.size(); ++i) EXPECT_NEAR(fast[i] / exact[i], 1.0, 1e-12);
  EXPECT_NEAR(exact[196], 8.15, 0.01);  // at 298 K; 8.22 at 298.15 K, and 0.457 kPa/K
  EXPECT_EQ(zel_evaluator_batch(pressure, 0, nullptr, nullptr, nullptr, nullptr, 0), ZEL_OK);
  EXPECT_EQ(zel_evaluator_batch(pressure, 1, temperatures.data(), fast.data(), nullptr, nullptr, 2),
            ZEL_BAD_ARGUMENT);
  EXPECT_EQ(zel_evaluator_free(&pressure), ZEL_OK);
}

TEST_F(CSearchTest, AnEvaluatorThatCannotBeMadeIsReported) {
  zel_component* ethanol = Read("ETHANOL");
  zel_evaluator* evaluator = nullptr;
  EXPECT_EQ(zel_evaluator_new(ethanol, "CharacteristicVolume", nullptr, &evaluator),
            ZEL_MISSING_DATUM);
  EXPECT_EQ(zel_evaluator_new(ethanol, "Pressure", nullptr, &evaluator), ZEL_UNKNOWN_WORD);
  zel_evaluation how = {sizeof(zel_evaluation), "W", nullptr, 0};
  EXPECT_EQ(zel_evaluator_new(ethanol, "VaporPressure", &how, &evaluator), ZEL_UNKNOWN_WORD);
  how = {sizeof(zel_evaluation), nullptr, "bar", 0};
  EXPECT_EQ(zel_evaluator_new(ethanol, "VaporPressure", &how, &evaluator), ZEL_UNKNOWN_WORD);
  how = {sizeof(zel_evaluation), nullptr, nullptr, 4};
  EXPECT_EQ(zel_evaluator_new(ethanol, "VaporPressure", &how, &evaluator), ZEL_UNKNOWN_WORD);
  how = {sizeof(zel_evaluation) - 8, nullptr, nullptr, 1};
  EXPECT_EQ(zel_evaluator_new(ethanol, "VaporPressure", &how, &evaluator), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(evaluator, nullptr);
  EXPECT_EQ(zel_component_free(&ethanol), ZEL_OK);
}

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

TEST_F(CSearchTest, ItemsAreThoseOfTheDesk) {
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

TEST_F(CSearchTest, AFieldOfAPairIsFoundByName) {
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

TEST_F(CFaceTest, ASearchOfLibrariesThatCannotBeOpenedIsReported) {
  zel_search* search = nullptr;
  char const* const none[] = {"none.lb1"};
  EXPECT_EQ(zel_search_open(none, 1, nullptr, &search), ZEL_NOT_FOUND);
  EXPECT_EQ(Reason(), "none.lb1: not found");
  char const* const holes[] = {nullptr};
  EXPECT_EQ(zel_search_open(holes, 1, nullptr, &search), ZEL_NULL_ARGUMENT);
  EXPECT_EQ(Reason(), "an element of libraries is null");
  zel_search_options const options = {sizeof(zel_search_options), "none.lb1", 0, 0.0};
  std::string const crc = Path("crc.lb1");
  char const* const one[] = {crc.c_str()};
  EXPECT_EQ(zel_search_open(one, 1, &options, &search), ZEL_FAILED) << "the names";
  EXPECT_NE(Reason().find("none.lb1"), std::string::npos) << Reason();
  EXPECT_EQ(search, nullptr);
}

TEST_F(CFaceTest, NamesOfAnotherLibraryAreUsed) {
  std::string const sample = Path("sample.lb1");
  std::string const perry = Path("perry.lb1");
  char const* const one[] = {sample.c_str()};
  zel_search* search = nullptr;
  zel_item* pair = nullptr;
  ASSERT_EQ(zel_search_open(one, 1, nullptr, &search), ZEL_OK) << Reason();
  EXPECT_NE(zel_search_pair(search, "NRTL", "ETHANOL", "WATER", &pair), ZEL_OK) << "no components";
  ASSERT_EQ(zel_search_close(&search), ZEL_OK);
  zel_search_options const options = {sizeof(zel_search_options), perry.c_str(), 1, 0.5};
  ASSERT_EQ(zel_search_open(one, 1, &options, &search), ZEL_OK) << Reason();
  EXPECT_EQ(zel_search_pair(search, "NRTL", "ETHANOL", "WATER", &pair), ZEL_OK) << Reason();
  EXPECT_EQ(zel_item_free(&pair), ZEL_OK);
  EXPECT_EQ(zel_search_close(&search), ZEL_OK);
}

}  // namespace
