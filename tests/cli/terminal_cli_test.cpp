// What the program shows while a person looks on: the progress line of a terminal 80 columns wide.

#include "zelnor/platform/text.h"

#include <csignal>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cli/cli_fixture.h"
#include "cli/help.h"

namespace zelnor::test {
namespace {

using testing::Contains;

using testing::StartsWith;

class TerminalCliTest : public CliTest {
 protected:
  /// Runs the program at such a terminal; returns what stood on its line, one text after the other. The
  /// program is interrupted once `until` has been shown, where that isn't empty.
  std::vector<String> LinesOf(std::vector<String> arguments, const String& until = {}) const {
    winsize size{};
    size.ws_col = 80;
    size.ws_row = 24;
    int terminal = -1;
    arguments.insert(arguments.begin(), {ZELNOR_PROGRAM, "--home", folder_.At("home")});
    std::vector<char*> words;
    for (String& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
      execv(ZELNOR_PROGRAM, words.data());
      _exit(127);
    }
    String shown;
    char bytes[512];
    bool interrupted = false;
    for (ssize_t count = 0; (count = read(terminal, bytes, sizeof bytes)) > 0;) {
      shown.append(bytes, static_cast<std::size_t>(count));
      if (until.empty() || interrupted || shown.find(until) == String::npos) continue;
      interrupted = true;
      kill(child, SIGINT);
    }
    close(terminal);
    waitpid(child, nullptr, 0);
    return Split(Replace(shown, "\n", "\r"), '\r');
  }
};

TEST_F(TerminalCliTest, ThePercentageOfALongLineIsNotCutOff) {
  bool told = false;
  for (const String& line : LinesOf({"send", "--today", "2025-10-07", SamplePath()})) {
    if (line.find("please wait") == String::npos) continue;
    EXPECT_LE(line.size(), 79U) << line;
    const String text = Trim(line);
    told = told || (text.size() == 79 && text.ends_with("%"));
  }
  EXPECT_TRUE(told);
}

TEST_F(TerminalCliTest, PollTellsTheSecondsUntilTheNextPoll) {
  // A gateway of the program's own answers provisionally first.
  const String folder = folder_.At("gateway.txt");
  const String start = "'" ZELNOR_PROGRAM "' --home '" + folder_.At("gateway-home") +
                       "' gateway --interval 3 --provisional 5 >'" + folder + "' 2>&1 & echo $! >'" +
                       folder_.At("pid") + "'; for i in $(seq 500); do grep -q http '" + folder +
                       "' && break; sleep 0.02; done";
  ASSERT_EQ(std::system(start.c_str()), 0);
  const String text = folder_.Get("gateway.txt");
  const String url = text.substr(text.find("http"), text.find('\n') - text.find("http"));
  const Outcome sent = Run("send --json --no-validation --submission-url " + url + "/submission --poll-url " +
                               url + "/poll " + Quoted(SamplePath()),
                           "timeout --preserve-status -s INT 2");
  const auto told = nlohmann::json::parse(sent.out);
  ASSERT_EQ(told["result"], "Pending") << sent.err;
  const std::vector<String> lines =
      LinesOf({"poll", "--class", "HMRC-PAYE-RTI-FPS", "--correlation-id", told["correlation_id"], "--wait",
               "--submission-url", url + "/submission", "--poll-url", url + "/poll"},
              "in 1 s");
  for (const char* seconds : {"3", "2", "1"})
    EXPECT_THAT(lines,
                Contains(StartsWith("The answer isn't ready. Polling again in " + String(seconds) + " s")));
  kill(std::stoi(folder_.Get("pid")), SIGTERM);
}

}  // namespace
}  // namespace zelnor::test
