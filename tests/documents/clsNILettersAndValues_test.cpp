#include "zelnor/documents/clsNILettersAndValues.h"

#include "support/recording_host.h"
#include "support/records.h"

namespace zelnor {
namespace {

using test::Read;
using test::WithRecordingHost;

// A row in which each amount is another; the bands that no document holds are 5 and 6.
clsNILettersAndValues FullRow() {
  clsNILettersAndValues row;
  row.Create("A", 1, 2, 3, 4, 5, 6, 8, 9, 10, 11, "S1234567A", true, 12);
  row.PTtoUEL(7);
  return row;
}

const char* const kInYear =
    "<NIlettersAndValues><NIletter>A</NIletter>"
    "<GrossEarningsForNICsInPd>1.00</GrossEarningsForNICsInPd>"
    "<GrossEarningsForNICsYTD>2.00</GrossEarningsForNICsYTD>"
    "<AtLELYTD>3.00</AtLELYTD><LELtoPTYTD>4.00</LELtoPTYTD><PTtoUELYTD>7.00</PTtoUELYTD>"
    "<TotalEmpNICInPd>8.00</TotalEmpNICInPd><TotalEmpNICYTD>9.00</TotalEmpNICYTD>"
    "<EmpeeContribnsInPd>10.00</EmpeeContribnsInPd><EmpeeContribnsYTD>11.00</EmpeeContribnsYTD>"
    "</NIlettersAndValues>";

const char* const kEarlierYear =
    "<NIlettersAndValues><NIletter>A</NIletter><GrossEarningsForNICs>12.00</GrossEarningsForNICs>"
    "<AtLEL>3.00</AtLEL><LELtoPT>4.00</LELtoPT><PTtoUEL>7.00</PTtoUEL><TotalEmpNIC>8.00</TotalEmpNIC>"
    "<EmpeeContribns>10.00</EmpeeContribns></NIlettersAndValues>";

String WrittenIn(eRTISUBMISSIONTYPE type, clsNILettersAndValues row) {
  return row.ToXML(test::Root("<P/>"), type).Xml();
}

String Refund(Currency contributions, bool refund) {
  clsNILettersAndValues row;
  row.EmpeeContribns(contributions);
  row.NICRefund(refund);
  const XmlNode element = row.ToXML(test::Root("<P/>"), eRTISUBMISSIONTYPE::IsEYU);
  const XmlNode written = element.FindChild("NICRefund");
  return written ? written.Text() : "(absent)";
}

TEST(clsNILettersAndValues, CreateStoresItsArguments) {
  const clsNILettersAndValues row = FullRow();
  EXPECT_EQ(row.NILetter(), "A");
  EXPECT_EQ(row.PaySubjectToNIC(), Currency(1));
  EXPECT_EQ(row.PaySubjectToNICYTD(), Currency(2));
  EXPECT_EQ(row.AtLEL(), Currency(3));
  EXPECT_EQ(row.LELtoPT(), Currency(4));
  EXPECT_EQ(row.PTtoUAP(), Currency(5));
  EXPECT_EQ(row.UAPtoUEL(), Currency(6));
  EXPECT_EQ(row.TotalEmpNIC(), Currency(8));
  EXPECT_EQ(row.TotalEmpNICYTD(), Currency(9));
  EXPECT_EQ(row.EmpeeContribns(), Currency(10));
  EXPECT_EQ(row.EmpeeContribnsYTD(), Currency(11));
  EXPECT_EQ(row.SCON(), "S1234567A");
  EXPECT_TRUE(row.NICRefund());
  EXPECT_EQ(row.GrossEarningsForNICs(), Currency(12));
  EXPECT_EQ(row.RootElementName(), "NIlettersAndValues");
}

TEST(clsNILettersAndValues, CreateTakesZeroForWhatIsNotGiven) {
  clsNILettersAndValues row = FullRow();
  row.Validated(true);
  row.Create("B", 1, 2, 3, 4, 5, 6);
  EXPECT_TRUE(row.TotalEmpNIC().IsZero());
  EXPECT_TRUE(row.TotalEmpNICYTD().IsZero());
  EXPECT_TRUE(row.EmpeeContribns().IsZero());
  EXPECT_TRUE(row.EmpeeContribnsYTD().IsZero());
  EXPECT_EQ(row.SCON(), "");
  EXPECT_FALSE(row.NICRefund());
  EXPECT_TRUE(row.GrossEarningsForNICs().IsZero());
  EXPECT_FALSE(row.Validated());
}

TEST(clsNILettersAndValues, WritesPeriodAndYearToDate) {
  for (const auto type :
       {eRTISUBMISSIONTYPE::IsFPS, eRTISUBMISSIONTYPE::IsEAS, eRTISUBMISSIONTYPE::IsUndefined})
    EXPECT_EQ(WrittenIn(type, FullRow()), kInYear);
}

TEST(clsNILettersAndValues, WritesPlainNamesInAnEarlierYearUpdate) {
  EXPECT_EQ(WrittenIn(eRTISUBMISSIONTYPE::IsEYU, FullRow()), kEarlierYear);
}

TEST(clsNILettersAndValues, WritesZeros) {
  EXPECT_EQ(WrittenIn(eRTISUBMISSIONTYPE::IsEYU, {}),
            "<NIlettersAndValues><NIletter></NIletter><GrossEarningsForNICs>0.00</GrossEarningsForNICs>"
            "<AtLEL>0.00</AtLEL><LELtoPT>0.00</LELtoPT><PTtoUEL>0.00</PTtoUEL><TotalEmpNIC>0.00</TotalEmpNIC>"
            "<EmpeeContribns>0.00</EmpeeContribns></NIlettersAndValues>");
}

TEST(clsNILettersAndValues, TwoLettersAreSiblingsInTheParentsNamespace) {
  clsNILettersAndValues first;
  first.NILetter("A");
  clsNILettersAndValues second;
  second.NILetter("C");
  const XmlNode parent = test::Root("<P xmlns=\"urn:p\"/>");
  first.ToXML(parent, eRTISUBMISSIONTYPE::IsFPS);
  second.ToXML(parent, eRTISUBMISSIONTYPE::IsFPS);
  const std::vector<XmlNode> rows = parent.GetElementsByTagName("NIlettersAndValues");
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].FindChild("NIletter").Text(), "A");
  EXPECT_EQ(rows[1].FindChild("NIletter").Text(), "C");
  EXPECT_EQ(rows[1].NamespaceURI(), "urn:p");
}

TEST(clsNILettersAndValues, TellsARefundOfAnEarlierYearAlone) {
  EXPECT_EQ(Refund(-1, false), "no");
  EXPECT_EQ(Refund(-1, true), "yes");
  EXPECT_EQ(Refund(1, true), "(absent)");
  EXPECT_EQ(Refund(0, true), "(absent)");
  clsNILettersAndValues row;
  row.EmpeeContribns(-1);
  row.NICRefund(true);
  EXPECT_FALSE(row.ToXML(test::Root("<P/>"), eRTISUBMISSIONTYPE::IsFPS).FindChild("NICRefund"));
}

TEST(clsNILettersAndValues, ReadsPeriodAndYearToDate) {
  const auto row = Read<clsNILettersAndValues>(kInYear);
  EXPECT_EQ(row->NILetter(), "A");
  EXPECT_EQ(row->PaySubjectToNIC(), Currency(1));
  EXPECT_EQ(row->PaySubjectToNICYTD(), Currency(2));
  EXPECT_EQ(row->AtLEL(), Currency(3));
  EXPECT_EQ(row->LELtoPT(), Currency(4));
  EXPECT_EQ(row->PTtoUEL(), Currency(7));
  EXPECT_EQ(row->TotalEmpNIC(), Currency(8));
  EXPECT_EQ(row->TotalEmpNICYTD(), Currency(9));
  EXPECT_EQ(row->EmpeeContribns(), Currency(10));
  EXPECT_EQ(row->EmpeeContribnsYTD(), Currency(11));
}

TEST(clsNILettersAndValues, ReadsPlainNamesExceptGrossEarnings) {
  const auto row = Read<clsNILettersAndValues>(kEarlierYear);
  EXPECT_EQ(row->AtLEL(), Currency(3));
  EXPECT_EQ(row->LELtoPT(), Currency(4));
  EXPECT_EQ(row->PTtoUEL(), Currency(7));
  EXPECT_EQ(row->TotalEmpNIC(), Currency(8));
  EXPECT_EQ(row->EmpeeContribns(), Currency(10));
  EXPECT_TRUE(row->GrossEarningsForNICs().IsZero());
  EXPECT_TRUE(row->PaySubjectToNIC().IsZero());
}

TEST(clsNILettersAndValues, ReadsSchemeNumberAndRefund) {
  const auto row = Read<clsNILettersAndValues>(
      "<NIlettersAndValues><SCON>S1234567A</SCON><NICRefund>Yes</NICRefund></NIlettersAndValues>");
  EXPECT_EQ(row->SCON(), "S1234567A");
  EXPECT_TRUE(row->NICRefund());
  EXPECT_FALSE(
      Read<clsNILettersAndValues>("<NIlettersAndValues><NICRefund>true</NICRefund></NIlettersAndValues>")
          ->NICRefund());
}

TEST(clsNILettersAndValues, ReadingClearsTheRecord) {
  clsNILettersAndValues row = FullRow();
  row.Validated(true);
  EXPECT_TRUE(row.ParseFromXML("<NIlettersAndValues/>"));
  EXPECT_FALSE(row.Validated());
  EXPECT_EQ(row.NILetter(), "");
  EXPECT_EQ(row.SCON(), "");
  EXPECT_FALSE(row.NICRefund());
  for (const Currency& amount :
       {row.PaySubjectToNIC(), row.PaySubjectToNICYTD(), row.AtLEL(), row.LELtoPT(), row.PTtoUAP(),
        row.UAPtoUEL(), row.PTtoUEL(), row.TotalEmpNIC(), row.TotalEmpNICYTD(), row.EmpeeContribns(),
        row.EmpeeContribnsYTD(), row.GrossEarningsForNICs()})
    EXPECT_TRUE(amount.IsZero());
  EXPECT_FALSE(row.ParseFromXML("<NILettersAndValues/>"));
}

TEST(clsNILettersAndValues, AnAmountThatIsNoNumberEndsTheReading) {
  WithRecordingHost host;
  clsNILettersAndValues row;
  EXPECT_FALSE(
      row.ParseFromXML("<NIlettersAndValues><NIletter>A</NIletter><AtLEL>x</AtLEL><SCON>1</SCON>"
                       "</NIlettersAndValues>"));
  EXPECT_EQ(row.NILetter(), "A");
  EXPECT_EQ(row.SCON(), "");
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(host->messages[0].text.starts_with(
      "Error in ZELNOR.dll::clsNILettersAndValues: Function CreateFromXML: Error 13 - "));
}

TEST(clsNILettersAndValues, ChangesClearValidated) {
  using T = clsNILettersAndValues;
  const auto expect = [](void (T::*set)(Currency), Currency (T::*get)() const) {
    test::ExpectChangeClearsValidated<T, Currency, Currency>(set, get, 1, 2);
  };
  expect(&T::PaySubjectToNIC, &T::PaySubjectToNIC);
  expect(&T::PaySubjectToNICYTD, &T::PaySubjectToNICYTD);
  expect(&T::AtLEL, &T::AtLEL);
  expect(&T::LELtoPT, &T::LELtoPT);
  expect(&T::PTtoUAP, &T::PTtoUAP);
  expect(&T::UAPtoUEL, &T::UAPtoUEL);
  expect(&T::PTtoUEL, &T::PTtoUEL);
  expect(&T::TotalEmpNIC, &T::TotalEmpNIC);
  expect(&T::TotalEmpNICYTD, &T::TotalEmpNICYTD);
  expect(&T::EmpeeContribns, &T::EmpeeContribns);
  expect(&T::EmpeeContribnsYTD, &T::EmpeeContribnsYTD);
  expect(&T::GrossEarningsForNICs, &T::GrossEarningsForNICs);
  test::ExpectTextChangeClearsValidated<T, String>(&T::NILetter, &T::NILetter);
  test::ExpectTextChangeClearsValidated<T, String>(&T::SCON, &T::SCON);
  test::ExpectChangeClearsValidated<T, bool, bool>(&T::NICRefund, &T::NICRefund, true, false);
}

TEST(clsNILettersAndValues, TheLetterComesBack) {
  for (const String& text : test::TextsThatComeBack()) {
    clsNILettersAndValues row;
    row.NILetter(text);
    EXPECT_EQ(Read<clsNILettersAndValues>(WrittenIn(eRTISUBMISSIONTYPE::IsFPS, row))->NILetter(), text);
  }
}

}  // namespace
}  // namespace zelnor
