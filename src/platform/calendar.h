#pragma once

/// @file
/// The calendar beneath Date, in whole days and seconds. Not for applications.

#include "zelnor/platform/values.h"

#include <cstdint>

namespace zelnor {

/// Seconds of a day.
inline constexpr int kSecondsOfDay = 86400;

/// The first and the last day that a Date holds: 1 January 100 and 31 December 9999, counted from 30 December
/// 1899.
inline constexpr std::int64_t kFirstDay = -657434;
inline constexpr std::int64_t kLastDay = 2958465;

/// A date taken apart, rounded to the second.
struct DateParts {
  int year;
  int month;
  int day;
  int hour;
  int minute;
  int second;
};

/// A date as day count and second of the day, rounded to the second.
struct DayAndSecond {
  std::int64_t day;
  int second;
};

DayAndSecond Split(Date date);

DateParts PartsOf(Date date);

/// The days from 30 December 1899 to a day of the Gregorian calendar; the month is 1 to 12, the day may be
/// any number.
std::int64_t DayCount(std::int64_t year, int month, std::int64_t day);

/// The number of days of a month.
int DaysInMonth(int year, int month);

/// The year that a number of one or two digits means: 0 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
/// Any other number is returned as it is.
int FullYear(int year);

/// A date of a day within the bounds above and a second of that day.
Date Compose(DayAndSecond parts);

}  // namespace zelnor
