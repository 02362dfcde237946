#include "zelnor/common/alsAppSettings.h"

#include <filesystem>

#include "common_fixture.h"

using namespace zelnor;
using namespace zelnor::test;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace {

constexpr const char* kFresh = "<Config><Settings></Settings></Config>";
constexpr const char* kNotWellFormed = "<Config><Settings><A>1</Settings>";

class alsAppSettingsTest : public InProgramFolder {
 protected:
  ~alsAppSettingsTest() override {
    std::error_code ignored;
    std::filesystem::permissions(folder_.At("rti.config"), std::filesystem::perms::owner_all, ignored);
  }

  String File() const { return folder_.Get("rti.config"); }
  void PutFile(const String& text) { folder_.Put("rti.config", text); }
  void PutSettings(const String& inside) { PutFile("<Config><Settings>" + inside + "</Settings></Config>"); }
};

}  // namespace

TEST_F(alsAppSettingsTest, MakesAFileWithoutSettingsInAnEmptyFolder) {
  const alsAppSettings settings;
  EXPECT_EQ(File(), kFresh);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(alsAppSettingsTest, MakesTheProgramsFolderToo) {
  SetProgramFolder(folder_.At("new/program"));
  const alsAppSettings settings;
  EXPECT_EQ(folder_.Get("new/program/rti.config"), kFresh);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(alsAppSettingsTest, LeavesAFileThatIsThereAsItIs) {
  PutFile("<Config>\n  <Settings>\n    <A>1</A>\n  </Settings>\n</Config>\n");
  const String before = File();
  alsAppSettings settings;
  EXPECT_EQ(settings.ReadSetting("A"), "1");
  EXPECT_EQ(File(), before);
}

TEST_F(alsAppSettingsTest, AnAbsentKeyReadsEmptyAndIsNotAdded) {
  alsAppSettings settings;
  EXPECT_EQ(settings.ReadSetting("LogPrefix"), "");
  EXPECT_EQ(settings.ReadSetting("LogPrefix", "15.0"), "");
  EXPECT_EQ(File(), kFresh);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(alsAppSettingsTest, WritesASettingUnderItsKey) {
  alsAppSettings settings;
  EXPECT_TRUE(settings.SetSetting("LogPrefix", "Log"));
  EXPECT_EQ(File(), "<Config><Settings><LogPrefix>Log</LogPrefix></Settings></Config>");
  EXPECT_TRUE(settings.SetSetting("MaxLogStore", "10"));
  EXPECT_EQ(File(),
            "<Config><Settings><LogPrefix>Log</LogPrefix><MaxLogStore>10</MaxLogStore></Settings></Config>");
  EXPECT_EQ(settings.ReadSetting("LogPrefix"), "Log");
  EXPECT_EQ(alsAppSettings().ReadSetting("MaxLogStore"), "10");
}

TEST_F(alsAppSettingsTest, ReplacesTheTextOfAKeyInItsPlace) {
  PutSettings("<A>1</A><B>2</B>");
  EXPECT_TRUE(alsAppSettings().SetSetting("A", "one"));
  EXPECT_EQ(File(), "<Config><Settings><A>one</A><B>2</B></Settings></Config>");
  EXPECT_TRUE(alsAppSettings().SetSetting("A", ""));
  EXPECT_EQ(File(), "<Config><Settings><A></A><B>2</B></Settings></Config>");
}

TEST_F(alsAppSettingsTest, KeysAreToldApartByCase) {
  alsAppSettings settings;
  settings.SetSetting("Key", "1");
  EXPECT_EQ(settings.ReadSetting("key"), "");
}

TEST_F(alsAppSettingsTest, VersionsOfAKeyAreDifferentSettings) {
  alsAppSettings settings;
  settings.SetSetting("GovTalkVersion", "old", "14.0");
  settings.SetSetting("GovTalkVersion", "new", "15.0");
  EXPECT_EQ(settings.ReadSetting("GovTalkVersion", "14.0"), "old");
  EXPECT_EQ(settings.ReadSetting("GovTalkVersion", "15.0"), "new");
  EXPECT_EQ(settings.ReadSetting("GovTalkVersion", "16.0"), "");
  EXPECT_EQ(File(),
            "<Config><Settings><GovTalkVersion Version=\"14.0\">old</GovTalkVersion>"
            "<GovTalkVersion Version=\"15.0\">new</GovTalkVersion></Settings></Config>");
}

TEST_F(alsAppSettingsTest, WritingAVersionAgainKeepsItsOneAttribute) {
  alsAppSettings settings;
  settings.SetSetting("Key", "1", "15.0");
  EXPECT_TRUE(settings.SetSetting("Key", "2", "15.0"));
  EXPECT_EQ(File(), "<Config><Settings><Key Version=\"15.0\">2</Key></Settings></Config>");
}

TEST_F(alsAppSettingsTest, WithoutAVersionTheFirstElementOfTheKeyIsMeant) {
  PutSettings("<A Version=\"15.0\">first</A><A>second</A>");
  EXPECT_EQ(alsAppSettings().ReadSetting("A"), "first");
  EXPECT_TRUE(alsAppSettings().SetSetting("A", "changed"));
  EXPECT_EQ(File(), "<Config><Settings><A Version=\"15.0\">changed</A><A>second</A></Settings></Config>");

  PutSettings("<A>first</A><A Version=\"15.0\">second</A>");
  EXPECT_EQ(alsAppSettings().ReadSetting("A"), "first");
  EXPECT_EQ(alsAppSettings().ReadSetting("A", "15.0"), "second");
}

TEST_F(alsAppSettingsTest, AnyTextWithoutOuterBlanksComesBack) {
  for (const String text :
       {"\\xml\\logs\\", "blanks   within", "tabs\tand", "two\nlines", "a & b < c > d", "]]>",
        "\"quoted\" and 'quoted'", "&amp;", "<A>1</A>", "Zo\xC3\xAB \xCE\xA9 \xF0\x9D\x94\x98", "0", ""}) {
    EXPECT_TRUE(alsAppSettings().SetSetting("Key", text));
    EXPECT_EQ(alsAppSettings().ReadSetting("Key"), text);
  }
  EXPECT_EQ(File(), "<Config><Settings><Key></Key></Settings></Config>");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(alsAppSettingsTest, WhiteSpaceAroundATextWrittenByHandDoesNotCount) {
  PutSettings("\n<LogPrefix>\n  Log\n</LogPrefix>\n");
  EXPECT_EQ(alsAppSettings().ReadSetting("LogPrefix"), "Log");
}

TEST_F(alsAppSettingsTest, WhatXmlCannotHoldIsReplaced) {
  EXPECT_TRUE(alsAppSettings().SetSetting("Key",
                                          "a\r\nb\x01"
                                          "c"));
  EXPECT_EQ(alsAppSettings().ReadSetting("Key"),
            "a\nb\xEF\xBF\xBD"
            "c");
}

TEST_F(alsAppSettingsTest, AKeyThatIsNoElementNameIsNotWritten) {
  PutSettings("<A>1</A><B>2</B>");
  const String before = File();
  alsAppSettings settings;
  for (const String key : {"", "two words", "1st", "a/b", "<x>", "@Version", "a:b"}) {
    ClearBoxes();
    EXPECT_FALSE(settings.SetSetting(key, "value")) << key;
    EXPECT_THAT(Boxes(), ElementsAre(StartsWith("Error in ZELNOR.dll::alsAppSettings: Function SetSetting: "
                                                "Error 5 - ")))
        << key;
  }
  EXPECT_EQ(File(), before);
}

TEST_F(alsAppSettingsTest, AVersionThatCannotBeAskedForIsReported) {
  alsAppSettings settings;
  EXPECT_FALSE(settings.SetSetting("Key", "value", "it's"));
  EXPECT_THAT(Boxes(), ElementsAre(HasSubstr("Function SetSetting: Error 5 - ")));
  EXPECT_EQ(File(), kFresh);
}

TEST_F(alsAppSettingsTest, RemovingASettingIsRefused) {
  alsAppSettings settings;
  settings.SetSetting("A", "1");
  const String before = File();
  EXPECT_FALSE(settings.RemoveSetting("A"));
  EXPECT_THAT(Boxes(),
              ElementsAre(StartsWith("Error in ZELNOR.dll::alsAppSettings: Function RemoveSetting: Error ")));
  EXPECT_EQ(File(), before);
  EXPECT_EQ(settings.ReadSetting("A"), "1");
}

TEST_F(alsAppSettingsTest, RemovingAnAbsentSettingIsFalseWithoutABox) {
  alsAppSettings settings;
  settings.SetSetting("A", "1");
  EXPECT_FALSE(settings.RemoveSetting("B"));
  EXPECT_FALSE(settings.RemoveSetting("A", "15.0"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(alsAppSettingsTest, GatheredChangesReachTheFileAtTheEnd) {
  alsAppSettings settings;
  settings.BeginUpdate();
  EXPECT_TRUE(settings.SetSetting("A", "1"));
  EXPECT_TRUE(settings.SetSetting("B", "2"));
  EXPECT_EQ(File(), kFresh);
  EXPECT_EQ(settings.ReadSetting("A"), "1");
  settings.EndUpdate();
  EXPECT_EQ(File(), "<Config><Settings><A>1</A><B>2</B></Settings></Config>");
  settings.SetSetting("C", "3");
  EXPECT_EQ(File(), "<Config><Settings><A>1</A><B>2</B><C>3</C></Settings></Config>");
}

TEST_F(alsAppSettingsTest, AnObjectThatHasOnlyLoadedDropsWhatItGathered) {
  PutSettings("<A>1</A>");
  alsAppSettings settings;
  settings.BeginUpdate();
  settings.SetSetting("B", "2");
  settings.SetSetting("C", "3");
  settings.EndUpdate();
  EXPECT_EQ(File(), "<Config><Settings><A>1</A><C>3</C></Settings></Config>");
}

TEST_F(alsAppSettingsTest, SaveWritesWhatWasGatheredAndGathersOn) {
  alsAppSettings settings;
  settings.BeginUpdate();
  settings.SetSetting("A", "1");
  settings.Save();
  EXPECT_EQ(File(), "<Config><Settings><A>1</A></Settings></Config>");
  settings.SetSetting("B", "2");
  EXPECT_EQ(File(), "<Config><Settings><A>1</A></Settings></Config>");
}

TEST_F(alsAppSettingsTest, KnowsTheFilesTimeAfterMakingAndSavingOnly) {
  alsAppSettings maker;
  EXPECT_FALSE(maker.FileChangedSinceLastAccessed());
  alsAppSettings loader;
  EXPECT_TRUE(loader.FileChangedSinceLastAccessed());
  EXPECT_EQ(loader.ReadSetting("A"), "");
  EXPECT_TRUE(loader.FileChangedSinceLastAccessed());
  loader.LoadConfig();
  EXPECT_TRUE(loader.FileChangedSinceLastAccessed());
  loader.Save();
  EXPECT_FALSE(loader.FileChangedSinceLastAccessed());
}

TEST_F(alsAppSettingsTest, EndUpdateLeavesTheKnownTime) {
  alsAppSettings settings;
  settings.BeginUpdate();
  settings.SetSetting("A", "1");
  settings.EndUpdate();
  EXPECT_TRUE(settings.FileChangedSinceLastAccessed());
}

TEST_F(alsAppSettingsTest, AFileOlderThanKnownCountsAsChanged) {
  alsAppSettings settings;
  const std::filesystem::path file = folder_.At("rti.config");
  std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) - std::chrono::hours(1));
  EXPECT_TRUE(settings.FileChangedSinceLastAccessed());
}

TEST_F(alsAppSettingsTest, GivesTheFilesTime) {
  alsAppSettings settings;
  EXPECT_EQ(settings.GetLastModifiedDate(), FileDate(folder_.At("rti.config")));
}

TEST_F(alsAppSettingsTest, SeesAFileEditedByHandBetweenTwoReads) {
  PutSettings("<A>1</A>");
  alsAppSettings settings;
  EXPECT_EQ(settings.ReadSetting("A"), "1");
  PutSettings("<A>2</A>");
  EXPECT_EQ(settings.ReadSetting("A"), "2");
}

TEST_F(alsAppSettingsTest, KeepsWhatOthersWroteWhenItWrites) {
  alsAppSettings one;
  alsAppSettings other;
  one.SetSetting("A", "1");
  other.SetSetting("B", "2");
  one.SetSetting("C", "3");
  EXPECT_EQ(File(), "<Config><Settings><A>1</A><B>2</B><C>3</C></Settings></Config>");
  EXPECT_EQ(one.ReadSetting("B"), "2");
}

TEST_F(alsAppSettingsTest, AFileThatIsGoneIsReported) {
  alsAppSettings settings;
  settings.SetSetting("A", "1");
  std::filesystem::remove(folder_.At("rti.config"));
  EXPECT_EQ(settings.ReadSetting("A"), "");
  EXPECT_FALSE(settings.SetSetting("B", "2"));
  EXPECT_EQ(File(), "");
  EXPECT_THAT(
      Boxes(),
      ElementsAre("Error in ZELNOR.dll::alsAppSettings: Function ReadSetting: Error 53 - File not found",
                  "Error in ZELNOR.dll::alsAppSettings: Function SetSetting: Error 53 - File not found"));
}

TEST_F(alsAppSettingsTest, AskingForTheTimeOfAFileThatIsGoneRaises53) {
  alsAppSettings settings;
  std::filesystem::remove(folder_.At("rti.config"));
  EXPECT_EQ(RaisedNumber([&] { settings.GetLastModifiedDate(); }), 53);
  EXPECT_EQ(RaisedNumber([&] { settings.FileChangedSinceLastAccessed(); }), 53);
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(alsAppSettingsTest, GatheringGoesOnAfterAnEndUpdateThatCannotWrite) {
  alsAppSettings settings;
  settings.BeginUpdate();
  PutFile(kNotWellFormed);
  settings.LoadConfig();
  settings.EndUpdate();
  EXPECT_THAT(Boxes().back(), HasSubstr("Sub EndUpdate: Error 91 - "));
  PutSettings("");
  settings.SetSetting("A", "1");
  EXPECT_THAT(File(), Not(HasSubstr("<A>")));
  settings.EndUpdate();
  EXPECT_THAT(File(), HasSubstr("<A>1</A>"));
}

TEST_F(alsAppSettingsTest, AFileThatIsNotWellFormedReadsEmptyWithTheReason) {
  PutFile(kNotWellFormed);
  alsAppSettings settings;
  EXPECT_THAT(Boxes(), ElementsAre(AllOf(StartsWith("Error in ZELNOR.dll::alsAppSettings: Sub LoadConfig: "),
                                         HasSubstr("rti.config"), HasSubstr("line 1"))));
  EXPECT_EQ(settings.ReadSetting("A"), "");
}

TEST_F(alsAppSettingsTest, AFileThatIsNotWellFormedIsNeverOverwritten) {
  PutFile(kNotWellFormed);
  alsAppSettings settings;
  ClearBoxes();
  EXPECT_FALSE(settings.SetSetting("A", "1"));
  EXPECT_THAT(Boxes(),
              testing::Contains("Error in ZELNOR.dll::alsAppSettings: Function SetSetting: Error 91 - "
                                "Object variable or With block variable not set"));
  ClearBoxes();
  settings.BeginUpdate();
  settings.EndUpdate();
  settings.Save();
  EXPECT_THAT(Boxes(),
              ElementsAre(HasSubstr("Sub EndUpdate: Error 91 - "), HasSubstr("Sub Save: Error 91 - ")));
  EXPECT_EQ(File(), kNotWellFormed);
}

TEST_F(alsAppSettingsTest, AMendedFileIsReadByTheSameObject) {
  PutFile(kNotWellFormed);
  alsAppSettings settings;
  PutSettings("<A>1</A>");
  EXPECT_EQ(settings.ReadSetting("A"), "1");
}

TEST_F(alsAppSettingsTest, AFileOfAnotherShapeTakesNoSettings) {
  PutFile("<Other/>");
  alsAppSettings settings;
  EXPECT_EQ(settings.ReadSetting("A"), "");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_FALSE(settings.SetSetting("A", "1"));
  EXPECT_THAT(Boxes(), ElementsAre(HasSubstr("Function SetSetting: Error 91 - ")));
  EXPECT_EQ(File(), "<Other/>");
}

TEST_F(alsAppSettingsTest, AReadOnlyFileIsReportedAndLeftAlone) {
  PutSettings("<A>1</A>");
  const String before = File();
  std::filesystem::permissions(folder_.At("rti.config"), std::filesystem::perms::owner_read);
  alsAppSettings settings;
  EXPECT_TRUE(settings.SetSetting("A", "2"));
  EXPECT_THAT(Boxes(), ElementsAre("Error in ZELNOR.dll::alsAppSettings: Sub Save: Error 75 - "
                                   "Path/File access error"));
  EXPECT_EQ(File(), before);
  EXPECT_EQ(settings.ReadSetting("A"), "1");
}

TEST_F(alsAppSettingsTest, AFolderInTheFilesPlaceIsReported) {
  std::filesystem::create_directory(folder_.At("rti.config"));
  alsAppSettings settings;
  EXPECT_THAT(Boxes(), ElementsAre("Error in ZELNOR.dll::alsAppSettings: Sub CreateConfigFile: Error 75 - "
                                   "Path/File access error"));
  EXPECT_EQ(settings.ReadSetting("A"), "");
  EXPECT_TRUE(std::filesystem::is_directory(folder_.At("rti.config")));
}

TEST_F(alsAppSettingsTest, AProgramsFolderThatCannotBeMadeIsReported) {
  folder_.Put("file", "x");
  SetProgramFolder(folder_.At("file/program"));
  alsAppSettings settings;
  EXPECT_THAT(Boxes(), testing::Contains(HasSubstr("alsAppSettings: Sub CreateConfigFile: Error 76 - ")));
  EXPECT_EQ(settings.ReadSetting("A"), "");
  EXPECT_EQ(folder_.Get("file"), "x");
}

TEST_F(alsAppSettingsTest, NeverLeavesAnythingBesideTheFile) {
  alsAppSettings settings;
  for (int i = 0; i < 5; ++i) settings.SetSetting("A", std::to_string(i));
  EXPECT_EQ(folder_.Count(), 1U);
}
