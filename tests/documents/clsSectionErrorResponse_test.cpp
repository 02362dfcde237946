#include "zelnor/documents/clsSectionErrorResponse.h"

#include "zelnor/envelope/clsGTMGovTalkError.h"

#include "support/recording_host.h"
#include "support/records.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ReadInto;
using test::Root;
using test::WithRecordingHost;
using test::Written;

Ref<clsGTMGovTalkError> NewError(Integer number) {
  auto error = std::make_shared<clsGTMGovTalkError>();
  error->Create("Department", "business", number, "Text", "Here");
  return error;
}

String Numbers(clsSectionErrorResponse& section) {
  String result;
  for (const Ref<clsGTMGovTalkError>& error : *section.Errors())
    result += std::to_string(error->Number()) + " ";
  return result;
}

TEST(clsSectionErrorResponse, ReadsErrorsBelowTheRootAndBelowApplications) {
  clsSectionErrorResponse section;
  ASSERT_TRUE(ReadInto(section,
                       "<ErrorResponse xmlns='urn:e' SchemaVersion='2.0'><Error><Number>1</Number></Error>"
                       "<Application><MessageCount>2</MessageCount><Error><Number>2</Number></Error>"
                       "<Error><Number>3</Number></Error></Application><Error><Number>4</Number></Error>"
                       "</ErrorResponse>"));
  EXPECT_EQ(Numbers(section), "1 2 3 4 ");
}

TEST(clsSectionErrorResponse, ReadsTheFieldsOfAnError) {
  clsSectionErrorResponse section;
  ASSERT_TRUE(
      ReadInto(section,
               "<ErrorResponse><Error><RaisedBy>Dept</RaisedBy><Number>7900</Number><Type>business</Type>"
               "<Text>Wrong</Text><Location>/A</Location></Error></ErrorResponse>"));
  const Ref<clsGTMGovTalkError> error = section.GetError(1);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->RaisedBy(), "Dept");
  EXPECT_EQ(error->Number(), 7900);
  EXPECT_EQ(error->ErrorType(), "business");
  EXPECT_EQ(error->Text(), "Wrong");
  EXPECT_EQ(error->Location(), "/A");
}

TEST(clsSectionErrorResponse, LeavesErrorsFurtherDownAlone) {
  clsSectionErrorResponse section;
  ASSERT_TRUE(
      ReadInto(section,
               "<ErrorResponse><Other><Error/></Other><Application><Inner><Error/></Inner></Application>"
               "</ErrorResponse>"));
  EXPECT_EQ(section.ErrorCount(), 0);
}

TEST(clsSectionErrorResponse, ReadingDropsTheErrorsHeldBefore) {
  clsSectionErrorResponse section;
  section.AddError(NewError(1));
  ASSERT_TRUE(ReadInto(section, "<ErrorResponse><Error><Number>2</Number></Error></ErrorResponse>"));
  EXPECT_EQ(Numbers(section), "2 ");
  EXPECT_FALSE(ReadInto(section, "<Errors><Error><Number>3</Number></Error></Errors>"));
  EXPECT_EQ(section.ErrorCount(), 0);
}

TEST(clsSectionErrorResponse, ParsesTextWithADeclarationToo) {
  clsSectionErrorResponse section;
  const String text = "<ErrorResponse><Error><Number>5</Number></Error></ErrorResponse>";
  EXPECT_TRUE(section.ParseFromXML("<?xml version=\"1.0\"?>" + text));
  EXPECT_TRUE(section.ParseFromXML(text));
  EXPECT_FALSE(section.ParseFromXML("<ErrorResponse>"));
  EXPECT_FALSE(section.ParseFromXML("<Other/>"));
  EXPECT_EQ(Numbers(section), "5 ");
}

TEST(clsSectionErrorResponse, GivesErrorsByPositionBetweenItsBounds) {
  WithRecordingHost host;
  clsSectionErrorResponse section;
  EXPECT_EQ(section.Errors_MinIndex(), 1);
  EXPECT_EQ(section.Errors_MaxIndex(), 0);
  section.AddError(NewError(10));
  section.AddError(NewError(20));
  EXPECT_EQ(section.Errors_MinIndex(), 1);
  EXPECT_EQ(section.Errors_MaxIndex(), 2);
  EXPECT_EQ(section.ErrorCount(), 2);
  EXPECT_EQ(section.GetError(1)->Number(), 10);
  EXPECT_EQ(section.GetError(2)->Number(), 20);
  EXPECT_TRUE(host->messages.empty());
  EXPECT_FALSE(section.GetError(0));
  EXPECT_FALSE(section.GetError(3));
  ASSERT_EQ(host->messages.size(), 2U);
  EXPECT_EQ(
      host->messages[0].text,
      "Error in ZELNOR.dll::clsSectionErrorResponse: Function GetError: Error 9 - Subscript out of range");
}

TEST(clsSectionErrorResponse, AddsRangesInOrderItsOwnAmongThem) {
  WithRecordingHost host;
  clsSectionErrorResponse section;
  const auto range = MakeCollection<clsGTMGovTalkError>();
  range->Add(NewError(1));
  range->Add(NewError(2));
  range->Item(1)->Validated(true);
  section.AddErrorRange(range);
  EXPECT_EQ(Numbers(section), "1 2 ");
  EXPECT_FALSE(range->Item(1)->Validated());
  section.AddErrorRange(section.Errors());
  EXPECT_EQ(Numbers(section), "1 2 1 2 ");
  section.AddErrorRange(nullptr);
  section.AddError(nullptr);
  ASSERT_EQ(host->messages.size(), 2U);
  EXPECT_TRUE(host->messages[0].text.starts_with(
      "Error in ZELNOR.dll::clsSectionErrorResponse: Sub AddErrorRange: Error 91 - "));
  EXPECT_TRUE(host->messages[1].text.starts_with(
      "Error in ZELNOR.dll::clsSectionErrorResponse: Sub AddError: Error 91 - "));
  section.Create();
  EXPECT_EQ(section.ErrorCount(), 0);
}

TEST(clsSectionErrorResponse, WritesItsErrorsInOrderInTheFormThatItReads) {
  clsSectionErrorResponse section;
  section.AddError(NewError(1));
  section.AddError(NewError(2));
  const String text = Written(section);
  EXPECT_EQ(text,
            "<ErrorResponse><Error><RaisedBy>Department</RaisedBy><Number>1</Number><Type>business</Type>"
            "<Text>Text</Text><Location>Here</Location></Error><Error><RaisedBy>Department</RaisedBy>"
            "<Number>2</Number><Type>business</Type><Text>Text</Text><Location>Here</Location></Error>"
            "</ErrorResponse>");
  clsSectionErrorResponse again;
  ASSERT_TRUE(ReadInto(again, text));
  EXPECT_EQ(Written(again), text);
}

TEST(clsSectionErrorResponse, ReplacesTheErrorsOfTheElementThere) {
  const XmlNode root = Root(
      "<P><ErrorResponse><Application><Error><Number>9</Number></Error></Application><Error/></"
      "ErrorResponse></P>");
  clsSectionErrorResponse section;
  EXPECT_EQ(section.ToXML(root).Xml(), "<ErrorResponse></ErrorResponse>");
}

TEST(clsSectionErrorResponse, IsValidatedWithAllItsErrors) {
  clsSectionErrorResponse section;
  EXPECT_FALSE(section.Validated());
  section.Validated(true);
  EXPECT_TRUE(section.Validated());
  section.AddError(NewError(1));
  EXPECT_FALSE(section.Validated());
  section.GetError(1)->Validated(true);
  EXPECT_TRUE(section.Validated());
  ASSERT_TRUE(ReadInto(section, "<ErrorResponse/>"));
  EXPECT_FALSE(section.Validated());
}

TEST(clsSectionErrorResponse, HasItsConstants) {
  EXPECT_EQ(clsSectionErrorResponse().RootElementName(), "ErrorResponse");
  EXPECT_EQ(clsSectionErrorResponse().Class(), "ERROR");
}

}  // namespace
}  // namespace zelnor
