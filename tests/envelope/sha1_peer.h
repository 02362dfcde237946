#pragma once

#include "zelnor/envelope/clsSHA1.h"

namespace zelnor {

/// Opens the private steps of the mark to its tests.
struct clsSHA1Peer {
  static String SHA1(const String& message, bool binary) { return clsSHA1::SHA1(message, binary); }
  static std::int32_t LShift(std::int32_t value, Integer bits) { return clsSHA1::LShift(value, bits); }
  static std::int32_t RShift(std::int32_t value, Integer bits) { return clsSHA1::RShift(value, bits); }
  static std::int32_t AddUnsigned(std::int32_t x, std::int32_t y) { return clsSHA1::AddUnsigned(x, y); }
  static String DigestToBase64(const String& digest) { return clsSHA1::DigestToBase64(digest); }
  static String Base64ToBase32(const String& base64, Long bits) {
    return clsSHA1::Base64ToBase32(base64, bits);
  }
  static String Convert_b64_2_b2(const String& base64, Long bits) {
    return clsSHA1::Convert_b64_2_b2(base64, bits);
  }
  static String Convert_b2_2_b32(const String& bits) { return clsSHA1::Convert_b2_2_b32(bits); }
  static String Long2Binary(Long value) { return clsSHA1::Long2Binary(value); }
  static Long Binary2Long(const String& bits) { return clsSHA1::Binary2Long(bits); }

  /// The mark of a text that is hashed as it stands.
  static String MarkOfText(const String& text) { return DigestToBase64(SHA1(text, true)) + "="; }
};

}  // namespace zelnor
