// Invalid unit tables: a defined error, and never a crash.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/frame/unit_fixture.h"

namespace zel {
namespace {

using Error = UnitTableError;
using test::Load;
using test::SmallTable;

TEST(BadUnitTable, SmallTableItselfIsGood) {
  EXPECT_EQ(Load(SmallTable{}.Text()), Error::kNone);
  EXPECT_EQ(Load(test::RealTableText()), Error::kNone);
}

TEST(BadUnitTable, CutBehindEveryLine) {
  std::string const text = test::RealTableText();
  for (std::size_t end = text.find('\n'); end + 1 < text.size(); end = text.find('\n', end + 1)) {
    Error const error = Load(std::string_view(text).substr(0, end + 1));
    ASSERT_NE(error, Error::kNone) << end;
    ASSERT_TRUE(error == Error::kEnds || error == Error::kNoInternalSlate) << end;
  }
}

TEST(BadUnitTable, CutAtEvery97thByte) {
  std::string const text = test::RealTableText();
  for (std::size_t end = 0; end + 1 < text.size(); end += 97) {
    EXPECT_NE(Load(std::string_view(text).substr(0, end)), Error::kNone) << end;
  }
}

TEST(BadUnitTable, EveryLineLeftOutOrDoubledIsTakenOrRefused) {
  std::string const text = test::RealTableText();
  std::size_t refused = 0;
  std::size_t lines = 0;
  for (std::size_t begin = 0; begin < text.size();) {
    std::size_t const end = text.find('\n', begin) + 1;
    std::string without = text;
    without.erase(begin, end - begin);
    std::string twice = text;
    twice.insert(begin, text.substr(begin, end - begin));
    if (Load(without) != Error::kNone) ++refused;
    if (Load(twice) != Error::kNone) ++refused;
    begin = end;
    ++lines;
  }
  // Refused are units that lists name, markers, and nearly all doubled lines.
  EXPECT_GT(refused, lines);
}

struct Fault {
  char const* what;
  SmallTable table;
  Error error;
};

std::string List(std::string const& name, std::string const& units) {
  return "'BEGINLIST'\n'" + name + "'\n" + units + "'ENDLIST'\n";
}
std::string Slate(std::string const& name, std::string const& rows) {
  return "'BEGINSLATE'\n'" + name + "'\n" + rows + "'ENDSLATE'\n";
}
std::string Common(std::string const& units) {
  return "'BEGINCOMMONLIST'\n'some'\n" + units + "'ENDCOMMONLIST'\n";
}

TEST(BadUnitTable, EachKindOfFaultHasItsError) {
  std::string const longText(128, 'x');
  std::vector<Fault> const faults = {
      {"no quotes", {"kPa,'KPA','Kilopascal',0,0,1\n", "", "", "", ""}, Error::kText},
      {"quote open", {"'kPa','KPA','Kilopascal,0,0,1\n", "", "", "", ""}, Error::kText},
      {"too long", {"'" + longText + "','KPA','',0,0,1\n", "", "", "", ""}, Error::kText},
      {"flag", {"'kPa','KPA','Kilopascal',2,0,1\n", "", "", "", ""}, Error::kNumber},
      {"constant", {"'kPa','KPA','Kilopascal',0,a,1\n", "", "", "", ""}, Error::kNumber},
      {"five columns", {"'kPa','KPA','Kilopascal',0,0\n", "", "", "", ""}, Error::kNumber},
      {"endless", {"'kPa','KPA','Kilopascal',0,0,inf\n", "", "", "", ""}, Error::kNumber},
      {"too large", {"'kPa','KPA','Kilopascal',0,0,1e999\n", "", "", "", ""}, Error::kNumber},
      {"no number", {"'kPa','KPA','Kilopascal',0,nan,1\n", "", "", "", ""}, Error::kNumber},
      {"zero", {"'kPa','KPA','Kilopascal',0,0,0\n", "", "", "", ""}, Error::kNumber},
      {"seven columns", {"'kPa','KPA','Kilopascal',0,0,1,2\n", "", "", "", ""}, Error::kRow},
      {"section", {"'ENDUOMLIST'\n'ENDLIST'\n", "", "", "", ""}, Error::kOrder},
      {"unknown unit", {"", List("A", "'kPa'\n"), "", "", ""}, Error::kUnknownUnit},
      {"unit twice", {"", List("A", "'kg'\n'kg'\n"), "", "", ""}, Error::kDuplicate},
      {"list twice", {"", List("MASS", "'kg'\n"), "", "", ""}, Error::kDuplicate},
      {"list row", {"", List("A", "'kg','g'\n"), "", "", ""}, Error::kRow},
      {"no name", {"", "'BEGINLIST'\n'ENDLIST'\n", "", "", ""}, Error::kRow},
      {"empty name", {"", List("", "'kg'\n"), "", "", ""}, Error::kRow},
      {"no class", {"'x','X','',0,0,1\n", List("Basis", "'x'\n"), "", "", ""}, Error::kBasis},
      {"no sign", {"", "", "'A'\n", "", ""}, Error::kRow},
      {"no definition", {"", "", "'A='\n", "", ""}, Error::kRow},
      {"class twice", {"", "", "'A=Mass'\n'a=Leng'\n", "", ""}, Error::kDuplicate},
      {"above", {"", "", "'A=/Mass'\n", "", ""}, Error::kDefinition},
      {"below", {"", "", "'A=Mass/'\n", "", ""}, Error::kDefinition},
      {"one", {"", "", "'A=1'\n", "", ""}, Error::kDefinition},
      {"factors", {"", "", "'A=Mass Mass Mass Mass Mass Mass Mass'\n", "", ""}, Error::kDefinition},
      {"exponent", {"", "", "'A=B5'\n'B=Mass2/Leng'\n", "", ""}, Error::kDefinition},
      {"unknown class", {"", "", "'A=Mass/Nothing'\n", "", ""}, Error::kUnknownClass},
      {"built in without its parts", {"", "", "'A=Density'\n", "", ""}, Error::kUnknownClass},
      {"itself", {"", "", "'A=A'\n", "", ""}, Error::kCyclicClasses},
      {"ring", {"", "", "'A=B'\n'B=C/Mass'\n'C=1/A'\n", "", ""}, Error::kCyclicClasses},
      {"slate key", {"", "", "", Slate("S", "'isSystem=2'\n"), ""}, Error::kNumber},
      {"gauge", {"", "", "", Slate("S", "'GaugePresBasis=x'\n"), ""}, Error::kNumber},
      {"slate row", {"", "", "", Slate("S", "'Mass'\n"), ""}, Error::kRow},
      {"slate class", {"", "", "", Slate("S", "'Nothing=kg'\n"), ""}, Error::kUnknownClass},
      {"slate unit", {"", "", "", Slate("S", "'Mass=K'\n"), ""}, Error::kSlateUnit},
      {"class twice", {"", "", "", Slate("S", "'Mass=kg'\n'mass=g'\n"), ""}, Error::kDuplicate},
      {"slate twice", {"", "", "", Slate("QRINTERNAL", ""), ""}, Error::kDuplicate},
      {"parent", {"", "", "", Slate("S", "'Parent=T'\n"), ""}, Error::kUnknownSlate},
      {"copy", {"", "", "", Slate("S", "'CopyFrom=T'\n"), ""}, Error::kUnknownSlate},
      {"own parent", {"", "", "", Slate("S", "'Parent=S'\n"), ""}, Error::kCyclicSlates},
      {"slate ring",
       {"", "", "", Slate("S", "'Parent=T'\n") + Slate("T", "'CopyFrom=s'\n"), ""},
       Error::kCyclicSlates},
      {"common unit", {"", "", "", "", Common("'kPa'\n")}, Error::kUnknownUnit},
      {"order", {"", "", "", Slate("S", "") + Common("'kg'\n"), ""}, Error::kOrder},
  };
  for (Fault const& fault : faults) {
    EXPECT_EQ(Load(fault.table.Text()), fault.error)
        << fault.what << " " << static_cast<int>(fault.error);
  }
}

TEST(BadUnitTable, FileFaults) {
  EXPECT_EQ(Load(""), Error::kEnds);
  EXPECT_EQ(Load("// only a comment"), Error::kEnds);
  EXPECT_EQ(Load("\"BEGINLIST\"\n"), Error::kOrder);
  EXPECT_EQ(Load(std::string(1000000, 'x')), Error::kTooLarge);
  EXPECT_EQ(Load(std::string(1000, '\0')), Error::kOrder);
  EXPECT_EQ(Load(SmallTable{}.Text() + "something\n"), Error::kOrder);
  std::string text = SmallTable{}.Text();
  text.replace(text.find("QRInternal"), 10, "QRExternal");
  EXPECT_EQ(Load(text), Error::kNoInternalSlate);
}

TEST(BadUnitTable, LinesMayEndAsOnOtherSystemsAndCommasMayBeMissing) {
  SmallTable table;
  table.units = "  'x' 'X' 'a comma less' 0 0 1\r\n\r\n// 'y'\n\t'z','Z','',0,0,1,\n";
  table.lists = List("Both", "'x'\n'z'\n");
  EXPECT_EQ(Load(table.Text()), Error::kNone);
}

TEST(BadUnitTable, TooManyRowsAreRefused) {
  SmallTable table;
  for (int i = 0; i < 1000; ++i) {
    table.units += "'u" + std::to_string(i) + "','U','',0,0,1\n";
  }
  EXPECT_EQ(Load(table.Text()), Error::kTooLarge);
  table = {};
  for (int i = 0; i < 200; ++i) table.lists += List("L" + std::to_string(i), "'kg'\n");
  EXPECT_EQ(Load(table.Text()), Error::kTooLarge);
  table = {};
  for (int i = 0; i < 100; ++i) table.slates += Slate("S" + std::to_string(i), "");
  EXPECT_EQ(Load(table.Text()), Error::kTooLarge);
}

TEST(BadUnitTable, LongChainsOfClassesAndSlates) {
  SmallTable table;
  table.classes = "'C0=Mass'\n";
  for (int i = 1; i < 900; ++i) {
    table.classes += "'C" + std::to_string(i) + "=C" + std::to_string(i - 1) + "'\n";
  }
  EXPECT_EQ(Load(table.Text()), Error::kNone) << "each rests on one that is settled";
  // From the first to the last in one chain.
  table.classes.clear();
  for (int i = 0; i < 899; ++i) {
    table.classes += "'C" + std::to_string(i) + "=C" + std::to_string(i + 1) + "'\n";
  }
  table.classes += "'C899=Mass'\n";
  EXPECT_EQ(Load(table.Text()), Error::kTooComplex);

  table = {};
  for (int i = 0; i < 98; ++i) {
    table.slates += Slate("S" + std::to_string(i), "'Parent=S" + std::to_string(i + 1) + "'\n");
  }
  table.slates += Slate("S98", "'Mass=g'\n");
  EXPECT_EQ(Load(table.Text()), Error::kNone);
}

TEST(BadUnitTable, NestedProductsEndAtTheMostFactors) {
  SmallTable table;
  table.classes = "'P0=Mass/Leng'\n";
  for (int i = 1; i < 900; ++i) {
    std::string const before = "P" + std::to_string(i - 1);
    table.classes += "'P" + std::to_string(i) + "=" + before + " " + before + "'\n";
  }
  EXPECT_EQ(Load(table.Text()), Error::kDefinition);
}

TEST(BadUnitTable, TextsThatCanBeReadInManyWaysUseUpABudget) {
  // Units a, a-a, a-a-a ... and a product of six classes of them: there is no practical limit to
  // the ways to read a-a-...-b.
  SmallTable table;
  std::string list;
  std::string unit = "a";
  for (int i = 0; i < 30; ++i) {
    table.units += "'" + unit + "','" + std::to_string(i) + "','',0,0,1\n";
    list += "'" + unit + "'\n";
    unit += "-a";
  }
  for (int i = 1; i <= 6; ++i) table.lists += List(std::string("A") + char('a' + i), list);
  table.classes = "'P=Ab Ac Ad Ae Af Ag'\n";
  std::string word = "a";
  for (int i = 0; i < 60; ++i) word += "-a";
  table.slates = Slate("S", "'P=" + word + "-b'\n");
  EXPECT_EQ(Load(table.Text()), Error::kTooComplex);
  table.slates.clear();
  UnitTable read;
  Error error = ReadUnitTable(table.Text(), read);
  ASSERT_EQ(error, Error::kNone);
  auto const catalogue = UnitCatalogue::Make(std::move(read), error);
  ASSERT_NE(catalogue, nullptr);
  UnitChoice found;
  EXPECT_FALSE(catalogue->FindUnit(catalogue->FindClass("p"), word + "-b", UnitForm::kText, found));
}

TEST(BadUnitTable, BytesAtRandomAreTakenOrRefused) {
  std::string const text = test::RealTableText();
  unsigned state = 12345;
  for (int round = 0; round < 400; ++round) {
    std::string damaged = text;
    for (int i = 0; i < 3; ++i) {
      state = state * 1664525u + 1013904223u;
      damaged[(state >> 8) % damaged.size()] = "\"\n',=/ 0"[(state >> 4) % 8];
    }
    Error const error = Load(damaged);
    EXPECT_GE(static_cast<int>(error), 0);
    EXPECT_LE(static_cast<int>(error), static_cast<int>(Error::kTooComplex));
  }
}

}  // namespace
}  // namespace zel
