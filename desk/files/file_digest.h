// A digest of a file, by which a change of it is noticed.
#pragma once

#include <filesystem>
#include <string>

namespace zel::desk {

// Returns "SIZE:DIGEST", the size in bytes and a 64-bit hash of all bytes as 16 hexadecimal digits.
// Zeros count only by their place, so that holes need not be read. The digest protects against
// accidents, not against forged files. Throws std::filesystem::filesystem_error if the file cannot
// be read.
std::string DigestOf(std::filesystem::path const& file);

}  // namespace zel::desk
