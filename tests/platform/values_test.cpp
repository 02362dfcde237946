#include "zelnor/platform/values.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/formats.h"

#include <cmath>
#include <limits>

#include "platform/error_number.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

String Shown(Date date) { return Format(date, "yyyy-mm-dd hh:nn:ss"); }

TEST(Currency, BeginsAtZero) {
  EXPECT_TRUE(Currency().IsZero());
  EXPECT_EQ(Currency().Units(), 0);
}

TEST(Currency, CountsTenThousandths) {
  EXPECT_EQ(Currency(20).Units(), 200000);
  EXPECT_EQ(Currency::FromPence(81550).Units(), 8155000);
  EXPECT_EQ(Currency::FromPence(-1).Units(), -100);
  EXPECT_DOUBLE_EQ(Currency::FromUnits(12345).ToDouble(), 1.2345);
}

TEST(Currency, AddsAndSubtractsExactly) {
  Currency sum;
  for (int i = 0; i < 1000; ++i) sum += Currency::FromUnits(1);
  EXPECT_EQ(sum, Currency::FromUnits(1000));
  EXPECT_EQ(Currency::FromPence(10) + Currency::FromPence(20), Currency::FromPence(30));
  EXPECT_EQ(Currency(1) - Currency(3), Currency(-2));
  EXPECT_EQ(-Currency(5), Currency(-5));
}

TEST(Currency, OverflowsBeyondItsBoundsOnly) {
  const Currency most = Currency::FromUnits(kMost);
  const Currency least = Currency::FromUnits(kLeast);
  const Currency one = Currency::FromUnits(1);
  EXPECT_EQ((Currency::FromUnits(kMost - 1) + one).Units(), kMost);
  EXPECT_EQ((Currency::FromUnits(kLeast + 1) - one).Units(), kLeast);
  EXPECT_EQ(ErrorNumberOf([&] { (void)(most + one); }), 6);
  EXPECT_EQ(ErrorNumberOf([&] { (void)(least - one); }), 6);
  EXPECT_EQ(ErrorNumberOf([&] { (void)(-least); }), 6);
  EXPECT_EQ((-most).Units(), -kMost);
  EXPECT_EQ(Currency::FromPence(kMost / 100).Units(), kMost / 100 * 100);
  EXPECT_EQ(ErrorNumberOf([] { (void)Currency::FromPence(kMost / 100 + 1); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { (void)Currency::FromPence(kLeast / 100 - 1); }), 6);
}

TEST(Currency, KeepsItsValueWhenAnAdditionOverflows) {
  Currency amount = Currency::FromUnits(kMost - 5);
  EXPECT_EQ(ErrorNumberOf([&] { amount += Currency(1); }), 6);
  EXPECT_EQ(amount.Units(), kMost - 5);
  amount = Currency::FromUnits(kLeast + 5);
  EXPECT_EQ(ErrorNumberOf([&] { amount -= Currency(1); }), 6);
  EXPECT_EQ(amount.Units(), kLeast + 5);
}

TEST(Currency, RoundsAFloatingNumberHalvesToEven) {
  EXPECT_EQ(Currency(0.00005).Units(), 0);
  EXPECT_EQ(Currency(0.00015).Units(), 2);
  EXPECT_EQ(Currency(0.00025).Units(), 2);
  EXPECT_EQ(Currency(1.00015).Units(), 10002);
  EXPECT_EQ(Currency(-0.00015).Units(), -2);
  EXPECT_EQ(Currency(-0.00005).Units(), 0);
  EXPECT_EQ(Currency(0.1 + 0.2).Units(), 3000);
  EXPECT_EQ(Currency(123456.78).Units(), 1234567800);
}

TEST(Currency, RefusesFloatingNumbersOutOfRange) {
  EXPECT_EQ(Currency(9.22e14).Units(), 9220000000000000000);
  EXPECT_EQ(Currency(-9.22e14).Units(), -9220000000000000000);
  for (const double amount :
       {9.23e14, -9.23e14, 1e300, static_cast<double>(INFINITY), static_cast<double>(NAN)}) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)Currency(amount); }), 6) << amount;
  }
}

TEST(Currency, Compares) {
  EXPECT_LT(Currency(-1), Currency());
  EXPECT_GT(Currency::FromPence(1), Currency());
  EXPECT_NE(Currency(1), Currency(2));
}

TEST(Date, CountsFromThirtiethOfDecember1899) {
  EXPECT_EQ(Date::FromParts(1899, 12, 30).Serial(), 0);
  EXPECT_EQ(Date::FromParts(1899, 12, 31).Serial(), 1);
  EXPECT_EQ(Date::FromParts(1899, 12, 29).Serial(), -1);
  EXPECT_EQ(Date::FromParts(1970, 1, 1).Serial(), 25569);
  EXPECT_EQ(Date::FromParts(2014, 4, 6).Serial(), 41735);
  EXPECT_TRUE(Date().IsZero());
  EXPECT_FALSE(Date::FromParts(2014, 4, 6).IsZero());
}

struct PartsCase {
  int year, month, day;
  const char* expected;
};

TEST(Date, CarriesOverflowingPartsOn) {
  const PartsCase cases[] = {
      {2014, 2, 30, "2014-03-02"},  {2016, 2, 30, "2016-03-01"},  {2014, 13, 1, "2015-01-01"},
      {2014, 0, 1, "2013-12-01"},   {2014, -11, 1, "2013-01-01"}, {2014, -12, 1, "2012-12-01"},
      {2014, 1, 0, "2013-12-31"},   {2014, 1, -30, "2013-12-01"}, {2014, 14, 31, "2015-03-03"},
      {2000, 2, 29, "2000-02-29"},  {1900, 2, 29, "1900-03-01"},  {2014, 1, 366, "2015-01-01"},
      {100, 1, 1, "0100-01-01"},    {9999, 12, 31, "9999-12-31"}, {10000, 1, 0, "9999-12-31"},
      {10000, 0, 31, "9999-12-31"}, {9998, 24, 31, "9999-12-31"}, {101, -11, 1, "0100-01-01"}};
  for (const PartsCase& each : cases) {
    EXPECT_EQ(Format(Date::FromParts(each.year, each.month, each.day), "yyyy-mm-dd"), each.expected);
  }
}

TEST(Date, PutsTwoDigitYearsNearThisOne) {
  EXPECT_EQ(Date::FromParts(0, 1, 1).Year(), 2000);
  EXPECT_EQ(Date::FromParts(29, 12, 31).Year(), 2029);
  EXPECT_EQ(Date::FromParts(30, 1, 1).Year(), 1930);
  EXPECT_EQ(Date::FromParts(99, 12, 31).Year(), 1999);
}

TEST(Date, RefusesPartsOutsideTheYears100To9999) {
  const int most = std::numeric_limits<int>::max();
  const int least = std::numeric_limits<int>::min();
  const PartsCase cases[] = {{100, 1, 0, ""},          {9999, 12, 32, ""},   {10000, 1, 1, ""},
                             {-1, 1, 1, ""},           {100, 0, 1, ""},      {most, 1, 1, ""},
                             {least, 1, 1, ""},        {2014, most, 1, ""},  {2014, least, 1, ""},
                             {2014, 1, most, ""},      {2014, 1, least, ""}, {most, most, most, ""},
                             {least, least, least, ""}};
  for (const PartsCase& each : cases) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)Date::FromParts(each.year, each.month, each.day); }), 5)
        << each.year << " " << each.month << " " << each.day;
  }
}

TEST(Date, AgreesWithAWalkThroughTheCalendar) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  double serial = -657434;
  for (int year = 100; year <= 9999; ++year) {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    for (int month = 1; month <= 12; ++month) {
      const int days = kDays[month - 1] + (leap && month == 2 ? 1 : 0);
      for (const int day : {1, days}) {
        const Date date = Date::FromParts(year, month, day);
        ASSERT_EQ(date.Serial(), serial + day - 1);
        ASSERT_EQ(date.Year(), year);
        ASSERT_EQ(date.Month(), month);
        ASSERT_EQ(date.Day(), day);
      }
      serial += days;
    }
  }
  EXPECT_EQ(serial, 2958466);
}

TEST(Date, CountsTheTimeForwardBefore1899AsWell) {
  EXPECT_EQ(Shown(Date::FromSerial(-1.25)), "1899-12-29 06:00:00");
  EXPECT_EQ(Shown(Date::FromSerial(-0.25)), "1899-12-30 06:00:00");
  EXPECT_EQ(Shown(Date::FromSerial(1.25)), "1899-12-31 06:00:00");
  EXPECT_EQ(Date::FromSerial(-0.25), Date::FromSerial(0.25));
  EXPECT_EQ(Date::FromSerial(-1.25).DayOnly().Serial(), -1);
  EXPECT_EQ(Date::FromSerial(-1.25).AddDays(-1).Serial(), -2.25);
  EXPECT_EQ(Date::FromSerial(-1.25).AddDays(2).Serial(), 1.25);
  EXPECT_EQ(Date::FromSerial(1.25).AddDays(-2).Serial(), -1.25);
}

TEST(Date, RoundsTheTimeToTheSecond) {
  EXPECT_EQ(Shown(Date::FromSerial(41735 + 12345.4 / 86400)), "2014-04-06 03:25:45");
  EXPECT_EQ(Shown(Date::FromSerial(41735 + 12345.6 / 86400)), "2014-04-06 03:25:46");
  EXPECT_EQ(Shown(Date::FromSerial(41735 + 86399.9 / 86400)), "2014-04-07 00:00:00");
  EXPECT_EQ(Shown(Date::FromSerial(-2 - 86399.9 / 86400)), "1899-12-29 00:00:00");
  EXPECT_EQ(Shown(Date::FromSerial(2958465.9999999)), "9999-12-31 23:59:59");
}

TEST(Date, RefusesACountOutOfRange) {
  EXPECT_EQ(Shown(Date::FromSerial(-657434)), "0100-01-01 00:00:00");
  EXPECT_EQ(Shown(Date::FromSerial(-657434.5)), "0100-01-01 12:00:00");
  EXPECT_EQ(Shown(Date::FromSerial(2958465.5)), "9999-12-31 12:00:00");
  for (const double serial :
       {-657435.0, 2958466.0, 1e300, static_cast<double>(INFINITY), static_cast<double>(NAN)}) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)Date::FromSerial(serial); }), 6) << serial;
  }
}

TEST(Date, MakesATimeWithOverflowCarriedOn) {
  EXPECT_EQ(Shown(Date::FromTime(6, 30, 15)), "1899-12-30 06:30:15");
  EXPECT_EQ(Date::FromTime(25, 0, 0).Serial(), 1 + 1.0 / 24);
  EXPECT_EQ(Shown(Date::FromTime(0, 90, 0)), "1899-12-30 01:30:00");
  EXPECT_EQ(Shown(Date::FromTime(0, 0, -1)), "1899-12-29 23:59:59");
  EXPECT_EQ(Shown(Date::FromTime(-24, 0, 0)), "1899-12-29 00:00:00");
  EXPECT_EQ(ErrorNumberOf([] { (void)Date::FromTime(std::numeric_limits<int>::max(), 0, 0); }), 5);
}

TEST(Date, KnowsWhetherItHasATime) {
  EXPECT_FALSE(Date::FromParts(2014, 4, 6).HasTime());
  EXPECT_TRUE(Date::FromSerial(41735.5).HasTime());
  EXPECT_FALSE(Date().HasTime());
}

TEST(Date, TakesTheTimeOfAnotherDate) {
  const Date noon = Date::FromParts(2014, 4, 6).WithTimeOf(Date::FromSerial(1000.5));
  EXPECT_EQ(Shown(noon), "2014-04-06 12:00:00");
  EXPECT_EQ(noon.Hour(), 12);
  EXPECT_EQ(noon.Minute(), 0);
  EXPECT_EQ(noon.Second(), 0);
  EXPECT_EQ(noon.DayOnly(), Date::FromParts(2014, 4, 6));
  EXPECT_EQ(Shown(Date::FromParts(1850, 1, 1).WithTimeOf(Date::FromTime(23, 59, 58))), "1850-01-01 23:59:58");
}

TEST(Date, AddsMonthsAndClampsTheDay) {
  const Date january = Date::FromParts(2014, 1, 31);
  EXPECT_EQ(january.AddMonths(1), Date::FromParts(2014, 2, 28));
  EXPECT_EQ(january.AddMonths(25), Date::FromParts(2016, 2, 29));
  EXPECT_EQ(january.AddMonths(3), Date::FromParts(2014, 4, 30));
  EXPECT_EQ(january.AddMonths(-1), Date::FromParts(2013, 12, 31));
  EXPECT_EQ(january.AddMonths(-11), Date::FromParts(2013, 2, 28));
  EXPECT_EQ(january.AddMonths(0), january);
  EXPECT_EQ(Date::FromParts(2016, 2, 29).AddMonths(12), Date::FromParts(2017, 2, 28));
  EXPECT_EQ(Shown(Date::FromSerial(-1.25).AddMonths(-1)), "1899-11-29 06:00:00");
}

// What a function gives back whose one assignment can't be had. Some compilers give the variable's value up
// as soon as the call for the new one begins.
[[gnu::noinline]] Date DateAfterFailure(int year, double serial) {
  Date kept = Date::FromParts(year, 4, 6);
  try {
    kept = Date::FromSerial(serial);
  } catch (const RuntimeError&) {
  }
  return kept;
}

[[gnu::noinline]] Currency CurrencyAfterFailure(std::int64_t units, std::int64_t pence) {
  Currency kept = Currency::FromUnits(units);
  try {
    kept = Currency::FromPence(pence);
  } catch (const RuntimeError&) {
  }
  return kept;
}

TEST(Date, KeepsItsValueWhenTheOneToBeAssignedFails) {
  EXPECT_EQ(DateAfterFailure(2014, 1e9), Date::FromParts(2014, 4, 6));
}

TEST(Currency, KeepsItsValueWhenTheOneToBeAssignedFails) {
  EXPECT_EQ(CurrencyAfterFailure(12345, kMost), Currency::FromUnits(12345));
}

TEST(Date, RefusesToLeaveItsYears) {
  EXPECT_EQ(Date::FromParts(9999, 12, 30).AddDays(1), Date::FromParts(9999, 12, 31));
  EXPECT_EQ(ErrorNumberOf([] { (void)Date::FromParts(9999, 12, 31).AddDays(1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { (void)Date::FromParts(100, 1, 1).AddDays(-1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { (void)Date::FromParts(9999, 12, 1).AddMonths(1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { (void)Date::FromParts(100, 1, 1).AddMonths(-1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { (void)Date().AddMonths(std::numeric_limits<int>::min()); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { (void)Date().AddDays(std::numeric_limits<int>::max()); }), 5);
}

}  // namespace
}  // namespace zelnor
