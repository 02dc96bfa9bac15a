// The errors and warnings of an import: lines for people, a table for programs.
#pragma once

#include <zelaccess/Interchange.h>

#include <cstdint>

#include "output/report.h"

namespace zelhost {

// Shows the first 1,000 errors and warnings; a small document can cause hundreds of thousands.
class ImportLog final : public zel::ZelLogSink {
 public:
  // Each line is written to standard output at once, unless the lines are collected for a table.
  // `alignsTypes` right-aligns the types in the lines that announce banks.
  ImportLog(bool writesLines, bool alignsTypes)
      : writesLines_(writesLines), alignsTypes_(alignsTypes) {}

  void Line(zel::ZelLogLine const& line) override;
  void BankBegins(char const* type, char const* name) override;

  // Reports how many were not shown, in a last line or in a warning next to the table, which has
  // the name "findings".
  void Finish(Report& report);

 private:
  bool writesLines_;
  bool alignsTypes_;
  std::int64_t errors_ = 0;
  std::int64_t warnings_ = 0;
  std::int64_t notShown_ = 0;
  Table findings_{"findings",
                  {{"document", ""},
                   {"line", ""},
                   {"severity", ""},
                   {"kind", ""},
                   {"what", ""},
                   {"before", ""},
                   {"after", ""}}};
};

// What the imports of all given documents have found and stored.
class ImportTotals {
 public:
  void Add(zel::ZelImportCounts const& counts);
  // Adds the facts; numbers of what was not stored or was altered only if they are not 0.
  void AddTo(Report& report) const;

 private:
  zel::ZelImportCounts sum_;
};

}  // namespace zelhost
