#include "zelnor/envelope/clsBase64.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"

#include <array>

namespace zelnor {
namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr int kNoDigit = -1;

constexpr std::array<int, 256> ReverseTable() {
  std::array<int, 256> table{};
  table.fill(kNoDigit);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i)
    table[static_cast<unsigned char>(kAlphabet[i])] = static_cast<int>(i);
  return table;
}

constexpr std::array<int, 256> kDigits = ReverseTable();

bool IsXmlSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

String Encode(std::string_view bytes) {
  String text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const std::string_view group = bytes.substr(at, 3);
    unsigned bits = 0;
    for (std::size_t i = 0; i < 3; ++i)
      bits = bits << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
    for (std::size_t i = 0; i < 4; ++i) {
      text.push_back(i <= group.size() ? kAlphabet[(bits >> (18 - 6 * i)) & 63U] : '=');
    }
  }
  return text;
}

std::string Decode(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3);
  unsigned bits = 0;
  std::size_t digits = 0;
  std::size_t padding = 0;
  for (const char c : text) {
    if (IsXmlSpace(c)) continue;
    if (c == '=') {
      ++padding;
      continue;
    }
    const int digit = kDigits[static_cast<unsigned char>(c)];
    if (digit == kNoDigit || padding != 0) ThrowTypeMismatch();
    bits = bits << 6 | static_cast<unsigned>(digit);
    if (++digits % 4 == 0) {
      for (int shift = 16; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>((bits >> shift) & 0xFFU));
      bits = 0;
    }
  }
  const std::size_t rest = digits % 4;
  if (rest == 1 || padding > 2 || (digits + padding) % 4 != 0) ThrowTypeMismatch();
  if (rest >= 2) bytes.push_back(static_cast<char>((bits >> (6 * rest - 8)) & 0xFFU));
  if (rest == 3) bytes.push_back(static_cast<char>((bits >> 2) & 0xFFU));
  return bytes;
}

}  // namespace

String clsBase64::EncodeString(const String& strText) {
  String result;
  Handled("clsBase64", "Function EncodeString", [&] { result = Encode(ToAnsi(strText)); });
  return result;
}

String clsBase64::DecodeToString(const String& strBase64) {
  String result;
  Handled("clsBase64", "Function DecodeToString", [&] { result = FromAnsi(Decode(strBase64)); });
  return result;
}

String clsBase64::EncodeBytes(const std::string& bytData) {
  String result;
  Handled("clsBase64", "Function EncodeBytes", [&] { result = Encode(bytData); });
  return result;
}

std::string clsBase64::DecodeBytes(const String& strBase64) {
  std::string result;
  Handled("clsBase64", "Function DecodeBytes", [&] { result = Decode(strBase64); });
  return result;
}

}  // namespace zelnor
