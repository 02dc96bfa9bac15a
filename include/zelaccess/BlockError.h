/// \file
/// BlockError: a block error as an exception with file, address and reason, for hosts.
///
/// A block that cannot be read or written is thrown as an `unsigned long` (LibFile.h), which
/// `catch (std::exception const&)` does not catch. WithBlockErrors turns it into an exception that
/// it does:
///
///     try {
///       zel::WithBlockErrors([&] { maint->WriteItem(bank, "SAMPLE", key); });
///     } catch (std::exception const& error) {
///       std::puts(error.what());   // "sample.lb1: block 111000014 cannot be written; ..."
///     }
#ifndef ZELACCESS_BLOCKERROR_H
#define ZELACCESS_BLOCKERROR_H

#include <stdexcept>
#include <string>
#include <utility>

#include "zelaccess/Export.h"

namespace zel {

/// What is known about a block error.
struct ZelBlockErrorInfo {
  char file[260] = {};    ///< Path of the file with the block, as far as it is known; else empty.
  char reason[100] = {};  ///< Why, in a few words.
};

/// Reports what is known about a block error that was just caught. Call it in the thread that
/// caught the error, before the next call of the library.
/// \param address  the `unsigned long` that was caught
/// \param info     receives file and reason; an empty file and a general reason for any other
///                 address
ZEL_API void GetBlockErrorInfo(unsigned long address, ZelBlockErrorInfo& info);

/// The address in an error that is not about an existing block: no block could be allocated.
inline constexpr unsigned long kNoBlockAddress = 990000000;

/// A block error as an exception. Its text has the file, the address and the reason.
class BlockError : public std::runtime_error {
 public:
  /// Makes the exception for a block error that was just caught. The rules of GetBlockErrorInfo
  /// for the thread and the moment of the call apply.
  /// \param address  the `unsigned long` that was caught
  explicit BlockError(unsigned long address) : BlockError(address, InfoOf(address)) {}

  /// Returns the address.
  /// \return the block address; kNoBlockAddress when no block could be allocated
  unsigned long Address() const noexcept { return address_; }
  /// Returns the path of the file with the block.
  /// \return valid as long as this object lives; "" when not known; never null
  char const* File() const noexcept { return info_.file; }
  /// Returns the reason in a few words.
  /// \return valid as long as this object lives; never null
  char const* Reason() const noexcept { return info_.reason; }

 private:
  BlockError(unsigned long address, ZelBlockErrorInfo const& info)
      : std::runtime_error(TextOf(address, info)), address_(address), info_(info) {}

  static ZelBlockErrorInfo InfoOf(unsigned long address) {
    ZelBlockErrorInfo info;
    GetBlockErrorInfo(address, info);
    return info;
  }
  static std::string TextOf(unsigned long address, ZelBlockErrorInfo const& info) {
    std::string text = info.file;
    if (!text.empty()) text += ": ";
    if (address != kNoBlockAddress) text += "block " + std::to_string(address) + " ";
    return text + info.reason;
  }

  unsigned long address_;
  ZelBlockErrorInfo info_;
};

/// Calls `work`. If that throws a block error, throws it as a BlockError.
/// \param work  called once, without arguments
/// \return what the work returns
template <typename Work>
decltype(auto) WithBlockErrors(Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (unsigned long address) {
    throw BlockError(address);
  }
}

}  // namespace zel

#endif  // ZELACCESS_BLOCKERROR_H
