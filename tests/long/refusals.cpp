#include "tests/long/refusals.h"

#undef _FORTIFY_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdlib>
#include <ctime>
#include <new>

#include "tests/support/sanitizers.h"

namespace zel::test {
namespace {

Refusal current;
bool watching = false;
long count = 0;
long held = 0;
char const* operation = "";

bool IsNext() noexcept {
  ++count;
  return current.at != 0 && (count == current.at || (current.forEver && count > current.at));
}

bool IsMemoryRefused() noexcept {
  if (!watching || current.what != Refused::kMemory || !IsNext()) return false;
  errno = ENOMEM;
  return true;
}

[[maybe_unused]] void* Taken(void* memory) noexcept {
  if (memory != nullptr) ++held;
  return memory;
}

enum class Kind { kOther, kTransfer, kGrowth, kGrowingTransfer };

bool IsTransfer(Kind kind) noexcept {
  return kind == Kind::kTransfer || kind == Kind::kGrowingTransfer;
}
bool IsGrowth(Kind kind) noexcept {
  return kind == Kind::kGrowth || kind == Kind::kGrowingTransfer;
}

bool IsCounted(Kind kind) noexcept {
  if (!watching) return false;
  if (current.what == Refused::kGrowth) return IsGrowth(kind);
  if (current.what != Refused::kFiles) return false;
  return current.error != 0 || IsTransfer(kind);
}

// True if the operation is to fail; errno is set.
bool IsRefused(char const* name, Kind kind) noexcept {
  if (!IsCounted(kind) || !IsNext()) return false;
  if (*operation == '\0') operation = name;
  if (current.error == 0) return false;
  errno = current.error;
  return true;
}

// The bytes to transfer: of the one that is cut short, half.
std::size_t Part(long before, std::size_t size) noexcept {
  bool const isCut = watching && current.error == 0 && count != before && current.at != 0 &&
                     (count == current.at || (current.forEver && count > current.at));
  return isCut && size > 1 ? size / 2 : size;
}

bool IsMapRefused() noexcept { return watching && !current.isMapped; }

template <typename Function>
Function* Real(Function*, char const* name) noexcept {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

Refusing::Refusing(Refusal const& refusal) noexcept {
  current = refusal;
  count = 0;
  operation = "";
  watching = true;
}

Refusing::~Refusing() { End(); }
void Refusing::End() noexcept { watching = false; }
long Refusing::Count() noexcept { return count; }
long Refusing::Held() noexcept { return held; }
char const* Refusing::Operation() noexcept { return operation; }

}  // namespace zel::test

using namespace zel::test;

// The function of the system library with this name.
#define ZEL_REAL(name)                              \
  (*[] {                                            \
    static auto* const real = Real(&::name, #name); \
    return real;                                    \
  }())

extern "C" {

// The last parameter of these two is there only when the flags or the command need it; a caller
// that leaves it out passes whatever is in its place, which is not used.
int open(char const* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  auto const mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : mode_t{0};
  va_end(rest);
  Kind const kind = (flags & O_CREAT) != 0 ? Kind::kGrowth : Kind::kOther;
  return IsRefused("open", kind) ? -1 : ZEL_REAL(open)(path, flags, mode);
}
int fcntl(int file, int command, ...) {
  va_list rest;
  va_start(rest, command);
  void* const argument = va_arg(rest, void*);
  va_end(rest);
  return IsRefused("fcntl", Kind::kOther) ? -1 : ZEL_REAL(fcntl)(file, command, argument);
}
ssize_t read(int file, void* to, std::size_t size) {
  long const before = count;
  if (IsRefused("read", Kind::kTransfer)) return -1;
  return ZEL_REAL(read)(file, to, Part(before, size));
}
ssize_t pread(int file, void* to, std::size_t size, off_t at) {
  long const before = count;
  if (IsRefused("pread", Kind::kTransfer)) return -1;
  return ZEL_REAL(pread)(file, to, Part(before, size), at);
}
ssize_t write(int file, void const* from, std::size_t size) {
  long const before = count;
  if (IsRefused("write", Kind::kGrowingTransfer)) return -1;
  return ZEL_REAL(write)(file, from, Part(before, size));
}
ssize_t pwrite(int file, void const* from, std::size_t size, off_t at) {
  long const before = count;
  if (IsRefused("pwrite", Kind::kGrowingTransfer)) return -1;
  return ZEL_REAL(pwrite)(file, from, Part(before, size), at);
}
int ftruncate(int file, off_t size) noexcept {
  return IsRefused("ftruncate", Kind::kGrowth) ? -1 : ZEL_REAL(ftruncate)(file, size);
}
int fallocate(int file, int mode, off_t at, off_t size) {
  if (IsMapRefused()) {
    errno = EOPNOTSUPP;
    return -1;
  }
  return IsRefused("fallocate", Kind::kGrowth) ? -1 : ZEL_REAL(fallocate)(file, mode, at, size);
}
// Nothing in these tests outlives the system.
int fdatasync(int) { return IsRefused("fdatasync", Kind::kGrowth) ? -1 : 0; }
void* mmap(void* at, std::size_t size, int protection, int flags, int file, off_t from) noexcept {
  if (file >= 0 && IsMapRefused()) {
    errno = ENODEV;
    return MAP_FAILED;
  }
  if (file >= 0 && IsRefused("mmap", Kind::kOther)) return MAP_FAILED;
  return ZEL_REAL(mmap)(at, size, protection, flags, file, from);
}
int fstat(int file, struct stat* status) noexcept {
  return IsRefused("fstat", Kind::kOther) ? -1 : ZEL_REAL(fstat)(file, status);
}
int stat(char const* path, struct stat* status) noexcept {
  return IsRefused("stat", Kind::kOther) ? -1 : ZEL_REAL(stat)(path, status);
}
int unlink(char const* path) noexcept {
  return IsRefused("unlink", Kind::kOther) ? -1 : ZEL_REAL(unlink)(path);
}
int mkostemp(char* pattern, int flags) {
  return IsRefused("mkostemp", Kind::kGrowth) ? -1 : ZEL_REAL(mkostemp)(pattern, flags);
}
DIR* opendir(char const* path) {
  return IsRefused("opendir", Kind::kOther) ? nullptr : ZEL_REAL(opendir)(path);
}
std::time_t time(std::time_t* to) noexcept {
  if (!watching) return ZEL_REAL(time)(to);
  constexpr std::time_t kThen = 1'700'000'000;
  if (to != nullptr) *to = kThen;
  return kThen;
}

#if !ZEL_ADDRESS_SANITIZER
// The functions of the system library, under its internal names.
// NOLINTBEGIN(bugprone-reserved-identifier)
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);

void __libc_free(void* memory);
// NOLINTEND(bugprone-reserved-identifier)

void* malloc(std::size_t size) noexcept {
  return IsMemoryRefused() ? nullptr : Taken(__libc_malloc(size));
}
void* calloc(std::size_t number, std::size_t size) noexcept {
  return IsMemoryRefused() ? nullptr : Taken(__libc_calloc(number, size));
}
void* realloc(void* old, std::size_t size) noexcept {
  if (size != 0 && IsMemoryRefused()) return nullptr;
  void* const memory = __libc_realloc(old, size);
  if (old == nullptr) return Taken(memory);
  if (size == 0) --held;
  return memory;
}
void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return IsMemoryRefused() ? nullptr : Taken(__libc_memalign(alignment, size));
}
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) noexcept {
  if (IsMemoryRefused()) return ENOMEM;
  *memory = Taken(__libc_memalign(alignment, size));
  return *memory == nullptr ? ENOMEM : 0;
}
void free(void* memory) noexcept {
  if (memory != nullptr) --held;
  __libc_free(memory);
}
#endif
}

#if ZEL_ADDRESS_SANITIZER
void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
  return IsMemoryRefused() ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void* operator new(std::size_t size) {
  void* const memory = operator new(size, std::nothrow);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  void* memory = nullptr;
  if (IsMemoryRefused() ||
      ::posix_memalign(&memory, static_cast<std::size_t>(alignment), size) != 0) {
    throw std::bad_alloc();
  }
  return memory;
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, std::nothrow_t const& tag) noexcept {
  return operator new(size, tag);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
#endif
