#include "zelnor/envelope/clsDZEncoder.h"

#include "zelnor/envelope/clsBase64.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"
#include "zelnor/platform/zip.h"

#include "support/archives.h"
#include "support/little_memory.h"
#include "support/recording_host.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ByUnzip;
using test::TemporaryFolder;
using testing::HasSubstr;

constexpr const char* kUnzipFailed = "Error occurred UnZipping Data";

class DZEncoder : public testing::Test {
 protected:
  DZEncoder() {
    SetProgramFolder(folder_.Path());
    host_->now = Date::FromParts(2017, 4, 5).WithTimeOf(Date::FromTime(10, 11, 12));
  }
  ~DZEncoder() override { SetProgramFolder(""); }

  static String Encoded(const std::string& bytes) { return clsBase64().EncodeBytes(bytes); }

  TemporaryFolder folder_;
  test::WithRecordingHost host_;
  clsDZEncoder coder_;
};

TEST_F(DZEncoder, IsAlwaysInstalled) { EXPECT_TRUE(coder_.IsDLLInstalled()); }

TEST_F(DZEncoder, GivesBackWhatItPacked) {
  for (const String text :
       {"a", "<Employee>Zo\xC3\xAB \xE2\x82\xAC \xF0\x9D\x94\x98</Employee>", "two\nlines"}) {
    EXPECT_EQ(clsDZEncoder().UncompressAndDecodeData(coder_.CompressAndEncodeData(text)), text);
  }
}

TEST_F(DZEncoder, MakesAZipWithOneEntryNamedAfterTheTime) {
  const String packed = coder_.CompressAndEncodeData("<Employee>Zo\xC3\xAB</Employee>");
  const std::string archive = clsBase64().DecodeBytes(packed);
  EXPECT_EQ(ByUnzip("-Z -1", archive), "05042017Z101112.xml");
  EXPECT_EQ(ByUnzip("-p", archive), "<Employee>Zo\xC3\xAB</Employee>");
}

TEST_F(DZEncoder, WritesBase64InOneLine) {
  String text;
  for (int i = 0; i < 3000; ++i) text += std::to_string(i * 7919);
  EXPECT_EQ(coder_.CompressAndEncodeData(text).find_first_of("\r\n "), String::npos);
}

TEST_F(DZEncoder, KeepsTheStepsOfPacking) {
  const String packed = coder_.CompressAndEncodeData("text");
  EXPECT_EQ(coder_.UncompressedData(), "text");
  EXPECT_EQ(coder_.EncodedData(), packed);
  EXPECT_EQ(ToAnsi(coder_.CompressedData()), clsBase64().DecodeBytes(packed));
  EXPECT_EQ(clsBase64().EncodeString(coder_.CompressedData()), packed);
  EXPECT_EQ(coder_.DecodedData(), "");
}

TEST_F(DZEncoder, KeepsTheStepsOfUnpacking) {
  const std::string archive = test::ZippedByZip("text");
  EXPECT_EQ(coder_.UncompressAndDecodeData(Encoded(archive)), "text");
  EXPECT_EQ(coder_.EncodedData(), Encoded(archive));
  EXPECT_EQ(ToAnsi(coder_.DecodedData()), archive);
  EXPECT_EQ(coder_.UncompressedData(), "text");
  EXPECT_EQ(coder_.CompressedData(), "");
}

TEST_F(DZEncoder, KeepsTextsThatAreWritten) {
  coder_.UncompressedData("1");
  coder_.CompressedData("2");
  coder_.EncodedData("3");
  coder_.DecodedData("4");
  EXPECT_EQ(coder_.UncompressedData() + coder_.CompressedData() + coder_.EncodedData() + coder_.DecodedData(),
            "1234");
}

TEST_F(DZEncoder, HasNothingToDoForAnEmptyText) {
  coder_.UncompressedData("before");
  EXPECT_EQ(coder_.CompressAndEncodeData(""), "");
  EXPECT_EQ(coder_.UncompressedData(), "");
  EXPECT_EQ(coder_.UncompressAndDecodeData(""), "");
}

TEST_F(DZEncoder, PacksAnEmptyTextWhenToldTo) {
  const String packed = coder_.PackAndEncode("");
  EXPECT_EQ(ByUnzip("-Z -1", clsBase64().DecodeBytes(packed)), "05042017Z101112.xml");
  EXPECT_EQ(clsDZEncoder().UncompressAndDecodeData(packed), "");
}

TEST_F(DZEncoder, ReadsTheArchivesOfOthers) {
  EXPECT_EQ(coder_.UncompressAndDecodeData(Encoded(test::ZippedByZip("by zip"))), "by zip");
  EXPECT_EQ(coder_.UncompressAndDecodeData(Encoded(test::ZippedByGzip("by gzip"))), "by gzip");
}

TEST_F(DZEncoder, ReadsBase64InManyLines) {
  const TemporaryFolder folder;
  const String path = folder.Put("made.zip", test::ZippedByZip(String(1000, 'x') + "end"));
  EXPECT_EQ(coder_.UncompressAndDecodeData(test::OutputOf("base64 -w 60 '" + path + "'")),
            String(1000, 'x') + "end");
}

TEST_F(DZEncoder, TakesWhatIsNoUtf8AsWindows1252) {
  EXPECT_EQ(coder_.UncompressAndDecodeData(Encoded(test::ZippedByZip("Zo\xEB \x80"))),
            "Zo\xC3\xAB \xE2\x82\xAC");
  EXPECT_EQ(coder_.UncompressedData(), "Zo\xC3\xAB \xE2\x82\xAC");
}

TEST_F(DZEncoder, SaysThatItCouldNotUnpack) {
  EXPECT_EQ(coder_.UncompressAndDecodeData(Encoded("no archive at all")), kUnzipFailed);
  EXPECT_EQ(coder_.UncompressAndDecodeData(Encoded(test::ZippedByZip("text").substr(0, 60))), kUnzipFailed);
  EXPECT_EQ(coder_.UncompressedData(), "");
  EXPECT_TRUE(host_->messages.empty());
}

TEST_F(DZEncoder, SaysThatItCouldNotUnpackWhatIsNoBase64) {
  EXPECT_EQ(coder_.UncompressAndDecodeData("!!!"), kUnzipFailed);
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_THAT(host_->messages[0].text, HasSubstr("clsBase64: Function DecodeBytes: Error 13"));
}

TEST_F(DZEncoder, TellsTheNumberWhenItCouldNotPack) {
  EXPECT_EQ(coder_.CompressAndEncodeData(String(kFreelyUnpackedBytes + 1, 'a')),
            "Error occurred Zipping Data - Dynazip error number = 18");
  EXPECT_TRUE(host_->messages.empty());
}

TEST_F(DZEncoder, TellsWhatElseKeptItFromPacking) {
  class StoppedClock : public test::RecordingHost {
   public:
    Date Now() override { ThrowOverflow(); }
  };
  SetHost(std::make_shared<StoppedClock>());
  EXPECT_EQ(coder_.CompressAndEncodeData("text"), "Error in CompressAndEncodeData - Overflow");
}

TEST_F(DZEncoder, TellsThatTooLittleMemoryIsLeftToUnpack) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the address sanitizer ends the program where memory runs out";
#endif
  const String packed = Encoded(test::ZippedByZip(String(kFreelyUnpackedBytes - 1, 'a')));
  String result;
  {
    const test::LittleMemory little(kFreelyUnpackedBytes / 2);
    result = coder_.UncompressAndDecodeData(packed);
  }
  EXPECT_EQ(result, "Error in UncompressAndDecodeData - Out of memory");
  EXPECT_EQ(coder_.UncompressedData(), "");
  EXPECT_EQ(coder_.UncompressAndDecodeData(packed).size(), kFreelyUnpackedBytes - 1);
}

TEST_F(DZEncoder, LeavesNoFileBehind) {
  coder_.CompressAndEncodeData("text");
  coder_.UncompressAndDecodeData(coder_.EncodedData());
  coder_.UncompressAndDecodeData("UEsDBA==");
  EXPECT_EQ(folder_.Count(), 0U);
}

TEST_F(DZEncoder, ZipsFilesIntoTheTemporaryFolder) {
  const TemporaryFolder files;
  const String first = files.Put("sub/first.xml", "1st");
  const String second = files.Put("Log 1.xml", "2nd");
  const String path = coder_.CreateZipFileFromFiles({first, second});
  EXPECT_EQ(path, folder_.Path() + "\\temp\\05042017Z101112.zip");
  EXPECT_EQ(test::OutputOf("unzip -Z -1 '" + SystemPath(path) + "'"), "first.xml\nLog 1.xml");
  EXPECT_EQ(test::OutputOf("unzip -p '" + SystemPath(path) + "' 'Log 1.xml'"), "2nd");
}

TEST_F(DZEncoder, ZipsTwiceInASecondIntoOneFile) {
  const String file = folder_.Put("a.xml", "1");
  const String first = coder_.CreateZipFileFromFiles({file});
  EXPECT_EQ(coder_.CreateZipFileFromFiles({file}), first);
  EXPECT_TRUE(PlainFileExists(first));
}

TEST_F(DZEncoder, GivesNoPathForFilesThatCanNotBeZipped) {
  EXPECT_EQ(coder_.CreateZipFileFromFiles({folder_.At("missing.xml")}), "");
  EXPECT_EQ(coder_.CreateZipFileFromFiles({}), "");
  EXPECT_EQ(FileNames(folder_.At("temp")).size(), 0U);
}

TEST_F(DZEncoder, GivesNoPathWhereTheFolderCanNotBeMade) {
  const String file = folder_.Put("a.xml", "1");
  folder_.Put("temp", "a file where the folder should be");
  EXPECT_EQ(coder_.CreateZipFileFromFiles({file}), "");
}

}  // namespace
}  // namespace zelnor
