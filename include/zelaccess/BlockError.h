// BlockError: a block error as an exception with file, address and reason, for hosts.
//
// A block that cannot be read or written is thrown as an `unsigned long` (LibFile.h), which
// `catch (std::exception const&)` does not catch. Around a piece of work WithBlockErrors does:
//
//   try {
//     zel::WithBlockErrors([&] { maint->WriteItem(bank, "SAMPLE", key); });
//   } catch (std::exception const& error) {
//     std::puts(error.what());   // sample.lb1: block 111000014 cannot be written; the disk is ...
//   }
#ifndef ZELACCESS_BLOCKERROR_H
#define ZELACCESS_BLOCKERROR_H

#include <stdexcept>
#include <string>
#include <utility>

#include "zelaccess/Export.h"

namespace zel {

struct ZelBlockErrorInfo {
  char file[260] = {};    // path of the file with the block, as far as it is known; else empty
  char reason[100] = {};  // why, in a few words
};

// What is known of a block error just caught. To be asked in the thread that caught it, before the
// next call of the library; of any other address it gives an empty file and a general reason.
ZEL_API void GetBlockErrorInfo(unsigned long address, ZelBlockErrorInfo& info);

// The address of what is not a block: no block could be had.
inline constexpr unsigned long kNoBlockAddress = 990000000;

class BlockError : public std::runtime_error {
 public:
  explicit BlockError(unsigned long address) : BlockError(address, InfoOf(address)) {}

  unsigned long Address() const noexcept { return address_; }
  char const* File() const noexcept { return info_.file; }
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

// Does the work and gives its result; a block error leaves it as a BlockError.
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
