// Components named by their names, and suggestions for words that zel does not know.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class NamesTest : public ZelTest {
 protected:
  // A bank of components with these numbers, IDs and names.
  void Make(std::string const& library, std::string const& rows) const {
    MakeFile("c.xml", "<bank type=\"PURECOMP\" name=\"B\">" + rows + "</bank>");
    Good("create " + library + " --force");
    Good("import " + library + " c.xml");
  }
  static std::string Row(int number, std::string const& id, std::string const& name) {
    return "<comp><id number=\"" + std::to_string(number) + "\" name=\"" + name + "\"> " + id +
           " </id></comp>";
  }
  void Fails(std::string const& words, int status, std::string const& text) const {
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, status) << words;
    EXPECT_NE(outcome.err.find(text), std::string::npos) << words << "\n" << outcome.err;
  }
};

TEST_F(NamesTest, NameIsTakenWhereverAnIdIs) {
  struct {
    char const* byId;
    char const* byName;
  } const rows[] = {
      {"search NBUTOH -l perry.lb1 -l crc.lb1", "search 1-butanol -l perry.lb1 -l crc.lb1"},
      {"why NBUTOH NBP -l perry.lb1 -l crc.lb1", "why 1-Butanol NBP -l perry.lb1 -l crc.lb1"},
      {"eval NBUTOH VaporP -l perry.lb1", "eval 1-BUTANOL VaporP -l perry.lb1"},
      {"coverage NBUTOH CYCLOHEX -l perry.lb1 -l sample.lb1",
       "coverage 1-butanol cyclohexane -l perry.lb1 -l sample.lb1"},
      {"show perry.lb1 PERRY CYCLOHEX", "show perry.lb1 PERRY Cyclohexane"},
      {"show sample.lb1 NRTL ETHANOL CYCLOHEX --names perry.lb1",
       "show sample.lb1 NRTL ETHANOL cyclohexane --names perry.lb1"},
      {"copy perry.lb1 a.lb1 --create --bank PERRY --item CYCLOHEX",
       "copy perry.lb1 b.lb1 --create --bank PERRY --item cyclohexane"},
      {"delete a.lb1 PERRY CYCLOHEX", "delete b.lb1 PERRY cyclohexane"},
      {"plot VaporP NBUTOH -l perry.lb1 -o x.svg", "plot VaporP 1-butanol -l perry.lb1 -o x.svg"},
      {"export perry.lb1 --component CYCLOHEX -o x.xml",
       "export perry.lb1 --component cyclohexane -o x.xml"},
  };
  for (auto const& row : rows) EXPECT_EQ(Good(row.byName), Good(row.byId)) << row.byName;
  EXPECT_NE(FileText(Folder() / "x.xml").find("110-82-7"), std::string::npos);
}

TEST_F(NamesTest, ExactNameBeforeABeginning) {
  EXPECT_EQ(Json("search ethane -l crc.lb1")["component"], "Ethane");
  EXPECT_EQ(Json("search acetonit -l crc.lb1")["component"], "Acetonitrile");
  Fails("search cyclohexan -l crc.lb1", 1,
        "\"cyclohexan\" begins the names of 3 components: CYCLOHOL (Cyclohexanol), CYCLOHON "
        "(Cyclohexanone), CYCLOHEX (Cyclohexane)");
}

TEST_F(NamesTest, WordThatIsAnIdAndANameIsTheId) {
  Make("own.lb1", Row(7, "BRINE", "Salt") + Row(8, "SALT", "Sodium chloride"));
  EXPECT_EQ(Json("search salt -l own.lb1")["number"], 8);
  EXPECT_EQ(Json("search sod -l own.lb1")["number"], 8);
}

TEST_F(NamesTest, NameOfSeveralComponentsIsRefused) {
  Make("own.lb1", Row(7, "ONE", "Twin") + Row(8, "TWO", "Twin"));
  Fails("search twin -l own.lb1", 1,
        "\"twin\" is the name of 2 components: ONE (Twin), TWO (Twin)");
  Fails("delete own.lb1 B twin", 1, "\"twin\" is the name of 2 components");
  EXPECT_EQ(Json("find own.lb1")["found"], 2);
}

// The first source decides which component is meant; the others are searched for its ID.
TEST_F(NamesTest, FirstSourceThatHasTheNameDecides) {
  Make("own.lb1", Row(10000007, "ETHANOL", "Spirit"));
  json const found = Json("search spirit -l own.lb1 -l perry.lb1");
  EXPECT_EQ(found["sources"][1]["found"], true) << found;
  EXPECT_EQ(Json("search spir -l perry.lb1 -l own.lb1")["component"], "Ethanol");
}

TEST_F(NamesTest, SuggestionsForData) {
  Fails("why ETHANOL NPB -l crc.lb1", 1,
        "\"NPB\" is neither a constant nor a correlation; did you mean NBP? `zel types PURECOMP` "
        "lists them");
  Fails("why ETHANOL XYZZY -l crc.lb1", 1, "correlation; `zel types PURECOMP` lists them");
  Fails("eval ETHANOL VapourPressure -l crc.lb1", 1, "did you mean VaporPressure?");
  Fails("plot LiqidCp ETHANOL -l crc.lb1 -o x.svg", 1, "did you mean LiquidCp?");
  Fails("items crc.lb1 CRC --fields NPB", 1, "did you mean NBP?");
  Fails("items sample.lb1 NRTL --fields alphaj", 1, "did you mean alphaij?");
  Fails("types NRLT", 1, "did you mean NRTL?");
}

TEST_F(NamesTest, SuggestionsForCommandsAndOptions) {
  Fails("serach ETHANOL", 2, "'serach' is not a zel command; did you mean search? see zel --help");
  Fails("xyzzy", 2, "'xyzzy' is not a zel command; see zel --help");
  Fails("find crc.lb1 --fromula C4H10", 2, "did you mean --formula? see zel find --help");
  Fails("find crc.lb1 --fromula=C4H10", 2, "did you mean --formula? see zel find --help");
  Fails("find crc.lb1 --nams=x", 2, "did you mean --name? see zel find --help");
  EXPECT_EQ(Zel("find crc.lb1 --xyzzy").err.find("did you mean"), std::string::npos);
}

}  // namespace
}  // namespace zel::test
