#include "zelnor/envelope/clsSHA1.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/envelope/word_blocks.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"

#include <bit>

namespace zelnor {
namespace {

constexpr std::string_view kBase64 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view kBase32 = "ABCDEFGHIJKLMNOPQRSTUVWXYZ234567";
constexpr Long kDigestBits = 160;
constexpr std::string_view kBodyTag = "<Body>";
constexpr std::string_view kNamespacedBodyTag = "<Body xmlns=\"http://www.govtalk.gov.uk/CM/envelope\">";

// SHA-1 (FIPS 180-4) of a text given piece by piece.
class Digest {
 public:
  void Add(std::string_view text) { blocks_.Add(text); }

  // 40 lower-case hexadecimal digits.
  String Finish() {
    blocks_.Finish();
    return HexadecimalText(state_);
  }

 private:
  void Compress(const WordBlock& block) {
    std::array<std::uint32_t, 80> w;
    for (std::size_t t = 0; t < 16; ++t) w[t] = block[t];
    for (std::size_t t = 16; t < 80; ++t) w[t] = std::rotl(w[t - 3] ^ w[t - 8] ^ w[t - 14] ^ w[t - 16], 1);
    std::uint32_t a = state_[0], b = state_[1], c = state_[2], d = state_[3], e = state_[4];
    // The five variables change their places with each round; five rounds bring them back.
    const auto five_rounds = [&](std::size_t t, auto mix, std::uint32_t constant) {
      Round(a, b, e, mix(b, c, d) + constant + w[t]);
      Round(e, a, d, mix(a, b, c) + constant + w[t + 1]);
      Round(d, e, c, mix(e, a, b) + constant + w[t + 2]);
      Round(c, d, b, mix(d, e, a) + constant + w[t + 3]);
      Round(b, c, a, mix(c, d, e) + constant + w[t + 4]);
    };
    using Word = std::uint32_t;
    const auto choose = [](Word x, Word y, Word z) { return z ^ (x & (y ^ z)); };
    const auto parity = [](Word x, Word y, Word z) { return x ^ y ^ z; };
    const auto majority = [](Word x, Word y, Word z) { return (x & y) | (z & (x | y)); };
    for (std::size_t t = 0; t < 20; t += 5) five_rounds(t, choose, 0x5a827999);
    for (std::size_t t = 20; t < 40; t += 5) five_rounds(t, parity, 0x6ed9eba1);
    for (std::size_t t = 40; t < 60; t += 5) five_rounds(t, majority, 0x8f1bbcdc);
    for (std::size_t t = 60; t < 80; t += 5) five_rounds(t, parity, 0xca62c1d6);
    state_[0] += a;
    state_[1] += b;
    state_[2] += c;
    state_[3] += d;
    state_[4] += e;
  }

  static void Round(std::uint32_t a, std::uint32_t& b, std::uint32_t& e, std::uint32_t mixed) {
    e += std::rotl(a, 5) + mixed;
    b = std::rotl(b, 30);
  }

  std::array<std::uint32_t, 5> state_ = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476, 0xc3d2e1f0};
  WordBlocks blocks_{[this](const WordBlock& block) { Compress(block); }};
};

// Hexadecimal digits as one character a pair, through the ANSI code page.
String BinaryText(const String& hexadecimal) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hexadecimal.size(); i += 2) {
    bytes.push_back(static_cast<char>(kDigits.find(hexadecimal[i]) * 16 + kDigits.find(hexadecimal[i + 1])));
  }
  return FromAnsi(bytes);
}

// The given element of the path, whatever its namespace.
String Step(std::string_view name) { return "/*[local-name() = '" + String(name) + "']"; }

// Hands an error on to the caller as a text that is already formatted.
[[noreturn]] void RaiseFormatted(std::string_view member) {
  const RuntimeError error = CurrentError();
  if (error.Number() == kFormattedError) throw error;
  throw RuntimeError(kFormattedError, "ZELNOR",
                     "Error in ZELNOR.dll::clsSHA1::" + String(member) +
                         ": Error Number = " + std::to_string(error.Number()) + " - " + error.Description());
}

}  // namespace

XmlDocument clsSHA1::CreateIRMark(clsGovTalkMessage& objsubmission) {
  try {
    XmlDocument document;
    document.LoadXML(objsubmission.XML());
    const Places places = FindPlaces(document);
    if (places.mark) places.mark.ParentNode().RemoveChild(places.mark);
    TakeMarks(places);
    PlaceMark(document, places);
    objsubmission.SubmissionDocument()->Header()->DocIRMark()->value(base64_mark_);
    return document;
  } catch (...) {
    RaiseFormatted("Sub CreateIRMark");
  }
}

String clsSHA1::MarkedText(clsGovTalkMessage& objsubmission) {
  try {
    const XmlDocument document = objsubmission.Document();
    const Places places = FindPlaces(document);
    TakeMarks(places);
    // The message's own document holds the new mark for as long as it is written.
    const XmlNode mark = PlaceMark(document, places);
    String text;
    document.Node().WriteXml([&](std::string_view piece) { text.append(piece); }, places.mark, true);
    places.header.RemoveChild(mark);
    objsubmission.SubmissionDocument()->Header()->DocIRMark()->value(base64_mark_);
    return text;
  } catch (...) {
    RaiseFormatted("Sub CreateIRMark");
  }
}

void clsSHA1::MarkSubmission(clsGovTalkMessage& objsubmission) {
  try {
    const Places places = FindPlaces(objsubmission.Document());
    TakeMarks(places);
    if (!places.anchor) ThrowObjectNotSet();
    objsubmission.SubmissionDocument()->Header()->DocIRMark()->value(base64_mark_);
  } catch (...) {
    RaiseFormatted("Sub CreateIRMark");
  }
}

clsSHA1::Places clsSHA1::FindPlaces(const XmlDocument& document) {
  Places places;
  XmlNode envelope = document.DocumentElement();
  if (envelope && envelope.BaseName() != "GovTalkMessage")
    envelope = document.SelectSingleNode("/" + Step("GovTalkMessage"));
  if (!envelope) return places;
  const String header_path = "." + Step("Body") + Step("IRenvelope") + Step("IRheader");
  places.body = envelope.SelectSingleNode("." + Step("Body"));
  places.header = envelope.SelectSingleNode(header_path);
  places.mark = envelope.SelectSingleNode(header_path + Step("IRmark"));
  if (places.mark) {
    places.anchor = places.mark.PreviousSibling();
    return places;
  }
  for (const char* name : {"Manifest", "DefaultCurrency", "Agent", "Principal", "PeriodEnd", "Keys"}) {
    places.anchor = envelope.SelectSingleNode(header_path + Step(name));
    if (places.anchor) break;
  }
  return places;
}

void clsSHA1::TakeMarks(const Places& places) {
  Digest digest;
  const auto add = [&](std::string_view piece) {
    if (piece.find(kBodyTag) == std::string_view::npos) {
      digest.Add(piece);
    } else {
      digest.Add(Replace(piece, kBodyTag, kNamespacedBodyTag));
    }
  };
  places.body.WriteXml(add, places.mark, true);
  base64_mark_ = DigestToBase64(BinaryText(digest.Finish())) + "=";
  base32_mark_ = Base64ToBase32(base64_mark_, kDigestBits);
}

XmlNode clsSHA1::PlaceMark(const XmlDocument& document, const Places& places) const {
  String ns;
  if (places.header.IsElement()) ns = places.header.ChildNamespace();
  const XmlNode mark = document.CreateNode(XmlNodeType::Element, "IRmark", ns);
  mark.Attribute("Type", "generic");
  mark.Text(base64_mark_);
  return places.header.InsertBefore(mark, places.anchor.NextSibling());
}

String clsSHA1::CreateIRMark2(const String& sXML) {
  try {
    // The position behind the end tag; without one, character 17.
    const std::size_t from = Find(sXML, "</GovTalkDetails>") + 17;
    const std::size_t end = Find(sXML, "</Body>", from + 1);
    const auto length = static_cast<std::ptrdiff_t>(end + 7) - static_cast<std::ptrdiff_t>(from);
    String text = Replace(Mid(sXML, static_cast<std::ptrdiff_t>(from), length), kBodyTag, kNamespacedBodyTag);
    const std::size_t mark = text.find("<IRmark");
    const std::size_t mark_end = mark == String::npos ? mark : text.find("</IRmark>", mark);
    if (mark_end == String::npos) ThrowInvalidArgument();
    text.erase(mark, mark_end + 9 - mark);
    text = PrettyPrintXML(text, true);
    text = Replace(Replace(Replace(text, "&apos;", "'"), "\t", ""), "\r\n", "");
    return DigestToBase64(SHA1(text, true)) + "=";
  } catch (...) {
    RaiseFormatted("Sub CreateIRMark2");
  }
}

String clsSHA1::SHA1(const String& strMessage, bool blnBinary) {
  String result;
  Handled("clsSHA1", "Function SHA1", [&] {
    Digest digest;
    digest.Add(strMessage);
    const String hexadecimal = digest.Finish();
    result = blnBinary ? BinaryText(hexadecimal) : hexadecimal;
  });
  return result;
}

std::int32_t clsSHA1::LShift(std::int32_t lngValue, Integer intShiftBits) {
  std::int32_t result = 0;
  Handled("clsSHA1", "Function LShift", [&] {
    if (intShiftBits < 0 || intShiftBits > 31) ThrowOverflow();
    result = static_cast<std::int32_t>(static_cast<std::uint32_t>(lngValue) << intShiftBits);
  });
  return result;
}

std::int32_t clsSHA1::RShift(std::int32_t lngValue, Integer intShiftBits) {
  std::int32_t result = 0;
  Handled("clsSHA1", "Function RShift", [&] {
    if (intShiftBits < 0 || intShiftBits > 31) ThrowOverflow();
    result = static_cast<std::int32_t>(static_cast<std::uint32_t>(lngValue) >> intShiftBits);
  });
  return result;
}

std::int32_t clsSHA1::AddUnsigned(std::int32_t lngX, std::int32_t lngY) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(lngX) + static_cast<std::uint32_t>(lngY));
}

// Eight binary digits a character, taken six at a time; no padding is added.
String clsSHA1::DigestToBase64(const String& strDigest) {
  String bits;
  for (const char c : ToAnsi(strDigest)) {
    const String digits = Long2Binary(static_cast<unsigned char>(c));
    bits.append(8 - digits.size(), '0').append(digits);
  }
  String text;
  for (std::size_t at = 0; at < bits.size(); at += 6) {
    String group = bits.substr(at, 6);
    group.append(6 - group.size(), '0');
    text.push_back(kBase64[static_cast<std::size_t>(Binary2Long(group))]);
  }
  return text;
}

String clsSHA1::Base32Of(const String& strBase64Mark) { return Base64ToBase32(strBase64Mark, kDigestBits); }

String clsSHA1::Base64ToBase32(const String& strBase64, Long lngBits) {
  return Convert_b2_2_b32(Convert_b64_2_b2(strBase64, lngBits));
}

String clsSHA1::Convert_b64_2_b2(const String& strBase64, Long lngBits) {
  String result;
  Handled("clsSHA1", "Function Convert_b64_2_b2", [&] {
    String bits;
    for (const char16_t unit : ToUtf16(strBase64.substr(0, strBase64.find('=')))) {
      const std::size_t position =
          unit < 0x80 ? kBase64.find(static_cast<char>(unit)) : std::string_view::npos;
      const String digits = Long2Binary(position == std::string_view::npos ? 0 : static_cast<Long>(position));
      bits.append(6 - digits.size(), '0').append(digits);
    }
    result = Left(bits, lngBits);
  });
  return result;
}

String clsSHA1::Convert_b2_2_b32(const String& strBits) {
  String result;
  Handled("clsSHA1", "Function Convert_b2_2_b32", [&] {
    String text;
    for (std::size_t at = 0; at < strBits.size(); at += 5) {
      String group = strBits.substr(at, 5);
      group.append(5 - group.size(), '0');
      text.push_back(kBase32[static_cast<std::size_t>(Binary2Long(group))]);
    }
    while (text.size() % 4 != 0) text.push_back('=');  // up to four, not eight
    result = text;
  });
  return result;
}

// Binary digits without leading zeros; "0" for zero.
String clsSHA1::Long2Binary(Long lngValue) {
  String result;
  Handled("clsSHA1", "Function Long2Binary", [&] {
    String digits;
    for (auto rest = static_cast<std::uint32_t>(lngValue); rest != 0; rest >>= 1)
      digits.insert(0, 1, rest & 1U ? '1' : '0');
    result = digits.empty() ? "0" : digits;
  });
  return result;
}

Long clsSHA1::Binary2Long(const String& strBits) {
  Long result = 0;
  Handled("clsSHA1", "Function Binary2Long", [&] {
    for (const char digit : strBits) result = AddUnsigned(LShift(result, 1), digit == '1' ? 1 : 0);
  });
  return result;
}

}  // namespace zelnor
