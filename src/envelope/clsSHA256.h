#pragma once

#include "zelnor/platform/values.h"

namespace zelnor {

/// SHA-256 (FIPS 180-4) of a text, for the `BacsHashCode` of a payment. The text's bytes are the low bytes of
/// its UTF-16 code units.
///
/// @code
/// String hash = clsSHA256().Encrypt("01234567" "89" "0000123.45");
/// @endcode
class ZELNOR_API clsSHA256 {
 public:
  /// The digest as 64 lower-case hexadecimal digits. An empty text gives the digest of nothing.
  String Encrypt(const String& strMessage);
};

}  // namespace zelnor
