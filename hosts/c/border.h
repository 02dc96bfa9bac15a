// The border between C and C++: arguments, texts, statuses and reasons. No exception crosses it.
#pragma once

#include <zelaccess/DeskTable.h>
#include <zelaccess/zel.h>

#include <cstddef>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelc {

namespace desk = zel::desk;

inline constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// Thrown to end a call with a status. Its text is cut rather than allocated.
struct Refusal {
  Refusal(zel_status status, char const* before, char const* name, char const* after) noexcept;
  Refusal(zel_status code, std::string const& reason) noexcept
      : Refusal(code, reason.c_str(), "", "") {}

  zel_status status;
  char text[1024];
};

// Sets the thread's reason from the exception that is being handled, and returns its status.
zel_status StatusOfException() noexcept;
// Copies the thread's reason, which it leaves as it is.
zel_status CopyReason(char* text, std::size_t size, std::size_t* length) noexcept;

// Does the work of a call.
template <typename Work>
zel_status Guarded(Work const& work) noexcept {
  try {
    work();
    return ZEL_OK;
  } catch (...) {
    return StatusOfException();
  }
}

// An argument that must not be null.
template <typename T>
T& Need(T* argument, char const* name) {
  if (argument == nullptr) throw Refusal(ZEL_NULL_ARGUMENT, "", name, " is null");
  return *argument;
}

// An array, which may be null if it has no elements.
template <typename T>
T* NeedArray(T* array, std::size_t count, char const* name) {
  if (count != 0) Need(array, name);
  return array;
}

inline std::string NeedText(char const* text, char const* name) { return &Need(text, name); }
inline std::string TextOrEmpty(char const* text) { return text == nullptr ? "" : text; }
std::vector<std::string> NeedWords(char const* const* words, std::size_t count, char const* name);

// A time to wait, in seconds.
double NeedSeconds(double seconds, char const* name);
// A number of an enumeration whose values are those from `first` to `last`.
std::int32_t NeedAmong(std::int32_t value, std::int32_t first, std::int32_t last, char const* name);

// Throws a Refusal unless a structure of the host can be used for one of the library: it has at
// least the members of the library's, and those that the library does not know are zero. A host
// that was compiled with a later version of the headers has such a structure.
void NeedOptions(void const* given, std::size_t size, std::size_t own);

// The options of a call; the defaults for null.
template <typename Options>
Options OptionsOf(Options const* given) {
  if (given == nullptr) return Options{};
  NeedOptions(given, given->size, sizeof(Options));
  return *given;
}

// Whether an enumerator of the C interface has the number of one of the library.
template <typename Mine, typename Theirs>
constexpr bool Agree(Mine mine, Theirs theirs) noexcept {
  return static_cast<std::int64_t>(mine) == static_cast<std::int64_t>(theirs);
}

// Starts the library; throws a Refusal if its units cannot be loaded.
void Start();

// A text as UTF-8: a byte that is not part of a character becomes U+FFFD.
std::string Utf8(std::string_view text);
// Copies a text to a buffer of the host.
void CopyText(std::string_view text, char* buffer, std::size_t size, std::size_t* length);

// Makes an object of the host.
template <typename Handle, typename Make>
zel_status MakeHandle(Handle** handle, char const* name, Make const& make) noexcept {
  return Guarded([&] {
    Need(handle, name) = nullptr;
    *handle = make().release();
  });
}

// Ends an object of the host.
template <typename Handle>
zel_status EndHandle(Handle** handle, char const* name) noexcept {
  return Guarded([&] {
    Need(Need(handle, name), name);
    delete std::exchange(*handle, nullptr);
  });
}

// A table with columns of pure numbers and texts.
desk::Table EmptyTable(char const* name, std::initializer_list<char const*> headings);
// A result of a call as an object of the host.
std::unique_ptr<zel_table> AsHandle(desk::Table table);
// Passes a table to a host, which may not want it.
void Give(desk::Table table, zel_table** handle);

}  // namespace zelc

struct zel_table {
  zel::desk::Table table;
};
