// What a maintenance run has to say: errors and warnings, counted always and written to standard
// output unless the log is silent.
//
// A line reads `*** file : error : label - message`, with the file on top of the documents being
// read and the label of the item at hand.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zel {

class MaintLog {
 public:
  // 0 silent, and the first error ends a run; otherwise lines are written and a run goes on.
  void SetLevel(std::int32_t level) noexcept { level_ = level; }
  bool IsSilent() const noexcept { return level_ == 0; }

  // An error; an empty message takes the pending text in its place, which is used up either way.
  // Gives the verdict: true when the run may go on.
  bool ReportError(std::string_view message);
  void ReportWarning(std::string_view message);
  // A line that tells a bank begins; nothing when silent.
  void ShowBankProgress(std::string_view type, std::string_view name) const;

  // Names the item that later reports are about.
  void SetItemLabel(std::string_view label) { itemLabel_ = label; }
  // The reason of a failed step, for the next error without a message.
  void SetPendingText(std::string_view reason) { pendingText_ = reason; }
  std::string const& PendingText() const noexcept { return pendingText_; }

  // Flag, counts and texts, at the start of a run.
  void ClearLog() noexcept;
  // The texts alone, at the start of each bank and item.
  void ClearTexts() noexcept;

  bool HasErrors() const noexcept { return errorFlag_; }
  std::int32_t ErrorCount() const noexcept { return errorCount_; }
  std::int32_t WarningCount() const noexcept { return warningCount_; }
  // The last error, with its label; null when there was none in this run.
  char const* LastErrorText() const noexcept { return errorFlag_ ? lastError_.c_str() : nullptr; }

 private:
  std::string Labelled(std::string_view message) const;

  std::int32_t level_ = 0;
  bool errorFlag_ = false;
  std::int32_t errorCount_ = 0;
  std::int32_t warningCount_ = 0;
  std::string itemLabel_;
  std::string pendingText_;
  std::string lastError_;
};

}  // namespace zel
