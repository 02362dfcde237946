#pragma once

#include "zelnor/documents/paid_section.h"

namespace zelnor {

class clsFinalSubmission;

/// The body of a Full Payment Submission: the employer's references, the tax year, the employees and, for the
/// last one of a year or scheme, the final-submission marks.
///
/// @code
/// Ref<clsSectionFPS> fps = rti.Submission()->FPS();
/// fps->TaxYear("25-26");
/// fps->AddEmployee(employee);
/// @endcode
class ZELNOR_API clsSectionFPS : public PaidSection {
 public:
  clsSectionFPS();
  ~clsSectionFPS() override;

  /// Stores its arguments (the flag as `UseCompression`) and clears `Validated`.
  void Create(Ref<clsEmployerReferences> objEmployerReferences, const String& strTaxYear,
              CollectionRef<clsEmployee> colEmployees, bool blnCompressed = false,
              Ref<clsFinalSubmission> objFinalSubmission = nullptr);

  /// Fills the section from text whose first node is `FullPaymentSubmission`. False, and nothing changed, for
  /// text that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the section from its element. References, employees and final submission are cleared first; tax
  /// year and flags stay. Unknown children are ignored. False when the node has another name.
  bool CreateFromXML(const XmlNode& xmlNode);

  using PaidSection::Validated;
  bool Validated() const override;

  /// "FullPaymentSubmission".
  String RootElementName() const;

  /// "HMRC-PAYE-RTI-FPS".
  String Class() const;

  /// The schema's path below the program's folder.
  String DefaultSchema() const;

  /// Appends an employee, clearing its `Validated`. No object is reported as error 91.
  void AddEmployee(const Ref<clsEmployee>& objEmployee);

  /// The marks of a final submission. Reading makes an empty record when none is held, and from then on the
  /// element is written. Writing clears the record's `Validated`.
  ///@{
  Ref<clsFinalSubmission> Final_Submission();
  void Final_Submission(Ref<clsFinalSubmission> value);
  ///@}

  /// Whether a final submission is held; makes none.
  bool HasFinalSubmission() const;

  /// Drops the final submission.
  void KillFinalSubmissionInfo();

  /// Further numbers of the period that GetTotals adds up; plain storage. A number of zero never matches.
  ///@{
  Long MonthIdentifier() const;
  void MonthIdentifier(Long value);
  Long WeekIdentifier() const;
  void WeekIdentifier(Long value);
  ///@}

  /// Adds up the payments whose `AppPeriodNo` is `lngPeriodNo`. The four amounts start at zero, the count is
  /// added to as it comes in. Student and postgraduate loans go into one sum.
  void GetTotalsForPeriod(Long lngPeriodNo, Long& lngTotalEmployeesPaid, Currency& curTotalTaxPaid,
                          Currency& curTotalEmployersNI, Currency& curTotalEmployeesNI,
                          Currency& curTotalStudentLoansPaid);

  /// As GetCounts, for the payments whose `AppPeriodNo` is `lngPeriodNo`; every employee counts to the total.
  void GetCountsForPeriod(Long lngPeriodNo, Long& lngTotalEmployees, Long& lngNewEmployees,
                          Long& lngCurrentEmployees, Long& lngLeaverEmployees, Long& lngPaidCount,
                          Long& lngUnpaidCount);

  /// Writes the section under its envelope.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String ClassName() const override;
  bool MatchesIdentifiers(Long app_period_no) const override;

  Ref<clsFinalSubmission> final_submission_;
  Long month_identifier_ = 0;
  Long week_identifier_ = 0;
};

}  // namespace zelnor
