#include "zelnor/platform/formats.h"

#include "zelnor/platform/conversions.h"

#include <cmath>
#include <limits>

#include "platform/error_number.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

struct FormatCase {
  const char* amount;
  const char* pattern;
  const char* expected;
};

constexpr FormatCase kFormats[] = {
    {"0", "#0.00", "0.00"},
    {"5", "#0.00", "5.00"},
    {"0.5", "#0.00", "0.50"},
    {"1234567.891", "#0.00", "1234567.89"},
    {"0.005", "#0.00", "0.01"},
    {"0.015", "#0.00", "0.02"},
    {"0.025", "#0.00", "0.03"},
    {"-0.005", "#0.00", "-0.01"},
    {"-0.025", "#0.00", "-0.03"},
    {"0.0049", "#0.00", "0.00"},
    {"-0.0049", "#0.00", "0.00"},
    {"-0.0001", "#0.00", "0.00"},
    {"-12.3", "#0.00", "-12.30"},
    {"9.995", "#0.00", "10.00"},
    {"99.999", "0.00", "100.00"},
    {"0.125", "0.00", "0.13"},
    {"922337203685477.5807", "#0.00", "922337203685477.58"},
    {"-922337203685477.5808", "#0.00", "-922337203685477.58"},
    {"0", "#,##0", "0"},
    {"999", "#,##0", "999"},
    {"1000", "#,##0", "1,000"},
    {"999999.5", "#,##0", "1,000,000"},
    {"1234567", "#,##0", "1,234,567"},
    {"-1234567", "#,##0", "-1,234,567"},
    {"-0.4", "#,##0", "0"},
    {"0.5", "0", "1"},
    {"1.5", "0", "2"},
    {"2.5", "0", "3"},
    {"-2.5", "0", "-3"},
    {"-0.5", "0", "-1"},
    {"-0.49", "0", "0"},
    {"7", "00", "07"},
    {"0", "00", "00"},
    {"-7", "00", "-07"},
    {"123", "00", "123"},
    {"9.5", "00", "10"},
    {"1234.5", "#,##0.00", "1,234.50"},
    {"0.25", "#.##", ".25"},
    {"1.5", "0.###", "1.5"},
    {"1.25", "0.0##", "1.25"},
    {"1", "0.0##", "1.0"},
    {"1", "000,000", "000,001"},
    {"5", "\u00A3#0.00",
     "\u00A3"
     "5.00"},
    {"-5", "\u00A3#0.00",
     "-\u00A3"
     "5.00"},
    {"5", "0 days", "5 days"},
};

TEST(Format, WritesAmountsByPattern) {
  for (const FormatCase& each : kFormats) {
    EXPECT_EQ(Format(ToCurrency(each.amount), each.pattern), each.expected)
        << each.amount << " as " << each.pattern;
  }
}

TEST(Format, WritesFloatingNumbersAsAmounts) {
  for (const FormatCase& each : kFormats) {
    if (String(each.amount).size() > 15) continue;  // more digits than a floating number holds
    EXPECT_EQ(Format(ToDouble(each.amount), each.pattern), each.expected)
        << each.amount << " as " << each.pattern;
  }
}

TEST(Format, RoundsFloatingNumbersOnTheDigitsThatShow) {
  EXPECT_EQ(Format(1.005, "0.00"), "1.01");
  EXPECT_EQ(Format(2.675, "0.00"), "2.68");
  EXPECT_EQ(Format(-1.005, "0.00"), "-1.01");
  EXPECT_EQ(Format(-0.0, "0.00"), "0.00");
  EXPECT_EQ(Format(1e20, "#,##0"), "100,000,000,000,000,000,000");
  EXPECT_EQ(Format(1e-300, "0.00"), "0.00");
  EXPECT_EQ(Format(-1e-300, "0.00"), "0.00");
  EXPECT_EQ(ErrorNumberOf([] { (void)Format(static_cast<double>(NAN), "0"); }), 6);
}

TEST(Format, WritesWholeNumbers) {
  EXPECT_EQ(Format(1234567, "#,##0"), "1,234,567");
  EXPECT_EQ(Format(4, "00"), "04");
  EXPECT_EQ(Format(-4, "#0.00"), "-4.00");
  EXPECT_EQ(Format(std::numeric_limits<std::int64_t>::min(), "0"), "-9223372036854775808");
  EXPECT_EQ(Format(std::numeric_limits<std::int64_t>::max(), "#,##0"), "9,223,372,036,854,775,807");
}

TEST(Format, RefusesAPatternThatIsNone) {
  for (const char* pattern : {"", "x", "0.0.0", "0.0,0"}) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)Format(Currency(1), pattern); }), 5) << pattern;
  }
}

TEST(FormatMoney, EqualsThePatternOfMoney) {
  for (const std::int64_t units :
       {0LL, 1LL, 49LL, 50LL, 99LL, 100LL, 149LL, 150LL, 9949LL, 9950LL, 10000LL, 123456789LL}) {
    for (const std::int64_t sign : {1, -1}) {
      const Currency amount = Currency::FromUnits(units * sign);
      EXPECT_EQ(FormatMoney(amount), Format(amount, "##0.00")) << units * sign;
    }
  }
  EXPECT_EQ(FormatMoney(Currency(-5)), "-5.00");
  EXPECT_EQ(FormatMoney(Currency::FromUnits(std::numeric_limits<std::int64_t>::min())),
            "-922337203685477.58");
}

struct DateFormatCase {
  const char* pattern;
  const char* expected;
};

TEST(Format, WritesDatesByPattern) {
  const Date date = Date::FromParts(2017, 4, 5).WithTimeOf(Date::FromTime(9, 8, 7));
  const DateFormatCase cases[] = {{"yyyy-mm-dd", "2017-04-05"},
                                  {"yyyy-Mm-Dd", "2017-04-05"},
                                  {"dd/mm/yyyy", "05/04/2017"},
                                  {"Dd/Mm/yyyy Hh:Nn:Ss", "05/04/2017 09:08:07"},
                                  {"yyyy-mm-ddTHh:Nn:Ss", "2017-04-05T09:08:07"},
                                  {"yyyy_Mm_Dd_HhNnSs", "2017_04_05_090807"},
                                  {"yyyyMmDd HhNnSs", "20170405 090807"},
                                  {"yyyymmdd-hhnnss", "20170405-090807"},
                                  {"d/m/yy", "5/4/17"},
                                  {"h:n:s", "9:8:7"},
                                  {"hh:mm:ss", "09:08:07"},
                                  {"mm hh:mm mm", "04 09:08 04"},
                                  {"hhmm", "0908"},
                                  {"YYYY", "2017"},
                                  {"yyyyy", "2017y"},
                                  {"y", "y"},
                                  {"ddd", "055"},
                                  {"[.] \u00A3", "[.] \u00A3"},
                                  {"", ""}};
  for (const DateFormatCase& each : cases)
    EXPECT_EQ(Format(date, each.pattern), each.expected) << each.pattern;
}

TEST(Format, WritesTheOutermostDates) {
  EXPECT_EQ(Format(Date::FromParts(100, 1, 1), "yyyy-mm-dd"), "0100-01-01");
  EXPECT_EQ(Format(Date::FromParts(9999, 12, 31), "yyyy-mm-dd"), "9999-12-31");
  EXPECT_EQ(Format(Date(), "yyyy-mm-dd"), "1899-12-30");
  EXPECT_EQ(Format(Date::FromParts(2000, 12, 31), "yy d m"), "00 31 12");
}

TEST(FormatDate, FourLettersAreTheMonthsName) {
  EXPECT_EQ(Format(Date::FromParts(2025, 3, 6), "d mmmm yyyy"), "6 March 2025");
  EXPECT_EQ(Format(Date::FromParts(2025, 12, 31), "mmmm"), "December");
  EXPECT_EQ(Format(Date::FromParts(2025, 3, 6).WithTimeOf(Date::FromTime(9, 5, 0)), "h:mm d mmmm"),
            "9:05 6 March");
}

}  // namespace
}  // namespace zelnor
