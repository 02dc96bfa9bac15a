// Databases of SQLite, which a build can do without.
#pragma once

#include "desk/formats/sqlite_tables.h"
#include "desk/words/failure.h"
#include "tests/zel/zel_fixture.h"

namespace zel::test {

// Its tests are skipped in a build without SQLite.
class DatabaseTest : public ZelTest {
 protected:
  void SetUp() override {
    try {
      desk::SqliteBytes({});
    } catch (desk::Failure const& failure) {
      GTEST_SKIP() << failure.what();
    }
  }
};

}  // namespace zel::test
