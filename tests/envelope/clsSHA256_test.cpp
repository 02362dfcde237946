#include "zelnor/envelope/clsSHA256.h"

#include "support/shell.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

String Encrypt(const String& text) { return clsSHA256().Encrypt(text); }

TEST(clsSHA256, GivesThePublishedDigests) {
  EXPECT_EQ(Encrypt(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(Encrypt("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(Encrypt("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(Encrypt(String(1000000, 'a')),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(clsSHA256, HashesTheLowByteOfEachCodeUnit) {
  // U+0161 has the low byte of "a".
  EXPECT_EQ(Encrypt("\xC5\xA1"
                    "bc"),
            Encrypt("abc"));
  // U+1D518 is the code units D835 and DD18.
  EXPECT_EQ(Encrypt("\xF0\x9D\x94\x98"), Encrypt("\x35\x18"));
}

TEST(clsSHA256, AgreesWithOpenSSLAtEveryLengthAroundABlock) {
  if (!test::HasPrograms("openssl")) GTEST_SKIP() << "openssl is not installed";
  const test::TemporaryFolder folder;
  for (const std::size_t length : {1U, 54U, 55U, 56U, 57U, 63U, 64U, 65U, 119U, 120U, 128U}) {
    const String text(length, 'q');
    EXPECT_EQ(Encrypt(text),
              test::OutputOf("openssl dgst -sha256 -r < '" + folder.Put("text", text) + "' | cut -d' ' -f1"))
        << length;
  }
}

TEST(clsSHA256, ThePoundSignIsTheByteA3) {
  if (!test::HasPrograms("openssl")) GTEST_SKIP() << "openssl is not installed";
  const test::TemporaryFolder folder;
  EXPECT_EQ(Encrypt("\xC2\xA3"
                    "1.00"),
            test::OutputOf("openssl dgst -sha256 -r < '" +
                           folder.Put("text",
                                      "\xA3"
                                      "1.00") +
                           "' | cut -d' ' -f1"));
}

}  // namespace
}  // namespace zelnor
