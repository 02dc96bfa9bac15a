// check
#include <zelaccess/Types.h>

#include <algorithm>
#include <map>
#include <memory>
#include <optional>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/findings/finding_formats.h"
#include "desk/words/failure.h"
#include "desk/words/number_range.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  CheckOptions check;
  std::string failOn = "error";
  std::string minStrength;
  std::string baseline;
  std::string format;
  bool listIds = false;
};

Report ListRules() {
  Report report;
  Table& table = report.Begin("checks", {{"id", ""}, {"rule", ""}});
  for (CheckRule const& rule : CheckRules()) table.Add(rule.id, rule.rule);
  return report;
}

void CheckFormat(Session const& session, Options const& o) {
  if (o.format.empty()) return;
  if (o.format != "sarif" && o.format != "junit") {
    throw WrongUsage("--format is sarif or junit, not " + o.format);
  }
  if (session.form != Form::kText) throw WrongUsage("--format excludes --json and --csv");
}

// Adds the findings of the baseline that are no longer found.
void AddGone(std::vector<Finding> const& findings, Report& report) {
  if (findings.empty()) return;
  Table table(
      "gone findings",
      {{"severity", ""}, {"id", ""}, {"what", ""}, {"library", ""}, {"place", ""}, {"text", ""}});
  for (Finding const& one : findings) {
    table.Add(WordOf(one.severity), one.id, LineOf(one), one.library, one.place, one.text);
  }
  report.Add(std::move(table), {"library", "place", "text"});
}

Report ReportOf(CheckedLibraries const& checked) {
  Report report;
  std::map<zel::zelFindings, std::int64_t> counts;
  for (Finding const& finding : checked.findings.fresh) ++counts[finding.severity];
  report.Fact("libraries", static_cast<std::int64_t>(checked.libraries.size()));
  report.Fact("damage", counts[zel::findingDamage]);
  report.Fact("errors", counts[zel::findingError]);
  report.Fact("warnings", counts[zel::findingWarning]);
  if (checked.hasBaseline) {
    report.Fact("known", static_cast<std::int64_t>(checked.findings.known.size()));
    report.Fact("gone", static_cast<std::int64_t>(checked.findings.gone.size()));
  }
  AddFindings("findings", checked.findings.fresh, report);
  AddGone(checked.findings.gone, report);
  return report;
}

// Shows the progress of the check; Ctrl-C ends it.
class FollowedCheck final : public CheckSteps {
 public:
  void Begin(std::string const& what, double share, zel::LibFile& library) override {
    following_.emplace(work_, library);
    work_.BeginPart(what, share);
  }
  void Leave() noexcept override { following_.reset(); }
  void End() override { work_.EndIfCancelled("the findings so far are not shown"); }

 private:
  FollowedWork work_{"checking"};
  std::optional<FollowedWork::Following> following_;
};

double StrengthIn(std::string const& word) {
  double const strength = ParseNumber(word, "--min-strength");
  if (!(strength >= 0.0 && strength <= 1.0)) {
    throw WrongUsage("--min-strength is 0 to 1, not " + word);
  }
  return strength;
}

std::vector<Finding> FindingsIn(Session& session, CheckOptions options) {
  FollowedCheck steps;
  options.steps = &steps;
  return CheckLibraries(session, options);
}

Report Check(Session& session, Options const& o) {
  if (o.listIds) return ListRules();
  if (o.check.libraries.empty()) throw WrongUsage("name a library; see zel check --help");
  CheckFormat(session, o);
  CheckOptions options = o.check;
  if (!o.minStrength.empty()) options.minStrength = StrengthIn(o.minStrength);
  CheckedLibraries checked;
  checked.failOn = SeverityNamed(o.failOn, "--fail-on");
  checked.libraries = o.check.libraries;
  checked.rules = CheckRules();
  checked.version = ZEL_VERSION;
  checked.hasBaseline = !o.baseline.empty();
  std::vector<Finding> baseline;
  if (checked.hasBaseline) baseline = ReadBaseline(o.baseline);
  checked.findings = CompareFindings(FindingsIn(session, options), baseline);
  bool const fails = std::any_of(
      checked.findings.fresh.begin(), checked.findings.fresh.end(),
      [&](Finding const& finding) { return IsAtLeast(finding.severity, checked.failOn); });
  if (fails) session.exitStatus = 1;
  Report report = ReportOf(checked);
  if (!o.format.empty()) {
    report.SetDocument(o.format == "sarif" ? ToSarif(checked) : ToJunit(checked));
  }
  return report;
}

}  // namespace

void AddCheckCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command(line, "check", "Check the structure and plausibility of libraries",
          "zel check perry.lb1 crc.lb1 --silence source")
      .OptionalArgument("LIBRARY", o->check.libraries, "libraries, each compared with the others")
      .Library(o->check.libraries)
      .List("--silence", o->check.silent, "do not report these checks", "ID...")
      .Option("--fail-on", o->failOn, "exit status 1 from error (default), warning or note on",
              "SEVERITY")
      .Option("--min-strength", o->minStrength,
              "the least strength to report, 0 to 1 (default 0.5)", "NUMBER")
      .Option("--baseline", o->baseline, "report what this output of --json does not have", "FILE")
      .Option("--format", o->format, "print sarif or junit", "FORM")
      .Flag("--accept-identity", o->check.acceptIdentity,
            "different substances are a warning, not an error")
      .Flag("--structure", o->check.structureOnly, "check only the structure")
      .Flag("--ids", o->listIds, "list the checks and their rules")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Check(session, *o); });
}

}  // namespace zelhost
