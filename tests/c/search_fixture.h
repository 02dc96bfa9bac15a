// A search over crc.lb1, perry.lb1 and sample.lb1.
#pragma once

#include "c_fixture.h"

class CSearchTest : public CFaceTest {
 protected:
  void SetUp() override {
    ASSERT_EQ(zel_search_open(libraries_.data(), libraries_.size(), nullptr, &search_), ZEL_OK)
        << ctest::Reason();
  }
  void TearDown() override { EXPECT_EQ(zel_search_close(&search_), ZEL_OK); }
  zel_component* Read(char const* word) {
    zel_component* component = nullptr;
    EXPECT_EQ(zel_search_component(search_, word, &component), ZEL_OK) << ctest::Reason();
    return component;
  }

  ctest::Words libraries_{Paths({"crc.lb1", "perry.lb1", "sample.lb1"})};
  zel_search* search_ = nullptr;
};
