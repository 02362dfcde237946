#include "zelnor/documents/clsPayment.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>

namespace zelnor {
namespace {

// By the values of PAY_FREQUENCY.
constexpr std::array<std::string_view, 9> kPayFrequencies{"W1", "W2", "W4", "M1", "M3",
                                                          "M6", "MA", "IO", "IR"};

// By the values of HOURS_WORKED.
constexpr std::array<std::string_view, 5> kHoursLetters{"A", "B", "C", "D", "E"};
constexpr std::array<std::string_view, 4> kHoursTexts{"UP TO 15.99", "16 TO 23.99 HRS", "24 TO 29.99 HRS",
                                                      "30 HOURS OR MORE"};

// By the values of lreLateReason, less one.
constexpr std::array<std::string_view, 8> kLateReasonLetters{"A", "B", "C", "D", "E", "F", "G", "H"};
constexpr std::array<std::string_view, 8> kLateReasonTexts{
    "NOTIONAL PAYMENT: PAYMENT TO EXPAT BY THIRD PARTY OR OVERSEAS EMPLOYER",
    "NOTIONAL PAYMENT: EMPLOYMENT RELATED SECURITY",
    "NOTIONAL PAYMENT: OTHER",
    "PAYMENT SUBJECT TO CLASS 1 NICS BUT P11D/P9D FOR TAX",
    "NO REQUIREMENT TO MAINTAIN A DEDUCTIONS WORKING SHEET",
    "IMPRACTICAL TO REPORT WORK DONE ON THE DAY",
    "REASONABLE EXCUSE",
    "CORRECTION TO EARLIER SUBMISSION"};

// By the values of tcpPaymentType, less one.
constexpr std::array<std::string_view, 3> kTrivialCommutationLetters{"A", "B", "C"};

using Texts = std::span<const std::string_view>;

// The text at an index; `otherwise` where there is none.
std::string_view TextAt(Texts texts, std::int32_t index, std::string_view otherwise) {
  if (index < 0 || static_cast<std::size_t>(index) >= texts.size()) return otherwise;
  return texts[static_cast<std::size_t>(index)];
}

// The index of a text; -1 for none of them.
std::int32_t IndexOf(Texts texts, std::string_view text) {
  const auto found = std::find(texts.begin(), texts.end(), text);
  return found == texts.end() ? -1 : static_cast<std::int32_t>(found - texts.begin());
}

PAY_FREQUENCY PayFrequencyFrom(const String& text) {
  const std::int32_t index = IndexOf(kPayFrequencies, UpperCase(text));
  return index < 0 ? PAY_FREQUENCY::Irregular : PAY_FREQUENCY{index};
}

// A plan is at most two digits; anything else is none.
StudentLoan_PlanType PlanTypeFrom(const String& text) {
  return text.size() <= 2 && IsNumeric(text) ? StudentLoan_PlanType{ToLong(text)} : StudentLoan_PlanType{};
}

HOURS_WORKED HoursWorkedFrom(const String& text) {
  const std::int32_t index = IndexOf(kHoursTexts, UpperCase(text));
  return index < 0 ? HOURS_WORKED::Other : HOURS_WORKED{index};
}

lreLateReason LateReasonFrom(const String& text) {
  const String upper = UpperCase(text);
  const std::int32_t letter = IndexOf(kLateReasonLetters, upper);
  return lreLateReason{1 + (letter < 0 ? IndexOf(kLateReasonTexts, upper) : letter)};
}

std::size_t TrivialCommutationIndex(tcpPaymentType type) {
  const auto number = static_cast<std::int32_t>(type);
  if (number < 1 || number > 3) ThrowOutOfSubscript();
  return static_cast<std::size_t>(number - 1);
}

}  // namespace

void clsPayment::Create(PAY_FREQUENCY eniPayFrequency, Date datPayDate, const String& strWeekNo,
                        const String& strMonthNo, Integer intPeriodsCovered, bool blnAggregatedEarnings,
                        bool blnPaymentAfterLeaving, HOURS_WORKED eniHoursWorked, Currency curTaxablePay,
                        Currency curNonTaxOrNICPmt, Currency curDednsFromNetPay,
                        Currency curPayAfterStatDedns, Currency curBenefitsTaxedViaPayroll,
                        Currency curEmpeePenContribnsPaid, Currency curItemsSubjectToClass1NIC,
                        Currency curEmpeePenContribnsNotPaid, Currency curStudentLoanRecovered,
                        StudentLoan_PlanType enmStudentLoanPlanType, Currency curTaxDeductedOrRefunded,
                        Currency curSSPYTD, Currency curSMPYTD, Currency curOSPPYTD, Currency curSAPYTD,
                        Currency curASPPYTD, Currency curPostgradLoanRecovered, const String& strBacsHashCode,
                        bool blnOnStrike, bool blnUnpaidAbsence, lreLateReason eniLateReason, bool blnFAPR,
                        Currency curC1ANICtermination, Currency curC1ANICterminationYTD) {
  pay_frequency_ = eniPayFrequency;
  pay_date_ = datPayDate;
  week_no_ = strWeekNo;
  month_no_ = strMonthNo;
  periods_covered_ = intPeriodsCovered;
  aggregated_earnings_ = blnAggregatedEarnings;
  payment_after_leaving_ = blnPaymentAfterLeaving;
  hours_worked_ = eniHoursWorked;
  taxable_pay_ = curTaxablePay;
  non_tax_or_nic_pmt_ = curNonTaxOrNICPmt;
  dedns_from_net_pay_ = curDednsFromNetPay;
  pay_after_stat_dedns_ = curPayAfterStatDedns;
  benefits_taxed_via_payroll_ = curBenefitsTaxedViaPayroll;
  empee_pen_contribns_paid_ = curEmpeePenContribnsPaid;
  items_subject_to_class_1_nic_ = curItemsSubjectToClass1NIC;
  empee_pen_contribns_not_paid_ = curEmpeePenContribnsNotPaid;
  student_loan_recovered_ = curStudentLoanRecovered;
  student_loan_plan_type_ = enmStudentLoanPlanType;
  tax_deducted_or_refunded_ = curTaxDeductedOrRefunded;
  ssp_ytd_ = curSSPYTD;
  smp_ytd_ = curSMPYTD;
  ospp_ytd_ = curOSPPYTD;
  sap_ytd_ = curSAPYTD;
  aspp_ytd_ = curASPPYTD;
  postgrad_loan_recovered_ = curPostgradLoanRecovered;
  bacs_hash_code_ = strBacsHashCode;
  on_strike_ = blnOnStrike;
  unpaid_absence_ = blnUnpaidAbsence;
  late_reason_ = eniLateReason;
  fapr_ = blnFAPR;
  c1a_nic_termination_ = curC1ANICtermination;
  c1a_nic_termination_ytd_ = curC1ANICterminationYTD;
  validated_ = false;
}

bool clsPayment::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsPayment", strXML); }

bool clsPayment::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsPayment", "Function CreateFromXML", [&] {
    Clear();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (!child.IsElement()) continue;
        const std::string_view name = child.BaseName();
        if (!ReadMoney(name, child)) ReadOther(name, child);
      }
      result = true;
    }
  });
  return result;
}

void clsPayment::Clear() {
  const PAY_FREQUENCY kept = pay_frequency_;
  *this = clsPayment();
  pay_frequency_ = kept;
  tax_code_ = std::make_shared<clsTaxCode>();
}

// The names under which amounts are read, in the order in which they are written.
struct clsPayment::MoneyElement {
  std::string_view name;
  Currency clsPayment::*amount;
};

const clsPayment::MoneyElement clsPayment::kMoneyElements[] = {
    {"TaxablePay", &clsPayment::taxable_pay_},
    {"NonTaxOrNICPmt", &clsPayment::non_tax_or_nic_pmt_},
    {"DednsFromNetPay", &clsPayment::dedns_from_net_pay_},
    {"PayAfterStatDedns", &clsPayment::pay_after_stat_dedns_},
    {"BenefitsTaxedViaPayroll", &clsPayment::benefits_taxed_via_payroll_},
    {"Class1ANICsYTD", &clsPayment::class_1a_nics_ytd_},
    {"EmpeePenContribnsPaid", &clsPayment::empee_pen_contribns_paid_},
    {"ItemsSubjectToClass1NIC", &clsPayment::items_subject_to_class_1_nic_},
    {"EmpeePenContribnsNotPaid", &clsPayment::empee_pen_contribns_not_paid_},
    {"PostgradLoanRecovered", &clsPayment::postgrad_loan_recovered_},
    {"TaxDeductedOrRefunded", &clsPayment::tax_deducted_or_refunded_},
    {"SSPYTD", &clsPayment::ssp_ytd_},
    {"SMPYTD", &clsPayment::smp_ytd_},
    {"SPPYTD", &clsPayment::ospp_ytd_},
    {"SAPYTD", &clsPayment::sap_ytd_},
    {"ShPPYTD", &clsPayment::aspp_ytd_},
    {"SPBPYTD", &clsPayment::spbp_ytd_},
    {"SNCPYTD", &clsPayment::snc_ytd_},
};

bool clsPayment::ReadMoney(std::string_view name, const XmlNode& child) {
  for (const MoneyElement& element : kMoneyElements) {
    if (element.name != name) continue;
    this->*element.amount = ToCurrency(child.Text());
    return true;
  }
  return false;
}

void clsPayment::ReadOther(std::string_view name, const XmlNode& child) {
  if (name == "PayFreq") {
    pay_frequency_ = PayFrequencyFrom(child.Text());
  } else if (name == "PmtDate") {
    pay_date_ = ToDate(child.Text());
  } else if (name == "MonthNo") {
    month_no_ = child.Text();
  } else if (name == "WeekNo") {
    week_no_ = child.Text();
  } else if (name == "PeriodsCovered") {
    periods_covered_ = ToInteger(child.Text());
  } else if (name == "HoursWorked") {
    hours_worked_ = HoursWorkedFrom(child.Text());
  } else if (name == "TaxCode") {
    tax_code_->CreateFromXML(child);
  } else if (name == "StudentLoanRecovered") {
    student_loan_recovered_ = ToCurrency(child.Text());
    student_loan_plan_type_ = PlanTypeFrom(child.Attribute("PlanType").value_or(""));
  } else if (name == "LateReason") {
    late_reason_ = LateReasonFrom(child.Text());
  } else if (name == "AggregatedEarnings") {
    aggregated_earnings_ = true;
  } else if (name == "PmtAfterLeaving") {
    payment_after_leaving_ = true;
  } else if (name == "OnStrike") {
    on_strike_ = true;
  } else if (name == "UnpaidAbsence") {
    unpaid_absence_ = true;
  } else if (name == "BacsHashCode") {
    bacs_hash_code_ = child.Text();
  } else if (name == "TrivialCommutationPayment") {
    ReadTrivialCommutationPayment(child);
  } else if (name == "FlexiblyAccessingPensionRights") {
    fapr_ = IsYes(child.Text());
  } else if (name == "FlexibleDrawdown") {
    flexible_drawdown_ = NewFromXML<clsFlexibleDrawdown>(child);
  } else if (name == "Benefits") {
    benefits_ = NewFromXML<clsBenefits>(child);
  }
}

// An amount without a known kind is dropped unread.
void clsPayment::ReadTrivialCommutationPayment(const XmlNode& child) {
  const std::int32_t index =
      IndexOf(kTrivialCommutationLetters, UpperCase(child.Attribute("type").value_or("")));
  if (index >= 0) trivial_commutation_payments_[static_cast<std::size_t>(index)] = ToCurrency(child.Text());
}

bool clsPayment::Validated() const {
  return validated_ && AbsentOrValidated(tax_code_) && AbsentOrValidated(flexible_drawdown_) &&
         AbsentOrValidated(benefits_);
}

String clsPayment::RootElementName() const { return "Payment"; }

PAY_FREQUENCY clsPayment::PayFrequency() const { return pay_frequency_; }
void clsPayment::PayFrequency(PAY_FREQUENCY value) { Change(pay_frequency_, value); }

Date clsPayment::PayDate() const { return pay_date_; }
void clsPayment::PayDate(Date value) { Change(pay_date_, value); }

String clsPayment::WeekNo() const { return week_no_; }
void clsPayment::WeekNo(String value) { Change(week_no_, std::move(value)); }

String clsPayment::MonthNo() const { return month_no_; }
void clsPayment::MonthNo(String value) { Change(month_no_, std::move(value)); }

Integer clsPayment::PeriodsCovered() const { return periods_covered_; }
void clsPayment::PeriodsCovered(Integer value) { Change(periods_covered_, value); }

bool clsPayment::IsAggregatedEarnings() const { return aggregated_earnings_; }
void clsPayment::IsAggregatedEarnings(bool value) { Change(aggregated_earnings_, value); }

bool clsPayment::IsPaymentAfterLeaving() const { return payment_after_leaving_; }
void clsPayment::IsPaymentAfterLeaving(bool value) { Change(payment_after_leaving_, value); }

HOURS_WORKED clsPayment::HoursWorked() const { return hours_worked_; }
void clsPayment::HoursWorked(HOURS_WORKED value) { Change(hours_worked_, value); }

Ref<clsTaxCode> clsPayment::TaxCode() { return MadeWhenAbsent(tax_code_); }
void clsPayment::TaxCode(Ref<clsTaxCode> value) {
  tax_code_ = std::move(value);
  ClearValidated(tax_code_);
}

Currency clsPayment::TaxablePay() const { return taxable_pay_; }
void clsPayment::TaxablePay(Currency value) { Change(taxable_pay_, value); }

Currency clsPayment::NonTaxOrNICPmt() const { return non_tax_or_nic_pmt_; }
void clsPayment::NonTaxOrNICPmt(Currency value) { Change(non_tax_or_nic_pmt_, value); }

Currency clsPayment::DednsFromNetPay() const { return dedns_from_net_pay_; }
void clsPayment::DednsFromNetPay(Currency value) { Change(dedns_from_net_pay_, value); }

Currency clsPayment::PayAfterStatDedns() const { return pay_after_stat_dedns_; }
void clsPayment::PayAfterStatDedns(Currency value) { Change(pay_after_stat_dedns_, value); }

Currency clsPayment::BenefitsTaxedViaPayroll() const { return benefits_taxed_via_payroll_; }
void clsPayment::BenefitsTaxedViaPayroll(Currency value) { Change(benefits_taxed_via_payroll_, value); }

Currency clsPayment::EmpeePenContribnsPaid() const { return empee_pen_contribns_paid_; }
void clsPayment::EmpeePenContribnsPaid(Currency value) { Change(empee_pen_contribns_paid_, value); }

Currency clsPayment::ItemsSubjectToClass1NIC() const { return items_subject_to_class_1_nic_; }
void clsPayment::ItemsSubjectToClass1NIC(Currency value) { Change(items_subject_to_class_1_nic_, value); }

Currency clsPayment::EmpeePenContribnsNotPaid() const { return empee_pen_contribns_not_paid_; }
void clsPayment::EmpeePenContribnsNotPaid(Currency value) { Change(empee_pen_contribns_not_paid_, value); }

Currency clsPayment::StudentLoanRecovered() const { return student_loan_recovered_; }
void clsPayment::StudentLoanRecovered(Currency value) { Change(student_loan_recovered_, value); }

StudentLoan_PlanType clsPayment::StudentLoanPlanType() const { return student_loan_plan_type_; }
void clsPayment::StudentLoanPlanType(StudentLoan_PlanType value) { Change(student_loan_plan_type_, value); }

Currency clsPayment::PostgradLoanRecovered() const { return postgrad_loan_recovered_; }
void clsPayment::PostgradLoanRecovered(Currency value) { Change(postgrad_loan_recovered_, value); }

Currency clsPayment::TaxDeductedOrRefunded() const { return tax_deducted_or_refunded_; }
void clsPayment::TaxDeductedOrRefunded(Currency value) { Change(tax_deducted_or_refunded_, value); }

Currency clsPayment::SSPYTD() const { return ssp_ytd_; }
void clsPayment::SSPYTD(Currency value) { Change(ssp_ytd_, value); }

Currency clsPayment::SMPYTD() const { return smp_ytd_; }
void clsPayment::SMPYTD(Currency value) { Change(smp_ytd_, value); }

Currency clsPayment::OSPPYTD() const { return ospp_ytd_; }
void clsPayment::OSPPYTD(Currency value) { Change(ospp_ytd_, value); }

Currency clsPayment::SAPYTD() const { return sap_ytd_; }
void clsPayment::SAPYTD(Currency value) { Change(sap_ytd_, value); }

Currency clsPayment::ASPPYTD() const { return aspp_ytd_; }
void clsPayment::ASPPYTD(Currency value) { Change(aspp_ytd_, value); }

Currency clsPayment::SPBPYTD() const { return spbp_ytd_; }
void clsPayment::SPBPYTD(Currency value) { Change(spbp_ytd_, value); }

Currency clsPayment::SNCPYTD() const { return snc_ytd_; }
void clsPayment::SNCPYTD(Currency value) { Change(snc_ytd_, value); }

Currency clsPayment::Class1ANICsYTD() const { return class_1a_nics_ytd_; }
void clsPayment::Class1ANICsYTD(Currency value) { Change(class_1a_nics_ytd_, value); }

Currency clsPayment::C1ANICtermination() const { return c1a_nic_termination_; }
void clsPayment::C1ANICtermination(Currency value) { Change(c1a_nic_termination_, value); }

Currency clsPayment::C1ANICterminationYTD() const { return c1a_nic_termination_ytd_; }
void clsPayment::C1ANICterminationYTD(Currency value) { Change(c1a_nic_termination_ytd_, value); }

String clsPayment::BacsHashCode() const { return bacs_hash_code_; }

bool clsPayment::HadBeenOnStrike() const { return on_strike_; }
void clsPayment::HadBeenOnStrike(bool value) { Change(on_strike_, value); }

bool clsPayment::HadAnUnpaidAbsence() const { return unpaid_absence_; }
void clsPayment::HadAnUnpaidAbsence(bool value) { Change(unpaid_absence_, value); }

lreLateReason clsPayment::LateReason() const { return late_reason_; }
void clsPayment::LateReason(lreLateReason value) { Change(late_reason_, value); }

bool clsPayment::IsFAPR() const { return fapr_; }
void clsPayment::IsFAPR(bool value) { Change(fapr_, value); }

Long clsPayment::AppPeriodNo() const { return app_period_no_; }
void clsPayment::AppPeriodNo(Long value) { Change(app_period_no_, value); }

void clsPayment::SetHoursWorkedByValue(double dblNoHoursWorked) {
  HoursWorked(dblNoHoursWorked >= 30   ? HOURS_WORKED::ThirtyOrMore
              : dblNoHoursWorked >= 24 ? HOURS_WORKED::TwentyFourToThirty
              : dblNoHoursWorked >= 16 ? HOURS_WORKED::SixteenToTwentyFour
              : dblNoHoursWorked >= 0  ? HOURS_WORKED::UpTo16
                                       : HOURS_WORKED::Undisclosed);
}

void clsPayment::SetTrivialCommutationPayment(tcpPaymentType eniType, Currency curValue) {
  Change(trivial_commutation_payments_[TrivialCommutationIndex(eniType)], curValue);
}

Currency clsPayment::GetTrivialCommutationPayment(tcpPaymentType eniType) const {
  return trivial_commutation_payments_[TrivialCommutationIndex(eniType)];
}

std::array<Currency, 3> clsPayment::TrivialCommutationPayment() const {
  return trivial_commutation_payments_;
}

String clsPayment::TrivialCommutationPaymentTypeDescr(tcpPaymentType eniType) const {
  return String(kTrivialCommutationLetters[TrivialCommutationIndex(eniType)]);
}

Ref<clsFlexibleDrawdown> clsPayment::FlexibleDrawdown() { return MadeWhenAbsent(flexible_drawdown_); }
void clsPayment::FlexibleDrawdown(Ref<clsFlexibleDrawdown> value) {
  flexible_drawdown_ = std::move(value);
  ClearValidated(flexible_drawdown_);
}

bool clsPayment::HasFlexibleDrawdown() const { return flexible_drawdown_ != nullptr; }

Ref<clsBenefits> clsPayment::Benefits() { return MadeWhenAbsent(benefits_); }
void clsPayment::Benefits(Ref<clsBenefits> value) {
  benefits_ = std::move(value);
  ClearValidated(benefits_);
}

bool clsPayment::HasBenefits() const { return benefits_ != nullptr; }

void clsPayment::CreateBacsHashCode(const String& /*strRandGen*/, const String& /*strOrigSortCode*/,
                                    const String& /*strRecpSortCode*/, Currency /*curPayment*/) {}

String clsPayment::StripNonNumeric(const String& text) {
  String numeric;
  std::copy_if(text.begin(), text.end(), std::back_inserter(numeric),
               [](char c) { return IsNumeric(std::string_view(&c, 1)); });
  return numeric;
}

XmlNode clsPayment::ToXML(const XmlNode& xmlParent, eRTISUBMISSIONTYPE submissionType,
                          EMPLOYEE_GENDER gender) {
  XmlNode result;
  Handled("clsPayment", "Function ToXML", [&] {
    const bool eyu = submissionType == eRTISUBMISSIONTYPE::IsEYU;
    const bool fps = submissionType == eRTISUBMISSIONTYPE::IsFPS;
    Element out = Element::Emptied("Payment", xmlParent);
    result = out.Node();
    if (!eyu) WritePeriod(out);
    (tax_code_ ? tax_code_ : std::make_shared<clsTaxCode>())->ToXML(result);
    if (!eyu || !taxable_pay_.IsZero()) out.Money("TaxablePay", taxable_pay_);
    if (!eyu) out.Money("NonTaxOrNICPmt", non_tax_or_nic_pmt_);
    if (!eyu) out.Money("DednsFromNetPay", dedns_from_net_pay_);
    if (!eyu) out.Money("PayAfterStatDedns", pay_after_stat_dedns_);
    out.Money("BenefitsTaxedViaPayroll", benefits_taxed_via_payroll_);
    if (fps) out.Money("Class1ANICsYTD", class_1a_nics_ytd_);
    if (fps && benefits_) benefits_->ToXML(result);
    out.Money("EmpeePenContribnsPaid", empee_pen_contribns_paid_);
    if (!eyu) out.Money("ItemsSubjectToClass1NIC", items_subject_to_class_1_nic_);
    out.Money("EmpeePenContribnsNotPaid", empee_pen_contribns_not_paid_);
    if (!student_loan_recovered_.IsZero()) WriteStudentLoan(out, eyu);
    out.OptionalMoney("PostgradLoanRecovered", postgrad_loan_recovered_);
    if (eyu) out.OptionalMoney("Tax", tax_deducted_or_refunded_);
    if (!eyu) out.Money("TaxDeductedOrRefunded", tax_deducted_or_refunded_);
    out.Yes("OnStrike", on_strike_ && !eyu);
    out.Yes("UnpaidAbsence", unpaid_absence_ && !eyu);
    if (eyu) {
      WriteStatutoryPayOfEarlierYear(out);
    } else {
      WriteStatutoryPay(out, fps, gender);
    }
    WriteTrivialCommutationPayments(out);
    if (flexible_drawdown_) flexible_drawdown_->ToXML(result);
  });
  return result;
}

void clsPayment::WritePeriod(Element& out) const {
  const bool by_month = week_no_.empty() || week_no_ == "0";
  out.Text("PayFreq", TextAt(kPayFrequencies, static_cast<std::int32_t>(pay_frequency_), "XX"));
  out.Day("PmtDate", pay_date_);
  out.OptionalText("LateReason", TextAt(kLateReasonLetters, static_cast<std::int32_t>(late_reason_) - 1, ""));
  out.Text(by_month ? "MonthNo" : "WeekNo", by_month ? month_no_ : week_no_);
  out.Number("PeriodsCovered", periods_covered_);
  out.Yes("AggregatedEarnings", aggregated_earnings_);
  out.Yes("PmtAfterLeaving", payment_after_leaving_);
  out.Text("HoursWorked", TextAt(kHoursLetters, static_cast<std::int32_t>(hours_worked_), "Not Set"));
}

void clsPayment::WriteStudentLoan(Element& out, bool in_earlier_year_update) const {
  const XmlNode loan = out.Child("StudentLoanRecovered");
  loan.Text(FormatMoney(student_loan_recovered_));
  if (!in_earlier_year_update)
    loan.Attribute("PlanType", Format(static_cast<std::int32_t>(student_loan_plan_type_), "00"));
}

void clsPayment::WriteStatutoryPay(Element& out, bool in_full_payment_submission,
                                   EMPLOYEE_GENDER gender) const {
  if (!in_full_payment_submission) out.Money("SSPYTD", ssp_ytd_);
  if (gender == EMPLOYEE_GENDER::f || !smp_ytd_.IsZero()) out.Money("SMPYTD", smp_ytd_);
  out.Money("SPPYTD", ospp_ytd_);
  out.Money("SAPYTD", sap_ytd_);
  out.Money("ShPPYTD", aspp_ytd_);
  out.Money("SPBPYTD", spbp_ytd_);
  out.Money("SNCPYTD", snc_ytd_);
}

void clsPayment::WriteStatutoryPayOfEarlierYear(Element& out) const {
  out.OptionalMoney("SMP", smp_ytd_);
  out.OptionalMoney("SPP", ospp_ytd_);
  out.OptionalMoney("SAP", sap_ytd_);
  out.OptionalMoney("ShPP", aspp_ytd_);
  out.OptionalMoney("SPBPYTD", spbp_ytd_);
}

void clsPayment::WriteTrivialCommutationPayments(const Element& out) const {
  for (std::size_t i = 0; i < trivial_commutation_payments_.size(); ++i) {
    if (trivial_commutation_payments_[i].IsZero()) continue;
    const XmlNode payment = out.Node().AppendElement("TrivialCommutationPayment");
    payment.Text(FormatMoney(trivial_commutation_payments_[i]));
    payment.Attribute("type", kTrivialCommutationLetters[i]);
  }
}

}  // namespace zelnor
