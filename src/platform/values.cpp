#include "zelnor/platform/values.h"

#include "zelnor/platform/calendar.h"
#include "zelnor/platform/decimal.h"
#include "zelnor/platform/failure.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace zelnor {

// ---- Currency

Currency::Currency(double amount) : units_(DecimalOf(amount).Scaled(4)) {}

Currency Currency::FromPence(std::int64_t pence) {
  std::int64_t units = 0;
  if (__builtin_mul_overflow(pence, std::int64_t{100}, &units)) ThrowOverflow();
  return FromUnits(units);
}

Currency& Currency::operator+=(Currency other) {
  std::int64_t result = 0;
  if (__builtin_add_overflow(units_, other.units_, &result)) ThrowOverflow();
  units_ = result;
  return *this;
}

Currency& Currency::operator-=(Currency other) {
  std::int64_t result = 0;
  if (__builtin_sub_overflow(units_, other.units_, &result)) ThrowOverflow();
  units_ = result;
  return *this;
}

Currency Currency::operator-() const { return Currency() - *this; }

// ---- The calendar

std::int64_t DayCount(std::int64_t year, int month, std::int64_t day) {
  static constexpr std::array<int, 12> kDaysBefore = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  constexpr std::int64_t kDayZero =
      693594;  // 30 December 1899, counted from 31 December of the year before year 1
  // Leap days are counted by whole cycles of 400 years, so that years before year 1 need no case of their
  // own.
  const std::int64_t cycle = (year >= 0 ? year : year - 399) / 400;
  const std::int64_t in_cycle = year - cycle * 400;
  const bool leap = (in_cycle % 4 == 0 && in_cycle % 100 != 0) || in_cycle == 0;
  const std::int64_t past = in_cycle - 1;
  const std::int64_t leap_days = in_cycle == 0 ? -1 : past / 4 - past / 100;
  const std::int64_t before_year = cycle * 146097 + past * 365 + leap_days;
  const int leap_day = leap && month > 2 ? 1 : 0;
  return before_year + kDaysBefore[static_cast<std::size_t>(month - 1)] + leap_day + day - kDayZero;
}

int DaysInMonth(int year, int month) {
  using namespace std::chrono;
  return static_cast<int>(unsigned((std::chrono::year(year) / month / last).day()));
}

int FullYear(int year) {
  if (year < 0 || year > 99) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

Date Compose(DayAndSecond parts) {
  const double time = parts.second / double{kSecondsOfDay};
  const auto day = static_cast<double>(parts.day);
  return Date::FromSerial(parts.day < 0 ? day - time : day + time);
}

DayAndSecond Split(Date date) {
  const double whole = std::trunc(date.Serial());
  DayAndSecond result{static_cast<std::int64_t>(whole),
                      static_cast<int>(std::lround(std::fabs(date.Serial() - whole) * kSecondsOfDay))};
  if (result.second == kSecondsOfDay) {
    result =
        result.day < kLastDay ? DayAndSecond{result.day + 1, 0} : DayAndSecond{result.day, kSecondsOfDay - 1};
  }
  return result;
}

DateParts PartsOf(Date date) {
  using namespace std::chrono;
  constexpr int kFrom1970 = 25569;
  const DayAndSecond split = Split(date);
  const year_month_day ymd{sys_days{days{split.day - kFrom1970}}};
  return {int{ymd.year()},
          static_cast<int>(unsigned{ymd.month()}),
          static_cast<int>(unsigned{ymd.day()}),
          split.second / 3600,
          split.second / 60 % 60,
          split.second % 60};
}

namespace {

bool IsDay(std::int64_t day) { return day >= kFirstDay && day <= kLastDay; }

/// The time of day as the exact fraction.
double TimeOf(Date date) { return std::fabs(date.Serial() - std::trunc(date.Serial())); }

/// Another day with the time of a date, to the full precision of the count.
Date OnDay(std::int64_t day, double time) {
  if (!IsDay(day)) ThrowInvalidArgument();
  const auto whole = static_cast<double>(day);
  return Date::FromSerial(day < 0 ? whole - time : whole + time);
}

}  // namespace

// ---- Date

Date Date::FromSerial(double serial) {
  constexpr double kBelow = kFirstDay - 1.0;
  constexpr double kAbove = kLastDay + 1.0;
  if (!(serial > kBelow && serial < kAbove)) ThrowOverflow();
  Date result;
  // On day zero the fraction counts forward with either sign; one form of it keeps comparisons right.
  result.serial_ = std::trunc(serial) == 0.0 ? std::fabs(serial) : serial;
  return result;
}

Date Date::FromParts(int year, int month, int day) {
  const std::int64_t months = std::int64_t{FullYear(year)} * 12 + month - 1;
  const std::int64_t carried_year = (months >= 0 ? months : months - 11) / 12;
  const std::int64_t count = DayCount(carried_year, static_cast<int>(months - carried_year * 12) + 1, day);
  if (!IsDay(count)) ThrowInvalidArgument();
  return FromSerial(static_cast<double>(count));
}

Date Date::FromTime(int hour, int minute, int second) {
  const std::int64_t seconds = std::int64_t{hour} * 3600 + std::int64_t{minute} * 60 + second;
  const std::int64_t day = (seconds >= 0 ? seconds : seconds - kSecondsOfDay + 1) / kSecondsOfDay;
  if (!IsDay(day)) ThrowInvalidArgument();
  return Compose({day, static_cast<int>(seconds - day * kSecondsOfDay)});
}

int Date::Year() const { return PartsOf(*this).year; }
int Date::Month() const { return PartsOf(*this).month; }
int Date::Day() const { return PartsOf(*this).day; }
int Date::Hour() const { return PartsOf(*this).hour; }
int Date::Minute() const { return PartsOf(*this).minute; }
int Date::Second() const { return PartsOf(*this).second; }

bool Date::HasTime() const { return Split(*this).second != 0; }

Date Date::DayOnly() const { return Compose({Split(*this).day, 0}); }

Date Date::WithTimeOf(Date time) const { return Compose({Split(*this).day, Split(time).second}); }

Date Date::AddDays(int days) const { return OnDay(static_cast<std::int64_t>(serial_) + days, TimeOf(*this)); }

Date Date::AddMonths(int months) const {
  const auto whole_day = static_cast<std::int64_t>(serial_);
  const DateParts from = PartsOf(FromSerial(static_cast<double>(whole_day)));
  const std::int64_t target = std::int64_t{from.year} * 12 + from.month - 1 + months;
  if (target < std::int64_t{100} * 12 || target >= std::int64_t{10000} * 12) ThrowInvalidArgument();
  const int year = static_cast<int>(target / 12);
  const int month = static_cast<int>(target % 12) + 1;
  return OnDay(DayCount(year, month, std::min(from.day, DaysInMonth(year, month))), TimeOf(*this));
}

}  // namespace zelnor
