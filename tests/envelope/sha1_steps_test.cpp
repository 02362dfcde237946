#include <limits>

#include "envelope/sha1_peer.h"
#include "support/recording_host.h"
#include "support/shell.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using Steps = clsSHA1Peer;

String Hex(const String& text) { return Steps::SHA1(text, false); }

TEST(SHA1, GivesThePublishedDigests) {
  EXPECT_EQ(Hex(""), "da39a3ee5e6b4b0d3255bfef95601890afd80709");
  EXPECT_EQ(Hex("abc"), "a9993e364706816aba3e25717850c26c9cd0d89d");
  EXPECT_EQ(Hex("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "84983e441c3bd26ebaae4aa1f95129e5e54670f1");
  EXPECT_EQ(Hex(String(1000000, 'a')), "34aa973cd4c4daa4f61eeb2bdbad27316534016f");
}

TEST(SHA1, HashesTheLowByteOfEachCodeUnit) {
  EXPECT_EQ(Hex("\xC5\xA1"
                "bc"),
            Hex("abc"));                                // U+0161
  EXPECT_EQ(Hex("\xF0\x9D\x94\x98"), Hex("\x35\x18"));  // U+1D518: D835 DD18
}

TEST(SHA1, ThePoundSignIsTheByteA3) {
  if (!test::HasPrograms("openssl")) GTEST_SKIP() << "openssl is not installed";
  const test::TemporaryFolder folder;
  EXPECT_EQ(Hex("\xC2\xA3"
                "1.00"),
            test::OutputOf("openssl dgst -sha1 -r < '" +
                           folder.Put("text",
                                      "\xA3"
                                      "1.00") +
                           "' | cut -d' ' -f1"));
}

TEST(SHA1, AgreesWithOpenSSLAtEveryLengthAroundABlock) {
  if (!test::HasPrograms("openssl")) GTEST_SKIP() << "openssl is not installed";
  const test::TemporaryFolder folder;
  for (const std::size_t length : {1U, 54U, 55U, 56U, 57U, 63U, 64U, 65U, 119U, 120U, 128U}) {
    const String text(length, 'q');
    EXPECT_EQ(Hex(text),
              test::OutputOf("openssl dgst -sha1 -r < '" + folder.Put("text", text) + "' | cut -d' ' -f1"))
        << length;
  }
}

TEST(SHA1, BinaryOutputIsOneCharacterAByteOfTheAnsiCodePage) {
  // a9 99 3e 36 ...: 99 is the trade mark sign in that page.
  EXPECT_EQ(Steps::SHA1("abc", true).substr(0, 7), "\xC2\xA9\xE2\x84\xA2>6");
}

TEST(SHA1, TheMarkOfATextIsTheDigestInBase64) {
  EXPECT_EQ(Steps::MarkOfText(""), "2jmj7l5rSw0yVb/vlWAYkK/YBwk=");
  EXPECT_EQ(Steps::MarkOfText("abc"), "qZk+NkcGgWq6PiVxeFDCbJzQ2J0=");
}

TEST(DigestToBase64, EveryByteValueSurvives) {
  // The five bytes that Windows-1252 leaves undefined are among them.
  String digest;
  for (const char* character : {"\xC2\x81", "\xC2\x8D", "\xC2\x8F", "\xC2\x90", "\xC2\x9D", "\xC3\xBF"})
    digest += character;
  EXPECT_EQ(Steps::DigestToBase64(digest), "gY2PkJ3/");
}

TEST(DigestToBase64, AShortLastGroupIsFilledWithZerosAndNotPadded) {
  EXPECT_EQ(Steps::DigestToBase64(""), "");
  EXPECT_EQ(Steps::DigestToBase64("f"), "Zg");
  EXPECT_EQ(Steps::DigestToBase64("fo"), "Zm8");
  EXPECT_EQ(Steps::DigestToBase64(String(20, 'x')).size(), 27U);
}

TEST(Base64ToBase32, GivesTheDigestInTheOtherAlphabet) {
  // Known digests in both forms.
  EXPECT_EQ(Steps::Base64ToBase32("2jmj7l5rSw0yVb/vlWAYkK/YBwk=", 160), "3I42H3S6NNFQ2MSVX7XZKYAYSCX5QBYJ");
  EXPECT_EQ(Steps::Base64ToBase32("qZk+NkcGgWq6PiVxeFDCbJzQ2J0=", 160), "VGMT4NSHA2AWVOR6EVYXQUGCNSONBWE5");
}

TEST(Convert_b64_2_b2, StopsAtTheFirstEqualsSignAndAtTheNumberOfBits) {
  EXPECT_EQ(Steps::Convert_b64_2_b2("AB=B", 160), "000000000001");
  EXPECT_EQ(Steps::Convert_b64_2_b2("/+", 160), "111111111110");
  EXPECT_EQ(Steps::Convert_b64_2_b2("/+", 7), "1111111");
  EXPECT_EQ(Steps::Convert_b64_2_b2("/+", 0), "");
  EXPECT_EQ(Steps::Convert_b64_2_b2("", 160), "");
}

TEST(Convert_b64_2_b2, ACharacterOutsideTheAlphabetCountsZero) {
  EXPECT_EQ(Steps::Convert_b64_2_b2("*/", 160), "000000111111");
  EXPECT_EQ(Steps::Convert_b64_2_b2("\xC2\xA3/", 160), "000000111111");
  EXPECT_EQ(Steps::Convert_b64_2_b2("\xE2\x82\xAC/", 160), "000000111111");
}

TEST(Convert_b64_2_b2, ANegativeNumberOfBitsIsReported) {
  test::WithRecordingHost host;
  EXPECT_EQ(Steps::Convert_b64_2_b2("AB", -1), "");
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsSHA1: Function Convert_b64_2_b2: Error 5 - Invalid procedure call or "
            "argument");
}

TEST(Convert_b2_2_b32, PadsToAMultipleOfFour) {
  EXPECT_EQ(Steps::Convert_b2_2_b32(""), "");
  EXPECT_EQ(Steps::Convert_b2_2_b32("11111"), "7===");
  EXPECT_EQ(Steps::Convert_b2_2_b32("0000000001"), "AB==");
  EXPECT_EQ(Steps::Convert_b2_2_b32("000000000100010"), "ABC=");
  EXPECT_EQ(Steps::Convert_b2_2_b32("00000000010001000011"), "ABCD");
  EXPECT_EQ(Steps::Convert_b2_2_b32(String(25, '1')), "77777===");  // eight, as four and four
}

TEST(Convert_b2_2_b32, AShortLastGroupIsFilledWithZeros) {
  EXPECT_EQ(Steps::Convert_b2_2_b32("1"), "Q===");
  EXPECT_EQ(Steps::Convert_b2_2_b32("111111"), "7Q==");
}

TEST(Binary, TurnsNumbersIntoDigitsAndBack) {
  EXPECT_EQ(Steps::Long2Binary(0), "0");
  EXPECT_EQ(Steps::Long2Binary(1), "1");
  EXPECT_EQ(Steps::Long2Binary(63), "111111");
  EXPECT_EQ(Steps::Long2Binary(64), "1000000");
  EXPECT_EQ(Steps::Binary2Long(""), 0);
  EXPECT_EQ(Steps::Binary2Long("00101"), 5);
  for (const Long number : {0, 1, 2, 31, 63, 255, 65536, std::numeric_limits<Long>::max()}) {
    EXPECT_EQ(Steps::Binary2Long(Steps::Long2Binary(number)), number);
  }
}

TEST(Shift, DropsWhatLeavesTheWord) {
  EXPECT_EQ(Steps::LShift(1, 0), 1);
  EXPECT_EQ(Steps::LShift(1, 30), 0x40000000);
  EXPECT_EQ(Steps::LShift(1, 31), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(Steps::LShift(3, 31), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(Steps::LShift(-1, 4), -16);
  EXPECT_EQ(Steps::LShift(0x12345678, 8), 0x34567800);
}

TEST(Shift, ToTheRightFillsWithZeros) {
  EXPECT_EQ(Steps::RShift(-1, 0), -1);
  EXPECT_EQ(Steps::RShift(-1, 1), 0x7FFFFFFF);
  EXPECT_EQ(Steps::RShift(-1, 31), 1);
  EXPECT_EQ(Steps::RShift(0x12345678, 29), 0);
  EXPECT_EQ(Steps::RShift(0x12345678, 8), 0x123456);
}

TEST(Shift, OutOf0To31IsAnOverflowAndGivesZero) {
  for (const int bits : {-1, 32, 100}) {
    test::WithRecordingHost host;
    EXPECT_EQ(Steps::LShift(1, static_cast<Integer>(bits)), 0);
    EXPECT_EQ(Steps::RShift(1, static_cast<Integer>(bits)), 0);
    ASSERT_EQ(host->messages.size(), 2U);
    EXPECT_EQ(host->messages[0].text, "Error in ZELNOR.dll::clsSHA1: Function LShift: Error 6 - Overflow");
    EXPECT_EQ(host->messages[1].text, "Error in ZELNOR.dll::clsSHA1: Function RShift: Error 6 - Overflow");
  }
}

TEST(AddUnsigned, WrapsAround) {
  EXPECT_EQ(Steps::AddUnsigned(-1, 1), 0);
  EXPECT_EQ(Steps::AddUnsigned(0x7FFFFFFF, 1), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(
      Steps::AddUnsigned(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::min()),
      0);
}

}  // namespace
}  // namespace zelnor
