// The program's logs: reported, listed, shown, opened and pruned.

#include "zelnor/platform/files.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/host.h"

#include <chrono>
#include <sys/stat.h>
#include <thread>

#include "cli_fixture.h"

namespace zelnor::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

class LogCliTest : public CliTest {
 protected:
  static constexpr const char* kLogs = "home/xml/logs/";

  /// Puts a log begun on that day, of a company, whose last record is that line.
  String PutLog(const String& day, const String& company, const String& line) const {
    return folder_.Put(kLogs + Name(day),
                       "<Log SubmissionType=\"Full Payment Submission\" Company=\"" + company +
                           "\" SubmissionModeDescr=\"Live\"><LogRecords><Timing TimeStamp=\"2017-04-05T"
                           "10:11:12\">" +
                           line + "</Timing></LogRecords></Log>");
  }
  static String Name(const String& day) { return "Log_" + day + "_101112.xml"; }

  /// A log begun so many days ago.
  String PutLogOfAge(int days) const {
    const Date begun = Date::FromSerial(DefaultHost().Now().Serial() - days);
    return PutLog(Format(begun, "yyyy_Mm_Dd"), "A", "x");
  }

  /// The paths of the files in the log folder.
  std::vector<String> LogPaths() const {
    std::vector<String> paths;
    for (const String& name : FileNames(folder_.At(kLogs))) paths.push_back(folder_.At(kLogs + name));
    return paths;
  }

  bool Exists(const String& path) const { return PlainFileExists(path); }

  /// Runs the program with a viewer that notes what it is given.
  Outcome RunWithViewer(const String& arguments) const {
    const String viewer =
        folder_.Put("bin/xdg-open", "#!/bin/sh\nprintf %s \"$1\" > '" + folder_.At("opened.tmp") + "'\nmv '" +
                                        folder_.At("opened.tmp") + "' '" + folder_.At("opened.txt") + "'\n");
    chmod(viewer.c_str(), 0700);
    return Run(arguments, "PATH='" + folder_.At("bin") + "':/usr/bin:/bin");
  }

  /// What the viewer was given; it may still be starting.
  String Opened() const {
    for (int i = 0; i < 500 && !Exists(folder_.At("opened.txt")); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return folder_.Get("opened.txt");
  }
};

// ---- report

TEST_F(LogCliTest, ReportMakesAPageOfASavedDocumentsLog) {
  const Outcome saved = Run("save --json " + Quoted(SamplePath()) + " " + Quoted(folder_.At("out.xml")));
  ASSERT_EQ(saved.status, 0) << saved.err;
  const json told = json::parse(saved.out);
  const String page = folder_.At("page.html");
  const Outcome run = Run("report " + Quoted(told["log"]) + " -o " + Quoted(page));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr(page));
  const String html = folder_.Get("page.html");
  EXPECT_THAT(html, AllOf(StartsWith("<!DOCTYPE html"), HasSubstr("The Full Payment Submission was saved")));
  const Outcome facts = Run("report --json " + Quoted(told["log"]));
  EXPECT_EQ(json::parse(facts.out)["irmark"], told["irmark"]);
  struct stat status {};
  ASSERT_EQ(stat(page.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(LogCliTest, ReportWritesToStandardOutput) {
  PutLog("2017_04_05", "Quay", "Submission result: Successful");
  const String name = Name("2017_04_05");
  EXPECT_THAT(Run("report " + name).out, StartsWith("<!DOCTYPE html"));
  EXPECT_THAT(Run("report --format text Log_2017_04_05_101112").out,
              StartsWith("HMRC has accepted the Full Payment Submission\n"));
  const json facts = json::parse(Run("report --format json " + name).out);
  EXPECT_EQ(facts["outcome"], "accepted");
  EXPECT_EQ(facts["company"], "Quay");
  EXPECT_EQ(facts["correlation_id"], nullptr);
  EXPECT_THAT(facts["steps"], SizeIs(1));
}

TEST_F(LogCliTest, ReportReadsStandardInput) {
  const String log = PutLog("2017_04_05", "Quay", "Submission result: Pending");
  EXPECT_EQ(json::parse(Run("report --json - <" + Quoted(log)).out)["outcome"], "pending");
}

TEST_F(LogCliTest, ReportTellsWhereThePageIsAsJson) {
  PutLog("2017_04_05", "Quay", "x");
  const Outcome run =
      Run("report --json --format html -o " + Quoted(folder_.At("p.html")) + " " + Name("2017_04_05"));
  EXPECT_EQ(json::parse(run.out), json({{"report", folder_.At("p.html")}, {"format", "html"}}));
  EXPECT_THAT(folder_.Get("p.html"), HasSubstr("<h1>"));
}

TEST_F(LogCliTest, ReportKeepsStandardOutputForJson) {
  PutLog("2017_04_05", "Quay", "x");
  EXPECT_EQ(Run("report --json --format html " + Name("2017_04_05")).status, 2);
}

TEST_F(LogCliTest, ReportRefusesWhatIsNoLog) {
  const Outcome other = Run("report " + Quoted(SamplePath()));
  EXPECT_EQ(other.status, 3);
  EXPECT_THAT(other.err, HasSubstr("not <Log>"));
  EXPECT_EQ(Run("report " + Input("<Log")).status, 3);
  EXPECT_EQ(Run("report " + Quoted(folder_.At("absent.xml"))).status, 3);
  EXPECT_EQ(Run("report --format pdf " + Input("<Log/>")).status, 2);
}

TEST_F(LogCliTest, ReportOfASendHidesItsPassword) {
  const String password = folder_.Put("password", "Sesame8word");
  const Outcome sent = Run("send --json --mode Test --user ISV635 --password-file " + Quoted(password) + " " +
                           Quoted(SamplePath()));
  ASSERT_EQ(sent.status, 0) << sent.err;
  const String log = LogPaths().front();
  EXPECT_THAT(ReadFile(log), HasSubstr("Sesame8word")) << "or there is nothing to hide";
  for (const char* format : {"html", "text", "json"}) {
    const String report = Run(String("report --format ") + format + " " + Quoted(log)).out;
    EXPECT_THAT(report,
                AllOf(HasSubstr("has accepted the Full Payment Submission"), Not(HasSubstr("Sesame8word"))));
  }
  const json facts = json::parse(Run("log show --json").out);
  EXPECT_EQ(facts["receipt_mark"], "same");
  EXPECT_EQ(facts["test"], true);
  EXPECT_THAT(facts["correlation_id"].get<String>(), SizeIs(32));
}

// ---- log list

TEST_F(LogCliTest, ListTellsOfEachLogNewestFirst) {
  PutLog("2017_04_05", "Quay", "Submission result: Successful");
  PutLog("2018_01_01", "Pier", "Submission result: Connection Failed");
  folder_.Put(kLogs + Name("2016_01_01"), "<Log");
  folder_.Put(String(kLogs) + "Logo.xml", "<Log/>");
  folder_.Put(String(kLogs) + "Log_notes.txt", "");
  const Outcome run = Run("log list --json");
  ASSERT_EQ(run.status, 0) << run.err;
  const json logs = json::parse(run.out)["logs"];
  ASSERT_THAT(logs, SizeIs(3));
  EXPECT_EQ(logs[0]["file"], Name("2018_01_01"));
  EXPECT_EQ(logs[0]["begun"], "2018-01-01T10:11:12");
  EXPECT_EQ(logs[0]["company"], "Pier");
  EXPECT_EQ(logs[0]["result"], "connection");
  EXPECT_EQ(logs[0]["path"], folder_.At(kLogs + Name("2018_01_01")));
  EXPECT_EQ(logs[1]["result"], "accepted");
  EXPECT_EQ(logs[1]["mode"], "Live");
  EXPECT_EQ(logs[1]["type"], "Full Payment Submission");
  EXPECT_EQ(logs[2]["result"], "unreadable");
  const String text = Run("log list").out;
  EXPECT_THAT(text, HasSubstr("2018-01-01 10:11:12  connection"));
  EXPECT_LT(text.find("Pier"), text.find("Quay"));
}

TEST_F(LogCliTest, ListTellsThatThereAreNone) {
  const Outcome run = Run("log list");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, StartsWith("There are no logs in "));
  EXPECT_THAT(json::parse(Run("log list --json").out)["logs"], IsEmpty());
}

TEST_F(LogCliTest, ListLooksWhereTheSettingsSay) {
  folder_.Put("home/rti.config", "<Config><Settings><LogPath>" + folder_.At("elsewhere") +
                                     "</LogPath><LogPrefix>rti</LogPrefix></Settings></Config>");
  folder_.Put("elsewhere/rti_2017_04_05_101112.xml", "<Log/>");
  folder_.Put("elsewhere/" + Name("2017_04_05"), "<Log/>");
  const json logs = json::parse(Run("log list --json").out)["logs"];
  ASSERT_THAT(logs, SizeIs(1));
  EXPECT_EQ(logs[0]["file"], "rti_2017_04_05_101112.xml");
}

TEST_F(LogCliTest, ListLeavesTheSettingsAlone) {
  Run("log list");
  EXPECT_THAT(Settings(), Not(HasSubstr("LogP")));
}

// ---- log show, log open

TEST_F(LogCliTest, ShowTakesTheNewestWhereNoneIsNamed) {
  PutLog("2017_04_05", "Quay", "x");
  PutLog("2018_01_01", "Pier", "Submission result: Pending");
  EXPECT_EQ(json::parse(Run("log show --json").out)["company"], "Pier");
  EXPECT_EQ(json::parse(Run("log show --json " + Name("2017_04_05")).out)["company"], "Quay");
  EXPECT_THAT(Run("log show").out, HasSubstr("has not answered yet"));
}

TEST_F(LogCliTest, ShowNeedsALog) {
  const Outcome run = Run("log show");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("There are no logs"));
}

TEST_F(LogCliTest, OpenShowsThePage) {
  PutLog("2018_01_01", "Pier", "x");
  const Outcome run = RunWithViewer("log open --json");
  ASSERT_EQ(run.status, 0) << run.err;
  const String page = json::parse(run.out)["page"];
  EXPECT_EQ(Opened(), page);
  EXPECT_THAT(folder_.Get("home/xml/report.html"), HasSubstr("Pier"));
  EXPECT_THAT(ReadFile(page), HasSubstr("Pier"));
}

TEST_F(LogCliTest, OpenTellsWhereThePageIsWithoutABrowser) {
  PutLog("2018_01_01", "Pier", "x");
  const Outcome run = Run("log open", "PATH=/nowhere");
  EXPECT_EQ(run.status, 15);
  EXPECT_THAT(run.err, HasSubstr(folder_.At("home/xml/report.html")));
}

// ---- log prune

TEST_F(LogCliTest, PruneDeletesWhatIsOlder) {
  const String old = PutLogOfAge(40);
  const String young = PutLogOfAge(20);
  const String other = folder_.Put(String(kLogs) + "Log_notes_2001.xml", "<Log/>");
  const Outcome run = Run("log prune --older-than 30 --json");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(json::parse(run.out), json({{"deleted", {old}}, {"kept", {young}}, {"dry_run", false}}));
  EXPECT_FALSE(Exists(old));
  EXPECT_TRUE(Exists(young));
  EXPECT_TRUE(Exists(other));
}

TEST_F(LogCliTest, PruneTellsWithoutDeleting) {
  const String old = PutLogOfAge(40);
  const Outcome run = Run("log prune --older-than 30 --dry-run");
  EXPECT_THAT(run.out, HasSubstr("Would delete  " + old));
  EXPECT_TRUE(Exists(old));
}

TEST_F(LogCliTest, PruneDeletesAnOldPageToo) {
  const String page = folder_.Put("home/xml/report.html", "x");
  Run("log prune --older-than 30");
  EXPECT_TRUE(Exists(page));
  std::filesystem::last_write_time(
      page, std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * 40));
  Run("log prune --older-than 30");
  EXPECT_FALSE(Exists(page));
}

TEST_F(LogCliTest, PruneNeedsANumberOfDays) {
  PutLogOfAge(40);
  for (const char* arguments :
       {"log prune", "log prune --older-than -1", "log prune --older-than soon", "log"}) {
    EXPECT_EQ(Run(arguments).status, 2) << arguments;
  }
}

TEST_F(LogCliTest, AFreshHomeHasTheStyleSheet) {
  Run("log list");
  EXPECT_EQ(folder_.Get("home/log.xsl"), ReadFile(ZELNOR_SOURCE_DIR "/log.xsl"));
}

}  // namespace
}  // namespace zelnor::test
