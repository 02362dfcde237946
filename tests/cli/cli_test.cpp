// The program as a user runs it: its standard output and error, its exit status, and what it leaves on the
// disk.

#include "zelnor/envelope/clsDZEncoder.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/xml.h"

#include <algorithm>
#include <chrono>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cli_fixture.h"

namespace zelnor::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;

TEST_F(CliTest, ShowTellsWhatADocumentIs) {
  const Outcome run = Run("show --json " + Quoted(SamplePath()));
  ASSERT_EQ(run.status, 0) << run.err;
  const json shown = json::parse(run.out);
  EXPECT_EQ(shown["type"], "FPS");
  EXPECT_EQ(shown["class"], "HMRC-PAYE-RTI-FPS");
  EXPECT_EQ(shown["tax_year"], "25-26");
  EXPECT_EQ(shown["irmark"], "");
  const XmlDocument sample;
  ASSERT_TRUE(sample.Load(SamplePath()));
  const auto text = [&](const String& name) { return sample.GetElementsByTagName(name).front().Text(); };
  EXPECT_EQ(shown["employer"]["office"], text("OfficeNo"));
  EXPECT_EQ(shown["employer"]["paye_ref"], text("PayeRef"));
  EXPECT_EQ(shown["employer"]["ao_ref"], text("AORef"));
  EXPECT_EQ(shown["employees"], sample.GetElementsByTagName("Employee").size());
  double tax = 0;
  for (const XmlNode& each : sample.GetElementsByTagName("TaxDeductedOrRefunded"))
    tax += std::stod(each.Text());
  EXPECT_NEAR(std::stod(shown["totals"]["tax"].get<String>()), tax, 0.001);
  EXPECT_EQ(run.err, "");
}

TEST_F(CliTest, ShowSpeaksToPeopleToo) {
  const Outcome run = Run("show " + Quoted(SamplePath()));
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("Full Payment Submission (FPS)"));
  EXPECT_THAT(run.out, HasSubstr("Tax year"));
}

TEST_F(CliTest, SaveMarksAndSaves) {
  const String out = folder_.At("out put/\xC3\xA9tude.xml");
  const Outcome run = Run("save --json " + Quoted(SamplePath()) + " " + Quoted(out));
  ASSERT_EQ(run.status, 0) << run.err;
  const json saved = json::parse(run.out);
  EXPECT_EQ(saved["result"], "Successful");
  EXPECT_EQ(saved["path"], out);
  EXPECT_EQ(saved["irmark"]["base64"].get<String>().size(), 28U);
  EXPECT_EQ(saved["irmark"]["base32"].get<String>().size(), 32U);
  struct stat status {};
  ASSERT_EQ(stat(out.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  XmlDocument log;
  EXPECT_TRUE(log.Load(saved["log"].get<String>()));
  const Outcome mark = Run("irmark --json " + Quoted(out));
  EXPECT_EQ(json::parse(mark.out), saved["irmark"]);
  const Outcome shown = Run("show --json " + Quoted(out));
  EXPECT_EQ(json::parse(shown.out)["irmark"], saved["irmark"]["base64"]);
}

TEST_F(CliTest, SaveIntoAFolderNamesTheFile) {
  const Outcome run = Run("save --json " + Quoted(SamplePath()) + " " + Quoted(folder_.At("out") + "/"));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(json::parse(run.out)["path"].get<String>(),
              testing::ContainsRegex("/out/HMRC-PAYE-RTI-FPS[0-9]{8} [0-9]{6}\\.xml$"));
}

TEST_F(CliTest, SaveRefusesAFolderWithoutASeparator) {
  const Outcome run = Run("save " + Quoted(SamplePath()) + " " + Quoted(folder_.Path()));
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("is a folder"));
}

TEST_F(CliTest, SavingDropsAnOldMarkAndMakesItAnew) {
  const String one = folder_.At("one.xml");
  Run("save " + Quoted(SamplePath()) + " " + Quoted(one));
  String text = folder_.Get("one.xml");
  const std::size_t at = text.find("<IRmark Type=\"generic\">") + 23;
  text.replace(at, 4, "XXXX");
  const Outcome run = Run("save --json " + Input(text) + " " + Quoted(folder_.At("two.xml")));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(folder_.Get("two.xml"), folder_.Get("one.xml"));
}

TEST_F(CliTest, SavesCompressedAndPlainAgain) {
  const String packed = folder_.At("packed.xml");
  const Outcome run = Run("save --json --compress " + Quoted(SamplePath()) + " " + Quoted(packed));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  const XmlDocument document;
  ASSERT_TRUE(document.Load(packed));
  EXPECT_EQ(document.GetElementsByTagName("CompressedPart").size(), 1U);
  EXPECT_TRUE(document.GetElementsByTagName("Employee").empty());
  const Outcome mark = Run("irmark --json " + Quoted(packed));
  EXPECT_EQ(json::parse(mark.out), json::parse(run.out)["irmark"]);
  Run("save --plain " + Quoted(packed) + " " + Quoted(folder_.At("plain.xml")));
  Run("save " + Quoted(SamplePath()) + " " + Quoted(folder_.At("never packed.xml")));
  EXPECT_EQ(folder_.Get("plain.xml"), folder_.Get("never packed.xml"));
}

TEST_F(CliTest, SavesInTheFormThatItReadUnlessTold) {
  const String packed = folder_.At("packed.xml");
  Run("save --compress " + Quoted(SamplePath()) + " " + Quoted(packed));
  Run("save " + Quoted(packed) + " " + Quoted(folder_.At("again.xml")));
  EXPECT_THAT(folder_.Get("again.xml"), HasSubstr("<CompressedPart Type=\"zip\">"));
  Run("save " + Quoted(SamplePath()) + " " + Quoted(folder_.At("plain.xml")));
  EXPECT_THAT(folder_.Get("plain.xml"), HasSubstr("<Employee>"));
}

TEST_F(CliTest, CompressingLeavesDocumentsWithoutEmployeesAlone) {
  const String file = Input(
      "<GovTalkMessage xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"><Body><IRenvelope><IRheader/>"
      "<EmployerPaymentSummary><RelatedTaxYear>25-26</RelatedTaxYear></EmployerPaymentSummary></IRenvelope></"
      "Body>"
      "</GovTalkMessage>");
  const Outcome run = Run("save --no-validation --compress " + file + " " + Quoted(folder_.At("eps.xml")));
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(folder_.Get("eps.xml"), HasSubstr("<RelatedTaxYear>25-26</RelatedTaxYear>"));
}

TEST_F(CliTest, ShowsACompressedDocumentAsItsPlainOne) {
  const String packed = folder_.At("packed.xml");
  Run("save --compress " + Quoted(SamplePath()) + " " + Quoted(packed));
  json shown = json::parse(Run("show --json " + Quoted(packed)).out);
  json plain = json::parse(Run("show --json " + Quoted(SamplePath())).out);
  EXPECT_GT(plain["employees"], 0);
  shown.erase("irmark");
  plain.erase("irmark");
  EXPECT_EQ(shown, plain);
}

TEST_F(CliTest, RefusesCompressedEmployeesThatCanNotBeRead) {
  const String packed = folder_.At("packed.xml");
  Run("save --compress " + Quoted(SamplePath()) + " " + Quoted(packed));
  String text = folder_.Get("packed.xml");
  const std::size_t at = text.find("<CompressedPart Type=\"zip\">") + 27;
  ASSERT_LT(at, text.size());
  text.replace(at + 100, 8, "AAAAAAAA");
  const String file = Input(text);
  for (const String& command :
       {"show " + file, "save --plain " + file + " " + Quoted(folder_.At("out.xml"))}) {
    const Outcome run = Run(command);
    EXPECT_EQ(run.status, 3) << command;
    EXPECT_THAT(run.err, HasSubstr("the compressed employees can't be read (Error occurred UnZipping Data)"));
    EXPECT_EQ(run.out, "");
  }
  EXPECT_EQ(folder_.Get("out.xml"), "");
}

TEST_F(CliTest, SettingsAreAsTheyWereAfterwards) {
  Run("save " + Quoted(SamplePath()) + " " + Quoted(folder_.At("one.xml")));
  const String before = Settings();
  EXPECT_THAT(before, HasSubstr("<ValidationRequired>True</ValidationRequired>"));
  Run("save --no-validation " + Quoted(SamplePath()) + " " + Quoted(folder_.At("two.xml")));
  EXPECT_EQ(Settings(), before);
  Run("save --no-validation /nowhere/at-all.xml " + Quoted(folder_.At("three.xml")));
  EXPECT_EQ(Settings(), before);
}

TEST_F(CliTest, ReadsStandardInput) {
  const Outcome run = Run("show --json - < " + Quoted(SamplePath()));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(json::parse(run.out)["type"], "FPS");
  const Outcome piped = Run("show --json -", "cat " + Quoted(SamplePath()) + " |");
  EXPECT_EQ(piped.out, run.out);
}

TEST_F(CliTest, TakesRelativePaths) {
  const Outcome run =
      Run("save in.xml out/here.xml", "cp " + Quoted(SamplePath()) + " " + Quoted(folder_.At("in.xml")) +
                                          " && cd " + Quoted(folder_.Path()) + " &&");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(folder_.Get("out/here.xml"), "");
}

TEST_F(CliTest, WrongUsageIsTwo) {
  EXPECT_EQ(Run("").status, 2);
  EXPECT_EQ(Run("nonsense").status, 2);
  EXPECT_EQ(Run("show").status, 2);
  EXPECT_EQ(Run("save --today yesterday a b").status, 2);
  EXPECT_EQ(Run("save --compress --plain a b").status, 2);
  const Outcome run = Run("--json show");
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(json::parse(run.out).contains("error"));
}

TEST_F(CliTest, HelpNamesEveryCommand) {
  const Outcome run = Run("--help");
  EXPECT_EQ(run.status, 0);
  for (const char* word : {"show", "irmark", "save", "--home", "--json", "Exit status"}) {
    EXPECT_THAT(run.out, HasSubstr(word));
  }
}

struct BadInput {
  const char* name;
  String text;
  const char* told;
};

class UnreadableInput : public CliTest, public testing::WithParamInterface<BadInput> {};

TEST_P(UnreadableInput, IsThreeAndSaysWhereAndWhat) {
  const String file = Input(GetParam().text);
  for (const char* command : {"show ", "irmark ", "save "}) {
    const Outcome run = Run(command + file +
                            (String(command) == "save " ? " " + Quoted(folder_.At("result.xml")) : String()));
    EXPECT_EQ(run.status, 3) << command;
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr(folder_.At("in.xml"))) << command;
    EXPECT_THAT(run.err, HasSubstr(GetParam().told)) << command;
    EXPECT_LT(run.err.size(), 2000U);
  }
  EXPECT_EQ(folder_.Get("result.xml"), "");
  const Outcome run = Run("show --json " + file);
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(json::parse(run.out)["error"].get<String>(), HasSubstr(GetParam().told));
}

INSTANTIATE_TEST_SUITE_P(
    Cli, UnreadableInput,
    testing::Values(
        BadInput{"notXml", "Dear HMRC, all is well.", "line 1"}, BadInput{"empty", "", "empty"},
        BadInput{"cutShort", "<GovTalkMessage>\n<Body>\n<IRenvelope>", "line 3"},
        BadInput{"anotherRoot", "<Payroll/>", "the root element is <Payroll>"},
        BadInput{"wrongNamespace", "<GovTalkMessage xmlns=\"urn:else\"/>", "of the namespace \"urn:else\""},
        BadInput{"prefixed", "<g:GovTalkMessage xmlns:g=\"http://www.govtalk.gov.uk/CM/envelope\"/>",
                 "without a prefix"},
        BadInput{"invalidUtf8", "<GovTalkMessage>\xC3\x28</GovTalkMessage>", "line 1"},
        BadInput{"tooDeep",
                 [] {
                   String text;
                   for (int i = 0; i < 200000; ++i) text += "<GovTalkMessage>";
                   return text;
                 }(),
                 "deeper than 2048 levels"},
        BadInput{"externalEntity",
                 "<!DOCTYPE GovTalkMessage [<!ENTITY x SYSTEM \"file:///etc/hostname\">]><GovTalkMessage>&x;"
                 "</GovTalkMessage>",
                 "external entity"},
        BadInput{"entityExpansion",
                 [] {
                   String text = "<!DOCTYPE GovTalkMessage [<!ENTITY e0 \"0123456789\">";
                   for (int i = 1; i < 12; ++i) {
                     text += "<!ENTITY e" + std::to_string(i) + " \"";
                     for (int k = 0; k < 10; ++k) text += "&e" + std::to_string(i - 1) + ";";
                     text += "\">";
                   }
                   return text + "]><GovTalkMessage>&e11;</GovTalkMessage>";
                 }(),
                 "ntity"}),
    [](const auto& info) { return String(info.param.name); });

TEST_F(CliTest, AMissingFileAndAFolderAreUnreadable) {
  Outcome run = Run("show " + Quoted(folder_.At("none.xml")));
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("No such file"));
  run = Run("show " + Quoted(folder_.Path()));
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("folder"));
}

TEST_F(CliTest, ThreeHundredMegabytesAreRefused) {
  const String path = folder_.Put("big.xml", "<GovTalkMessage>");
  ASSERT_EQ(truncate(path.c_str(), 300LL * 1024 * 1024), 0);
  const Outcome run = Run("show " + Quoted(path));
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("larger than 256 MB"));
}

TEST_F(CliTest, TwoHundredMegabytesAreRead) {
  String text = "<GovTalkMessage xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"><Header/><!--";
  text.append(200ULL * 1024 * 1024, 'x');
  text += "--><Body><a/></Body></GovTalkMessage>";
  const Outcome run = Run("show --json " + Input(text));
  EXPECT_EQ(run.status, 0) << run.err.substr(0, 500);
  EXPECT_EQ(json::parse(run.out)["type"], "UNK");
}

TEST_F(CliTest, TwoThousandLevelsAreRead) {
  String text = "<GovTalkMessage><Body>";
  for (int i = 0; i < 2040; ++i) text += "<a>";
  for (int i = 0; i < 2040; ++i) text += "</a>";
  const Outcome run = Run("show --json " + Input(text + "</Body></GovTalkMessage>"));
  EXPECT_EQ(run.status, 0) << run.err.substr(0, 500);
}

class BadAmount : public CliTest {
 protected:
  String Document() const {
    String text = ReadFile(SamplePath());
    const std::size_t at = text.find("<TaxablePay>") + 12;
    text.replace(at, text.find('<', at) - at, "lots");
    return Input(text);
  }
  static void ExpectToldOnce(const String& err) {
    EXPECT_THAT(err,
                HasSubstr("in.xml: 1 record can't be read to the end. The first: Error in "
                          "ZELNOR.dll::clsFiguresToDate: Function CreateFromXML: Error 13 - Type mismatch"));
    EXPECT_THAT(err, HasSubstr("'lots' is not a valid value"));
    EXPECT_THAT(err, HasSubstr("/Employee[1]/Employment/FiguresToDate/TaxablePay"));
    EXPECT_EQ(err.find("Type mismatch"), err.rfind("Type mismatch"));
  }
};

TEST_F(BadAmount, IsToldAndTheRestIsShown) {
  const Outcome run = Run("show --json " + Document());
  EXPECT_EQ(run.status, 0);
  ExpectToldOnce(run.err);
  EXPECT_GT(json::parse(run.out)["employees"].get<int>(), 5);
}

TEST_F(BadAmount, IsNeverSentNorCalledValid) {
  for (const String command : {"validate ", "validate --stages company ", "send ", "send --no-validation "}) {
    const Outcome run = Run(command + Document());
    EXPECT_EQ(run.status, 3) << command;
    ExpectToldOnce(run.err);
    EXPECT_EQ(run.out, "");
  }
}

TEST_F(BadAmount, SavedDocumentsWithoutItAreNoSuccess) {
  for (const String option : {"--today 2025-10-07 ", "--no-validation "}) {
    const Outcome run = Run("save --json " + option + Document() + " " + Quoted(folder_.At("out.xml")));
    EXPECT_EQ(run.status, 11);
    ExpectToldOnce(run.err);
    EXPECT_EQ(json::parse(run.out)["result"], "FailedValidation");
    EXPECT_THAT(folder_.Get("out.xml"), HasSubstr("</GovTalkMessage>"));
  }
}

TEST_F(CliTest, CompressedEmployeesThatAreNoneAreRefused) {
  const String packed = folder_.At("packed.xml");
  Run("save --compress " + Quoted(SamplePath()) + " " + Quoted(packed));
  const String text = folder_.Get("packed.xml");
  const std::size_t from = text.find("<CompressedPart Type=\"zip\">") + 27;
  const std::size_t to = text.find("</CompressedPart>");
  ASSERT_LT(from, to);
  const String archive = clsDZEncoder().CompressAndEncodeData("not xml at all");
  for (const String& content : {String(), archive}) {
    const String file = Input(text.substr(0, from) + content + text.substr(to));
    for (const String command : {"show ", "validate ", "send "}) {
      const Outcome run = Run(command + file);
      EXPECT_EQ(run.status, 3) << command;
      EXPECT_THAT(run.err,
                  HasSubstr("in.xml: the compressed employees can't be read (they hold no Employee)"));
    }
  }
}

TEST_F(CliTest, AHomeWithoutSchemasWarnsOnceAndWritesNoNamespace) {
  folder_.Put("home/rti.config", "<Config><Settings/></Config>");
  const Outcome run = Run("save " + Quoted(SamplePath()) + " " + Quoted(folder_.At("out.xml")));
  EXPECT_EQ(run.status, 11);  // saved all the same, but without schemas nothing can be held against them
  EXPECT_THAT(run.err, HasSubstr("XML Schema not found: "));
  const String warning = "Could not locate schema to retrieve Namespaces from!";
  EXPECT_THAT(run.err, HasSubstr(warning));
  EXPECT_EQ(run.err.find(warning, run.err.find(warning) + 1), String::npos);
  EXPECT_EQ(folder_.Get("out.xml").find("xmlns"), String::npos);
}

TEST_F(CliTest, ABrokenSettingsFileIsTold) {
  folder_.Put("home/rti.config", "<Config><Settings>");
  const Outcome run = Run("show " + Quoted(SamplePath()));
  EXPECT_THAT(run.err, HasSubstr("alsAppSettings"));
  EXPECT_LE(std::count(run.err.begin(), run.err.end(), '\n'), 4) << run.err;
  EXPECT_EQ(folder_.Get("home/rti.config"), "<Config><Settings>");
}

TEST_F(CliTest, ADocumentIsNeverReplacedByWhatIsMadeOfIt) {
  const String file = Input(ReadFile(SamplePath()));
  const String before = folder_.Get("in.xml");
  for (const String& command :
       {"save " + file + " " + file, "send --save-copy " + file + " " + file,
        "send --save-another-copy " + file + " --save-copy " + Quoted(folder_.At("c.xml")) + " " + file}) {
    const Outcome run = Run(command);
    EXPECT_EQ(run.status, 2) << command;
    EXPECT_THAT(run.err, HasSubstr("in.xml is the file itself that is read"));
    EXPECT_EQ(folder_.Get("in.xml"), before);
  }
}

TEST_F(CliTest, ContradictionsAreWrongUsage) {
  const String sample = Quoted(SamplePath());
  const std::pair<String, String> wrong[] = {
      {"save " + sample + " -", "not to standard output"},
      {"send --save-copy - " + sample, "not to standard output"},
      {"send --mode Live --submission-url '' --poll-url '' " + sample, "a value is missing"},
      {"send --gateway '' " + sample, "a value is missing"},
      {"--json validate --format csv " + sample, "--format csv contradicts --json"},
      {"send --user U --password-file - - <" + sample, "both the document and the password"},
  };
  for (const auto& [arguments, message] : wrong) {
    const Outcome run = Run(arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_THAT(run.err, HasSubstr(message));
  }
}

TEST_F(CliTest, AReportDoesNotReplaceItsLog) {
  ASSERT_EQ(Run("save --no-validation " + Quoted(SamplePath()) + " " + Quoted(folder_.At("out.xml"))).status,
            0);
  const json logs = json::parse(Run("log list --json").out)["logs"];
  ASSERT_EQ(logs.size(), 1U);
  const String log = logs[0]["path"];
  const String before = ReadFile(log);
  EXPECT_EQ(Run("report " + Quoted(log) + " -o " + Quoted(log)).status, 2);
  EXPECT_EQ(ReadFile(log), before);
}

TEST_F(CliTest, AnEmptyPasswordIsRefused) {
  const String file = folder_.Put("password", "\n");
  const Outcome run = Run("send --user U --password-file " + Quoted(file) + " " + Quoted(SamplePath()));
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("The password for --user is empty."));
}

TEST_F(CliTest, SendingWithoutSchemasSaysWhatToDo) {
  folder_.Put("home/rti.config", "<Config><Settings/></Config>");
  const Outcome run = Run("send " + Quoted(SamplePath()));
  EXPECT_EQ(run.status, 15);
  EXPECT_THAT(run.err, HasSubstr("home/xsd, isn't there. Name another folder by --home"));
}

TEST_F(CliTest, ASignalEndsAReadOfStandardInput) {
  const String script = "mkfifo '" + folder_.At("pipe") + "'; sleep 9 >'" + folder_.At("pipe") + "' & '" +
                        ZELNOR_PROGRAM "' --home '" + folder_.At("home") + "' show - <'" +
                        folder_.At("pipe") +
                        "' 2>/dev/null & sleep 0.5; kill -INT $!; wait $!; test $? = 130";
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(std::system(script.c_str()), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST_F(CliTest, AFullDiskLeavesTheOldFile) {
  folder_.Put("out.xml", "old");
  const Outcome run =
      Run("save " + Quoted(SamplePath()) + " " + Quoted(folder_.At("out.xml")), "ulimit -f 1; ");
  EXPECT_EQ(run.status, 15);
  EXPECT_EQ(folder_.Get("out.xml"), "old");
}

TEST_F(CliTest, AFileThatMayNotBeWrittenIsTold) {
  const String out = folder_.Put("out.xml", "old");
  ASSERT_EQ(chmod(out.c_str(), 0400), 0);
  const Outcome run = Run("save " + Quoted(SamplePath()) + " " + Quoted(out));
  EXPECT_EQ(run.status, 15);
  EXPECT_THAT(run.err, HasSubstr("Error 75"));
  EXPECT_EQ(folder_.Get("out.xml"), "old");
}

}  // namespace
}  // namespace zelnor::test
