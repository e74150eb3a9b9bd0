#include "platform/memory/MemoryCalendar.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace platform::memory {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr std::uint64_t kStepsPerMillisecond = 10000;
constexpr std::uint64_t kMillisecondsPerDay = std::uint64_t{24} * 60 * 60 * 1000;
constexpr sys_days kFileTimesStart = std::chrono::year{1601} / 1 / 1;
constexpr sys_days kDatesStart = std::chrono::year{1899} / 12 / 30;
constexpr int kSecondsPerDay = 24 * 60 * 60;
constexpr int kSecondsPerHour = 60 * 60;
constexpr int kNoon = 12;

std::string dayText(sys_days day) {
  const year_month_day fields{day};
  return std::to_string(static_cast<unsigned>(fields.month())) + '/' +
         std::to_string(static_cast<unsigned>(fields.day())) + '/' + std::to_string(static_cast<int>(fields.year()));
}

std::string timeText(int secondOfDay) {
  const int hour = secondOfDay / kSecondsPerHour;
  const int shownHour = hour % kNoon == 0 ? kNoon : hour % kNoon;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%d:%02d:%02d %s", shownHour, secondOfDay / 60 % 60, secondOfDay % 60,
                hour < kNoon ? "AM" : "PM");
  return text.data();
}

}  // namespace

bool MemoryCalendar::fileTimeToSystemTime(const FileTime& time, SystemTime& fields) {
  constexpr std::uint32_t kHighestBit = 0x80000000;
  if (faults_.nextFault("fileTimeToSystemTime") || (time.high & kHighestBit) != 0) return false;
  const std::uint64_t milliseconds = ((std::uint64_t{time.high} << 32) | time.low) / kStepsPerMillisecond;
  const sys_days day = kFileTimesStart + days(milliseconds / kMillisecondsPerDay);
  const auto ofDay = static_cast<std::uint32_t>(milliseconds % kMillisecondsPerDay);
  const year_month_day date{day};
  fields.year = static_cast<std::uint16_t>(static_cast<int>(date.year()));
  fields.month = static_cast<std::uint16_t>(static_cast<unsigned>(date.month()));
  fields.dayOfWeek = static_cast<std::uint16_t>(std::chrono::weekday{day}.c_encoding());
  fields.day = static_cast<std::uint16_t>(static_cast<unsigned>(date.day()));
  fields.hour = static_cast<std::uint16_t>(ofDay / (kSecondsPerHour * 1000));
  fields.minute = static_cast<std::uint16_t>(ofDay / 60000 % 60);
  fields.second = static_cast<std::uint16_t>(ofDay / 1000 % 60);
  fields.milliseconds = static_cast<std::uint16_t>(ofDay % 1000);
  return true;
}

std::string MemoryCalendar::textOf(Date date) {
  faults_.nextFault("textOf");
  const double whole = std::trunc(date);
  const auto secondOfDay = static_cast<int>(std::lround(std::abs(date - whole) * kSecondsPerDay));
  if (whole == 0) return timeText(secondOfDay);
  const std::string day = dayText(kDatesStart + days(static_cast<int>(whole)));
  return secondOfDay == 0 ? day : day + ' ' + timeText(secondOfDay);
}

}  // namespace platform::memory
