// Case folding and comparison of ASCII texts, without regard to the process's locale. Bytes above
// 127 are left alone.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zel {

constexpr char ToUpper(char c) noexcept {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr char ToLower(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Equality without regard to case.
constexpr bool SameText(std::string_view a, std::string_view b) noexcept {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (ToUpper(a[i]) != ToUpper(b[i])) return false;
  }
  return true;
}

inline std::string LowerText(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = ToLower(c);
  return lower;
}

// A text argument of a public operation: null counts as empty.
constexpr std::string_view TextOrEmpty(char const* text) noexcept {
  return text == nullptr ? std::string_view{} : std::string_view{text};
}

// Copies at most `size - 1` characters into a caller's buffer of `size` and terminates it.
inline void CopyText(std::string_view text, char* buffer, std::size_t size) noexcept {
  std::size_t const count = text.size() < size - 1 ? text.size() : size - 1;
  for (std::size_t i = 0; i < count; ++i) buffer[i] = text[i];
  buffer[count] = '\0';
}

// The same for an optional output: a null buffer is skipped.
inline void GiveText(std::string_view text, char* buffer, std::size_t size) noexcept {
  if (buffer != nullptr) CopyText(text, buffer, size);
}

template <typename Type, typename Value>
void Give(Type* out, Value const& value) noexcept {
  if (out != nullptr) *out = static_cast<Type>(value);
}

// True when all outputs of an operation are null, so that there is nothing to return.
template <typename... Types>
constexpr bool NothingWanted(Types*... outs) noexcept {
  return ((outs == nullptr) && ...);
}

}  // namespace zel
