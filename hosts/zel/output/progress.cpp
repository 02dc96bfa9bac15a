#include "output/progress.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace zelhost {
namespace {

constexpr std::size_t kBarWidth = 30;
constexpr std::chrono::milliseconds kBetween{100};

std::chrono::milliseconds Delay() {
  char const* const given = std::getenv("ZEL_PROGRESS_DELAY");
  constexpr int kStandard = 500;
  return std::chrono::milliseconds(given != nullptr ? std::max(std::atoi(given), 0) : kStandard);
}

bool lineIsShown = false;

// "[#####.....]  50 % "
void DrawBar(double share) {
  lineIsShown = true;
  auto const part = static_cast<std::size_t>(share * kBarWidth);
  std::string bar(part, '#');
  bar.resize(kBarWidth, '.');
  std::fprintf(stderr, "\r[%s] %3d %% ", bar.c_str(), static_cast<int>(share * 100.0));
}

// "12 s", "3 min", "2 h"
std::string TimeText(double seconds) {
  constexpr double kMinute = 60.0;
  constexpr double kLongMinutes = 100.0;
  double const minutes = seconds / kMinute;
  char text[32];
  if (minutes < 2.0) {
    std::snprintf(text, sizeof(text), "%.0f s", seconds);
  } else if (minutes < kLongMinutes) {
    std::snprintf(text, sizeof(text), "%.0f min", minutes);
  } else {
    std::snprintf(text, sizeof(text), "%.0f h", minutes / kMinute);
  }
  return text;
}

}  // namespace

void ClearProgressLine() {
  if (lineIsShown) std::fputs("\r\x1b[K", stderr);
  lineIsShown = false;
}

Progress::Progress(std::string what, std::size_t total)
    : what_(std::move(what)),
      total_(total),
      enabled_(total > 0 && ErrorIsTerminal()),
      next_(enabled_ ? Clock::now() + Delay() : Clock::time_point()) {}

Progress::~Progress() { ClearProgressLine(); }

void Progress::Step() {
  ++done_;
  if (!enabled_ || Clock::now() < next_) return;
  Draw();
  next_ = Clock::now() + kBetween;
}

void Progress::Draw() {
  DrawBar(static_cast<double>(std::min(done_, total_)) / static_cast<double>(total_));
  std::fprintf(stderr, "%s\x1b[K", what_.c_str());
  std::fflush(stderr);
}

Waiting::Waiting(std::string what) : what_(std::move(what)) {
  if (ErrorIsTerminal()) thread_ = std::thread([this] { Run(); });
}

Waiting::~Waiting() {
  if (!thread_.joinable()) return;
  {
    std::lock_guard const lock(mutex_);
    done_ = true;
  }
  ended_.notify_one();
  thread_.join();
}

void Waiting::Run() {
  using Seconds = std::chrono::duration<double>;
  auto const start = std::chrono::steady_clock::now();
  std::unique_lock lock(mutex_);
  auto const isDone = [this] { return done_; };
  if (ended_.wait_for(lock, Delay(), isDone)) return;
  do {
    double const seconds = Seconds(std::chrono::steady_clock::now() - start).count();
    std::fprintf(stderr, "\r%s, %.1f s\x1b[K", what_.c_str(), seconds);
    std::fflush(stderr);
  } while (!ended_.wait_for(lock, kBetween, isDone));
  std::fputs("\r\x1b[K", stderr);
}

// --- work that the library follows ---------------------------------------------------------------

FollowedWork::FollowedWork(std::string what)
    : what_(std::move(what)),
      enabled_(ErrorIsTerminal()),
      start_(Clock::now()),
      next_(start_ + Delay()) {}

FollowedWork::~FollowedWork() { ClearProgressLine(); }

void FollowedWork::BeginPart(std::string what, double part) {
  what_ = std::move(what);
  first_ += part_ < 1.0 ? part_ : 0.0;
  part_ = part;
}

bool FollowedWork::OnProgress(double share) noexcept {
  if (enabled_ && Clock::now() >= next_) {
    Draw(std::min(first_ + part_ * share, 1.0));
    next_ = Clock::now() + std::min(kBetween, Delay());
  }
  return !interrupt_.IsInterrupted();
}

void FollowedWork::Draw(double share) {
  constexpr double kLeastShare = 0.02;  // less says nothing about the rest
  DrawBar(share);
  std::fprintf(stderr, "%s", what_.c_str());
  if (share >= kLeastShare) {
    double const past = std::chrono::duration<double>(Clock::now() - start_).count();
    std::fprintf(stderr, ", %s left", TimeText(past * (1.0 - share) / share).c_str());
  }
  std::fputs("\x1b[K", stderr);
  std::fflush(stderr);
}

void FollowedWork::EndIfCancelled(std::string const& outcome) const {
  if (interrupt_.IsInterrupted()) throw Cancelled("cancelled; " + outcome);
}

}  // namespace zelhost
