#pragma once

#include "zelnor/platform/values.h"

namespace zelnor {

/// Base64 of texts and bytes, without line ends. Texts go through Windows-1252, so that characters outside
/// that page come back as "?".
///
/// @code
/// clsBase64().EncodeString("Man");       // "TWFu"
/// clsBase64().DecodeToString("TWFu");    // "Man"
/// @endcode
class ZELNOR_API clsBase64 {
 public:
  /// Base64 of the text's bytes in Windows-1252. Empty for empty text.
  String EncodeString(const String& strText);

  /// The text whose bytes in Windows-1252 the Base64 stands for. White space in it is skipped; anything else
  /// that is no Base64 is reported as error 13, and the result is empty.
  String DecodeToString(const String& strBase64);

  /// Base64 of bytes.
  String EncodeBytes(const std::string& bytData);

  /// The bytes that the Base64 stands for; failures as in DecodeToString.
  std::string DecodeBytes(const String& strBase64);
};

}  // namespace zelnor
