// A walk over the files of a folder, and of the folders below it.
//
// There is one walk at a time in a process, which is not guarded: beginning one ends the one
// before. Nothing that hosts reach uses it. A folder is listed whole, sorted by name, when the walk
// comes to it, so callers may delete the files they are handed.
#pragma once

#include <string>
#include <string_view>

namespace zel {

// `pattern` as in wildcard.h, at most 259 characters.
void FindFilesBegin(std::string_view folder, std::string_view pattern, bool recursive);
// The full path of the next file; false at the end. Sub-folders are visited newest first. A folder
// with an attribute of its own (read-only, a link) is not descended into and is handed out like a
// file.
bool FindFilesNext(std::string& path);
void FindFilesEnd();

}  // namespace zel
