// Progress of long work on standard error.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

namespace zelhost {

// Shows nothing unless standard error is a terminal, and nothing for work that is done in half a
// second. The environment variable ZEL_PROGRESS_DELAY sets another time, in milliseconds.
class Progress {
 public:
  // `total` steps of doing `what`, e.g. "copying NRTL:VLE".
  Progress(std::string what, std::size_t total);
  Progress(Progress const&) = delete;
  Progress& operator=(Progress const&) = delete;
  // Clears the bar.
  ~Progress();

  void Step();

 private:
  using Clock = std::chrono::steady_clock;

  void Draw();

  std::string what_;
  std::size_t total_;
  std::size_t done_ = 0;
  bool enabled_;
  bool drawn_ = false;
  Clock::time_point next_;
};

// A line with the elapsed seconds, for work that does not report its progress. On a terminal only,
// as above.
class Waiting {
 public:
  explicit Waiting(std::string what);
  Waiting(Waiting const&) = delete;
  Waiting& operator=(Waiting const&) = delete;
  // Clears the line.
  ~Waiting();

 private:
  void Run();

  std::string what_;
  bool done_ = false;
  std::mutex mutex_;
  std::condition_variable ended_;
  std::thread thread_;
};

}  // namespace zelhost
