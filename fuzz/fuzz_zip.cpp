// Archives of any bytes: unpacked or refused, and what was unpacked comes back when it is packed.

#include "zelnor/platform/zip.h"

#include <cstdint>

#include "require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view packed(reinterpret_cast<const char*>(data), size);
  std::string bytes;
  try {
    bytes = zelnor::Unzip(packed);
  } catch (const zelnor::ZipError&) {
    return 0;
  }
  REQUIRE(bytes.size() <= zelnor::kMaxUnpackedBytes);
  REQUIRE(zelnor::UnzipsTo(packed, bytes));
  const std::string again = zelnor::Zip("pay.xml", bytes, zelnor::Date::FromParts(2017, 4, 5));
  REQUIRE(zelnor::Unzip(again) == bytes);
  return 0;
}
