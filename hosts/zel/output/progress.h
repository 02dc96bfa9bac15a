// Progress of long work on standard error.
#pragma once

#include <zelaccess/LibFile.h>
#include <zelaccess/Progress.h>

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

#include "output/system.h"

namespace zelhost {

// Removes the line of a progress from the terminal, before other text is written; it is drawn again
// when it next changes. Does nothing if no line is shown.
void ClearProgressLine();

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

// Ctrl-C was pressed during work that can be cancelled.
struct Cancelled final : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Work of the library that reports its share: a bar, the percentage and the time left, on a
// terminal only, as above. While this object exists, Ctrl-C cancels the work; a second one ends the
// program at once.
class FollowedWork final : public zel::ZelProgress {
 public:
  explicit FollowedWork(std::string what);
  FollowedWork(FollowedWork const&) = delete;
  FollowedWork& operator=(FollowedWork const&) = delete;
  // Clears the line.
  ~FollowedWork();

  // Begins a part: the following work is this share of the whole, and is shown under this name.
  void BeginPart(std::string what, double part);
  // Follows the work with a library until the returned object is destroyed.
  class Following {
   public:
    Following(FollowedWork& work, zel::LibFile& library) : library_(library) {
      zel::SetProgress(&library_, &work);
    }
    Following(Following const&) = delete;
    Following& operator=(Following const&) = delete;
    ~Following() { zel::SetProgress(&library_, nullptr); }

   private:
    zel::LibFile& library_;
  };
  bool OnProgress(double share) noexcept override;
  // Throws Cancelled with "cancelled" and this text if Ctrl-C was pressed.
  void EndIfCancelled(std::string const& outcome) const;

 private:
  using Clock = std::chrono::steady_clock;

  void Draw(double share);

  std::string what_;
  double first_ = 0.0;  // where the part begins
  double part_ = 1.0;
  bool enabled_;
  Clock::time_point start_;
  Clock::time_point next_;
  InterruptWatch interrupt_;
};

}  // namespace zelhost
