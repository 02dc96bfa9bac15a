#include "desk/findings/baseline.h"

#include <zelaccess/DeskErrors.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

#include "desk/files/input_file.h"

namespace zel::desk {
namespace {

constexpr char kSchema[] = "zel/check";

// A text that is the same for two findings that count as the same. Bytes that are not UTF-8 are
// replaced as in the baseline.
std::string IdentityOf(Finding const& finding) {
  std::string const library = std::filesystem::path(finding.library).filename().string();
  nlohmann::json parts = {finding.id, library, finding.place, finding.text};
  // Other comparisons of the same datum do not make another finding.
  if (!finding.evidence.empty()) parts = {library, finding.fingerprint};
  return parts.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string TextIn(nlohmann::json const& row, char const* member, std::string const& path) {
  auto const at = row.find(member);
  if (at == row.end() || !at->is_string()) {
    throw Error(path, "a finding has no text \"" + std::string(member) +
                          "\"; is it from an older zel? Make it again: zel check --json");
  }
  return at->get<std::string>();
}

}  // namespace

std::vector<Finding> ReadBaseline(std::string const& path) {
  if (std::filesystem::is_directory(path)) throw Error(path, "is a folder");
  std::ifstream file = OpenInput(path);
  if (!file) {
    throw Error(path, std::filesystem::exists(path) ? "cannot be read" : "not found");
  }
  nlohmann::json const json = nlohmann::json::parse(file, nullptr, false);
  if (file.bad()) throw Error(path, "cannot be read");
  bool const isCheck = json.is_object() && json.value("schema", nlohmann::json()) == kSchema &&
                       json.contains("findings") && json["findings"].is_array();
  if (!isCheck) throw Error(path, "is not a baseline, which zel check --json prints");
  std::vector<Finding> findings;
  for (nlohmann::json const& row : json["findings"]) {
    Finding finding;
    std::string const severity = TextIn(row, "severity", path);
    for (auto const one : {zel::findingNote, zel::findingError, zel::findingDamage}) {
      if (severity == WordOf(one)) finding.severity = one;
    }
    finding.id = TextIn(row, "id", path);
    finding.library = TextIn(row, "library", path);
    finding.place = TextIn(row, "place", path);
    finding.text = TextIn(row, "text", path);
    if (row.contains("evidence") && row["evidence"].is_string()) {
      finding.evidence = {TextIn(row, "evidence", path)};
      finding.fingerprint = TextIn(row, "fingerprint", path);
    }
    findings.push_back(std::move(finding));
  }
  return findings;
}

ComparedFindings CompareFindings(std::vector<Finding> const& findings,
                                 std::vector<Finding> const& baseline) {
  std::map<std::string, int> left;  // how often each is in the baseline and not yet here
  for (Finding const& finding : baseline) ++left[IdentityOf(finding)];
  ComparedFindings compared;
  for (Finding const& finding : findings) {
    int& count = left[IdentityOf(finding)];
    (count > 0 ? compared.known : compared.fresh).push_back(finding);
    if (count > 0) --count;
  }
  for (Finding const& finding : baseline) {
    int& count = left[IdentityOf(finding)];
    if (count == 0) continue;
    compared.gone.push_back(finding);
    --count;
  }
  return compared;
}

std::string FingerprintOf(Finding const& finding) {
  if (!finding.evidence.empty()) return finding.fingerprint;
  std::uint64_t hash = 14695981039346656037U;  // FNV-1a
  for (char const c : IdentityOf(finding)) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  }
  char text[17];
  std::snprintf(text, sizeof(text), "%016llx", static_cast<unsigned long long>(hash));
  return text;
}

}  // namespace zel::desk
