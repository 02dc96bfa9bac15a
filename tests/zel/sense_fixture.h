// A component that makes sense, and the findings about variants of it.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/zel/zel_fixture.h"

namespace zel::test {

// Water with constants and curves that agree, as an element of a document; tests replace parts of
// it.
inline constexpr char kGood[] = R"(
  <comp>
    <id number="7" name="Water" formula="H2O" casNum="7732-18-5" refCode="1"> WATER </id>
    <property name="MW" value="18.015" refCode="1" />
    <property name="TC" value="647.096" refCode="1" />
    <property name="PC" value="22064" refCode="1" />
    <property name="VC" value="0.0559" refCode="1" />
    <property name="ZC" value="0.2294" refCode="1" />
    <property name="ACENTRIC" value="0.344" refCode="1" />
    <property name="NMP" value="273.15" refCode="1" />
    <property name="TTP" value="273.16" refCode="1" />
    <property name="NBP" value="373.15" refCode="1" />
    <correlation name="VaporPressure" equation="20" tempUnit="k" propUnit="kpa" tMin="273.16"
      tMax="647.096" refCode="1"> 66.74124 -7258.2 -7.3037 4.1653e-06 2 </correlation>
    <correlation name="SurfaceTension" equation="1" tempUnit="k" propUnit="n/m" tMin="273.16"
      tMax="647.096" refCode="1"> 0.1294192 -0.0002 </correlation>
    <correlation name="LiquidCp" equation="1" tempUnit="k" propUnit="kj/kg-k" moleWtBasis="m"
      tMin="273.16" tMax="533.15" refCode="1"> 75 0.01 </correlation>
  </comp>)";

class SenseTest : public ZelTest {
 protected:
  static std::string With(std::string text, std::string const& old,
                          std::string const& replacement) {
    std::size_t const at = text.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return text.replace(at, old.size(), replacement);
  }
  // The IDs of the warnings about a library of these components.
  std::multiset<std::string> Warnings(std::string const& components) {
    MakeFile("bank.xml", "<bank type=\"PURECOMP\" name=\"TEST\">" + components + "</bank>");
    Good("create own.lb1 --force");
    Good("import own.lb1 bank.xml");
    return WarningsOf("own.lb1");
  }
  std::multiset<std::string> WarningsOf(std::string const& words) {
    report_ = nlohmann::json::parse(Zel("check " + words + " --json").out);
    EXPECT_EQ(report_["damage"], 0);
    std::multiset<std::string> ids;
    for (nlohmann::json const& row : report_["findings"]) ids.insert(row["id"]);
    return ids;
  }
  std::string What() const { return report_["findings"][0]["what"]; }
  // Whether a finding is of a rule: by its ID, or as one of the comparisons that it is from.
  static bool IsOf(nlohmann::json const& finding, std::string const& rule) {
    if (finding["id"] == rule) return true;
    return finding["evidence"].is_string() &&
           finding["evidence"].get<std::string>().find("(" + rule + ")") != std::string::npos;
  }
  // "DIPOLE of own.lb1" for each finding, from the strongest on.
  std::vector<std::string> AccusedIn(std::string const& words) {
    WarningsOf(words);
    std::vector<std::string> accused;
    for (nlohmann::json const& row : report_["findings"]) {
      accused.push_back((row["datum"].is_string() ? row["datum"].get<std::string>() : "") + " of " +
                        row["library"].get<std::string>());
    }
    return accused;
  }

  nlohmann::json report_;
};

using Ids = std::multiset<std::string>;

}  // namespace zel::test
