// The calendar of the in-memory machine, whose locale is that of the United States.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <ctime>
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
    const auto steps = static_cast<std::int64_t>((std::uint64_t{time.high} << 32) | time.low);
    const std::tm all = fieldsOf(steps / kStepsPerSecond + kDaysFrom1970To1601 * kDay);
    const auto field = [](auto value) { return static_cast<std::uint16_t>(value); };
    fields = {.year = field(all.tm_year + 1900),
              .month = field(all.tm_mon + 1),
              .dayOfWeek = field(all.tm_wday),
              .day = field(all.tm_mday),
              .hour = field(all.tm_hour),
              .minute = field(all.tm_min),
              .second = field(all.tm_sec),
              .milliseconds = field(steps % kStepsPerSecond / 10000)};
    return true;
  }

  std::string textOf(Date date) override {
    const double whole = std::trunc(date);
    const auto second = std::lround(std::abs(date - whole) * kDay);
    const std::tm fields = fieldsOf((static_cast<std::int64_t>(whole) + kDaysFrom1970To1899) * kDay + second);
    std::string format = whole == 0 ? "" : "%-m/%-d/%Y";
    if (whole == 0 || second != 0) format += (whole == 0 ? "" : " ") + std::string("%-I:%M:%S %p");
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format.c_str(), &fields)};
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
  static constexpr std::int64_t kDay = 24 * 60 * 60;  // seconds
  static constexpr std::int64_t kStepsPerSecond = 10000000;
  static constexpr std::int64_t kDaysFrom1970To1601 = -134774;  // 1 January
  static constexpr std::int64_t kDaysFrom1970To1899 = -25569;   // 30 December

  // Of a number of seconds since 1 January 1970, UTC.
  static std::tm fieldsOf(std::int64_t seconds) {
    const auto time = static_cast<std::time_t>(seconds);
    std::tm fields = {};
    gmtime_r(&time, &fields);
    return fields;
  }

  MemoryFaults& faults_;
};

}  // namespace platform::memory
