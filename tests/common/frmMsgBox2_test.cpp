// The question dialog, as the host is asked to show it.

#include "zelnor/common/frmMsgBox2.h"

#include "support/recording_host.h"
#include <gtest/gtest.h>

using namespace zelnor;
using namespace zelnor::test;

namespace {

// A host whose dialog can't be shown.
class FailingHost : public DefaultHost {
 public:
  explicit FailingHost(String source) : source_(std::move(source)) {}
  DialogAnswer ShowDialog(const DialogRequest& /*request*/) override {
    throw RuntimeError(70, source_, "No screen");
  }

 private:
  String source_;
};

RuntimeError ErrorOfShowing(const String& source) {
  SetHost(std::make_shared<FailingHost>(source));
  RuntimeError caught(0);
  try {
    frmMsgBox2 box;
    box.ShowMessageBox("text", 0);
  } catch (const RuntimeError& error) {
    caught = error;
  }
  SetHost(nullptr);
  return caught;
}

}  // namespace

TEST(frmMsgBox2, AsksTheHostAndKeepsTheAnswer) {
  const WithRecordingHost host;
  host->answer = {9, true};
  frmMsgBox2 box;
  EXPECT_EQ(box.ShowMessageBox("Which?", 38, "A title", 1, "Again"), 9);
  ASSERT_EQ(host->dialogs.size(), 1U);
  EXPECT_EQ(host->dialogs[0].message, "Which?");
  EXPECT_EQ(host->dialogs[0].style, 38);
  EXPECT_EQ(host->dialogs[0].title, "A title");
  EXPECT_EQ(host->dialogs[0].style_ext, 1);
  EXPECT_EQ(host->dialogs[0].checkbox_text, "Again");
  EXPECT_EQ(box.Result(), 9);
  EXPECT_TRUE(box.DontShowAgain());
  EXPECT_EQ(box.Message(), "Which?");
  EXPECT_EQ(box.Title(), "A title");
  EXPECT_EQ(box.Style(), 38);
  EXPECT_EQ(box.StyleExt(), 1);
  EXPECT_EQ(box.CheckboxText(), "Again");
  EXPECT_TRUE(host->messages.empty());
}

TEST(frmMsgBox2, SplitsTheStyleIntoIconAndButtons) {
  struct Case {
    Long style, icon, buttons;
  };
  for (const Case& each : {Case{38, 32, 6}, Case{70, 64, 6}, Case{65, 64, 1}, Case{64, 48, 16},
                           Case{54, 48, 6}, Case{49, 48, 1}, Case{48, 32, 16}, Case{33, 32, 1},
                           Case{32, 16, 16}, Case{17, 16, 1}, Case{16, 16, 0}, Case{0, 16, -16}}) {
    frmMsgBox2 box;
    box.Style(each.style);
    EXPECT_EQ(box.IconPart(), each.icon) << each.style;
    EXPECT_EQ(box.ButtonPart(), each.buttons) << each.style;
    EXPECT_EQ(box.Style(), each.style);
  }
}

TEST(frmMsgBox2, LeavesWhatTheCallDoesNotGive) {
  const WithRecordingHost host;
  frmMsgBox2 box;
  box.ShowMessageBox("one", 38, "title", 1, "check");
  box.ShowMessageBox("two", -1, "", -1, "not looked at");
  ASSERT_EQ(host->dialogs.size(), 2U);
  EXPECT_EQ(host->dialogs[1].message, "two");
  EXPECT_EQ(host->dialogs[1].style, 38);
  EXPECT_EQ(box.IconPart(), 32);
  EXPECT_EQ(box.ButtonPart(), 6);
  EXPECT_EQ(host->dialogs[1].title, "title");
  EXPECT_EQ(host->dialogs[1].style_ext, 1);
  EXPECT_EQ(host->dialogs[1].checkbox_text, "check");
  box.ShowMessageBox("three", 17, "", 0, "");
  EXPECT_EQ(host->dialogs[2].style, 17);
  EXPECT_EQ(host->dialogs[2].style_ext, 0);
  EXPECT_EQ(host->dialogs[2].checkbox_text, "check");
}

TEST(frmMsgBox2, ShowsWhatItsPropertiesHold) {
  const WithRecordingHost host;
  frmMsgBox2 box;
  EXPECT_EQ(box.Result(), 0);
  EXPECT_FALSE(box.DontShowAgain());
  box.Style(54);
  box.Title("T");
  box.StyleExt(1);
  box.CheckboxText("C");
  box.Message("dropped");
  EXPECT_EQ(box.Message(), "dropped");
  EXPECT_EQ(box.ShowMessageBox("M"), 5);
  EXPECT_EQ(host->dialogs[0].message, "M");
  EXPECT_EQ(host->dialogs[0].style, 54);
  EXPECT_EQ(host->dialogs[0].title, "T");
  EXPECT_EQ(host->dialogs[0].style_ext, 1);
  EXPECT_EQ(host->dialogs[0].checkbox_text, "C");
}

TEST(frmMsgBox2, PassesErrorsOnUnderItsName) {
  const RuntimeError error = ErrorOfShowing("Screen");
  EXPECT_EQ(error.Number(), 70);
  EXPECT_EQ(error.Source(), "[ZELNOR.dll::frmMsgBox2]: ShowMessageBox");
  EXPECT_EQ(error.Description(), "No screen");
}

TEST(frmMsgBox2, LeavesASourceInBrackets) { EXPECT_EQ(ErrorOfShowing("[A]: B").Source(), "[A]: B"); }

TEST(frmMsgBox2, AnAnswerThatNoButtonHasIsCancel) {
  const WithRecordingHost host;
  frmMsgBox2 box;
  for (const Long unknown : {0, -1, 10}) {
    host->answer = {unknown, false};
    EXPECT_EQ(box.ShowMessageBox("M", 38), 2) << unknown;
    EXPECT_EQ(box.Result(), 2);
  }
}

TEST(frmMsgBox2, BeforeTheFirstStyleThereIsNone) {
  const WithRecordingHost host;
  frmMsgBox2 box;
  box.ShowMessageBox("M");
  EXPECT_EQ(host->dialogs[0].style, -1);
  EXPECT_EQ(box.IconPart(), 0);
  EXPECT_EQ(box.ButtonPart(), 0);
  box.ShowMessageBox("M", 0);
  EXPECT_EQ(host->dialogs[1].style, 0);
  EXPECT_EQ(box.IconPart(), 16);
}
