#include "commands/import_log.h"

#include <cstdio>
#include <string>
#include <utility>

#include "output/progress.h"

namespace zelhost {
namespace {

constexpr std::int64_t kMostShown = 1000;
constexpr std::size_t kLongestText = 1000;  // of a cell

char const* Word(zel::zelLogKinds kind) {
  switch (kind) {
    case zel::logMalformedNumber: return "malformed number";
    case zel::logAlteredText: return "altered text";
    case zel::logLostPart: return "lost part";
    case zel::logCancelled: return "cancelled";
    default: return "other";
  }
}

// A text of a document, which can be very long.
Cell Shortened(std::string text) {
  if (text.size() > kLongestText) {
    std::size_t end = kLongestText;
    while (end > 0 && (text[end] & 0xC0) == 0x80) --end;  // not within a character
    text.erase(end);
    text += "...";
  }
  return Text(std::move(text));
}

// The count; an empty cell for 0.
Cell CountOrNone(std::int64_t count) { return count == 0 ? Cell() : Cell(count); }

// One call per line, so that the output of other writers does not split it. A full disk is noticed
// when the report that follows is written.
void WriteLine(std::string const& line) {
  ClearProgressLine();
  std::fwrite(line.data(), 1, line.size(), stdout);
}

}  // namespace

void ImportLog::Line(zel::ZelLogLine const& line) {
  if (errors_ + warnings_ >= kMostShown) {
    ++notShown_;
  } else if (writesLines_) {
    WriteLine(std::string("*** ") + line.document +
              (line.isError ? " : error : " : " : warning : ") + line.message + "\n");
  } else {
    findings_.Add(std::string(line.document), CountOrNone(line.line),
                  line.isError ? "error" : "warning", Word(line.kind), Shortened(line.message),
                  Shortened(line.before), Shortened(line.after));
  }
  ++(line.isError ? errors_ : warnings_);
}

void ImportLog::BankBegins(char const* type, char const* name) {
  if (!writesLines_) return;
  constexpr std::size_t kTypeWidth = 8;
  std::string text = type;
  if (alignsTypes_ && text.size() < kTypeWidth) text.insert(0, kTypeWidth - text.size(), ' ');
  WriteLine("  " + text + ":" + name + "\n");
}

void ImportLog::Finish(Report& report) {
  if (writesLines_) {
    if (notShown_ != 0) {
      WriteLine("*** " + std::to_string(notShown_) + " more errors and warnings\n");
    }
    return;
  }
  report.Fact("errors", errors_);
  report.Fact("warnings", warnings_);
  if (notShown_ != 0) report.Warning("not listed", notShown_);
  report.Add(std::move(findings_));
}

void ImportTotals::Add(zel::ZelImportCounts const& counts) {
  for (auto const member :
       {&zel::ZelImportCounts::itemsFound, &zel::ZelImportCounts::itemsStored,
        &zel::ZelImportCounts::componentsFound, &zel::ZelImportCounts::componentsStored,
        &zel::ZelImportCounts::banksFound, &zel::ZelImportCounts::banksStored,
        &zel::ZelImportCounts::textsFound, &zel::ZelImportCounts::textsStored,
        &zel::ZelImportCounts::importsFound, &zel::ZelImportCounts::importsFollowed,
        &zel::ZelImportCounts::malformedNumbers, &zel::ZelImportCounts::alteredTexts}) {
    sum_.*member += counts.*member;
  }
}

void ImportTotals::AddTo(Report& report) const {
  report.Fact("components", sum_.componentsStored);
  report.Fact("items", sum_.itemsStored);
  struct Part {
    char const* fact;
    std::int64_t count;
  } const parts[] = {{"components not stored", sum_.componentsFound - sum_.componentsStored},
                     {"items not stored", sum_.itemsFound - sum_.itemsStored},
                     {"banks not stored", sum_.banksFound - sum_.banksStored},
                     {"texts not stored", sum_.textsFound - sum_.textsStored},
                     {"imports not followed", sum_.importsFound - sum_.importsFollowed}};
  std::int64_t all = 0;
  for (Part const& part : parts) all += part.count;
  if (all != 0) report.Fact("not stored", all);
  for (Part const& part : parts) {
    if (part.count != 0) report.Fact(part.fact, part.count);
  }
  if (sum_.malformedNumbers != 0) report.Fact("malformed numbers", sum_.malformedNumbers);
  if (sum_.alteredTexts != 0) report.Fact("altered texts", sum_.alteredTexts);
}

}  // namespace zelhost
