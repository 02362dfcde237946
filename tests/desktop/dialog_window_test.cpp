// The dialog in a window, on a screen in memory. The pictures are kept in the build folder.

#include <filesystem>
#include <map>
#include <memory>
#include <sstream>

#include "desktop/screen.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zelnor::test;

namespace {

struct Box {
  int x = 0, y = 0, w = 0, h = 0;
  int Right() const { return x + w; }
  int Bottom() const { return y + h; }
};

class Desktop : public testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = Screen::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing << " is missing";
    screen = std::make_unique<Screen>();
  }

  /// Where the parts of a window lie.
  std::map<std::string, Box> Layout(const std::string& arguments) const {
    std::istringstream lines(
        screen->Run("ASAN_OPTIONS=detect_leaks=0 " ZELNOR_DIALOG_SHOWER " layout " + arguments));
    std::map<std::string, Box> layout;
    std::string name;
    Box box;
    while (lines >> name >> box.x >> box.y >> box.w >> box.h) layout[name] = box;
    return layout;
  }

  /// The answer to a dialog of that style after those keys.
  std::string AnswerTo(const std::string& style, const std::string& keys) const {
    const Shown shown(*screen, style);
    shown.Press(keys);
    return shown.Line();
  }

  static std::string Picture(const std::string& name) {
    std::filesystem::create_directories(ZELNOR_PICTURES);
    return std::string(ZELNOR_PICTURES) + "/" + name;
  }

  std::unique_ptr<Screen> screen;
};

}  // namespace

TEST_F(Desktop, ConversationIsPicturedAtTwoSizesOfText) {
  for (const std::string size : {"14", "22"}) {
    Shown shown(*screen, "conversation " + size);
    shown.Press("shift+Tab");
    const std::string picture = Picture("duplicate-letter-" + size + ".png");
    std::filesystem::remove(picture);
    screen->Photograph(picture);
    EXPECT_GT(std::filesystem::file_size(picture), 5000U);
    shown.Press("space alt+c");
    EXPECT_EQ(shown.Line(), "150.00");
  }
}

TEST_F(Desktop, ConversationReplacesAndRemembers) {
  const Shown shown(*screen, "conversation");
  shown.Press("shift+Tab space alt+r");
  EXPECT_EQ(shown.Line(), "50.00");
  EXPECT_EQ(shown.Line(), "75.00") << "without another question";
}

TEST_F(Desktop, ConversationAsksAgainWithoutATick) {
  Shown shown(*screen, "conversation");
  shown.Press("alt+c");
  EXPECT_EQ(shown.Line(), "150.00");
  shown.FindWindow("ZELNOR");
  shown.Press("alt+i");
  EXPECT_EQ(shown.Line(), "150.00 75.00");
}

TEST_F(Desktop, ConversationAddsNothingWhenTheWindowIsClosed) {
  Shown shown(*screen, "conversation");
  shown.Press("Escape");
  EXPECT_EQ(shown.Line(), "100.00");
  shown.FindWindow("ZELNOR");
  shown.Close();
  EXPECT_EQ(shown.Line(), "100.00");
}

TEST_F(Desktop, EachSetHasItsAccessKeys) {
  EXPECT_EQ(AnswerTo("16", "alt+o"), "1");
  EXPECT_EQ(AnswerTo("33", "alt+c"), "2");
  EXPECT_EQ(AnswerTo("34", "alt+a"), "3");
  EXPECT_EQ(AnswerTo("34", "alt+r"), "4");
  EXPECT_EQ(AnswerTo("50", "alt+i"), "5");
  EXPECT_EQ(AnswerTo("35", "alt+y"), "6");
  EXPECT_EQ(AnswerTo("36", "n"), "7");
  EXPECT_EQ(AnswerTo("37", "alt+r"), "4");
  EXPECT_EQ(AnswerTo("70", "alt+c"), "8");
  EXPECT_EQ(AnswerTo("38", "alt+r"), "9");
}

TEST_F(Desktop, EnterPressesTheButtonWithTheFocusOrElseTheFirst) {
  EXPECT_EQ(AnswerTo("38", "Return"), "8");
  EXPECT_EQ(AnswerTo("38", "Tab Return"), "9");
  EXPECT_EQ(AnswerTo("38", "Right Right Return"), "5");
  EXPECT_EQ(AnswerTo("38", "Tab space"), "9");
  EXPECT_EQ(AnswerTo("38", "shift+Tab space Return"), "8 checked");
}

TEST_F(Desktop, EscapeCancelsAndLeavesTheTick) {
  EXPECT_EQ(AnswerTo("16", "Escape"), "2");
  EXPECT_EQ(AnswerTo("38", "shift+Tab space Escape"), "2 checked");
}

TEST_F(Desktop, TheMouseTicksAndPresses) {
  const Shown shown(*screen, "conversation 14");
  // The window is the layout's, but for its message's lines: all is counted from below.
  std::istringstream size(shown.Size());
  int width = 0;
  int height = 0;
  size >> width >> height;
  const std::map<std::string, Box> layout = Layout("14");
  const Box window = layout.at("window");
  const Box check = layout.at("check");
  const Box replace = layout.at("Replace");
  shown.Click(check.x + 10, height - (window.h - check.y) + check.h / 2);
  shown.Click(width / 2, height - (window.h - replace.y) + replace.h / 2);
  EXPECT_EQ(shown.Line(), "50.00");
  EXPECT_EQ(shown.Line(), "75.00");
}

TEST_F(Desktop, APlainMessageIsAWindowToo) {
  const Shown shown(*screen, "message", "A message");
  screen->Photograph(Picture("message.png"));
  shown.Press("Escape");
  EXPECT_EQ(shown.Line(), "1");
}

TEST_F(Desktop, EachIconIsPictured) {
  for (const std::string style : {"17", "33", "49", "65"}) {
    const Shown shown(*screen, style);
    screen->Photograph(Picture("icon-" + style + ".png"));
    shown.Press("alt+o");
    EXPECT_EQ(shown.Line(), "1");
  }
}

TEST_F(Desktop, PartsStandInTheirDistances) {
  const std::map<std::string, Box> layout = Layout("14");
  const Box message = layout.at("message");
  const Box check = layout.at("check");
  const Box combine = layout.at("Combine");
  const Box replace = layout.at("Replace");
  const Box ignore = layout.at("Ignore");
  EXPECT_EQ(check.y - message.Bottom(), 8) << "120 twips";
  EXPECT_EQ(combine.y - check.Bottom(), 8);
  EXPECT_EQ(replace.x - combine.Right(), 5) << "80 twips";
  EXPECT_EQ(ignore.x - replace.Right(), 5);
  EXPECT_EQ(combine.y, ignore.y);
  EXPECT_EQ(layout.at("window").h - combine.Bottom(), 15);
  EXPECT_LE(check.Right(), layout.at("window").w);
  EXPECT_GE(message.x, 15 + 32) << "beside the icon";
}

TEST_F(Desktop, WithoutACheckBoxTheButtonsFollowTheMessage) {
  const std::map<std::string, Box> layout = Layout("14 'One line' bare");
  EXPECT_FALSE(layout.contains("check"));
  EXPECT_EQ(layout.at("Combine").y - layout.at("message").Bottom(), 8);
}

TEST_F(Desktop, DistancesGrowWithTheText) {
  const std::map<std::string, Box> layout = Layout("28");
  EXPECT_EQ(layout.at("check").y - layout.at("message").Bottom(), 16);
  EXPECT_EQ(layout.at("Replace").x - layout.at("Combine").Right(), 10);
}

TEST_F(Desktop, ALongMessageStaysOnTheScreen) {
  std::string message;
  for (int line = 0; line < 200; ++line) message += "Line\n";
  const std::map<std::string, Box> layout = Layout("14 '" + message + "'");
  EXPECT_LE(layout.at("window").h, 768);
  EXPECT_LE(layout.at("Ignore").Bottom(), layout.at("window").h);
  const std::map<std::string, Box> wide =
      Layout("14 '" + std::string(100, 'w') + " " + std::string(100, 'w') + "'");
  EXPECT_EQ(wide.count("window"), 1U);
}

TEST(DesktopWithoutAScreen, TheDefaultAnswers) {
  const std::string command = "DISPLAY= ASAN_OPTIONS=detect_leaks=0 " ZELNOR_DIALOG_SHOWER " 38 2>/dev/null";
  EXPECT_EQ(OutputOf(command), "5");
}
