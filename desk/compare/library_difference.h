// The differences between two libraries.
#pragma once

#include <functional>
#include <string>

#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

struct DifferenceOptions {
  std::string bank;             // compares only this bank, if it is not empty
  std::string first = "first";  // headings of the values in the two libraries
  std::string second = "second";
  // Called before the items of a bank are compared, with its name and the number of items, and with
  // an empty name after each item. May be empty.
  std::function<void(std::string const& bank, std::size_t items)> progress;
};

// A table "differences" with a row for each difference: the item (or a bank, or "library"), the
// field, its values in both libraries, and the members of the item (members.h). An item or bank
// that only one of them has is a row with the field "whole". Items that cannot be read are handed
// to Session::LeaveOut. Throws Failure.
Table DifferencesOf(Library const& one, Library const& other, DifferenceOptions const& options);

}  // namespace zel::desk
