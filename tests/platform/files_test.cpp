#include "zelnor/platform/files.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/local_time.h"

#include <atomic>
#include <cmath>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <sched.h>
#include <stdexcept>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "support/child_process.h"
#include "support/scoped_environment.h"
#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::BecomeNobody;
using test::ResultInChild;
using test::ScopedEnvironment;
using test::TemporaryFolder;
using testing::UnorderedElementsAre;

/// The number of the error that the body raises; 0 when it raises none.
template <class Body>
int ErrorOf(Body&& body) {
  try {
    body();
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

int WriteError(const std::string& path) {
  return ErrorOf([&] { WriteFile(path, "new"); });
}

unsigned ModeOf(const std::string& path) {
  struct stat found {};
  return stat(path.c_str(), &found) == 0 ? found.st_mode & 07777U : 0;
}

// ---- paths

TEST(Paths, SystemPathTurnsBackslashesOnly) {
  EXPECT_EQ(SystemPath("a\\b/c"), "a/b/c");
  EXPECT_EQ(SystemPath("\\a\\b"), "/a/b");
  EXPECT_EQ(SystemPath("/a/b\\"), "/a/b/");
  EXPECT_EQ(SystemPath("a b\\caf\xC3\xA9.xml"), "a b/caf\xC3\xA9.xml");
  EXPECT_EQ(SystemPath(""), "");
}

TEST(Paths, ANetworkPathIsRefusedEverywhere) {
  const std::string path = "\\\\server\\share\\a.xml";
  EXPECT_EQ(ErrorOf([&] { SystemPath(path); }), 76);
  EXPECT_EQ(ErrorOf([&] { ReadFile(path); }), 76);
  EXPECT_EQ(WriteError(path), 76);
  EXPECT_EQ(ErrorOf([&] { CopyFile(path, "x"); }), 76);
  EXPECT_EQ(ErrorOf([&] { DeleteFile(path); }), 76);
  EXPECT_EQ(ErrorOf([&] { MakeFolder(path); }), 76);
  EXPECT_EQ(ErrorOf([&] { FileDate(path); }), 76);
  EXPECT_EQ(ErrorOf([&] { FileNames(path); }), 76);
  EXPECT_FALSE(PlainFileExists(path));
  EXPECT_FALSE(FolderExists(path));
}

TEST(Paths, ANetworkPathIsNeverTouchedEvenWhereTheSystemHasSuchAFolder) {
  const TemporaryFolder folder;
  folder.Put("a.xml", "old");
  std::string path = "\\" + folder.At("a.xml");
  path[1] = '\\';
  EXPECT_FALSE(PlainFileExists(path));
  EXPECT_EQ(WriteError(path), 76);
  EXPECT_EQ(folder.Get("a.xml"), "old");
}

TEST(Paths, TwoSlashesAreNoNetworkPath) {
  const TemporaryFolder folder;
  folder.Put("a.xml", "x");
  EXPECT_TRUE(PlainFileExists("/" + folder.At("a.xml")));
}

TEST(Paths, ANullCharacterIsRefused) {
  const TemporaryFolder folder;
  folder.Put("a.xml", "old");
  const std::string path = folder.At("a.xml") + std::string("\0.txt", 5);
  EXPECT_EQ(WriteError(path), 75);
  EXPECT_EQ(ErrorOf([&] { ReadFile(path); }), 75);
  EXPECT_FALSE(PlainFileExists(path));
  EXPECT_EQ(folder.Get("a.xml"), "old");
}

TEST(Paths, TrailingSeparatorIsEitherOneAndAppendedAsBackslash) {
  EXPECT_TRUE(EndsInSeparator("a\\"));
  EXPECT_TRUE(EndsInSeparator("a/"));
  EXPECT_FALSE(EndsInSeparator("a"));
  EXPECT_FALSE(EndsInSeparator(""));
  EXPECT_EQ(WithTrailingSeparator("a"), "a\\");
  EXPECT_EQ(WithTrailingSeparator("/a/b"), "/a/b\\");
  EXPECT_EQ(WithTrailingSeparator("a/"), "a/");
  EXPECT_EQ(WithTrailingSeparator("a\\"), "a\\");
}

TEST(Paths, OnlyASingleLeadingBackslashMeansTheProgramsFolder) {
  EXPECT_TRUE(IsProgramRelative("\\xsd\\"));
  EXPECT_TRUE(IsProgramRelative("\\"));
  EXPECT_FALSE(IsProgramRelative("\\\\server\\share"));
  EXPECT_FALSE(IsProgramRelative("/xsd"));
  EXPECT_FALSE(IsProgramRelative("xsd\\"));
  EXPECT_FALSE(IsProgramRelative(""));
}

// ---- looking up

TEST(PlainFileExists, FindsPlainFilesAlone) {
  const TemporaryFolder folder;
  folder.Put("a b/Z\xC3\xBCrich.xml", "x");
  EXPECT_TRUE(PlainFileExists(folder.At("a b/Z\xC3\xBCrich.xml")));
  EXPECT_TRUE(PlainFileExists(folder.Path() + "\\a b\\Z\xC3\xBCrich.xml"));
  EXPECT_FALSE(PlainFileExists(folder.At("a b")));
  EXPECT_FALSE(PlainFileExists(folder.At("a b/other.xml")));
  EXPECT_FALSE(PlainFileExists(folder.At("missing/a.xml")));
  EXPECT_FALSE(PlainFileExists(folder.At("a b/Z\xC3\xBCrich.xml/")));
  EXPECT_FALSE(PlainFileExists(""));
  EXPECT_FALSE(PlainFileExists("/dev/null"));
}

TEST(PlainFileExists, DoesNotSeeNamesThatBeginWithAPoint) {
  const TemporaryFolder folder;
  folder.Put(".hidden", "x");
  folder.Put(".folder/seen", "x");
  EXPECT_FALSE(PlainFileExists(folder.At(".hidden")));
  EXPECT_FALSE(PlainFileExists(folder.Path() + "\\.hidden"));
  EXPECT_TRUE(PlainFileExists(folder.At(".folder/seen")));
}

TEST(PlainFileExists, FollowsALinkToAPlainFile) {
  const TemporaryFolder folder;
  folder.Put("a", "x");
  std::filesystem::create_symlink("a", folder.At("link"));
  std::filesystem::create_symlink("nowhere", folder.At("broken"));
  EXPECT_TRUE(PlainFileExists(folder.At("link")));
  EXPECT_FALSE(PlainFileExists(folder.At("broken")));
}

TEST(FolderExists, EmptyTextAndALoneSeparatorCountAsThere) {
  EXPECT_TRUE(FolderExists(""));
  EXPECT_TRUE(FolderExists("\\"));
  EXPECT_TRUE(FolderExists("/"));
}

TEST(FolderExists, FindsFoldersAlone) {
  const TemporaryFolder folder;
  folder.Put(".hidden/file", "x");
  EXPECT_TRUE(FolderExists(folder.Path()));
  EXPECT_TRUE(FolderExists(folder.Path() + "\\"));
  EXPECT_TRUE(FolderExists(folder.At(".hidden")));
  EXPECT_FALSE(FolderExists(folder.At(".hidden/file")));
  EXPECT_FALSE(FolderExists(folder.At("missing")));
}

TEST(FileNames, GivesPlainFilesThatAreNotHidden) {
  const TemporaryFolder folder;
  folder.Put("b.xml", "");
  folder.Put("A \xC3\xA9.xml", "");
  folder.Put(".zelnor-0", "");
  folder.Put("sub/c.xml", "");
  std::filesystem::create_symlink("b.xml", folder.At("link"));
  EXPECT_THAT(FileNames(folder.Path()), UnorderedElementsAre("b.xml", "A \xC3\xA9.xml", "link"));
  EXPECT_THAT(FileNames(folder.Path() + "\\sub\\"), UnorderedElementsAre("c.xml"));
}

TEST(FileNames, RaisesPathNotFoundWithoutTheFolder) {
  const TemporaryFolder folder;
  folder.Put("file", "");
  EXPECT_EQ(ErrorOf([&] { FileNames(folder.At("missing")); }), 76);
  EXPECT_EQ(ErrorOf([&] { FileNames(folder.At("file")); }), 76);
}

// ---- folders

TEST(MakeFolder, MakesOneFolderForItsOwnerAlone) {
  const TemporaryFolder folder;
  MakeFolder(folder.Path() + "\\new folder\\");
  EXPECT_EQ(ModeOf(folder.At("new folder")), 0700U);
}

TEST(MakeFolder, RaisesByKindOfTrouble) {
  const TemporaryFolder folder;
  folder.Put("file", "");
  EXPECT_EQ(ErrorOf([&] { MakeFolder(folder.At("a/b")); }), 76);
  EXPECT_EQ(ErrorOf([&] { MakeFolder(folder.At("file/b")); }), 76);
  EXPECT_EQ(ErrorOf([&] { MakeFolder(folder.Path()); }), 75);
  EXPECT_EQ(ErrorOf([&] { MakeFolder(folder.At("file")); }), 75);
}

TEST(MakeFolder, RaisesPermissionDeniedWithoutTheRight) {
  const TemporaryFolder folder;
  chmod(folder.Path().c_str(), 0555);
  EXPECT_EQ(ResultInChild([&] {
              if (!BecomeNobody()) return 199;
              return ErrorOf([&] { MakeFolder(folder.At("new")); });
            }),
            70);
}

// ---- reading

TEST(ReadFile, GivesTheBytesAsTheyAre) {
  const TemporaryFolder folder;
  const std::string bytes("a\r\n\0\xEF\xBB\xBFz", 8);
  folder.Put("a b.xml", bytes);
  EXPECT_EQ(ReadFile(folder.Path() + "\\a b.xml"), bytes);
  folder.Put("empty", "");
  EXPECT_EQ(ReadFile(folder.At("empty")), "");
}

TEST(ReadFile, ReadsAFileOfManyPieces) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int i = 0; i < 100'000; ++i) bytes += std::to_string(i);
  folder.Put("large", bytes);
  EXPECT_EQ(ReadFile(folder.At("large")), bytes);
}

TEST(ReadFile, ReadsAFileWhoseSizeTheSystemDoesNotTell) {
  EXPECT_FALSE(ReadFile("/proc/self/status").empty());
}

TEST(ReadFile, RaisesByKindOfTrouble) {
  const TemporaryFolder folder;
  folder.Put("file", "");
  EXPECT_EQ(ErrorOf([&] { ReadFile(folder.At("missing")); }), 53);
  EXPECT_EQ(ErrorOf([&] { ReadFile("a-name-that-is-not-in-the-current-folder"); }), 53);
  EXPECT_EQ(ErrorOf([&] { ReadFile(""); }), 53);
  EXPECT_EQ(ErrorOf([&] { ReadFile(folder.At("missing/file")); }), 76);
  EXPECT_EQ(ErrorOf([&] { ReadFile(folder.At("file/file")); }), 76);
  EXPECT_EQ(ErrorOf([&] { ReadFile(folder.Path()); }), 75);
}

TEST(ReadFile, DoesNotWaitForAPipe) {
  const TemporaryFolder folder;
  ASSERT_EQ(mkfifo(folder.At("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ErrorOf([&] { ReadFile(folder.At("pipe")); }), 75);
}

TEST(ReadFile, RaisesOutOfMemoryBeyondTheLargestSize) {
  const TemporaryFolder folder;
  folder.Put("huge", "");
  ASSERT_EQ(truncate(folder.At("huge").c_str(), kMaxFileBytes + 1), 0);
  EXPECT_EQ(ErrorOf([&] { ReadFile(folder.At("huge")); }), 7);
}

TEST(ReadFile, RaisesPermissionDeniedWithoutTheRight) {
  const TemporaryFolder folder;
  chmod(folder.Path().c_str(), 0755);
  folder.Put("secret", "x");
  chmod(folder.At("secret").c_str(), 0);
  EXPECT_EQ(ResultInChild([&] {
              if (!BecomeNobody()) return 199;
              return ErrorOf([&] { ReadFile(folder.At("secret")); });
            }),
            70);
}

// ---- writing

TEST(WriteFile, WritesForTheOwnerAlone) {
  const TemporaryFolder folder;
  const mode_t before = umask(0);
  WriteFile(folder.Path() + "\\a b \xC3\xA9.xml", std::string_view("x\0\r\n", 4));
  umask(before);
  EXPECT_EQ(folder.Get("a b \xC3\xA9.xml"), std::string("x\0\r\n", 4));
  EXPECT_EQ(ModeOf(folder.At("a b \xC3\xA9.xml")), 0600U);
  EXPECT_EQ(folder.Count(), 1U);
}

TEST(WriteFile, ReplacesAnOlderFileAndItsRights) {
  const TemporaryFolder folder;
  folder.Put("a", "an older and longer text");
  chmod(folder.At("a").c_str(), 0644);
  WriteFile(folder.At("a"), "new");
  EXPECT_EQ(folder.Get("a"), "new");
  EXPECT_EQ(ModeOf(folder.At("a")), 0600U);
  EXPECT_EQ(folder.Count(), 1U);
}

TEST(WriteFile, WritesInTheCurrentFolder) {
  const TemporaryFolder folder;
  EXPECT_EQ(ResultInChild([&] {
              if (chdir(folder.Path().c_str()) != 0) return 199;
              return WriteError("plain name");
            }),
            0);
  EXPECT_EQ(folder.Get("plain name"), "new");
}

TEST(WriteFile, TakesPiecesOfAnySize) {
  const TemporaryFolder folder;
  std::string expected;
  WriteFile(folder.At("a"), [&](const ByteSink& sink) {
    for (const std::size_t size : {0U, 1U, 65'535U, 65'536U, 3U, 200'000U, 65'534U, 2U}) {
      const std::string piece(size, static_cast<char>('a' + expected.size() % 26));
      sink(piece);
      expected += piece;
    }
  });
  EXPECT_EQ(folder.Get("a"), expected);
}

TEST(WriteFile, TheTemporaryNameIsHiddenBesideTheTargetAndForTheOwnerAlone) {
  const TemporaryFolder folder;
  WriteFile(folder.At("a"), [&](const ByteSink&) {
    EXPECT_EQ(folder.Count(), 1U);
    EXPECT_TRUE(FileNames(folder.Path()).empty());
    const auto entry = *std::filesystem::directory_iterator(folder.Path());
    EXPECT_TRUE(entry.path().filename().string().starts_with('.'));
    EXPECT_EQ(ModeOf(entry.path().string()), 0600U);
  });
  EXPECT_THAT(FileNames(folder.Path()), UnorderedElementsAre("a"));
}

TEST(WriteFile, AnExceptionLeavesTheOldFileAndNothingBesideIt) {
  const TemporaryFolder folder;
  folder.Put("a", "old");
  EXPECT_THROW(WriteFile(folder.At("a"),
                         [](const ByteSink& sink) {
                           sink(std::string(100'000, 'x'));
                           throw std::runtime_error("stop");
                         }),
               std::runtime_error);
  EXPECT_EQ(folder.Get("a"), "old");
  EXPECT_EQ(folder.Count(), 1U);
}

TEST(WriteFile, ACrashBeforeTheRenameLeavesTheOldFile) {
  const TemporaryFolder folder;
  folder.Put("a", "old");
  EXPECT_EQ(ResultInChild([&] {
              WriteFile(folder.At("a"), [](const ByteSink& sink) {
                sink(std::string(100'000, 'x'));
                kill(getpid(), SIGKILL);
              });
              return 0;
            }),
            201);
  EXPECT_EQ(folder.Get("a"), "old");
  EXPECT_THAT(FileNames(folder.Path()), UnorderedElementsAre("a"));
}

TEST(WriteFile, AReaderSeesTheOldFileOrTheNewOne) {
  const TemporaryFolder folder;
  const std::string first(150'000, '1');
  const std::string second(120'000, '2');
  WriteFile(folder.At("a"), first);
  std::atomic<bool> done = false;
  std::thread writer([&] {
    for (int i = 0; i < 200; ++i) WriteFile(folder.At("a"), i % 2 == 0 ? second : first);
    done = true;
  });
  int torn = 0;
  while (!done) {
    const std::string seen = ReadFile(folder.At("a"));
    if (seen != first && seen != second) ++torn;
  }
  writer.join();
  EXPECT_EQ(torn, 0);
}

TEST(WriteFile, AReadOnlyTargetIsRefusedForRootToo) {
  const TemporaryFolder folder;
  folder.Put("a", "old");
  chmod(folder.At("a").c_str(), 0444);
  EXPECT_EQ(WriteError(folder.At("a")), 75);
  EXPECT_EQ(folder.Get("a"), "old");
  EXPECT_EQ(folder.Count(), 1U);
}

TEST(WriteFile, ATargetThatOthersMayNotWriteIsRefusedToThem) {
  const TemporaryFolder folder;
  chmod(folder.Path().c_str(), 0777);
  folder.Put("a", "old");
  chmod(folder.At("a").c_str(), 0444);
  EXPECT_EQ(ResultInChild([&] {
              if (!BecomeNobody()) return 199;
              return WriteError(folder.At("a"));
            }),
            75);
  EXPECT_EQ(folder.Get("a"), "old");
}

TEST(WriteFile, WithoutTheRightToTheFolderItIsPermissionDenied) {
  const TemporaryFolder folder;
  chmod(folder.Path().c_str(), 0555);
  EXPECT_EQ(ResultInChild([&] {
              if (!BecomeNobody()) return 199;
              return WriteError(folder.At("a"));
            }),
            70);
  EXPECT_EQ(folder.Count(), 0U);
}

TEST(WriteFile, RaisesByKindOfTrouble) {
  const TemporaryFolder folder;
  folder.Put("file", "");
  folder.Put("sub/file", "");
  EXPECT_EQ(WriteError(folder.At("missing/a")), 76);
  EXPECT_EQ(WriteError(folder.At("missing/")), 76);
  EXPECT_EQ(WriteError(folder.At("file/a")), 76);
  EXPECT_EQ(WriteError(folder.At("sub")), 75);
  EXPECT_EQ(WriteError(folder.Path() + "\\sub\\"), 75);
  EXPECT_EQ(WriteError(""), 75);
  EXPECT_EQ(WriteError(folder.At(std::string(300, 'x'))), 75);
}

TEST(WriteFile, NeverReplacesADevice) {
  const TemporaryFolder folder;
  ASSERT_EQ(mkfifo(folder.At("pipe").c_str(), 0600), 0);
  EXPECT_EQ(WriteError(folder.At("pipe")), 75);
  EXPECT_EQ(WriteError("/dev/null"), 75);
  EXPECT_TRUE(std::filesystem::is_fifo(folder.At("pipe")));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(WriteFile, WritesThroughALink) {
  const TemporaryFolder folder;
  folder.Put("real/a", "old");
  std::filesystem::create_symlink("real/a", folder.At("near"));
  std::filesystem::create_symlink(folder.At("near"), folder.At("far"));
  WriteFile(folder.At("far"), "new");
  EXPECT_EQ(folder.Get("real/a"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.At("near")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.At("far")));
}

TEST(WriteFile, WritesThroughALinkToAFileThatIsNotThereYet) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink("new", folder.At("link"));
  WriteFile(folder.At("link"), "x");
  EXPECT_EQ(folder.Get("new"), "x");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.At("link")));
}

TEST(WriteFile, RefusesLinksInACircleAndLinksToReadOnlyFiles) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink("b", folder.At("a"));
  std::filesystem::create_symlink("a", folder.At("b"));
  EXPECT_EQ(WriteError(folder.At("a")), 75);
  folder.Put("real", "old");
  chmod(folder.At("real").c_str(), 0400);
  std::filesystem::create_symlink("real", folder.At("link"));
  EXPECT_EQ(WriteError(folder.At("link")), 75);
  EXPECT_EQ(folder.Get("real"), "old");
}

/// Writes more than there is room for; 61 is the disk that is full, 198 a file left behind.
int WriteTooMuch(const TemporaryFolder& folder, std::size_t bytes) {
  const int error = ErrorOf([&] { WriteFile(folder.At("a"), std::string(bytes, 'x')); });
  return folder.Count() == 1 && folder.Get("a") == "old" ? error : 198;
}

TEST(WriteFile, WithNoMoreRoomForTheProcessTheDiskIsFull) {
  const TemporaryFolder folder;
  folder.Put("a", "old");
  EXPECT_EQ(ResultInChild([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit{100'000, 100'000};
              if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 199;
              return WriteTooMuch(folder, 1'000'000);
            }),
            61);
}

TEST(WriteFile, AFailedSinkThatWasSwallowedIsRaisedAtTheEnd) {
  const TemporaryFolder folder;
  EXPECT_EQ(ResultInChild([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit{100'000, 100'000};
              if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 199;
              return ErrorOf([&] {
                WriteFile(folder.At("a"), [](const ByteSink& sink) {
                  ErrorOf([&] { sink(std::string(1'000'000, 'x')); });
                  ErrorOf([&] { sink("the end"); });
                });
              });
            }),
            61);
  EXPECT_EQ(folder.Count(), 0U);
}

TEST(WriteFile, OnAFullDiskTheOldFileStays) {
  constexpr int kCannotMount = 197;
  const TemporaryFolder folder;
  const int result = ResultInChild([&] {
    // A mount of this process alone, which ends with it.
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("none", folder.Path().c_str(), "tmpfs", 0, "size=64k") != 0) {
      return kCannotMount;
    }
    folder.Put("a", "old");
    return WriteTooMuch(folder, 1'000'000);
  });
  if (result == kCannotMount) GTEST_SKIP() << "no right to mount a small disk";
  EXPECT_EQ(result, 61);
}

// ---- copying and deleting

TEST(CopyFile, CopiesOverTheTargetForTheOwnerAlone) {
  const TemporaryFolder folder;
  const std::string bytes(200'001, 'y');
  folder.Put("from", bytes);
  chmod(folder.At("from").c_str(), 0644);
  folder.Put("to", "old");
  CopyFile(folder.Path() + "\\from", folder.Path() + "\\to");
  EXPECT_EQ(folder.Get("to"), bytes);
  EXPECT_EQ(ModeOf(folder.At("to")), 0600U);
  CopyFile(folder.At("to"), folder.At("to"));
  EXPECT_EQ(folder.Get("to"), bytes);
}

TEST(CopyFile, RaisesAsReadingAndWritingDo) {
  const TemporaryFolder folder;
  folder.Put("from", "x");
  folder.Put("to", "old");
  EXPECT_EQ(ErrorOf([&] { CopyFile(folder.At("missing"), folder.At("to")); }), 53);
  EXPECT_EQ(folder.Get("to"), "old");
  EXPECT_EQ(ErrorOf([&] { CopyFile(folder.At("from"), folder.At("missing/to")); }), 76);
  EXPECT_EQ(ErrorOf([&] { CopyFile(folder.Path(), folder.At("to")); }), 75);
}

TEST(DeleteFile, DeletesReadOnlyFilesToo) {
  const TemporaryFolder folder;
  folder.Put("a", "x");
  chmod(folder.At("a").c_str(), 0400);
  DeleteFile(folder.Path() + "\\a");
  EXPECT_EQ(folder.Count(), 0U);
}

TEST(DeleteFile, DeletesTheLinkAndNotWhatItPointsTo) {
  const TemporaryFolder folder;
  folder.Put("a", "x");
  std::filesystem::create_symlink("a", folder.At("link"));
  DeleteFile(folder.At("link"));
  EXPECT_EQ(folder.Get("a"), "x");
  EXPECT_EQ(folder.Count(), 1U);
}

TEST(DeleteFile, RaisesByKindOfTrouble) {
  const TemporaryFolder folder;
  EXPECT_EQ(ErrorOf([&] { DeleteFile(folder.At("missing")); }), 53);
  EXPECT_EQ(ErrorOf([&] { DeleteFile(folder.At("missing/a")); }), 53);
  EXPECT_EQ(ErrorOf([&] { DeleteFile(""); }), 53);
  EXPECT_EQ(ErrorOf([&] { DeleteFile(folder.Path()); }), 75);
}

TEST(DeleteFile, RaisesPermissionDeniedWithoutTheRight) {
  const TemporaryFolder folder;
  folder.Put("a", "x");
  chmod(folder.Path().c_str(), 0555);
  EXPECT_EQ(ResultInChild([&] {
              if (!BecomeNobody()) return 199;
              return ErrorOf([&] { DeleteFile(folder.At("a")); });
            }),
            70);
  EXPECT_EQ(folder.Get("a"), "x");
}

// ---- dates

constexpr const char* kBritishTime = "GMT0BST,M3.5.0/1,M10.5.0";

class Clock : public testing::Test {
 protected:
  Clock() { tzset(); }
  ~Clock() override {
    zone_.reset();
    tzset();
  }

 private:
  std::optional<ScopedEnvironment> zone_{std::in_place, "TZ", kBritishTime};
};

using FileDateTest = Clock;

TEST_F(FileDateTest, IsLocalAndKeepsTheFraction) {
  const TemporaryFolder folder;
  folder.Put("a", "x");
  // 5 July 2014, 10:11:12.125 by Greenwich, an hour later in summer time.
  const timespec times[2] = {{1404555072, 125'000'000}, {1404555072, 125'000'000}};
  ASSERT_EQ(utimensat(AT_FDCWD, folder.At("a").c_str(), times, 0), 0);
  const double serial = FileDate(folder.Path() + "\\a").Serial();
  EXPECT_EQ(std::floor(serial), 41825.0);
  EXPECT_NEAR((serial - 41825.0) * 86400.0, 11 * 3600 + 11 * 60 + 12.125, 1e-5);
}

TEST_F(FileDateTest, TellsTwoFilesOfOneSecondApart) {
  const TemporaryFolder folder;
  folder.Put("a", "x");
  const auto date_at = [&](long nanoseconds) {
    const timespec times[2] = {{1392000000, nanoseconds}, {1392000000, nanoseconds}};
    EXPECT_EQ(utimensat(AT_FDCWD, folder.At("a").c_str(), times, 0), 0);
    return FileDate(folder.At("a"));
  };
  EXPECT_LT(date_at(500'000'000), date_at(500'010'000));
}

TEST_F(FileDateTest, TellsTwoWritesInARowApart) {
  const TemporaryFolder folder;
  const auto date_after_writing = [&] {
    WriteFile(folder.At("a"), "x");
    return FileDate(folder.At("a"));
  };
  Date last = date_after_writing();
  for (int i = 0; i < 20; ++i) {
    const Date next = date_after_writing();
    EXPECT_LT(last, next);
    last = next;
  }
}

TEST_F(FileDateTest, RaisesByKindOfTrouble) {
  const TemporaryFolder folder;
  EXPECT_EQ(ErrorOf([&] { FileDate(folder.At("missing")); }), 53);
  EXPECT_EQ(ErrorOf([&] { FileDate(folder.At("missing/a")); }), 53);
  EXPECT_EQ(ErrorOf([&] { FileDate(""); }), 53);
}

using LocalDateTest = Clock;

TEST_F(LocalDateTest, CountsTheTimeForwardBeforeTheFirstDay) {
  // Noon of 28 December 1899, two days before the count begins.
  EXPECT_DOUBLE_EQ(LocalDate({(-25569L - 2L) * 86400L + 43200L, 0}).Serial(), -2.5);
  EXPECT_DOUBLE_EQ(LocalDate({0, 500'000'000}).Serial(), 25569.0 + 3600.5 / 86400.0 - 3600.0 / 86400.0);
}

TEST_F(LocalDateTest, RefusesAMomentBeyondTheCalendar) {
  EXPECT_EQ(ErrorOf([] { LocalDate({std::numeric_limits<std::time_t>::max(), 0}); }), 75);
}

}  // namespace
}  // namespace zelnor
