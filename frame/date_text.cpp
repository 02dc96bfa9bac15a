#include "frame/date_text.h"

#include <cstdio>
#include <ctime>

namespace zel {

namespace {

constexpr int kFirstYear = 1900;
constexpr char kMonths[12][4] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::tm Today() {
  std::time_t const now = std::time(nullptr);
  std::tm day{};
  ::localtime_r(&now, &day);
  return day;
}

}  // namespace

std::string TodayText() {
  std::tm const day = Today();
  char text[25];
  std::snprintf(text, sizeof text, "%02d %s %d", day.tm_mday, kMonths[day.tm_mon],
                day.tm_year + kFirstYear);
  return text;
}

int CurrentYear() { return Today().tm_year + kFirstYear; }

}  // namespace zel
