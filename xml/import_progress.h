// The progress of one import: its documents are read twice, first to check them.
#pragma once

#include <cstdint>
#include <string>

#include "store/progress_steps.h"
#include "xml/document_text.h"

namespace zel {

class ImportProgress final : public ReadingWatcher {
 public:
  explicit ImportProgress(ZelProgress* host) noexcept : steps_(host) {}

  bool IsWatched() const noexcept { return steps_.IsWatched(); }
  bool IsCancelled() const noexcept { return steps_.IsCancelled(); }
  // Estimates the work for a document with a full path and those that it imports.
  void Expect(std::string const& path);
  // To be called before a document is read. False when the host cancels.
  bool Open(DocumentText& text) noexcept;
  bool Read(std::uint64_t bytes, bool first) noexcept override;
  void End() noexcept { steps_.End(); }

 private:
  // A check takes about this part of the time that an import takes for a document.
  static constexpr double kFirstPart = 0.2;

  ProgressSteps steps_;
};

}  // namespace zel
