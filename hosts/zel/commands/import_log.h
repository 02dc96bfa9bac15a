// What an import reports of its documents: lines for people, a table for programs.
#pragma once

#include <zelaccess/Interchange.h>

#include <cstdint>

#include "output/report.h"

namespace zelhost {

// Shows the first 1,000 errors and warnings; a small document can have hundreds of thousands.
class ImportLog final : public zel::ZelLogSink {
 public:
  // Lines are written to standard output as they come, unless they are collected for a table.
  // `alignsTypes`: the types of banks that begin stand to the right.
  ImportLog(bool writesLines, bool alignsTypes)
      : writesLines_(writesLines), alignsTypes_(alignsTypes) {}

  void Line(zel::ZelLogLine const& line) override;
  void BankBegins(char const* type, char const* name) override;

  // Says how many were not shown: a last line, or a warning beside the table, which has the name
  // "findings".
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

// What the imports of all documents given have found and stored.
class ImportTotals {
 public:
  void Add(zel::ZelImportCounts const& counts);
  // Facts, those of what did not arrive and of what was changed only where there is any.
  void AddTo(Report& report) const;

 private:
  zel::ZelImportCounts sum_;
};

}  // namespace zelhost
