// Paths in folders; lists and removes folders. Where memory runs out, the iterators of
// std::filesystem end the program in their increment, and "/" of two paths frees a part of them
// twice in the C++ library of gcc 12; these functions throw std::bad_alloc.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace zel::desk {

// The path that "/" of two paths is: `name` alone if it is absolute or `folder` is empty.
std::filesystem::path Inside(std::filesystem::path const& folder,
                             std::filesystem::path const& name);

// Returns the names of the folder's entries, in no particular order. If `error` is set, these are
// the ones read before the error.
std::vector<std::string> NamesIn(std::filesystem::path const& folder, std::error_code& error);
// Throws std::filesystem::filesystem_error.
std::vector<std::string> NamesIn(std::filesystem::path const& folder);

// Removes a file, or a folder with everything in it; links are removed and not followed. A path
// that does not exist is not an error. After an error the rest is still removed; `error` receives
// the first error.
void RemoveTree(std::filesystem::path const& path, std::error_code& error);
// Throws std::filesystem::filesystem_error.
void RemoveTree(std::filesystem::path const& path);

}  // namespace zel::desk
