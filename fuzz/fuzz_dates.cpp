// Text to dates and back.

#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/formats.h"

#include <cstdint>
#include <string_view>

#include "require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelnor;
  const std::string_view text(reinterpret_cast<const char*>(data), size);

  // Any text is a pattern, too; it is at most written out with years in place of its letters.
  const String formatted = Format(Date::FromSerial(-1.25), text);
  REQUIRE(formatted.size() <= 2 * size);

  Date date;
  try {
    date = ToDate(text);
  } catch (const RuntimeError& error) {
    REQUIRE(error.Number() == 13);
    REQUIRE(!IsDate(text));
    return 0;
  }
  REQUIRE(IsDate(text));
  REQUIRE(date.Year() >= 100 && date.Year() <= 9999);
  REQUIRE(ToDate(ToText(date)) == date);
  REQUIRE(ToDate(Format(date, "yyyy-mm-dd hh:nn:ss")) == date);
  REQUIRE(ToDate(Format(date, "yyyy-mm-dd")) == date.DayOnly());
  REQUIRE(Date::FromParts(date.Year(), date.Month(), date.Day()) == date.DayOnly() || date.Year() < 100);
  REQUIRE(date.DayOnly().WithTimeOf(date) == date);
  REQUIRE(date.HasTime() == !(date == date.DayOnly()));
  return 0;
}
