#include "desk/findings/finding.h"

#include <iterator>

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
                     {"text", ""}});
  for (Finding const& one : findings) {
    table.Add(WordOf(one.severity), one.id, LineOf(one), one.library, one.place, Text(one.bank),
              Text(one.item), Text(one.datum), Number(one.value), Text(one.unit),
              Number(one.expectedMin), Number(one.expectedMax), Number(one.temperature), one.text);
  }
  return table;
}

}  // namespace zel::desk
