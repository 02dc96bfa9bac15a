// List files: text with a row a line, columns separated by tabs, which holds a list and its orders;
// docs/lists.md has the form.
#pragma once

#include <string>
#include <string_view>

#include "lists/comp_list.h"

namespace zel {

// Reads a file into a list that is empty. False when it cannot be read.
bool ReadListFile(std::string_view path, CompList_i& list);

// Writes a list: five columns in short form, twelve otherwise. False when the file cannot be
// opened.
bool WriteListFile(std::string const& path, CompList_i& list, bool shortForm);

// The line of a row in twelve columns.
std::string ListLine(CompList_i& list, std::size_t row);

}  // namespace zel
