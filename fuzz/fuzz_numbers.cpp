// Text to numbers and back: any text either is a number for all conversions or for none, and what is written
// is read back as the same number.

#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/formats.h"

#include <cmath>
#include <cstdint>
#include <string_view>

#include "require.h"

namespace {

using namespace zelnor;

template <class Body>
Long ErrorNumberOf(Body&& body) {
  try {
    body();
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

bool IsExpected(Long error) { return error == 0 || error == 6 || error == 13; }

void CheckCurrency(std::string_view text, double value) {
  Currency amount;
  if (ErrorNumberOf([&] { amount = ToCurrency(text); }) != 0) {
    REQUIRE(std::fabs(value) > 9.2e14);
    return;
  }
  REQUIRE(std::fabs(amount.ToDouble() - value) <= 0.00005000001 + std::fabs(value) * 1e-15);
  REQUIRE(ToCurrency(ToText(amount)) == amount);
  REQUIRE(ToCurrency(FormatMoney(amount)) == ToCurrency(Format(amount, "##0.00")));
  REQUIRE(std::fabs(ToCurrency(FormatMoney(amount)).ToDouble() - amount.ToDouble()) <=
          0.005 + std::fabs(value) * 1e-15);
  REQUIRE(ToCurrency(Format(amount, "#,##0.0000")) == amount);
}

void CheckWhole(std::string_view text, double value) {
  Long whole = 0;
  if (ErrorNumberOf([&] { whole = ToLong(text); }) != 0) {
    REQUIRE(value >= 2147483647.5 || value <= -2147483648.5);
    return;
  }
  REQUIRE(std::fabs(value - whole) <= 0.5);
  REQUIRE(ToLong(ToText(whole)) == whole);
  const bool fits = whole >= INT16_MIN && whole <= INT16_MAX;
  REQUIRE(ErrorNumberOf([&] { REQUIRE(ToInteger(text) == whole); }) == (fits ? 0 : 6));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  REQUIRE(std::isfinite(LeadingNumber(text)));
  REQUIRE(IsExpected(ErrorNumberOf([&] { (void)ToBoolean(text); })));

  double value = 0;
  const Long error = ErrorNumberOf([&] { value = ToDouble(text); });
  REQUIRE(IsExpected(error));
  REQUIRE(IsNumeric(text) == (error == 0));
  if (error != 0) {
    for (const Long other :
         {ErrorNumberOf([&] { (void)ToCurrency(text); }), ErrorNumberOf([&] { (void)ToLong(text); }),
          ErrorNumberOf([&] { (void)ToInteger(text); })}) {
      REQUIRE(other == error);
    }
    return 0;
  }

  REQUIRE(std::isfinite(value) && !(value == 0 && std::signbit(value)));
  REQUIRE(ToBoolean(text) == (value != 0));
  // Fifteen digits are what a text keeps of a number; at the upper bound their rounding may leave the range.
  const String written = ToText(value);
  REQUIRE(std::fabs(value) > 1.7976931348623e308 || ToText(ToDouble(written)) == written);
  CheckCurrency(text, value);
  CheckWhole(text, value);
  return 0;
}
