// Preloaded into a program, refuses one request for memory.
//
//   ZEL_REFUSE_AT=N      the N-th request, which counts from 1
//   ZEL_REQUESTS=FILE    the number of requests is written there when the program ends
#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

// The functions of the system library, under its internal names.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

std::atomic<bool> watching{false};
std::atomic<long> requests{0};
long refusedAt = 0;

long NumberIn(char const* variable) {
  char const* const text = std::getenv(variable);
  return text == nullptr ? 0 : std::atol(text);
}

bool IsRefused() {
  if (!watching) return false;
  if (++requests != refusedAt) return false;
  errno = ENOMEM;
  return true;
}

__attribute__((constructor)) void Begin() {
  refusedAt = NumberIn("ZEL_REFUSE_AT");
  watching = true;
}

__attribute__((destructor)) void End() {
  watching = false;
  char const* const path = std::getenv("ZEL_REQUESTS");
  if (path == nullptr) return;
  char text[32];
  int const length = std::snprintf(text, sizeof(text), "%ld\n", requests.load());
  int const file = ::open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (file < 0) return;
  static_cast<void>(::write(file, text, static_cast<std::size_t>(length)) == length);
  ::close(file);
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) { return IsRefused() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) {
  return IsRefused() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* old, std::size_t size) {
  return size != 0 && IsRefused() ? nullptr : __libc_realloc(old, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return IsRefused() ? nullptr : __libc_memalign(alignment, size);
}
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
  if (IsRefused()) return ENOMEM;
  *memory = __libc_memalign(alignment, size);
  return *memory == nullptr ? ENOMEM : 0;
}
}
