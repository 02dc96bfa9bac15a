// Documents read and written, and the checks of a library.
#include <zelaccess/DataCheck.h>
#include <zelaccess/DeskBanks.h>
#include <zelaccess/Interchange.h>

#include <fstream>

#include "library_fixture.h"

using ctest::Held;
using ctest::Reason;

namespace desk = zel::desk;

namespace {

class CDocumentTest : public CLibraryTest {};

TEST_F(CDocumentTest, ALibraryGoesThroughDocuments) {
  ASSERT_EQ(zel_library_create(Path("own.lb1").c_str(), 11, nullptr, &library_), ZEL_OK);
  zel_import_counts counts = {};
  Held log;
  ASSERT_EQ(
      zel_library_import(library_, ZEL_DATA "/sample.xml", 0, ZEL_IMPORT_CHECKED, &counts, &log),
      ZEL_OK)
      << Reason();
  std::size_t rows = 99;
  ASSERT_EQ(zel_table_size(log, &rows, nullptr), ZEL_OK);
  EXPECT_EQ(rows, 0U);
  std::int64_t items = 0;
  auto const banks = desk::LibraryFile(Path("sample.lb1")).Banks();
  for (desk::BankInfo const& bank : banks) items += bank.items;
  EXPECT_EQ(counts.banks, static_cast<std::int64_t>(banks.size()));
  EXPECT_EQ(counts.items, items);
  EXPECT_EQ(counts.components, 0);

  fs::create_directories(Path("own_documents"));
  std::string const target = Path("own_documents/whole.xml");
  ASSERT_EQ(zel_library_export(library_, target.c_str()), ZEL_OK) << Reason();
  std::string const nrtl = Path("own_documents/nrtl.xml");
  ASSERT_EQ(zel_library_export_bank(library_, "NRTL", "SAMPLE", nrtl.c_str()), ZEL_OK) << Reason();
  zel_document_facts facts = {9, 9, 9, 9};
  ASSERT_EQ(zel_document_describe(nrtl.c_str(), &facts), ZEL_OK) << Reason();
  zel::ZelDocumentContents contents;
  ASSERT_TRUE(zel::ReadDocumentContents(nrtl.c_str(), contents));
  EXPECT_EQ(facts.banks, 1);
  EXPECT_EQ(facts.items, 218);
  EXPECT_EQ(facts.items, contents.items);
  EXPECT_EQ(facts.components, 0);
  EXPECT_EQ(facts.imports, 0);
  ASSERT_EQ(zel_document_describe(target.c_str(), &facts), ZEL_OK);
  EXPECT_EQ(facts.imports, static_cast<std::int64_t>(banks.size()));
  ASSERT_EQ(zel_library_close(&library_), ZEL_OK);

  ASSERT_EQ(zel_library_create(Path("own2.lb1").c_str(), 11, nullptr, &library_), ZEL_OK);
  zel_import_counts again = {};
  ASSERT_EQ(zel_library_import(library_, target.c_str(), 0, ZEL_IMPORT_STRICT, &again, nullptr),
            ZEL_OK)
      << Reason();
  EXPECT_EQ(again.items, items);
}

TEST_F(CDocumentTest, WhatAnImportFindsIsInItsLog) {
  ASSERT_EQ(zel_library_create(Path("own.lb1").c_str(), 11, nullptr, &library_), ZEL_OK);
  std::string const path = Path("own.xml");
  std::ofstream(path)
      << "<bank type=\"NRTL\" name=\"A\"><item><key>1 2</key><aij>61x37</aij></item>\n"
         "<item><key>1 3</key><aij>0.5</aij></item></bank>\n";
  zel_import_counts counts = {9, 9, 9};
  Held log;
  zel_status const status =
      zel_library_import(library_, path.c_str(), 0, ZEL_IMPORT_CHECKED, &counts, &log);
  EXPECT_EQ(status, ZEL_FAILED);
  std::string const first = Reason();
  EXPECT_EQ(first.substr(0, 9), "own.xml: ") << first;
  std::size_t rows = 0;
  ASSERT_EQ(zel_table_size(log, &rows, nullptr), ZEL_OK);
  ASSERT_GT(rows, 0U);
  EXPECT_EQ(ctest::CellOf(log, 0, 0), desk::Cell("error"));
  EXPECT_EQ(ctest::CellOf(log, 0, 1), desk::Cell("own.xml"));
  EXPECT_EQ("own.xml: " + std::get<std::string>(ctest::CellOf(log, 0, 3)), first);
  Held none;
  EXPECT_EQ(zel_library_import(library_, "none.xml", 0, 2, nullptr, &none), ZEL_FAILED);
  EXPECT_NE(Reason().find("none.xml"), std::string::npos) << Reason();
  for (std::int32_t const checks : {-1, 4}) {
    EXPECT_EQ(zel_library_import(library_, path.c_str(), 0, checks, nullptr, nullptr),
              ZEL_BAD_ARGUMENT);
  }
}

TEST_F(CDocumentTest, AnItemIsReplacedOnlyIfAskedFor) {
  ASSERT_EQ(zel_library_create(Path("own.lb1").c_str(), 11, nullptr, &library_), ZEL_OK);
  char const* const document = ZEL_DATA "/sample-nrtl.xml";
  ASSERT_EQ(zel_library_import(library_, document, 0, 2, nullptr, nullptr), ZEL_OK) << Reason();
  EXPECT_EQ(zel_library_import(library_, document, 0, 2, nullptr, nullptr), ZEL_FAILED);
  EXPECT_NE(Reason(), "");
}

TEST_F(CDocumentTest, ADocumentThatCannotBeWrittenOrReadIsReported) {
  ASSERT_EQ(zel_library_open(Path("sample.lb1").c_str(), nullptr, &library_), ZEL_OK);
  std::string const nowhere = Path("own_none/x.xml");
  EXPECT_EQ(zel_library_export(library_, nowhere.c_str()), ZEL_FAILED);
  EXPECT_NE(Reason(), "");
  EXPECT_EQ(zel_library_export_bank(library_, "NRTL", "SAMPLE", nowhere.c_str()), ZEL_FAILED);
  EXPECT_EQ(zel_library_export_bank(library_, "NRTL", "OTHER", nowhere.c_str()), ZEL_MISSING_BANK);
  zel_document_facts facts = {9, 9, 9, 9};
  EXPECT_EQ(zel_document_describe(nowhere.c_str(), &facts), ZEL_FAILED);
  EXPECT_EQ(facts.items, 0);
  std::ofstream(Path("own.xml")) << "<bank>\n<item>\n</bank>";
  EXPECT_EQ(zel_document_describe(Path("own.xml").c_str(), &facts), ZEL_FAILED);
  EXPECT_NE(Reason().find("own.xml: line 3: "), std::string::npos) << Reason();
}

TEST_F(CDocumentTest, ALibraryIsNotOverwrittenByADocument) {
  CopyFrom("perry");
  auto const size = fs::file_size(Path("own.lb2"));
  ASSERT_EQ(zel_library_open(Path("sample.lb1").c_str(), nullptr, &library_), ZEL_OK);
  for (char const* const name : {"own.lb1", "own.lb2"}) {
    EXPECT_EQ(zel_library_export(library_, Path(name).c_str()), ZEL_FAILED);
    EXPECT_NE(Reason().find("is a library, and is not overwritten"), std::string::npos) << Reason();
    EXPECT_EQ(zel_library_export_bank(library_, "NRTL", "SAMPLE", Path(name).c_str()), ZEL_FAILED);
  }
  EXPECT_EQ(fs::file_size(Path("own.lb2")), size);
}

TEST_F(CDocumentTest, AnExportDoesNotReportTheErrorOfAnImport) {
  ASSERT_EQ(zel_library_create(Path("own.lb1").c_str(), 11, nullptr, &library_), ZEL_OK);
  std::ofstream(Path("own.xml")) << "<bank>\n<item>\n</bank>";
  ASSERT_EQ(zel_library_import(library_, Path("own.xml").c_str(), 0, 2, nullptr, nullptr),
            ZEL_FAILED);
  std::string const import = Reason();
  ASSERT_EQ(zel_library_export(library_, Path("own_none/x.xml").c_str()), ZEL_FAILED);
  EXPECT_NE(Reason().find("own_none/x.xml: "), std::string::npos) << Reason();
  EXPECT_EQ(Reason().find("line"), std::string::npos) << Reason() << " after " << import;
}

// What a check has reported.
struct Findings {
  std::vector<std::string> texts;
  std::size_t most = SIZE_MAX;
  zel_finding last = {};
};

std::int32_t Collect(zel_finding const* finding, void* user) {
  auto& findings = *static_cast<Findings*>(user);
  findings.texts.push_back(std::string(finding->id) + "|" + finding->place + "|" + finding->datum +
                           "|" + finding->unit + "|" + finding->text);
  findings.last = *finding;
  return findings.texts.size() < findings.most ? 0 : 1;
}

struct CppSink final : zel::ZelDataFindingSink {
  void Found(zel::zelFindings, char const* id, char const* place, char const* text) override {
    texts.push_back(std::string(id) + "|" + place + "|||" + text);
  }
  void FoundData(zel::ZelDataFinding const& found) override {
    texts.push_back(std::string(found.id) + "|" + found.place + "|" + found.datum + "|" +
                    found.unit + "|" + found.text);
  }
  std::vector<std::string> texts;
};

TEST_F(CDocumentTest, FindingsAreThoseOfTheLibrary) {
  CopyFrom("perry");
  desk::LibraryFile const file(Path("own.lb1"));
  OpenOwn(ZEL_READ);
  CppSink structure;
  CppSink data;
  bool const isSound = zel::VerifyLibrary(&file.File(), structure);
  bool const isPlausible = zel::CheckLibraryData({&file.File(), nullptr}, {}, data);
  Findings found;
  std::int32_t sound = 9;
  ASSERT_EQ(zel_library_check(library_, ZEL_CHECK_STRUCTURE, &Collect, &found, &sound), ZEL_OK);
  EXPECT_EQ(found.texts, structure.texts);
  EXPECT_EQ(sound, isSound ? 1 : 0);
  found = {};
  ASSERT_EQ(zel_library_check(library_, ZEL_CHECK_DATA, &Collect, &found, &sound), ZEL_OK);
  EXPECT_EQ(found.texts, data.texts);
  EXPECT_GT(found.texts.size(), 1U);
  EXPECT_EQ(sound, isPlausible ? 1 : 0);
  sound = 9;
  ASSERT_EQ(zel_library_check(library_, ZEL_CHECK_DATA, nullptr, nullptr, &sound), ZEL_OK);
  EXPECT_EQ(sound, isPlausible ? 1 : 0);
  EXPECT_EQ(zel_library_check(library_, 2, nullptr, nullptr, nullptr), ZEL_BAD_ARGUMENT);
}

TEST_F(CDocumentTest, AHostCanStopACheck) {
  ASSERT_EQ(zel_library_open(Path("perry.lb1").c_str(), nullptr, &library_), ZEL_OK);
  for (std::int32_t const part : {ZEL_CHECK_STRUCTURE, ZEL_CHECK_DATA}) {
    Findings found;
    found.most = 1;
    std::int32_t sound = 9;
    EXPECT_EQ(zel_library_check(library_, part, &Collect, &found, &sound), ZEL_STOPPED) << part;
    EXPECT_EQ(found.texts.size(), 1U);
    EXPECT_EQ(sound, 9) << "not known";
    EXPECT_EQ(Reason(), "the check was stopped");
  }
  std::int32_t sound = 0;
  EXPECT_EQ(zel_library_check(library_, ZEL_CHECK_STRUCTURE, nullptr, nullptr, &sound), ZEL_OK);
  EXPECT_EQ(sound, 1);
}

TEST_F(CDocumentTest, DamageIsAFindingAndAStatus) {
  CopyFrom("perry");
  fs::resize_file(Path("own.lb2"), fs::file_size(Path("own.lb2")) / 2);
  OpenOwn(ZEL_READ);
  Findings found;
  std::int32_t sound = 9;
  ASSERT_EQ(zel_library_check(library_, ZEL_CHECK_STRUCTURE, &Collect, &found, &sound), ZEL_OK);
  EXPECT_EQ(sound, 0);
  EXPECT_FALSE(found.texts.empty());
  zel_columns* columns = nullptr;
  ASSERT_EQ(zel_columns_open(library_, "PURECOMP", "PERRY", &columns), ZEL_OK) << Reason();
  double tc[8];
  std::size_t read = 0;
  ASSERT_EQ(zel_columns_add_reals(columns, "TC", tc, 8), ZEL_OK);
  zel_status status = ZEL_OK;
  do {
    status = zel_columns_read(columns, 8, &read);
  } while (status == ZEL_OK && read != 0);
  EXPECT_EQ(status, ZEL_DAMAGED);
  EXPECT_NE(Reason().find("own.lb"), std::string::npos) << Reason();
  EXPECT_EQ(zel_columns_close(&columns), ZEL_OK);
  std::string const path = Path("own.lb1");
  char const* const libraries[] = {path.c_str()};
  zel_search* search = nullptr;
  zel_component* component = nullptr;
  Held table;
  ASSERT_EQ(zel_search_open(libraries, 1, nullptr, &search), ZEL_OK) << Reason();
  EXPECT_EQ(zel_search_components(search, &table), ZEL_DAMAGED) << Reason();
  EXPECT_EQ(zel_search_component(search, "WATER", &component), ZEL_DAMAGED) << Reason();
  EXPECT_EQ(zel_search_close(&search), ZEL_OK);
}

}  // namespace
