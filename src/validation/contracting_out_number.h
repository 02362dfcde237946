#pragma once

#include "zelnor/platform/text.h"

namespace zelnor {

/// Whether the last character is the check letter of a contracting-out number of nine characters. False for
/// a text with anything but digits at positions 2 to 8.
///
/// @param start what the sum starts at: 51 for a scheme's number (SCON), 37 for an employer's (ECON)
inline bool HasContractingOutCheckLetter(const String& number, int start) {
  if (number.size() != 9 || Length(number) != 9) return false;
  int sum = start;
  for (int position = 2; position <= 8; ++position) {
    const char c = number[static_cast<std::size_t>(position) - 1];
    if (c < '0' || c > '9') return false;
    sum += (c - '0') * (10 - position);
  }
  return number[8] == "ABCDEFHJKLMNPQRTWXY"[sum % 19];
}

}  // namespace zelnor
