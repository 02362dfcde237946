#include "floors/include_check.h"
#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor::floors {
namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;

const std::filesystem::path kSources = ZELNOR_SOURCE_DIR "/src";

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

// ---- the sources

TEST(Floors, TheSourcesAreRead) { EXPECT_GT(ReadIncludes(kSources).size(), 10U); }

TEST(Floors, EveryFileBelongsToAFloor) { EXPECT_EQ(Lines(FilesWithoutFloor(kSources)), ""); }

TEST(Floors, IncludesAreWrittenFromTheRoot) { EXPECT_EQ(Lines(IncludesOutsideTheTree(kSources)), ""); }

TEST(Floors, IncludesRunDownwardOnly) { EXPECT_EQ(Lines(IncludesNotDownward(kSources)), ""); }

TEST(Floors, NoFilesIncludeEachOther) { EXPECT_EQ(Lines(Rings(kSources)), ""); }

// ---- the check itself

/// Whether a file may include another.
bool Allowed(const std::string& file, const std::string& target) {
  const TemporaryFolder tree;
  tree.Put(target, "");
  tree.Put(file, "#include \"zelnor/" + target + "\"\n");
  return IncludesNotDownward(tree.Path()).empty();
}

TEST(IncludeCheck, KnowsTheOrderOfTheFloors) {
  const std::vector<std::string> upward = {"platform/a.h",
                                           "common/a.h",
                                           "envelope/clsGTMHeader.h",
                                           "documents/clsEmployee.h",
                                           "envelope/clsGovTalkMessage.h",
                                           "validation/a.h",
                                           "gateway/a.h",
                                           "controller/a.h",
                                           "cli/a.h"};
  for (std::size_t upper = 0; upper < upward.size(); ++upper) {
    for (std::size_t lower = 0; lower < upward.size(); ++lower) {
      if (lower != upper) {
        EXPECT_EQ(Allowed(upward[upper], upward[lower]), lower < upper)
            << upward[upper] << " on " << upward[lower];
      }
    }
  }
}

TEST(IncludeCheck, DividesTheEnvelope) {
  for (const char* leaf : {"clsKey", "clsIRMark", "clsManifest", "clsManifestRef", "clsBase64", "clsSHA256",
                           "clsDZEncoder", "clsGTMGovTalkDetails"}) {
    EXPECT_TRUE(Allowed("documents/a.cpp", std::string("envelope/") + leaf + ".h")) << leaf;
    EXPECT_FALSE(Allowed(std::string("envelope/") + leaf + ".cpp", "documents/a.h")) << leaf;
  }
  for (const char* top : {"clsGovTalkMessage", "clsSHA1"}) {
    EXPECT_FALSE(Allowed("documents/a.cpp", std::string("envelope/") + top + ".h")) << top;
    EXPECT_TRUE(Allowed(std::string("envelope/") + top + ".cpp", "documents/a.h")) << top;
  }
}

TEST(IncludeCheck, TheStandInNeedsPlatformAndCommonAlone) {
  EXPECT_TRUE(Allowed("standin/a.cpp", "platform/a.h"));
  EXPECT_TRUE(Allowed("standin/a.cpp", "common/a.h"));
  EXPECT_TRUE(Allowed("standin/a.cpp", "standin/b.h"));
  EXPECT_FALSE(Allowed("standin/a.cpp", "envelope/clsKey.h"));
  EXPECT_FALSE(Allowed("standin/a.cpp", "documents/a.h"));
  EXPECT_FALSE(Allowed("gateway/a.cpp", "standin/a.h"));
  EXPECT_FALSE(Allowed("controller/a.cpp", "standin/a.h"));
  EXPECT_TRUE(Allowed("cli/a.cpp", "standin/a.h"));
}

TEST(IncludeCheck, DesktopAndReportStandBesideTheController) {
  for (const std::string side : {"desktop", "report"}) {
    EXPECT_TRUE(Allowed(side + "/a.cpp", "common/a.h"));
    EXPECT_TRUE(Allowed(side + "/a.cpp", "gateway/a.h"));
    EXPECT_FALSE(Allowed(side + "/a.cpp", "controller/a.h"));
    EXPECT_FALSE(Allowed(side + "/a.cpp", "standin/a.h"));
    EXPECT_FALSE(Allowed(side + "/a.cpp", "zelnor.h"));
    EXPECT_FALSE(Allowed("controller/a.cpp", side + "/a.h"));
    EXPECT_FALSE(Allowed("common/a.cpp", side + "/a.h"));
    EXPECT_TRUE(Allowed("cli/a.cpp", side + "/a.h"));
  }
  EXPECT_FALSE(Allowed("desktop/a.cpp", "report/a.h"));
  EXPECT_FALSE(Allowed("report/a.cpp", "desktop/a.h"));
}

TEST(IncludeCheck, TheGatheringHeaderStandsOnTheLibraryAndUnderTheProgram) {
  EXPECT_TRUE(Allowed("zelnor.h", "controller/a.h"));
  EXPECT_FALSE(Allowed("zelnor.h", "cli/a.h"));
  EXPECT_FALSE(Allowed("zelnor.h", "standin/a.h"));
  EXPECT_FALSE(Allowed("controller/a.cpp", "zelnor.h"));
  EXPECT_TRUE(Allowed("cli/a.cpp", "zelnor.h"));
}

TEST(IncludeCheck, NamesFileLineAndTarget) {
  const TemporaryFolder tree;
  tree.Put("common/a.h",
           "#pragma once\n\n  #  include <zelnor/documents/b.h>  // why\n#include \"zelnor/platform/c.h\"\n");
  EXPECT_THAT(IncludesNotDownward(tree.Path()), ElementsAre("common/a.h:3: zelnor/documents/b.h"));
}

TEST(IncludeCheck, FindsIncludesThatAreNotWrittenFromTheRoot) {
  const TemporaryFolder tree;
  tree.Put("common/a.h", "");
  tree.Put("common/b.h", "#include <string>\n#include \"a.h\"\n#include \"zelnor/common/a.h\"\n");
  tree.Put("common/c.h", "#include \"zelnor/common/missing.h\"\n// #include \"x.h\"\n");
  EXPECT_THAT(IncludesOutsideTheTree(tree.Path()),
              ElementsAre("common/b.h:2: a.h", "common/c.h:1: zelnor/common/missing.h"));
}

TEST(IncludeCheck, FindsFilesOfNoFloor) {
  const TemporaryFolder tree;
  tree.Put("zelnor.h", "");
  tree.Put("attic/a.h", "");
  tree.Put("envelope/clsOther.cpp", "");
  tree.Put("envelope/clsKey.cpp", "");
  tree.Put("attic/notes.txt", "");
  EXPECT_THAT(FilesWithoutFloor(tree.Path()), ElementsAre("attic/a.h", "envelope/clsOther.cpp"));
}

TEST(IncludeCheck, FindsRingsOfAnyLength) {
  const TemporaryFolder tree;
  tree.Put("common/a.h", "#include \"zelnor/common/b.h\"\n");
  tree.Put("common/b.h", "#include \"zelnor/common/c.h\"\n#include \"zelnor/common/a.h\"\n");
  tree.Put("common/c.h", "#include \"zelnor/common/a.h\"\n");
  tree.Put("common/self.h", "#include \"zelnor/common/self.h\"\n");
  EXPECT_THAT(Rings(tree.Path()),
              ElementsAre("common/a.h -> common/b.h -> common/c.h -> common/a.h",
                          "common/a.h -> common/b.h -> common/a.h", "common/self.h -> common/self.h"));
}

TEST(IncludeCheck, TakesNoRingForTwoWaysToOneFile) {
  const TemporaryFolder tree;
  tree.Put("common/a.h", "#include \"zelnor/common/b.h\"\n#include \"zelnor/common/c.h\"\n");
  tree.Put("common/b.h", "#include \"zelnor/common/c.h\"\n");
  tree.Put("common/c.h", "");
  EXPECT_THAT(Rings(tree.Path()), IsEmpty());
}

}  // namespace
}  // namespace zelnor::floors
