// What the program says when a place can't be written, a word is none of its commands, or a document isn't
// there.

#include "zelnor/platform/files.h"

#include "cli/cli_fixture.h"

namespace zelnor::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class TroubleCliTest : public CliTest {
 protected:
  // Runs the program with that for its standard output.
  Outcome RunInto(const String& out, const String& arguments) const {
    const String command = "'" ZELNOR_PROGRAM "' --home '" + folder_.At("home") + "' " + arguments + " >" +
                           out + " 2>'" + folder_.At("err.txt") + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, {}, folder_.Get("err.txt")};
  }

  String SavedLog() const {
    return json::parse(
        Run("save --json " + Quoted(SamplePath()) + " " + Quoted(folder_.At("out.xml"))).out)["log"];
  }
};

// ---- output that can't be written

TEST_F(TroubleCliTest, AFullStandardOutputIsAnErrorOfEveryCommand) {
  const String log = Quoted(SavedLog());
  const String sample = Quoted(SamplePath());
  for (const String& arguments :
       {"show " + sample, "irmark " + sample, String("new fps"), "report " + log, "log show " + log,
        String("log list"), "validate --format junit " + sample, "validate --format csv " + sample,
        "save --json " + sample + " " + Quoted(folder_.At("out.xml")),
        "send --json --no-validation " + sample, String("log prune --older-than 9 --dry-run"),
        String("gateway"), String("--help"), String("--version"), String("show --json nothing.xml")}) {
    const Outcome run = RunInto("/dev/full", arguments);
    EXPECT_EQ(run.status, arguments.ends_with("nothing.xml") ? 3 : 15) << arguments;
    EXPECT_THAT(run.err, AllOf(HasSubstr("cannot write standard output"), HasSubstr("No space left")))
        << arguments;
  }
}

TEST_F(TroubleCliTest, WhatCameOfASendIsToldThoughStandardOutputIsFull) {
  const Outcome run = RunInto("/dev/full", "send --no-validation " + Quoted(SamplePath()));
  EXPECT_THAT(run.err, AllOf(HasSubstr("Result          Successful"), HasSubstr("Correlation ID")));
  const String json = RunInto("/dev/full", "--json send --no-validation " + Quoted(SamplePath())).err;
  EXPECT_THAT(json, AllOf(HasSubstr("\"result\": \"Successful\""), HasSubstr("\"correlation_id\": ")));
  EXPECT_EQ(json.find("This should stand there"), json.rfind("This should stand there"));
  EXPECT_THAT(RunInto("/dev/full", "new fps").err, Not(HasSubstr("GovTalkMessage"))) << "too long";
}

TEST_F(TroubleCliTest, AClosedStandardOutputIsAnError) {
  const Outcome run = RunInto("&-", "show " + Quoted(SamplePath()));
  EXPECT_EQ(run.status, 15);
  EXPECT_THAT(run.err, HasSubstr("cannot write standard output"));
}

// ---- files that can't be written

TEST_F(TroubleCliTest, AFileThatCannotBeWrittenIsNamedWithTheRemedy) {
  const String log = Quoted(SavedLog());
  Outcome run = Run("new fps -o '" + folder_.At("none/a.xml") + "'");
  EXPECT_EQ(run.status, 15);
  EXPECT_THAT(run.err, HasSubstr("cannot write " + folder_.At("none/a.xml") +
                                 ": Path not found. Make the folder " + folder_.At("none") + " first"));
  run = Run("--json report " + log + " -o '" + folder_.At("none/a.html") + "'");
  EXPECT_EQ(run.status, 15);
  EXPECT_THAT(json::parse(run.out)["error"].get<String>(),
              HasSubstr("cannot write " + folder_.At("none/a.html")));
  run = Run("report " + log + " -o '" + folder_.At("home") + "'");
  EXPECT_THAT(run.err, HasSubstr("cannot write " + folder_.At("home") + ": it is a folder."));
}

TEST_F(TroubleCliTest, AHomeThatCannotBeOneIsNamedWithTheRemedy) {
  const String file = folder_.Put("file", "x");
  for (const String& home : {file, String("/proc/none")}) {
    const String command =
        "'" ZELNOR_PROGRAM "' log list --home '" + home + "' >/dev/null 2>'" + folder_.At("err.txt") + "'";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, 15);
    EXPECT_THAT(folder_.Get("err.txt"),
                AllOf(HasSubstr("cannot use the program's folder " + home), HasSubstr("by --home")));
  }
}

TEST_F(TroubleCliTest, ASaveThatCannotBeWrittenTellsWhyAndWhereInJsonToo) {
  const Outcome run = Run("--json save " + Quoted(SamplePath()) + " /proc/none/x.xml");
  EXPECT_EQ(run.status, 15);
  EXPECT_THAT(json::parse(run.out)["error"].get<String>(), HasSubstr("/proc/none/x.xml"));
  EXPECT_THAT(run.err, HasSubstr("zelnor: cannot write /proc/none/x.xml: "));
}

TEST_F(TroubleCliTest, ALogThatWasNotWrittenIsNotNamed) {
  ASSERT_EQ(Run("log list").status, 0);
  std::filesystem::create_directories(folder_.At("home/xml"));
  folder_.Put("home/xml/logs", "a file where the folder should be");
  const Outcome validated = Run("validate --json --stages envelope " + Quoted(SamplePath()));
  EXPECT_TRUE(json::parse(validated.out)["log"].is_null()) << validated.out;
  EXPECT_THAT(Run("validate --stages envelope " + Quoted(SamplePath())).out,
              HasSubstr("Log  none: it could not be written"));
  const String arguments = Quoted(SamplePath()) + " " + Quoted(folder_.At("out.xml"));
  EXPECT_TRUE(json::parse(Run("save --json --no-validation " + arguments).out)["log"].is_null());
  EXPECT_THAT(Run("save --no-validation " + arguments).out,
              HasSubstr("Log      none: it could not be written"));
  EXPECT_TRUE(json::parse(Run("send --json --no-validation " + Quoted(SamplePath())).out)["log"].is_null());
}

// ---- words that are no commands, and the help

TEST_F(TroubleCliTest, AWordThatIsNoCommandIsNamed) {
  Outcome run = Run("bogus");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("\"bogus\" is no command of zelnor."));
  run = Run("--json log bogus");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(json::parse(run.out)["error"].get<String>(),
              HasSubstr("\"bogus\" is no command of zelnor log."));
  EXPECT_THAT(Run("").err, HasSubstr("A subcommand is required"));
}

TEST_F(TroubleCliTest, TheHelpOfACommandTellsOfTheOptionsOfAll) {
  for (const char* command : {"show", "send", "log", "log prune", "support"})
    EXPECT_THAT(Run(String(command) + " --help").out, AllOf(HasSubstr("--home DIR"), HasSubstr("--json")))
        << command;
  EXPECT_THAT(Run("gateway --help").out, HasSubstr("local-gateway.md"));
  EXPECT_THAT(Run("support --help").out,
              AllOf(HasSubstr("people's data"), HasSubstr("password for HMRC's gateway")));
}

// ---- documents that aren't there

TEST_F(TroubleCliTest, TheAdviceFitsADocumentThatIsNotThere) {
  Outcome run = Run("show " + Quoted(folder_.At("none.xml")));
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, AllOf(HasSubstr("There is no such file"), Not(HasSubstr("well-formed"))));
  run = Run("show " + Quoted(folder_.At("home")));
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("It is a folder"));
  run = Run("show " + Input("<GovTalkMessage>"));
  EXPECT_THAT(run.err, HasSubstr("well-formed XML"));
}

TEST_F(TroubleCliTest, TheAdviceFitsADocumentThatIsTooLarge) {
  // Blanks, of which a document may hold as many as it likes.
  const String path = folder_.Put("large.xml", "<GovTalkMessage>" + String(257 * 1024 * 1024, ' '));
  const Outcome run = Run("show " + Quoted(path));
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, AllOf(HasSubstr("larger than 256 MB"), HasSubstr("several documents")));
}

TEST_F(TroubleCliTest, AMessageWithoutADocumentIsToldToBeOne) {
  for (const char* body : {"", "<Body/>", "<Body> <!-- nothing --> </Body>"}) {
    const Outcome run = Run(
        "show " +
        Input("<GovTalkMessage xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"><EnvelopeVersion>2.0"
              "</EnvelopeVersion><Header><MessageDetails><Class>HMRC-PAYE-RTI-FPS</Class></MessageDetails>"
              "</Header>" +
              String(body) + "</GovTalkMessage>"));
    EXPECT_EQ(run.status, 0) << body;
    EXPECT_THAT(run.err, HasSubstr("The message holds no document: its Body is missing or empty."));
  }
}

}  // namespace
}  // namespace zelnor::test
