// Whole libraries as databases: export --sqlite and import --format sqlite.
#include <random>

#include "desk/formats/sqlite_tables.h"
#include "desk/words/failure.h"
#include "tests/zel/database_fixture.h"

namespace zel::test {
namespace {

using desk::SqlTable;
using nlohmann::json;

class SqliteTest : public DatabaseTest {
 protected:
  std::vector<SqlTable> Tables(std::string const& name) const {
    return desk::TablesInSqlite((Folder() / name).string());
  }
  void Refuses(std::vector<SqlTable> const& tables, std::string const& why) const {
    MakeFile("own.db", desk::SqliteBytes(tables));
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Zel("import --format sqlite own.lb1 own.db --create");
    EXPECT_EQ(outcome.status, 1) << why << outcome.out;
    EXPECT_NE((outcome.err + outcome.out).find(why), std::string::npos)
        << outcome.err << outcome.out;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << why;
  }
  static SqlTable& Named(std::vector<SqlTable>& tables, std::string const& name) {
    for (SqlTable& table : tables) {
      if (table.name == name) return table;
    }
    ADD_FAILURE() << "no table " << name;
    return tables.front();
  }
};

// All published data.
TEST_F(SqliteTest, ALibraryComesBackTheSame) {
  for (char const* name : {"sample", "perry", "chemsep", "vdi", "poling", "crc", "nist"}) {
    std::string const library = std::string(name) + ".lb1";
    if (!std::filesystem::exists(Folder() / library)) {
      Good("import " + library + " " ZEL_DATA "/" + name + ".xml --create");
    }
    std::string const base = name;
    Good("export " + library + " --sqlite " + base + ".db");
    json const done = Json("import --format sqlite " + base + "2.lb1 " + base + ".db --create");
    EXPECT_EQ(done["refused"], 0) << name;
    json const difference = Json("diff " + library + " " + base + "2.lb1");
    EXPECT_TRUE(difference["differences"].empty()) << name << difference["differences"].dump();
    EXPECT_GT(done["read"].get<int>(), 700) << name;
    for (char const* fact : {"description", "version"}) {
      EXPECT_EQ(Json("info " + library)[fact], Json("info " + base + "2.lb1")[fact]) << fact;
    }
    EXPECT_EQ(Good("memo " + library), Good("memo " + base + "2.lb1"));
  }
}

TEST_F(SqliteTest, ADifferenceIsOne) {
  Good("export perry.lb1 --sqlite perry.db");
  Good("import --format sqlite own.lb1 perry.db --create");
  Good("edit own.lb1 ETHANOL TC=514.5K");
  EXPECT_EQ(Json("diff perry.lb1 own.lb1")["differences"].size(), 1U);
  json const again = Json("import --format sqlite own.lb1 perry.db");
  EXPECT_EQ(again["changed"], 1);
  EXPECT_TRUE(Json("diff perry.lb1 own.lb1")["differences"].empty());
}

// For those who look with SQL.
TEST_F(SqliteTest, TablesHaveNumbersUnitsAndSources) {
  json const done = Json("export perry.lb1 --sqlite perry.db");
  EXPECT_EQ(done["tables"], 6);
  std::vector<SqlTable> tables = Tables("perry.db");
  std::vector<std::string> names;
  for (SqlTable const& table : tables) names.push_back(table.name);
  EXPECT_EQ(names, (std::vector<std::string>{"library", "banks", "columns", "citations",
                                             "PURECOMP_PERRY", "PURECOMP_PERRY_correlations"}));
  SqlTable const& columns = Named(tables, "columns");
  std::vector<std::string> const tc = {"PURECOMP_PERRY", "TC", "K", "critical temperature"};
  EXPECT_EQ(std::count(columns.rows.begin(), columns.rows.end(), tc), 1);
  SqlTable const& items = Named(tables, "PURECOMP_PERRY");
  EXPECT_EQ(std::count(items.columns.begin(), items.columns.end(), "TC code"), 1);
  EXPECT_EQ(items.rows.size(), 340U);
  SqlTable const& records = Named(tables, "PURECOMP_PERRY_correlations");
  EXPECT_EQ(std::count(records.columns.begin(), records.columns.end(), "C1"), 1);
  SqlTable const& citations = Named(tables, "citations");
  EXPECT_GT(citations.rows.size(), 5U);
  Good("export sample.lb1 --sqlite sample.db");
  EXPECT_EQ(Tables("sample.db").size(), 18U);
}

TEST_F(SqliteTest, CellsKeepTheirTexts) {
  std::vector<SqlTable> const tables = {
      {"a \"b\"", {"x", "Y y"}, {{"1", "01"}, {"", "-0"}, {"-5", "5"}}},
      {"real", {"v", "t"}, {{"0.1", "1e5"}, {"1e+20", "x"}, {"-1.2345678901234567", "'"}}},
      {"empty", {"only"}, {}},
  };
  MakeFile("t.db", desk::SqliteBytes(tables));
  std::vector<SqlTable> const read = Tables("t.db");
  ASSERT_EQ(read.size(), tables.size());
  for (std::size_t i = 0; i < tables.size(); ++i) {
    EXPECT_EQ(read[i].name, tables[i].name);
    EXPECT_EQ(read[i].columns, tables[i].columns);
    EXPECT_EQ(read[i].rows, tables[i].rows) << tables[i].name;
  }
}

TEST_F(SqliteTest, TablesThatAreNotALibraryAreRefused) {
  Good("create small.lb1 --description small");
  Good("copy perry.lb1 small.lb1 --bank PERRY --item ETHANOL");
  Good("export small.lb1 --sqlite small.db");
  std::vector<SqlTable> const good = Tables("small.db");
  Refuses({{"other", {"x"}, {{"1"}}}}, "own.db: there is no table banks");
  auto const with = [&](std::string const& table, auto const& change) {
    std::vector<SqlTable> tables = good;
    change(Named(tables, table));
    return tables;
  };
  Refuses(with("library", [](SqlTable& t) { t.rows.clear(); }),
          "the table library does not have one row");
  Refuses(with("library", [](SqlTable& t) { t.rows[0][0] = std::string(101, 'x'); }),
          "is too long");
  Refuses(with("library", [](SqlTable& t) { t.rows[0][2] = std::string(5000, 'x'); }), "own.db: ");
  Refuses(with("banks", [](SqlTable& t) { t.columns[0] = "kind"; }),
          "the table banks has no column type");
  Refuses(with("banks", [](SqlTable& t) { t.rows[0][0] = "NOTYPE"; }), "NOTYPE");
  Refuses(with("banks", [](SqlTable& t) { t.rows[0][1] = "MUCHTOOLONG"; }), "cannot be made");
  Refuses(with("banks", [](SqlTable& t) { t.rows[0][2] = "x"; }), "the format of bank");
  Refuses(with("banks", [](SqlTable& t) { t.rows[0][2] = "77"; }), "cannot be made");
  Refuses(with("banks", [](SqlTable& t) { t.rows[0][4] = "nowhere"; }),
          "there is no table nowhere");
  Refuses(with("PURECOMP_PERRY", [](SqlTable& t) { t.columns[2] = "nothing"; }),
          "table PURECOMP_PERRY: ");
  Refuses(with("PURECOMP_PERRY",
               [](SqlTable& t) {
                 auto const at = std::find(t.columns.begin(), t.columns.end(), "TC");
                 t.rows[0][static_cast<std::size_t>(at - t.columns.begin())] = "hot";
               }),
          "1 of ");
  Refuses(with("PURECOMP_PERRY_correlations", [](SqlTable& t) { t.rows[0][2] = "4711"; }),
          "equation 4711 is not known");
}

TEST_F(SqliteTest, FilesThatAreNotDatabasesAreRefused) {
  Good("export sample.lb1 --sqlite sample.db");
  std::string const whole = FileText(Folder() / "sample.db");
  auto const refuses = [&](std::string const& bytes) {
    MakeFile("own.db", bytes);
    Outcome const outcome = Zel("import --format sqlite own.lb1 own.db --create");
    EXPECT_EQ(outcome.status, 1) << outcome.out;
    EXPECT_NE(outcome.err.find("own.db: "), std::string::npos) << outcome.err;
    EXPECT_FALSE(std::filesystem::exists(Folder() / "own.lb1"));
  };
  refuses("");
  refuses("not a database");
  refuses(whole.substr(0, 50));
  refuses(whole.substr(0, 4096));
  refuses(whole.substr(0, whole.size() / 2));
  MakeFile("sample.db-wal", "changes");
  Outcome const logged = Zel("import --format sqlite own.lb1 sample.db --create");
  EXPECT_EQ(logged.status, 1);
  EXPECT_NE(logged.err.find("sample.db: is in use, or was not closed"), std::string::npos)
      << logged.err;
}

// Damaged files are read or refused, and nothing else happens.
TEST_F(SqliteTest, DamageIsReadOrRefused) {
  Good("create small.lb1");
  Good("copy perry.lb1 small.lb1 --bank PERRY --item ETHANOL");
  Good("export small.lb1 --sqlite small.db");
  std::string const whole = FileText(Folder() / "small.db");
  std::mt19937 random(4711);
  int refused = 0;
  for (int i = 0; i < 1500; ++i) {
    std::string bytes = whole;
    for (int k = 0; k < 1 + i % 5; ++k) {
      // Half of the changes are in the header and in the schema.
      std::size_t const room = i % 2 == 0 ? 4096 : bytes.size();
      bytes[random() % room] = static_cast<char>(random());
    }
    MakeFile("own.db", bytes);
    try {
      Tables("own.db");
    } catch (desk::Failure const&) {
      ++refused;
    }
  }
  EXPECT_GT(refused, 20);
}

TEST_F(SqliteTest, TheOptionsStandAlone) {
  struct {
    char const* words;
    int status;
    char const* why;
  } const rows[] = {
      {"export sample.lb1 --sqlite x.db -o y.xml", 2, "--sqlite writes the whole library"},
      {"export sample.lb1 --sqlite x.db --bank NRTL", 2, "--sqlite writes the whole library"},
      {"export sample.lb1 --sqlite x.db --table y.csv", 2, "--sqlite writes the whole library"},
      {"export sample.lb1 --sqlite -", 2, "not written to standard output"},
      {"export sample.lb1 --sqlite x.lb1", 1, "x.lb1"},
      {"export sample.lb1 --sqlite /proc/x.db", 1, "/proc/x.db"},
      {"export none.lb1 --sqlite x.db", 1, "none.lb1: not found"},
      {"import own.lb1 x.db --create --format sqlite --bank NRTL", 2, "--bank is not for"},
      {"import own.lb1 x.db --create --format sqlite --code 5", 2, "--code is not for"},
      {"import own.lb1 x.db --create --format sqlite --range low", 2, "--range is for"},
      {"import own.lb1 none.db --create --format sqlite", 1, "none.db: not found"},
      {"import own.lb1 --create --format sqlite", 2, "--format needs one FILE"},
  };
  for (auto const& row : rows) {
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Zel(row.words);
    EXPECT_EQ(outcome.status, row.status) << row.words << outcome.err;
    EXPECT_NE(outcome.err.find(row.why), std::string::npos) << row.words << outcome.err;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << row.words;
  }
}

TEST_F(SqliteTest, ADryRunChangesNothing) {
  Good("export crc.lb1 --sqlite crc.db");
  Contents const before = ContentsOf(Folder());
  json const done = Json("import --format sqlite own.lb1 crc.db --create --dry-run");
  EXPECT_EQ(done["dry_run"], "nothing was changed");
  EXPECT_TRUE(ContentsOf(Folder()) == before);
}

}  // namespace
}  // namespace zel::test
