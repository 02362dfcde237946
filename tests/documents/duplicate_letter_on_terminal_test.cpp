// The question on a second NI row of one letter, answered by a person on a terminal.

#include "zelnor/platform/terminal_host.h"

#include <functional>
#include <thread>

#include "support/duplicate_letter.h"
#include "support/scoped_environment.h"
#include "support/terminal.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zelnor;
using namespace zelnor::test;
using testing::HasSubstr;

namespace {

class DuplicateLetterOnTerminal : public testing::TestWithParam<const char*> {
 protected:
  DuplicateLetterOnTerminal() {
    SetHost(std::make_shared<TerminalHost>(terminal.Program(), terminal.Program()));
  }
  ~DuplicateLetterOnTerminal() override { SetHost(nullptr); }

  /// Adds a row while a person reads the question and presses the keys. Returns what the person saw.
  String AddRow(int at_lel, const String& keys) {
    String seen;
    std::thread person([&] {
      seen = terminal.WaitFor(ready_);
      terminal.Type(keys + enter_);
      seen += terminal.WaitFor("Answer: ");
      seen += terminal.WaitFor("\r\n");
    });
    conversation.AddRow(at_lel);
    person.join();
    return seen;
  }

 private:
  const bool by_keys_ = String(GetParam()) != "dumb";
  const String enter_ = by_keys_ ? "" : "\n";
  const String ready_ = by_keys_ ? "(I)gnore\x1b[K" : "then Enter: ";
  ScopedEnvironment kind_{"TERM", GetParam()};

 protected:
  Terminal terminal;
  DuplicateLetter conversation;
  const String tick = by_keys_ ? " " : "x";
};

TEST_P(DuplicateLetterOnTerminal, ShowsTheReport) {
  const String seen = AddRow(50, "i");
  EXPECT_THAT(seen, HasSubstr("NI Letter A already exists for employee K-1 Example, Ada.\r\n\r\n"));
  EXPECT_THAT(seen, HasSubstr("At LEL              100.00        50.00         \r\n"));
  EXPECT_THAT(seen, HasSubstr("[ ] Do this for any further issues of this type"));
  EXPECT_THAT(seen, HasSubstr("Answer: Ignore\r\n"));
}

TEST_P(DuplicateLetterOnTerminal, CombineAddsUp) {
  AddRow(50, "c");
  EXPECT_EQ(conversation.Rows(), "150.00");
}

TEST_P(DuplicateLetterOnTerminal, ReplaceOverwrites) {
  AddRow(50, "r");
  EXPECT_EQ(conversation.Rows(), "50.00");
}

TEST_P(DuplicateLetterOnTerminal, IgnoreKeepsBoth) {
  AddRow(50, "i");
  EXPECT_EQ(conversation.Rows(), "100.00 50.00");
}

TEST_P(DuplicateLetterOnTerminal, EscapeAddsNothing) {
  AddRow(50, "\x1b");
  EXPECT_EQ(conversation.Rows(), "100.00");
}

TEST_P(DuplicateLetterOnTerminal, ATickedCheckBoxAnswersTheNextOnesToo) {
  AddRow(50, tick + "r");
  conversation.AddRow(75);
  conversation.AddRow(80);
  EXPECT_EQ(conversation.Rows(), "80.00");
  EXPECT_EQ(Process().RememberedIssueResponse, 9);
}

INSTANTIATE_TEST_SUITE_P(Kinds, DuplicateLetterOnTerminal, testing::Values("xterm", "dumb"),
                         [](const auto& kind) { return String(kind.param); });

}  // namespace
