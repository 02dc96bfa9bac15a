// Counts what the program takes from and gives back to the free store, and refuses on request.
//
// A program that names AllocationWatch gets operators new and delete of its own.
#pragma once

namespace zel::test {

// One at a time. Counts from its making on.
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
