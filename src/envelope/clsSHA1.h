#pragma once

#include "zelnor/platform/xml.h"

#include <cstdint>

namespace zelnor {

class clsGovTalkMessage;

/// The IRmark: the SHA-1 digest of a submission's `Body`, which HMRC checks on arrival and an employer can
/// print as proof of what was sent. The digest is taken over the `xml` text of `Body`, without an `IRmark`
/// that is already there; byte i is the low byte of the text's UTF-16 code unit i.
///
/// @code
/// clsSHA1 sha1;
/// XmlDocument marked = sha1.CreateIRMark(*message);
/// std::cout << sha1.Base32Mark();
/// @endcode
class ZELNOR_API clsSHA1 {
 public:
  /// The last mark in Base64: 28 characters, of which the last is "="; empty at first.
  String Base64Mark() const { return base64_mark_; }

  /// The last mark in Base32: 32 characters; empty at first.
  String Base32Mark() const { return base32_mark_; }

  /// Computes the marks of a message and returns a new document of its envelope that holds the `IRmark`, at
  /// the place of an old one or behind the last of the header's elements that may stand before it. The mark
  /// is also stored in the message's `SubmissionDocument.Header.DocIRMark`. Raises 0x80040200 with a
  /// description that begins "Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark: Error Number = " after any
  /// failure, such as a header without `Keys`.
  XmlDocument CreateIRMark(clsGovTalkMessage& objsubmission);

  /// The Base64 mark of the text of an envelope that holds an `IRmark`; no property changes. Raises
  /// 0x80040200 with a description that begins "Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark2: Error Number
  /// = " after any failure, such as a text without `IRmark`.
  String CreateIRMark2(const String& sXML);

  /// The `xml` text of the document that CreateIRMark returns, made without that document.
  ZELNOR_INTERNAL String MarkedText(clsGovTalkMessage& objsubmission);

  /// The same as CreateIRMark where the new document isn't wanted: computes the marks of the message's own
  /// document and stores them, without a copy.
  ZELNOR_INTERNAL void MarkSubmission(clsGovTalkMessage& objsubmission);

  /// The Base32 form of a mark in Base64; empty for empty text.
  ZELNOR_INTERNAL static String Base32Of(const String& strBase64Mark);

 private:
  friend struct clsSHA1Peer;

  // Where the mark belongs in an envelope.
  struct Places {
    XmlNode body;
    XmlNode header;
    XmlNode mark;
    XmlNode anchor;
  };

  static Places FindPlaces(const XmlDocument& document);
  void TakeMarks(const Places& places);
  XmlNode PlaceMark(const XmlDocument& document, const Places& places) const;

  static String SHA1(const String& strMessage, bool blnBinary);
  static std::int32_t LShift(std::int32_t lngValue, Integer intShiftBits);
  static std::int32_t RShift(std::int32_t lngValue, Integer intShiftBits);
  static std::int32_t AddUnsigned(std::int32_t lngX, std::int32_t lngY);
  static String DigestToBase64(const String& strDigest);
  static String Base64ToBase32(const String& strBase64, Long lngBits);
  static String Convert_b64_2_b2(const String& strBase64, Long lngBits);
  static String Convert_b2_2_b32(const String& strBits);
  static String Long2Binary(Long lngValue);
  static Long Binary2Long(const String& strBits);

  String base64_mark_;
  String base32_mark_;
};

}  // namespace zelnor
