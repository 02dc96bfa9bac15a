// What a maintenance run reports: errors and warnings, counted always and written to standard
// output unless the log is silent.
//
// A host's sink takes the place of standard output. A line reads `*** file : error : label -
// message`, with the file on top of the documents being read and the label of the item at hand.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zelaccess/Interchange.h"

namespace zel {

// What a report is about, for a host's sink.
struct LogDetail {
  zelLogKinds kind = logOther;
  std::int32_t line = 0;  // of the document; 0 when none is known
  std::string before;
  std::string after;
};

class MaintLog {
 public:
  // At level 0 the log is silent and the first error ends a run; otherwise lines are written and
  // the run continues.
  void SetLevel(std::int32_t level) noexcept { level_ = level; }
  void SetSink(ZelLogSink* sink) noexcept { sink_ = sink; }
  bool IsSilent() const noexcept { return level_ == 0; }

  // An error; an empty message takes the pending text in its place, which is used up either way.
  // Gives the verdict: true when the run may go on.
  bool ReportError(std::string_view message, LogDetail const& detail = {});
  void ReportWarning(std::string_view message, LogDetail const& detail = {});
  // A line that says that a bank begins; nothing when silent.
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
  // The last error, with its label; null when there was none in this run.
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
