// What this system forbids in the name of a file.
#pragma once

namespace zel::platform {

enum class FileNames {
  kPosix,   // "/"
  kWindows  // `<>:"/\|?*`, control characters, a blank or a point at the end, and names of devices
};

#ifdef _WIN32
inline constexpr FileNames kFileNames = FileNames::kWindows;
#else
inline constexpr FileNames kFileNames = FileNames::kPosix;
#endif

}  // namespace zel::platform
