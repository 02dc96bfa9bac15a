#include "desk/findings/finding.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "desk/findings/baseline.h"
#include "desk/open/library.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/nearest_word.h"

namespace zel::desk {
namespace {

struct Severity {
  zel::zelFindings value;
  char const* word;
};
// The least severe first.
constexpr Severity kSeverities[] = {{zel::findingNote, "note"},
                                    {zel::findingWarning, "warning"},
                                    {zel::findingError, "error"},
                                    {zel::findingDamage, "damage"}};

std::size_t RankOf(zel::zelFindings severity) {
  std::size_t rank = 0;
  while (kSeverities[rank].value != severity) ++rank;
  return rank;
}

std::string NumberIn(double value, char const* unit) {
  std::string text = CellText(Number(value));
  if (*unit != '\0') text += std::string(" ") + unit;
  return text;
}

// "PC of crc.lb1 CRC ACN is 4.83 kPa, expected 4830 kPa from NBP (critical-pressure)"
std::string TextOf(zel::ZelDataEvidence const& evidence) {
  std::string text = std::string(evidence.datum) + " of " + evidence.library + " " +
                     evidence.place + " is " + NumberIn(evidence.value, evidence.unit);
  if (!zel::gen_IsUndefDouble(evidence.temperature)) {
    text += " at " + NumberIn(evidence.temperature, "K");
  }
  return text + ", expected " + NumberIn(evidence.expected, evidence.unit) + " from " +
         evidence.source + " (" + evidence.rule + ")";
}

// More than two digits after the point would not be significant.
double Rounded(double strength) { return std::round(strength * 100.0) / 100.0; }

std::string EvidenceOf(Finding const& finding) {
  std::string joined;
  for (std::string const& text : finding.evidence) joined += (joined.empty() ? "" : "; ") + text;
  return joined;
}

}  // namespace

char const* WordOf(zel::zelFindings severity) { return kSeverities[RankOf(severity)].word; }

bool IsAtLeast(zel::zelFindings severity, zel::zelFindings least) {
  return RankOf(severity) >= RankOf(least);
}

zel::zelFindings SeverityNamed(std::string const& word, char const* option) {
  for (Severity const& one : kSeverities) {
    if (one.value != zel::findingDamage && LowerCase(word) == one.word) return one.value;
  }
  throw WrongUsage(std::string(option) + " is error, warning or note, not " + word +
                   DidYouMean(word, {"error", "warning", "note"}) + " see zel check --help");
}

std::string LineOf(Finding const& finding) {
  return finding.library + ": " + finding.place + ": " + finding.text;
}

Finding FindingOf(zel::ZelDataFinding const& found) {
  Finding finding;
  finding.severity = found.severity;
  finding.id = found.id;
  finding.library = found.library;
  finding.place = found.place;
  finding.text = found.text;
  if (*found.bankName != '\0') finding.bank = ToText(BankName{found.bankType, found.bankName});
  finding.item = found.item;
  finding.datum = found.datum;
  finding.value = found.value;
  finding.temperature = found.temperature;
  finding.expectedMin = found.expectedMin;
  finding.expectedMax = found.expectedMax;
  finding.unit = found.unit;
  finding.strength = found.strength;
  finding.fingerprint = found.fingerprint;
  constexpr std::int32_t kMost = 8;
  for (std::int32_t i = 0; i < std::min(found.evidenceCount, kMost); ++i) {
    finding.evidence.push_back(TextOf(found.evidence[i]));
  }
  if (found.evidenceCount > kMost) {
    finding.evidence.push_back("and " + std::to_string(found.evidenceCount - kMost) + " more");
  }
  return finding;
}

Table FindingTable(std::string const& name, std::vector<Finding> const& findings) {
  Table table(name, {{"severity", ""},
                     {"id", ""},
                     {"what", ""},
                     {"library", ""},
                     {"place", ""},
                     {"bank", ""},
                     {"item", ""},
                     {"datum", ""},
                     {"value", ""},
                     {"unit", ""},
                     {"expected from", "", false, true},
                     {"expected to", "", false, true},
                     {"temperature", "K"},
                     {"strength", ""},
                     {"fingerprint", ""},
                     {"evidence", ""},
                     {"text", ""}});
  for (Finding const& one : findings) {
    table.Add(WordOf(one.severity), one.id, LineOf(one), one.library, one.place, Text(one.bank),
              Text(one.item), Text(one.datum), Number(one.value), Text(one.unit),
              Number(one.expectedMin), Number(one.expectedMax), Number(one.temperature),
              Number(Rounded(one.strength)), FingerprintOf(one), Text(EvidenceOf(one)), one.text);
  }
  return table;
}

}  // namespace zel::desk
