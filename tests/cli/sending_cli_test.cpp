// `zelnor send`, `poll` and `gateway` as a user runs them.

#include "zelnor/platform/http.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <sys/stat.h>
#include <thread>

#include "cli/cli_fixture.h"

namespace zelnor::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A `zelnor gateway` that runs in the background until the test's end.
class GatewayProcess {
 public:
  GatewayProcess(const TemporaryFolder& folder, const String& options) : out_(folder.At("gateway.txt")) {
    const String command = "exec '" ZELNOR_PROGRAM "' --home '" + folder.At("gateway-home") + "' gateway " +
                           options + " >'" + out_ + "' 2>&1";
    process_ = fork();
    if (process_ == 0) {
      execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
      _exit(127);
    }
    constexpr int kTurns = 1000;
    for (int turn = 0; turn < kTurns && Url().empty(); ++turn) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }
  GatewayProcess(const GatewayProcess&) = delete;
  GatewayProcess& operator=(const GatewayProcess&) = delete;
  ~GatewayProcess() { Stop(); }

  /// The address that it printed; empty before.
  String Url() const {
    const String text = Text();
    const std::size_t at = text.find("http");
    return at == String::npos || text.find('\n', at) == String::npos
               ? ""
               : text.substr(at, text.find('\n', at) - at);
  }

  String Text() const {
    std::ifstream file(out_);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// Asks it to stop; returns its exit status.
  int Stop() {
    if (process_ <= 0) return status_;
    kill(process_, SIGTERM);
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = 0;
    return status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  String Options() const {
    return " --submission-url " + Url() + "/submission --poll-url " + Url() + "/poll";
  }

 private:
  String out_;
  pid_t process_ = 0;
  int status_ = -1;
};

/// The program with some arguments, in the background.
class Background {
 public:
  explicit Background(const String& arguments) {
    const String command = "exec '" ZELNOR_PROGRAM "' " + arguments + " >/dev/null 2>&1";
    process_ = fork();
    if (process_ == 0) {
      execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
      _exit(127);
    }
  }
  Background(const Background&) = delete;
  Background& operator=(const Background&) = delete;
  ~Background() { Kill(); }

  /// Sends it a signal, and tells whether that ended it within a second and a half.
  bool EndsBy(int signal) {
    kill(process_, signal);
    for (int turn = 0; turn < 150; ++turn) {
      int status = 0;
      if (waitpid(process_, &status, WNOHANG) == process_) {
        process_ = 0;
        return WIFSIGNALED(status) && WTERMSIG(status) == signal;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }

  /// Ends it without a word, as a power cut would.
  void Kill() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }

 private:
  pid_t process_ = 0;
};

class SendingCliTest : public CliTest {
 protected:
  // Waits until the gateway's output holds a text; whether it came.
  static bool WaitFor(const GatewayProcess& gateway, const String& text) {
    constexpr int kTurns = 3000;
    for (int turn = 0; turn < kTurns; ++turn) {
      if (gateway.Text().find(text) != String::npos) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }

  String InBackground(const String& arguments) const {
    return "--home " + Quoted(folder_.At("home")) + " " + arguments;
  }

  // Without rules, which the sample need not hold to on any day.
  String Send(const String& options) const {
    return "send --no-validation " + options + " " + Quoted(SamplePath());
  }
};

TEST_F(SendingCliTest, SendGoesThroughTheLocalGateway) {
  const Outcome run = Run(Send("--json"));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.err, HasSubstr("The local gateway serves"));
  const json told = json::parse(run.out);
  EXPECT_EQ(told["result"], "Successful");
  EXPECT_EQ(told["correlation_id"].get<String>().size(), 32U);
  EXPECT_EQ(told["gateway_errors"], "");
  EXPECT_TRUE(told["errors"].empty());
  EXPECT_EQ(told["irmark"]["base64"].get<String>().size(), 28U);
  EXPECT_EQ(told["irmark"]["base32"].get<String>().size(), 32U);
  EXPECT_THAT(folder_.Get("home/xml/send.xml"), HasSubstr(told["irmark"]["base64"].get<String>()));
  EXPECT_TRUE(std::filesystem::exists(told["log"].get<String>()));
  std::vector<String> names;
  for (const json& event : told["events"]) names.push_back(event["event"]);
  EXPECT_THAT(names, testing::Contains("AcknowledgementReceivedFromGateway"));
  EXPECT_THAT(names, testing::Contains("SuccessResponseReceivedFromGateway"));
  for (const json& event : told["events"]) {
    if (event["event"] == "ControllerStatus") {
      ASSERT_EQ(event["args"].size(), 3U);
    } else {
      EXPECT_EQ(event["args"], json::array({told["correlation_id"]}));
    }
  }
  std::vector<String> files;
  for (const json& file : told["files"])
    files.push_back(std::filesystem::path(file.get<String>()).filename());
  EXPECT_THAT(files, testing::UnorderedElementsAre("send.xml", "response.xml", "poll1.xml", "poll2.xml",
                                                   "delete.xml", "deleteOriginal.xml"));
}

TEST_F(SendingCliTest, ASendThatIsKilledWhileItsPostWaitsLeavesTheWordThatItMayHaveArrived) {
  const GatewayProcess gateway(folder_,
                               "--scenario " + Quoted(folder_.Put("scenario", "submission: stall before\n")));
  Background run(InBackground(Send(gateway.Options())));
  // The gateway has the document when it tells of the exchange.
  ASSERT_TRUE(WaitFor(gateway, "submission request")) << gateway.Text();
  run.Kill();
  const Outcome listed = Run("log list --json");
  const json logs = json::parse(listed.out)["logs"];
  ASSERT_EQ(logs.size(), 1U) << listed.out;
  EXPECT_EQ(logs[0]["result"], "unanswered");
  const json told = json::parse(Run("report --json " + Quoted(logs[0]["path"])).out);
  EXPECT_THAT(told["advice"].get<String>(),
              HasSubstr("HMRC may have it. Do not send it again before you have asked"));
  EXPECT_EQ(told["paye_ref"].is_null(), false) << "and whose it is";
}

TEST_F(SendingCliTest, ASignalWaitsForTheAnswerAndALaterOneDoesNot) {
  const GatewayProcess gateway(folder_, "--scenario " + Quoted(folder_.Put("stall", "stall before\n")));
  Background run(InBackground(Send(gateway.Options())));
  ASSERT_TRUE(WaitFor(gateway, "told: stall"));
  EXPECT_FALSE(run.EndsBy(SIGINT));
  std::this_thread::sleep_for(std::chrono::seconds(1));
  EXPECT_TRUE(run.EndsBy(SIGINT));
}

TEST_F(SendingCliTest, TheAddressesOfARunDontStayInTheSettings) {
  Run(Send(""));
  EXPECT_THAT(Settings(), Not(HasSubstr("127.0.0.1")));
}

TEST_F(SendingCliTest, TheSettingsOfARunNeverReachTheFile) {
  const String save = "save --no-validation " + Quoted(SamplePath()) + " " + Quoted(folder_.At("saved.xml"));
  const String validate = "validate --stages envelope " + Quoted(SamplePath());
  // Whoever looks for a setting first writes its default.
  for (const String& each : {Send("--no-connection-test"), save, validate}) ASSERT_EQ(Run(each).status, 0);
  const String before = Settings();
  EXPECT_THAT(before, Not(HasSubstr("False")));
  const GatewayProcess gateway(folder_, "--scenario " + Quoted(folder_.Put("stall", "stall before\n")));
  Background run(InBackground(Send("--no-connection-test" + gateway.Options())));
  ASSERT_TRUE(WaitFor(gateway, "told: stall"));
  EXPECT_EQ(Settings(), before) << "while it runs";
  run.Kill();
  EXPECT_EQ(Settings(), before) << "after it was killed";
  EXPECT_EQ(Run(Send("--no-connection-test")).status, 0);
  EXPECT_EQ(Settings(), before) << "after a run that ended by itself";
  for (const String& each : {save, validate}) EXPECT_EQ(Run(each).status, 0);
  EXPECT_EQ(Settings(), before) << "and of the other commands";
}

TEST_F(SendingCliTest, RunsThatOverlapHaveTheirOwnSettings) {
  ASSERT_EQ(Run(Send("")).status, 0);
  const String before = Settings();
  String document = folder_.Get(SamplePath());
  const String name = "<AORef>961PY00427198</AORef>";
  ASSERT_NE(document.find(name), String::npos);
  document.replace(document.find(name), name.size(), "<AORef>=1+1</AORef>");
  const GatewayProcess gateway(folder_, "--scenario " + Quoted(folder_.Put("stall", "stall before\n")));
  {
    const Background first(InBackground(Send(gateway.Options())));
    ASSERT_TRUE(WaitFor(gateway, "told: stall"));
    const Outcome second = Run("send --json --today 2025-10-01 " + Input(document));
    EXPECT_EQ(second.status, 11) << "the first run's --no-validation is its own: " << second.err;
    const Outcome third = Run("--json " + Send(""));
    EXPECT_EQ(third.status, 0) << third.err;
  }
  EXPECT_EQ(Settings(), before);
  const String text = gateway.Text();
  EXPECT_EQ(text.find("->"), text.rfind("->")) << "the others went to gateways of their own:\n" << text;
}

TEST_F(SendingCliTest, SendSpeaksToPeople) {
  const Outcome run = Run(Send(""));
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, StartsWith("Result          Successful\nCorrelation ID  "));
  EXPECT_THAT(run.out, HasSubstr("Log             " + folder_.At("home")));
}

TEST_F(SendingCliTest, ErrorsOfTheGatewayAreTold) {
  const String scenario = folder_.Put("scenario", "error number=1046 text=\"No\"\n");
  const GatewayProcess gateway(folder_, "--scenario " + Quoted(scenario));
  const Outcome run = Run(Send("--json" + gateway.Options()));
  EXPECT_EQ(run.status, 12);
  const json told = json::parse(run.out);
  EXPECT_EQ(told["result"], "FailedSend");
  EXPECT_THAT(told["gateway_errors"].get<String>(), StartsWith("Sender ID / Password are incorrect"));
  EXPECT_EQ(told["errors"][0]["number"], 1046);
  EXPECT_EQ(told["errors"][0]["type"], "fatal");
  EXPECT_EQ(told["errors"][0]["raised_by"], "Gateway");
  EXPECT_EQ(told["errors"][0]["text"], "No");
  EXPECT_EQ(told["errors"][0]["location"], "");
  EXPECT_TRUE(told["errors"][0]["employee"].is_null());
}

TEST_F(SendingCliTest, ErrorsOfAnEmployeeNameTheEmployee) {
  const String scenario = folder_.Put(
      "scenario",
      "acknowledgement\nbusiness-error error=\"7|business|Bad|/hd:GovTalkMessage[1]/fps:Employee[2]/x\"\n");
  const GatewayProcess gateway(folder_, "--interval -1 --scenario " + Quoted(scenario));
  const json told = json::parse(Run(Send("--json" + gateway.Options())).out);
  EXPECT_EQ(told["errors"][1]["employee"], 2);
  EXPECT_EQ(told["errors"][1]["text"], "M-1042 BRACKENRIDGE OLUWASEUN: Bad");
}

TEST_F(SendingCliTest, AFailedConnectionExits13AndSaysWhy) {
  const Outcome run =
      Run(Send("--json --submission-url http://127.0.0.1:1/submission --poll-url http://127.0.0.1:1/poll"));
  EXPECT_EQ(run.status, 13);
  const json told = json::parse(run.out);
  EXPECT_EQ(told["result"], "ConnectionFailed");
  EXPECT_EQ(told["errors"][0]["number"], -9999);
  EXPECT_THAT(told["cause"].get<String>(), StartsWith("The connection to 127.0.0.1 failed: "));
  EXPECT_THAT(told["cause"].get<String>(), HasSubstr("port 1 "));
  EXPECT_THAT(run.err, HasSubstr("zelnor: " + told["cause"].get<String>()));
  const Outcome poll =
      Run("--json poll --class HMRC-PAYE-RTI-FPS --correlation-id 00"
          " --submission-url http://127.0.0.1:1/submission --poll-url http://127.0.0.1:1/poll");
  EXPECT_THAT(json::parse(poll.out)["cause"].get<String>(),
              StartsWith("The connection to 127.0.0.1 failed: "));
  EXPECT_THAT(poll.err, HasSubstr("zelnor: The connection to 127.0.0.1 failed: "));
}

TEST_F(SendingCliTest, AnAnswerAfterAFailedAttemptLeavesNoCause) {
  const GatewayProcess gateway(
      folder_, "--interval -1 --scenario " + Quoted(folder_.Put("drop", "submission: drop before\n")));
  const Outcome run = Run(Send("--json" + gateway.Options()));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(json::parse(run.out)["cause"], "");
  EXPECT_EQ(run.err, "");
}

TEST_F(SendingCliTest, AFileThatCannotBeWrittenIsNamedAsTheCause) {
  ASSERT_EQ(Run(Send("")).status, 0);
  std::filesystem::remove(folder_.At("home/xml/send.xml"));
  std::filesystem::create_directories(folder_.At("home/xml/send.xml"));
  const Outcome run = Run(Send("--json"));
  EXPECT_EQ(run.status, 13);
  EXPECT_THAT(json::parse(run.out)["cause"].get<String>(),
              StartsWith("Nothing was sent, since the file " + folder_.At("home/xml/send.xml") +
                         " can't be written: "));
}

TEST_F(SendingCliTest, TheCredentialsAreChecked) {
  const String password = folder_.Put("password", "open sesame\n");
  const GatewayProcess gateway(folder_, "--interval -1 --user 635 --password-file " + Quoted(password));
  EXPECT_EQ(Run(Send("--user 635 --password-file " + Quoted(password) + gateway.Options())).status, 0);
  EXPECT_EQ(Run(Send("--user 635" + gateway.Options()), "ZELNOR_PASSWORD='open sesame'").status, 0);
  EXPECT_EQ(Run(Send("--user 635 --password-file -" + gateway.Options()), "echo open sesame |").status, 0);
  const Outcome wrong = Run(Send("--user 635" + gateway.Options()), "ZELNOR_PASSWORD='wrong'");
  EXPECT_EQ(wrong.status, 12);
  EXPECT_THAT(wrong.out + wrong.err, Not(HasSubstr("wrong")));
  EXPECT_EQ(Run(Send("--user 636" + gateway.Options()), "ZELNOR_PASSWORD='open sesame'").status, 12);
}

TEST_F(SendingCliTest, APasswordFileThatCannotBeReadIsWrongUsage) {
  const Outcome run = Run(Send("--user 635 --password-file /nowhere"));
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--password-file: /nowhere: "));
}

TEST_F(SendingCliTest, ADistantGatewayNeedsAMode) {
  const Outcome run =
      Run(Send("--submission-url https://gateway.invalid/s --poll-url https://gateway.invalid/p"));
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("needs an explicit --mode"));
  EXPECT_EQ(Run(Send("--gateway hmrc")).status, 2);
  const Outcome alike =
      Run(Send("--submission-url http://127.0.0.1.invalid/s --poll-url http://127.0.0.1.invalid/p"));
  EXPECT_EQ(alike.status, 2) << "no address of this machine";
  EXPECT_THAT(alike.err, HasSubstr("needs an explicit --mode"));
}

TEST_F(SendingCliTest, AGatewayOfTheSettingsThatIsNotHmrcsIsNamed) {
  ASSERT_EQ(Run(Send("")).status, 0);
  const String settings = Settings();
  const std::size_t end = settings.find("</Settings>");
  ASSERT_NE(end, String::npos);
  folder_.Put("home/rti.config",
              settings.substr(0, end) +
                  "<GovGatewayURL_Live>http://127.0.0.1:1/submission</GovGatewayURL_Live>" +
                  settings.substr(end));
  const Outcome run = Run(Send("--gateway hmrc --mode Test --no-connection-test"));
  EXPECT_EQ(run.status, 13);
  EXPECT_THAT(run.err, HasSubstr("The gateway that the settings name serves, and not HMRC's own: "
                                 "http://127.0.0.1:1/submission, in mode Test."));
  EXPECT_THAT(run.err, Not(HasSubstr("HMRC's gateway serves")));
}

TEST_F(SendingCliTest, AnAddressWithAUserOrOfNothingIsWrongUsage) {
  const Outcome user = Run(Send(
      "--mode Live --submission-url http://127.0.0.1:1@gateway.invalid/s --poll-url http://127.0.0.1:1/p"));
  EXPECT_EQ(user.status, 2);
  EXPECT_THAT(user.err, HasSubstr("--submission-url: leave user and password out"));
  const Outcome none =
      Run(Send("--mode Live --submission-url http://127.0.0.1:1/ --poll-url ftp://127.0.0.1/"));
  EXPECT_EQ(none.status, 2);
  EXPECT_THAT(none.err, HasSubstr("--poll-url: \"ftp://127.0.0.1/\" is no http or https address"));
}

TEST_F(SendingCliTest, OptionsThatContradictEachOtherAreWrongUsage) {
  EXPECT_EQ(Run(Send("--submission-url http://127.0.0.1:1/")).status, 2);
  EXPECT_EQ(
      Run(Send("--gateway local --submission-url http://127.0.0.1:1/ --poll-url http://127.0.0.1:1/")).status,
      2);
  EXPECT_EQ(Run(Send("--gateway elsewhere")).status, 2);
  EXPECT_EQ(Run(Send("--mode Whatever")).status, 2);
  EXPECT_EQ(Run(Send("--today tomorrow")).status, 2);
  EXPECT_EQ(Run(Send("--save-another-copy x.xml")).status, 2);
  EXPECT_EQ(Run(Send("--password-file x")).status, 2);
}

TEST_F(SendingCliTest, InputThatIsNoMessageIsNotSent) {
  const GatewayProcess gateway(folder_, "");
  EXPECT_EQ(Run("send" + gateway.Options() + " " + Input("<a/>")).status, 3);
  EXPECT_THAT(gateway.Text(), Not(HasSubstr("->")));
}

TEST_F(SendingCliTest, CopiesAreSavedAndNamed) {
  const Outcome run = Run(Send("--json --save-copy " + Quoted(folder_.At("a/1.xml")) +
                               " --save-another-copy " + Quoted(folder_.At("b/2.xml"))));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(folder_.Get("a/1.xml"), folder_.Get("b/2.xml"));
  EXPECT_THAT(folder_.Get("a/1.xml"), HasSubstr("<IRmark Type=\"generic\">"));
  EXPECT_THAT(run.out, HasSubstr(folder_.At("a/1.xml")));
  EXPECT_THAT(run.out, HasSubstr(folder_.At("b/2.xml")));
}

TEST_F(SendingCliTest, AnInterruptLeavesTheResultPendingAndTellsTheId) {
  const GatewayProcess gateway(folder_, "--interval 60");
  // The program is interrupted while it waits for the first poll.
  const String script =
      "'" ZELNOR_PROGRAM "' --home '" + folder_.At("home") + "' " + Send(gateway.Options()) + " >'" +
      folder_.At("sent.txt") + "' & sent=$!; for turn in $(seq 600); do grep -q acknowledgement '" +
      folder_.At("gateway.txt") + "' && break; sleep 0.05; done; sleep 0.3; kill -INT $sent; wait $sent";
  const String file = folder_.Put("interrupt.sh", script);
  const int status = std::system(("bash '" + file + "' 2>/dev/null").c_str());
  EXPECT_EQ(WEXITSTATUS(status), 10);
  const String out = folder_.Get("sent.txt");
  EXPECT_THAT(out, StartsWith("Result          Pending"));
  EXPECT_THAT(out, HasSubstr("zelnor poll --class HMRC-PAYE-RTI-FPS --correlation-id "));
}

TEST_F(SendingCliTest, AnInterruptedRehearsalGivesNoAdviceToPoll) {
  const String script = "'" ZELNOR_PROGRAM "' --home '" + folder_.At("home") + "' " + Send("") + " >'" +
                        folder_.At("sent.txt") + "' & sent=$!; for turn in $(seq 600); do [ -e '" +
                        folder_.At("home/xml/response.xml") +
                        "' ] && break; sleep 0.02; done; sleep 0.3; kill -INT $sent; wait $sent";
  const int status = std::system(("bash '" + folder_.Put("interrupt.sh", script) + "' 2>/dev/null").c_str());
  EXPECT_EQ(WEXITSTATUS(status), 10);
  const String out = folder_.Get("sent.txt");
  EXPECT_THAT(out, StartsWith("Result          Pending"));
  EXPECT_THAT(out, HasSubstr("nothing went to HMRC"));
  EXPECT_THAT(out, Not(HasSubstr("zelnor poll")));
}

// The id of a submission that a gateway holds; `send` is cut off at its first poll.
String HeldBy(const GatewayProcess& gateway) {
  const String text = gateway.Text();
  const std::size_t at = text.find("acknowledgement ") + 16;
  return text.substr(at, 32);
}

TEST_F(SendingCliTest, PollTakesOneProvisionalAnswerForPending) {
  const String scenario = folder_.Put("scenario", "submission: proper\npoll: drop before x4\n");
  const GatewayProcess gateway(folder_, "--interval 1 --provisional 6 --scenario " + Quoted(scenario));
  ASSERT_EQ(Run(Send(gateway.Options())).status, 13);
  const String poll =
      "poll --json --class HMRC-PAYE-RTI-FPS --correlation-id " + HeldBy(gateway) + gateway.Options();
  const Outcome pending = Run(poll);
  EXPECT_EQ(pending.status, 10) << pending.err;
  EXPECT_EQ(json::parse(pending.out)["result"], "Pending");
  const Outcome waited = Run(poll + " --wait");
  EXPECT_EQ(waited.status, 0) << waited.err;
  const json told = json::parse(waited.out);
  EXPECT_EQ(told["result"], "Successful");
  EXPECT_EQ(told["correlation_id"], HeldBy(gateway));
}

TEST_F(SendingCliTest, PollOfAnUnknownIdFails) {
  const GatewayProcess gateway(folder_, "");
  const Outcome run = Run("poll --json --class HMRC-PAYE-RTI-FPS --correlation-id 00" + gateway.Options());
  EXPECT_EQ(run.status, 12);
  EXPECT_EQ(json::parse(run.out)["errors"][0]["number"], 2000);
}

TEST_F(SendingCliTest, PollNeedsAGateway) {
  const Outcome run = Run("poll --class HMRC-PAYE-RTI-FPS --correlation-id 00");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("Say which gateway"));
}

TEST_F(SendingCliTest, TheGatewayEndsCleanlyOnSIGTERM) {
  GatewayProcess gateway(folder_, "");
  EXPECT_THAT(gateway.Text(), StartsWith("Local gateway listening on http://127.0.0.1:"));
  EXPECT_EQ(gateway.Stop(), 0);
}

TEST_F(SendingCliTest, AGatewayWithACertificateForItsNameIsPolledByThatName) {
  ASSERT_EQ(std::system(("openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=localhost -addext "
                         "subjectAltName=DNS:localhost -keyout '" +
                         folder_.At("key.pem") + "' -out '" + folder_.At("certificate.pem") + "' 2>/dev/null")
                            .c_str()),
            0);
  const GatewayProcess gateway(folder_, "--interval -1 --tls " + Quoted(folder_.At("certificate.pem")) + " " +
                                            Quoted(folder_.At("key.pem")));
  const String url = "https://localhost" + gateway.Url().substr(gateway.Url().rfind(':'));
  const Outcome run = Run(Send("--submission-url " + url + "/submission --poll-url " + url + "/poll"),
                          "SSL_CERT_FILE=" + Quoted(folder_.At("certificate.pem")));
  EXPECT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_THAT(gateway.Text(), HasSubstr("poll submit -> response: accepted"));
}

TEST_F(SendingCliTest, TheGatewayRecordsWhatItExchanges) {
  const GatewayProcess gateway(folder_, "--interval -1 --record " + Quoted(folder_.At("record")));
  ASSERT_EQ(Run(Send(gateway.Options())).status, 0);
  EXPECT_EQ(folder_.Get("record/0001-request.xml"), folder_.Get("home/xml/send.xml"));
  EXPECT_THAT(folder_.Get("record/0001-answer.xml"), HasSubstr("acknowledgement"));
  struct stat status {};
  ASSERT_EQ(stat(folder_.At("record/0001-request.xml").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(SendingCliTest, AGatewayThatCannotStartSaysWhy) {
  const GatewayProcess gateway(folder_, "");
  const String port = gateway.Url().substr(gateway.Url().rfind(':') + 1);
  const Outcome taken = Run("gateway --port " + port);
  EXPECT_EQ(taken.status, 2);
  EXPECT_THAT(taken.err, HasSubstr("Port " + port + " can't be listened on."));
  const Outcome scenario = Run("gateway --scenario " + Quoted(folder_.Put("bad", "proper\nmisbehave\n")));
  EXPECT_EQ(scenario.status, 2);
  EXPECT_THAT(scenario.err, HasSubstr("line 2: \"misbehave\" is no action."));
  const Outcome certificate = Run("gateway --tls /nowhere /nowhere");
  EXPECT_EQ(certificate.status, 2);
}

}  // namespace
}  // namespace zelnor::test
