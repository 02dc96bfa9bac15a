#include "frame/date_text.h"

#include <cstdio>
#include <ctime>

#include "frame/platform/system.h"

namespace zel {

namespace {

constexpr int kFirstYear = 1900;
constexpr char const* kMonths[12] = {"January",   "February", "March",    "April",
                                     "May",       "June",     "July",     "August",
                                     "September", "October",  "November", "December"};
constexpr int kShortMonth = 3;
constexpr int kLongMonth = 9;

std::tm Today() { return platform::LocalTime(std::time(nullptr)); }

// Today's date, with at most `letters` letters of the month's name.
std::string DateText(int letters) {
  std::tm const day = Today();
  char text[25];
  std::snprintf(text, sizeof text, "%02d %.*s %d", day.tm_mday, letters, kMonths[day.tm_mon],
                day.tm_year + kFirstYear);
  return text;
}

}  // namespace

std::string TodayText() { return DateText(kShortMonth); }

std::string LongTodayText() { return DateText(kLongMonth); }

int CurrentYear() { return Today().tm_year + kFirstYear; }

}  // namespace zel
