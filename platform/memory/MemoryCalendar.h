// The calendar of the in-memory machine, whose locale is that of the United States.
#pragma once

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/Calendar.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryCalendar final : public Calendar {
 public:
  explicit MemoryCalendar(MemoryFaults& faults) : faults_(faults) {}

  bool fileTimeToSystemTime(const FileTime& time, SystemTime& fields) override {
    constexpr std::uint32_t kHighestBit = 0x80000000;
    if (faults_.nextFault("fileTimeToSystemTime") || (time.high & kHighestBit) != 0) return false;
    const std::chrono::milliseconds elapsed(((std::uint64_t{time.high} << 32) | time.low) / 10000);
    const Day day = Day(std::chrono::year{1601} / 1 / 1) + std::chrono::floor<std::chrono::days>(elapsed);
    const std::chrono::year_month_day date{day};
    const std::chrono::hh_mm_ss ofDay(elapsed % std::chrono::days(1));
    const auto field = [](auto value) { return static_cast<std::uint16_t>(value); };
    fields.year = field(static_cast<int>(date.year()));
    fields.month = field(static_cast<unsigned>(date.month()));
    fields.dayOfWeek = field(std::chrono::weekday{day}.c_encoding());
    fields.day = field(static_cast<unsigned>(date.day()));
    fields.hour = field(ofDay.hours().count());
    fields.minute = field(ofDay.minutes().count());
    fields.second = field(ofDay.seconds().count());
    fields.milliseconds = field(ofDay.subseconds().count());
    return true;
  }

  std::string textOf(Date date) override {
    const double whole = std::trunc(date);
    const auto second = static_cast<int>(std::lround(std::abs(date - whole) * kSecondsPerDay));
    if (whole == 0) return timeText(second);
    const Day day = Day(std::chrono::year{1899} / 12 / 30) + std::chrono::days(static_cast<int>(whole));
    return second == 0 ? dayText(day) : dayText(day) + ' ' + timeText(second);
  }

  Result<Date> dateFrom(const std::string& text) override {
    if (const auto fault = faults_.nextFault("dateFrom", kTypeMismatch)) return failure(*fault);
    int month = 12;
    int day = 30;
    int year = 1899;
    const bool hasDay = std::sscanf(text.c_str(), "%d/%d/%d", &month, &day, &year) == 3;
    int hour = 12;
    int minute = 0;
    int second = 0;
    char half = 'A';
    const std::size_t time = hasDay ? text.find(' ') : 0;
    const bool hasTime = time != std::string::npos &&
                         std::sscanf(text.c_str() + time, "%d:%d:%d %c", &hour, &minute, &second, &half) == 4;
    if (!hasDay && !hasTime) return failure(kTypeMismatch);
    const auto field = [](int value) { return static_cast<std::uint16_t>(value); };
    return dateOf({.year = field(year),
                   .month = field(month),
                   .day = field(day),
                   .hour = field(hour % 12 + (half == 'P' ? 12 : 0)),
                   .minute = field(minute),
                   .second = field(second)});
  }

 private:
  using Day = std::chrono::sys_days;
  static constexpr int kSecondsPerDay = 24 * 60 * 60;

  static std::string dayText(Day day) {
    const std::chrono::year_month_day date{day};
    return std::to_string(static_cast<unsigned>(date.month())) + '/' +
           std::to_string(static_cast<unsigned>(date.day())) + '/' + std::to_string(static_cast<int>(date.year()));
  }
  static std::string timeText(int second) {
    const int hour = second / 3600;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%d:%02d:%02d %s", (hour + 11) % 12 + 1, second / 60 % 60, second % 60,
                  hour < 12 ? "AM" : "PM");
    return text.data();
  }

  MemoryFaults& faults_;
};

}  // namespace platform::memory
