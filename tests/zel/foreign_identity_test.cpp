// import --format: which component of the bank one of the file is, and the IDs of new ones.
#include <set>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

constexpr double kR = 8.31446261815324;

struct Species {
  std::string name;
  std::string atoms;  // columns 11 to 50 of the second card
  int a;              // the heat capacity is a R
};

std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

std::string File(std::vector<Species> const& all) {
  std::string text = "THERMO NASA9\n   200.000  1000.000  6000.000 20000.000\n";
  for (Species const& one : all) {
    text += Padded(one.name, 24) + "\n";
    text += Padded(" 1 own    " + one.atoms, 50) + " 0   18.0000000          0.000\n";
    text += "    200.000   1000.0007 -2.0 -1.0  0.0  1.0  2.0  3.0  4.0  0.0         8000.000\n";
    std::string const zero = " 0.000000000D+00";
    text += zero + zero + " " + std::to_string(one.a) + ".000000000D+00" + zero + zero + "\n";
    text += zero + zero + Padded("", 16) + zero + zero + "\n";
  }
  return text + "END PRODUCTS\n";
}

Species const kAtom = {"O", "O   1.00", 1};
Species const kCation = {"O+", "O   1.00E  -1.00", 2};
Species const kAnion = {"O-", "O   1.00E   1.00", 3};
Species const kOxygen = {"O2", "O   2.00", 4};
Species const kOzone = {"O3", "O   3.00", 5};
Species const kMonoxide = {"CO", "C   1.00O   1.00", 6};
Species const kCobalt = {"Co", "CO  1.00", 7};
Species const kDioxide = {"CO2", "C   1.00O   2.00", 8};

class ForeignIdentityTest : public ZelTest {
 protected:
  json Imported(std::vector<Species> const& all) const {
    MakeFile("s.inp", File(all));
    return Json("import --format nasa own.lb1 s.inp --create");
  }
  // The heat capacity at 298.15 K over R of the component with this name; 0 if there is not one.
  double CpOf(std::string const& name) const {
    json const list = Json("items own.lb1 NASA");
    for (json const& row : list["items"]) {
      if (row["name"] != name) continue;
      std::string const number = std::to_string(row["number"].get<int>());
      json const shown = Json("eval " + number + " IdealGasCp -l own.lb1 --at 298.15K");
      return shown["points"][0]["value"].get<double>() / kR;
    }
    return 0.0;
  }
  void ExpectAll(std::vector<Species> const& all) const {
    for (Species const& one : all) EXPECT_NEAR(CpOf(one.name), one.a, 1e-5) << one.name;
  }
  json Shown(std::string const& id) const { return Json("show own.lb1 NASA '" + id + "'"); }
};

TEST_F(ForeignIdentityTest, SpeciesOfOneFileStayApart) {
  std::vector<Species> const all = {kCation, kAtom,   kAnion,    kOxygen,
                                    kOzone,  kCobalt, kMonoxide, kDioxide};
  json const done = Imported(all);
  EXPECT_EQ(done["new"], 8) << done;
  ExpectAll(all);
  for (char const* id : {"O", "O+", "O-", "O2", "O3", "CO", "CO2"}) {
    EXPECT_EQ(Shown(id)["name"], id);
  }
  json const again = Json("import --format nasa own.lb1 s.inp");
  EXPECT_EQ(again["the_same"], 8) << again;
  EXPECT_EQ(again["refused"], 0);
}

// In whichever order the files come.
TEST_F(ForeignIdentityTest, SpeciesOfTwoFilesStayApart) {
  std::vector<Species> const first = {kCation, kAnion, kCobalt};
  std::vector<Species> const second = {kOxygen, kMonoxide, kAtom, kDioxide};
  EXPECT_EQ(Imported(first)["new"], 3);
  EXPECT_EQ(Imported(second)["new"], 4);
  ExpectAll(first);
  ExpectAll(second);
  std::filesystem::remove(Folder() / "own.lb1");
  std::filesystem::remove(Folder() / "own.lb2");
  EXPECT_EQ(Imported(second)["new"], 4);
  EXPECT_EQ(Imported(first)["new"], 3);
  ExpectAll(first);
  ExpectAll(second);
}

// An ID is never the formula of another substance.
TEST_F(ForeignIdentityTest, AnIdIsNotAnotherFormula) {
  Imported({kCobalt, {"O2+", "O   2.00E  -1.00", 2}, {"CH2*", "C   1.00H   2.00", 3}});
  for (char const* id : {"CO", "O2", "CH2"}) {
    EXPECT_TRUE(Row(Json("items own.lb1 NASA")["items"], "id", id).is_null()) << id;
  }
  EXPECT_EQ(Imported({{"CH2", "C   1.00H   2.00", 4}})["new"], 1);
  EXPECT_NEAR(CpOf("CH2*"), 3.0, 1e-5);
  EXPECT_EQ(Shown("CH2")["name"], "CH2");
}

TEST_F(ForeignIdentityTest, TheSameNameWithAnotherFormulaIsRefused) {
  Imported({{"X1", "O   1.00", 2}});
  MakeFile("s.inp", File({{"X1", "O   2.00", 4}}));
  Outcome const outcome = Zel("import --format nasa own.lb1 s.inp --json");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(json::parse(outcome.out)["components"][0]["what"],
            "X1 has the formula O in the bank, not O2");
  EXPECT_NEAR(CpOf("X1"), 2.0, 1e-5);
}

// An ID and a name in other letters count with the same formula only.
TEST_F(ForeignIdentityTest, ComponentsOfHandbooksAreFoundByIdAndFormula) {
  Species const ethanol = {"ETHANOL", "C   2.00H   6.00O   1.00", 6};
  Species const other = {"ETHANOL", "C   2.00H   4.00", 6};
  MakeFile("s.inp", File({ethanol}));
  EXPECT_EQ(Json("import --format nasa perry.lb1 s.inp --bank PERRY")["changed"], 1);
  MakeFile("names.csv", "ids,name\nETHANOL,Spirit\n");
  Good("import crc.lb1 --table names.csv --bank CRC");
  Good("create two.lb1");
  Good("copy crc.lb1 two.lb1 --bank CRC");
  EXPECT_EQ(Json("import --format nasa crc.lb1 s.inp --bank CRC")["changed"], 1);
  MakeFile("s.inp", File({other}));
  EXPECT_EQ(Json("import --format nasa two.lb1 s.inp --bank CRC")["new"], 1);
}

std::string Compounds(std::vector<std::string> const& names) {
  std::string text = "<compounds>";
  for (std::string const& name : names) {
    text += "<compound><CompoundID value='" + name + "'/></compound>\n";
  }
  return text + "</compounds>";
}

// A word of digits is a number, not an ID.
TEST_F(ForeignIdentityTest, IdsAreNotOfDigitsOnly) {
  MakeFile("in.xml", Compounds({"1234567A", "1234567-A 2", "12345678B", "12345678-C"}));
  json const done = Json("import --format chemsep own.lb1 in.xml --create");
  EXPECT_EQ(done["new"], 4) << done;
  std::set<std::string> ids;
  json const items = Json("items own.lb1 CHEMSEP");
  for (json const& row : items["items"]) {
    std::string const id = row["id"];
    EXPECT_NE(id.find_first_not_of("0123456789"), std::string::npos) << id;
    EXPECT_LE(id.size(), 8U);
    EXPECT_TRUE(ids.insert(id).second) << id;
  }
  EXPECT_EQ(ids.size(), 4U);
}

// Names in words are the same in other letters.
TEST_F(ForeignIdentityTest, NamesInWordsAreComparedWithoutCase) {
  MakeFile("in.xml", Compounds({"Inventol"}));
  Good("import --format chemsep own.lb1 in.xml --create");
  MakeFile("in.xml", Compounds({"INVENTOL"}));
  EXPECT_EQ(Json("import --format chemsep own.lb1 in.xml")["new"], 0);
}

}  // namespace
}  // namespace zel::test
