#include "zelnor/platform/zip.h"

#include "zelnor/platform/failure.h"

#include <sys/stat.h>

#include "support/archives.h"
#include "support/recording_host.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ArchiveBy;
using test::ByUnzip;
using test::RaisedNumber;
using test::TemporaryFolder;
using testing::ContainsRegex;
using testing::HasSubstr;

const Date kMorning = Date::FromParts(2017, 4, 5).WithTimeOf(Date::FromTime(10, 11, 12));

/// Bytes that hardly pack.
std::string Noise(std::size_t count) {
  std::string bytes;
  std::uint32_t state = 12345;
  while (bytes.size() < count) {
    state = state * 1664525U + 1013904223U;
    bytes.push_back(static_cast<char>(state >> 24));
  }
  return bytes;
}

/// The number with which an archive is refused; 0 when it is read.
int RefusalOf(const std::string& packed) {
  try {
    Unzip(packed);
  } catch (const ZipError& error) {
    EXPECT_STRNE(error.what(), "");
    return error.Number();
  }
  return 0;
}

const std::vector<std::string>& Contents() {
  static const std::vector<std::string> contents = {"", "a", "<Employee>Zo\xC3\xAB</Employee>",
                                                    std::string("\0\xFF\r\n", 4), Noise(300000)};
  return contents;
}

TEST(Zip, ComesBackFromUnzip) {
  for (const std::string& bytes : Contents()) EXPECT_EQ(Unzip(Zip("pay.xml", bytes, kMorning)), bytes);
}

TEST(Zip, IsReadByOthers) {
  const std::string packed = Zip("pay.xml", "<Employee>one\ntwo</Employee>", kMorning);
  EXPECT_EQ(ByUnzip("-p", packed), "<Employee>one\ntwo</Employee>");
  EXPECT_THAT(ByUnzip("-t", packed), HasSubstr("No errors detected"));
}

TEST(Zip, HasOneEntryWithItsNameAndDatePackedMost) {
  const std::string listing = ByUnzip("-Z -l -T", Zip("pay.xml", std::string(5000, 'a'), kMorning));
  EXPECT_THAT(listing, HasSubstr("number of entries: 1"));
  EXPECT_THAT(listing, ContainsRegex("5000 .*defX 20170405.101112 pay.xml"));
}

TEST(Zip, KeepsToTheYearsOfArchives) {
  EXPECT_THAT(ByUnzip("-Z -T", Zip("a", "a", Date::FromParts(1901, 2, 3))), HasSubstr("19800203.000000"));
  EXPECT_THAT(ByUnzip("-Z -T", Zip("a", "a", Date::FromParts(2300, 2, 3))), HasSubstr("21070203.000000"));
}

TEST(Zip, IsTheSameForTheSameBytesNameAndDate) {
  EXPECT_EQ(Zip("pay.xml", "text", kMorning), Zip("pay.xml", "text", kMorning));
}

TEST(Zip, RefusesWhatWouldNotBeUnzippedAgain) {
  EXPECT_THROW(Zip("pay.xml", std::string(kFreelyUnpackedBytes + 1, 'a'), kMorning), ZipError);
  EXPECT_NO_THROW(Zip("pay.xml", std::string(kFreelyUnpackedBytes, 'a'), kMorning));
}

TEST(Unzip, ReadsTheArchivesOfZip) {
  for (const std::string& bytes : Contents()) {
    EXPECT_EQ(Unzip(test::ZippedByZip(bytes)), bytes);
    EXPECT_EQ(Unzip(ArchiveBy("zip -q -0 a.zip pay.xml && mv a.zip archive", bytes)), bytes);
  }
}

TEST(Unzip, ReadsAZipThatWasWrittenAsAStream) {
  EXPECT_EQ(Unzip(ArchiveBy("cat pay.xml | zip -q - - >archive", "as it comes")), "as it comes");
}

TEST(Unzip, ReadsTheStreamsOfGzip) {
  for (const std::string& bytes : Contents()) EXPECT_EQ(Unzip(test::ZippedByGzip(bytes)), bytes);
}

TEST(Unzip, ReadsAGzipOfSeveralMembers) {
  EXPECT_EQ(Unzip(test::ZippedByGzip("one ") + test::ZippedByGzip("") + test::ZippedByGzip("two")),
            "one two");
}

TEST(Unzip, LeavesFoldersAside) {
  EXPECT_EQ(Unzip(ArchiveBy("mkdir in && mv pay.xml in && zip -q -r a.zip in && mv a.zip archive", "text")),
            "text");
}

TEST(Unzip, RefusesWhatIsNoArchive) {
  EXPECT_EQ(RefusalOf(std::string(100, 'a')), 19);
  EXPECT_NE(RefusalOf(""), 0);
  EXPECT_NE(RefusalOf("PK"), 0);
  EXPECT_NE(RefusalOf("\x1F\x8B"), 0);
  EXPECT_NE(RefusalOf("\x1F\x8B" + std::string(100, 'a')), 0);
}

TEST(Unzip, RefusesEveryArchiveThatIsCutShort) {
  for (const std::string& whole : {test::ZippedByZip("some text"), test::ZippedByGzip("some text")}) {
    for (std::size_t size = 0; size < whole.size(); ++size) {
      EXPECT_NE(RefusalOf(whole.substr(0, size)), 0) << size << " of " << whole.size();
    }
  }
}

TEST(Unzip, RefusesDamagedContent) {
  for (std::string damaged : {test::ZippedByZip(Noise(5000)), test::ZippedByGzip(Noise(5000))}) {
    damaged[damaged.size() / 2] = static_cast<char>(damaged[damaged.size() / 2] ^ 0x55);
    EXPECT_NE(RefusalOf(damaged), 0);
  }
}

TEST(Unzip, RefusesAnythingBehindAGzip) { EXPECT_NE(RefusalOf(test::ZippedByGzip("text") + "more"), 0); }

TEST(Unzip, RefusesAnEncryptedFile) {
  EXPECT_EQ(RefusalOf(ArchiveBy("zip -q -P secret a.zip pay.xml && mv a.zip archive", "text")), 26);
}

TEST(Unzip, RefusesAnArchiveWithoutAFile) {
  EXPECT_NE(RefusalOf("PK\x05\x06" + std::string(18, '\0')), 0);
  EXPECT_EQ(RefusalOf(ArchiveBy("mkdir in && zip -q -r a.zip in && mv a.zip archive", "")), 18);
}

TEST(Unzip, RefusesMoreThanOneFile) {
  EXPECT_EQ(RefusalOf(ArchiveBy("cp pay.xml b.xml && zip -q a.zip *.xml && mv a.zip archive", "text")), 18);
  EXPECT_EQ(RefusalOf(ArchiveBy("seq 1000 | split -l 1 - f && zip -q a.zip f* && mv a.zip archive", "")), 18);
}

TEST(Unzip, RefusesWhatUnpacksToFarMoreThanItsSize) {
  const std::string at_the_limit(kFreelyUnpackedBytes, 'a');
  EXPECT_EQ(RefusalOf(test::ZippedByZip(at_the_limit)), 0);
  EXPECT_EQ(RefusalOf(test::ZippedByGzip(at_the_limit)), 0);
  EXPECT_EQ(RefusalOf(test::ZippedByZip(at_the_limit + "a")), 18);
  EXPECT_EQ(RefusalOf(test::ZippedByGzip(at_the_limit + "a")), 18);
}

TEST(Unzip, RefusesABombThatLiesAboutItsSize) {
  std::string bomb = test::ZippedByZip(std::string(kFreelyUnpackedBytes + 1, 'a'));
  const std::size_t central = bomb.find("PK\x01\x02");
  ASSERT_NE(central, std::string::npos);
  for (const std::size_t size_at : {std::size_t{22}, central + 24}) bomb.replace(size_at, 4, {'\1', 0, 0, 0});
  EXPECT_NE(RefusalOf(bomb), 0);
}

TEST(Unzip, TakesALargeTextOfUsualMake) {
  std::string text;
  for (std::int64_t i = 0; text.size() < kFreelyUnpackedBytes + 1; ++i) {
    text += "<NINO>AB" + std::to_string(i * 7919 % 1000000) + "C</NINO>";
  }
  EXPECT_EQ(Unzip(ArchiveBy("gzip -1 -c pay.xml >archive", text)), text);
}

TEST(Unzip, RefusesMoreThanAGigabyte) {
  std::string packed = Zip("pay.xml", Noise(std::size_t{6} << 20), kMorning);
  ASSERT_GT(packed.size() * kMaxUnpackedRatio, kMaxUnpackedBytes + 1);
  const std::size_t central = packed.rfind("PK\x01\x02");
  ASSERT_NE(central, std::string::npos);
  // The entry says that it unpacks to a gigabyte and one byte, which is as much as is looked at.
  packed.replace(central + 24, 4, {'\1', 0, 0, 0x40});
  EXPECT_EQ(RefusalOf(packed), 18);
}

TEST(UnzipsTo, TellsWhetherTheBytesAreTheSame) {
  for (const std::string& bytes : Contents()) {
    for (const std::string& packed : {Zip("a", bytes, kMorning), test::ZippedByGzip(bytes)}) {
      EXPECT_TRUE(UnzipsTo(packed, bytes));
      EXPECT_FALSE(UnzipsTo(packed, bytes + "a"));
      EXPECT_FALSE(UnzipsTo(packed, "a" + bytes));
      if (bytes.empty()) continue;
      EXPECT_FALSE(UnzipsTo(packed, bytes.substr(1)));
      EXPECT_FALSE(UnzipsTo(packed, bytes.substr(0, bytes.size() - 1)));
    }
  }
  EXPECT_FALSE(UnzipsTo("no archive", ""));
}

TEST(ZipFiles, PacksFilesUnderTheirBareNames) {
  const TemporaryFolder folder;
  const String first = folder.Put("one/first.xml", "1st");
  const String second = folder.Put("second.xml", std::string(100000, '2'));
  const String path = folder.At("made.zip");
  ZipFiles({first, folder.Path() + "\\second.xml"}, path, kMorning);
  EXPECT_EQ(test::OutputOf("unzip -Z -1 '" + path + "'"), "first.xml\nsecond.xml");
  EXPECT_EQ(test::OutputOf("unzip -p '" + path + "' first.xml"), "1st");
  EXPECT_EQ(test::OutputOf("unzip -p '" + path + "' second.xml"), std::string(100000, '2'));
  struct stat found {};
  ASSERT_EQ(stat(path.c_str(), &found), 0);
  EXPECT_EQ(found.st_mode & 0777U, 0600U);
}

TEST(ZipFiles, ReplacesAnArchiveOfThatName) {
  const TemporaryFolder folder;
  const String file = folder.Put("a.xml", "text");
  const String path = folder.Put("made.zip", "something else");
  ZipFiles({file}, path, kMorning);
  EXPECT_EQ(test::OutputOf("unzip -Z -1 '" + path + "'"), "a.xml");
  EXPECT_EQ(folder.Count(), 2U);
}

TEST(ZipFiles, MakesNothingWhenAFileIsMissingOrTwoShareAName) {
  const TemporaryFolder folder;
  const String file = folder.Put("a.xml", "text");
  const String other = folder.Put("in/a.xml", "text");
  const String path = folder.At("made.zip");
  EXPECT_EQ(RaisedNumber([&] { ZipFiles({file, folder.At("missing.xml")}, path, kMorning); }), 53);
  EXPECT_THROW(ZipFiles({file, other}, path, kMorning), ZipError);
  EXPECT_EQ(folder.Count(), 2U);
}

}  // namespace
}  // namespace zelnor
