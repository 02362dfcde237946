#include "zelnor/platform/conversions.h"

#include <cmath>
#include <limits>

#include "platform/error_number.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

/// A text, and the number that it means or the error that it raises.
struct NumberCase {
  const char* text;
  double value;
  Long error = 0;
};

constexpr NumberCase kNumbers[] = {
    // plain
    {"0", 0},
    {"7", 7},
    {"007", 7},
    {"123.45", 123.45},
    {".5", 0.5},
    {"5.", 5},
    {"0.1", 0.1},
    {"123456789012345678901234567890", 123456789012345678901234567890.0},
    // blanks and tabs around
    {" 5", 5},
    {"5 ", 5},
    {"\t 5\t ", 5},
    {"5 5", 0, 13},
    {"\n5", 0, 13},
    {"5\r\n", 0, 13},
    {"\u00A0"
     "5",
     0, 13},
    {"- 5", 0, 13},
    // one sign in front or behind
    {"-5", -5},
    {"+5", 5},
    {"5-", -5},
    {"5+", 5},
    {"5.25-", -5.25},
    {"-5-", 0, 13},
    {"--5", 0, 13},
    {"+-5", 0, 13},
    {"5--", 0, 13},
    {"-", 0, 13},
    {"-0", 0},
    {"0-", 0},
    // round brackets
    {"(5)", -5},
    {"(1,234.50)", -1234.5},
    {" (5) ", -5},
    {"(5", 0, 13},
    {"5)", 0, 13},
    {"()", 0, 13},
    {"(-5)", 0, 13},
    {"(5-)", 0, 13},
    {"-(5)", 0, 13},
    {"((5))", 0, 13},
    {"(5)-", 0, 13},
    {"[5]", 0, 13},
    // the pound sign
    {"\u00A3"
     "5",
     5},
    {"-\u00A3"
     "5",
     -5},
    {"\u00A3-5", -5},
    {"(\u00A3"
     "5)",
     -5},
    {"\u00A3(5)", -5},
    {"\u00A3"
     "1,234.50",
     1234.5},
    {"\u00A3\u00A3"
     "5",
     0, 13},
    {"\u00A3-\u00A3"
     "5",
     0, 13},
    {"5\u00A3", 0, 13},
    {"\u00A3", 0, 13},
    {"$5", 0, 13},
    {"\xA3"
     "5",
     0, 13},
    // group commas
    {"1,234", 1234},
    {"1,234,567.89", 1234567.89},
    {"1,2,3", 123},
    {"12,", 12},
    {",12", 12},
    {"1,,2", 12},
    {",.5", 0.5},
    {"1.2,3", 0, 13},
    {"1.,5", 0, 13},
    {",", 0, 13},
    {"1E1,0", 0, 13},
    // exponents
    {"1E3", 1000},
    {"1e3", 1000},
    {"1D3", 1000},
    {"1d3", 1000},
    {"1E+3", 1000},
    {"25E-1", 2.5},
    {"1.5E3-", -1500},
    {"5.E1", 50},
    {"1,000E1", 10000},
    {"1E", 0, 13},
    {"1E+", 0, 13},
    {"E5", 0, 13},
    {"1E2E3", 0, 13},
    {"1E2.5", 0, 13},
    {"1F3", 0, 13},
    {"1.7976931348623157E308", 1.7976931348623157e308},
    {"-1.7976931348623157E308", -1.7976931348623157e308},
    {"1.8E308", 0, 6},
    {"-1.8E308", 0, 6},
    {"1E99999999999999999999", 0, 6},
    {"0E99999999999999999999", 0},
    {"1E-400", 0},
    {"1E-99999999999999999999", 0},
    {"5E-324", 5e-324},
    // other bases
    {"&HFF", 255},
    {"&hff", 255},
    {"&HFFFF", 65535},
    {"&O17", 15},
    {"&o17", 15},
    {" &H10 ", 16},
    {"&HFFFFFFFFFFFFFFFF", 18446744073709551615.0},
    {"&H10000000000000000", 0, 6},
    {"&H", 0, 13},
    {"&O", 0, 13},
    {"&O8", 0, 13},
    {"&HG", 0, 13},
    {"&17", 0, 13},
    {"&H1.5", 0, 13},
    {"FF", 0, 13},
    // nothing of the kind
    {"", 0, 13},
    {" ", 0, 13},
    {".", 0, 13},
    {"..5", 0, 13},
    {"1.2.3", 0, 13},
    {"abc", 0, 13},
    {"5a", 0, 13},
    {"1/2", 0, 13},
    {"5%", 0, 13},
    {"True", 0, 13},
    {"inf", 0, 13},
    {"nan", 0, 13},
    {"0x10", 0, 13},
    {"\u0665", 0, 13},
};

TEST(ToDouble, ReadsNumbersAsTheyAreWrittenInBritain) {
  for (const NumberCase& each : kNumbers) {
    double value = 0;
    EXPECT_EQ(ErrorNumberOf([&] { value = ToDouble(each.text); }), each.error) << '"' << each.text << '"';
    if (each.error == 0) {
      EXPECT_EQ(value, each.value) << each.text;
    }
  }
}

TEST(IsNumeric, IsTrueExactlyWhereToDoubleSucceeds) {
  for (const NumberCase& each : kNumbers) {
    EXPECT_EQ(IsNumeric(each.text), each.error == 0) << '"' << each.text << '"';
  }
}

TEST(ToDouble, NeverGivesMinusZero) {
  for (const char* text : {"-0", "0-", "(0)", "-0.00", "-1E-400"}) {
    EXPECT_FALSE(std::signbit(ToDouble(text))) << text;
  }
}

TEST(ToDouble, ReadsVeryLongTexts) {
  EXPECT_EQ(ToDouble("0." + String(100000, '0') + "1E100001"), 1);
  EXPECT_EQ(ToDouble(String(100000, '0') + "5"), 5);
  EXPECT_EQ(ToDouble("1" + String(100000, '0') + "E-100000"), 1);
}

struct UnitsCase {
  const char* text;
  std::int64_t units;
  Long error = 0;
};

TEST(ToCurrency, RoundsHalvesToEvenOnTheDigits) {
  const UnitsCase cases[] = {
      {"123.45", 1234500},
      {"-123.45", -1234500},
      {"0", 0},
      {"-0", 0},
      {"5.", 50000},
      {".5", 5000},
      {"-.5", -5000},
      {"0.0001", 1},
      {"0.00005", 0},
      {"0.00015", 2},
      {"0.00025", 2},
      {"0.00035", 4},
      {"-0.00015", -2},
      {"-0.00025", -2},
      {"0.000050000000000000000000001", 1},
      {"0.00004999999999999999999999", 0},
      {"0.00009999", 1},
      {"1.99995", 20000},
      {"5E-5", 0},
      {"1.5D-4", 2},
      {"0.0000000005E5", 0},
      {"(1,234.56)", -12345600},
      {"\u00A3"
       "9.99",
       99900},
      {"&H10", 160000},
      {"12345678901234", 123456789012340000},
      {"99999999999999.9999", 999999999999999999},
      {"123456789012345.6789", 1234567890123456789},
      {"922337203685477.5807", std::numeric_limits<std::int64_t>::max()},
      {"922337203685477.58074", std::numeric_limits<std::int64_t>::max()},
      {"-922337203685477.5808", std::numeric_limits<std::int64_t>::min()},
      {"000000000000000000000922337203685477.5807", std::numeric_limits<std::int64_t>::max()},
      {"922337203685477.5808", 0, 6},
      {"922337203685477.58075", 0, 6},
      {"-922337203685477.5809", 0, 6},
      {"999999999999999999999999", 0, 6},
      {"1E300", 0, 6},
      {"1E-300", 0},
      {"&HFFFFFFFFFFFFFFFF", 0, 6},
      {"", 0, 13},
      {"-", 0, 13},
      {".", 0, 13},
      {"-.", 0, 13},
      {"12.34.5", 0, 13},
      {"12a", 0, 13},
      {"12.3 4", 0, 13},
  };
  for (const UnitsCase& each : cases) {
    std::int64_t units = 0;
    EXPECT_EQ(ErrorNumberOf([&] { units = ToCurrency(each.text).Units(); }), each.error) << each.text;
    EXPECT_EQ(units, each.units) << each.text;
  }
}

struct WholeCase {
  const char* text;
  Long value;
  Long error = 0;
};

TEST(ToInteger, RoundsHalvesToEvenWithin16Bits) {
  const WholeCase cases[] = {{"0.5", 0},
                             {"1.5", 2},
                             {"2.5", 2},
                             {"-0.5", 0},
                             {"-1.5", -2},
                             {"-2.5", -2},
                             {"2.5000000000000000001", 3},
                             {"32767", 32767},
                             {"32767.49", 32767},
                             {"32767.5", 0, 6},
                             {"32768", 0, 6},
                             {"-32768", -32768},
                             {"-32768.5", -32768},
                             {"-32768.51", 0, 6},
                             {"-32769", 0, 6},
                             {"&H7FFF", 32767},
                             {"&HFFFF", 0, 6},
                             {"1E30", 0, 6},
                             {"1E-30", 0},
                             {"", 0, 13},
                             {"x", 0, 13}};
  for (const WholeCase& each : cases) {
    Long value = 0;
    EXPECT_EQ(ErrorNumberOf([&] { value = ToInteger(each.text); }), each.error) << each.text;
    EXPECT_EQ(value, each.value) << each.text;
  }
}

TEST(ToLong, RoundsHalvesToEvenWithin32Bits) {
  const WholeCase cases[] = {{"0.5", 0},
                             {"1.5", 2},
                             {"2.5", 2},
                             {"1,000,000", 1000000},
                             {"2147483647", 2147483647},
                             {"2147483647.49", 2147483647},
                             {"2147483647.5", 0, 6},
                             {"2147483648", 0, 6},
                             {"-2147483648", std::numeric_limits<Long>::min()},
                             {"-2147483648.5", std::numeric_limits<Long>::min()},
                             {"-2147483649", 0, 6},
                             {"&HFFFFFFFF", 0, 6},
                             {"", 0, 13}};
  for (const WholeCase& each : cases) {
    Long value = 0;
    EXPECT_EQ(ErrorNumberOf([&] { value = ToLong(each.text); }), each.error) << each.text;
    EXPECT_EQ(value, each.value) << each.text;
  }
}

TEST(ToIntegerAndToLong, RoundFloatingNumbersHalvesToEven) {
  EXPECT_EQ(ToInteger(0.5), 0);
  EXPECT_EQ(ToInteger(1.5), 2);
  EXPECT_EQ(ToInteger(-2.5), -2);
  EXPECT_EQ(ToInteger(32767.4), 32767);
  EXPECT_EQ(ToLong(2.5), 2);
  EXPECT_EQ(ToLong(3.5), 4);
  EXPECT_EQ(ToLong(2147483647.4), 2147483647);
  EXPECT_EQ(ToLong(-2147483648.5), std::numeric_limits<Long>::min());
  for (const double value :
       {32767.5, -32769.0, 1e300, static_cast<double>(NAN), static_cast<double>(INFINITY)}) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)ToInteger(value); }), 6) << value;
  }
  for (const double value : {2147483647.5, -2147483649.0, 1e300, static_cast<double>(NAN)}) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)ToLong(value); }), 6) << value;
  }
}

TEST(ToBoolean, ReadsWordsAndNumbers) {
  for (const char* text : {"True", "TRUE", "true", "yes", "YES", "Yes", "1", "-1", "0.1", " 5 ", "&H1"}) {
    EXPECT_TRUE(ToBoolean(text)) << text;
  }
  for (const char* text : {"False", "FALSE", "false", "no", "NO", "0", "-0", "0.00", "(0)"}) {
    EXPECT_FALSE(ToBoolean(text)) << text;
  }
  for (const char* text : {"", " ", "y", "n", "t", "on", "off", "True ", "truely", "x1"}) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)ToBoolean(text); }), 13) << text;
  }
}

TEST(LeadingNumber, TakesTheLongestNumericPrefix) {
  const NumberCase cases[] = {{"", 0},
                              {"12", 12},
                              {"12abc", 12},
                              {"abc", 0},
                              {"  12", 12},
                              {"1 2\t3\n4", 1234},
                              {"-5x", -5},
                              {"+5", 5},
                              {"- 5", -5},
                              {"--5", 0},
                              {"3.5.7", 3.5},
                              {".5", 0.5},
                              {".", 0},
                              {"1,234", 1},
                              {"\u00A3"
                               "5",
                               0},
                              {"1E2", 100},
                              {"1E2x", 100},
                              {"1E", 1},
                              {"1E+", 1},
                              {"1D2", 100},
                              {"12 December", 12},
                              {"5 April", 5},
                              {"&HFF", 255},
                              {"&HFFG", 255},
                              {"&O178", 15},
                              {"&", 0},
                              {"&H", 0},
                              {"(5)", 0},
                              {"5-", 5},
                              {"1E400", std::numeric_limits<double>::max()},
                              {"-1E400", std::numeric_limits<double>::lowest()},
                              {"-0", 0}};
  for (const NumberCase& each : cases) {
    EXPECT_EQ(LeadingNumber(each.text), each.value) << each.text;
  }
}

struct TextCase {
  double value;
  const char* text;
};

TEST(ToText, WritesFloatingNumbersInPlainDecimal) {
  const TextCase cases[] = {{0, "0"},
                            {-0.0, "0"},
                            {1, "1"},
                            {-1.5, "-1.5"},
                            {0.5, "0.5"},
                            {100, "100"},
                            {1234.5600, "1234.56"},
                            {0.1 + 0.2, "0.3"},
                            {1.0 / 3, "0.333333333333333"},
                            {2.0 / 3, "0.666666666666667"},
                            {-2.0 / 3, "-0.666666666666667"},
                            {123456789.123456789, "123456789.123457"},
                            {0.00001, "0.00001"},
                            {0.000000000000001, "0.000000000000001"},
                            {0.0000000000000001, "1E-16"},
                            {1.23456789e-8, "1.23456789E-08"},
                            {-1.5e-20, "-1.5E-20"},
                            {999999999999999, "999999999999999"},
                            {999999999999999.9, "1E+15"},
                            {1e15, "1E+15"},
                            {-1.25e16, "-1.25E+16"},
                            {1.5e300, "1.5E+300"}};
  for (const TextCase& each : cases) {
    EXPECT_EQ(ToText(each.value), each.text);
  }
}

TEST(ToText, WritesAmountsWithoutTrailingZeros) {
  const UnitsCase cases[] = {{"0", 0},
                             {"1", 10000},
                             {"-1", -10000},
                             {"0.5", 5000},
                             {"-0.5", -5000},
                             {"0.0001", 1},
                             {"0.001", 10},
                             {"12.34", 123400},
                             {"12.0304", 120304},
                             {"1000", 10000000},
                             {"922337203685477.5807", std::numeric_limits<std::int64_t>::max()},
                             {"-922337203685477.5808", std::numeric_limits<std::int64_t>::min()}};
  for (const UnitsCase& each : cases) {
    EXPECT_EQ(ToText(Currency::FromUnits(each.units)), each.text);
    EXPECT_EQ(ToCurrency(each.text).Units(), each.units);
  }
}

TEST(ToText, WritesWholeNumbersAndWords) {
  EXPECT_EQ(ToText(true), "True");
  EXPECT_EQ(ToText(false), "False");
  EXPECT_EQ(ToText(Integer{-32768}), "-32768");
  EXPECT_EQ(ToText(Integer{0}), "0");
  EXPECT_EQ(ToText(Long{2147483647}), "2147483647");
  EXPECT_EQ(ToText(std::numeric_limits<Long>::min()), "-2147483648");
}

}  // namespace
}  // namespace zelnor
