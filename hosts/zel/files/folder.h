// What is in a folder, and its removal. The iterators of std::filesystem end the program where
// memory runs out in their increment; these throw std::bad_alloc.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace zelhost {

// The names of its entries, in no order. With `error` set, what was read before the error.
std::vector<std::string> NamesIn(std::filesystem::path const& folder, std::error_code& error);
// Throws std::filesystem::filesystem_error.
std::vector<std::string> NamesIn(std::filesystem::path const& folder);

// Removes a file, or a folder with all that is in it; links are removed and not followed. What is
// not there is no error. On an error, which is the first one, the rest is removed all the same.
void RemoveTree(std::filesystem::path const& path, std::error_code& error);
// Throws std::filesystem::filesystem_error.
void RemoveTree(std::filesystem::path const& path);

}  // namespace zelhost
