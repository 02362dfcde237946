#include "zelnor/documents/clsSectionEPS.h"

#include "zelnor/common/enumerations.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/documents/clsApprenticeshipLevy.h"
#include "zelnor/documents/clsEPSAccount.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsFinalSubmission.h"
#include "zelnor/documents/clsPaymentForPeriod.h"

namespace zelnor {
namespace {

constexpr Long kNoPaymentDatesRefused = -234572;

void ReadPeriod(const XmlNode& xmlPeriod, Date& from, Date& to) {
  for (const XmlNode& child : xmlPeriod.ChildNodes()) {
    const std::string_view name = child.BaseName();
    if (name == "From") from = DateFromXML(child.Text());
    if (name == "To") to = DateFromXML(child.Text());
  }
}

void WritePeriodIf(bool condition, std::string_view name, Element& section, Date from, Date to) {
  if (!condition) {
    section.Remove(name);
    return;
  }
  Element period = Element::Single(name, section.Node());
  period.Day("From", from);
  period.Day("To", to);
}

}  // namespace

clsSectionEPS::clsSectionEPS() : employer_references_(std::make_shared<clsEmployerReferences>()) {}
clsSectionEPS::~clsSectionEPS() = default;

void clsSectionEPS::Create(Ref<clsEmployerReferences> objEmployerReferences, const String& strTaxYear,
                           Ref<clsPaymentForPeriod> objPayment, Ref<clsFinalSubmission> objFinalSubmission,
                           bool IncludeYtds, Ref<clsApprenticeshipLevy> objAppLevy) {
  employer_references_ = std::move(objEmployerReferences);
  tax_year_ = strTaxYear;
  payment_for_period_ = std::move(objPayment);
  no_payment_for_period_ = payment_for_period_ == nullptr;
  final_submission_ = std::move(objFinalSubmission);
  include_ytds_ = IncludeYtds;
  apprenticeship_levy_ = std::move(objAppLevy);
  validated_ = false;
}

bool clsSectionEPS::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsSectionEPS", strXML);
}

bool clsSectionEPS::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsSectionEPS", "Function CreateFromXML", [&] {
    validated_ = false;
    payment_for_period_ = nullptr;
    final_submission_ = nullptr;
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) ReadChild(child);
      result = true;
    }
  });
  return result;
}

void clsSectionEPS::ReadChild(const XmlNode& child) {
  const std::string_view name = child.BaseName();
  if (name == "EmpRefs") Employer_References()->CreateFromXML(child);
  if (name == "RelatedTaxYear") tax_year_ = child.Text();
  if (name == "NoPaymentForPeriod") no_payment_for_period_ = true;
  if (name == "NoPaymentDates") ReadPeriod(child, no_payment_from_, no_payment_to_);
  if (name == "PeriodOfInactivity") ReadPeriod(child, date_inactive_from_, date_inactive_to_);
  if (name == "DeMinimisStateAid") ReadStateAid(child);
  if (name == "RecoverableAmountsYTD") payment_for_period_ = NewFromXML<clsPaymentForPeriod>(child);
  if (name == "FinalSubmission") final_submission_ = NewFromXML<clsFinalSubmission>(child);
  if (name == "Account") account_ = NewFromXML<clsEPSAccount>(child);
  if (name == "ApprenticeshipLevy") apprenticeship_levy_ = NewFromXML<clsApprenticeshipLevy>(child);
  if (name == "EmpAllceInd") {
    has_emp_allowance_indicator_ = true;
    employment_allowance_indicator_ = IsYes(child.Text());
  }
}

void clsSectionEPS::ReadStateAid(const XmlNode& xmlNode) {
  for (const XmlNode& child : xmlNode.ChildNodes()) {
    const std::string_view name = child.BaseName();
    if (name == "Agri") agri_ = ToBoolean(child.Text());
    if (name == "FisheriesAqua") fisheries_aqua_ = ToBoolean(child.Text());
    if (name == "RoadTrans") road_trans_ = ToBoolean(child.Text());
    if (name == "Indust") indust_ = ToBoolean(child.Text());
    if (name == "NA") na_ = ToBoolean(child.Text());
    if (name == "Aid") aid_ = ToCurrency(child.Text());
  }
}

bool clsSectionEPS::Validated() const {
  return validated_ && AbsentOrValidated(employer_references_) && AbsentOrValidated(payment_for_period_) &&
         AbsentOrValidated(account_) && AbsentOrValidated(apprenticeship_levy_) &&
         AbsentOrValidated(final_submission_);
}

String clsSectionEPS::RootElementName() const { return "EmployerPaymentSummary"; }
String clsSectionEPS::Class() const { return "HMRC-PAYE-RTI-EPS"; }
String clsSectionEPS::DefaultSchema() const { return "\\xsd\\EmployerPaymentSummary-2026-v1-0.xsd"; }

Ref<clsEmployerReferences> clsSectionEPS::Employer_References() {
  return MadeWhenAbsent(employer_references_);
}
void clsSectionEPS::Employer_References(Ref<clsEmployerReferences> value) {
  ClearValidated(value);
  employer_references_ = std::move(value);
}

String clsSectionEPS::TaxYear() const { return tax_year_; }
void clsSectionEPS::TaxYear(String value) { Change(tax_year_, std::move(value)); }
void clsSectionEPS::SetRelatedTaxYear(const String& strTaxYear) {
  tax_year_ = strTaxYear;
  validated_ = false;
}

Long clsSectionEPS::PeriodIdentifier() const { return period_identifier_; }
void clsSectionEPS::PeriodIdentifier(Long value) { Change(period_identifier_, value); }

bool clsSectionEPS::NoPaymentForPeriod() const { return no_payment_for_period_; }
void clsSectionEPS::NoPaymentForPeriod(bool value) { Change(no_payment_for_period_, value); }

void clsSectionEPS::RequireNoPaymentForPeriod(const char* member) const {
  if (no_payment_for_period_) return;
  throw RuntimeError(kNoPaymentDatesRefused, String("ZELNOR.clsSectionEPS.") + member,
                     "You cannot have No Payment dates if No Payment For Period is unset.");
}

Date clsSectionEPS::NoPaymentFrom() const { return no_payment_from_; }
void clsSectionEPS::NoPaymentFrom(Date value) {
  RequireNoPaymentForPeriod("NoPaymentFrom");
  Change(no_payment_from_, value);
}

Date clsSectionEPS::NoPaymentTo() const { return no_payment_to_; }
void clsSectionEPS::NoPaymentTo(Date value) {
  RequireNoPaymentForPeriod("NoPaymentTo");
  Change(no_payment_to_, value);
}

void clsSectionEPS::SetNoPaymentDates(Date datNoPaymentFrom, Date datNoPaymentTo) {
  RequireNoPaymentForPeriod("SetNoPaymentDates");
  Change(no_payment_from_, datNoPaymentFrom);
  Change(no_payment_to_, datNoPaymentTo);
}

Date clsSectionEPS::DateInactiveFrom() const { return date_inactive_from_; }
void clsSectionEPS::DateInactiveFrom(Date value) { Change(date_inactive_from_, value); }

Date clsSectionEPS::DateInactiveTo() const { return date_inactive_to_; }
void clsSectionEPS::DateInactiveTo(Date value) { Change(date_inactive_to_, value); }

bool clsSectionEPS::HasPeriodOfInactivity() const {
  return !date_inactive_from_.IsZero() || !date_inactive_to_.IsZero();
}

Ref<clsPaymentForPeriod> clsSectionEPS::PaymentForPeriod() { return MadeWhenAbsent(payment_for_period_); }
void clsSectionEPS::PaymentForPeriod(Ref<clsPaymentForPeriod> value) {
  ClearValidated(value);
  payment_for_period_ = std::move(value);
}
bool clsSectionEPS::HasPaymentForPeriod() const { return payment_for_period_ != nullptr; }

Ref<clsEPSAccount> clsSectionEPS::Account() { return MadeWhenAbsent(account_); }
void clsSectionEPS::Account(Ref<clsEPSAccount> value) {
  ClearValidated(value);
  account_ = std::move(value);
}
bool clsSectionEPS::HasAccount() const { return account_ != nullptr; }
void clsSectionEPS::KillAccount() { account_ = nullptr; }

bool clsSectionEPS::EmploymentAllowanceIndicator() const { return employment_allowance_indicator_; }
void clsSectionEPS::EmploymentAllowanceIndicator(bool value) {
  Change(employment_allowance_indicator_, value);
  Change(has_emp_allowance_indicator_, true);
}
bool clsSectionEPS::HasEmpAllowanceIndicator() const { return has_emp_allowance_indicator_; }
void clsSectionEPS::ClearEmploymentAllowanceIndicator() { Change(has_emp_allowance_indicator_, false); }

Ref<clsApprenticeshipLevy> clsSectionEPS::ApprenticeshipLevy() {
  return MadeWhenAbsent(apprenticeship_levy_);
}
void clsSectionEPS::ApprenticeshipLevy(Ref<clsApprenticeshipLevy> value) {
  ClearValidated(value);
  apprenticeship_levy_ = std::move(value);
}
bool clsSectionEPS::HasApprenticeshipLevy() const { return apprenticeship_levy_ != nullptr; }
void clsSectionEPS::KillAppLevy() { apprenticeship_levy_ = nullptr; }

Ref<clsFinalSubmission> clsSectionEPS::Final_Submission() { return MadeWhenAbsent(final_submission_); }
void clsSectionEPS::Final_Submission(Ref<clsFinalSubmission> value) {
  ClearValidated(value);
  final_submission_ = std::move(value);
}
bool clsSectionEPS::HasFinalSubmission() const { return final_submission_ != nullptr; }
void clsSectionEPS::KillFinalSubmissionInfo() { final_submission_ = nullptr; }

bool clsSectionEPS::IncludeYtds() const { return include_ytds_; }
void clsSectionEPS::IncludeYtds(bool value) { Change(include_ytds_, value); }

bool clsSectionEPS::Agri() const { return agri_; }
void clsSectionEPS::Agri(bool value) { Change(agri_, value); }

bool clsSectionEPS::FisheriesAqua() const { return fisheries_aqua_; }
void clsSectionEPS::FisheriesAqua(bool value) { Change(fisheries_aqua_, value); }

bool clsSectionEPS::RoadTrans() const { return road_trans_; }
void clsSectionEPS::RoadTrans(bool value) { Change(road_trans_, value); }

bool clsSectionEPS::Indust() const { return indust_; }
void clsSectionEPS::Indust(bool value) { Change(indust_, value); }

bool clsSectionEPS::NA() const { return na_; }
void clsSectionEPS::NA(bool value) { Change(na_, value); }

Currency clsSectionEPS::Aid() const { return aid_; }
void clsSectionEPS::Aid(Currency value) { Change(aid_, value); }

XmlNode clsSectionEPS::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsSectionEPS", "Function ToXML", [&] {
    Element out = Element::Single("EmployerPaymentSummary", xmlParent);
    result = out.Node();
    Employer_References()->ToXML(result);
    out.Yes("NoPaymentForPeriod", no_payment_for_period_);
    WritePeriodIf(no_payment_for_period_, "NoPaymentDates", out, no_payment_from_, no_payment_to_);
    WritePeriodIf(HasPeriodOfInactivity(), "PeriodOfInactivity", out, date_inactive_from_, date_inactive_to_);
    out.TextIf(has_emp_allowance_indicator_, "EmpAllceInd", BoolToYesNo(employment_allowance_indicator_));
    WriteStateAid(out);
    if (include_ytds_ || !no_payment_for_period_) {
      PaymentForPeriod()->ToXML(result);
    } else {
      out.Remove("RecoverableAmountsYTD");
    }
    if (apprenticeship_levy_) {
      apprenticeship_levy_->ToXML(result, eRTISUBMISSIONTYPE::IsEPS);
    } else {
      out.Remove("ApprenticeshipLevy");
    }
    // An account always appends its element, so that one from an earlier writing goes first.
    out.Remove("Account");
    if (account_) account_->ToXML(result);
    out.Text("RelatedTaxYear", tax_year_);
    if (final_submission_) {
      final_submission_->ToXML(result);
    } else {
      out.Remove("FinalSubmission");
    }
  });
  return result;
}

void clsSectionEPS::WriteStateAid(Element& section) const {
  if (!agri_ && !fisheries_aqua_ && !road_trans_ && !indust_ && !na_) {
    section.Remove("DeMinimisStateAid");
    return;
  }
  Element aid = Element::Emptied("DeMinimisStateAid", section.Node());
  aid.Yes("Agri", agri_);
  aid.Yes("FisheriesAqua", fisheries_aqua_);
  aid.Yes("RoadTrans", road_trans_);
  aid.Yes("Indust", indust_);
  aid.Yes("NA", na_);
}

}  // namespace zelnor
