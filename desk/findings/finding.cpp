#include "desk/findings/finding.h"

#include <iterator>

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

}  // namespace zel::desk
