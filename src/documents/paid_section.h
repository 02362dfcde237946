#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/documents/employee_section.h"

#include <functional>
#include <vector>

namespace zelnor {

/// What the sections that report payments share (FPS and EYU): the tax year, and the totals and head counts
/// for an application's confirmation screens. A payment is the one `Payment` of each employment of each
/// employee, in collection order. Nothing is cached: each operation walks all employees; after a failure
/// results hold what had been added so far.
class ZELNOR_API PaidSection : public EmployeeSection {
 public:
  /// The tax year, as "25-26". Writing clears `Validated`.
  ///@{
  String TaxYear() const;
  void TaxYear(String value);
  ///@}

  /// The same as writing `TaxYear`.
  void SetRelatedTaxYear(const String& strTaxYear);

  /// The application's number for the period that GetTotals adds up; plain storage, 0 at first, never
  /// written.
  ///@{
  Long PeriodIdentifier() const;
  void PeriodIdentifier(Long value);
  ///@}

  /// The distinct `AppPeriodNo` of all payments, ascending, joined by blanks; empty without payments.
  String PeriodsInList();

  /// The totals by period, in order of first appearance: a payment whose `MonthNo` isn't zero counts to a
  /// month, else one whose `WeekNo` isn't zero to a week; other payments are left out.
  std::vector<PeriodValues> IncludedPeriodsAndValues();

  /// Adds up the payments whose `AppPeriodNo` equals the period identifiers. The first four amounts start at
  /// zero, while the count and the last amount are added to as they come in.
  void GetTotals(Long& lngTotalEmployeesPaid, Currency& curTotalTaxPaid, Currency& curTotalEmployersNI,
                 Currency& curTotalEmployeesNI, Currency& curTotalStudentLoansPaid,
                 Currency& curTotalPostgradLoansPaid);

  /// Counts employees and payments; the results are added to as they come in. An unpaid payment counts to no
  /// status.
  void GetCounts(Long& lngTotalEmployees, Long& lngNewEmployees, Long& lngCurrentEmployees,
                 Long& lngLeaverEmployees, Long& lngPaidCount, Long& lngUnpaidCount);

  /// The number of payments whose `TaxablePay` isn't zero.
  Long TotalEmployeesPaid();

  /// Sums over every payment and its NI rows.
  ///@{
  Currency TotalTaxPaid();
  Currency TotalEmployersNI();
  Currency TotalEmployeesNI();
  Currency TotalStudentLoan();
  Currency TotalPostgradLoan();
  ///@}

 protected:
  /// Which payments a walk takes, by their `AppPeriodNo`.
  using PeriodTest = std::function<bool(Long app_period_no)>;

  /// Where a walk adds its totals.
  struct TotalsInto {
    Long& paid;
    Currency& tax;
    Currency& employers_ni;
    Currency& employees_ni;
    Currency& student_loan;
    Currency& postgrad_loan;
  };

  /// Where a walk adds its counts.
  struct CountsInto {
    Long& employees;
    Long& fresh;
    Long& current;
    Long& leavers;
    Long& paid;
    Long& unpaid;
  };

  void AddTotals(const PeriodTest& takes, const TotalsInto& into);
  void AddCounts(const PeriodTest& takes, const CountsInto& into);

  /// Whether GetTotals takes a payment with this number.
  virtual bool MatchesIdentifiers(Long app_period_no) const;

  String tax_year_;

 private:
  Long period_identifier_ = 0;
};

}  // namespace zelnor
