// The dialog on a terminal, with a person at the keys.

#include "zelnor/platform/terminal_host.h"

#include <csignal>
#include <future>

#include "support/scoped_environment.h"
#include "support/terminal.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zelnor;
using namespace zelnor::test;
using testing::HasSubstr;
using testing::Not;

namespace {

const char* const kRight = "\x1b[C";
const char* const kLeft = "\x1b[D";

const DialogRequest kClash{.message = "NI Letter A exists.\r\nWhat now?\r\n",
                           .style = 38,
                           .title = "ZELNOR",
                           .style_ext = 1,
                           .checkbox_text = "Do this for any further issues of this type"};

/// A question asked on a terminal of its own.
class Asked {
 public:
  explicit Asked(const DialogRequest& request, const char* kind = "xterm", unsigned short columns = 80)
      : kind_("TERM", kind), terminal(columns), host_(terminal.Program(), terminal.Program()) {
    answer_ = std::async(std::launch::async, [this, request] { return host_.ShowDialog(request); });
  }

  DialogAnswer Answer() { return answer_.get(); }
  TerminalHost& Host() { return host_; }

 private:
  ScopedEnvironment kind_;

 public:
  Terminal terminal;

 private:
  TerminalHost host_;
  std::future<DialogAnswer> answer_;
};

/// What comes of the keys, pressed when the last button is on the screen.
DialogAnswer AnswerTo(const String& keys, const DialogRequest& request = kClash) {
  Asked asked(request);
  asked.terminal.WaitFor("\x1b[K");
  if (request.style_ext == 1) asked.terminal.WaitFor("\x1b[K");
  asked.terminal.Type(keys);
  const DialogAnswer answer = asked.Answer();
  EXPECT_TRUE(asked.terminal.IsByLine());
  return answer;
}

volatile std::sig_atomic_t interrupts = 0;
void CountInterrupt(int /*signal*/) { interrupts = interrupts + 1; }

}  // namespace

TEST(TerminalDialog, ShowsAllOfTheQuestionAsPlainText) {
  Asked asked(kClash);
  const String screen = asked.terminal.WaitFor("(I)gnore");
  EXPECT_THAT(screen, HasSubstr("Question: ZELNOR\r\n\r\nNI Letter A exists.\r\nWhat now?\r\n"));
  EXPECT_THAT(screen, HasSubstr("[ ] Do this for any further issues of this type"));
  EXPECT_THAT(screen, HasSubstr("> (C)ombine <"));
  EXPECT_THAT(screen, HasSubstr("  (R)eplace"));
  EXPECT_THAT(screen, Not(HasSubstr("\x1b[3"))) << "no colours";
  asked.terminal.WaitFor("\x1b[K");
  asked.terminal.Type("i");
  asked.Answer();
  EXPECT_THAT(asked.terminal.WaitFor("Ignore\r\n"), HasSubstr("Answer: Ignore"));
  ASSERT_EQ(asked.Host().Messages().size(), 1U);
  EXPECT_EQ(asked.Host().Messages()[0].text, kClash.message);
}

TEST(TerminalDialog, NamesEachIconByAWord) {
  for (const auto& [style, word] : {std::pair{17, "Stop: T"}, std::pair{33, "Question: T"},
                                    std::pair{49, "Warning: T"}, std::pair{65, "Note: T"}}) {
    Asked asked({"M", style, "T", 0, ""});
    EXPECT_THAT(asked.terminal.WaitFor("(C)ancel"), HasSubstr(word));
    asked.terminal.WaitFor("\x1b[K");
    asked.terminal.Type("o");
    EXPECT_EQ(asked.Answer().result, 1);
  }
}

TEST(TerminalDialog, ALetterAnswersAtOnceInEitherCase) {
  EXPECT_EQ(AnswerTo("c").result, 8);
  EXPECT_EQ(AnswerTo("R").result, 9);
  EXPECT_EQ(AnswerTo("i").result, 5);
}

TEST(TerminalDialog, ArrowsMoveTheMarkAndEnterPresses) {
  EXPECT_EQ(AnswerTo("\r").result, 8);
  EXPECT_EQ(AnswerTo(String(kRight) + "\r").result, 9);
  EXPECT_EQ(AnswerTo(String(kRight) + kRight + "\n").result, 5);
  EXPECT_EQ(AnswerTo(String(kRight) + kRight + kRight + "\r").result, 8);
  EXPECT_EQ(AnswerTo(String(kLeft) + "\r").result, 5);
  EXPECT_EQ(AnswerTo("\t\r").result, 9);
  EXPECT_EQ(AnswerTo("\x1b[Z\r").result, 5);
  EXPECT_EQ(AnswerTo("\x1bOC\r").result, 9);
}

TEST(TerminalDialog, TheMarkIsSeen) {
  Asked asked(kClash);
  asked.terminal.WaitFor("> (C)ombine <");
  asked.terminal.WaitFor("\x1b[K");
  asked.terminal.Type(kRight);
  EXPECT_THAT(asked.terminal.WaitFor("> (R)eplace <"), Not(HasSubstr("> (C)ombine <")));
  asked.terminal.Type("\r");
  EXPECT_EQ(asked.Answer().result, 9);
}

TEST(TerminalDialog, TheSpaceBarTicksTheCheckBox) {
  EXPECT_FALSE(AnswerTo("r").checked);
  EXPECT_TRUE(AnswerTo(" r").checked);
  EXPECT_FALSE(AnswerTo("  r").checked);
  Asked asked(kClash);
  asked.terminal.WaitFor("[ ] Do this");
  asked.terminal.WaitFor("(I)gnore\x1b[K");
  asked.terminal.Type(" ");
  EXPECT_THAT(asked.terminal.WaitFor("[x] Do this"), HasSubstr("[x] Do this"));
  asked.terminal.Type("c");
  EXPECT_TRUE(asked.Answer().checked);
}

TEST(TerminalDialog, WithoutACheckBoxTheSpaceBarDoesNothing) {
  Asked asked({"Sure?", 36, "", 0, "not shown"});
  EXPECT_THAT(asked.terminal.WaitFor("(N)o\x1b[K"), Not(HasSubstr("not shown")));
  asked.terminal.Type(" n");
  const DialogAnswer answer = asked.Answer();
  EXPECT_EQ(answer.result, 7);
  EXPECT_FALSE(answer.checked);
}

TEST(TerminalDialog, EscapeAndCtrlDCancel) {
  EXPECT_EQ(AnswerTo("\x1b").result, 2);
  EXPECT_EQ(AnswerTo("\x04").result, 2);
  EXPECT_TRUE(AnswerTo(" \x1b").checked) << "the check box tells what it shows";
}

TEST(TerminalDialog, OtherKeysAreLeftAlone) { EXPECT_EQ(AnswerTo("q1\x1b[5~\x1b[15~\xc3\xa9r").result, 9); }

TEST(TerminalDialog, CtrlCCancelsAndInterrupts) {
  struct sigaction before {};
  struct sigaction counting {};
  counting.sa_handler = CountInterrupt;
  interrupts = 0;
  ASSERT_EQ(sigaction(SIGINT, &counting, &before), 0);
  EXPECT_EQ(AnswerTo("\x03").result, 2);
  sigaction(SIGINT, &before, nullptr);
  EXPECT_EQ(interrupts, 1);
}

TEST(TerminalDialog, APersonWhoHangsUpCancels) {
  Asked asked(kClash);
  asked.terminal.WaitFor("(I)gnore\x1b[K");
  asked.terminal.HangUp();
  EXPECT_EQ(asked.Answer().result, 2);
}

TEST(TerminalDialog, NothingInTheMessageSteersTheTerminal) {
  Asked asked(
      {"a\x1b[2Jb\x07"
       "c\xc2\x9b"
       "d\te\xc3\xa9",
       36, "t\x1b]0;x\n", 1, "k\x1b\n"});
  const String screen = asked.terminal.WaitFor("(N)o");
  EXPECT_THAT(screen, HasSubstr("a [2Jb c d e\xc3\xa9\r\n"));
  EXPECT_THAT(screen, HasSubstr("Question: t ]0;x \r\n"));
  EXPECT_THAT(screen, HasSubstr("[ ] k  "));
  asked.terminal.WaitFor("\x1b[K");
  asked.terminal.Type("y");
  EXPECT_EQ(asked.Answer().result, 6);
}

// ---- a terminal that can't move its cursor

namespace {

DialogAnswer TypedAnswer(const String& keys, const DialogRequest& request = kClash) {
  Asked asked(request, "dumb");
  asked.terminal.WaitFor("then Enter: ");
  asked.terminal.Type(keys);
  return asked.Answer();
}

}  // namespace

TEST(TypedDialog, ShowsLettersAndNoControls) {
  Asked asked(kClash, "dumb");
  const String screen = asked.terminal.WaitFor("then Enter: ");
  EXPECT_THAT(screen, HasSubstr("What now?\r\n"));
  EXPECT_THAT(screen, HasSubstr("[ ] Do this for any further issues of this type  (X)\r\n"));
  EXPECT_THAT(screen, HasSubstr("(C)ombine  (R)eplace  (I)gnore"));
  EXPECT_THAT(screen, Not(HasSubstr("\x1b")));
  asked.terminal.Type("i\n");
  EXPECT_EQ(asked.Answer().result, 5);
}

TEST(TypedDialog, ALetterAndEnterAnswer) {
  EXPECT_EQ(TypedAnswer("c\n").result, 8);
  EXPECT_EQ(TypedAnswer("Replace\n").result, 9);
  EXPECT_EQ(TypedAnswer(" i\r").result, 5);
}

TEST(TypedDialog, XTicksTheCheckBox) {
  Asked asked(kClash, "dumb");
  asked.terminal.WaitFor("then Enter: ");
  asked.terminal.Type("x\n");
  EXPECT_THAT(asked.terminal.WaitFor("then Enter: "), HasSubstr("[x] Do this"));
  asked.terminal.Type("r\n");
  const DialogAnswer answer = asked.Answer();
  EXPECT_EQ(answer.result, 9);
  EXPECT_TRUE(answer.checked);
  EXPECT_TRUE(TypedAnswer("xr\n").checked);
}

TEST(TypedDialog, AsksAgainForAnythingElse) {
  Asked asked(kClash, "dumb");
  for (const char* const keys : {"\n", "?\n", "42\n"}) {
    ASSERT_THAT(asked.terminal.WaitFor("then Enter: "), HasSubstr("(C)ombine"));
    asked.terminal.Type(keys);
  }
  ASSERT_THAT(asked.terminal.WaitFor("then Enter: "), HasSubstr("(C)ombine"));
  asked.terminal.Type("c\n");
  EXPECT_EQ(asked.Answer().result, 8);
}

TEST(TypedDialog, EndOfInputAndEscapeCancel) {
  EXPECT_EQ(TypedAnswer("\x04").result, 2);
  EXPECT_EQ(TypedAnswer("\x1b\n").result, 2);
}

TEST(TypedDialog, ServesWhereTheButtonsFindNoRoom) {
  Asked asked(kClash, "xterm", 40);
  EXPECT_THAT(asked.terminal.WaitFor("then Enter: "), HasSubstr("then Enter: "));
  asked.terminal.Type("c\n");
  EXPECT_EQ(asked.Answer().result, 8);
}

// ---- no terminal

TEST(TerminalDialog, WithoutATerminalTheDefaultAnswers) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  TerminalHost host(ends[0], ends[1]);
  testing::internal::CaptureStderr();
  EXPECT_EQ(host.ShowDialog(kClash).result, 5);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("ZELNOR: NI Letter A"));
  close(ends[0]);
  close(ends[1]);
}
