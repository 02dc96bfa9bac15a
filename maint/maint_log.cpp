#include "maint/maint_log.h"

#include <cstdio>

#include "maint/document_stack.h"

namespace zel {

namespace {

constexpr std::int32_t kSilent = 0;
constexpr std::int32_t kAlignedTypes = 2;
constexpr std::size_t kTypeWidth = 8;

// One call per line, so that lines of other writers are not mixed into it.
void WriteLine(std::string const& line) { std::fwrite(line.data(), 1, line.size(), stdout); }

}  // namespace

std::string MaintLog::Labelled(std::string_view message) const {
  std::string text;
  if (!itemLabel_.empty()) text.append(itemLabel_).append(" - ");
  return text.append(message);
}

void MaintLog::Say(bool isError, std::string const& text, LogDetail const& detail) const {
  if (level_ == kSilent) return;
  std::string const document = TopDocumentFile();
  if (sink_ == nullptr) {
    WriteLine("*** " + document + (isError ? " : error : " : " : warning : ") + text + "\n");
    return;
  }
  ZelLogLine line;
  line.isError = isError;
  line.kind = detail.kind;
  line.document = document.c_str();
  line.line = detail.line;
  line.message = text.c_str();
  line.before = detail.before.c_str();
  line.after = detail.after.c_str();
  sink_->Line(line);
}

Verdict MaintLog::ReportError(std::string_view message, LogDetail const& detail) {
  ++errorCount_;
  errorFlag_ = true;
  lastError_ = Labelled(message.empty() ? std::string_view(pendingText_) : message);
  pendingText_.clear();
  Say(true, lastError_, detail);
  return level_ == kSilent ? Verdict::kStop : Verdict::kGoOn;
}

void MaintLog::ReportWarning(std::string_view message, LogDetail const& detail) {
  ++warningCount_;
  if (level_ != kSilent) Say(false, Labelled(message), detail);
}

void MaintLog::ShowBankProgress(std::string_view type, std::string_view name) const {
  if (level_ == kSilent) return;
  if (sink_ != nullptr) {
    sink_->BankBegins(std::string(type).c_str(), std::string(name).c_str());
    return;
  }
  std::string line = "  ";
  if (level_ == kAlignedTypes && type.size() < kTypeWidth)
    line.append(kTypeWidth - type.size(), ' ');
  WriteLine(line.append(type).append(":").append(name).append("\n"));
}

void MaintLog::ClearLog() noexcept {
  errorFlag_ = false;
  errorCount_ = 0;
  warningCount_ = 0;
  ClearTexts();
}

void MaintLog::ClearTexts() noexcept {
  itemLabel_.clear();
  pendingText_.clear();
  lastError_.clear();
}

}  // namespace zel
