// `zelnor validate` as a user runs it.

#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"
#include "zelnor/platform/xml.h"

#include "cli/cli_fixture.h"

namespace zelnor::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

class ValidateCliTest : public CliTest {
 protected:
  // The sample with one text in place of another.
  String Changed(const String& from, const String& to) const {
    const String text = folder_.Get(SamplePath());
    EXPECT_NE(text.find(from), String::npos);
    return Input(Replace(text, from, to));
  }
  String BadReference() const { return Changed("<AORef>961PY00427198</AORef>", "<AORef>=1+1</AORef>"); }
  static constexpr const char* kToday = " --today 2025-10-01 ";
};

TEST_F(ValidateCliTest, AValidDocumentExitsWith0) {
  const Outcome run = Run(String("validate") + kToday + Quoted(SamplePath()));
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, StartsWith("Valid: FPS, 0 errors"));
}

TEST_F(ValidateCliTest, AnErrorIsShownUnderItsFieldAndExitsWith11) {
  const Outcome run = Run(String("validate") + kToday + BadReference());
  EXPECT_EQ(run.status, 11);
  EXPECT_THAT(run.out, HasSubstr("Company\n  AORef: \"=1+1\"\n    E3.3."));
  EXPECT_THAT(run.out, HasSubstr("Not valid: FPS, "));
}

TEST_F(ValidateCliTest, JsonTellsStagesCountsAndErrors) {
  const Outcome run = Run(String("--json validate") + kToday + BadReference());
  EXPECT_EQ(run.status, 11);
  const json told = json::parse(run.out);
  EXPECT_EQ(told["valid"], false);
  EXPECT_EQ(told["type"], "FPS");
  std::vector<String> names;
  for (const json& stage : told["stages"]) names.push_back(stage["name"]);
  EXPECT_THAT(names, testing::ElementsAre("envelope", "company", "employees", "payment", "schema"));
  EXPECT_EQ(told["stages"][1]["ran"], true);
  EXPECT_EQ(told["stages"][1]["passed"], false);
  EXPECT_EQ(told["stages"][3]["ran"], false);  // an FPS has no payment stage
  EXPECT_EQ(told["stages"][4]["ran"], false);  // what has failed isn't held against the schema
  EXPECT_EQ(told["employees"]["checked"], 11);
  const json& error = told["errors"][0];
  EXPECT_EQ(error["family"], "Company");
  EXPECT_THAT(error["code"].get<String>(), StartsWith("E3.3."));
  EXPECT_EQ(error["field"], "AORef");
  EXPECT_EQ(error["value"], "=1+1");
  EXPECT_EQ(error["severity"], "Critical");
  EXPECT_TRUE(error["employee"].is_null());
  EXPECT_TRUE(error["inner"].is_array());
}

TEST_F(ValidateCliTest, StagesCanBeChosenAndDontOutliveTheRun) {
  const json told =
      json::parse(Run(String("--json validate --stages schema,employees") + kToday + BadReference()).out);
  EXPECT_EQ(told["stages"][0]["ran"], false);
  EXPECT_EQ(told["stages"][1]["ran"], false);
  EXPECT_EQ(told["stages"][2]["ran"], true);
  EXPECT_EQ(told["stages"][4]["ran"], true);
  const json again = json::parse(Run(String("--json validate") + kToday + Quoted(SamplePath())).out);
  EXPECT_EQ(again["stages"][0]["ran"], true);
  EXPECT_EQ(again["stages"][1]["ran"], true);
}

TEST_F(ValidateCliTest, TheSchemaIsCheckedWithoutTheEnvelopeStage) {
  const String bad = Changed("<Ttl>Miss</Ttl>", "<Ttl>Miss</Ttl><Unheard>x</Unheard>");
  const Outcome run = Run(String("validate --stages schema") + kToday + bad);
  EXPECT_EQ(run.status, 0) << run.out;  // the writer leaves out what it doesn't know
  const Outcome wrong = Run(String("validate --stages schema") + kToday + BadReference());
  EXPECT_EQ(wrong.status, 11);
  EXPECT_THAT(wrong.out, HasSubstr("FileSchema"));
}

TEST_F(ValidateCliTest, CsvIsSafeForASpreadsheet) {
  const Outcome run = Run(String("validate --format csv") + kToday + BadReference());
  EXPECT_EQ(run.status, 11);
  EXPECT_THAT(
      run.out,
      StartsWith("family,employee,field,code,title,description,value,severity,source\r\n\"Company\","));
  EXPECT_THAT(run.out, HasSubstr("\"'=1+1\""));
}

TEST_F(ValidateCliTest, JunitIsXmlWithASuiteForEachStage) {
  const Outcome run = Run(String("validate --format junit") + kToday + BadReference());
  const XmlDocument report;
  ASSERT_TRUE(report.LoadXML(run.out));
  EXPECT_EQ(report.SelectNodes("/testsuites/testsuite").size(), 3U);
  EXPECT_GE(report.SelectNodes("/testsuites/testsuite[@name='company']/testcase/failure").size(), 1U);
}

TEST_F(ValidateCliTest, WrongOptionsAreWrongUsage) {
  EXPECT_EQ(Run("validate --stages all " + Quoted(SamplePath())).status, 2);
  EXPECT_EQ(Run("validate --format pdf " + Quoted(SamplePath())).status, 2);
  EXPECT_EQ(Run("validate --max-errors -1 " + Quoted(SamplePath())).status, 2);
  EXPECT_EQ(Run("validate --today never " + Quoted(SamplePath())).status, 2);
  EXPECT_EQ(Run("validate " + Input("<a/>")).status, 3);
}

TEST_F(ValidateCliTest, MaxErrorsBoundsTheReport) {
  const json all = json::parse(Run(String("--json validate") + kToday + BadReference()).out);
  const json one = json::parse(Run(String("--json validate --max-errors 1") + kToday + BadReference()).out);
  EXPECT_EQ(one["errors"].size(), 1U);
  EXPECT_GE(all["errors"].size(), 1U);
}

TEST_F(ValidateCliTest, ATerminalSeesABarThatGrowsWithTheEmployees) {
  const String command = "\"" ZELNOR_PROGRAM "\" --home \"" + folder_.At("home") + "\" validate" + kToday +
                         "\"" + SamplePath() + "\"";
  // `script` gives the program a terminal.
  const String shown = folder_.At("shown.txt");
  ASSERT_EQ(std::system(("script -qec '" + command + "' /dev/null >'" + shown + "' 2>&1 </dev/null").c_str()),
            0);
  const String terminal = folder_.Get("shown.txt");
  EXPECT_THAT(terminal, HasSubstr("Employees [##....."));
  EXPECT_THAT(terminal, HasSubstr("] 100%, 11 checked, 0 with errors"));
  EXPECT_THAT(terminal, HasSubstr("Valid: FPS, 0 errors, 11 of 11 employees without any"));
}

TEST_F(ValidateCliTest, ACheckThatBreaksOffHasItsRecordInAllFormats) {
  Run(String("validate") + kToday + Quoted(SamplePath()));
  folder_.Put("home/xsd/FullPaymentSubmission-2026-v1-0.xsd", "no schema");
  const Outcome run = Run(String("--json validate") + kToday + Quoted(SamplePath()));
  EXPECT_EQ(run.status, 11);
  const json told = json::parse(run.out);
  EXPECT_EQ(told["valid"], false);
  EXPECT_EQ(told["stages"][3]["ran"], false);
  EXPECT_EQ(told["stages"][4]["passed"], false);
  EXPECT_EQ(told["stages"][2]["passed"], true);
  ASSERT_EQ(told["errors"].size(), 1U);
  EXPECT_EQ(told["errors"][0]["family"], "FileSchema");
  EXPECT_EQ(told["errors"][0]["title"], "The check broke off");
  EXPECT_THAT(told["errors"][0]["description"].get<String>(), HasSubstr("Start tag expected"));
  const Outcome junit = Run(String("validate --format junit") + kToday + Quoted(SamplePath()));
  EXPECT_THAT(junit.out, HasSubstr("<testsuite name=\"schema\" tests=\"1\" failures=\"1\""));
  const Outcome schema = Run(String("--json validate --stages schema") + kToday + Quoted(SamplePath()));
  EXPECT_EQ(schema.status, 11);
  EXPECT_EQ(json::parse(schema.out)["errors"].size(), 1U);
}

// A run that is interrupted while it checks many employees.
class InterruptedCheck : public ValidateCliTest {
 protected:
  json Told(const String& command) const {
    String text = ReadFile(SamplePath());
    const std::size_t from = text.find("<Employee>");
    const std::size_t to = text.find("</Employee>", from) + 11;
    const String employee = text.substr(from, to - from);
    String employees;
    for (int i = 0; i < 20000; ++i) employees += employee;
    const String file = folder_.Put("many.xml", text.insert(from, employees));
    // The log is first saved as the check begins.
    const String script = "'" ZELNOR_PROGRAM "' --home '" + folder_.At("home") + "' --json " + command +
                          " --plain " + kToday + "'" + file + "' >'" + folder_.At("out.txt") +
                          "' & until ls '" + folder_.At("home/xml/logs") +
                          "'/*.xml >'/dev/null' 2>&1; do sleep 0.01; done; kill -INT $!; wait $!; exit $?";
    const int status = std::system(script.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 14);
    return json::parse(folder_.Get("out.txt"));
  }
};

TEST_F(InterruptedCheck, CallsNothingValid) {
  const json told = Told("validate");
  EXPECT_EQ(told["valid"], false);
  EXPECT_EQ(told["cancelled"], true);
  ASSERT_EQ(told["errors"].size(), 1U);
  EXPECT_EQ(told["errors"][0]["title"], "Cancelled");
}

TEST_F(InterruptedCheck, SendsNothing) {
  const json told = Told("send");
  EXPECT_EQ(told["result"], "CancelledSend");
  EXPECT_EQ(told["correlation_id"], "");
}

}  // namespace
}  // namespace zelnor::test
