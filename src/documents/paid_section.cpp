#include "zelnor/documents/paid_section.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsNILettersAndValues.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/platform/conversions.h"

#include <functional>
#include <map>
#include <set>

namespace zelnor {
namespace {

// One payment with the employment that it belongs to.
struct Paid {
  clsEmployment& employment;
  clsPayment& payment;
};

using PaymentVisitor = std::function<void(const Paid& each)>;

void ForEachPayment(clsEmployee& employee, const PaymentVisitor& visit) {
  for (const Ref<clsEmployment>& employment : *employee.Employment()) {
    visit({Required(employment), Required(employment->Payment())});
  }
}

void ForEachPayment(const CollectionRef<clsEmployee>& employees, const PaymentVisitor& visit) {
  for (const Ref<clsEmployee>& employee : *employees) ForEachPayment(Required(employee), visit);
}

void ForEachNIRow(clsEmployment& employment,
                  const std::function<void(const clsNILettersAndValues& row)>& visit) {
  const CollectionRef<clsNILettersAndValues> rows = employment.NILettersAndValues();
  if (!rows) return;
  for (const Ref<clsNILettersAndValues>& row : *rows) visit(Required(row));
}

bool IsPaid(const Paid& each) {
  return !each.payment.NonTaxOrNICPmt().IsZero() || !each.payment.PayAfterStatDedns().IsZero() ||
         each.employment.HasGrossNIablePayments();
}

bool IsPaidOrTaxed(const Paid& each) {
  return IsPaid(each) || !each.payment.TaxDeductedOrRefunded().IsZero();
}

// Adds both contributions row by row, so that a row that fails leaves those before it counted.
void AddNI(const Paid& each, Currency& employers, Currency& employees) {
  ForEachNIRow(each.employment, [&](const clsNILettersAndValues& row) {
    employers += row.TotalEmpNIC();
    employees += row.EmpeeContribns();
  });
}

}  // namespace

String PaidSection::TaxYear() const { return tax_year_; }
void PaidSection::TaxYear(String value) {
  tax_year_ = std::move(value);
  validated_ = false;
}
void PaidSection::SetRelatedTaxYear(const String& strTaxYear) { TaxYear(strTaxYear); }

Long PaidSection::PeriodIdentifier() const { return period_identifier_; }
void PaidSection::PeriodIdentifier(Long value) { period_identifier_ = value; }

bool PaidSection::MatchesIdentifiers(Long app_period_no) const { return app_period_no == period_identifier_; }

String PaidSection::PeriodsInList() {
  String result;
  Handled(ClassName(), "Function PeriodsInList", [&] {
    std::set<Long> numbers;
    ForEachPayment(Employees(), [&](const Paid& each) { numbers.insert(each.payment.AppPeriodNo()); });
    for (const Long number : numbers) result += (result.empty() ? "" : " ") + ToText(number);
  });
  return result;
}

std::vector<PeriodValues> PaidSection::IncludedPeriodsAndValues() {
  std::vector<PeriodValues> result;
  Handled(ClassName(), "Function IncludedPeriodsAndValues", [&] {
    std::map<std::pair<PERIOD_TYPE, Long>, std::size_t> places;
    ForEachPayment(Employees(), [&](const Paid& each) {
      PERIOD_TYPE type = PERIOD_TYPE::ptMonth;
      if (LeadingNumber(each.payment.MonthNo()) == 0) {
        if (LeadingNumber(each.payment.WeekNo()) == 0) return;
        type = PERIOD_TYPE::ptWeek;
      }
      const Long number = each.payment.AppPeriodNo();
      const auto [place, is_new] = places.try_emplace({type, number}, result.size());
      if (is_new) result.emplace_back();
      PeriodValues& values = result[place->second];
      values.Type = type;
      values.PeriodNo = number;
      ++values.TotalEmployeesPaid;
      values.TotalTaxPaid += each.payment.TaxDeductedOrRefunded();
      AddNI(each, values.TotalEmployersNI, values.TotalEmployeesNI);
      values.TotalStudentLoansPaid += each.payment.StudentLoanRecovered();
      values.TotalPostgradLoansPaid += each.payment.PostgradLoanRecovered();
    });
  });
  return result;
}

void PaidSection::GetTotals(Long& lngTotalEmployeesPaid, Currency& curTotalTaxPaid,
                            Currency& curTotalEmployersNI, Currency& curTotalEmployeesNI,
                            Currency& curTotalStudentLoansPaid, Currency& curTotalPostgradLoansPaid) {
  Handled(ClassName(), "Sub GetTotals", [&] {
    curTotalTaxPaid = curTotalEmployersNI = curTotalEmployeesNI = curTotalStudentLoansPaid = {};
    AddTotals([this](Long number) { return MatchesIdentifiers(number); },
              {lngTotalEmployeesPaid, curTotalTaxPaid, curTotalEmployersNI, curTotalEmployeesNI,
               curTotalStudentLoansPaid, curTotalPostgradLoansPaid});
  });
}

void PaidSection::GetCounts(Long& lngTotalEmployees, Long& lngNewEmployees, Long& lngCurrentEmployees,
                            Long& lngLeaverEmployees, Long& lngPaidCount, Long& lngUnpaidCount) {
  Handled(ClassName(), "Sub GetCounts", [&] {
    AddCounts([](Long) { return true; }, {lngTotalEmployees, lngNewEmployees, lngCurrentEmployees,
                                          lngLeaverEmployees, lngPaidCount, lngUnpaidCount});
  });
}

void PaidSection::AddTotals(const PeriodTest& takes, const TotalsInto& into) {
  ForEachPayment(Employees(), [&](const Paid& each) {
    if (!takes(each.payment.AppPeriodNo())) return;
    if (IsPaidOrTaxed(each)) ++into.paid;
    into.tax += each.payment.TaxDeductedOrRefunded();
    into.student_loan += each.payment.StudentLoanRecovered();
    into.postgrad_loan += each.payment.PostgradLoanRecovered();
    AddNI(each, into.employers_ni, into.employees_ni);
  });
}

void PaidSection::AddCounts(const PeriodTest& takes, const CountsInto& into) {
  for (const Ref<clsEmployee>& employee : *Employees()) {
    ++into.employees;
    ForEachPayment(Required(employee), [&](const Paid& each) {
      if (!takes(each.payment.AppPeriodNo())) return;
      if (!IsPaid(each)) {
        ++into.unpaid;
        return;
      }
      ++into.paid;
      CountByStatus(each.employment.EmploymentStatus(), into.fresh, into.current, into.leavers);
    });
  }
}

Long PaidSection::TotalEmployeesPaid() {
  Long result = 0;
  Handled(ClassName(), "Get TotalEmployeesPaid", [&] {
    ForEachPayment(Employees(),
                   [&](const Paid& each) { result += each.payment.TaxablePay().IsZero() ? 0 : 1; });
  });
  return result;
}

Currency PaidSection::TotalTaxPaid() {
  Currency result;
  Handled(ClassName(), "Get TotalTaxPaid", [&] {
    ForEachPayment(Employees(), [&](const Paid& each) { result += each.payment.TaxDeductedOrRefunded(); });
  });
  return result;
}

Currency PaidSection::TotalEmployersNI() {
  Currency result;
  Handled(ClassName(), "Get TotalEmployersNI", [&] {
    ForEachPayment(Employees(), [&](const Paid& each) {
      ForEachNIRow(each.employment, [&](const clsNILettersAndValues& row) { result += row.TotalEmpNIC(); });
    });
  });
  return result;
}

Currency PaidSection::TotalEmployeesNI() {
  Currency result;
  Handled(ClassName(), "Get TotalEmployeesNI", [&] {
    ForEachPayment(Employees(), [&](const Paid& each) {
      ForEachNIRow(each.employment,
                   [&](const clsNILettersAndValues& row) { result += row.EmpeeContribns(); });
    });
  });
  return result;
}

Currency PaidSection::TotalStudentLoan() {
  Currency result;
  Handled(ClassName(), "Get TotalStudentLoan", [&] {
    ForEachPayment(Employees(), [&](const Paid& each) { result += each.payment.StudentLoanRecovered(); });
  });
  return result;
}

Currency PaidSection::TotalPostgradLoan() {
  Currency result;
  Handled(ClassName(), "Get TotalPostgradLoan", [&] {
    ForEachPayment(Employees(), [&](const Paid& each) { result += each.payment.PostgradLoanRecovered(); });
  });
  return result;
}

}  // namespace zelnor
