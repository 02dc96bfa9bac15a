// What the desk needs of the system beyond std::filesystem.
#pragma once

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <system_error>

namespace zel::desk {

// Renames a file or folder, over what is there if both are files. Throws
// std::filesystem::filesystem_error.
void Rename(std::filesystem::path const& from, std::filesystem::path const& to);
// Renames a file, but never over an existing one, as far as the file system can tell. Throws
// std::filesystem::filesystem_error.
void MoveToFreePlace(std::filesystem::path const& from, std::filesystem::path const& to);

enum class Exchange { kDone, kNothingThere, kUnknown, kFailed };
// Exchanges two files in one step: not if there is nothing at `to`, nor on systems that do not know
// how. If that fails, the reason is in errno.
Exchange ExchangeFiles(std::string const& from, std::string const& to);
// Moves a file over another. False on failure, with the reason in errno.
bool MoveOver(std::string const& from, std::string const& to);

// Makes a file that does not exist yet and opens it for writing. Null on failure, with the reason
// in errno.
std::FILE* OpenNewFile(std::string const& path);
// Makes the file at `to` another name of the file at `from`, for a while. Throws
// std::filesystem::filesystem_error.
void LinkFile(std::filesystem::path const& from, std::filesystem::path const& to);

// Makes a folder that only this user can access.
std::error_code MakeOwnFolder(std::filesystem::path const& path);
// The same with a new name: that of `path`, in which six X at the end are replaced. False on
// failure, with the reason in errno.
bool MakeNewFolder(std::string& path);
// False for a folder that somebody else may have put in the place of one of ours: a link, or, where
// everybody may make files but not touch those of others, one that belongs neither to this user nor
// to the library's owner.
bool IsOwnFolder(std::filesystem::path const& folder, std::filesystem::path const& library);

// False if this user may not read the file, with the reason in errno.
bool MayBeRead(std::string const& path);
// The time in UTC.
std::tm UtcOf(std::time_t time);

}  // namespace zel::desk
