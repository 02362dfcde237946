#pragma once

/// @file
/// Text as the digests of this system see it. Byte i of the message is the low byte of the text's UTF-16 code
/// unit i, so that a character above U+00FF loses its high byte and the pound sign gives A3; four bytes go in
/// a word, big-endian.

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zelnor {

/// Sixteen words, the portion that a compression function takes at a time.
using WordBlock = std::array<std::uint32_t, 16>;

/// Cuts a text, given piece by piece, into padded blocks of sixteen words.
class WordBlocks {
 public:
  /// @param compress called with each block
  explicit WordBlocks(std::function<void(const WordBlock& block)> compress)
      : compress_(std::move(compress)) {}

  /// The next piece of the text in UTF-8, cut between characters.
  void Add(std::string_view text);

  /// Appends the mark behind the text's end, the padding and the length in bits. Nothing may be added
  /// afterwards.
  void Finish();

 private:
  void AddBytes(std::string_view bytes);
  void Give(const unsigned char* bytes);

  std::function<void(const WordBlock& block)> compress_;
  std::string waiting_;  // the bytes that don't fill a block yet
  std::uint64_t length_ = 0;
};

/// Words as hexadecimal digits: eight each, lower case, padded with "0" on the left.
template <class Words>
std::string HexadecimalText(const Words& words) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const std::uint32_t word : words) {
    for (int shift = 28; shift >= 0; shift -= 4) text.push_back(kDigits[(word >> shift) & 0xFU]);
  }
  return text;
}

}  // namespace zelnor
