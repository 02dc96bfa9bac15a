// Libraries that mean different substances by one number, ID or CAS number are not merged without a
// message.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class IdentityTest : public ZelTest {
 protected:
  IdentityTest() {
    // A library that numbers its components itself.
    Make("number.lb1", "10000112", "Water", "H2O", "7732-18-5", "AQUA");
    Make("id.lb1", "555", "Water", "H2O", "7732-18-5", "NBUTANE");
    Make("cas.lb1", "556", "Heavy water", "D2O", "106-97-8", "HEAVY");
    Make("isomer.lb1", "10000112", "Isobutane", "C4H10", "75-28-5", "ISOBUT");
    Make("same.lb1", "10000112", "n-Butane", "CH3CH2CH2CH3", "106-97-8", "NBUTANE");
    Make("silent.lb1", "10000112", "n-Butane", "", "", "NBUTANE");
  }
  void Make(std::string const& library, std::string const& number, std::string const& name,
            std::string const& formula, std::string const& cas, std::string const& id) const {
    MakeFile("own.xml", "<bank type=\"PURECOMP\" name=\"OWN\"><comp><id number=\"" + number +
                            "\" name=\"" + name + "\"" +
                            (formula.empty() ? "" : " formula=\"" + formula + "\"") +
                            (cas.empty() ? "" : " casNum=\"" + cas + "\"") + "> " + id +
                            " </id><property name=\"MW\" value=\"18\" /></comp></bank>");
    Good("import " + library + " own.xml --create");
  }
  std::string Refusal(std::string const& words) const {
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 1) << words << "\n" << outcome.out;
    EXPECT_EQ(outcome.out, "") << words;
    return outcome.err;
  }
};

char const* const kCommands[] = {"search @",
                                 "why @ TC",
                                 "eval @ VaporP",
                                 "coverage @",
                                 "coverage ETHANOL @",
                                 "plot VaporP ETHANOL @ -o p.svg",
                                 "plot VaporP @ -o p.svg --each"};

std::string With(std::string words, std::string const& component) {
  return words.replace(words.find('@'), 1, component);
}

TEST_F(IdentityTest, DifferentSubstancesAreRefusedByNumberIdAndCas) {
  struct Row {
    char const* library;
    char const* word;
    char const* text;
  };
  Row const rows[] = {
      {"number.lb1", "10000112", "Water (10000112, AQUA, 7732-18-5, H2O) in number.lb1:OWN"},
      {"id.lb1", "NBUTANE", "Water (555, NBUTANE, 7732-18-5, H2O) in id.lb1:OWN"},
      {"cas.lb1", "106-97-8", "Heavy water (556, HEAVY, 106-97-8, D2O) in cas.lb1:OWN"},
      {"isomer.lb1", "10000112", "Isobutane (10000112, ISOBUT, 75-28-5, C4H10) in isomer.lb1:OWN"}};
  for (Row const& row : rows) {
    for (char const* command : kCommands) {
      std::string const text =
          Refusal(With(command, row.word) + " -l " + row.library + " -l crc.lb1 -l perry.lb1");
      EXPECT_NE(text.find(row.text), std::string::npos) << text;
      EXPECT_NE(text.find("Butane (10000112, NBUTANE, 106-97-8, C4H10) in crc.lb1:CRC"),
                std::string::npos)
          << text;
      EXPECT_NE(text.find("--accept-identity"), std::string::npos) << text;
      EXPECT_FALSE(std::filesystem::exists(Folder() / "p.svg"));
    }
  }
}

TEST_F(IdentityTest, AnyTwoSourcesAreHeldAgainstEachOther) {
  std::string const text = Refusal("search 10000112 -l silent.lb1 -l crc.lb1 -l number.lb1");
  EXPECT_NE(text.find("in crc.lb1:CRC and Water"), std::string::npos) << text;
}

TEST_F(IdentityTest, AcceptedItIsAWarningInEveryOutput) {
  for (char const* command : kCommands) {
    std::string const words =
        With(command, "10000112") + " --accept-identity -l number.lb1 -l crc.lb1";
    EXPECT_NE(Good(words + (words.find("ETHANOL") == std::string::npos ? "" : " -l perry.lb1"))
                  .find("identity warning"),
              std::string::npos)
        << words;
    json const report = Json(words);
    EXPECT_NE(report["identity_warning"].get<std::string>().find("10000112"), std::string::npos);
    ASSERT_GE(report["identities"].size(), 2U) << words;
    json const own = Row(report["identities"], "source", "number.lb1:OWN");
    EXPECT_EQ(own["component"], "10000112");
    EXPECT_EQ(own["cas"], "7732-18-5");
    EXPECT_EQ(own["formula"], "H2O");
    EXPECT_EQ(own["name"], "Water");
    EXPECT_EQ(Row(report["identities"], "source", "crc.lb1:CRC")["id"], "NBUTANE");
  }
}

TEST_F(IdentityTest, AcceptedItIsAWarningInCsvAndInTheChart) {
  std::string const sources = " --accept-identity -l number.lb1 -l crc.lb1";
  for (std::string const words : {"eval 10000112 VaporP", "coverage 10000112"}) {
    std::string const csv = Good(words + sources + " --csv");
    EXPECT_NE(csv.find("\nidentities\ncomponent,source,number,"), std::string::npos) << csv;
    EXPECT_NE(csv.find("\nwarnings\nwarning,text\nidentity warning,the sources contradict"),
              std::string::npos)
        << csv;
  }
  EXPECT_EQ(Good("eval 10000112 VaporP -l crc.lb1 --csv").find("warning"), std::string::npos);
  for (char const* each : {"", " --each"}) {
    Good("plot VaporP 10000112 -o p.svg" + sources + each);
    std::string svg = FileText(Folder() / "p.svg");
    // Long lines are broken.
    std::string const next = "</text>";
    std::string text;
    for (std::size_t at = svg.find("fill=\"#b00000\">"); at != std::string::npos;
         at = svg.find("fill=\"#b00000\">", at)) {
      at = svg.find('>', at) + 1;
      std::string const line = svg.substr(at, svg.find(next, at) - at);
      EXPECT_LE(line.size(), 110U);
      text += (text.empty() ? "" : " ") + line;
    }
    EXPECT_EQ(text,
              "Warning: component 10000112 is Water (10000112, AQUA, 7732-18-5, H2O) in "
              "number.lb1:OWN and Butane (10000112, NBUTANE, 106-97-8, C4H10) in crc.lb1:CRC");
  }
  Good("plot VaporP NBUTANE -o p.svg -l crc.lb1");
  EXPECT_EQ(FileText(Folder() / "p.svg").find("Warning"), std::string::npos);
}

TEST_F(IdentityTest, OneSubstanceInOtherWordsIsMerged) {
  for (char const* library : {"same.lb1", "silent.lb1"}) {
    json const report = Json("search 10000112 -l " + std::string(library) + " -l crc.lb1");
    EXPECT_EQ(report["component"], "n-Butane");
    EXPECT_FALSE(report.contains("identity_warning"));
    EXPECT_FALSE(report.contains("identities"));
  }
}

TEST_F(IdentityTest, CheckTellsOfItByNumberIdAndCas) {
  struct Row {
    char const* library;
    char const* text;
  };
  for (Row const& row :
       {Row{"number.lb1",
            "crc.lb1: CRC NBUTANE: has the number 10000112 of number.lb1:OWN but is "
            "Butane (10000112, NBUTANE, 106-97-8, C4H10); there it is Water (10000112, "
            "AQUA, 7732-18-5, H2O)"},
        Row{"id.lb1", "has the ID NBUTANE of id.lb1:OWN but is Butane"},
        Row{"cas.lb1", "has the CAS number 106-97-8 of cas.lb1:OWN but is Butane"}}) {
    std::string const words = "check " + std::string(row.library) + " crc.lb1";
    Outcome const outcome = Zel(words + " --json");
    EXPECT_EQ(outcome.status, 1);
    json const report = json::parse(outcome.out);
    EXPECT_EQ(report["errors"], 1);
    ASSERT_EQ(Rows(report["findings"], "id", "identity"), 1U);
    json const finding = zel::test::Row(report["findings"], "id", "identity");
    EXPECT_EQ(finding["severity"], "error");
    EXPECT_NE(finding["what"].get<std::string>().find(row.text), std::string::npos) << finding;
    json const accepted = Json(words + " --accept-identity");
    EXPECT_EQ(accepted["errors"], 0);
    EXPECT_EQ(zel::test::Row(accepted["findings"], "id", "identity")["severity"], "warning");
    EXPECT_EQ(Rows(Json(words + " --silence identity")["findings"], "id", "identity"), 0U);
  }
  EXPECT_EQ(Rows(Json("check same.lb1 crc.lb1 perry.lb1")["findings"], "id", "identity"), 0U);
}

// A library's own numbers find its pairs; a number that is another substance there does not.
TEST_F(IdentityTest, PairsAreThoseOfTheSubstances) {
  auto const pairFrom = [&](std::string const& library, std::string const& components) {
    MakeFile("pairs.xml",
             "<bank type=\"VANLAAR\" name=\"P\"><item><keys> 10000007 10000112 </keys>"
             "<aij>1</aij></item></bank>");
    Good("import " + library + " pairs.xml");
    return Json("coverage ETHANOL " + components + " -l crc.lb1 -l " + library)["pairs"][0]["from"];
  };
  EXPECT_EQ(pairFrom("same.lb1", "NBUTANE"), "same.lb1:P");
  EXPECT_TRUE(pairFrom("number.lb1", "NBUTANE").is_null()) << "there 10000112 is water";
}

}  // namespace
}  // namespace zel::test
