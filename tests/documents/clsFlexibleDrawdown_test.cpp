#include "zelnor/documents/clsFlexibleDrawdown.h"

#include "support/recording_host.h"
#include "support/records.h"

namespace zelnor {
namespace {

using test::Read;
using test::WithRecordingHost;
using test::Written;

const String kAmounts = "<TaxablePayment>75.50</TaxablePayment><NontaxablePayment>-25.00</NontaxablePayment>";

// A drawdown of 75.50 and -25.00, with the kinds set whose letter is given, a to e in their order.
clsFlexibleDrawdown Of(std::string_view kinds) {
  const auto set = [&](char kind) { return kinds.find(kind) != std::string_view::npos; };
  clsFlexibleDrawdown record;
  record.Create(set('a'), set('b'), Currency::FromPence(7550), Currency(-25), set('c'), set('d'), set('e'));
  return record;
}

String WrittenOf(std::string_view kinds) {
  clsFlexibleDrawdown record = Of(kinds);
  return Written(record);
}

String WithKind(const String& kind) {
  return "<FlexibleDrawdown><" + kind + ">yes</" + kind + ">" + kAmounts + "</FlexibleDrawdown>";
}

TEST(clsFlexibleDrawdown, CreateStoresItsArguments) {
  clsFlexibleDrawdown record;
  record.Validated(true);
  record.Create(true, false, 1, 2, true, false, true);
  EXPECT_TRUE(record.FlexibleAccessingPensionRights());
  EXPECT_FALSE(record.PensionDeathBenefit());
  EXPECT_EQ(record.TaxablePayment(), Currency(1));
  EXPECT_EQ(record.NonTaxablePayment(), Currency(2));
  EXPECT_TRUE(record.SeriousIllHealthLumpSum());
  EXPECT_FALSE(record.PensionCommencementExcessLumpSum());
  EXPECT_TRUE(record.StandAloneLumpSum());
  EXPECT_FALSE(record.Validated());
  record.Create(false, true, 1, 2, false, true, false);
  EXPECT_TRUE(record.PensionDeathBenefit());
  EXPECT_TRUE(record.PensionCommencementExcessLumpSum());
}

TEST(clsFlexibleDrawdown, WritesEachKind) {
  EXPECT_EQ(WrittenOf("a"), WithKind("FlexiblyAccessingPensionRights"));
  EXPECT_EQ(WrittenOf("b"), WithKind("PensionDeathBenefit"));
  EXPECT_EQ(WrittenOf("c"), WithKind("SeriousIllHealthLumpSum"));
  EXPECT_EQ(WrittenOf("d"), WithKind("PensionCommencementExcessLumpSum"));
  EXPECT_EQ(WrittenOf("e"), WithKind("StandAloneLumpSum"));
}

TEST(clsFlexibleDrawdown, WritesOnlyTheFirstOfSeveralKinds) {
  EXPECT_EQ(WrittenOf("abcde"), WithKind("FlexiblyAccessingPensionRights"));
  EXPECT_EQ(WrittenOf("bcde"), WithKind("PensionDeathBenefit"));
  EXPECT_EQ(WrittenOf("cde"), WithKind("SeriousIllHealthLumpSum"));
  EXPECT_EQ(WrittenOf("de"), WithKind("PensionCommencementExcessLumpSum"));
}

TEST(clsFlexibleDrawdown, IsEmptyWithoutKind) {
  EXPECT_EQ(WrittenOf(""), "<FlexibleDrawdown></FlexibleDrawdown>");
}

TEST(clsFlexibleDrawdown, WritesZeroAmounts) {
  clsFlexibleDrawdown record;
  record.StandAloneLumpSum(true);
  EXPECT_EQ(
      Written(record),
      "<FlexibleDrawdown><StandAloneLumpSum>yes</StandAloneLumpSum><TaxablePayment>0.00</TaxablePayment>"
      "<NontaxablePayment>0.00</NontaxablePayment></FlexibleDrawdown>");
}

TEST(clsFlexibleDrawdown, ReplacesTheKindThatIsThere) {
  clsFlexibleDrawdown record = Of("b");
  const XmlNode parent = test::Root("<P>" + WithKind("StandAloneLumpSum") + "</P>");
  record.ToXML(parent);
  record.ToXML(parent);
  const XmlNode element = parent.FirstChild();
  EXPECT_FALSE(element.NextSibling());
  EXPECT_FALSE(element.FindChild("StandAloneLumpSum"));
  EXPECT_EQ(element.SelectNodes("PensionDeathBenefit").size(), 1U);
  EXPECT_EQ(element.SelectNodes("*").size(), 3U);
}

TEST(clsFlexibleDrawdown, ReadsWhatItWrites) {
  for (const std::string_view kind : {"a", "b", "c", "d", "e"}) {
    const auto again = Read<clsFlexibleDrawdown>(WrittenOf(kind));
    EXPECT_EQ(again->FlexibleAccessingPensionRights(), kind == "a");
    EXPECT_EQ(again->PensionDeathBenefit(), kind == "b");
    EXPECT_EQ(again->SeriousIllHealthLumpSum(), kind == "c");
    EXPECT_EQ(again->PensionCommencementExcessLumpSum(), kind == "d");
    EXPECT_EQ(again->StandAloneLumpSum(), kind == "e");
    EXPECT_EQ(again->TaxablePayment(), Currency::FromPence(7550));
    EXPECT_EQ(again->NonTaxablePayment(), Currency(-25));
  }
}

TEST(clsFlexibleDrawdown, ReadsAKindByItsPresence) {
  EXPECT_TRUE(Read<clsFlexibleDrawdown>("<FlexibleDrawdown><StandAloneLumpSum>no</StandAloneLumpSum>"
                                        "</FlexibleDrawdown>")
                  ->StandAloneLumpSum());
}

TEST(clsFlexibleDrawdown, ReadingClearsTheRecord) {
  clsFlexibleDrawdown record = Of("abcde");
  record.Validated(true);
  ASSERT_TRUE(record.ParseFromXML("<FlexibleDrawdown/>"));
  EXPECT_FALSE(record.Validated());
  EXPECT_FALSE(record.FlexibleAccessingPensionRights());
  EXPECT_FALSE(record.PensionDeathBenefit());
  EXPECT_FALSE(record.SeriousIllHealthLumpSum());
  EXPECT_FALSE(record.PensionCommencementExcessLumpSum());
  EXPECT_FALSE(record.StandAloneLumpSum());
  EXPECT_TRUE(record.TaxablePayment().IsZero());
  EXPECT_TRUE(record.NonTaxablePayment().IsZero());
}

TEST(clsFlexibleDrawdown, RefusesAnotherName) {
  clsFlexibleDrawdown record;
  EXPECT_EQ(record.RootElementName(), "FlexibleDrawdown");
  EXPECT_FALSE(record.ParseFromXML("<Flexibledrawdown/>"));
  EXPECT_FALSE(record.CreateFromXML(test::Root("<Drawdown/>")));
}

TEST(clsFlexibleDrawdown, AnAmountThatIsNoNumberEndsTheReading) {
  WithRecordingHost host;
  clsFlexibleDrawdown record;
  EXPECT_FALSE(
      record.ParseFromXML("<FlexibleDrawdown><TaxablePayment>much</TaxablePayment>"
                          "</FlexibleDrawdown>"));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(host->messages[0].text.starts_with(
      "Error in ZELNOR.dll::clsFlexibleDrawdown: Function CreateFromXML: Error 13 - "));
}

TEST(clsFlexibleDrawdown, ChangesClearValidated) {
  using T = clsFlexibleDrawdown;
  test::ExpectChangeClearsValidated<T, bool, bool>(&T::SeriousIllHealthLumpSum, &T::SeriousIllHealthLumpSum,
                                                   true, false);
  test::ExpectChangeClearsValidated<T, bool, bool>(&T::PensionCommencementExcessLumpSum,
                                                   &T::PensionCommencementExcessLumpSum, true, false);
  test::ExpectChangeClearsValidated<T, bool, bool>(&T::StandAloneLumpSum, &T::StandAloneLumpSum, true, false);
  test::ExpectChangeClearsValidated<T, Currency, Currency>(&T::TaxablePayment, &T::TaxablePayment, 1, 2);
  test::ExpectChangeClearsValidated<T, Currency, Currency>(&T::NonTaxablePayment, &T::NonTaxablePayment, 1,
                                                           2);
}

}  // namespace
}  // namespace zelnor
