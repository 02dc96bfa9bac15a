#include <cmath>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

#include "desk/findings/finding_formats.h"

namespace zel::desk {
namespace {

using Json = nlohmann::ordered_json;

// A file as a reference of a URI, relative if the path is.
std::string UriOf(std::string const& path) {
  constexpr char kPlain[] =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/!$&'()*+,;=@";
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string uri = std::filesystem::path(path).is_absolute() ? "file://" : "";
  for (char const c : path) {
    if (std::string_view(kPlain).find(c) != std::string_view::npos) {
      uri += c;
    } else {
      auto const byte = static_cast<unsigned char>(c);
      uri += '%';
      uri += kDigits[byte >> 4U];
      uri += kDigits[byte & 0xFU];
    }
  }
  return uri;
}

char const* LevelOf(zel::zelFindings severity) {
  switch (severity) {
    case zel::findingNote: return "note";
    case zel::findingWarning: return "warning";
    default: return "error";
  }
}

class Log {
 public:
  explicit Log(CheckedLibraries const& checked) : checked_(checked) {
    for (CheckRule const& rule : checked.rules) AddRule(rule.id, rule.rule);
    Add(checked.findings.fresh, "new");
    Add(checked.findings.known, "unchanged");
    Add(checked.findings.gone, "absent");
  }

  std::string Text() const {
    Json driver = {{"name", "zel"}, {"version", checked_.version}, {"rules", rules_}};
    Json run = {{"tool", {{"driver", std::move(driver)}}},
                {"columnKind", "unicodeCodePoints"},
                {"results", results_}};
    Json log = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                {"version", "2.1.0"},
                {"runs", Json::array({std::move(run)})}};
    return log.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
  }

 private:
  std::size_t AddRule(std::string const& id, std::string const& text) {
    auto const [at, isNew] = places_.emplace(id, rules_.size());
    if (isNew) rules_.push_back({{"id", id}, {"shortDescription", {{"text", text}}}});
    return at->second;
  }

  void Add(std::vector<Finding> const& findings, char const* state) {
    for (Finding const& finding : findings) {
      // Findings of damage have IDs that are not among the rules.
      std::size_t const rule = AddRule(finding.id, "the structure of a library is whole");
      Json place = {{"physicalLocation", {{"artifactLocation", {{"uri", UriOf(finding.library)}}}}},
                    {"logicalLocations", Json::array({{{"fullyQualifiedName", finding.place}}})}};
      Json result = {{"ruleId", finding.id},
                     {"ruleIndex", rule},
                     {"level", LevelOf(finding.severity)},
                     {"message", {{"text", finding.place + ": " + finding.text}}},
                     {"locations", Json::array({std::move(place)})},
                     {"partialFingerprints", {{"zelFinding/v1", FingerprintOf(finding)}}}};
      constexpr double kHighestRank = 100.0;
      result["rank"] = std::round(finding.strength * kHighestRank);
      if (!finding.evidence.empty()) result["properties"] = {{"evidence", finding.evidence}};
      if (checked_.hasBaseline) result["baselineState"] = state;
      results_.push_back(std::move(result));
    }
  }

  CheckedLibraries const& checked_;
  std::map<std::string, std::size_t> places_;  // of the rules, by ID
  Json rules_ = Json::array();
  Json results_ = Json::array();
};

}  // namespace

std::string ToSarif(CheckedLibraries const& checked) { return Log(checked).Text(); }

}  // namespace zel::desk
