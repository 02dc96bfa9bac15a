// Counts the program's allocations and deallocations, and refuses them on request.
//
// A program that uses AllocationWatch has its own operators new and delete.
#pragma once

namespace zel::test {

// One at a time. Counts from its construction on.
class AllocationWatch {
 public:
  // Refuses every request from number `refuseFrom` on, which counts from 1; 0 refuses none.
  explicit AllocationWatch(int refuseFrom = 0) noexcept;
  AllocationWatch(AllocationWatch const&) = delete;
  AllocationWatch& operator=(AllocationWatch const&) = delete;
  ~AllocationWatch();

  int Requested() const noexcept;
  int Freed() const noexcept;
};

}  // namespace zel::test
