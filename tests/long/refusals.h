// Refuses requests for memory and operations on files within this program, one or all from one on.
//
// The program has its own malloc, so that every library in it is refused, and its own functions for
// files. Under the address sanitizer, which brings its own malloc, only operator new is refused.
#pragma once

namespace zel::test {

enum class Refused {
  kNothing,
  kMemory,
  kFiles,   // every operation on a file
  kGrowth,  // those that can need room on disk
};

struct Refusal {
  Refused what = Refused::kNothing;
  long at = 0;  // counts from 1; 0 refuses nothing and counts
  bool forEver = false;
  int error = 0;         // what a refused operation reports; 0: half of it is done
  bool isMapped = true;  // false: files cannot be mapped, so that each access is an operation
};

// One at a time, in a program of one thread. The time stands still meanwhile, so that what is
// written is the same each time.
class Refusing {
 public:
  explicit Refusing(Refusal const& refusal) noexcept;
  Refusing(Refusing const&) = delete;
  Refusing& operator=(Refusing const&) = delete;
  ~Refusing();

  // Ends it early; what is counted stays.
  static void End() noexcept;
  // Requests or operations since the last one began.
  static long Count() noexcept;
  // Blocks of memory that the program holds; 0 under the address sanitizer, which finds those that
  // are lost.
  static long Held() noexcept;
  // Name of the operation that was refused first; empty for memory.
  static char const* Operation() noexcept;
};

}  // namespace zel::test
