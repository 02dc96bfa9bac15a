#include "output/progress.h"

#include <unistd.h>

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

}  // namespace

Progress::Progress(std::string what, std::size_t total)
    : what_(std::move(what)),
      total_(total),
      enabled_(total > 0 && ::isatty(STDERR_FILENO) == 1),
      next_(enabled_ ? Clock::now() + Delay() : Clock::time_point()) {}

Progress::~Progress() {
  if (drawn_) std::fputs("\r\x1b[K", stderr);
}

void Progress::Step() {
  ++done_;
  if (!enabled_ || Clock::now() < next_) return;
  Draw();
  next_ = Clock::now() + kBetween;
}

void Progress::Draw() {
  drawn_ = true;
  std::size_t const part = std::min(done_, total_);
  std::string bar(part * kBarWidth / total_, '#');
  bar.resize(kBarWidth, '.');
  std::fprintf(stderr, "\r[%s] %3zu %% %s\x1b[K", bar.c_str(), part * 100 / total_, what_.c_str());
  std::fflush(stderr);
}

Waiting::Waiting(std::string what) : what_(std::move(what)) {
  if (::isatty(STDERR_FILENO) == 1) thread_ = std::thread([this] { Run(); });
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

}  // namespace zelhost
