#include "zelnor/envelope/word_blocks.h"

#include "zelnor/platform/text.h"

#include <algorithm>
#include <cstring>

namespace zelnor {
namespace {

constexpr std::size_t kBlockBytes = 64;

bool IsAscii(std::string_view text) {
  std::uint64_t high_bits = 0;
  for (; text.size() >= sizeof(high_bits); text.remove_prefix(sizeof(high_bits))) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, text.data(), sizeof(eight));
    high_bits |= eight;
  }
  for (const char c : text) high_bits |= static_cast<unsigned char>(c);
  return (high_bits & 0x8080808080808080U) == 0;
}

}  // namespace

void WordBlocks::Add(std::string_view text) {
  if (IsAscii(text)) return AddBytes(text);
  std::string low_bytes;
  low_bytes.reserve(text.size());
  for (const char16_t unit : ToUtf16(text)) low_bytes.push_back(static_cast<char>(unit & 0xFF));
  AddBytes(low_bytes);
}

void WordBlocks::AddBytes(std::string_view bytes) {
  length_ += bytes.size();
  if (!waiting_.empty()) {
    const std::size_t missing = std::min(kBlockBytes - waiting_.size(), bytes.size());
    waiting_.append(bytes.substr(0, missing));
    bytes.remove_prefix(missing);
    if (waiting_.size() < kBlockBytes) return;
    Give(reinterpret_cast<const unsigned char*>(waiting_.data()));
    waiting_.clear();
  }
  for (; bytes.size() >= kBlockBytes; bytes.remove_prefix(kBlockBytes)) {
    Give(reinterpret_cast<const unsigned char*>(bytes.data()));
  }
  waiting_.assign(bytes);
}

void WordBlocks::Finish() {
  const std::uint64_t bits = length_ * 8;
  std::string end(1, '\x80');
  while ((length_ + end.size()) % kBlockBytes != kBlockBytes - 8) end.push_back('\0');
  for (int shift = 56; shift >= 0; shift -= 8) end.push_back(static_cast<char>((bits >> shift) & 0xFF));
  AddBytes(end);
}

void WordBlocks::Give(const unsigned char* bytes) {
  WordBlock block;
  for (std::size_t i = 0; i < block.size(); ++i) {
    block[i] = std::uint32_t{bytes[4 * i]} << 24 | std::uint32_t{bytes[4 * i + 1]} << 16 |
               std::uint32_t{bytes[4 * i + 2]} << 8 | std::uint32_t{bytes[4 * i + 3]};
  }
  compress_(block);
}

}  // namespace zelnor
