#include "zelnor/documents/clsEmployment.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsFiguresToDate.h"
#include "zelnor/documents/clsNILettersAndValues.h"
#include "zelnor/documents/clsPayIdChgd.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsStarter.h"
#include "zelnor/documents/clsTaxCode.h"
#include "zelnor/documents/document_type.h"
#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

constexpr eRTISUBMISSIONTYPE kEAS = eRTISUBMISSIONTYPE::IsEAS;
constexpr eRTISUBMISSIONTYPE kFPS = eRTISUBMISSIONTYPE::IsFPS;
constexpr eRTISUBMISSIONTYPE kNVR = eRTISUBMISSIONTYPE::IsNVR;
constexpr eRTISUBMISSIONTYPE kEYU = eRTISUBMISSIONTYPE::IsEYU;

dnDIRECTORS_NIC DirectorsNICOf(std::string_view text) {
  if (text == "AN") return dnDIRECTORS_NIC::ednAnnual;
  if (text == "AL") return dnDIRECTORS_NIC::ednAlternative;
  return dnDIRECTORS_NIC::ednNA;
}

}  // namespace

clsEmployment::clsEmployment()
    : figures_to_date_(std::make_shared<clsFiguresToDate>()), payment_(std::make_shared<clsPayment>()) {}

void clsEmployment::Create(const String& strPayID, Ref<clsFiguresToDate> objFiguresToDate,
                           Ref<clsPayment> objPayment, Date datLeaveDate,
                           CollectionRef<clsNILettersAndValues> objNILetters, bool blnIrrEmp,
                           Ref<clsPayIdChgd> objPayIDChanged, Ref<clsStarter> objStarter) {
  Handled("clsEmployment", "Sub Create", [&] {
    pay_id_ = strPayID;
    leaving_date_ = datLeaveDate;
    irr_emp_ = blnIrrEmp;
    FiguresToDate(std::move(objFiguresToDate));
    Payment(std::move(objPayment));
    NILettersAndValues(std::move(objNILetters));
    PayIDChange(std::move(objPayIDChanged));
    Starter(std::move(objStarter));
    validated_ = false;
  });
}

bool clsEmployment::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsEmployment", strXML);
}

bool clsEmployment::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsEmployment", "Function CreateFromXML", [&] {
    Clear();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) ReadChild(child);
      result = true;
    }
  });
  return result;
}

// Payroll ID, irregular employment and expatriate stay as they are.
void clsEmployment::Clear() {
  leaving_date_ = {};
  occ_pen_ind_ = false;
  off_payroll_worker_ = false;
  employee_workplace_postcode_.clear();
  is_non_individual_ = false;
  wk_or_month_no_director_appt_ = 0;
  directors_nic_ = dnDIRECTORS_NIC::ednNA;
  starter_ = nullptr;
  pay_id_change_ = nullptr;
  ni_letters_and_values_ = nullptr;
  figures_to_date_ = std::make_shared<clsFiguresToDate>();
  payment_ = std::make_shared<clsPayment>();
  validated_ = false;
}

void clsEmployment::ReadChild(const XmlNode& child) {
  const std::string_view name = child.BaseName();
  if (name == "OccPenInd") {
    occ_pen_ind_ = true;
  } else if (name == "OffPayrollWorker") {
    off_payroll_worker_ = true;
  } else if (name == "ExpatInd") {
    is_expat_ = true;
  } else if (name == "DirectorsNIC") {
    directors_nic_ = DirectorsNICOf(child.Text());
  } else if (name == "TaxWkOfApptOfDirector") {
    wk_or_month_no_director_appt_ = ToInteger(child.Text());
  } else if (name == "Starter") {
    starter_ = NewFromXML<clsStarter>(child);
  } else if (name == "EmployeeWorkplacePostcode") {
    employee_workplace_postcode_ = child.Text();
  } else if (name == "PayId") {
    pay_id_ = child.Text();
  } else if (name == "PayIdChgd") {
    pay_id_change_ = NewFromXML<clsPayIdChgd>(child);
  } else if (name == "PaymentToANonIndividual") {
    is_non_individual_ = true;
  } else if (name == "IrrEmp") {
    irr_emp_ = true;
  } else if (name == "LeavingDate") {
    leaving_date_ = ToDate(child.Text());
  } else if (name == "FiguresToDate") {
    figures_to_date_->CreateFromXML(child);
  } else if (name == "Payment") {
    payment_->CreateFromXML(child);
  } else if (name == "NIlettersAndValues") {
    MadeWhenAbsent(ni_letters_and_values_)->Add(NewFromXML<clsNILettersAndValues>(child));
  }
}

bool clsEmployment::IsValidated(eRTISUBMISSIONTYPE eniSubType) const {
  const bool is_checked = validated_ && AbsentOrValidated(starter_) && AbsentOrValidated(pay_id_change_) &&
                          AbsentOrValidated(payment_);
  if (eniSubType != kFPS) return is_checked;
  return is_checked && AbsentOrValidated(figures_to_date_) && AbsentOrValidated(ni_letters_and_values_);
}

bool clsEmployment::Validated() const { return IsValidated(kFPS); }

String clsEmployment::RootElementName() const { return "Employment"; }

bool clsEmployment::OccPenInd() const { return occ_pen_ind_; }
void clsEmployment::OccPenInd(bool value) { Change(occ_pen_ind_, value); }

bool clsEmployment::OffPayrollWorker() const { return off_payroll_worker_; }
void clsEmployment::OffPayrollWorker(bool value) { Change(off_payroll_worker_, value); }

bool clsEmployment::IsExpat() const { return is_expat_; }
void clsEmployment::IsExpat(bool value) { is_expat_ = value; }

dnDIRECTORS_NIC clsEmployment::DirectorsNIC() const { return directors_nic_; }
void clsEmployment::DirectorsNIC(dnDIRECTORS_NIC value) { Change(directors_nic_, value); }

Integer clsEmployment::WkOrMonthNoDirectorAppt() const { return wk_or_month_no_director_appt_; }
void clsEmployment::WkOrMonthNoDirectorAppt(Integer value) { Change(wk_or_month_no_director_appt_, value); }

Ref<clsStarter> clsEmployment::Starter() { return MadeWhenAbsent(starter_); }
void clsEmployment::Starter(Ref<clsStarter> value) {
  starter_ = std::move(value);
  ClearValidated(starter_);
}

String clsEmployment::EmployeeWorkplacePostcode() const { return employee_workplace_postcode_; }
void clsEmployment::EmployeeWorkplacePostcode(String value) {
  Change(employee_workplace_postcode_, std::move(value));
}

String clsEmployment::PayID() const { return pay_id_; }
void clsEmployment::PayID(String value) { Change(pay_id_, std::move(value)); }

Ref<clsPayIdChgd> clsEmployment::PayIDChange() { return MadeWhenAbsent(pay_id_change_); }
void clsEmployment::PayIDChange(Ref<clsPayIdChgd> value) {
  pay_id_change_ = std::move(value);
  ClearValidated(pay_id_change_);
}

bool clsEmployment::IsNonIndividual() const { return is_non_individual_; }
void clsEmployment::IsNonIndividual(bool value) { Change(is_non_individual_, value); }

bool clsEmployment::IrrEmp() const { return irr_emp_; }
void clsEmployment::IrrEmp(bool value) { Change(irr_emp_, value); }

Date clsEmployment::LeavingDate() const { return leaving_date_; }
void clsEmployment::LeavingDate(Date value) { Change(leaving_date_, value); }

Ref<clsFiguresToDate> clsEmployment::FiguresToDate() { return MadeWhenAbsent(figures_to_date_); }
void clsEmployment::FiguresToDate(Ref<clsFiguresToDate> value) {
  figures_to_date_ = std::move(value);
  ClearValidated(figures_to_date_);
}

Ref<clsPayment> clsEmployment::Payment() { return MadeWhenAbsent(payment_); }
void clsEmployment::Payment(Ref<clsPayment> value) {
  payment_ = std::move(value);
  ClearValidated(payment_);
}

CollectionRef<clsNILettersAndValues> clsEmployment::NILettersAndValues() {
  return MadeWhenAbsent(ni_letters_and_values_);
}
void clsEmployment::NILettersAndValues(CollectionRef<clsNILettersAndValues> value) {
  ni_letters_and_values_ = std::move(value);
  ClearValidated(ni_letters_and_values_);
}

Ref<clsEmployee> clsEmployment::Parent() const { return parent_.lock(); }
void clsEmployment::Parent(const Ref<clsEmployee>& value) { parent_ = value; }

bool clsEmployment::HasStarterInfo() const { return starter_ != nullptr; }
bool clsEmployment::PayIDHasChanged() const { return pay_id_change_ != nullptr; }

bool clsEmployment::HasGrossNIablePayments() const {
  bool result = false;
  Handled("clsEmployment", "Get HasGrossNIablePayments", [&] {
    if (!ni_letters_and_values_) return;
    for (const Ref<clsNILettersAndValues>& row : *ni_letters_and_values_) {
      if (!Required(row).PaySubjectToNIC().IsZero()) result = true;
    }
  });
  return result;
}

eEMPLOYEE_STATUS clsEmployment::EmploymentStatus() const {
  if (!leaving_date_.IsZero()) return eEMPLOYEE_STATUS::eesLeaver;
  return starter_ ? eEMPLOYEE_STATUS::eesNew : eEMPLOYEE_STATUS::eesCurrent;
}

XmlNode clsEmployment::ToXML(const XmlNode& xmlParent, EMPLOYEE_GENDER gender) {
  XmlNode result;
  Handled("clsEmployment", "Function ToXML", [&] {
    Element out = Element::Appended("Employment", xmlParent);
    result = out.Node();
    const eRTISUBMISSIONTYPE type = DocumentTypeOf(result);
    if (type != kNVR) WriteFlagsAndStarter(out, type);
    if (!pay_id_.empty()) out.Text("PayId", Trim(pay_id_));
    if (type != kNVR) WritePayAndFigures(out, type, gender);
  });
  return result;
}

void clsEmployment::WriteFlagsAndStarter(Element& out, eRTISUBMISSIONTYPE type) {
  out.Yes("OccPenInd", occ_pen_ind_ && type != kEYU);
  out.Yes("OffPayrollWorker", off_payroll_worker_ && type != kEYU);
  out.Yes("ExpatInd", is_expat_ && type == kEAS);
  WriteDirector(out, type);
  WriteStarter(out, type);
  out.OptionalText("EmployeeWorkplacePostcode", employee_workplace_postcode_);
}

void clsEmployment::WriteDirector(Element& out, eRTISUBMISSIONTYPE type) const {
  if (directors_nic_ == dnDIRECTORS_NIC::ednNA || type == kEYU) return;
  out.Text("DirectorsNIC", directors_nic_ == dnDIRECTORS_NIC::ednAnnual ? "AN" : "AL");
  out.OptionalNumber("TaxWkOfApptOfDirector", wk_or_month_no_director_appt_);
}

// An EAS knows nothing of a starter but the date.
void clsEmployment::WriteStarter(Element& out, eRTISUBMISSIONTYPE type) {
  if (!starter_) return;
  if (type != kEAS) {
    starter_->ToXML(out.Node());
  } else if (!starter_->StartDate().IsZero()) {
    Element::Appended("Starter", out.Node()).Day("StartDate", starter_->StartDate());
  }
}

void clsEmployment::WritePayAndFigures(Element& out, eRTISUBMISSIONTYPE type, EMPLOYEE_GENDER gender) {
  if (pay_id_change_ && type == kFPS) pay_id_change_->ToXML(out.Node());
  out.Yes("PaymentToANonIndividual", is_non_individual_);
  out.Yes("IrrEmp", irr_emp_ && type != kEYU);
  out.OptionalDay("LeavingDate", leaving_date_);
  if (figures_to_date_ && type == kFPS) figures_to_date_->ToXML(out.Node());
  if (type == kEAS) {
    Payment()->TaxCode()->ToXML(out.Child("Payment"));
  } else {
    Payment()->ToXML(out.Node(), type, gender);
  }
  if ((type == kFPS || type == kEYU) && ni_letters_and_values_) {
    for (const Ref<clsNILettersAndValues>& row : *ni_letters_and_values_) {
      Required(row).ToXML(out.Node(), type);
    }
  }
}

}  // namespace zelnor
