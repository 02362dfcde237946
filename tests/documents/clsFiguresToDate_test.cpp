#include "zelnor/documents/clsFiguresToDate.h"

#include "support/recording_host.h"
#include "support/records.h"

namespace zelnor {
namespace {

using test::Read;
using test::WithRecordingHost;
using test::Written;

const char* const kAllFigures =
    "<FiguresToDate><TaxablePay>1.00</TaxablePay><TotalTax>-2.50</TotalTax>"
    "<StudentLoansTD>3.00</StudentLoansTD><PostgradLoansTD>7.00</PostgradLoansTD>"
    "<BenefitsTaxedViaPayrollYTD>4.00</BenefitsTaxedViaPayrollYTD>"
    "<EmpeePenContribnsPaidYTD>5.00</EmpeePenContribnsPaidYTD>"
    "<EmpeePenContribnsNotPaidYTD>6.00</EmpeePenContribnsNotPaidYTD></FiguresToDate>";

const char* const kNoFigures =
    "<FiguresToDate><TaxablePay>0.00</TaxablePay><TotalTax>0.00</TotalTax>"
    "<StudentLoansTD>0.00</StudentLoansTD><PostgradLoansTD>0.00</PostgradLoansTD></FiguresToDate>";

TEST(clsFiguresToDate, WritesItsRowsInOrder) {
  clsFiguresToDate figures;
  figures.Create(1, Currency::FromPence(-250), 3, 4, 5, 6, 7);
  EXPECT_EQ(Written(figures), kAllFigures);
}

TEST(clsFiguresToDate, WritesFourZeros) {
  clsFiguresToDate figures;
  EXPECT_EQ(Written(figures), kNoFigures);
}

TEST(clsFiguresToDate, RemovesWhatIsZero) {
  clsFiguresToDate figures;
  EXPECT_EQ(test::ParentAfterWriting(figures, "<P>" + String(kAllFigures) + "</P>"),
            "<P>" + String(kNoFigures) + "</P>");
}

TEST(clsFiguresToDate, CreateTakesZeroForWhatIsNotGiven) {
  clsFiguresToDate figures;
  figures.Create(1, 2, 3, 4, 5, 6, 7);
  figures.Validated(true);
  figures.Create(8, 9);
  EXPECT_EQ(figures.TaxablePay(), Currency(8));
  EXPECT_EQ(figures.TotalTax(), Currency(9));
  EXPECT_TRUE(figures.StudentLoans().IsZero());
  EXPECT_TRUE(figures.PostgradLoans().IsZero());
  EXPECT_TRUE(figures.BenefitsTaxedViaPayrollYTD().IsZero());
  EXPECT_TRUE(figures.EmpeePensionContribnsPaidYTD().IsZero());
  EXPECT_TRUE(figures.EmpeePensionContribnsNotPaidYTD().IsZero());
  EXPECT_FALSE(figures.Validated());
}

TEST(clsFiguresToDate, ReadsWhatItWrites) {
  const auto figures = Read<clsFiguresToDate>(kAllFigures);
  EXPECT_EQ(figures->TaxablePay(), Currency(1));
  EXPECT_EQ(figures->TotalTax(), Currency::FromPence(-250));
  EXPECT_EQ(figures->StudentLoans(), Currency(3));
  EXPECT_EQ(figures->PostgradLoans(), Currency(7));
  EXPECT_EQ(figures->BenefitsTaxedViaPayrollYTD(), Currency(4));
  EXPECT_EQ(figures->EmpeePensionContribnsPaidYTD(), Currency(5));
  EXPECT_EQ(figures->EmpeePensionContribnsNotPaidYTD(), Currency(6));
}

TEST(clsFiguresToDate, ReadingClearsTheRecord) {
  const auto figures = Read<clsFiguresToDate>(kAllFigures);
  figures->Validated(true);
  EXPECT_TRUE(figures->ParseFromXML("<FiguresToDate><Other>1</Other></FiguresToDate>"));
  EXPECT_FALSE(figures->Validated());
  EXPECT_EQ(Written(*figures), kNoFigures);
  EXPECT_EQ(figures->RootElementName(), "FiguresToDate");
  EXPECT_FALSE(figures->ParseFromXML("<figuresToDate/>"));
}

TEST(clsFiguresToDate, AnAmountThatIsNoNumberEndsTheReading) {
  WithRecordingHost host;
  clsFiguresToDate figures;
  EXPECT_FALSE(
      figures.ParseFromXML("<FiguresToDate><TaxablePay>5</TaxablePay><TotalTax/>"
                           "<StudentLoansTD>5</StudentLoansTD></FiguresToDate>"));
  EXPECT_EQ(figures.TaxablePay(), Currency(5));
  EXPECT_TRUE(figures.StudentLoans().IsZero());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(host->messages[0].text.starts_with(
      "Error in ZELNOR.dll::clsFiguresToDate: Function CreateFromXML: Error 13 - "));
}

TEST(clsFiguresToDate, ChangesClearValidated) {
  using T = clsFiguresToDate;
  const auto expect = [](void (T::*set)(Currency), Currency (T::*get)() const) {
    test::ExpectChangeClearsValidated<T, Currency, Currency>(set, get, 1, 2);
  };
  expect(&T::TaxablePay, &T::TaxablePay);
  expect(&T::TotalTax, &T::TotalTax);
  expect(&T::StudentLoans, &T::StudentLoans);
  expect(&T::PostgradLoans, &T::PostgradLoans);
  expect(&T::BenefitsTaxedViaPayrollYTD, &T::BenefitsTaxedViaPayrollYTD);
  expect(&T::EmpeePensionContribnsPaidYTD, &T::EmpeePensionContribnsPaidYTD);
  expect(&T::EmpeePensionContribnsNotPaidYTD, &T::EmpeePensionContribnsNotPaidYTD);
}

}  // namespace
}  // namespace zelnor
