// import --format sqlite: databases that are made to run something or to become large.
#include "desk/formats/library_tables.h"
#include "desk/words/failure.h"
#include "tests/zel/database_fixture.h"

namespace zel::test {
namespace {

using desk::SqlTable;
using nlohmann::json;

class SqliteLimitsTest : public DatabaseTest {
 protected:
  // A table `evil` with a number in each row, whose second column is declared as `column`.
  static std::string Bytes(std::vector<SqlTable> tables, std::string const& column,
                           std::size_t rows = 1) {
    std::string const name(column.size() < 100 ? 100 : column.size(), 'b');
    std::vector<std::vector<std::string>> const cells(rows, {"7", ""});
    tables.push_back({"evil", {"a", name}, cells});
    std::string bytes = desk::SqliteBytes(tables);
    // In the place of the name with its quotation marks and the type.
    std::string declared = column;
    declared.resize(name.size() + 2 + 5, ' ');
    std::string::size_type const at = bytes.find("\"" + name + "\" TEXT");
    EXPECT_NE(at, std::string::npos);
    return bytes.replace(at, declared.size(), declared);
  }
  std::string WhyNot(std::string const& bytes) const {
    MakeFile("own.db", bytes);
    try {
      desk::TablesInSqlite((Folder() / "own.db").string());
    } catch (desk::Failure const& failure) {
      return failure.what();
    }
    return "it was read";
  }
};

TEST_F(SqliteLimitsTest, GeneratedColumnsAreRefused) {
  std::string const why =
      "own.db: table evil: its column g is generated, and expressions of a file are not run";
  for (char const* column : {"g AS (printf('%.*c', 9000000, 'x'))", "g AS (a || a)",
                             "g TEXT GENERATED ALWAYS AS (a) STORED", "g AS (1) VIRTUAL"}) {
    std::string const found = WhyNot(Bytes({}, column));
    EXPECT_EQ(found.substr(found.find("own.db")), why) << column;
  }
  EXPECT_EQ(WhyNot(Bytes({}, "g TEXT DEFAULT 'x'")), "it was read");
}

// A row that ends early has a value for each column that is declared.
TEST_F(SqliteLimitsTest, SmallFilesOfManyCellsAreRefused) {
  std::string const letters = "0123456789abcdefghijklmnopqrstuvwxyz";
  std::string columns = "c";  // up to a page of the file
  for (std::size_t i = 0; i < 800; ++i) {
    columns += std::string(",c") + letters[i / letters.size()] + letters[i % letters.size()];
  }
  std::string const bytes = Bytes({}, columns, 20'000);
  EXPECT_LT(bytes.size(), 500'000U);
  std::string const found = WhyNot(bytes);
  EXPECT_EQ(found.substr(found.find("own.db")), "own.db: has more than 256 MB of cells");
  std::string const text = "b, g DEFAULT '" + std::string(3000, 'x') + "'";
  EXPECT_NE(WhyNot(Bytes({}, text, 100'000)).find("256 MB"), std::string::npos);
}

// Only what the banks of the library name is read.
TEST_F(SqliteLimitsTest, OtherTablesAreNotRead) {
  Good("create small.lb1 --description small");
  Good("copy perry.lb1 small.lb1 --bank PERRY --item ETHANOL");
  Good("export small.lb1 --sqlite small.db");
  std::vector<SqlTable> const good = desk::TablesInSqlite((Folder() / "small.db").string());
  std::vector<SqlTable> const read = desk::LibraryTablesIn((Folder() / "small.db").string());
  EXPECT_EQ(read.size() + 1, good.size());  // without the citations
  MakeFile("own.db", Bytes(good, "g AS (printf('%.*c', 9000000, 'x'))"));
  Good("import --format sqlite own.lb1 own.db --create");
  EXPECT_TRUE(Json("diff small.lb1 own.lb1")["differences"].empty());
  std::vector<SqlTable> twice = good;
  for (SqlTable& table : twice) {
    if (table.name != "banks") continue;
    table.rows.push_back(table.rows.front());
    table.rows.back()[1] = "OTHER";
  }
  MakeFile("own.db", desk::SqliteBytes(twice));
  Outcome const outcome = Zel("import --format sqlite two.lb1 own.db --create");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("two banks have the table PURECOMP_PERRY"), std::string::npos)
      << outcome.err;
}

}  // namespace
}  // namespace zel::test
