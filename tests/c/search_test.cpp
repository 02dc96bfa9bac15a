// Components and correlations, compared with those of the desk.
#include <zelaccess/DeskEvaluator.h>

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <thread>

#include "search_fixture.h"

using ctest::Held;
using ctest::Reason;
using ctest::Text;

namespace desk = zel::desk;

namespace {

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

TEST_F(CSearchTest, TimesAreNumbersAndReasonsAreLong) {
  zel_search_options options = {};
  options.size = sizeof options;
  options.wait_seconds = std::nan("");
  zel_search* search = nullptr;
  char const* const one[] = {"x.lb1"};
  EXPECT_EQ(zel_search_open(one, 1, &options, &search), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(Reason(), "wait_seconds is not a number");
  std::string const path = "/" + std::string(200, 'n') + "/" + std::string(50, 'x') + ".txt";
  zel_library* library = nullptr;
  EXPECT_EQ(zel_library_open(path.c_str(), nullptr, &library), ZEL_NOT_FOUND);
  EXPECT_EQ(Reason().find(path), 0U);
  EXPECT_GT(Reason().size(), path.size() + 5) << "what is wrong is not cut off";
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

TEST_F(CSearchTest, ThreadsUseOneComponentAndOwnSearches) {
  zel_component* ethanol = Read("ETHANOL");
  zel_evaluator* pressure = nullptr;
  ASSERT_EQ(zel_evaluator_new(ethanol, "VaporPressure", nullptr, &pressure), ZEL_OK);
  double expected = 0.0;
  ASSERT_EQ(zel_evaluator_value(pressure, 300.0, &expected), ZEL_OK);
  std::atomic<int> wrong{0};
  auto const work = [&](int number) {
    std::string const unknown = "NO" + std::to_string(number);
    for (int i = 0; i < 50; ++i) {
      double value = 0.0;
      zel_constant nbp = {};
      zel_search* search = nullptr;
      zel_component* water = nullptr;
      bool isGood = zel_evaluator_value(pressure, 300.0, &value) == ZEL_OK && value == expected;
      isGood = isGood && zel_component_constant(ethanol, "NBP", "K", &nbp) == ZEL_OK;
      isGood = isGood && zel_search_open(libraries_.data(), 3, nullptr, &search) == ZEL_OK;
      isGood = isGood && zel_search_component(search, "WATER", &water) == ZEL_OK;
      isGood = isGood && zel_component_free(&water) == ZEL_OK;
      isGood = isGood && zel_search_component(search, unknown.c_str(), &water) != ZEL_OK;
      isGood = isGood && Reason().find(unknown + " ") != std::string::npos;
      isGood = isGood && zel_search_close(&search) == ZEL_OK;
      if (!isGood) ++wrong;
    }
  };
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) threads.emplace_back(work, number);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(zel_evaluator_free(&pressure), ZEL_OK);
  EXPECT_EQ(zel_component_free(&ethanol), ZEL_OK);
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

TEST_F(CFaceTest, ASearchOfLibrariesThatCannotBeOpenedIsReported) {
  zel_search* search = nullptr;
  char const* const none[] = {"none.lb1"};
  EXPECT_EQ(zel_search_open(none, 1, nullptr, &search), ZEL_NOT_FOUND);
  EXPECT_EQ(Reason(), "none.lb1: not found");
  char const* const holes[] = {nullptr};
  EXPECT_EQ(zel_search_open(holes, 1, nullptr, &search), ZEL_NULL_ARGUMENT);
  EXPECT_EQ(Reason(), "an element of libraries is null");
  zel_search_options const options = {sizeof(zel_search_options), "none.lb1", 0, 0.0, nullptr, 0};
  std::string const crc = Path("crc.lb1");
  char const* const one[] = {crc.c_str()};
  EXPECT_EQ(zel_search_open(one, 1, &options, &search), ZEL_FAILED) << "the names";
  EXPECT_NE(Reason().find("none.lb1"), std::string::npos) << Reason();
  EXPECT_EQ(search, nullptr);
}

TEST_F(CFaceTest, LibrariesAreFoundOnAPath) {
  std::string const folder = Path("");
  char const* const words[] = {"perry", "sample"};
  char const* const path[] = {"no such folder", folder.c_str()};
  zel_search* search = nullptr;
  EXPECT_EQ(zel_search_open(words, 2, nullptr, &search), ZEL_NOT_FOUND);
  zel_search_options const options = {sizeof options, "crc", 0, 0.0, path, 2};
  ASSERT_EQ(zel_search_open(words, 2, &options, &search), ZEL_OK) << Reason();
  EXPECT_EQ(zel_search_close(&search), ZEL_OK);
  zel_report_options const how = {sizeof how, "crc", nullptr, 0, 0.0, path, 2};
  Held why;
  ASSERT_EQ(zel_why(words, 1, "ETHANOL", "TC", &how, &why), ZEL_OK) << Reason();
  char const* const hole[] = {nullptr};
  zel_search_options const wrong = {sizeof wrong, nullptr, 0, 0.0, hole, 1};
  EXPECT_EQ(zel_search_open(words, 2, &wrong, &search), ZEL_NULL_ARGUMENT);
  EXPECT_EQ(Reason(), "an element of path is null");
}

TEST_F(CFaceTest, TheSearchPathIsThatOfTheEnvironment) {
  ::setenv("ZEL_PATH", "/data/own:/data/lab", 1);
  Held table;
  EXPECT_EQ(zel_search_path(&table), ZEL_OK) << Reason();
  ::unsetenv("ZEL_PATH");
  desk::Table expected("", {{"folder", ""}});
  expected.Add(std::string("/data/own"));
  expected.Add(std::string("/data/lab"));
  ctest::ExpectSame(table, expected);
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
  zel_search_options const options = {
      sizeof(zel_search_options), perry.c_str(), 1, 0.5, nullptr, 0};
  ASSERT_EQ(zel_search_open(one, 1, &options, &search), ZEL_OK) << Reason();
  EXPECT_EQ(zel_search_pair(search, "NRTL", "ETHANOL", "WATER", &pair), ZEL_OK) << Reason();
  EXPECT_EQ(zel_item_free(&pair), ZEL_OK);
  EXPECT_EQ(zel_search_close(&search), ZEL_OK);
}

}  // namespace
