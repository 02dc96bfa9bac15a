// Today's date as text, with English month names whatever the host's locale.
#pragma once

#include <string>

namespace zel {

// The local date in the form "14 Nov 2026".
std::string TodayText();
// The same in the form "14 November 2026".
std::string LongTodayText();
int CurrentYear();

}  // namespace zel
