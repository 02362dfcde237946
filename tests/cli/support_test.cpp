// `zelnor support` as a person and as another program runs it.

#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <csignal>
#include <filesystem>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/fake_ftp_server.h"
#include "support/shell.h"
#include "support/temporary_folder.h"
#include "support/vsftpd.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace zelnor::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

struct Outcome {
  int status = -1;
  String out;
  String err;
};

class SupportCommandTest : public testing::Test {
 protected:
  // Runs the program through a shell with its streams in files.
  Outcome Run(const String& arguments, const String& before = "unset ZELNOR_PASSWORD; setsid -w",
              const String& behind = "</dev/null") const {
    const String command = before + " '" ZELNOR_PROGRAM "' --home '" + folder_.At("home") + "' " + arguments +
                           " >'" + folder_.At("out.txt") + "' 2>'" + folder_.At("err.txt") + "' " + behind;
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder_.Get("out.txt"), folder_.Get("err.txt")};
  }

  String Arguments() const { return "support '" + file_ + "' --server " + server_.Address() + " --user ann"; }

  // By an address that need not be this machine's, so that it is under encryption only, which this server
  // doesn't offer.
  String Strict() const { return Replace(Arguments(), server_.Address(), OtherAddress()); }
  String OtherAddress() const { return Replace(server_.Address(), "127.0.0.1", "0.0.0.0"); }

  void ExpectArrived() const {
    const auto files = server_.Files();
    ASSERT_EQ(files.size(), 1U);
    const String zip = folder_.Put("received.zip", files.begin()->second);
    EXPECT_EQ(OutputOf("unzip -p '" + zip + "' FPS-25-26.xml"), OutputOf("cat '" + file_ + "'"))
        << "the file as it stands";
    EXPECT_THAT(OutputOf("unzip -p '" + zip + "' 'Log_*'"),
                HasSubstr("SubmissionType=\"Full Payment Submission\""));
  }

  TemporaryFolder folder_;
  FakeFtpServer server_;
  String file_ = ZELNOR_SOURCE_DIR "/samples/FPS-25-26.xml";
};

TEST_F(SupportCommandTest, SendsTheFileAndALog) {
  const Outcome run = Run("--json " + Arguments(), "ZELNOR_PASSWORD=secret");
  ASSERT_EQ(run.status, 0) << run.err;
  ExpectArrived();
  const json sent = json::parse(run.out);
  EXPECT_EQ(sent["result"], "Successful");
  EXPECT_EQ(sent["server"], server_.Address());
  EXPECT_EQ(sent["name"], server_.Files().begin()->first);
  EXPECT_EQ(sent["bytes"], server_.Files().begin()->second.size());
  EXPECT_EQ(sent["encrypted"], false);
  EXPECT_THAT(ReadFile(sent["log"].get<String>()), HasSubstr("FTP upload succeeded."));
  EXPECT_THAT(run.err, Not(HasSubstr("%"))) << "no progress where nobody looks on";
}

TEST_F(SupportCommandTest, SpeaksToPeopleToo) {
  const Outcome run = Run(Arguments(), "ZELNOR_PASSWORD=secret");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("Result   Successful\nSent     "));
  EXPECT_THAT(run.out, HasSubstr("in the clear: the server offers no encryption"));
}

TEST_F(SupportCommandTest, TellsWhatGoesBeforeAnyOfItDoes) {
  const String unreachable =
      "support '" + file_ + "' --user ann --server 0.0.0.0:" + std::to_string(FreePort());
  const Outcome strict = Run(unreachable, "ZELNOR_PASSWORD=secret");
  EXPECT_THAT(strict.err,
              AllOf(HasSubstr("people's data"), HasSubstr("the sender's password for HMRC's gateway"),
                    HasSubstr("under encryption only")));
  EXPECT_THAT(Run(unreachable + " --allow-clear", "ZELNOR_PASSWORD=secret").err,
              HasSubstr("in the clear if the server offers no encryption"));
  const String bare =
      folder_.Put("bare.xml", Replace(ReadFile(file_), "<Value>not-a-real-password</Value>", "<Value/>"));
  const Outcome without =
      Run("support '" + bare + "' --user ann --server 127.0.0.1:" + std::to_string(FreePort()),
          "ZELNOR_PASSWORD=secret");
  EXPECT_THAT(without.err, AllOf(HasSubstr("people's data"), Not(HasSubstr("sender's password"))));
}

TEST_F(SupportCommandTest, GoesInTheClearOnlyWhereThatIsAllowed) {
  const Outcome run = Run("--json " + Strict(), "ZELNOR_PASSWORD=secret setsid -w");
  EXPECT_EQ(run.status, 13);
  EXPECT_THAT(run.err, AllOf(HasSubstr("offers no encryption"), HasSubstr("--allow-clear")));
  EXPECT_THAT(json::parse(run.out)["error"].get<String>(), HasSubstr("offers no encryption"));
  EXPECT_EQ(Run(Strict(), "ZELNOR_PASSWORD=secret setsid -w").status, 13);
  EXPECT_EQ(server_.Count("USER") + server_.Count("PASS") + server_.Count("STOR"), 0U)
      << "not even the login";
  EXPECT_EQ(Run(Strict() + " --allow-clear", "ZELNOR_PASSWORD=secret setsid -w").status, 0);
}

TEST_F(SupportCommandTest, TakesThePasswordFromAFile) {
  for (const char* text : {"secret", "secret\n", "secret\r\nand more\n"}) {
    const Outcome run = Run(Arguments() + " --password-file '" + folder_.Put("password", text) + "'",
                            "ZELNOR_PASSWORD=wrong");
    EXPECT_EQ(run.status, 0) << run.err;
  }
}

TEST_F(SupportCommandTest, TakesThePasswordFromStandardInput) {
  const Outcome run = Run(Arguments() + " --password-file -", "printf 'secret\\nmore' |", "");
  EXPECT_EQ(run.status, 0) << run.err;
  ExpectArrived();
}

TEST_F(SupportCommandTest, WithoutAPasswordIsWrongUsage) {
  const Outcome run = Run(Arguments());
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--password-file"));
  EXPECT_EQ(server_.Commands().size(), 0U);
}

TEST_F(SupportCommandTest, APasswordThatIsNotThereIsWrongUsage) {
  Outcome run = Run(Arguments() + " --password-file '" + folder_.At("none") + "'");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("File not found"));
  run = Run(Arguments() + " --password-file -");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(server_.Commands().size(), 0U);
}

TEST_F(SupportCommandTest, WrongUsageIsTwo) {
  EXPECT_EQ(Run("support").status, 2);
  EXPECT_EQ(Run("support a.xml --server localhost").status, 2);
  EXPECT_EQ(Run("support a.xml --user ann").status, 2);
  EXPECT_EQ(Run(Arguments() + " --password secret").status, 2) << "never as an argument";
  EXPECT_EQ(Run("support - --server localhost --user ann", "ZELNOR_PASSWORD=secret").status, 2);
}

TEST_F(SupportCommandTest, AServerThatCannotBeOneIsWrongUsage) {
  for (const auto& [server, reason] : std::initializer_list<std::pair<String, String>>{
           {"", "the name of the server is missing"},
           {":21", "the name of the server is missing"},
           {"h:abc", "the port \"abc\" is no number from 1 to 65535"},
           {"h:", "the port \"\" is no number"},
           {"h:0", "the port \"0\" is no number"},
           {"h:99999", "the port \"99999\" is no number"},
           {"h:21:22", "the port \"21:22\" is no number"},
           {"ftp://h", "leave the \"ftp://\" out"},
           {"h/folder", "\"/\" is in no server"},
           {"ann@h", "\"@\" is in no server"},
           {"h h", "\" \" is in no server"},
           {"[::1", "no IPv6 address"},
           {"[h]:21", "no IPv6 address"},
           {"[::1]21", "only a port"}}) {
    const Outcome run =
        Run("support '" + file_ + "' --user ann --server '" + server + "'", "ZELNOR_PASSWORD=secret");
    EXPECT_EQ(run.status, 2) << server;
    EXPECT_THAT(run.err, HasSubstr("--server: ")) << server;
    EXPECT_THAT(run.err, HasSubstr(reason)) << server;
    EXPECT_THAT(run.err, HasSubstr("HOST or HOST:PORT")) << server;
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.At("home"))) << "before anything is made";
}

TEST_F(SupportCommandTest, TheArchivesFolderGoesWithTheArchive) {
  ASSERT_EQ(Run(Arguments(), "ZELNOR_PASSWORD=secret").status, 0);
  EXPECT_FALSE(std::filesystem::exists(folder_.At("home/temp")));
  folder_.Put("home/temp/mine.txt", "");
  ASSERT_EQ(Run(Arguments(), "ZELNOR_PASSWORD=secret").status, 0);
  EXPECT_TRUE(std::filesystem::exists(folder_.At("home/temp/mine.txt")));
}

TEST_F(SupportCommandTest, AFileThatIsNoneIsThree) {
  const Outcome run =
      Run("support none.xml --server " + server_.Address() + " --user ann", "ZELNOR_PASSWORD=secret");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(server_.Commands().size(), 0U);
}

TEST_F(SupportCommandTest, ARefusedLoginIsAFailedSend) {
  const Outcome run = Run("--json " + Arguments(), "ZELNOR_PASSWORD=wrong");
  EXPECT_EQ(run.status, 12);
  EXPECT_EQ(json::parse(run.out)["result"], "FailedSend");
  EXPECT_THAT(json::parse(run.out)["error"].get<String>(),
              HasSubstr("refused the user name or the password"));
  EXPECT_THAT(run.err, HasSubstr("12014"));
  EXPECT_THAT(run.out + run.err, Not(HasSubstr("wrong")));
}

TEST_F(SupportCommandTest, AFullServerIsAFailedSendInItsOwnWords) {
  server_.replies["STOR"] = "552 The disk is full";
  const Outcome run = Run(Arguments(), "ZELNOR_PASSWORD=secret");
  EXPECT_EQ(run.status, 12);
  EXPECT_THAT(run.err, HasSubstr("552 The disk is full"));
}

TEST_F(SupportCommandTest, NobodyThereIsAFailedConnection) {
  const Outcome run =
      Run("support '" + file_ + "' --server 127.0.0.1:" + std::to_string(FreePort()) + " --user ann",
          "ZELNOR_PASSWORD=secret");
  EXPECT_EQ(run.status, 13);
  EXPECT_THAT(run.err, AllOf(HasSubstr("12029"), Not(HasSubstr("--allow-clear"))));
}

TEST_F(SupportCommandTest, AnInterruptBreaksTheWaitOff) {
  server_.silent = {"PASS"};
  const Outcome run =
      Run("--json " + Arguments(), "ZELNOR_PASSWORD=secret timeout --preserve-status -s INT 1");
  EXPECT_EQ(run.status, 14) << run.err;
  EXPECT_EQ(json::parse(run.out)["result"], "CancelledSend");
}

TEST_F(SupportCommandTest, IsEncryptedWhereTheServerOffersIt) {
  if (!Vsftpd::IsInstalled()) GTEST_SKIP() << "vsftpd isn't installed";
  const Vsftpd server(true);
  const String arguments =
      "--json support '" + file_ + "' --server " + server.Address() + " --user anonymous";
  const Outcome untrusted = Run(arguments, "unset SSL_CERT_FILE; ZELNOR_PASSWORD=secret");
  EXPECT_EQ(untrusted.status, 13) << untrusted.err;
  const Outcome trusted =
      Run(arguments, "SSL_CERT_FILE='" + server.Certificate() + "' ZELNOR_PASSWORD=secret");
  EXPECT_EQ(trusted.status, 0) << trusted.err;
  EXPECT_EQ(json::parse(trusted.out)["encrypted"], true);
  EXPECT_TRUE(server.Has(json::parse(trusted.out)["name"].get<String>()));
}

// A person at a terminal: what the program shows there, and its status.
class AtATerminal : public SupportCommandTest {
 protected:
  // Types each answer when its prompt has been shown.
  std::pair<int, String> RunAndType(std::vector<std::pair<String, String>> answers) const {
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
      unsetenv("ZELNOR_PASSWORD");
      const String address = OtherAddress();
      const String home = folder_.At("home");
      execl(ZELNOR_PROGRAM, ZELNOR_PROGRAM, "--home", home.c_str(), "support", file_.c_str(), "--server",
            address.c_str(), "--user", "ann", static_cast<char*>(nullptr));
      _exit(127);
    }
    String shown;
    char bytes[512];
    std::size_t from = 0;
    for (ssize_t count = 0; (count = read(terminal, bytes, sizeof bytes)) > 0;) {
      shown.append(bytes, static_cast<std::size_t>(count));
      if (answers.empty() || shown.find(answers.front().first, from) == String::npos) continue;
      const String typed = answers.front().second;
      answers.erase(answers.begin());
      from = shown.size();
      EXPECT_EQ(write(terminal, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
    }
    close(terminal);
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), shown};
  }
};

TEST_F(AtATerminal, TheProgramAsksForThePasswordAndDoesNotShowIt) {
  const auto [status, shown] = RunAndType({{"Password: ", "secret\n"}, {"[y/N] ", "y\n"}});
  EXPECT_EQ(status, 0) << shown;
  EXPECT_THAT(shown, Not(HasSubstr("secret")));
  EXPECT_THAT(shown, HasSubstr("(100%)"));
  ExpectArrived();
}

TEST_F(AtATerminal, WithoutAYesNothingGoesInTheClear) {
  for (const char* answer : {"\n", "n\n", "what\n"}) {
    const auto [status, shown] = RunAndType({{"Password: ", "secret\n"}, {"[y/N] ", answer}});
    EXPECT_EQ(status, 13) << shown;
  }
  EXPECT_EQ(server_.Count("USER") + server_.Count("PASS"), 0U);
}

TEST_F(AtATerminal, TheQuestionCanBeLeft) {
  const auto [status, shown] = RunAndType({{"Password: ", "\x03"}});
  EXPECT_EQ(status, 128 + SIGINT) << shown;
  EXPECT_EQ(server_.Commands().size(), 0U);
}

}  // namespace
}  // namespace zelnor::test
