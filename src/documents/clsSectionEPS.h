#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

class clsApprenticeshipLevy;
class clsEPSAccount;
class clsEmployerReferences;
class clsFinalSubmission;
class clsPaymentForPeriod;

/// The body of an Employer Payment Summary: what an employer reports for a tax month apart from employees.
///
/// @code
/// Ref<clsSectionEPS> eps = rti.Submission()->EPS();
/// eps->TaxYear("25-26");
/// eps->NoPaymentForPeriod(true);
/// eps->SetNoPaymentDates(Date::FromParts(2025, 6, 6), Date::FromParts(2025, 7, 5));
/// @endcode
class ZELNOR_API clsSectionEPS : public Record {
 public:
  clsSectionEPS();
  ~clsSectionEPS() override;

  /// Stores its arguments and clears `Validated`. `NoPaymentForPeriod` becomes True when no payment record is
  /// given, False otherwise.
  void Create(Ref<clsEmployerReferences> objEmployerReferences, const String& strTaxYear,
              Ref<clsPaymentForPeriod> objPayment = nullptr,
              Ref<clsFinalSubmission> objFinalSubmission = nullptr, bool IncludeYtds = true,
              Ref<clsApprenticeshipLevy> objAppLevy = nullptr);

  /// Fills the section from text whose first node is `EmployerPaymentSummary`. False, and nothing changed,
  /// for text that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the section from its element. The payment record and the final submission are dropped first; any
  /// other field stays as it was where its element is absent. Unknown children are ignored. False when the
  /// node has another name, and for a field that can't be converted; what was read before it stays then.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;
  bool Validated() const override;

  /// "EmployerPaymentSummary".
  String RootElementName() const;

  /// "HMRC-PAYE-RTI-EPS".
  String Class() const;

  /// The schema's path below the program's folder.
  String DefaultSchema() const;

  /// The employer's references. Reading makes an empty record when none is held; writing clears its
  /// `Validated`.
  ///@{
  Ref<clsEmployerReferences> Employer_References();
  void Employer_References(Ref<clsEmployerReferences> value);
  ///@}

  /// The tax year, as "25-26"; always written.
  ///@{
  String TaxYear() const;
  void TaxYear(String value);
  ///@}

  /// Stores the tax year and clears `Validated` in any case.
  void SetRelatedTaxYear(const String& strTaxYear);

  /// A number of the application's own; never written.
  ///@{
  Long PeriodIdentifier() const;
  void PeriodIdentifier(Long value);
  ///@}

  /// No employee was paid in the period.
  ///@{
  bool NoPaymentForPeriod() const;
  void NoPaymentForPeriod(bool value);
  ///@}

  /// The period without payment; written with `NoPaymentForPeriod` alone. A write while `NoPaymentForPeriod`
  /// is False raises error -234572 to the caller and changes nothing.
  ///@{
  Date NoPaymentFrom() const;
  void NoPaymentFrom(Date value);
  Date NoPaymentTo() const;
  void NoPaymentTo(Date value);
  ///@}

  /// Stores both dates of the period without payment. Raises error -234572 to the caller, and changes
  /// nothing, while `NoPaymentForPeriod` is False.
  void SetNoPaymentDates(Date datNoPaymentFrom, Date datNoPaymentTo);

  /// The period of inactivity; zero for none. Both are written when either is set, the unset one as
  /// 1899-12-30.
  ///@{
  Date DateInactiveFrom() const;
  void DateInactiveFrom(Date value);
  Date DateInactiveTo() const;
  void DateInactiveTo(Date value);
  ///@}

  /// Whether either date of inactivity is set.
  bool HasPeriodOfInactivity() const;

  /// The recoverable amounts. Reading makes an empty record when none is held; writing clears its
  /// `Validated`.
  ///@{
  Ref<clsPaymentForPeriod> PaymentForPeriod();
  void PaymentForPeriod(Ref<clsPaymentForPeriod> value);
  ///@}

  /// Whether recoverable amounts are held; makes none.
  bool HasPaymentForPeriod() const;

  /// The bank account. Reading makes an empty record when none is held, and from then on the element is
  /// written. Writing clears the record's `Validated`.
  ///@{
  Ref<clsEPSAccount> Account();
  void Account(Ref<clsEPSAccount> value);
  ///@}

  /// Whether an account is held; makes none.
  bool HasAccount() const;

  /// Drops the account.
  void KillAccount();

  /// Whether the employment allowance is claimed. A write also sets `HasEmpAllowanceIndicator`.
  ///@{
  bool EmploymentAllowanceIndicator() const;
  void EmploymentAllowanceIndicator(bool value);
  ///@}

  /// Whether the indicator was set or read from a document; without that it isn't written.
  bool HasEmpAllowanceIndicator() const;

  /// Clears `HasEmpAllowanceIndicator`; the indicator itself stays.
  void ClearEmploymentAllowanceIndicator();

  /// The apprenticeship levy. Reading makes an empty record when none is held, and from then on the element
  /// is written. Writing clears the record's `Validated`.
  ///@{
  Ref<clsApprenticeshipLevy> ApprenticeshipLevy();
  void ApprenticeshipLevy(Ref<clsApprenticeshipLevy> value);
  ///@}

  /// Whether a levy is held; makes none.
  bool HasApprenticeshipLevy() const;

  /// Drops the levy.
  void KillAppLevy();

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

  /// Whether the recoverable amounts are written even with `NoPaymentForPeriod`; True at first.
  ///@{
  bool IncludeYtds() const;
  void IncludeYtds(bool value);
  ///@}

  /// The sectors of de minimis state aid: agriculture, fisheries and aquaculture, road transport, industrial,
  /// not applicable.
  ///@{
  bool Agri() const;
  void Agri(bool value);
  bool FisheriesAqua() const;
  void FisheriesAqua(bool value);
  bool RoadTrans() const;
  void RoadTrans(bool value);
  bool Indust() const;
  void Indust(bool value);
  bool NA() const;
  void NA(bool value);
  ///@}

  /// An amount of state aid in pounds; read from documents, never written.
  ///@{
  Currency Aid() const;
  void Aid(Currency value);
  ///@}

  /// Writes the section under its envelope.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  void RequireNoPaymentForPeriod(const char* member) const;
  void ReadChild(const XmlNode& child);
  void ReadStateAid(const XmlNode& xmlNode);
  void WriteStateAid(Element& section) const;

  Ref<clsEmployerReferences> employer_references_;
  Ref<clsPaymentForPeriod> payment_for_period_;
  Ref<clsEPSAccount> account_;
  Ref<clsApprenticeshipLevy> apprenticeship_levy_;
  Ref<clsFinalSubmission> final_submission_;
  String tax_year_;
  Date no_payment_from_;
  Date no_payment_to_;
  Date date_inactive_from_;
  Date date_inactive_to_;
  Currency aid_;
  Long period_identifier_ = 0;
  bool no_payment_for_period_ = false;
  bool has_emp_allowance_indicator_ = false;
  bool employment_allowance_indicator_ = false;
  bool include_ytds_ = true;
  bool agri_ = false;
  bool fisheries_aqua_ = false;
  bool road_trans_ = false;
  bool indust_ = false;
  bool na_ = false;
};

}  // namespace zelnor
