#include "zelnor/documents/clsPaymentForPeriod.h"

#include "support/recording_host.h"
#include "support/records.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ChildNames;
using test::ChildText;
using test::ReadInto;
using test::Root;
using test::WithRecordingHost;
using test::Written;
using testing::ElementsAre;

struct Amount {
  const char* element;
  Currency (clsPaymentForPeriod::*get)() const;
  void (clsPaymentForPeriod::*set)(Currency);
};

// In the order in which they are written.
const Amount kAmounts[] = {
    {"SMPRecovered", &clsPaymentForPeriod::SMPRecovered, &clsPaymentForPeriod::SMPRecovered},
    {"SPPRecovered", &clsPaymentForPeriod::OSPPRecovered, &clsPaymentForPeriod::OSPPRecovered},
    {"SAPRecovered", &clsPaymentForPeriod::SAPRecovered, &clsPaymentForPeriod::SAPRecovered},
    {"ShPPRecovered", &clsPaymentForPeriod::ASPPRecovered, &clsPaymentForPeriod::ASPPRecovered},
    {"SPBPRecovered", &clsPaymentForPeriod::SPBPRecovered, &clsPaymentForPeriod::SPBPRecovered},
    {"SNCPRecovered", &clsPaymentForPeriod::SNCPRecovered, &clsPaymentForPeriod::SNCPRecovered},
    {"NICCompensationOnSMP", &clsPaymentForPeriod::NICCompensationOnSMP,
     &clsPaymentForPeriod::NICCompensationOnSMP},
    {"NICCompensationOnSPP", &clsPaymentForPeriod::NICCompensationOnOSPP,
     &clsPaymentForPeriod::NICCompensationOnOSPP},
    {"NICCompensationOnSAP", &clsPaymentForPeriod::NICCompensationOnSAP,
     &clsPaymentForPeriod::NICCompensationOnSAP},
    {"NICCompensationOnShPP", &clsPaymentForPeriod::NICCompensationOnASPP,
     &clsPaymentForPeriod::NICCompensationOnASPP},
    {"NICCompensationOnSPBP", &clsPaymentForPeriod::NICCompensationOnSPBP,
     &clsPaymentForPeriod::NICCompensationOnSPBP},
    {"NICCompensationOnSNCP", &clsPaymentForPeriod::NICCompensationOnSNCP,
     &clsPaymentForPeriod::NICCompensationOnSNCP},
    {"CISDeductionsSuffered", &clsPaymentForPeriod::CISDeductionsSuffered,
     &clsPaymentForPeriod::CISDeductionsSuffered}};

TEST(clsPaymentForPeriod, WritesAllAmountsInOrderEvenWhenZero) {
  clsPaymentForPeriod amounts;
  const XmlNode written = amounts.ToXML(Root("<Parent/>"));
  EXPECT_EQ(written.NodeName(), "RecoverableAmountsYTD");
  EXPECT_THAT(ChildNames(written),
              ElementsAre("SMPRecovered", "SPPRecovered", "SAPRecovered", "ShPPRecovered", "SPBPRecovered",
                          "SNCPRecovered", "NICCompensationOnSMP", "NICCompensationOnSPP",
                          "NICCompensationOnSAP", "NICCompensationOnShPP", "NICCompensationOnSPBP",
                          "NICCompensationOnSNCP", "CISDeductionsSuffered"));
  for (const XmlNode& child : written.ChildNodes()) EXPECT_EQ(child.Text(), "0.00") << child.BaseName();
}

TEST(clsPaymentForPeriod, WritesAndReadsEachAmountInItsOwnElement) {
  for (const Amount& amount : kAmounts) {
    clsPaymentForPeriod record;
    (record.*amount.set)(Currency::FromPence(123456));
    const XmlNode written = record.ToXML(Root("<Parent/>"));
    for (const Amount& other : kAmounts) {
      EXPECT_EQ(ChildText(written, other.element), other.element == amount.element ? "1234.56" : "0.00")
          << amount.element << " " << other.element;
    }
    clsPaymentForPeriod read;
    ASSERT_TRUE(read.CreateFromXML(written));
    for (const Amount& other : kAmounts) {
      EXPECT_EQ((read.*other.get)(),
                other.element == amount.element ? Currency::FromPence(123456) : Currency())
          << amount.element << " " << other.element;
    }
  }
}

TEST(clsPaymentForPeriod, WritesNegativeAmounts) {
  clsPaymentForPeriod amounts;
  amounts.SMPRecovered(Currency::FromPence(-5));
  EXPECT_EQ(ChildText(amounts.ToXML(Root("<Parent/>")), "SMPRecovered"), "-0.05");
}

TEST(clsPaymentForPeriod, WritesTheTaxMonthFirst) {
  clsPaymentForPeriod amounts;
  amounts.TaxMonth("12");
  const XmlNode written = amounts.ToXML(Root("<Parent/>"));
  EXPECT_EQ(written.FirstChild().BaseName(), "TaxMonth");
  EXPECT_EQ(ChildText(written, "TaxMonth"), "12");
}

TEST(clsPaymentForPeriod, RemovesAnEmptyTaxMonthFromTheElementThere) {
  const XmlNode root = Root(
      "<P><RecoverableAmountsYTD><TaxMonth>1</TaxMonth><SMPRecovered>9.99</SMPRecovered>"
      "</RecoverableAmountsYTD></P>");
  clsPaymentForPeriod amounts;
  const XmlNode written = amounts.ToXML(root);
  EXPECT_EQ(ChildText(written, "TaxMonth"), "(absent)");
  EXPECT_EQ(ChildText(written, "SMPRecovered"), "0.00");
  EXPECT_THAT(ChildNames(root), ElementsAre("RecoverableAmountsYTD"));
}

TEST(clsPaymentForPeriod, ReadsInAnyOrderWithPrefixesAndUnknownNames) {
  clsPaymentForPeriod amounts;
  ASSERT_TRUE(
      ReadInto(amounts,
               "<RecoverableAmountsYTD xmlns:p='urn:p'><p:CISDeductionsSuffered>7</p:CISDeductionsSuffered>"
               "<Other>x</Other><TaxMonth> 4 </TaxMonth><SPPRecovered>1,000.5</SPPRecovered>"
               "</RecoverableAmountsYTD>"));
  EXPECT_EQ(amounts.CISDeductionsSuffered(), Currency(7));
  EXPECT_EQ(amounts.TaxMonth(), "4");
  EXPECT_EQ(amounts.OSPPRecovered(), Currency::FromPence(100050));
}

TEST(clsPaymentForPeriod, ReadingClearsWhatTheElementLacks) {
  clsPaymentForPeriod amounts;
  amounts.TaxMonth("5");
  for (const Amount& amount : kAmounts) (amounts.*amount.set)(Currency(1));
  ASSERT_TRUE(ReadInto(amounts, "<RecoverableAmountsYTD/>"));
  EXPECT_EQ(amounts.TaxMonth(), "");
  for (const Amount& amount : kAmounts) EXPECT_TRUE((amounts.*amount.get)().IsZero()) << amount.element;
}

TEST(clsPaymentForPeriod, RefusesANodeOfAnotherName) {
  clsPaymentForPeriod amounts;
  EXPECT_FALSE(ReadInto(amounts, "<RecoverableAmountsYtd><TaxMonth>4</TaxMonth></RecoverableAmountsYtd>"));
  EXPECT_EQ(amounts.TaxMonth(), "");
}

TEST(clsPaymentForPeriod, ParsesTextWithoutADeclarationOnly) {
  clsPaymentForPeriod amounts;
  const String text = "<RecoverableAmountsYTD><TaxMonth>4</TaxMonth></RecoverableAmountsYTD>";
  EXPECT_TRUE(amounts.ParseFromXML(text));
  EXPECT_EQ(amounts.TaxMonth(), "4");
  WithRecordingHost host;
  EXPECT_FALSE(amounts.ParseFromXML("<?xml version=\"1.0\"?>" + text));
  EXPECT_FALSE(amounts.ParseFromXML("<RecoverableAmountsYTD>"));
  EXPECT_FALSE(amounts.ParseFromXML(""));
  EXPECT_EQ(amounts.TaxMonth(), "4");
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsPaymentForPeriod, ReportsAnAmountThatIsNoNumber) {
  WithRecordingHost host;
  clsPaymentForPeriod amounts;
  EXPECT_FALSE(
      ReadInto(amounts,
               "<RecoverableAmountsYTD><SMPRecovered>1.00</SMPRecovered><SAPRecovered>x</SAPRecovered>"
               "<CISDeductionsSuffered>2</CISDeductionsSuffered></RecoverableAmountsYTD>"));
  EXPECT_EQ(amounts.SMPRecovered(), Currency(1));
  EXPECT_TRUE(amounts.CISDeductionsSuffered().IsZero());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsPaymentForPeriod: Function CreateFromXML: Error 13 - Type mismatch");
}

TEST(clsPaymentForPeriod, CreateStoresItsArgumentsInTheirFields) {
  clsPaymentForPeriod amounts;
  amounts.Validated(true);
  amounts.Create(1, 2, 3, 4, 5, 6, 7, 8, 9, "10");
  EXPECT_EQ(amounts.SMPRecovered(), Currency(1));
  EXPECT_EQ(amounts.OSPPRecovered(), Currency(2));
  EXPECT_EQ(amounts.SAPRecovered(), Currency(3));
  EXPECT_EQ(amounts.ASPPRecovered(), Currency(4));
  EXPECT_EQ(amounts.NICCompensationOnSMP(), Currency(5));
  EXPECT_EQ(amounts.NICCompensationOnOSPP(), Currency(6));
  EXPECT_EQ(amounts.NICCompensationOnSAP(), Currency(7));
  EXPECT_EQ(amounts.NICCompensationOnASPP(), Currency(8));
  EXPECT_EQ(amounts.CISDeductionsSuffered(), Currency(9));
  EXPECT_EQ(amounts.TaxMonth(), "10");
  EXPECT_FALSE(amounts.Validated());
  amounts.Create(1, 2, 3, 4, 5, 6, 7, 8, 9);
  EXPECT_EQ(amounts.TaxMonth(), "");
}

TEST(clsPaymentForPeriod, HasPaymentsWhenTheSumIsNotZero) {
  EXPECT_FALSE(clsPaymentForPeriod().HasPayments());
  for (const Amount& amount : kAmounts) {
    clsPaymentForPeriod record;
    (record.*amount.set)(Currency::FromUnits(1));
    EXPECT_TRUE(record.HasPayments()) << amount.element;
  }
  clsPaymentForPeriod cancelled;
  cancelled.SMPRecovered(5);
  cancelled.CISDeductionsSuffered(-5);
  EXPECT_FALSE(cancelled.HasPayments());
}

TEST(clsPaymentForPeriod, AChangeClearsValidatedAndAnEqualValueDoesNot) {
  clsPaymentForPeriod record;
  for (const Amount& amount : kAmounts) {
    (record.*amount.set)(Currency(3));
    record.Validated(true);
    (record.*amount.set)(Currency(3));
    EXPECT_TRUE(record.Validated()) << amount.element;
    (record.*amount.set)(Currency(4));
    EXPECT_FALSE(record.Validated()) << amount.element;
  }
  record.Validated(true);
  record.TaxMonth("");
  EXPECT_TRUE(record.Validated());
  record.TaxMonth("1");
  EXPECT_FALSE(record.Validated());
  record.Validated(true);
  EXPECT_TRUE(ReadInto(record, "<RecoverableAmountsYTD/>"));
  EXPECT_FALSE(record.Validated());
}

TEST(clsPaymentForPeriod, ReadingAgainWhatWasReadAndWrittenChangesNothing) {
  clsPaymentForPeriod first;
  first.Create(1, 2, 3, 4, 5, 6, 7, 8, 9, "10");
  const String once = Written(first);
  clsPaymentForPeriod second;
  ASSERT_TRUE(ReadInto(second, once));
  EXPECT_EQ(Written(second), once);
  EXPECT_EQ(second.RootElementName(), "RecoverableAmountsYTD");
}

TEST(clsPaymentForPeriod, AnyTextOfTheTaxMonthComesBack) {
  for (const String& text : test::TextsThatComeBack()) {
    clsPaymentForPeriod first;
    first.TaxMonth(text);
    clsPaymentForPeriod second;
    ASSERT_TRUE(ReadInto(second, Written(first)));
    EXPECT_EQ(second.TaxMonth(), text);
  }
}

}  // namespace
}  // namespace zelnor
