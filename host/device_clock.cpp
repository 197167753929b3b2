#include "host/device_clock.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>

namespace host {
namespace {

using namespace std::chrono;

constexpr const char* weekdayNames[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                        "Thursday", "Friday", "Saturday"};
constexpr const char* monthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                      "July",    "August",   "September", "October", "November", "December"};

constexpr sys_days firstDay = year{2007} / January / 9;
constexpr auto start = firstDay + 9h + 41min;

auto timeAt(CFTimeInterval now) { return start + floor<minutes>(duration<double>(now)); }

constexpr CFTimeInterval secondsPerMinute = 60;

}  // namespace

CFTimeInterval nextClockChange(CFTimeInterval now) {
  return (std::floor(now / secondsPerMinute) + 1) * secondsPerMinute;
}

std::string clockText(CFTimeInterval now) {
  const auto time = timeAt(now);
  const hh_mm_ss sinceMidnight(time - floor<days>(time));
  return fmt::format("{}:{:02}", sinceMidnight.hours().count(), sinceMidnight.minutes().count());
}

std::string dateText(CFTimeInterval now) {
  const auto day = floor<days>(timeAt(now));
  const year_month_day date(day);
  return fmt::format("{}, {} {}", weekdayNames[weekday(day).c_encoding()],
                     monthNames[static_cast<unsigned>(date.month()) - 1], static_cast<unsigned>(date.day()));
}

}  // namespace host
