// Memory is refused from each request on: a status, no handle, and the call works afterwards.
#include <cstdlib>
#include <functional>

#include "c_fixture.h"
#include "tests/support/allocations.h"

using ctest::Reason;

namespace {

class CMemoryTest : public CFaceTest {
 protected:
  void SetUp() override {
    perry_ = Path("perry.lb1");
    sample_ = Path("sample.lb1");
    own_ = Path("own.lb1");
    for (fs::directory_entry const& entry : fs::directory_iterator(Path(""))) {
      if (entry.path().filename().string().find("own") != std::string::npos) {
        fs::remove_all(entry.path());
      }
    }
    for (char const* ending : {".lb1", ".lb2"}) {
      fs::copy_file(Path("sample") + ending, Path("own") + ending);
    }
    libraries_[0] = sample_.c_str();
    libraries_[1] = perry_.c_str();
    ASSERT_EQ(zel_start(), ZEL_OK);
  }

  // Repeats a call with ever more memory until it works: each of the first 100 requests is refused,
  // then, unless ZEL_MEMORY_STEP is 1, some of them. `end` ends what the call has made; `hasMade`
  // says whether it has left a handle after a failure.
  void Refuse(
      char const* name, std::function<zel_status()> const& call,
      std::function<void()> const& end = [] {},
      std::function<bool()> const& hasMade = [] { return false; }) {
    int refused = 0;
    char const* const step = std::getenv("ZEL_MEMORY_STEP");
    bool const isEach = step != nullptr && std::string(step) == "1";
    for (int from = 1;; from += isEach ? 1 : 1 + from / 100) {
      zel_status status = ZEL_OK;
      zel_status copied = ZEL_OK;
      char reason[1024] = "";
      bool isMade = false;
      {
        zel::test::AllocationWatch const watch(from);
        status = call();
        copied = zel_reason(reason, sizeof reason, nullptr);
        isMade = status != ZEL_OK && hasMade();
      }
      ASSERT_EQ(copied, ZEL_OK) << name;
      if (status == ZEL_OK) break;
      ++refused;
      ASSERT_EQ(status, ZEL_NO_MEMORY) << name << " " << from << ": " << reason;
      ASSERT_STREQ(reason, "memory has run out");
      ASSERT_FALSE(isMade) << name << " " << from;
    }
    end();
    EXPECT_GT(refused, 0) << name << " needs memory";
  }
  void RefuseTable(char const* name, std::function<zel_status(zel_table**)> const& call) {
    zel_table* table = nullptr;
    Refuse(
        name, [&] { return call(&table); }, [&] { zel_table_free(&table); },
        [&] { return table != nullptr; });
  }

  std::string perry_, sample_, own_;
  char const* libraries_[2] = {};
  char text_[5000];
};

TEST_F(CMemoryTest, OfCatalogues) {
  RefuseTable("constants", [](zel_table** table) { return zel_list_constants(table); });
  RefuseTable("correlations", [](zel_table** table) { return zel_list_correlations(table); });
  RefuseTable("types", [](zel_table** table) { return zel_list_bank_types(table); });
  RefuseTable("fields", [](zel_table** table) { return zel_list_fields("NRTL", table); });
  RefuseTable("checks", [](zel_table** table) { return zel_list_checks(table); });
  Refuse("name",
         [&] { return zel_status_name(ZEL_CONFLICTING_IDENTITY, text_, sizeof text_, nullptr); });
}

TEST_F(CMemoryTest, OfALibrary) {
  zel_library* library = nullptr;
  Refuse(
      "open", [&] { return zel_library_open(sample_.c_str(), nullptr, &library); }, [] {},
      [&] { return library != nullptr; });
  RefuseTable("banks", [&](zel_table** table) { return zel_library_banks(library, table); });
  Refuse("text",
         [&] { return zel_library_text(library, ZEL_TEXT_MEMO, text_, sizeof text_, nullptr); });
  zel_columns* columns = nullptr;
  Refuse(
      "columns", [&] { return zel_columns_open(library, "NRTL", "SAMPLE", &columns); }, [] {},
      [&] { return columns != nullptr; });
  double values[300];
  std::size_t read = 0;
  Refuse("add", [&] { return zel_columns_add_reals(columns, "bij", values, 300); });
  EXPECT_EQ(zel_columns_read(columns, 300, &read), ZEL_OK) << Reason();
  EXPECT_EQ(read, 218U);
  EXPECT_EQ(zel_columns_close(&columns), ZEL_OK);
  std::int32_t sound = 0;
  Refuse("structure", [&] { return zel_library_check(library, 0, nullptr, nullptr, &sound); });
  EXPECT_EQ(sound, 1);
  Refuse("data", [&] { return zel_library_check(library, 1, nullptr, nullptr, &sound); });
  EXPECT_EQ(zel_library_close(&library), ZEL_OK);
}

TEST_F(CMemoryTest, OfASearch) {
  zel_search* search = nullptr;
  zel_component* component = nullptr;
  zel_item* item = nullptr;
  zel_evaluator* evaluator = nullptr;
  zel_constant constant = {};
  zel_correlation correlation = {};
  zel_evaluation const how = {sizeof how, "bar", "degC", 1};
  Refuse(
      "search", [&] { return zel_search_open(libraries_, 2, nullptr, &search); }, [] {},
      [&] { return search != nullptr; });
  RefuseTable("components",
              [&](zel_table** table) { return zel_search_components(search, table); });
  Refuse(
      "component", [&] { return zel_search_component(search, "ETHANOL", &component); }, [] {},
      [&] { return component != nullptr; });
  Refuse(
      "pair", [&] { return zel_search_pair(search, "NRTL", "ETHANOL", "WATER", &item); }, [] {},
      [&] { return item != nullptr; });
  Refuse("constant", [&] { return zel_component_constant(component, "TC", "degC", &constant); });
  Refuse("correlation",
         [&] { return zel_component_correlation(component, "VaporPressure", &correlation); });
  Refuse("text", [&] {
    return zel_component_constant_text(component, "TC", ZEL_TEXT_CITATION, text_, sizeof text_,
                                       nullptr);
  });
  RefuseTable("item fields", [&](zel_table** table) { return zel_item_fields(item, table); });
  Refuse(
      "evaluator", [&] { return zel_evaluator_new(component, "VaporPressure", &how, &evaluator); },
      [] {}, [&] { return evaluator != nullptr; });
  double const temperatures[] = {25.0, 78.3};
  double values[2] = {};
  Refuse("batch", [&] {
    return zel_evaluator_batch(evaluator, 2, temperatures, values, nullptr, nullptr, 0);
  });
  EXPECT_NEAR(values[1], 1.01284, 1e-5);  // 101.0851 kPa at 351.4 K, and 3.980844 kPa/K
  EXPECT_EQ(zel_evaluator_free(&evaluator), ZEL_OK);
  EXPECT_EQ(zel_item_free(&item), ZEL_OK);
  EXPECT_EQ(zel_component_free(&component), ZEL_OK);
  EXPECT_EQ(zel_search_close(&search), ZEL_OK);
}

TEST_F(CMemoryTest, OfTables) {
  char const* const components[] = {"ETHANOL", "WATER"};
  char const* const fields[] = {"TC", "NBP"};
  RefuseTable("why", [&](zel_table** table) {
    return zel_why(libraries_, 2, "ETHANOL", "NBP", nullptr, table);
  });
  RefuseTable("data", [&](zel_table** table) {
    return zel_data(libraries_ + 1, 1, components, 2, fields, 2, 1, nullptr, table);
  });
  RefuseTable("coverage", [&](zel_table** table) {
    return zel_coverage(libraries_, 2, "NRTL", components, 2, nullptr, table);
  });
  zel_check_options const check = {sizeof check, nullptr, 0, 1, 0};
  RefuseTable("check",
              [&](zel_table** table) { return zel_check(libraries_, 1, &check, nullptr, table); });
}

TEST_F(CMemoryTest, OfAChange) {
  zel_change* change = nullptr;
  zel_table* table = nullptr;
  char const* const words[] = {"NRTL", "10000007", "10000326", "bij=1"};
  // A change that failed is dropped, so each attempt is a new one.
  auto const attempt = [&] {
    zel_status status = zel_change_begin(own_.c_str(), nullptr, &change);
    if (status == ZEL_OK) status = zel_change_edit(change, words, 4, &table);
    if (status == ZEL_OK) status = zel_change_commit(&change);
    if (change != nullptr) zel_change_drop(&change);
    if (status != ZEL_OK && table != nullptr) zel_table_free(&table);
    return status;
  };
  Refuse(
      "change", attempt, [&] { zel_table_free(&table); }, [&] { return table != nullptr; });
  RefuseTable("history", [&](zel_table** rows) { return zel_history(own_.c_str(), rows); });
  RefuseTable("undo", [&](zel_table** rows) { return zel_undo(own_.c_str(), nullptr, rows); });
}

TEST_F(CMemoryTest, OfDocuments) {
  std::string const made = Path("own2.lb1");
  std::string const document = Path("own.xml");
  zel_library* library = nullptr;
  zel_table* log = nullptr;
  auto const attempt = [&] {
    zel_status status = zel_library_create(made.c_str(), 11, nullptr, &library);
    if (status == ZEL_OK) {
      status = zel_library_import(library, ZEL_DATA "/sample-pro.xml", 0, 2, nullptr, &log);
    }
    if (status == ZEL_OK) status = zel_library_export(library, document.c_str());
    if (library != nullptr) zel_library_close(&library);
    if (status != ZEL_OK && log != nullptr) zel_table_free(&log);
    return status;
  };
  Refuse("documents", attempt, [&] { zel_table_free(&log); });
}

}  // namespace
