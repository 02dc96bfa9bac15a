#include "desk/findings/library_check.h"

#include <zelaccess/DataJudgement.h>

#include <algorithm>
#include <set>
#include <string_view>

#include "desk/open/unfinished_change.h"
#include "desk/open/unread_items.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

// Collects the findings about structure and data.
class Collector final : public zel::ZelDataFindingSink {
 public:
  Collector(Session& session, CheckOptions const& options)
      : session_(session), silent_(options.silent.begin(), options.silent.end()) {}

  // The library whose structure is checked.
  void SetLibrary(std::string path) { path_ = std::move(path); }
  std::vector<Finding> Take(double minStrength) {
    auto const isWeak = [=](Finding const& one) { return one.strength < minStrength; };
    findings_.erase(std::remove_if(findings_.begin(), findings_.end(), isWeak), findings_.end());
    std::stable_sort(findings_.begin(), findings_.end(), [](Finding const& a, Finding const& b) {
      if (a.severity != b.severity) return IsAtLeast(a.severity, b.severity);
      return a.strength > b.strength;
    });
    return std::move(findings_);
  }

  void Found(zel::zelFindings severity, char const* id, char const* place,
             char const* text) override {
    // Damage cannot be silenced. The sizes of the files are for `info`.
    if (severity != zel::findingDamage && silent_.count(id) != 0) return;
    if (severity == zel::findingNote && id == std::string_view("sizes")) return;
    Finding finding;
    finding.severity = severity;
    finding.id = id;
    finding.library = path_;
    finding.place = place;
    finding.text = text;
    findings_.push_back(std::move(finding));
  }

  void FoundData(zel::ZelDataFinding const& found) override {
    if (found.severity == zel::findingNote) return;  // the check was cancelled
    if (found.severity == zel::findingDamage) {
      // The structure was found sound: what is unreadable now was readable then.
      UnreadItems(session_, found.library).Found(found.severity, found.id, found.place, found.text);
      return;
    }
    findings_.push_back(FindingOf(found));
  }

 private:
  Session& session_;
  std::set<std::string> silent_;
  std::string path_;
  std::vector<Finding> findings_;
};

template <typename Work>
void Part(CheckSteps* steps, std::string const& what, double share, Library const& library,
          Work const& work) {
  if (steps == nullptr) return work();
  {
    struct Leaving {
      CheckSteps& steps;
      ~Leaving() { steps.Leave(); }
    } const leaving{*steps};
    steps->Begin(what, share, library.File());
    work();
  }
  steps->End();
}

bool IsJudged(std::string_view id) {
  auto const& ids = JudgedChecks();
  return std::find(ids.begin(), ids.end(), id) != ids.end();
}

void CheckSilence(std::vector<std::string> const& silent) {
  std::vector<CheckRule> const rules = CheckRules();
  for (std::string const& id : silent) {
    bool const isKnown = std::any_of(rules.begin(), rules.end(),
                                     [&](CheckRule const& rule) { return rule.id == id; });
    if (!isKnown && !IsJudged(id)) {
      throw WrongUsage("--silence: there is no warning " + id + "; see zel check --ids");
    }
  }
}

}  // namespace

std::vector<CheckRule> CheckRules() {
  std::vector<CheckRule> rules = {
      {"block-leaked", "each block belongs to something or is free"},
      {"identifier-missing", "each component is found by its IDs and its CAS number"},
      {"identifier-stale", "each ID and CAS number is that of a component"},
      {"bank", "each bank is of a type that this program knows"}};
  std::int32_t count = 0;
  zel::ZelDataCheck const* const checks = zel::GetDataChecks(count);
  for (std::int32_t i = 0; i < count; ++i) {
    if (!IsJudged(checks[i].id)) rules.push_back({checks[i].id, checks[i].rule});
  }
  zel::ZelDataRule const* const judged = zel::GetDataRules(count);
  for (std::int32_t i = 0; i < count; ++i) {
    std::string const text = std::string(judged[i].formula) + " (" + judged[i].tolerance + ")";
    auto const known = std::find_if(rules.begin(), rules.end(),
                                    [&](CheckRule const& rule) { return rule.id == judged[i].id; });
    if (known == rules.end()) {
      rules.push_back({judged[i].id, text});
    } else {
      known->rule += "; " + text;
    }
  }
  return rules;
}

std::vector<char const*> const& JudgedChecks() {
  static std::vector<char const*> const ids = {
      "formula-weight",   "temperatures", "critical", "acentric",  "vapor-pressure",
      "critical-density", "latent-heat",  "monotony", "magnitude", "boiling-point"};
  return ids;
}

std::vector<Finding> CheckLibraries(Session& session, CheckOptions const& options) {
  CheckSilence(options.silent);
  std::vector<Library> open;
  open.reserve(options.libraries.size());
  for (std::string const& path : options.libraries) open.push_back(OpenFinished(session, path));
  return CheckLibraries(session, open, options);
}

std::vector<Finding> CheckLibraries(Session& session, std::vector<Library> const& libraries,
                                    CheckOptions const& options) {
  CheckSilence(options.silent);
  std::vector<char const*> silent;
  for (std::string const& id : options.silent) silent.push_back(id.c_str());
  zel::ZelJudgementOptions judgement;
  std::vector<char const*> const silentRules = silent;
  judgement.silent = silentRules.data();
  judgement.silentCount = static_cast<std::int32_t>(silentRules.size());
  judgement.minStrength = options.minStrength;
  silent.insert(silent.end(), JudgedChecks().begin(), JudgedChecks().end());
  zel::ZelDataCheckOptions dataOptions;
  dataOptions.silent = silent.data();
  dataOptions.silentCount = static_cast<std::int32_t>(silent.size());
  dataOptions.acceptIdentity = options.acceptIdentity;
  Collector collector(session, options);
  std::vector<zel::ZelCheckedLibrary> sound;
  // The data of a library take about twice as long as its structure; libraries are compared last.
  constexpr double kStructurePart = 1.0 / 3.0;
  double const perLibrary = 1.0 / static_cast<double>(libraries.size() + 1);
  for (Library const& library : libraries) {
    std::string const& path = library.Path();
    collector.SetLibrary(path);
    bool good = false;
    Part(options.steps, "checking the structure of " + path, kStructurePart * perLibrary, library,
         [&] { good = zel::VerifyLibrary(&library.File(), collector); });
    if (!good && !options.structureOnly) {
      session.Note(path + ": is damaged; the plausibility of its data was not checked");
    }
    if (!good || options.structureOnly) continue;
    sound.push_back({&library.File(), path.c_str()});
    Part(options.steps, "checking " + path, (1.0 - kStructurePart) * perLibrary, library,
         [&] { zel::CheckLibraryData(sound.back(), dataOptions, collector); });
  }
  if (sound.empty()) return collector.Take(options.minStrength);
  auto const count = static_cast<std::int32_t>(sound.size());
  Part(options.steps, "comparing libraries", perLibrary / 2, libraries.front(),
       [&] { zel::CompareLibraryData(sound.data(), count, dataOptions, collector); });
  Part(options.steps, "weighing all comparisons", perLibrary / 2, libraries.front(),
       [&] { zel::JudgeLibraryData(sound.data(), count, judgement, collector); });
  return collector.Take(options.minStrength);
}

}  // namespace zel::desk
