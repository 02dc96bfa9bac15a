// The time that a document may take: a second of processor time for each 100 KB.
#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>

#include "tests/support/sanitizers.h"

namespace zel::test {

class TimeLimit {
 public:
  explicit TimeLimit(std::size_t bytes)
      : allowed_(std::max(static_cast<double>(bytes) / kBytesPerSecond, 1.0) * kSlowness),
        start_(std::clock()) {}

  double Allowed() const { return allowed_; }
  // Processor seconds since the start.
  double Used() const {
    return static_cast<double>(std::clock() - start_) / static_cast<double>(CLOCKS_PER_SEC);
  }
  bool Passed() const { return Used() > allowed_; }

 private:
  static constexpr double kBytesPerSecond = 100e3;
#if ZEL_ADDRESS_SANITIZER || ZEL_THREAD_SANITIZER || !defined(NDEBUG)
  static constexpr double kSlowness = 10.0;  // of a sanitizer build
#else
  static constexpr double kSlowness = 1.0;
#endif

  double allowed_;
  std::clock_t start_;
};

}  // namespace zel::test
