#include "border.h"

#include <zelaccess/BlockError.h>
#include <zelaccess/DeskErrors.h>
#include <zelaccess/Module.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <exception>
#include <filesystem>
#include <new>

namespace zelc {
namespace {

constexpr std::size_t kReasonSize = 1024;

// The reason of the last failure. A plain array: setting it needs no memory.
thread_local char reason[kReasonSize] = "";

// The length of the character at the start of a text; 0 if it is not one.
std::size_t CharacterLength(std::string_view text) noexcept {
  auto const at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned const first = at(0);
  if (first < 0x80) return 1;
  std::size_t const length = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  if (length == 0 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((at(i) & 0xC0U) != 0x80) return 0;
  }
  // Overlong forms, surrogates, and numbers above U+10FFFF.
  unsigned const second = at(1);
  bool const isWrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                       (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
  return isWrong ? 0 : length;
}

// The bytes of UTF-8 that fit into `room` as whole characters.
std::size_t WholeCharacters(std::string_view text, std::size_t room) noexcept {
  if (text.size() <= room) return text.size();
  while (room > 0 && (static_cast<unsigned char>(text[room]) & 0xC0U) == 0x80) --room;
  return room;
}

// Copies a text that is UTF-8 to a buffer of the host.
zel_status CopyWhole(std::string_view text, char* buffer, std::size_t size,
                     std::size_t* length) noexcept {
  if (buffer == nullptr && size != 0) return ZEL_NULL_ARGUMENT;
  if (length != nullptr) *length = text.size();
  if (buffer == nullptr) return ZEL_OK;
  if (size == 0) return ZEL_TOO_SMALL;
  std::size_t const end = WholeCharacters(text, size - 1);
  std::memcpy(buffer, text.data(), end);
  buffer[end] = '\0';
  return end == text.size() ? ZEL_OK : ZEL_TOO_SMALL;
}

// Stores a text as UTF-8 without allocating; what does not fit is left out.
void SetReason(std::string_view text) noexcept {
  std::size_t end = 0;
  while (!text.empty()) {
    std::size_t const length = CharacterLength(text);
    std::string_view const next = length == 0 ? "\xEF\xBF\xBD" : text.substr(0, length);
    if (end + next.size() >= kReasonSize) break;
    std::memcpy(reason + end, next.data(), next.size());
    end += next.size();
    text.remove_prefix(std::max<std::size_t>(1, length));
  }
  reason[end] = '\0';
}

zel_status Failed(zel_status status, std::string_view text) noexcept {
  SetReason(text);
  return status;
}

zel_status FailedAtBlock(unsigned long address) noexcept {
  try {
    return Failed(ZEL_DAMAGED, zel::BlockError(address).what());
  } catch (...) {  // no memory for the text
    return Failed(ZEL_DAMAGED, "a block cannot be read or written");
  }
}

zel_status StatusOfOpen(desk::OpenError const& error) noexcept {
  return error.Code() == zel::openNotFound ? ZEL_NOT_FOUND : ZEL_CANNOT_OPEN;
}

// The most special class comes first.
zel_status StatusOfDeskError() {
  try {
    throw;
  } catch (desk::LibraryInUse const& error) {
    return Failed(ZEL_IN_USE, error.what());
  } catch (desk::OpenError const& error) {
    return Failed(StatusOfOpen(error), error.what());
  } catch (desk::DamagedLibrary const& error) {
    return Failed(ZEL_DAMAGED, error.what());
  } catch (desk::MissingComponent const& error) {
    return Failed(ZEL_MISSING_COMPONENT, error.what());
  } catch (desk::ConflictingIdentity const& error) {
    return Failed(ZEL_CONFLICTING_IDENTITY, error.what());
  } catch (desk::MissingItem const& error) {
    return Failed(ZEL_MISSING_ITEM, error.what());
  } catch (desk::MissingBank const& error) {
    return Failed(ZEL_MISSING_BANK, error.what());
  } catch (desk::MissingDatum const& error) {
    return Failed(ZEL_MISSING_DATUM, error.what());
  } catch (desk::UnknownWord const& error) {
    return Failed(ZEL_UNKNOWN_WORD, error.what());
  }
}

}  // namespace

Refusal::Refusal(zel_status code, char const* before, char const* name, char const* after) noexcept
    : status(code), text() {
  std::size_t end = 0;
  for (char const* const part : {before, name, after}) {
    std::size_t const length = std::min(std::strlen(part), sizeof text - 1 - end);
    std::memcpy(text + end, part, length);
    end += length;
  }
}

zel_status StatusOfException() noexcept {
  try {
    try {
      throw;
    } catch (Refusal const& refusal) {
      return Failed(refusal.status, refusal.text);
    } catch (unsigned long const address) {
      return FailedAtBlock(address);
    } catch (desk::Error const&) {
      return StatusOfDeskError();
    }
  } catch (std::bad_alloc const&) {
    return Failed(ZEL_NO_MEMORY, "memory has run out");
  } catch (std::filesystem::filesystem_error const& error) {
    bool const isMemory = error.code() == std::errc::not_enough_memory;
    return Failed(isMemory ? ZEL_NO_MEMORY : ZEL_FAILED, error.what());
  } catch (std::exception const& error) {
    return Failed(ZEL_FAILED, error.what());
  } catch (...) {
    return Failed(ZEL_FAILED, "an error without a text");
  }
}

zel_status CopyReason(char* text, std::size_t size, std::size_t* length) noexcept {
  return CopyWhole(reason, text, size, length);
}

std::vector<std::string> NeedWords(char const* const* words, std::size_t count, char const* name) {
  NeedArray(words, count, name);
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < count; ++i) {
    if (words[i] == nullptr) throw Refusal(ZEL_NULL_ARGUMENT, "an element of ", name, " is null");
    texts.emplace_back(words[i]);
  }
  return texts;
}

double NeedSeconds(double seconds, char const* name) {
  if (std::isnan(seconds)) throw Refusal(ZEL_BAD_ARGUMENT, "", name, " is not a number");
  return seconds;
}

std::int32_t NeedAmong(std::int32_t value, std::int32_t first, std::int32_t last,
                       char const* name) {
  if (value >= first && value <= last) return value;
  std::string const text = " is " + std::to_string(value) + ", not from " + std::to_string(first) +
                           " to " + std::to_string(last);
  throw Refusal(ZEL_BAD_ARGUMENT, "", name, text.c_str());
}

void NeedOptions(void const* given, std::size_t size, std::size_t own) {
  constexpr std::size_t kMostUnknown = 1024;  // a greater size was never set
  if (size < own || size - own > kMostUnknown || size % alignof(void*) != 0) {
    throw Refusal(ZEL_BAD_ARGUMENT, "", "options",
                  " has another size than the library's structure");
  }
  auto const* const bytes = static_cast<unsigned char const*>(given);
  bool const areZero =
      std::all_of(bytes + own, bytes + size, [](unsigned char byte) { return byte == 0; });
  if (areZero) return;
  throw Refusal(ZEL_BAD_ARGUMENT, "", "options",
                " has members that this version of the library does not know");
}

void Start() {
  char why[zel::kInitReasonSize] = "";
  if (!zel::TryInitZelAccess(why)) throw Refusal(ZEL_FAILED, why, "", "");
}

std::string Utf8(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    std::size_t const length = CharacterLength(text);
    result += length == 0 ? "\xEF\xBF\xBD" : text.substr(0, length);
    text.remove_prefix(std::max<std::size_t>(1, length));
  }
  return result;
}

void CopyText(std::string_view text, char* buffer, std::size_t size, std::size_t* length) {
  NeedArray(buffer, size, "text");
  std::string const whole = Utf8(text);
  if (CopyWhole(whole, buffer, size, length) == ZEL_OK) return;
  throw Refusal(ZEL_TOO_SMALL, "the text needs a buffer of " + std::to_string(whole.size() + 1) +
                                   " bytes, and has one of " + std::to_string(size));
}

desk::Table EmptyTable(char const* name, std::initializer_list<char const*> headings) {
  std::vector<desk::Column> columns;
  for (char const* const heading : headings) {
    desk::Column column;
    column.name = heading;
    columns.push_back(std::move(column));
  }
  return {name, std::move(columns)};
}

std::unique_ptr<zel_table> AsHandle(desk::Table table) {
  return std::unique_ptr<zel_table>(new zel_table{std::move(table)});
}

void Give(desk::Table table, zel_table** handle) {
  if (handle != nullptr) *handle = AsHandle(std::move(table)).release();
}

}  // namespace zelc

zel_status zel_reason(char* text, size_t size, size_t* length) {
  return zelc::CopyReason(text, size, length);
}
