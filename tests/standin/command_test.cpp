// `zelnor gateway` as a user runs it.

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "standin/gateway_fixture.h"
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace zelnor::standin {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::MatchesRegex;

class GatewayCommandTest : public GatewayTest {
 protected:
  ~GatewayCommandTest() override {
    if (child_ > 0) End(SIGKILL);
  }

  void Run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {ZELNOR_PROGRAM, "--home", folder_.At("home")});
    std::vector<char*> pointers;
    for (std::string& each : arguments) pointers.push_back(each.data());
    pointers.push_back(nullptr);
    const std::string out = folder_.Put("out", "");
    const std::string err = folder_.Put("err", "");
    child_ = fork();
    if (child_ != 0) return;
    dup2(open(out.c_str(), O_WRONLY), STDOUT_FILENO);
    dup2(open(err.c_str(), O_WRONLY), STDERR_FILENO);
    execv(ZELNOR_PROGRAM, pointers.data());
    _exit(127);
  }

  // Sends the signal, if any, and returns the exit status; 1000 and the signal's number for a death by
  // signal.
  int End(int signal = 0) {
    if (signal != 0) kill(child_, signal);
    int status = 0;
    for (int glance = 0; waitpid(child_, &status, WNOHANG) == 0; ++glance) {
      if (glance == 2000) {
        ADD_FAILURE() << "the program goes on and on";
        kill(child_, SIGKILL);
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    child_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
  }

  std::string Out() const { return folder_.Get("out"); }

  // Waits until the program has written that many lines.
  std::vector<std::string> Lines(std::size_t count) const {
    std::vector<std::string> lines;
    for (int glance = 0; glance < 1000; ++glance) {
      lines.clear();
      std::istringstream out(Out());
      for (std::string line; std::getline(out, line);) {
        if (!out.eof()) lines.push_back(line);
      }
      if (lines.size() >= count) return lines;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ADD_FAILURE() << count << " lines expected, there are: " << Out() << folder_.Get("err");
    return std::vector<std::string>(count);
  }

  Curled PostTo(const std::string& url, const std::string& message) const {
    const std::string answer = test::OutputOf("curl --silent --noproxy '*' --max-time 30 --data-binary '@" +
                                              folder_.Put("message", message) + "' '" + url + "'");
    return {.exit = 0, .status = 200, .header = {}, .body = answer};
  }

 private:
  pid_t child_ = 0;
};

TEST_F(GatewayCommandTest, TellsItsAddressAndLogsEachExchange) {
  Run({"gateway", "--provisional", "0", "--interval", "3"});
  const std::string first = Lines(1)[0];
  ASSERT_THAT(first, MatchesRegex("Local gateway listening on http://127.0.0.1:[0-9]+"));
  const std::string url = first.substr(first.find("http"));
  const Curled answer = PostTo(url + "/submission", Submission());
  EXPECT_THAT(answer.body, HasSubstr("<ResponseEndPoint PollInterval=\"3\">" + url + "/poll<"));
  EXPECT_EQ(PostTo(url + "/poll", Poll(answer.Text("CorrelationID"))).Kind(), "response submit");
  const std::vector<std::string> lines = Lines(3);
  EXPECT_THAT(lines[1], MatchesRegex("..:..:..  submission request -> acknowledgement [0-9A-F]{32}"));
  EXPECT_THAT(lines[2], MatchesRegex("..:..:..  poll submit -> response: accepted"));
  EXPECT_EQ(End(SIGTERM), 0);
  EXPECT_EQ(folder_.Get("err"), "");
}

TEST_F(GatewayCommandTest, WithJsonEachLineIsAnObject) {
  Run({"--json", "gateway"});
  const json first = json::parse(Lines(1)[0]);
  EXPECT_EQ(first["url"], "http://127.0.0.1:" + std::to_string(first["port"].get<int>()));
  PostTo(first["url"].get<std::string>() + "/submission", Submission());
  EXPECT_THAT(json::parse(Lines(2)[1])["exchange"].get<std::string>(), HasSubstr("-> acknowledgement"));
  EXPECT_EQ(End(SIGINT), 0);
}

TEST_F(GatewayCommandTest, ChecksAgainstTheSchemasOfTheProgramsFolder) {
  Run({"--json", "gateway"});
  const std::string url = json::parse(Lines(1)[0])["url"];
  const Curled answer =
      PostTo(url + "/submission", With(Submission(), ">XML</Transformation>", ">PDF</Transformation>"));
  EXPECT_EQ(answer.Text("Number"), "1001");
}

TEST_F(GatewayCommandTest, EndsWhileAnExchangeStalls) {
  Run({"--json", "gateway", "--scenario", folder_.Put("scenario", "stall\n")});
  BareSocket client(json::parse(Lines(1)[0])["port"].get<int>());
  client.Post(Submission());
  Lines(2);
  EXPECT_EQ(End(SIGTERM), 0);
  EXPECT_EQ(client.Read(), "");
  EXPECT_TRUE(client.Closed());
}

TEST_F(GatewayCommandTest, ChecksTheCredentialsThatItWasGiven) {
  Run({"--json", "gateway", "--user", "SAMPLE000001", "--password-file",
       folder_.Put("password", "not-a-real-password\n"), "--record", folder_.At("record")});
  const std::string url = json::parse(Lines(1)[0])["url"];
  EXPECT_EQ(PostTo(url + "/submission", Submission()).Kind(), "acknowledgement submit");
  EXPECT_EQ(PostTo(url + "/submission", With(Submission(), "not-a-real", "a-wrong")).Text("Number"), "1046");
  EXPECT_EQ(folder_.Get("record/0001-request.xml"), Submission());
  EXPECT_NE(folder_.Get("record/0002-answer.xml"), "");
}

TEST_F(GatewayCommandTest, ListensOnThePortThatItIsGiven) {
  Start();
  const std::string port = std::to_string(gateway_->port());
  Run({"gateway", "--port", port});
  EXPECT_EQ(End(), 2);
  EXPECT_THAT(folder_.Get("err"), HasSubstr("Port " + port + " can't be listened on"));
  gateway_.reset();
  Run({"gateway", "--port", port});
  EXPECT_EQ(Lines(1)[0], "Local gateway listening on http://127.0.0.1:" + port);
}

TEST_F(GatewayCommandTest, WrongUsageIsToldAndEnds) {
  Run({"gateway", "--scenario", folder_.Put("scenario", "proper\nprober\n")});
  EXPECT_EQ(End(), 2);
  EXPECT_THAT(folder_.Get("err"), HasSubstr("The scenario, line 2: \"prober\" is no action."));
  Run({"gateway", "--scenario", folder_.At("missing")});
  EXPECT_EQ(End(), 2);
  EXPECT_THAT(folder_.Get("err"), HasSubstr("--scenario: "));
  Run({"gateway", "--record", folder_.At("missing/record")});
  EXPECT_EQ(End(), 2);
  EXPECT_THAT(folder_.Get("err"), HasSubstr("can't be made"));
  Run({"gateway", "--tls", folder_.At("missing")});
  EXPECT_EQ(End(), 2);
}

}  // namespace
}  // namespace zelnor::standin
