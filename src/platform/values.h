#pragma once

/// @file
/// The values that all of the system is made of: text, whole numbers, money and dates.

#include "zelnor/platform/export.h"

#include <compare>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zelnor {

/// Text in UTF-8. Lengths and positions that the rules speak of count UTF-16 code units; see text.h.
using String = std::string;

/// A whole number of 16 bits. Conversions that leave its range raise error 6.
using Integer = std::int16_t;

/// A whole number of 32 bits. Conversions that leave its range raise error 6.
using Long = std::int32_t;

/// A shared reference to a record; a reference that holds nothing stands for "no object".
template <class T>
using Ref = std::shared_ptr<T>;

/// An amount of money: a signed 64-bit count of ten-thousandths. Addition and subtraction are exact.
///
/// @code
/// Currency pay = Currency::FromPence(81500) + Currency(20);  // 835.00
/// @endcode
class ZELNOR_API Currency {
 public:
  /// Zero.
  constexpr Currency() = default;
  constexpr Currency(const Currency&) = default;

  /// Written out, since g++ 12 takes `a = F();` of a class without one for a write even where F raises an
  /// error, and then drops the value that `a` had before.
  constexpr Currency& operator=(const Currency& other) {  // NOLINT(modernize-use-equals-default)
    units_ = other.units_;
    return *this;
  }

  /// A whole number of pounds.
  constexpr Currency(int pounds)
      : units_(std::int64_t{pounds} * 10000) {}  // NOLINT(google-explicit-constructor)

  /// Rounds halves to even at four decimals, on the shortest decimal text of the number. Raises error 6 when
  /// out of range (about 922 million million).
  explicit Currency(double amount);

  /// @param units ten-thousandths of a pound
  static constexpr Currency FromUnits(std::int64_t units) {
    Currency result;
    result.units_ = units;
    return result;
  }

  /// @param pence hundredths of a pound. Raises error 6 when out of range.
  static Currency FromPence(std::int64_t pence);

  /// The count of ten-thousandths.
  constexpr std::int64_t Units() const { return units_; }

  /// The nearest floating number.
  constexpr double ToDouble() const { return static_cast<double>(units_) / 10000.0; }

  constexpr bool IsZero() const { return units_ == 0; }

  /// Addition and subtraction raise error 6 when the result is out of range, and change nothing then.
  Currency& operator+=(Currency other);
  Currency& operator-=(Currency other);
  Currency operator-() const;
  friend Currency operator+(Currency a, Currency b) { return a += b; }
  friend Currency operator-(Currency a, Currency b) { return a -= b; }

  friend constexpr auto operator<=>(Currency, Currency) = default;

 private:
  std::int64_t units_ = 0;
};

/// A day and a time of day: a floating count whose whole part is the days since 30 December 1899 and whose
/// fraction is the time. The zero date stands for "no date". Before 1899 the fraction still counts forward
/// within its day.
class ZELNOR_API Date {
 public:
  /// No date.
  constexpr Date() = default;
  constexpr Date(const Date&) = default;

  /// Written out for the same reason as that of Currency.
  constexpr Date& operator=(const Date& other) {  // NOLINT(modernize-use-equals-default)
    serial_ = other.serial_;
    return *this;
  }

  /// From the floating count. Raises error 6 outside the years 100 to 9999.
  static Date FromSerial(double serial);

  /// From year, month and day; overflow is carried on, so that 30 February 2014 is 2 March. Years 0 to 29 are
  /// 2000 to 2029, 30 to 99 are 1930 to 1999. Raises error 5 where the result lies outside the years 100 to
  /// 9999.
  static Date FromParts(int year, int month, int day);

  /// The time of day alone, with overflow carried on: 25 hours is one day and one hour. Raises error 5 where
  /// the result lies outside the years 100 to 9999.
  static Date FromTime(int hour, int minute, int second);

  /// The floating count.
  constexpr double Serial() const { return serial_; }

  /// True for the zero date.
  constexpr bool IsZero() const { return serial_ == 0.0; }

  /// Calendar parts of the day.
  int Year() const;
  int Month() const;
  int Day() const;

  /// Parts of the time of day, rounded to the second.
  int Hour() const;
  int Minute() const;
  int Second() const;

  /// True when the time of day is other than midnight.
  bool HasTime() const;

  /// The same day at midnight.
  Date DayOnly() const;

  /// This day with the time of day of another date.
  Date WithTimeOf(Date time) const;

  /// Adds days; may be negative. Raises error 5 where the result lies outside the years 100 to 9999.
  Date AddDays(int days) const;

  /// Adds months; may be negative; the day is kept and clamped to the month's last day. Raises error 5 where
  /// the result lies outside the years 100 to 9999.
  Date AddMonths(int months) const;

  friend constexpr auto operator<=>(Date, Date) = default;

 private:
  double serial_ = 0.0;
};

}  // namespace zelnor
