// List files: texts with one row per line and columns separated by tabs that hold a list and its
// sort orders; docs/lists.md describes the format.
#pragma once

#include <string>
#include <string_view>

#include "lists/comp_list.h"

namespace zel {

// Reads a file into an empty list. False when it cannot be read.
bool ReadListFile(std::string_view path, CompList_i& list);

// Writes a list: five columns in short form, twelve otherwise. False when the file cannot be
// opened.
bool WriteListFile(std::string const& path, CompList_i& list, bool shortForm);

// Returns a row as a line of twelve columns.
std::string ListLine(CompList_i& list, std::size_t row);

}  // namespace zel
