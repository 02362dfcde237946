// What the dialog shows for a style, and what its buttons answer.

#include "zelnor/platform/dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zelnor;
using testing::ElementsAre;

TEST(Dialog, Style38IsTheQuestionWithCombineReplaceIgnore) {
  EXPECT_EQ(DialogIconPart(38), kDialogQuestion);
  EXPECT_EQ(DialogButtonPart(38), 6);
  EXPECT_THAT(DialogCaptions(6), ElementsAre("&Combine", "&Replace", "&Ignore"));
}

TEST(Dialog, TheIconChangesOneAboveItsNumber) {
  EXPECT_EQ(DialogIconPart(0), kDialogHand);
  EXPECT_EQ(DialogIconPart(32), kDialogHand);
  EXPECT_EQ(DialogIconPart(33), kDialogQuestion);
  EXPECT_EQ(DialogIconPart(48), kDialogQuestion);
  EXPECT_EQ(DialogIconPart(49), kDialogExclamation);
  EXPECT_EQ(DialogIconPart(64), kDialogExclamation);
  EXPECT_EQ(DialogIconPart(65), kDialogAsterisk);
  EXPECT_EQ(DialogIconPart(200), kDialogAsterisk);
}

TEST(Dialog, NoStyleHasTheAsteriskAndOk) {
  EXPECT_EQ(DialogIconPart(-1), kDialogAsterisk);
  EXPECT_EQ(DialogButtonPart(-1), 0);
}

TEST(Dialog, EachSetOfButtonsHasItsCaptions) {
  EXPECT_THAT(DialogCaptions(0), ElementsAre("&Ok"));
  EXPECT_THAT(DialogCaptions(1), ElementsAre("&Ok", "&Cancel"));
  EXPECT_THAT(DialogCaptions(2), ElementsAre("&Abort", "&Retry", "&Ignore"));
  EXPECT_THAT(DialogCaptions(3), ElementsAre("&Yes", "&No", "&Cancel"));
  EXPECT_THAT(DialogCaptions(4), ElementsAre("&Yes", "&No"));
  EXPECT_THAT(DialogCaptions(5), ElementsAre("&Retry", "&Cancel"));
  for (const Long unknown : {-16, -1, 7, 16, 1000}) EXPECT_THAT(DialogCaptions(unknown), ElementsAre("&Ok"));
}

TEST(Dialog, ACaptionGivesItsResult) {
  const char* const captions[] = {"&Ok",  "&Cancel", "&Abort",   "&Retry",  "&Ignore",
                                  "&Yes", "&No",     "&Combine", "&Replace"};
  Long result = 0;
  for (const char* const caption : captions) EXPECT_EQ(DialogResult(caption), ++result) << caption;
  EXPECT_EQ(DialogResult("rEpl&ace"), 9);
  EXPECT_EQ(DialogResult("Help"), kDialogCancelled);
  EXPECT_EQ(DialogResult(""), kDialogCancelled);
}
