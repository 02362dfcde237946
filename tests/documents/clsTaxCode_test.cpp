#include "zelnor/documents/clsTaxCode.h"

#include "support/recording_host.h"
#include "support/records.h"

namespace zelnor {
namespace {

using test::Read;
using test::WithRecordingHost;
using test::Written;

String WrittenCode(const String& code) {
  clsTaxCode record;
  record.TaxCode(code);
  return Written(record);
}

TEST(clsTaxCode, IsEmptyWhenNew) {
  clsTaxCode record;
  EXPECT_EQ(record.RootElementName(), "TaxCode");
  EXPECT_EQ(record.TaxCode(), "");
  EXPECT_EQ(record.SVR(), "");
  EXPECT_FALSE(record.BasisNonCumulative());
  EXPECT_FALSE(record.IsScottishTaxRegime());
  EXPECT_FALSE(record.IsWelshTaxRegime());
  EXPECT_FALSE(record.Validated());
  EXPECT_EQ(Written(record), "<TaxCode></TaxCode>");
}

TEST(clsTaxCode, CreateStoresItsArguments) {
  clsTaxCode record;
  record.Validated(true);
  record.Create("S1257L", true, "svr");
  EXPECT_EQ(record.TaxCode(), "S1257L");
  EXPECT_TRUE(record.BasisNonCumulative());
  EXPECT_EQ(record.SVR(), "svr");
  EXPECT_TRUE(record.IsScottishTaxRegime());
  EXPECT_FALSE(record.Validated());
  record.Validated(true);
  record.Create("S1257L");
  EXPECT_FALSE(record.BasisNonCumulative());
  EXPECT_EQ(record.SVR(), "");
  EXPECT_FALSE(record.Validated());
}

TEST(clsTaxCode, StoresNIAsNT) {
  for (const String code : {"NI", "ni", "Ni", "nI"}) {
    clsTaxCode written;
    written.TaxCode(code);
    EXPECT_EQ(written.TaxCode(), "NT") << code;
    clsTaxCode created;
    created.Create(code);
    EXPECT_EQ(created.TaxCode(), "NT") << code;
    EXPECT_EQ(Read<clsTaxCode>("<TaxCode>" + code + "</TaxCode>")->TaxCode(), "NT") << code;
  }
  EXPECT_EQ(WrittenCode("NIX"), "<TaxCode>NIX</TaxCode>");
}

TEST(clsTaxCode, FirstLetterTellsTheRegime) {
  EXPECT_EQ(WrittenCode("1257L"), "<TaxCode>1257L</TaxCode>");
  EXPECT_EQ(WrittenCode("S1257L"), "<TaxCode TaxRegime=\"S\">S1257L</TaxCode>");
  EXPECT_EQ(WrittenCode("C1257L"), "<TaxCode TaxRegime=\"C\">C1257L</TaxCode>");
}

TEST(clsTaxCode, AnotherCodeChangesTheRegime) {
  clsTaxCode record;
  record.TaxCode("SBR");
  record.TaxCode("CBR");
  EXPECT_FALSE(record.IsScottishTaxRegime());
  EXPECT_TRUE(record.IsWelshTaxRegime());
  record.Create("BR");
  EXPECT_FALSE(record.IsScottishTaxRegime());
  EXPECT_FALSE(record.IsWelshTaxRegime());
  record.TaxCode("S0T");
  EXPECT_TRUE(record.IsScottishTaxRegime());
  record.TaxCode("");
  EXPECT_FALSE(record.IsScottishTaxRegime());
}

TEST(clsTaxCode, ScottishGoesBeforeWelsh) {
  clsTaxCode record;
  record.TaxCode("1257L");
  record.IsScottishTaxRegime(true);
  record.IsWelshTaxRegime(true);
  EXPECT_EQ(Written(record), "<TaxCode TaxRegime=\"S\">1257L</TaxCode>");
  record.IsScottishTaxRegime(false);
  EXPECT_EQ(Written(record), "<TaxCode TaxRegime=\"C\">1257L</TaxCode>");
}

TEST(clsTaxCode, WritesBasisAndNoSVR) {
  clsTaxCode record;
  record.Create("BR", true, "svr");
  EXPECT_EQ(Written(record), "<TaxCode BasisNonCumulative=\"yes\">BR</TaxCode>");
}

TEST(clsTaxCode, RemovesAttributesThatNoLongerHold) {
  clsTaxCode record;
  record.Create("BR");
  EXPECT_EQ(test::ParentAfterWriting(
                record, "<P><TaxCode BasisNonCumulative=\"yes\" TaxRegime=\"S\">SBR</TaxCode></P>"),
            "<P><TaxCode>BR</TaxCode></P>");
}

TEST(clsTaxCode, ReadsTheBasisByItsPresence) {
  EXPECT_TRUE(Read<clsTaxCode>("<TaxCode BasisNonCumulative=\"no\">BR</TaxCode>")->BasisNonCumulative());
  EXPECT_FALSE(Read<clsTaxCode>("<TaxCode>BR</TaxCode>")->BasisNonCumulative());
}

TEST(clsTaxCode, ReadsTheRegimeFromTheAttributeAlone) {
  const auto scottish = Read<clsTaxCode>("<TaxCode TaxRegime=\"s\">1257L</TaxCode>");
  EXPECT_TRUE(scottish->IsScottishTaxRegime());
  EXPECT_FALSE(scottish->IsWelshTaxRegime());
  const auto welsh = Read<clsTaxCode>("<TaxCode TaxRegime=\"C\">1257L</TaxCode>");
  EXPECT_FALSE(welsh->IsScottishTaxRegime());
  EXPECT_TRUE(welsh->IsWelshTaxRegime());
  const auto none = Read<clsTaxCode>("<TaxCode TaxRegime=\"X\">S1257L</TaxCode>");
  EXPECT_FALSE(none->IsScottishTaxRegime());
  EXPECT_FALSE(none->IsWelshTaxRegime());
  EXPECT_EQ(none->TaxCode(), "S1257L");
}

TEST(clsTaxCode, ReadingClearsWhatIsAbsent) {
  clsTaxCode record;
  record.Create("S1257L", true, "svr");
  record.Validated(true);
  ASSERT_TRUE(record.CreateFromXML(test::Root("<TaxCode SVR=\"new\">0T</TaxCode>")));
  EXPECT_EQ(record.SVR(), "new");
  EXPECT_FALSE(record.Validated());
  ASSERT_TRUE(record.CreateFromXML(test::Root("<TaxCode/>")));
  EXPECT_EQ(record.TaxCode(), "");
  EXPECT_EQ(record.SVR(), "");
  EXPECT_FALSE(record.BasisNonCumulative());
  EXPECT_FALSE(record.IsScottishTaxRegime());
}

TEST(clsTaxCode, RefusesAnotherName) {
  clsTaxCode record;
  record.Create("BR");
  EXPECT_FALSE(record.CreateFromXML(test::Root("<taxcode>0T</taxcode>")));
  EXPECT_EQ(record.TaxCode(), "");
  EXPECT_FALSE(record.ParseFromXML("<Code>0T</Code>"));
  EXPECT_FALSE(record.ParseFromXML("<TaxCode>"));
  EXPECT_FALSE(record.ParseFromXML("<?xml version=\"1.0\"?><TaxCode>0T</TaxCode>"));
  EXPECT_TRUE(record.ParseFromXML("<TaxCode>0T</TaxCode>"));
  EXPECT_EQ(record.TaxCode(), "0T");
}

TEST(clsTaxCode, ShowsAFailure) {
  WithRecordingHost host;
  clsTaxCode record;
  EXPECT_FALSE(record.CreateFromXML(nullptr));
  EXPECT_FALSE(record.ToXML(nullptr));
  ASSERT_EQ(host->messages.size(), 2U);
  EXPECT_TRUE(host->messages[0].text.starts_with(
      "Error in ZELNOR.dll::clsTaxCode: Function CreateFromXML: Error 91 - "));
  EXPECT_TRUE(
      host->messages[1].text.starts_with("Error in ZELNOR.dll::clsTaxCode: Function ToXML: Error 91 - "));
}

TEST(clsTaxCode, ChangesClearValidated) {
  test::ExpectTextChangeClearsValidated<clsTaxCode, const String&>(&clsTaxCode::TaxCode,
                                                                   &clsTaxCode::TaxCode);
  test::ExpectTextChangeClearsValidated<clsTaxCode, String>(&clsTaxCode::SVR, &clsTaxCode::SVR);
  test::ExpectChangeClearsValidated<clsTaxCode, bool, bool>(&clsTaxCode::BasisNonCumulative,
                                                            &clsTaxCode::BasisNonCumulative, true, false);
  test::ExpectChangeClearsValidated<clsTaxCode, bool, bool>(&clsTaxCode::IsScottishTaxRegime,
                                                            &clsTaxCode::IsScottishTaxRegime, true, false);
  test::ExpectChangeClearsValidated<clsTaxCode, bool, bool>(&clsTaxCode::IsWelshTaxRegime,
                                                            &clsTaxCode::IsWelshTaxRegime, true, false);
}

TEST(clsTaxCode, NIAgainIsNoChange) {
  clsTaxCode record;
  record.TaxCode("NT");
  record.Validated(true);
  record.TaxCode("NI");
  EXPECT_TRUE(record.Validated());
}

TEST(clsTaxCode, TextComesBack) {
  test::ExpectTextComesBack<clsTaxCode, const String&>(&clsTaxCode::TaxCode, &clsTaxCode::TaxCode);
}

}  // namespace
}  // namespace zelnor
