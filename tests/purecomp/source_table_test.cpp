// The shared texts of a component's sources, and the size of a component.
#include "purecomp/source_table.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "purecomp/fill_in.h"
#include "purecomp/pure_comp.h"

namespace zel::test {
namespace {

TEST(SourceTable, DataHaveTheTextsThatWereSet) {
  SourceTable table;
  std::array<SourceTable::Index, 4> data{};
  EXPECT_STREQ(table.At(data[0]), "");
  table.Set(data[0], "crc.lb1:CRC");
  table.Set(data[1], "perry.lb1:PERRY");
  table.Set(data[2], "crc.lb1:CRC");
  EXPECT_STREQ(table.At(data[0]), "crc.lb1:CRC");
  EXPECT_STREQ(table.At(data[1]), "perry.lb1:PERRY");
  EXPECT_STREQ(table.At(data[2]), "crc.lb1:CRC");
  EXPECT_EQ(data[0], data[2]) << "one text is kept once";
  EXPECT_STREQ(table.At(data[3]), "");
}

TEST(SourceTable, ATextStaysWhileADatumHasIt) {
  SourceTable table;
  SourceTable::Index one = 0, two = 0, three = 0;
  table.Set(one, "a");
  table.Set(two, "a");
  table.Set(one, "b");
  table.Set(three, "c");
  EXPECT_STREQ(table.At(two), "a");
  table.Set(two, "");
  EXPECT_EQ(two, 0);
  table.Set(two, "d");  // in the place of "a"
  EXPECT_STREQ(table.At(one), "b");
  EXPECT_STREQ(table.At(two), "d");
  EXPECT_STREQ(table.At(three), "c");
}

// A merge of many libraries into one component sets some sources again and again.
TEST(SourceTable, AnyNumberOfTextsCanFollowEachOther) {
  SourceTable table;
  SourceTable::Index first = 0, other = 0;
  table.Set(first, "first");
  for (int i = 0; i < 100000; ++i) table.Set(other, std::to_string(i));
  EXPECT_STREQ(table.At(first), "first");
  EXPECT_STREQ(table.At(other), "99999");
  EXPECT_LT(table.HeapBytes(), 1000U);
}

TEST(SourceTable, AsManyDataAsItServesCanAllDiffer) {
  SourceTable table;
  std::array<SourceTable::Index, SourceTable::kMostData> data{};
  for (std::size_t i = 0; i < data.size(); ++i) table.Set(data[i], "source " + std::to_string(i));
  for (std::size_t i = 0; i < data.size(); ++i) {
    EXPECT_EQ(table.At(data[i]), "source " + std::to_string(i));
  }
}

TEST(SourceTable, LongTextsAreCut) {
  SourceTable table;
  SourceTable::Index datum = 0;
  table.Set(datum, std::string(300, 'x'));
  EXPECT_EQ(table.At(datum), std::string(259, 'x'));
}

TEST(SourceTable, ClearForgetsTheTextsAndKeepsTheMemory) {
  SourceTable table;
  SourceTable::Index datum = 0;
  table.Set(datum, "a text that is longer than a string holds inside");
  std::size_t const bytes = table.HeapBytes();
  table.Clear();
  datum = 0;
  table.Set(datum, "another text, no longer than it");
  EXPECT_STREQ(table.At(datum), "another text, no longer than it");
  EXPECT_EQ(table.HeapBytes(), bytes);
}

// With the sources of a component whose constants are all derived that can be.
TEST(ComponentSize, IsAtMost12Kilobytes) {
  EXPECT_LE(sizeof(PureComp_i), 8U * 1024);
  Component c;
  for (std::size_t i = 0; i < kConstantsOnFile; ++i) {
    c.sources.Set(c.fixedSources[i], "a library of some name.lb1:BANK" + std::to_string(i % 5));
  }
  c.fixed[propertyMW] = 46.07;
  c.fixed[propertyNBP] = 351.4;
  c.fixed[propertySG60F] = 0.79;
  CopyText("C2H6O", c.formula.data(), c.formula.size());
  CompleteComponent(c);
  EXPECT_LE(sizeof(PureComp_i) + c.sources.HeapBytes(), 12U * 1024);
}

}  // namespace
}  // namespace zel::test
