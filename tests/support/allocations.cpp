#include "tests/support/allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace zel::test {
namespace {

bool watching = false;
int refusedFrom = 0;
int requested = 0;
int freed = 0;

void* Take(std::size_t size) noexcept {
  if (watching && ++requested >= refusedFrom && refusedFrom != 0) return nullptr;
  return std::malloc(size == 0 ? 1 : size);
}

void* TakeOrThrow(std::size_t size) {
  void* const memory = Take(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void Give(void* memory) noexcept {
  if (watching && memory != nullptr) ++freed;
  std::free(memory);
}

}  // namespace

AllocationWatch::AllocationWatch(int refuseFrom) noexcept {
  refusedFrom = refuseFrom;
  requested = 0;
  freed = 0;
  watching = true;
}

AllocationWatch::~AllocationWatch() { watching = false; }

int AllocationWatch::Requested() const noexcept { return requested; }
int AllocationWatch::Freed() const noexcept { return freed; }

}  // namespace zel::test

void* operator new(std::size_t size) { return zel::test::TakeOrThrow(size); }
void* operator new[](std::size_t size) { return zel::test::TakeOrThrow(size); }
void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
  return zel::test::Take(size);
}
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept {
  return zel::test::Take(size);
}
void operator delete(void* memory) noexcept { zel::test::Give(memory); }
void operator delete[](void* memory) noexcept { zel::test::Give(memory); }
void operator delete(void* memory, std::size_t) noexcept { zel::test::Give(memory); }
void operator delete[](void* memory, std::size_t) noexcept { zel::test::Give(memory); }
