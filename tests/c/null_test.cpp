// Every pointer of every function is null once: an error with a reason, or allowed.
#include <fstream>

#include "null_sweep.h"

using ctest::Reason;

namespace {

class CNullTest : public CNullSweep {
 protected:
  void SetUp() override {
    for (fs::directory_entry const& entry : fs::directory_iterator(Path(""))) {
      if (entry.path().filename().string().find("own") != std::string::npos) {
        fs::remove_all(entry.path());
      }
    }
    for (char const* ending : {".lb1", ".lb2"}) {
      fs::copy_file(Path("sample") + ending, Path("own") + ending);
    }
    fs::create_directories(Path("own_documents"));
  }

  void SweepBase();
  void SweepTables();
  void SweepLibrary();
  void SweepDocuments();
  void SweepColumns();
  void SweepSearch();
  void SweepComponent();
  void SweepItem();
  void SweepReports();
  void SweepChanges();

  // Ends a table after each call.
  Around Freed() {
    return {[] {}, [this] { zel_table_free(&table_); }};
  }

  zel_table* table_ = nullptr;
  char text_[5000];
  std::size_t length_ = 0;
  std::size_t number_ = 0;
};

#define SWEEP(function, ...) Sweep(#function, &function, __VA_ARGS__)

void CNullTest::SweepBase() {
  double values[2] = {1.0, 2.0};
  SWEEP(zel_start, {}, {});
  SWEEP(zel_version, {2}, {}, text_, sizeof text_, &length_);
  SWEEP(zel_reason, {2}, {}, text_, sizeof text_, &length_);
  SWEEP(zel_status_name, {3}, {}, ZEL_OK, text_, sizeof text_, &length_);
  SWEEP(zel_convert, {}, {}, "Pres", "kPa", "bar", values, std::size_t{2});
  SWEEP(zel_list_constants, {}, Freed(), &table_);
  SWEEP(zel_list_correlations, {}, Freed(), &table_);
  SWEEP(zel_list_bank_types, {}, Freed(), &table_);
  SWEEP(zel_list_fields, {}, Freed(), "NRTL", &table_);
  SWEEP(zel_list_checks, {}, Freed(), &table_);
}

void CNullTest::SweepTables() {
  zel_table* const none = nullptr;
  zel_table* table = nullptr;
  std::string const perry = Path("perry.lb1");
  char const* const libraries[] = {perry.c_str()};
  std::int32_t kind = 0;
  std::int64_t whole = 0;
  double values[9] = {};
  SWEEP(zel_table_free, {},
        {[this] { zel_list_constants(&table_); }, [this] { zel_table_free(&table_); }}, &table_);
  ASSERT_EQ(zel_why(libraries, 1, "ETHANOL", "TC", nullptr, &table), ZEL_OK) << Reason();
  std::size_t value = 0, code = 0;
  ASSERT_EQ(zel_table_column(table, "value", &value), ZEL_OK);
  ASSERT_EQ(zel_table_column(table, "code", &code), ZEL_OK);
  zel_table const* const held = table;
  SWEEP(zel_table_size, {1, 2}, {}, held, &number_, &length_);
  SWEEP(zel_table_column, {}, {}, held, "code", &number_);
  SWEEP(zel_table_heading, {4}, {}, held, std::size_t{0}, text_, sizeof text_, &length_);
  SWEEP(zel_table_unit, {4}, {}, held, std::size_t{0}, text_, sizeof text_, &length_);
  SWEEP(zel_table_kind, {}, {}, held, std::size_t{0}, value, &kind);
  SWEEP(zel_table_number, {}, {}, held, std::size_t{0}, value, values);
  SWEEP(zel_table_integer, {}, {}, held, std::size_t{0}, code, &whole);
  SWEEP(zel_table_text, {5}, {}, held, std::size_t{0}, std::size_t{0}, text_, sizeof text_,
        &length_);
  SWEEP(zel_table_numbers, {}, {}, held, value, values, std::size_t{9});
  EXPECT_EQ(zel_table_free(&table), ZEL_OK);
  table = none;
  EXPECT_EQ(zel_table_free(&table), ZEL_NULL_ARGUMENT) << "ended twice";
}

void CNullTest::SweepLibrary() {
  std::string const own = Path("own.lb1");
  std::string const made = Path("own2.lb1");
  zel_open_options const update = {sizeof update, ZEL_UPDATE, 0, 0, 0, nullptr, nullptr};
  zel_library* library = nullptr;
  auto const close = [&] { zel_library_close(&library); };
  SWEEP(zel_library_open, {1}, {[] {}, close}, own.c_str(), &update, &library);
  SWEEP(zel_library_create, {2}, {[] {}, close}, made.c_str(), 11, &update, &library);
  auto const open = [&] { zel_library_open(own.c_str(), &update, &library); };
  SWEEP(zel_library_close, {},
        {[&] {
           if (library == nullptr) open();
         },
         close},
        &library);
  EXPECT_EQ(zel_library_close(&library), ZEL_NULL_ARGUMENT) << "ended twice";
  open();
  zel_library_facts facts = {};
  SWEEP(zel_library_flush, {}, {}, library);
  SWEEP(zel_library_describe, {}, {}, library, &facts);
  SWEEP(zel_library_text, {4}, {}, library, ZEL_TEXT_NAME, text_, sizeof text_, &length_);
  SWEEP(zel_library_set_text, {}, {}, library, ZEL_TEXT_VERSION, "2");
  SWEEP(zel_library_banks, {}, Freed(), library, &table_);
  auto const remove = [&] { zel_library_delete_bank(library, "NRTL", "NEW"); };
  auto const create = [&] { zel_library_create_bank(library, "NRTL", "NEW", 0); };
  SWEEP(zel_library_create_bank, {}, {[] {}, remove}, library, "NRTL", "NEW", 0);
  SWEEP(zel_library_delete_bank, {}, {create, remove}, library, "NRTL", "NEW");
  close();
}

std::int32_t GoOn(zel_finding const* /*finding*/, void* /*user*/) { return 0; }

void CNullTest::SweepDocuments() {
  std::string const own = Path("own2.lb1");
  std::string const whole = Path("own_documents/whole.xml");
  std::string const bank = Path("own_documents/bank.xml");
  zel_library* library = nullptr;
  zel_import_counts counts = {};
  zel_document_facts facts = {};
  std::int32_t sound = 0;
  Around const fresh = {[&] { zel_library_create(own.c_str(), 11, nullptr, &library); },
                        [&] {
                          if (table_ != nullptr) zel_table_free(&table_);
                          zel_library_close(&library);
                        }};
  // The library is another one in each call.
  swept_.insert("zel_library_import");
  auto const import = [&](bool isNull, char const* path, zel_import_counts* stored,
                          zel_table** log) {
    fresh.before();
    zel_status const status =
        zel_library_import(isNull ? nullptr : library, path, 0, 2, stored, log);
    fresh.after();
    return status;
  };
  char const* const document = ZEL_DATA "/sample-pro.xml";
  EXPECT_EQ(import(false, document, &counts, &table_), ZEL_OK) << Reason();
  EXPECT_EQ(import(true, document, &counts, &table_), ZEL_NULL_ARGUMENT);
  EXPECT_EQ(Reason(), "library is null");
  EXPECT_EQ(import(false, nullptr, &counts, &table_), ZEL_NULL_ARGUMENT);
  EXPECT_EQ(Reason(), "path is null");
  EXPECT_EQ(import(false, document, nullptr, nullptr), ZEL_OK);

  ASSERT_EQ(zel_library_open(Path("own.lb1").c_str(), nullptr, &library), ZEL_OK);
  SWEEP(zel_library_export, {}, {}, library, whole.c_str());
  SWEEP(zel_library_export_bank, {}, {}, library, "NRTL", "SAMPLE", bank.c_str());
  SWEEP(zel_document_describe, {}, {}, bank.c_str(), &facts);
  SWEEP(zel_library_check, {2, 3, 4}, {}, library, 0, &GoOn, static_cast<void*>(&counts), &sound);
  EXPECT_EQ(zel_library_close(&library), ZEL_OK);
}

void CNullTest::SweepColumns() {
  zel_library* library = nullptr;
  zel_columns* columns = nullptr;
  std::int32_t words[20];
  double reals[20];
  char texts[2000];
  ASSERT_EQ(zel_library_open(Path("perry.lb1").c_str(), nullptr, &library), ZEL_OK);
  auto const close = [&] { zel_columns_close(&columns); };
  auto const open = [&] { zel_columns_open(library, "PURECOMP", "PERRY", &columns); };
  SWEEP(zel_columns_open, {}, {[] {}, close}, library, "PURECOMP", "PERRY", &columns);
  SWEEP(zel_columns_close, {},
        {[&] {
           if (columns == nullptr) open();
         },
         [] {}},
        &columns);
  close();
  EXPECT_EQ(zel_columns_close(&columns), ZEL_NULL_ARGUMENT) << "ended twice";
  open();
  SWEEP(zel_columns_width, {}, {}, columns, "TC", &number_);
  SWEEP(zel_columns_add_keys, {}, {}, columns, words, std::size_t{20});
  SWEEP(zel_columns_add_reals, {}, {}, columns, "TC", reals, std::size_t{20});
  SWEEP(zel_columns_add_integers, {}, {}, columns, "cas", words, std::size_t{20});
  SWEEP(zel_columns_add_texts, {}, {}, columns, "name", texts, sizeof texts);
  SWEEP(zel_columns_read, {}, {}, columns, std::size_t{1}, &number_);
  close();
  EXPECT_EQ(zel_library_close(&library), ZEL_OK);
}

void CNullTest::SweepSearch() {
  std::string const perry = Path("perry.lb1");
  std::string const sample = Path("sample.lb1");
  char const* const libraries[] = {sample.c_str(), perry.c_str()};
  char const* const words[] = {"ETHANOL", "WATER"};
  zel_search_options const options = {sizeof options, nullptr, 0, 0.0, nullptr, 0};
  zel_search* search = nullptr;
  zel_component* component = nullptr;
  zel_item* item = nullptr;
  auto const close = [&] { zel_search_close(&search); };
  auto const open = [&] { zel_search_open(libraries, 2, nullptr, &search); };
  SWEEP(zel_search_open, {2}, {[] {}, close}, libraries, std::size_t{2}, &options, &search);
  SWEEP(zel_search_close, {},
        {[&] {
           if (search == nullptr) open();
         },
         [] {}},
        &search);
  close();
  EXPECT_EQ(zel_search_close(&search), ZEL_NULL_ARGUMENT) << "ended twice";
  open();
  SWEEP(zel_search_path, {}, Freed(), &table_);
  SWEEP(zel_search_components, {}, Freed(), search, &table_);
  SWEEP(zel_search_component, {}, {[] {}, [&] { zel_component_free(&component); }}, search, "WATER",
        &component);
  auto const freeItem = [&] { zel_item_free(&item); };
  SWEEP(zel_search_pair, {}, {[] {}, freeItem}, search, "NRTL", "ETHANOL", "WATER", &item);
  SWEEP(zel_search_item, {}, {[] {}, freeItem}, search, "NRTL", words, std::size_t{2}, &item);
  close();
}

void CNullTest::SweepComponent() {
  std::string const perry = Path("perry.lb1");
  char const* const libraries[] = {perry.c_str()};
  zel_search* search = nullptr;
  zel_component* component = nullptr;
  zel_evaluator* evaluator = nullptr;
  zel_identity identity = {};
  zel_constant constant = {};
  zel_correlation correlation = {};
  zel_evaluation const evaluation = {sizeof evaluation, nullptr, nullptr, 0};
  double const temperatures[] = {300.0, 310.0};
  double values[2], slopes[2];
  std::int32_t ranges[2];
  ASSERT_EQ(zel_search_open(libraries, 1, nullptr, &search), ZEL_OK);
  auto const read = [&] {
    if (component == nullptr) zel_search_component(search, "ETHANOL", &component);
  };
  SWEEP(zel_component_free, {}, {read, [] {}}, &component);
  read();
  zel_component const* const held = component;
  SWEEP(zel_component_identity, {}, {}, held, &identity);
  SWEEP(zel_component_text, {4}, {}, held, ZEL_TEXT_NAME, text_, sizeof text_, &length_);
  SWEEP(zel_component_id, {4}, {}, held, 0, text_, sizeof text_, &length_);
  SWEEP(zel_component_constant, {2}, {}, held, "TC", "K", &constant);
  SWEEP(zel_component_constant_text, {5}, {}, held, "TC", ZEL_TEXT_UNIT, text_, sizeof text_,
        &length_);
  SWEEP(zel_component_correlation, {}, {}, held, "LiquidCp", &correlation);
  SWEEP(zel_component_correlation_text, {5}, {}, held, "LiquidCp", ZEL_TEXT_UNIT, text_,
        sizeof text_, &length_);
  SWEEP(zel_evaluator_new, {2}, {[] {}, [&] { zel_evaluator_free(&evaluator); }}, held,
        "VaporPressure", &evaluation, &evaluator);
  auto const make = [&] {
    if (evaluator == nullptr) zel_evaluator_new(held, "VaporPressure", nullptr, &evaluator);
  };
  SWEEP(zel_evaluator_free, {}, {make, [] {}}, &evaluator);
  make();
  zel_evaluator const* const prepared = evaluator;
  SWEEP(zel_evaluator_unit, {3}, {}, prepared, text_, sizeof text_, &length_);
  SWEEP(zel_evaluator_value, {}, {}, prepared, 300.0, values);
  SWEEP(zel_evaluator_batch, {3, 4, 5}, {}, prepared, std::size_t{2}, temperatures, values, slopes,
        ranges, ZEL_BATCH_EXACT);
  EXPECT_EQ(zel_evaluator_free(&evaluator), ZEL_OK);
  EXPECT_EQ(zel_evaluator_free(&evaluator), ZEL_NULL_ARGUMENT) << "ended twice";
  EXPECT_EQ(zel_component_free(&component), ZEL_OK);
  EXPECT_EQ(zel_component_free(&component), ZEL_NULL_ARGUMENT) << "ended twice";
  EXPECT_EQ(zel_search_close(&search), ZEL_OK);
}

void CNullTest::SweepItem() {
  std::string const perry = Path("perry.lb1");
  std::string const sample = Path("sample.lb1");
  char const* const libraries[] = {sample.c_str(), perry.c_str()};
  zel_search* search = nullptr;
  zel_item* item = nullptr;
  double values[4];
  ASSERT_EQ(zel_search_open(libraries, 2, nullptr, &search), ZEL_OK);
  auto const read = [&] {
    if (item == nullptr) zel_search_pair(search, "NRTL", "ETHANOL", "WATER", &item);
  };
  SWEEP(zel_item_free, {}, {read, [] {}}, &item);
  read();
  zel_item const* const held = item;
  SWEEP(zel_item_text, {4}, {}, held, ZEL_TEXT_SOURCE, text_, sizeof text_, &length_);
  SWEEP(zel_item_fields, {}, Freed(), held, &table_);
  SWEEP(zel_item_value, {}, {}, held, "bij", values);
  SWEEP(zel_item_values, {4}, {}, held, "bij", values, std::size_t{4}, &length_);
  SWEEP(zel_item_field_text, {5}, {}, held, "bij", ZEL_TEXT_UNIT, text_, sizeof text_, &length_);
  EXPECT_EQ(zel_item_free(&item), ZEL_OK);
  EXPECT_EQ(zel_item_free(&item), ZEL_NULL_ARGUMENT) << "ended twice";
  EXPECT_EQ(zel_search_close(&search), ZEL_OK);
}

void CNullTest::SweepReports() {
  std::string const perry = Path("perry.lb1");
  std::string const sample = Path("sample.lb1");
  char const* const libraries[] = {perry.c_str()};
  char const* const components[] = {"ETHANOL", "WATER"};
  char const* const constants[] = {"TC"};
  char const* const fields[] = {"bij"};
  constexpr std::size_t kOne = 1, kTwo = 2;
  zel_report_options const options = {sizeof options, perry.c_str(), nullptr, 0, 0.0, nullptr, 0};
  zel_check_options const check = {sizeof check, nullptr, 0, 1, 0};
  SWEEP(zel_why, {4}, Freed(), libraries, kOne, "ETHANOL", "TC", &options, &table_);
  SWEEP(zel_data, {7}, Freed(), libraries, kOne, components, kTwo, constants, kOne, 0, &options,
        &table_);
  char const* const both[] = {sample.c_str(), perry.c_str()};
  SWEEP(zel_pairs, {7}, Freed(), both, kTwo, "NRTL", fields, kOne, components, kTwo, &options,
        &table_);
  SWEEP(zel_coverage, {5}, Freed(), both, kTwo, "NRTL", components, kTwo, &options, &table_);
  SWEEP(zel_check, {2, 3}, Freed(), libraries, kOne, &check, &options, &table_);
}

void CNullTest::SweepChanges() {
  std::string const own = Path("own.lb1");
  std::string const made = Path("own3.lb1");
  std::string const perry = Path("perry.lb1");
  std::string const csv = Path("own.csv");
  zel_change_options const options = {sizeof options, nullptr, nullptr, nullptr, nullptr, 0.0, 0};
  zel_change_options const dry = {sizeof dry, nullptr, nullptr, nullptr, nullptr, 0.0, 1};
  zel_change* change = nullptr;
  zel_import_counts counts = {};
  auto const drop = [&] { zel_change_drop(&change); };
  auto const begin = [&] {
    if (change == nullptr) zel_change_begin(own.c_str(), &dry, &change);
  };
  SWEEP(zel_change_begin, {1}, {[] {}, drop}, own.c_str(), &options, &change);
  SWEEP(zel_change_create, {1}, {[] {}, drop}, made.c_str(), &options, &change);
  SWEEP(zel_change_drop, {}, {begin, [] {}}, &change);
  SWEEP(zel_change_commit, {}, {begin, [] {}}, &change);
  drop();
  EXPECT_EQ(zel_change_drop(&change), ZEL_NULL_ARGUMENT) << "ended twice";
  EXPECT_EQ(zel_change_commit(&change), ZEL_NULL_ARGUMENT) << "ended twice";
  begin();
  char const* const words[] = {"NRTL", "10000007", "10000326", "bij=1"};
  std::ofstream(csv) << "component 1,component 2,bij\n10000007,10000326,2\n";
  SWEEP(zel_change_edit, {3}, Freed(), change, words, std::size_t{4}, &table_);
  drop();
  swept_.insert("zel_change_import_document");
  char const* const document = ZEL_DATA "/sample-pro.xml";
  auto const import = [&](bool isNull, char const* path, char const* bank,
                          zel_import_counts* stored, zel_table** log) {
    zel_change_create(made.c_str(), nullptr, &change);
    zel_status const status =
        zel_change_import_document(isNull ? nullptr : change, path, bank, 0, 2, stored, log);
    if (table_ != nullptr) zel_table_free(&table_);
    drop();
    return status;
  };
  EXPECT_EQ(import(false, document, "", &counts, &table_), ZEL_OK) << Reason();
  EXPECT_EQ(import(false, document, nullptr, nullptr, nullptr), ZEL_OK) << Reason();
  EXPECT_EQ(import(true, document, "", &counts, &table_), ZEL_NULL_ARGUMENT);
  EXPECT_EQ(Reason(), "change is null");
  EXPECT_EQ(import(false, nullptr, "", &counts, &table_), ZEL_NULL_ARGUMENT);
  EXPECT_EQ(Reason(), "path is null");
  begin();
  SWEEP(zel_change_import_table, {3}, Freed(), change, csv.c_str(), "NRTL:SAMPLE", &table_);
  SWEEP(zel_change_findings, {}, Freed(), change, &table_);
  drop();
  auto const edit = [&] {
    zel_change_begin(own.c_str(), nullptr, &change);
    zel_change_edit(change, words, 4, nullptr);
    zel_change_commit(&change);
  };
  SWEEP(zel_undo, {1, 2}, {edit, [this] { zel_table_free(&table_); }}, own.c_str(), &options,
        &table_);
  SWEEP(zel_history, {}, Freed(), own.c_str(), &table_);
}

// The functions that the headers declare.
std::set<std::string> Declared() {
  std::set<std::string> names;
  for (fs::directory_entry const& header : fs::directory_iterator(ZEL_HEADERS)) {
    std::ifstream file(header.path());
    std::string line;
    while (std::getline(file, line)) {
      std::smatch match;
      if (std::regex_search(line, match, std::regex("^ZEL_C_API zel_status (zel_[a-z_]+)\\("))) {
        names.insert(match[1]);
      }
    }
  }
  return names;
}

TEST_F(CNullTest, EveryPointerOfEveryFunctionMayBeNull) {
  SweepBase();
  SweepTables();
  SweepLibrary();
  SweepDocuments();
  SweepColumns();
  SweepSearch();
  SweepComponent();
  SweepItem();
  SweepReports();
  SweepChanges();
  EXPECT_GT(swept_.size(), 80U);
  EXPECT_EQ(swept_, Declared());
}

}  // namespace
