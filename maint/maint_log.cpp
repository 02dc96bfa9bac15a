#include "maint/maint_log.h"

#include <cstdio>

#include "maint/document_stack.h"

namespace zel {

namespace {

constexpr std::int32_t kSilent = 0;
constexpr std::int32_t kAlignedTypes = 2;
constexpr std::size_t kTypeWidth = 8;

// One call per line, so that lines of other writers do not fall into it.
void WriteLine(std::string const& line) { std::fwrite(line.data(), 1, line.size(), stdout); }

void WriteReport(std::string_view kind, std::string_view text) {
  std::string line = "*** " + TopDocumentFile();
  line.append(kind).append(text).append("\n");
  WriteLine(line);
}

}  // namespace

std::string MaintLog::Labelled(std::string_view message) const {
  std::string text;
  if (!itemLabel_.empty()) text.append(itemLabel_).append(" - ");
  return text.append(message);
}

bool MaintLog::ReportError(std::string_view message) {
  ++errorCount_;
  errorFlag_ = true;
  lastError_ = Labelled(message.empty() ? std::string_view(pendingText_) : message);
  pendingText_.clear();
  if (level_ == kSilent) return false;
  WriteReport(" : error : ", lastError_);
  return true;
}

void MaintLog::ReportWarning(std::string_view message) {
  ++warningCount_;
  if (level_ != kSilent) WriteReport(" : warning : ", Labelled(message));
}

void MaintLog::ShowBankProgress(std::string_view type, std::string_view name) const {
  if (level_ == kSilent) return;
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
