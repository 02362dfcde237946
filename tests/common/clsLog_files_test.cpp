// Where and when the log is written, and how many of its files are kept.

#include "zelnor/common/clsLog.h"

#include <filesystem>
#include <stdexcept>

#include "log_fixture.h"

using namespace zelnor;
using namespace zelnor::test;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace {

class clsLogFiles : public LogTest {
 protected:
  /// Logs of that many days of January 2016, oldest first.
  std::vector<String> PutOldLogs(int count) {
    std::vector<String> names;
    for (int day = 1; day <= count; ++day) {
      names.push_back("Log_2016_01_" + String(day < 10 ? "0" : "") + std::to_string(day) + "_101112.xml");
      PutLog(names.back());
    }
    return names;
  }

  /// A new log with a message, saved once.
  std::unique_ptr<clsLog> SavedLog() {
    auto log = std::make_unique<clsLog>();
    log->AddTimingRecord("x");
    EXPECT_TRUE(log->Save());
    return log;
  }
};

}  // namespace

TEST_F(clsLogFiles, WritesItsDefaultsIntoTheSettings) {
  const clsLog log;
  EXPECT_EQ(Setting("LogPath"), "\\xml\\logs\\");
  EXPECT_EQ(Setting("LogPrefix"), "Log");
  EXPECT_EQ(Setting("MaxLogStore"), "10");
  EXPECT_EQ(log.MaxLogs(), 10);
}

TEST_F(clsLogFiles, NamesItsFileByPrefixAndTime) {
  clsLog log;
  EXPECT_EQ(log.LogDirectory(), folder_.Path() + "\\xml\\logs\\");
  EXPECT_EQ(log.LogFilePath(), folder_.Path() + "\\xml\\logs\\Log_2017_04_05_101112.xml");
}

TEST_F(clsLogFiles, TakesFolderPrefixAndLimitFromTheSettings) {
  Set("LogPath", folder_.At("elsewhere"));
  Set("LogPrefix", "rti");
  Set("MaxLogStore", "3");
  clsLog log;
  EXPECT_EQ(log.LogFilePath(), folder_.At("elsewhere") + "\\rti_2017_04_05_101112.xml");
  EXPECT_EQ(log.MaxLogs(), 3);
  EXPECT_EQ(Setting("LogPath"), folder_.At("elsewhere"));
}

TEST_F(clsLogFiles, ALeadingBackslashMeansBelowTheProgramsFolder) {
  Set("LogPath", "\\logs");
  clsLog log;
  EXPECT_EQ(log.LogDirectory(), folder_.Path() + "\\logs\\");
}

TEST_F(clsLogFiles, ALimitThatIsNoNumberIsReportedAndTheLogWorks) {
  Set("MaxLogStore", "many");
  {
    clsLog log;
    EXPECT_THAT(Boxes(),
                ElementsAre("Error in ZELNOR.dll::clsLog: Sub Class_Initialize: Error 13 - Type mismatch"));
    EXPECT_TRUE(log.IsSavedToDate());
    EXPECT_TRUE(log.AddTimingRecord("x"));
    EXPECT_TRUE(log.Save());
  }
  EXPECT_THAT(File(), HasSubstr(">x</Timing>"));
  EXPECT_THAT(Boxes(), SizeIs(1));
}

TEST_F(clsLogFiles, SaveWritesTheDocumentAndMakesItsFolder) {
  clsLog log;
  log.SetCompany("Zo\xC3\xAB");
  log.AddTimingRecord("x");
  EXPECT_FALSE(log.IsSavedToDate());
  EXPECT_TRUE(log.Save());
  EXPECT_TRUE(log.IsSavedToDate());
  EXPECT_EQ(File(), log.GetAsXML().OwnerDocument().Xml());
  EXPECT_THAT(File(), StartsWith("<?xml version=\"1.0\" encoding=\"utf-8\"?><Log "));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(clsLogFiles, AllCopiesGoWhereTheSubmissionIsReplaced) {
  clsLog log;
  XmlDocument first;
  XmlDocument second;
  ASSERT_TRUE(first.LoadXML("<First><a>1</a></First>"));
  ASSERT_TRUE(second.LoadXML("<Second><a>2</a></Second>"));
  log.AppendSubmission(first.DocumentElement());
  log.AppendSubmission(first.DocumentElement());
  log.AppendSubmission(first.DocumentElement());
  log.AddSubmission(second.DocumentElement());
  EXPECT_THAT(ReadFile(log.LogFilePath()), Not(HasSubstr("<First>")));
  EXPECT_EQ(log.GetSubmission().BaseName(), "Second");
  log.AppendSubmission(first.DocumentElement());
  log.ClearSubmission();
  EXPECT_FALSE(log.Submission().HasChildNodes());
}

TEST_F(clsLogFiles, ATextIsCopiedAsAText) {
  clsLog log;
  XmlDocument document;
  ASSERT_TRUE(document.LoadXML("<a>1 &lt; 2</a>"));
  EXPECT_TRUE(log.AddSubmission(document.DocumentElement().FirstChild()));
  EXPECT_THAT(ReadFile(log.LogFilePath()), HasSubstr("<Submission>1 &lt; 2</Submission>"));
  EXPECT_EQ(log.Submission().Text(), "1 < 2");
}

TEST_F(clsLogFiles, TheFileIsTheSameWhetherOrNotSomebodyAskedForItsNodes) {
  const XmlDocument source;
  source.PreserveWhiteSpace(true);
  ASSERT_TRUE(source.LoadXML(
      "<p:a xmlns:p=\"urn:p\" xmlns=\"urn:d\">\n <b k=\"&quot;&#xA;&lt;\">&amp;&#xD;\xC2\xA3</b>"
      "<![CDATA[<x>]]><!-- c --><c xmlns=\"\"> </c></p:a>"));
  const auto fill = [&](clsLog& log) {
    log.AddSubmission(source.DocumentElement());
    log.AddSendDoc(source.DocumentElement(), SEND_DIRECTION::Outgoing, "http://localhost/");
    log.AddSendDoc(source.DocumentElement(), SEND_DIRECTION::Incoming);
    log.AddLatestPollResponse(source.DocumentElement());
  };
  clsLog log;
  fill(log);
  EXPECT_TRUE(log.Save());
  const String unasked = File();
  EXPECT_EQ(log.GetSubmission().Xml(), source.DocumentElement().Xml());
  EXPECT_TRUE(log.Save(folder_.At("asked.xml")));
  EXPECT_EQ(folder_.Get("asked.xml"), unasked);
  clsLog open_at_once;
  open_at_once.GetAsXML();
  fill(open_at_once);
  EXPECT_TRUE(open_at_once.Save(folder_.At("at_once.xml")));
  EXPECT_EQ(folder_.Get("at_once.xml"), unasked);
}

TEST_F(clsLogFiles, SaveWritesNothingWhenTheFileIsUpToDate) {
  clsLog log;
  EXPECT_TRUE(log.Save());
  EXPECT_TRUE(log.Save(log.LogFilePath()));
  EXPECT_FALSE(std::filesystem::exists(folder_.At(kFolder)));
  log.AddTimingRecord("x");
  log.Save();
  folder_.Put(kLogFile, "touched");
  EXPECT_TRUE(log.Save());
  EXPECT_EQ(File(), "touched");
}

TEST_F(clsLogFiles, SaveToAnotherPathWritesEvenWhenUpToDateAndMovesTheLog) {
  clsLog log;
  const String path = folder_.At("other/mine.xml");
  EXPECT_TRUE(log.Save(path));
  EXPECT_THAT(folder_.Get("other/mine.xml"), HasSubstr("<Log "));
  EXPECT_EQ(log.LogFilePath(), path);
  log.AddTimingRecord("x");
  EXPECT_TRUE(log.Save());
  EXPECT_THAT(folder_.Get("other/mine.xml"), HasSubstr(">x</Timing>"));
  EXPECT_EQ(File(), "");
}

TEST_F(clsLogFiles, LogFilePathSavesFirst) {
  clsLog log;
  log.AddTimingRecord("x");
  log.LogFilePath();
  EXPECT_TRUE(log.IsSavedToDate());
  EXPECT_THAT(File(), HasSubstr(">x</Timing>"));
}

TEST_F(clsLogFiles, ALogThatIsNotToBeSavedReportsSuccess) {
  {
    clsLog log;
    log.DontSaveLog(true);
    EXPECT_TRUE(log.DontSaveLog());
    log.AddTimingRecord("x");
    EXPECT_TRUE(log.Save());
    EXPECT_TRUE(log.Save(folder_.At("other.xml")));
    EXPECT_FALSE(log.IsSavedToDate());
    EXPECT_THAT(log.LogFilePath(), EndsWith("Log_2017_04_05_101112.xml"));
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.At("xml")));
  EXPECT_FALSE(std::filesystem::exists(folder_.At("other.xml")));
}

TEST_F(clsLogFiles, AtItsEndAClosingRecordIsWritten) {
  {
    clsLog log;
    log.AddTimingRecord("x");
    Later(3);
  }
  EXPECT_THAT(File(),
              HasSubstr("<LogRecords><Timing TimeStamp=\"2017-04-05T10:11:12\">x</Timing>"
                        "<TerminateLog TimeStamp=\"2017-04-05T10:11:15\">Log terminated at 05/04/2017 "
                        "10:11:15.</TerminateLog></LogRecords>"));
}

TEST_F(clsLogFiles, ALogThatIsUpToDateEndsWithoutAClosingRecord) {
  const String before = (SavedLog(), File());
  EXPECT_EQ(File(), before);
  EXPECT_THAT(File(), Not(HasSubstr("TerminateLog")));
}

TEST_F(clsLogFiles, ALogOfAttributesAloneIsNeverWritten) {
  {
    clsLog log;
    log.SetCompany("a");
    log.SetSubmissionType(eRTISUBMISSIONTYPE::IsFPS);
    log.AddSubmissionPeriod(PERIOD_TYPE::ptMonth, 1);
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.At("xml")));
}

TEST_F(clsLogFiles, AHostThatFailsAtItsEndDoesNoHarm) {
  class Timeless : public RecordingHost {
   public:
    Date Now() override {
      if (broken) throw std::runtime_error("no clock");
      return now;
    }
    bool broken = false;
  };
  const auto timeless = std::make_shared<Timeless>();
  SetHost(timeless);
  {
    clsLog log;
    log.AddTimingRecord("x");
    timeless->broken = true;
  }
  ASSERT_THAT(timeless->messages, SizeIs(1));
  EXPECT_THAT(timeless->messages[0].text,
              StartsWith("Error in ZELNOR.dll::clsLog: Sub Class_Terminate: Error 440"));
}

TEST_F(clsLogFiles, TheReportsTextsAreSavedAtOnce) {
  clsLog log;
  EXPECT_EQ(log.LastReportRunDate(), "");
  EXPECT_EQ(log.ReportSortOrder(), "");
  log.LastReportRunDate("05/04/2017");
  EXPECT_EQ(log.LastReportRunDate(), "05/04/2017");
  EXPECT_TRUE(log.IsSavedToDate());
  EXPECT_THAT(File(), HasSubstr("<LastReportRunDate>05/04/2017</LastReportRunDate>"));
  log.ReportSortOrder("Name");
  EXPECT_EQ(log.ReportSortOrder(), "Name");
  EXPECT_THAT(File(), HasSubstr("<ReportSortOrder>Name</ReportSortOrder>"));
}

TEST_F(clsLogFiles, MaxLogsIsStoredAndAtLeastOne) {
  clsLog log;
  log.MaxLogs(25);
  EXPECT_EQ(log.MaxLogs(), 25);
  EXPECT_EQ(Setting("MaxLogStore"), "25");
  log.MaxLogs(0);
  EXPECT_EQ(log.MaxLogs(), 1);
  EXPECT_EQ(Setting("MaxLogStore"), "1");
  log.MaxLogs(-3);
  EXPECT_EQ(log.MaxLogs(), 1);
}

TEST_F(clsLogFiles, MaxLogsSparesWhatOthersWroteIntoTheSettings) {
  clsLog log;
  Set("ValidatePayment", "False");
  log.MaxLogs(5);
  EXPECT_EQ(Setting("ValidatePayment"), "False");
}

TEST_F(clsLogFiles, WithAsManyLogsAsAllowedNothingIsDeleted) {
  PutOldLogs(10);
  SavedLog();
  EXPECT_THAT(LogNames(), SizeIs(11));
}

TEST_F(clsLogFiles, TheOldestBeyondTheLimitAreDeleted) {
  std::vector<String> expected = PutOldLogs(12);
  SavedLog();
  expected.erase(expected.begin(), expected.begin() + 2);
  expected.emplace_back("Log_2017_04_05_101112.xml");
  EXPECT_EQ(LogNames(), expected);
}

TEST_F(clsLogFiles, ItsOwnEarlierSaveCounts) {
  const std::vector<String> old = PutOldLogs(10);
  const std::unique_ptr<clsLog> log = SavedLog();
  log->AddTimingRecord("y");
  EXPECT_TRUE(log->Save());
  EXPECT_THAT(LogNames(), SizeIs(10));
  EXPECT_FALSE(std::filesystem::exists(folder_.At(kFolder + old.front())));
}

TEST_F(clsLogFiles, FilesOfAnyExtensionCountByTheirPrefixInItsCase) {
  for (const char* name : {"Log", "LogA.txt", "Log_1", "log_0.xml", "Other.xml", "aLog_0.xml"}) PutLog(name);
  clsLog log;
  log.MaxLogs(1);
  log.AddTimingRecord("x");
  EXPECT_TRUE(log.Save());
  EXPECT_THAT(LogNames(), ElementsAre("Log", "Log_1", "Log_2017_04_05_101112.xml", "Other.xml", "aLog_0.xml",
                                      "log_0.xml"));
}

TEST_F(clsLogFiles, ALimitOfNothingKeepsOnlyTheNewFile) {
  PutOldLogs(3);
  Set("MaxLogStore", "0");
  SavedLog();
  EXPECT_THAT(LogNames(), ElementsAre("Log_2017_04_05_101112.xml"));
}

TEST_F(clsLogFiles, ALimitBelowNothingDeletesNothing) {
  PutOldLogs(3);
  Set("MaxLogStore", "-1");
  SavedLog();
  EXPECT_THAT(LogNames(), SizeIs(4));
}

TEST_F(clsLogFiles, AFolderOfOtherFilesOnlyIsReportedAndTheLogNotWritten) {
  PutLog("Other.xml");
  clsLog log;
  log.AddTimingRecord("x");
  EXPECT_FALSE(log.Save());
  EXPECT_THAT(Boxes(),
              ElementsAre("Error in ZELNOR.dll::clsLog: Function Save: Error 9 - Subscript out of range"));
  EXPECT_THAT(LogNames(), ElementsAre("Other.xml"));
  EXPECT_FALSE(log.IsSavedToDate());
  log.DontSaveLog(true);
}

TEST_F(clsLogFiles, OldLogsAreLookedForInTheLogFolderWhereverTheFileLies) {
  PutOldLogs(12);
  clsLog log;
  EXPECT_TRUE(log.Save(folder_.At("other/mine.xml")));
  EXPECT_THAT(LogNames(), SizeIs(10));
}

TEST_F(clsLogFiles, AFailedSaveIsReportedAndTriedAgain) {
  folder_.Put("xml/logs", "a file where the folder should be");
  clsLog log;
  log.AddTimingRecord("x");
  EXPECT_FALSE(log.Save());
  EXPECT_THAT(Boxes(),
              testing::Contains(StartsWith("Error in ZELNOR.dll::clsLog: Function Save: Error 76 - ")));
  EXPECT_FALSE(log.IsSavedToDate());
  EXPECT_TRUE(log.AddTimingRecord("y"));
  std::filesystem::remove(folder_.At("xml/logs"));
  EXPECT_TRUE(log.Save());
  EXPECT_THAT(File(), HasSubstr(">y</Timing>"));
}

TEST_F(clsLogFiles, TheFolderIsStoredAndUsedFromThenOnForOldLogsOnly) {
  clsLog log;
  const String file = log.LogFilePath();
  log.LogDirectory("\\other\\");
  EXPECT_EQ(log.LogDirectory(), folder_.Path() + "\\other\\");
  EXPECT_EQ(Setting("LogPath"), "\\other\\");
  EXPECT_EQ(log.LogFilePath(), file);
}

TEST_F(clsLogFiles, TheFolderAtHandDecidesWhetherASeparatorIsAdded) {
  clsLog log;
  log.LogDirectory(folder_.At("a"));
  EXPECT_EQ(log.LogDirectory(), folder_.At("a"));
  EXPECT_EQ(Setting("LogPath"), folder_.At("a"));
  log.LogDirectory(folder_.At("b"));
  EXPECT_EQ(log.LogDirectory(), folder_.At("b") + "\\");
  EXPECT_EQ(Setting("LogPath"), folder_.At("b") + "\\");
}

TEST_F(clsLogFiles, TwoLogsOfOneSecondShareAName) {
  clsLog one;
  clsLog other;
  EXPECT_EQ(one.LogFilePath(), other.LogFilePath());
  Later(1);
  clsLog third;
  EXPECT_NE(third.LogFilePath(), one.LogFilePath());
}
