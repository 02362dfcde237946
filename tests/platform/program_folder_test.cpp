#include "zelnor/platform/program_folder.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <sys/stat.h>

#include "support/child_process.h"
#include "support/scoped_environment.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::BecomeNobody;
using test::ResultInChild;
using test::ScopedEnvironment;
using test::TemporaryFolder;

int ErrorOf(const std::function<void()>& body) {
  try {
    body();
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

unsigned ModeOf(const std::string& path) {
  struct stat found {};
  return stat(path.c_str(), &found) == 0 ? found.st_mode & 07777U : 0;
}

class ProgramFolderTest : public testing::Test {
 protected:
  ~ProgramFolderTest() override { SetProgramFolder(""); }

  ScopedEnvironment home{"ZELNOR_HOME", "/from/environment/"};
};

TEST_F(ProgramFolderTest, IsWhatTheApplicationGave) {
  SetProgramFolder("/given");
  EXPECT_EQ(ProgramFolder(), "/given");
  SetProgramFolder("/given one\\\\");
  EXPECT_EQ(ProgramFolder(), "/given one");
  SetProgramFolder("\\given\\it");
  EXPECT_EQ(ProgramFolder(), "\\given\\it");
  SetProgramFolder("/");
  EXPECT_EQ(ProgramFolder(), "/");
}

TEST_F(ProgramFolderTest, IsTheEnvironmentsWhereNoneWasGiven) {
  EXPECT_EQ(ProgramFolder(), "/from/environment");
  SetProgramFolder("/given");
  SetProgramFolder("");
  EXPECT_EQ(ProgramFolder(), "/from/environment");
}

TEST_F(ProgramFolderTest, ResolvesPathsWithASingleLeadingBackslash) {
  SetProgramFolder("/given");
  EXPECT_EQ(ResolveProgramPath("\\xsd\\a.xsd"), "/given\\xsd\\a.xsd");
  EXPECT_EQ(ResolveProgramPath("\\"), "/given\\");
  EXPECT_EQ(ResolveProgramPath("/xsd/a.xsd"), "/xsd/a.xsd");
  EXPECT_EQ(ResolveProgramPath("xsd\\a.xsd"), "xsd\\a.xsd");
  EXPECT_EQ(ResolveProgramPath("\\\\server\\xsd"), "\\\\server\\xsd");
  EXPECT_EQ(ResolveProgramPath(""), "");
}

// ---- furnishing

TEST(FurnishFolder, CopiesSchemasAndStyleSheetsForTheOwnerAlone) {
  const TemporaryFolder data;
  data.Put("xsd/a.xsd", "schema a");
  data.Put("xsd/sub folder/b.xsd", "schema b");
  data.Put("log.xsl", "sheet");
  data.Put("README", "not wanted");
  const TemporaryFolder home;
  EXPECT_TRUE(FurnishFolder(home.At("data/zelnor"), {data.At("missing"), data.Path()}));
  EXPECT_EQ(home.Get("data/zelnor/xsd/a.xsd"), "schema a");
  EXPECT_EQ(home.Get("data/zelnor/xsd/sub folder/b.xsd"), "schema b");
  EXPECT_EQ(home.Get("data/zelnor/log.xsl"), "sheet");
  EXPECT_FALSE(std::filesystem::exists(home.At("data/zelnor/README")));
  EXPECT_EQ(ModeOf(home.At("data")), 0700U);
  EXPECT_EQ(ModeOf(home.At("data/zelnor/xsd")), 0700U);
  EXPECT_EQ(ModeOf(home.At("data/zelnor/xsd/a.xsd")), 0600U);
  EXPECT_EQ(ModeOf(home.At("data/zelnor/log.xsl")), 0600U);
}

TEST(FurnishFolder, TakesTheFirstSourceThatHasSchemas) {
  const TemporaryFolder first;
  first.Put("xsd/a.xsd", "first");
  const TemporaryFolder second;
  second.Put("xsd/a.xsd", "second");
  const TemporaryFolder home;
  EXPECT_TRUE(FurnishFolder(home.Path(), {first.Path(), second.Path()}));
  EXPECT_EQ(home.Get("xsd/a.xsd"), "first");
}

TEST(FurnishFolder, LeavesAFolderAloneThatHoldsAnything) {
  const TemporaryFolder data;
  data.Put("xsd/a.xsd", "schema");
  const TemporaryFolder home;
  home.Put(".anything", "");
  EXPECT_FALSE(FurnishFolder(home.Path(), {data.Path()}));
  EXPECT_EQ(home.Count(), 1U);
}

TEST(FurnishFolder, MakesNothingWhereThereIsNothingToCopy) {
  const TemporaryFolder home;
  EXPECT_FALSE(FurnishFolder(home.At("new"), {home.At("missing")}));
  EXPECT_EQ(home.Count(), 0U);
}

TEST(FurnishFolder, RaisesWhereTheFolderCannotBeMade) {
  const TemporaryFolder data;
  data.Put("xsd/a.xsd", "schema");
  data.Put("file", "");
  EXPECT_EQ(ErrorOf([&] { FurnishFolder(data.At("file"), {data.Path()}); }), 75);
  EXPECT_EQ(ErrorOf([&] { FurnishFolder("\\\\server\\home", {data.Path()}); }), 76);
  EXPECT_EQ(data.Get("file"), "");
}

TEST(FurnishFolder, TakesAwayWhatItCopiedAfterAFailure) {
  const TemporaryFolder data;
  data.Put("xsd/a.xsd", "schema");
  data.Put("log.xsl", "sheet");
  chmod(data.Path().c_str(), 0755);
  chmod(data.At("log.xsl").c_str(), 0);
  const TemporaryFolder home;
  chmod(home.Path().c_str(), 0777);
  EXPECT_EQ(ResultInChild([&] {
              if (!BecomeNobody()) return 199;
              return ErrorOf([&] { FurnishFolder(home.Path(), {data.Path()}); });
            }),
            70);
  EXPECT_EQ(home.Count(), 0U);
}

// ---- the shared library, loaded by a program that knows nothing of its folder

class SharedLibrary : public testing::Test {
 protected:
  SharedLibrary() {
    std::filesystem::create_directories(library_folder_);
    std::filesystem::copy_file(ZELNOR_LIBRARY, library_folder_ + "/" ZELNOR_LIBRARY_NAME);
  }

  /// What the printer prints, with these variables alone in its environment.
  std::string Print(const std::string& variables, const std::string& argument = "") const {
    const std::string command =
        "env -i LD_LIBRARY_PATH='" + library_folder_ + "' " + variables + " '" ZELNOR_PRINTER "' " + argument;
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), &pclose);
    std::string text;
    for (int c = std::fgetc(output.get()); c != EOF && c != '\n'; c = std::fgetc(output.get())) {
      text += static_cast<char>(c);
    }
    return text;
  }

  TemporaryFolder folder_;
  const std::string library_folder_ = folder_.At("the lib");
};

TEST_F(SharedLibrary, ItsFolderIsTheProgramsWhereSettingsLieThere) {
  folder_.Put("the lib/rti.config", "<x/>");
  EXPECT_EQ(Print("HOME=/home/p"), library_folder_);
}

TEST_F(SharedLibrary, ItsFolderIsTheProgramsWhereSchemasLieThere) {
  folder_.Put("the lib/xsd/a.xsd", "");
  EXPECT_EQ(Print("HOME=/home/p"), library_folder_);
  EXPECT_EQ(Print("HOME=/home/p ZELNOR_HOME=/from/environment"), "/from/environment");
}

TEST_F(SharedLibrary, ElseItIsTheDataFolderOfThePerson) {
  EXPECT_EQ(Print("HOME=/home/p"), "/home/p/.local/share/zelnor");
  EXPECT_EQ(Print("HOME=/home/p XDG_DATA_HOME=/data/"), "/data/zelnor");
  EXPECT_EQ(Print("HOME=/home/p XDG_DATA_HOME="), "/home/p/.local/share/zelnor");
  EXPECT_EQ(Print("HOME=/home/p XDG_DATA_HOME=relative"), "/home/p/.local/share/zelnor");
  EXPECT_EQ(Print("HOME=/home/p ZELNOR_HOME="), "/home/p/.local/share/zelnor");
  folder_.Put("the lib/xsd", "a file and no folder");
  folder_.Put("the lib/rti.config/x", "a folder and no file");
  EXPECT_EQ(Print("HOME=/home/p"), "/home/p/.local/share/zelnor");
}

TEST_F(SharedLibrary, WithoutAHomeInTheEnvironmentTheAccountTells) {
  const std::string folder = Print("");
  EXPECT_TRUE(folder.starts_with('/') && folder.ends_with("/.local/share/zelnor")) << folder;
}

TEST_F(SharedLibrary, FurnishesFromTheDataThatWasInstalledWithIt) {
  folder_.Put("share/zelnor/xsd/a.xsd", "installed");
  const std::string home = folder_.At("home");
  EXPECT_EQ(Print("ZELNOR_HOME='" + home + "'", "furnish"), "furnished " + home);
  EXPECT_EQ(folder_.Get("home/xsd/a.xsd"), "installed");
  EXPECT_EQ(Print("ZELNOR_HOME='" + home + "'", "furnish"), home);
}

TEST_F(SharedLibrary, FurnishesFromTheDataOfAnInstallationWithAFolderForTheMachinesKind) {
  const TemporaryFolder root;
  std::filesystem::create_directories(root.At("lib/machine"));
  std::filesystem::copy_file(ZELNOR_LIBRARY, root.At("lib/machine/" ZELNOR_LIBRARY_NAME));
  root.Put("share/zelnor/xsd/a.xsd", "installed");
  const std::string home = root.At("home");
  EXPECT_EQ(Print("LD_LIBRARY_PATH='" + root.At("lib/machine") + "' ZELNOR_HOME='" + home + "'", "furnish"),
            "furnished " + home);
  EXPECT_EQ(root.Get("home/xsd/a.xsd"), "installed");
}

}  // namespace
}  // namespace zelnor
