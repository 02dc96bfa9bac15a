// A digest of a file, by which a change of it is noticed.
#pragma once

#include <filesystem>
#include <string>

namespace zel::desk {

// Returns "SIZE:DIGEST", the size in bytes and the 64-bit FNV-1a hash of all bytes as 16
// hexadecimal digits. It protects against accidents, not against somebody who forges a file. Throws
// std::filesystem::filesystem_error if the file cannot be read.
std::string DigestOf(std::filesystem::path const& file);

}  // namespace zel::desk
