// Tables that are imported into own.lb1, an empty library at first.
#pragma once

#include <string>

#include "tests/zel/zel_fixture.h"

namespace zel::test {

class TablesTest : public ZelTest {
 protected:
  TablesTest() { Good("create own.lb1"); }
  // The file is imported into a bank of own.lb1.
  Outcome Import(std::string const& bank, std::string const& table,
                 std::string const& options = "") const {
    MakeFile("t.csv", table);
    return Zel("import own.lb1 --table t.csv --bank " + bank + " --json " + options);
  }
  nlohmann::json Imported(std::string const& bank, std::string const& table,
                          std::string const& options = "") const {
    Outcome const outcome = Import(bank, table, options);
    EXPECT_EQ(outcome.status, 0) << outcome.err << outcome.out;
    return nlohmann::json::parse(outcome.out, nullptr, false);
  }
};

}  // namespace zel::test
