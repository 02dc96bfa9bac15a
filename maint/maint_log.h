// The errors and warnings of a maintenance run, which are always counted, and written to standard
// output unless the log is silent.
//
// A host's sink replaces standard output. A line reads `*** file : error : label - message`, where
// the file is the document on top of those being read and the label is that of the current item.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zelaccess/Interchange.h"

namespace zel {

// Details of a report, for a host's sink.
struct LogDetail {
  zelLogKinds kind = logOther;
  std::int32_t line = 0;  // of the document; 0 if it is not known
  std::string before;
  std::string after;
};

// Whether a run goes on after a report.
enum class Verdict : bool { kStop, kGoOn };

class MaintLog {
 public:
  // At level 0 the log is silent and the first error ends a run; otherwise lines are written and
  // the run continues.
  void SetLevel(std::int32_t level) noexcept { level_ = level; }
  void SetSink(ZelLogSink* sink) noexcept { sink_ = sink; }
  bool IsSilent() const noexcept { return level_ == 0; }

  // Reports an error. An empty message is replaced by the pending text, which is cleared in any
  // case. Returns true if the run may continue.
  Verdict ReportError(std::string_view message, LogDetail const& detail = {});
  void ReportWarning(std::string_view message, LogDetail const& detail = {});
  // Writes a line when a bank begins; does nothing when silent.
  void ShowBankProgress(std::string_view type, std::string_view name) const;

  // Sets the label of the item to which later reports refer.
  void SetItemLabel(std::string_view label) { itemLabel_ = label; }
  // The reason of a failed step, for the next error without a message.
  void SetPendingText(std::string_view reason) { pendingText_ = reason; }
  std::string const& PendingText() const noexcept { return pendingText_; }

  // Clears the flag, counts and texts, at the start of a run.
  void ClearLog() noexcept;
  // Clears only the texts, at the start of each bank and item.
  void ClearTexts() noexcept;

  bool HasErrors() const noexcept { return errorFlag_; }
  std::int32_t ErrorCount() const noexcept { return errorCount_; }
  std::int32_t WarningCount() const noexcept { return warningCount_; }
  // The last error, with its label; null if no error was reported in this run.
  char const* LastErrorText() const noexcept { return errorFlag_ ? lastError_.c_str() : nullptr; }

 private:
  std::string Labelled(std::string_view message) const;
  void Say(bool isError, std::string const& text, LogDetail const& detail) const;

  ZelLogSink* sink_ = nullptr;
  std::int32_t level_ = 0;
  bool errorFlag_ = false;
  std::int32_t errorCount_ = 0;
  std::int32_t warningCount_ = 0;
  std::string itemLabel_;
  std::string pendingText_;
  std::string lastError_;
};

}  // namespace zel
