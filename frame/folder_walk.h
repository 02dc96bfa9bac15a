// A walk over the files of a folder, and of the folders below it.
//
// A process has one walk at a time, without a lock: beginning a walk ends the previous one. No
// public operation uses it. Each folder is listed completely, sorted by name, when the walk reaches
// it, so callers may delete the files they receive.
#pragma once

#include <string>
#include <string_view>

namespace zel {

// `pattern` as in wildcard.h, at most 259 characters.
void FindFilesBegin(std::string_view folder, std::string_view pattern, bool recursive);
// The full path of the next file; false at the end. Sub-folders are visited newest first. A folder
// with a further attribute (read-only, a link) is not entered but returned like a file.
bool FindFilesNext(std::string& path);
void FindFilesEnd();

}  // namespace zel
