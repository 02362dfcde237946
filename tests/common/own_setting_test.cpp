#include "zelnor/common/own_setting.h"

#include "zelnor/common/alsAppSettings.h"

#include <filesystem>
#include <thread>

#include "common_fixture.h"

using namespace zelnor;
using namespace zelnor::test;
using testing::IsEmpty;

namespace {

class OwnSettingTest : public InProgramFolder {
 protected:
  OwnSettingTest() { folder_.Put("rti.config", "<Config><Settings><A>file</A></Settings></Config>"); }
  String File() const { return folder_.Get("rti.config"); }
};

}  // namespace

TEST_F(OwnSettingTest, BeginsWithWhatTheKeyReads) {
  const OwnSetting own("A");
  EXPECT_EQ(alsAppSettings().ReadSetting("A"), "file");
  EXPECT_EQ(OwnSetting::ValueOf("A"), "file");
  EXPECT_EQ(OwnSetting::ValueOf("B"), std::nullopt);
}

TEST_F(OwnSettingTest, ChangesStayOutOfTheFile) {
  const String before = File();
  alsAppSettings earlier;
  {
    const OwnSetting own("A");
    EXPECT_TRUE(earlier.SetSetting("A", " own "));
    EXPECT_EQ(earlier.ReadSetting("A"), "own") << "without white space at its ends, as from the file";
    EXPECT_EQ(alsAppSettings().ReadSetting("A"), "own");
    EXPECT_EQ(File(), before);
  }
  EXPECT_EQ(earlier.ReadSetting("A"), "file");
  EXPECT_EQ(File(), before);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OwnSettingTest, HoldsForEachVersion) {
  const String before = File();
  const OwnSetting own("A", "own");
  EXPECT_EQ(alsAppSettings().ReadSetting("A", "15.0"), "own");
  EXPECT_TRUE(alsAppSettings().SetSetting("A", "other", "15.0"));
  EXPECT_EQ(alsAppSettings().ReadSetting("A"), "other");
  EXPECT_EQ(File(), before);
}

TEST_F(OwnSettingTest, OtherKeysGoToTheFile) {
  const OwnSetting own("A", "own");
  EXPECT_TRUE(alsAppSettings().SetSetting("B", "2"));
  EXPECT_EQ(File(), "<Config><Settings><A>file</A><B>2</B></Settings></Config>");
}

TEST_F(OwnSettingTest, AnEmptyValueTakesItsReadersDefault) {
  const String before = File();
  const OwnSetting own("A", "");
  alsAppSettings settings;
  if (settings.ReadSetting("A").empty()) settings.SetSetting("A", "default");
  EXPECT_EQ(settings.ReadSetting("A"), "default");
  EXPECT_EQ(File(), before);
}

TEST_F(OwnSettingTest, AnInnerOneGivesTheKeyBackToTheOuterOne) {
  const OwnSetting outer("A", "outer");
  {
    const OwnSetting inner("A");
    EXPECT_EQ(alsAppSettings().ReadSetting("A"), "outer");
    alsAppSettings().SetSetting("A", "inner");
    EXPECT_EQ(alsAppSettings().ReadSetting("A"), "inner");
  }
  EXPECT_EQ(alsAppSettings().ReadSetting("A"), "outer");
}

TEST_F(OwnSettingTest, WhatOthersChangeInTheFileMeanwhileIsThereAfterwards) {
  {
    const OwnSetting own("A", "own");
    folder_.Put("rti.config", "<Config><Settings><A>by hand</A></Settings></Config>");
    EXPECT_EQ(alsAppSettings().ReadSetting("A"), "own");
  }
  EXPECT_EQ(alsAppSettings().ReadSetting("A"), "by hand");
}

TEST_F(OwnSettingTest, HoldsOnEveryThread) {
  const OwnSetting own("A", "0");
  std::vector<std::thread> threads;
  for (const char* value : {"1", "2", "3", "4"}) {
    threads.emplace_back([value] {
      alsAppSettings settings;
      for (int turn = 0; turn < 200; ++turn) {
        settings.SetSetting("A", value);
        EXPECT_EQ(settings.ReadSetting("A").size(), 1U);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_NE(alsAppSettings().ReadSetting("A"), "0");
  EXPECT_THAT(Boxes(), IsEmpty());
}
