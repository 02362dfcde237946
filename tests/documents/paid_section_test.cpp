#include "zelnor/documents/paid_section.h"

#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"

#include "support/payroll.h"
#include "support/recording_host.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::AddEmployment;
using test::AddNI;
using test::AddPaid;
using test::MakeLeaver;
using test::MakeNew;
using test::NewEmployee;
using test::WithRecordingHost;

/// The results of GetTotals.
struct Totals {
  Long paid = 0;
  Currency tax;
  Currency employers_ni;
  Currency employees_ni;
  Currency student_loans;
  Currency postgrad_loans;

  friend bool operator==(const Totals&, const Totals&) = default;
};

void Get(PaidSection& section, Totals& totals) {
  section.GetTotals(totals.paid, totals.tax, totals.employers_ni, totals.employees_ni, totals.student_loans,
                    totals.postgrad_loans);
}

Totals TotalsOf(PaidSection& section) {
  Totals totals;
  Get(section, totals);
  return totals;
}

/// The results of GetCounts.
struct Counts {
  Long employees = 0;
  Long fresh = 0;
  Long current = 0;
  Long leavers = 0;
  Long paid = 0;
  Long unpaid = 0;

  friend bool operator==(const Counts&, const Counts&) = default;
};

void Get(PaidSection& section, Counts& counts) {
  section.GetCounts(counts.employees, counts.fresh, counts.current, counts.leavers, counts.paid,
                    counts.unpaid);
}

Counts CountsOf(PaidSection& section) {
  Counts counts;
  Get(section, counts);
  return counts;
}

/// A payment of every amount, with two rows of National Insurance.
void FillPayment(clsEmployment& employment) {
  clsPayment& payment = *employment.Payment();
  payment.TaxablePay(1000);
  payment.PayAfterStatDedns(800);
  payment.TaxDeductedOrRefunded(100);
  payment.StudentLoanRecovered(20);
  payment.PostgradLoanRecovered(7);
  AddNI(employment, 10, 5);
  AddNI(employment, 3, 2);
}

template <class Section>
class PaidSections : public testing::Test {
 protected:
  Section section_;
};

struct SectionNames {
  template <class Section>
  static std::string GetName(int /*index*/) {
    return Section().RootElementName();
  }
};

using Sections = testing::Types<clsSectionFPS, clsSectionEYU>;
TYPED_TEST_SUITE(PaidSections, Sections, SectionNames);

TYPED_TEST(PaidSections, GiveZeroOrEmptyWithoutEmployees) {
  auto& section = this->section_;
  EXPECT_EQ(section.PeriodsInList(), "");
  EXPECT_TRUE(section.IncludedPeriodsAndValues().empty());
  EXPECT_EQ(TotalsOf(section), Totals());
  EXPECT_EQ(CountsOf(section), Counts());
  EXPECT_EQ(section.TotalEmployeesPaid(), 0);
  EXPECT_TRUE(section.TotalTaxPaid().IsZero());
  EXPECT_TRUE(section.TotalEmployersNI().IsZero());
  EXPECT_TRUE(section.TotalEmployeesNI().IsZero());
  EXPECT_TRUE(section.TotalStudentLoan().IsZero());
  EXPECT_TRUE(section.TotalPostgradLoan().IsZero());
}

TYPED_TEST(PaidSections, KeepTaxYearAndPeriodIdentifier) {
  auto& section = this->section_;
  section.Employer_References();
  EXPECT_EQ(section.TaxYear(), "");
  section.TaxYear("25-26");
  EXPECT_EQ(section.TaxYear(), "25-26");
  section.SetRelatedTaxYear("24-25");
  EXPECT_EQ(section.TaxYear(), "24-25");
  EXPECT_EQ(section.PeriodIdentifier(), 0);
  section.PeriodIdentifier(7);
  EXPECT_EQ(section.PeriodIdentifier(), 7);
}

TYPED_TEST(PaidSections, ListPeriodsOnceAscendingByNumber) {
  auto& section = this->section_;
  for (const Long number : {10, 9, 100, 9, -1, 0}) AddPaid(section, number);
  EXPECT_EQ(section.PeriodsInList(), "-1 0 9 10 100");
}

TYPED_TEST(PaidSections, ListThePeriodsOfEveryEmployment) {
  auto& section = this->section_;
  const Ref<clsEmployee> employee = NewEmployee();
  section.AddEmployee(employee);
  AddEmployment(*employee, 3);
  AddEmployment(*employee, 2);
  EXPECT_EQ(section.PeriodsInList(), "2 3");
}

TYPED_TEST(PaidSections, AddUpPeriodsInOrderOfFirstAppearance) {
  auto& section = this->section_;
  clsEmployment& week = AddPaid(section, 5);
  week.Payment()->WeekNo("5");
  FillPayment(week);
  clsEmployment& month = AddPaid(section, 5);
  month.Payment()->MonthNo("2");
  month.Payment()->TaxDeductedOrRefunded(1);
  clsEmployment& earlier = AddPaid(section, 4);
  earlier.Payment()->MonthNo("1");
  clsEmployment& week_again = AddPaid(section, 5);
  week_again.Payment()->WeekNo("5");
  FillPayment(week_again);

  const std::vector<PeriodValues> values = section.IncludedPeriodsAndValues();
  ASSERT_EQ(values.size(), 3U);
  EXPECT_EQ(values[0].Type, PERIOD_TYPE::ptWeek);
  EXPECT_EQ(values[0].PeriodNo, 5);
  EXPECT_EQ(values[0].TotalEmployeesPaid, 2);
  EXPECT_EQ(values[0].TotalTaxPaid, Currency(200));
  EXPECT_EQ(values[0].TotalEmployersNI, Currency(26));
  EXPECT_EQ(values[0].TotalEmployeesNI, Currency(14));
  EXPECT_EQ(values[0].TotalStudentLoansPaid, Currency(40));
  EXPECT_EQ(values[0].TotalPostgradLoansPaid, Currency(14));
  EXPECT_EQ(values[1].Type, PERIOD_TYPE::ptMonth);
  EXPECT_EQ(values[1].PeriodNo, 5);
  EXPECT_EQ(values[1].TotalEmployeesPaid, 1);
  EXPECT_EQ(values[1].TotalTaxPaid, Currency(1));
  EXPECT_EQ(values[2].Type, PERIOD_TYPE::ptMonth);
  EXPECT_EQ(values[2].PeriodNo, 4);
  EXPECT_EQ(values[2].TotalEmployeesPaid, 1);
  EXPECT_TRUE(values[2].TotalTaxPaid.IsZero());
}

TYPED_TEST(PaidSections, TakeThePeriodTypeFromTheMonthFirst) {
  const auto type_of = [](const String& month_no, const String& week_no) {
    TypeParam section;
    clsEmployment& employment = AddPaid(section, 1);
    employment.Payment()->MonthNo(month_no);
    employment.Payment()->WeekNo(week_no);
    const std::vector<PeriodValues> values = section.IncludedPeriodsAndValues();
    if (values.empty()) return String("none");
    return String(values[0].Type == PERIOD_TYPE::ptMonth ? "month" : "week");
  };
  EXPECT_EQ(type_of("1", "4"), "month");
  EXPECT_EQ(type_of("0", "4"), "week");
  EXPECT_EQ(type_of("", "4"), "week");
  EXPECT_EQ(type_of("x", "04"), "week");
  EXPECT_EQ(type_of("12th", ""), "month");
  EXPECT_EQ(type_of("0", "0"), "none");
  EXPECT_EQ(type_of("", ""), "none");
}

TYPED_TEST(PaidSections, TotalThePaymentsOfThePeriodIdentifier) {
  auto& section = this->section_;
  FillPayment(AddPaid(section, 3));
  FillPayment(AddPaid(section, 4));
  FillPayment(AddPaid(section, 3));
  section.PeriodIdentifier(3);
  EXPECT_EQ(TotalsOf(section), (Totals{2, 200, 26, 14, 40, 14}));
  section.PeriodIdentifier(4);
  EXPECT_EQ(TotalsOf(section), (Totals{1, 100, 13, 7, 20, 7}));
  section.PeriodIdentifier(5);
  EXPECT_EQ(TotalsOf(section), Totals());
}

TYPED_TEST(PaidSections, TotalPaymentsOfNumberZeroForAnIdentifierOfZero) {
  auto& section = this->section_;
  FillPayment(AddPaid(section, 0));
  EXPECT_EQ(TotalsOf(section).paid, 1);
  section.PeriodIdentifier(1);
  EXPECT_EQ(TotalsOf(section).paid, 0);
}

TYPED_TEST(PaidSections, ZeroFourAmountsAndAddToTheCountAndThePostgraduateLoans) {
  auto& section = this->section_;
  FillPayment(AddPaid(section));
  Totals totals{50, 51, 52, 53, 54, 55};
  Get(section, totals);
  EXPECT_EQ(totals, (Totals{51, 100, 13, 7, 20, 62}));
}

TYPED_TEST(PaidSections, CountAsPaidInTheTotalsWhatHasAnyOfFourFigures) {
  const auto paid = [](const auto& fill) {
    TypeParam section;
    fill(AddPaid(section));
    return TotalsOf(section).paid;
  };
  EXPECT_EQ(paid([](clsEmployment&) {}), 0);
  EXPECT_EQ(paid([](clsEmployment& each) { each.Payment()->TaxablePay(1); }), 0);
  EXPECT_EQ(paid([](clsEmployment& each) { AddNI(each, 1, 1); }), 0);
  EXPECT_EQ(paid([](clsEmployment& each) { each.Payment()->NonTaxOrNICPmt(1); }), 1);
  EXPECT_EQ(paid([](clsEmployment& each) { each.Payment()->PayAfterStatDedns(-1); }), 1);
  EXPECT_EQ(paid([](clsEmployment& each) { each.Payment()->TaxDeductedOrRefunded(-1); }), 1);
  EXPECT_EQ(paid([](clsEmployment& each) { AddNI(each, 0, 0)->PaySubjectToNIC(1); }), 1);
  EXPECT_EQ(paid(FillPayment), 1);
}

TYPED_TEST(PaidSections, CountAsPaidInTheCountsWhatHasAnyOfThreeFigures) {
  const auto paid = [](const auto& fill) {
    TypeParam section;
    fill(AddPaid(section));
    const Counts counts = CountsOf(section);
    EXPECT_EQ(counts.paid + counts.unpaid, 1);
    return counts.paid;
  };
  EXPECT_EQ(paid([](clsEmployment&) {}), 0);
  EXPECT_EQ(paid([](clsEmployment& each) { each.Payment()->TaxablePay(1); }), 0);
  EXPECT_EQ(paid([](clsEmployment& each) { each.Payment()->TaxDeductedOrRefunded(1); }), 0);
  EXPECT_EQ(paid([](clsEmployment& each) { each.Payment()->NonTaxOrNICPmt(1); }), 1);
  EXPECT_EQ(paid([](clsEmployment& each) { each.Payment()->PayAfterStatDedns(1); }), 1);
  EXPECT_EQ(paid([](clsEmployment& each) { AddNI(each, 0, 0)->PaySubjectToNIC(1); }), 1);
}

TYPED_TEST(PaidSections, CountPaidEmploymentsByStatus) {
  auto& section = this->section_;
  const Ref<clsEmployee> employee = NewEmployee();
  section.AddEmployee(employee);
  for (int i = 0; i < 6; ++i) {
    clsEmployment& employment = AddEmployment(*employee, i);
    employment.Payment()->PayAfterStatDedns(1);
    if (i >= 1) MakeNew(employment);
    if (i >= 3) MakeLeaver(employment);
  }
  MakeLeaver(AddPaid(section));
  section.AddEmployee(NewEmployee());
  EXPECT_EQ(CountsOf(section), (Counts{3, 2, 1, 3, 6, 1}));
}

TYPED_TEST(PaidSections, AddCountsToWhatComesIn) {
  auto& section = this->section_;
  AddPaid(section).Payment()->PayAfterStatDedns(1);
  clsEmployment& fresh = AddPaid(section);
  fresh.Payment()->PayAfterStatDedns(1);
  MakeNew(fresh);
  clsEmployment& leaver = AddPaid(section);
  leaver.Payment()->PayAfterStatDedns(1);
  MakeLeaver(leaver);
  AddPaid(section);
  Counts counts;
  Get(section, counts);
  EXPECT_EQ(counts, (Counts{4, 1, 1, 1, 3, 1}));
  Get(section, counts);
  EXPECT_EQ(counts, (Counts{8, 2, 2, 2, 6, 2}));
}

TYPED_TEST(PaidSections, SumOverEveryPayment) {
  auto& section = this->section_;
  FillPayment(AddPaid(section, 1));
  FillPayment(AddPaid(section, 2));
  AddPaid(section, 3).Payment()->PayAfterStatDedns(1);
  AddPaid(section, 4).Payment()->TaxablePay(-1);
  EXPECT_EQ(section.TotalEmployeesPaid(), 3);
  EXPECT_EQ(section.TotalTaxPaid(), Currency(200));
  EXPECT_EQ(section.TotalEmployersNI(), Currency(26));
  EXPECT_EQ(section.TotalEmployeesNI(), Currency(14));
  EXPECT_EQ(section.TotalStudentLoan(), Currency(40));
  EXPECT_EQ(section.TotalPostgradLoan(), Currency(14));
}

TYPED_TEST(PaidSections, StopAtTheFirstFailureAndKeepWhatWasAdded) {
  auto& section = this->section_;
  FillPayment(AddPaid(section));
  section.Employees()->Add(nullptr);
  FillPayment(AddPaid(section));
  const auto shown = [](const auto& body) {
    WithRecordingHost host;
    body();
    EXPECT_EQ(host->messages.size(), 1U);
    return host->messages.empty() ? String() : host->messages[0].text;
  };
  const String name = section.RootElementName() == "EarlierYearUpdate" ? "clsSectionEYU" : "clsSectionFPS";
  const auto text = [&](const String& member) {
    return "Error in ZELNOR.dll::" + name + ": " + member +
           ": Error 91 - Object variable or With block variable not set";
  };
  Totals totals;
  EXPECT_EQ(shown([&] { Get(section, totals); }), text("Sub GetTotals"));
  EXPECT_EQ(totals, (Totals{1, 100, 13, 7, 20, 7}));
  Counts counts;
  EXPECT_EQ(shown([&] { Get(section, counts); }), text("Sub GetCounts"));
  EXPECT_EQ(counts.paid, 1);
  EXPECT_EQ(shown([&] { EXPECT_EQ(section.TotalTaxPaid(), Currency(100)); }), text("Get TotalTaxPaid"));
  EXPECT_EQ(shown([&] { EXPECT_EQ(section.TotalEmployeesPaid(), 1); }), text("Get TotalEmployeesPaid"));
}

/// The results of GetTotalsForPeriod.
Totals TotalsForPeriod(clsSectionFPS& fps, Long number, Totals totals = {}) {
  fps.GetTotalsForPeriod(number, totals.paid, totals.tax, totals.employers_ni, totals.employees_ni,
                         totals.student_loans);
  return totals;
}

TEST(clsSectionFPS, TotalsForAPeriodMergeBothKindsOfLoan) {
  clsSectionFPS fps;
  FillPayment(AddPaid(fps, 3));
  FillPayment(AddPaid(fps, 4));
  EXPECT_EQ(TotalsForPeriod(fps, 3), (Totals{1, 100, 13, 7, 27, 0}));
  EXPECT_EQ(TotalsForPeriod(fps, 0), Totals());
  EXPECT_EQ(TotalsForPeriod(fps, 3, {50, 51, 52, 53, 54, 0}), (Totals{51, 100, 13, 7, 27, 0}));
}

TEST(clsSectionFPS, CountsForAPeriodTakeEveryEmployeeAndThePaymentsOfThePeriod) {
  clsSectionFPS fps;
  AddPaid(fps, 3).Payment()->PayAfterStatDedns(1);
  AddPaid(fps, 3);
  AddPaid(fps, 4).Payment()->PayAfterStatDedns(1);
  AddPaid(fps, 4);
  Counts counts;
  const auto get = [&] {
    fps.GetCountsForPeriod(3, counts.employees, counts.fresh, counts.current, counts.leavers, counts.paid,
                           counts.unpaid);
  };
  get();
  EXPECT_EQ(counts, (Counts{4, 0, 1, 0, 1, 1}));
  get();
  EXPECT_EQ(counts, (Counts{8, 0, 2, 0, 2, 2}));
}

TEST(clsSectionFPS, TotalsTakeTheMonthAndWeekIdentifiersToo) {
  clsSectionFPS fps;
  for (const Long number : {0, 1, 2, 3, 4}) FillPayment(AddPaid(fps, number));
  fps.PeriodIdentifier(1);
  EXPECT_EQ(TotalsOf(fps).paid, 1);
  fps.MonthIdentifier(2);
  EXPECT_EQ(TotalsOf(fps).paid, 2);
  fps.WeekIdentifier(3);
  EXPECT_EQ(TotalsOf(fps), (Totals{3, 300, 39, 21, 60, 21}));
  fps.WeekIdentifier(1);
  fps.MonthIdentifier(1);
  EXPECT_EQ(TotalsOf(fps).paid, 1);
}

TEST(clsSectionFPS, AMonthOrWeekIdentifierOfZeroNeverMatches) {
  clsSectionFPS fps;
  FillPayment(AddPaid(fps, 0));
  fps.PeriodIdentifier(1);
  EXPECT_EQ(TotalsOf(fps), Totals());
  fps.PeriodIdentifier(0);
  EXPECT_EQ(TotalsOf(fps).paid, 1);
}

}  // namespace
}  // namespace zelnor
