#include "zelnor/envelope/word_blocks.h"

#include "zelnor/platform/text.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using testing::Each;
using testing::ElementsAre;

std::vector<WordBlock> BlocksOf(const std::vector<std::string_view>& pieces) {
  std::vector<WordBlock> blocks;
  WordBlocks cutter([&](const WordBlock& block) { blocks.push_back(block); });
  for (const std::string_view piece : pieces) cutter.Add(piece);
  cutter.Finish();
  return blocks;
}

std::vector<WordBlock> BlocksOf(const String& text) { return BlocksOf(std::vector<std::string_view>{text}); }

TEST(WordBlocks, AnEmptyTextIsOneBlockOfTheEndMarkAlone) {
  const auto blocks = BlocksOf(String());
  ASSERT_EQ(blocks.size(), 1U);
  EXPECT_EQ(blocks[0], (WordBlock{0x80000000}));
}

TEST(WordBlocks, FourBytesGoInAWordTheFirstOneHighest) {
  const auto blocks = BlocksOf("abcde");
  ASSERT_EQ(blocks.size(), 1U);
  EXPECT_EQ(blocks[0][0], 0x61626364U);
  EXPECT_EQ(blocks[0][1], 0x65800000U);
  EXPECT_EQ(blocks[0][14], 0U);
  EXPECT_EQ(blocks[0][15], 40U);
}

TEST(WordBlocks, NeedAsManyWordsAsTextEndMarkAndLengthTake) {
  for (const std::size_t length : {0U, 1U, 54U, 55U, 56U, 57U, 63U, 64U, 65U, 119U, 120U, 128U, 1000U}) {
    EXPECT_EQ(BlocksOf(String(length, 'x')).size(), (length + 8) / 64 + 1) << length;
  }
}

TEST(WordBlocks, TheLengthStandsInBitsAtTheEnd) {
  EXPECT_EQ(BlocksOf(String(55, 'x')).back()[15], 440U);
  const auto two = BlocksOf(String(56, 'x'));
  ASSERT_EQ(two.size(), 2U);
  EXPECT_EQ(two[0][14], 0x80000000U);
  EXPECT_EQ(two[0][15], 0U);
  EXPECT_EQ(two[1], (WordBlock{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 448}));
}

TEST(WordBlocks, AByteIsTheLowByteOfACodeUnit) {
  EXPECT_EQ(BlocksOf("\xC2\xA3")[0][0], 0xA3800000U);          // pound sign
  EXPECT_EQ(BlocksOf("\xE2\x82\xAC")[0][0], 0xAC800000U);      // euro sign, U+20AC
  EXPECT_EQ(BlocksOf("\xC4\x80")[0][0], 0x00800000U);          // U+0100
  EXPECT_EQ(BlocksOf("a\xC3\xBF")[0][0], 0x61FF8000U);         // U+00FF
  EXPECT_EQ(BlocksOf("\xF0\x9D\x94\x98")[0][0], 0x35188000U);  // U+1D518: D835 DD18
  EXPECT_EQ(BlocksOf("\xF0\x9D\x94\x98")[0][15], 16U);
}

TEST(WordBlocks, PiecesCutAnywhereGiveTheBlocksOfTheWhole) {
  String text;
  for (int i = 0; i < 60; ++i) text += "x\xC2\xA3\xE2\x82\xAC";
  std::vector<std::size_t> ends;  // where a character ends
  for (std::size_t i = 1; i <= text.size(); ++i) {
    if (i == text.size() || (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U) ends.push_back(i);
  }
  const auto whole = BlocksOf(text);
  for (const std::size_t cut : ends) {
    const std::string_view view = text;
    EXPECT_EQ(BlocksOf({view.substr(0, cut), view.substr(cut)}), whole) << cut;
  }
  std::vector<std::string_view> characters;
  std::size_t from = 0;
  for (const std::size_t end : ends) {
    characters.push_back(std::string_view(text).substr(from, end - from));
    characters.emplace_back();
    from = end;
  }
  EXPECT_EQ(BlocksOf(characters), whole);
}

TEST(HexadecimalText, WritesEightLowerCaseDigitsAWord) {
  EXPECT_EQ(HexadecimalText(std::vector<std::uint32_t>{0, 0xABCDEF, 0xFFFFFFFF}), "0000000000abcdefffffffff");
  EXPECT_EQ(HexadecimalText(std::vector<std::uint32_t>{}), "");
}

}  // namespace
}  // namespace zelnor
