#include "zelnor/envelope/clsBase64.h"

#include "support/recording_host.h"
#include "support/shell.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

std::string AllBytes() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<char>(i));
  return bytes;
}

class clsBase64Test : public testing::Test {
 protected:
  // The one message that decoding shows, with an empty result.
  void ExpectRefused(const String& base64) {
    host_->messages.clear();
    EXPECT_EQ(coder_.DecodeToString(base64), "") << base64;
    EXPECT_EQ(coder_.DecodeBytes(base64), "") << base64;
    ASSERT_EQ(host_->messages.size(), 2U) << base64;
    EXPECT_EQ(host_->messages[0].text,
              "Error in ZELNOR.dll::clsBase64: Function DecodeToString: Error 13 - Type mismatch");
    EXPECT_EQ(host_->messages[1].text,
              "Error in ZELNOR.dll::clsBase64: Function DecodeBytes: Error 13 - Type mismatch");
  }

  test::WithRecordingHost host_;
  clsBase64 coder_;
};

TEST_F(clsBase64Test, CodesTheKnownExamples) {
  const std::pair<String, String> examples[] = {{"", ""},
                                                {"f", "Zg=="},
                                                {"fo", "Zm8="},
                                                {"foo", "Zm9v"},
                                                {"foob", "Zm9vYg=="},
                                                {"fooba", "Zm9vYmE="},
                                                {"foobar", "Zm9vYmFy"}};
  for (const auto& [plain, coded] : examples) {
    EXPECT_EQ(coder_.EncodeString(plain), coded);
    EXPECT_EQ(coder_.EncodeBytes(plain), coded);
    EXPECT_EQ(coder_.DecodeToString(coded), plain);
    EXPECT_EQ(coder_.DecodeBytes(coded), plain);
  }
  EXPECT_TRUE(host_->messages.empty());
}

TEST_F(clsBase64Test, EveryByteComesBack) {
  EXPECT_EQ(coder_.DecodeBytes(coder_.EncodeBytes(AllBytes())), AllBytes());
}

TEST_F(clsBase64Test, AgreesWithOpenSSL) {
  if (!test::HasPrograms("openssl")) GTEST_SKIP() << "openssl is not installed";
  const test::TemporaryFolder folder;
  for (const std::size_t length : {1U, 2U, 3U, 47U, 48U, 49U, 255U, 256U}) {
    const std::string bytes = AllBytes().substr(256 - length);
    EXPECT_EQ(coder_.EncodeBytes(bytes),
              test::OutputOf("openssl base64 -A -in '" + folder.Put("bytes", bytes) + "'"));
  }
}

TEST_F(clsBase64Test, LongTextHasNoLineEnds) {
  EXPECT_EQ(coder_.EncodeString(String(3000, 'x')).find_first_of("\r\n"), String::npos);
}

TEST_F(clsBase64Test, TextGoesThroughWindows1252) {
  EXPECT_EQ(coder_.EncodeString("\xC2\xA3"), "ow==");      // pound sign: A3
  EXPECT_EQ(coder_.EncodeString("\xE2\x82\xAC"), "gA==");  // euro sign: 80
  EXPECT_EQ(coder_.DecodeToString("o4A="), "\xC2\xA3\xE2\x82\xAC");
}

TEST_F(clsBase64Test, CharactersOutsideThatPageBecomeQuestionMarks) {
  EXPECT_EQ(coder_.DecodeToString(coder_.EncodeString("\xCE\xA9x")), "?x");
}

TEST_F(clsBase64Test, WhiteSpaceWithinIsSkipped) {
  EXPECT_EQ(coder_.DecodeToString(" Zm9v\r\n\tYmE=\n"), "fooba");
}

TEST_F(clsBase64Test, RefusesWhatIsNoBase64) {
  for (const char* text : {"Zm9v*", "Z", "Zm9", "Zg=", "Zg===", "Zg==Zg==", "=", "====", "Zm9v-_==",
                           "\xC2\xA3"
                           "m9v"}) {
    ExpectRefused(text);
  }
}

}  // namespace
}  // namespace zelnor
