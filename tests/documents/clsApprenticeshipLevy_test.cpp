#include "zelnor/documents/clsApprenticeshipLevy.h"

#include "support/recording_host.h"
#include "support/records.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ReadInto;
using test::Root;
using test::WithRecordingHost;

String WrittenIn(clsApprenticeshipLevy& levy, const XmlNode& parent) {
  return levy.ToXML(parent, eRTISUBMISSIONTYPE::IsEPS).Xml();
}

TEST(clsApprenticeshipLevy, WritesDueAmountMonthAndAllowanceInThisOrder) {
  clsApprenticeshipLevy levy;
  levy.Create(3, Currency::FromPence(123450), Currency(15000));
  EXPECT_EQ(WrittenIn(levy, Root("<Parent/>")),
            "<ApprenticeshipLevy><LevyDueYTD>1234.50</LevyDueYTD><TaxMonth>3</TaxMonth>"
            "<AnnualAllce>15000.00</AnnualAllce></ApprenticeshipLevy>");
}

TEST(clsApprenticeshipLevy, WritesZerosWhenNew) {
  clsApprenticeshipLevy levy;
  EXPECT_EQ(WrittenIn(levy, Root("<Parent/>")),
            "<ApprenticeshipLevy><LevyDueYTD>0.00</LevyDueYTD><TaxMonth>0</TaxMonth>"
            "<AnnualAllce>0.00</AnnualAllce></ApprenticeshipLevy>");
}

TEST(clsApprenticeshipLevy, WritesTheSameInEveryKindOfDocument) {
  clsApprenticeshipLevy levy;
  levy.Create(12, 1, 2);
  const String eps = WrittenIn(levy, Root("<Parent/>"));
  for (const auto type :
       {eRTISUBMISSIONTYPE::IsUndefined, eRTISUBMISSIONTYPE::IsFPS, eRTISUBMISSIONTYPE::IsEYU}) {
    EXPECT_EQ(levy.ToXML(Root("<Parent/>"), type).Xml(), eps);
  }
}

TEST(clsApprenticeshipLevy, WritesIntoTheElementThere) {
  clsApprenticeshipLevy levy;
  levy.Create(1, 2, 3);
  const XmlNode root = Root("<P><ApprenticeshipLevy><TaxMonth>9</TaxMonth></ApprenticeshipLevy></P>");
  EXPECT_EQ(WrittenIn(levy, root),
            "<ApprenticeshipLevy><TaxMonth>1</TaxMonth><LevyDueYTD>2.00</LevyDueYTD>"
            "<AnnualAllce>3.00</AnnualAllce></ApprenticeshipLevy>");
  EXPECT_EQ(test::ChildNames(root).size(), 1U);
}

TEST(clsApprenticeshipLevy, ReadsItsElementsInAnyOrder) {
  clsApprenticeshipLevy levy;
  ASSERT_TRUE(
      ReadInto(levy,
               "<ApprenticeshipLevy><AnnualAllce>15000.00</AnnualAllce><Other/><TaxMonth>11</TaxMonth>"
               "<LevyDueYTD>-1.25</LevyDueYTD></ApprenticeshipLevy>"));
  EXPECT_EQ(levy.TaxMonth(), 11);
  EXPECT_EQ(levy.LevyDueYTD(), Currency::FromPence(-125));
  EXPECT_EQ(levy.AnnualAllowance(), Currency(15000));
}

TEST(clsApprenticeshipLevy, ReadingClearsWhatTheElementLacks) {
  clsApprenticeshipLevy levy;
  levy.Create(1, 2, 3);
  levy.Validated(true);
  ASSERT_TRUE(ReadInto(levy, "<ApprenticeshipLevy/>"));
  EXPECT_EQ(levy.TaxMonth(), 0);
  EXPECT_TRUE(levy.LevyDueYTD().IsZero());
  EXPECT_TRUE(levy.AnnualAllowance().IsZero());
  EXPECT_FALSE(levy.Validated());
}

TEST(clsApprenticeshipLevy, RefusesOtherNamesAndDeclarations) {
  clsApprenticeshipLevy levy;
  EXPECT_EQ(levy.RootElementName(), "ApprenticeshipLevy");
  EXPECT_FALSE(ReadInto(levy, "<Levy><TaxMonth>1</TaxMonth></Levy>"));
  EXPECT_EQ(levy.TaxMonth(), 0);
  const String text = "<ApprenticeshipLevy><TaxMonth>2</TaxMonth></ApprenticeshipLevy>";
  EXPECT_FALSE(levy.ParseFromXML("<?xml version=\"1.0\"?>" + text));
  EXPECT_FALSE(levy.ParseFromXML("no xml"));
  EXPECT_TRUE(levy.ParseFromXML(text));
  EXPECT_EQ(levy.TaxMonth(), 2);
}

TEST(clsApprenticeshipLevy, ReportsAMonthBeyondSixteenBits) {
  WithRecordingHost host;
  clsApprenticeshipLevy levy;
  EXPECT_FALSE(ReadInto(levy,
                        "<ApprenticeshipLevy><LevyDueYTD>5</LevyDueYTD><TaxMonth>32768</TaxMonth>"
                        "<AnnualAllce>6</AnnualAllce></ApprenticeshipLevy>"));
  EXPECT_EQ(levy.LevyDueYTD(), Currency(5));
  EXPECT_TRUE(levy.AnnualAllowance().IsZero());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsApprenticeshipLevy: Function CreateFromXML: Error 6 - Overflow");
}

TEST(clsApprenticeshipLevy, CreateClearsValidated) {
  clsApprenticeshipLevy levy;
  levy.Validated(true);
  levy.Create(1, 2, 3);
  EXPECT_FALSE(levy.Validated());
}

TEST(clsApprenticeshipLevy, ReportsAMissingParent) {
  WithRecordingHost host;
  clsApprenticeshipLevy levy;
  EXPECT_FALSE(levy.ToXML({}, eRTISUBMISSIONTYPE::IsEPS));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(
      host->messages[0].text.starts_with("Error in ZELNOR.dll::clsApprenticeshipLevy: Function ToXML: "));
}

}  // namespace
}  // namespace zelnor
