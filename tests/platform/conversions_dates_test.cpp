#include "zelnor/platform/conversions.h"
#include "zelnor/platform/formats.h"

#include "platform/error_number.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

/// A text, and the date that it means; no date where it raises error 13.
struct DateCase {
  const char* text;
  const char* date;
};

constexpr DateCase kDates[] = {
    // yyyy-mm-dd
    {"2014-04-06", "2014-04-06 00:00:00"},
    {"2000-02-29", "2000-02-29 00:00:00"},
    {"1900-02-29", nullptr},
    {"2016-02-29", "2016-02-29 00:00:00"},
    {"2015-02-29", nullptr},
    {"2014-04-31", nullptr},
    {"2014-13-04", nullptr},
    {"2014-00-04", nullptr},
    {"2014-04-00", nullptr},
    {"2014-4-6", nullptr},
    {"2014/04/06", nullptr},
    {"2014-04", nullptr},
    {"2014-04-06x", nullptr},
    {"2014-04-06Z", nullptr},
    {"2014-04-06T10:00:00", nullptr},
    {"0100-01-01", "0100-01-01 00:00:00"},
    {"0099-12-31", nullptr},
    {"9999-12-31", "9999-12-31 00:00:00"},
    {"10000-01-01", nullptr},
    // d/m/yyyy
    {"6/4/2014", "2014-04-06 00:00:00"},
    {"06/04/2014", "2014-04-06 00:00:00"},
    {"6-4-2014", "2014-04-06 00:00:00"},
    {"6.4.2014", "2014-04-06 00:00:00"},
    {"6/4-2014", nullptr},
    {"6 / 4 / 2014", nullptr},
    {"12/13/2014", "2014-12-13 00:00:00"},
    {"13/12/2014", "2014-12-13 00:00:00"},
    {"12/12/2014", "2014-12-12 00:00:00"},
    {"11/12/2014", "2014-12-11 00:00:00"},
    {"2/29/2016", "2016-02-29 00:00:00"},
    {"2/29/2015", nullptr},
    {"29/2/2016", "2016-02-29 00:00:00"},
    {"29/2/2015", nullptr},
    {"31/4/2014", nullptr},
    {"4/31/2014", nullptr},
    {"13/13/2014", nullptr},
    {"0/1/2014", nullptr},
    {"1/0/2014", nullptr},
    {"32/1/2014", nullptr},
    {"001/1/2014", nullptr},
    {"1/001/2014", nullptr},
    {"1/1", nullptr},
    {"1/1/", nullptr},
    {"1/1/100", "0100-01-01 00:00:00"},
    {"31/12/099", nullptr},
    {"31/12/9999", "9999-12-31 00:00:00"},
    {"1/1/10000", nullptr},
    {"1/1/5", nullptr},
    {"1/1/00", "2000-01-01 00:00:00"},
    {"31/12/29", "2029-12-31 00:00:00"},
    {"1/1/30", "1930-01-01 00:00:00"},
    {"31/12/99", "1999-12-31 00:00:00"},
    {"5/13/14", "2014-05-13 00:00:00"},
    {"29/2/00", "2000-02-29 00:00:00"},
    // month by name
    {"6 Apr 2014", "2014-04-06 00:00:00"},
    {"06 apr 2014", "2014-04-06 00:00:00"},
    {"6 April 2014", "2014-04-06 00:00:00"},
    {"6 APRIL 14", "2014-04-06 00:00:00"},
    {"6  April  2014", "2014-04-06 00:00:00"},
    {"31 December 1899", "1899-12-31 00:00:00"},
    {"1 May 2014", "2014-05-01 00:00:00"},
    {"1 Sep 2014", "2014-09-01 00:00:00"},
    {"1 Sept 2014", nullptr},
    {"1 Ap 2014", nullptr},
    {"29 Feb 2015", nullptr},
    {"31 Jun 2014", nullptr},
    {"6 Apr", nullptr},
    {"6Apr2014", nullptr},
    {"6 Apr, 2014", nullptr},
    {"Apr 6, 2014", "2014-04-06 00:00:00"},
    {"apr 06, 14", "2014-04-06 00:00:00"},
    {"April 6, 2014", "2014-04-06 00:00:00"},
    {"Apr 6 2014", nullptr},
    {"Apr 6,2014", nullptr},
    {"Apr 31, 2014", nullptr},
    {"Foo 6, 2014", nullptr},
    // with a time
    {"2014-04-06 10:11", "2014-04-06 10:11:00"},
    {"2014-04-06 10:11:12", "2014-04-06 10:11:12"},
    {"6/4/2014 9:05", "2014-04-06 09:05:00"},
    {"6/4/2014 9:05 PM", "2014-04-06 21:05:00"},
    {"6/4/2014 9:05:06pm", "2014-04-06 21:05:06"},
    {"6 Apr 2014 12:00 AM", "2014-04-06 00:00:00"},
    {"Apr 6, 2014 12:00 PM", "2014-04-06 12:00:00"},
    {"6/4/2014 11:59:59 am", "2014-04-06 11:59:59"},
    {"6/4/2014 23:59:59", "2014-04-06 23:59:59"},
    {"1/1/1850 06:00:00", "1850-01-01 06:00:00"},
    {"6/4/2014 24:00", nullptr},
    {"6/4/2014 10:60", nullptr},
    {"6/4/2014 10:10:60", nullptr},
    {"6/4/2014 13:00 PM", nullptr},
    {"6/4/2014 0:30 AM", nullptr},
    {"6/4/2014 10", nullptr},
    {"6/4/2014 10:1", nullptr},
    {"6/4/2014 10:11:1", nullptr},
    {"6/4/2014 10:11:", nullptr},
    {"6/4/2014 10:11 XM", nullptr},
    {"6/4/2014 10:11 AM PM", nullptr},
    {"6/4/2014 10:11:12.5", nullptr},
    {"6/4/201410:11", nullptr},
    // a time alone
    {"10:11", "1899-12-30 10:11:00"},
    {"0:00", "1899-12-30 00:00:00"},
    {"23:59:59", "1899-12-30 23:59:59"},
    {"1:30 PM", "1899-12-30 13:30:00"},
    {"12:30 am", "1899-12-30 00:30:00"},
    {"24:00", nullptr},
    {"10", nullptr},
    {"10:11 6/4/2014", nullptr},
    // blanks at the ends, and nothing of the kind
    {" 6/4/2014 ", "2014-04-06 00:00:00"},
    {"\t6/4/2014", nullptr},
    {"", nullptr},
    {" ", nullptr},
    {"today", nullptr},
    {"41735", nullptr},
    {"6.4", nullptr},
    {"-6/4/2014", nullptr},
    {"6/4/-2014", nullptr},
    {"99999999999999999999/1/2014", nullptr},
};

TEST(ToDate, ReadsTheBritishForms) {
  for (const DateCase& each : kDates) {
    Date date;
    const Long error = ErrorNumberOf([&] { date = ToDate(each.text); });
    if (each.date == nullptr) {
      EXPECT_EQ(error, 13) << each.text;
    } else {
      EXPECT_EQ(error, 0) << each.text;
      EXPECT_EQ(Format(date, "yyyy-mm-dd hh:nn:ss"), each.date) << each.text;
    }
  }
}

TEST(IsDate, IsTrueExactlyWhereToDateSucceeds) {
  for (const DateCase& each : kDates) EXPECT_EQ(IsDate(each.text), each.date != nullptr) << each.text;
}

TEST(ToDate, KnowsEveryMonthByBothNames) {
  const char* names[] = {"January", "February", "March",     "April",   "May",      "June",
                         "July",    "August",   "September", "October", "November", "December"};
  for (int month = 1; month <= 12; ++month) {
    const String name = names[month - 1];
    const Date expected = Date::FromParts(2015, month, 7);
    EXPECT_EQ(ToDate("7 " + name + " 2015"), expected);
    EXPECT_EQ(ToDate("7 " + name.substr(0, 3) + " 2015"), expected);
    EXPECT_EQ(ToDate(name.substr(0, 3) + " 7, 2015"), expected);
  }
}

TEST(ToText, WritesADateWithItsTimeWhereItHasOne) {
  EXPECT_EQ(ToText(Date::FromParts(2014, 4, 6)), "06/04/2014");
  EXPECT_EQ(ToText(Date::FromParts(2014, 4, 6).WithTimeOf(Date::FromTime(9, 5, 1))), "06/04/2014 09:05:01");
  EXPECT_EQ(ToText(Date::FromParts(100, 1, 1)), "01/01/0100");
  EXPECT_EQ(ToText(Date()), "30/12/1899");
  EXPECT_EQ(ToText(Date::FromSerial(-1.25)), "29/12/1899 06:00:00");
}

TEST(ToText, GivesADateBackThroughToDate) {
  for (int day = -657434; day <= 2958465; day += 997) {
    const Date date = Date::FromSerial(day).WithTimeOf(Date::FromTime(0, 0, (day + 657434) % 86400));
    ASSERT_EQ(ToDate(ToText(date)), date) << day;
  }
}

}  // namespace
}  // namespace zelnor
