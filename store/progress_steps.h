// The steps of long work, reported to a host.
#pragma once

#include <algorithm>

#include "zelaccess/Progress.h"

namespace zel {

class ProgressSteps {
 public:
  // Reports the share 0. With a null host, nothing is reported and nothing is cancelled.
  explicit ProgressSteps(ZelProgress* host) noexcept : host_(host) { Report(0.0); }
  ProgressSteps(ProgressSteps const&) = delete;
  ProgressSteps& operator=(ProgressSteps const&) = delete;

  bool IsWatched() const noexcept { return host_ != nullptr; }
  bool IsCancelled() const noexcept { return isCancelled_; }

  // Sets the whole work, in any unit.
  void Expect(double work) noexcept { total_ = work; }
  // Reports that this much more of it is done. False when the host cancels.
  bool Did(double work) noexcept {
    if (host_ == nullptr) return true;
    done_ += work;
    return Report(total_ > 0.0 ? std::min(done_ / total_, kMost) : 0.0);
  }
  // The same for one of many items, of which only every 64th is reported.
  bool DidItem(double work) noexcept {
    if (host_ == nullptr) return true;
    waiting_ += work;
    if (++items_ % kItems != 0) return !isCancelled_;
    double const all = waiting_;
    waiting_ = 0.0;
    return Did(all);
  }
  // Reports the share 1.
  void End() noexcept {
    if (host_ != nullptr && !isCancelled_) host_->OnProgress(1.0);
  }

 private:
  static constexpr double kMost = 0.999;  // before the end
  static constexpr unsigned kItems = 64;

  bool Report(double share) noexcept {
    if (host_ == nullptr || isCancelled_) return !isCancelled_;
    share_ = std::max(share_, share);
    isCancelled_ = !host_->OnProgress(share_);
    return !isCancelled_;
  }

  ZelProgress* host_;
  double total_ = 0.0;
  double done_ = 0.0;
  double waiting_ = 0.0;  // done, and not reported yet
  double share_ = 0.0;
  unsigned items_ = 0;
  bool isCancelled_ = false;
};

// Ends the work of a check that the host cancelled.
struct WorkCancelled {};

}  // namespace zel
