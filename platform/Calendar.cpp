#include "platform/Calendar.h"

#include <chrono>

namespace platform {
namespace {

constexpr std::chrono::sys_days kDayZero = std::chrono::year{1899} / 12 / 30;
constexpr std::chrono::year kFirstYear{100};
constexpr std::chrono::year kLastYear{9999};
constexpr double kSecondsPerDay = 24 * 60 * 60;

}  // namespace

Result<Date> dateOf(const SystemTime& time) {
  const std::chrono::year_month_day day{std::chrono::year{time.year}, std::chrono::month{time.month},
                                        std::chrono::day{time.day}};
  if (!day.ok() || day.year() < kFirstYear || day.year() > kLastYear) return failure(kTypeMismatch);
  const auto days = static_cast<double>((std::chrono::sys_days{day} - kDayZero).count());
  const double timeOfDay = ((time.hour * 60 + time.minute) * 60 + time.second) / kSecondsPerDay;
  return days < 0 ? days - timeOfDay : days + timeOfDay;
}

}  // namespace platform
