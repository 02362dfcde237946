#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/documents/clsBenefits.h"
#include "zelnor/documents/clsFlexibleDrawdown.h"
#include "zelnor/documents/clsTaxCode.h"

#include <array>

namespace zelnor {

/// What an employment was paid in a period, element `Payment`. What is written depends on the type of
/// document; "EYU" below is the Earlier Year Update, whose own names aren't read. All amounts are in pounds.
///
/// Reader and writer are no mirror images: hours and late reasons are written as letters, while hours are
/// read as the long texts of their bands alone and anything else, the letters among it, reads as `Other`.
///
/// @code
/// Ref<clsPayment> payment = employment->Payment();
/// payment->PayFrequency(PAY_FREQUENCY::CalendarMonthly);
/// payment->PayDate(Date::FromParts(2025, 9, 30));
/// payment->MonthNo("6");
/// payment->PeriodsCovered(1);
/// payment->SetHoursWorkedByValue(37.5);
/// payment->TaxCode()->TaxCode("1257L");
/// payment->TaxablePay(Currency(2033));
/// @endcode
class ZELNOR_API clsPayment : public Record {
 public:
  /// Stores its arguments and clears Validated. Tax code, benefits, drawdown, trivial commutation payments
  /// and the amounts without an argument (SPBPYTD, SNCPYTD, Class1ANICsYTD) stay; they are set by property.
  void Create(PAY_FREQUENCY eniPayFrequency, Date datPayDate, const String& strWeekNo,
              const String& strMonthNo, Integer intPeriodsCovered, bool blnAggregatedEarnings,
              bool blnPaymentAfterLeaving, HOURS_WORKED eniHoursWorked, Currency curTaxablePay,
              Currency curNonTaxOrNICPmt, Currency curDednsFromNetPay, Currency curPayAfterStatDedns,
              Currency curBenefitsTaxedViaPayroll, Currency curEmpeePenContribnsPaid,
              Currency curItemsSubjectToClass1NIC, Currency curEmpeePenContribnsNotPaid,
              Currency curStudentLoanRecovered, StudentLoan_PlanType enmStudentLoanPlanType,
              Currency curTaxDeductedOrRefunded, Currency curSSPYTD, Currency curSMPYTD, Currency curOSPPYTD,
              Currency curSAPYTD, Currency curASPPYTD, Currency curPostgradLoanRecovered,
              const String& strBacsHashCode = {}, bool blnOnStrike = false, bool blnUnpaidAbsence = false,
              lreLateReason eniLateReason = lreLateReason::llrNoExcuse, bool blnFAPR = false,
              Currency curC1ANICtermination = {}, Currency curC1ANICterminationYTD = {});

  /// Fills the record from text whose first node is `Payment`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record, except PayFrequency, then fills it from a node's children; a new tax code is held
  /// afterwards, even without a `TaxCode`. False for a node of another name, and after a failure, such as an
  /// amount that is no number or a day that is no date, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked the payment and the records it holds since the last change.
  bool Validated() const override;

  /// "Payment".
  String RootElementName() const;

  /// How often the employee is paid; `PayFreq`, from "W1" to "IR", "XX" for `Undisclosed`; not in an EYU. An
  /// unknown text reads as `Irregular`.
  ///@{
  PAY_FREQUENCY PayFrequency() const;
  void PayFrequency(PAY_FREQUENCY value);
  ///@}

  /// The day of the payment (`PmtDate`); not in an EYU.
  ///@{
  Date PayDate() const;
  void PayDate(Date value);
  ///@}

  /// The tax week as text (`WeekNo`); not in an EYU. Empty and "0" stand for no week.
  ///@{
  String WeekNo() const;
  void WeekNo(String value);
  ///@}

  /// The tax month as text (`MonthNo`); not in an EYU, and not when there is a week.
  ///@{
  String MonthNo() const;
  void MonthNo(String value);
  ///@}

  /// How many earnings periods the payment covers (`PeriodsCovered`); not in an EYU.
  ///@{
  Integer PeriodsCovered() const;
  void PeriodsCovered(Integer value);
  ///@}

  /// Whether the earnings of several employments are aggregated; `AggregatedEarnings`, "yes" or left out;
  /// not in an EYU. Presence reads as True.
  ///@{
  bool IsAggregatedEarnings() const;
  void IsAggregatedEarnings(bool value);
  ///@}

  /// Whether the payment was made after the employee left; `PmtAfterLeaving`, "yes" or left out; not in an
  /// EYU. Presence reads as True.
  ///@{
  bool IsPaymentAfterLeaving() const;
  void IsPaymentAfterLeaving(bool value);
  ///@}

  /// The band of the normal weekly hours; `HoursWorked`, written "A" to "E", "Not Set" for `Undisclosed`;
  /// not in an EYU.
  ///@{
  HOURS_WORKED HoursWorked() const;
  void HoursWorked(HOURS_WORKED value);
  ///@}

  /// The tax code (`TaxCode`), in every document; an absent one is made by the read and by the writer. A
  /// write clears the tax code's Validated.
  ///@{
  Ref<clsTaxCode> TaxCode();
  void TaxCode(Ref<clsTaxCode> value);
  ///@}

  /// Taxable pay (`TaxablePay`); left out of an EYU when zero, otherwise always written.
  ///@{
  Currency TaxablePay() const;
  void TaxablePay(Currency value);
  ///@}

  /// Payments not subject to tax or NI contributions (`NonTaxOrNICPmt`); not in an EYU.
  ///@{
  Currency NonTaxOrNICPmt() const;
  void NonTaxOrNICPmt(Currency value);
  ///@}

  /// Deductions from net pay (`DednsFromNetPay`); not in an EYU.
  ///@{
  Currency DednsFromNetPay() const;
  void DednsFromNetPay(Currency value);
  ///@}

  /// Pay after statutory deductions (`PayAfterStatDedns`); not in an EYU.
  ///@{
  Currency PayAfterStatDedns() const;
  void PayAfterStatDedns(Currency value);
  ///@}

  /// Benefits taxed via the payroll (`BenefitsTaxedViaPayroll`); always written.
  ///@{
  Currency BenefitsTaxedViaPayroll() const;
  void BenefitsTaxedViaPayroll(Currency value);
  ///@}

  /// The employee's pension contributions paid under net pay arrangements (`EmpeePenContribnsPaid`); always
  /// written.
  ///@{
  Currency EmpeePenContribnsPaid() const;
  void EmpeePenContribnsPaid(Currency value);
  ///@}

  /// Items subject to Class 1 NI contributions alone (`ItemsSubjectToClass1NIC`); not in an EYU.
  ///@{
  Currency ItemsSubjectToClass1NIC() const;
  void ItemsSubjectToClass1NIC(Currency value);
  ///@}

  /// The employee's pension contributions not paid under net pay arrangements (`EmpeePenContribnsNotPaid`);
  /// always written.
  ///@{
  Currency EmpeePenContribnsNotPaid() const;
  void EmpeePenContribnsNotPaid(Currency value);
  ///@}

  /// The student loan deduction (`StudentLoanRecovered`); left out when zero.
  ///@{
  Currency StudentLoanRecovered() const;
  void StudentLoanRecovered(Currency value);
  ///@}

  /// The student loan's plan; `PlanType` of `StudentLoanRecovered`, two digits, not in an EYU. 0, which is
  /// no member, until it is set and when it is absent.
  ///@{
  StudentLoan_PlanType StudentLoanPlanType() const;
  void StudentLoanPlanType(StudentLoan_PlanType value);
  ///@}

  /// The postgraduate loan deduction (`PostgradLoanRecovered`); left out when zero.
  ///@{
  Currency PostgradLoanRecovered() const;
  void PostgradLoanRecovered(Currency value);
  ///@}

  /// Tax deducted, or refunded when negative; `TaxDeductedOrRefunded`, always written; in an EYU `Tax`, left
  /// out when zero.
  ///@{
  Currency TaxDeductedOrRefunded() const;
  void TaxDeductedOrRefunded(Currency value);
  ///@}

  /// Statutory sick pay to date (`SSPYTD`); neither in an FPS nor in an EYU, though read.
  ///@{
  Currency SSPYTD() const;
  void SSPYTD(Currency value);
  ///@}

  /// Statutory maternity pay to date (`SMPYTD`); left out when zero unless the employee is female. In an EYU
  /// `SMP`, left out when zero.
  ///@{
  Currency SMPYTD() const;
  void SMPYTD(Currency value);
  ///@}

  /// Statutory paternity pay to date (`SPPYTD`; in an EYU `SPP`, left out when zero).
  ///@{
  Currency OSPPYTD() const;
  void OSPPYTD(Currency value);
  ///@}

  /// Statutory adoption pay to date (`SAPYTD`; in an EYU `SAP`, left out when zero).
  ///@{
  Currency SAPYTD() const;
  void SAPYTD(Currency value);
  ///@}

  /// Statutory shared parental pay to date (`ShPPYTD`; in an EYU `ShPP`, left out when zero).
  ///@{
  Currency ASPPYTD() const;
  void ASPPYTD(Currency value);
  ///@}

  /// Statutory parental bereavement pay to date (`SPBPYTD`); left out of an EYU when zero.
  ///@{
  Currency SPBPYTD() const;
  void SPBPYTD(Currency value);
  ///@}

  /// Statutory neonatal care pay to date (`SNCPYTD`); not in an EYU.
  ///@{
  Currency SNCPYTD() const;
  void SNCPYTD(Currency value);
  ///@}

  /// Class 1A NI contributions to date (`Class1ANICsYTD`); in an FPS alone, and always.
  ///@{
  Currency Class1ANICsYTD() const;
  void Class1ANICsYTD(Currency value);
  ///@}

  /// Class 1A NI contributions on a termination award, for the rules; neither read nor written.
  ///@{
  Currency C1ANICtermination() const;
  void C1ANICtermination(Currency value);
  ///@}

  /// The same to date; neither read nor written.
  ///@{
  Currency C1ANICterminationYTD() const;
  void C1ANICterminationYTD(Currency value);
  ///@}

  /// The hash that pairs the payment with its BACS transfer; set by Create and read (`BacsHashCode`), never
  /// written.
  String BacsHashCode() const;

  /// Whether the employee was on strike; `OnStrike`, "yes" or left out; not in an EYU. Presence reads as
  /// True.
  ///@{
  bool HadBeenOnStrike() const;
  void HadBeenOnStrike(bool value);
  ///@}

  /// Whether the employee was absent without pay; `UnpaidAbsence`, "yes" or left out; not in an EYU.
  /// Presence reads as True.
  ///@{
  bool HadAnUnpaidAbsence() const;
  void HadAnUnpaidAbsence(bool value);
  ///@}

  /// Why the payment is reported late; `LateReason`, written "A" to "H", left out for `llrNoExcuse`; not in
  /// an EYU. Read as letter or as long text; an unknown text reads as `llrNoExcuse`.
  ///@{
  lreLateReason LateReason() const;
  void LateReason(lreLateReason value);
  ///@}

  /// Whether a pension is accessed flexibly; read from `FlexiblyAccessingPensionRights` "yes", in any case,
  /// and never written.
  ///@{
  bool IsFAPR() const;
  void IsFAPR(bool value);
  ///@}

  /// The application's own pay period number; neither read nor written.
  ///@{
  Long AppPeriodNo() const;
  void AppPeriodNo(Long value);
  ///@}

  /// Sets HoursWorked from the number of weekly hours: below 16, 24 and 30 the three lower bands, from 30 the
  /// highest, and `Undisclosed` for a negative number.
  void SetHoursWorkedByValue(double dblNoHoursWorked);

  /// Sets the amount of one kind of trivial commutation payment (`TrivialCommutationPayment`, attribute
  /// `type`); zero stands for none. Raises error 9 for a kind that is none.
  void SetTrivialCommutationPayment(tcpPaymentType eniType, Currency curValue);

  /// The amount of one kind. Raises error 9 for a kind that is none.
  Currency GetTrivialCommutationPayment(tcpPaymentType eniType) const;

  /// The amounts of the three kinds, in their order.
  std::array<Currency, 3> TrivialCommutationPayment() const;

  /// The letter of a kind, "A" to "C". Raises error 9 for a kind that is none.
  String TrivialCommutationPaymentTypeDescr(tcpPaymentType eniType) const;

  /// The pension drawn on (`FlexibleDrawdown`), in every document; an absent record is made by the read. A
  /// write clears the record's Validated.
  ///@{
  Ref<clsFlexibleDrawdown> FlexibleDrawdown();
  void FlexibleDrawdown(Ref<clsFlexibleDrawdown> value);
  ///@}

  /// Whether a drawdown is held. Makes none.
  bool HasFlexibleDrawdown() const;

  /// The benefits (`Benefits`), in an FPS alone; an absent record is made by the read. A write clears the
  /// record's Validated.
  ///@{
  Ref<clsBenefits> Benefits();
  void Benefits(Ref<clsBenefits> value);
  ///@}

  /// Whether benefits are held. Makes none.
  bool HasBenefits() const;

  /// Takes its arguments and does nothing: applications make the hash themselves and hand it to Create.
  void CreateBacsHashCode(const String& strRandGen, const String& strOrigSortCode,
                          const String& strRecpSortCode, Currency curPayment);

  /// Writes the parent's one `Payment` afresh, for the type of document and the employee's gender, and
  /// returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent, eRTISUBMISSIONTYPE submissionType,
                                EMPLOYEE_GENDER gender);

 private:
  struct MoneyElement;
  static const MoneyElement kMoneyElements[];

  // The characters of a text that are numbers by themselves; ready for sort codes, which come with hyphens.
  static String StripNonNumeric(const String& text);

  void Clear();
  bool ReadMoney(std::string_view name, const XmlNode& child);
  void ReadTrivialCommutationPayment(const XmlNode& child);
  void ReadOther(std::string_view name, const XmlNode& child);
  void WritePeriod(Element& out) const;
  void WriteStudentLoan(Element& out, bool in_earlier_year_update) const;
  void WriteStatutoryPay(Element& out, bool in_full_payment_submission, EMPLOYEE_GENDER gender) const;
  void WriteStatutoryPayOfEarlierYear(Element& out) const;
  void WriteTrivialCommutationPayments(const Element& out) const;

  String week_no_;
  String month_no_;
  String bacs_hash_code_;
  Date pay_date_;
  Currency taxable_pay_;
  Currency non_tax_or_nic_pmt_;
  Currency dedns_from_net_pay_;
  Currency pay_after_stat_dedns_;
  Currency benefits_taxed_via_payroll_;
  Currency empee_pen_contribns_paid_;
  Currency items_subject_to_class_1_nic_;
  Currency empee_pen_contribns_not_paid_;
  Currency student_loan_recovered_;
  Currency postgrad_loan_recovered_;
  Currency tax_deducted_or_refunded_;
  Currency ssp_ytd_;
  Currency smp_ytd_;
  Currency ospp_ytd_;
  Currency sap_ytd_;
  Currency aspp_ytd_;
  Currency spbp_ytd_;
  Currency snc_ytd_;
  Currency class_1a_nics_ytd_;
  Currency c1a_nic_termination_;
  Currency c1a_nic_termination_ytd_;
  std::array<Currency, 3> trivial_commutation_payments_;
  Ref<clsTaxCode> tax_code_;
  Ref<clsFlexibleDrawdown> flexible_drawdown_;
  Ref<clsBenefits> benefits_;
  PAY_FREQUENCY pay_frequency_ = PAY_FREQUENCY::Undisclosed;
  HOURS_WORKED hours_worked_ = HOURS_WORKED::Undisclosed;
  StudentLoan_PlanType student_loan_plan_type_{};
  lreLateReason late_reason_ = lreLateReason::llrNoExcuse;
  Long app_period_no_ = 0;
  Integer periods_covered_ = 0;
  bool aggregated_earnings_ = false;
  bool payment_after_leaving_ = false;
  bool on_strike_ = false;
  bool unpaid_absence_ = false;
  bool fapr_ = false;
};

}  // namespace zelnor
