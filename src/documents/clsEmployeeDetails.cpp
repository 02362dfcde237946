#include "zelnor/documents/clsEmployeeDetails.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/document_type.h"
#include "zelnor/platform/text.h"

namespace zelnor {

clsEmployeeDetails::clsEmployeeDetails() : contact_(std::make_shared<clsEmployeeNameType>()) {}

void clsEmployeeDetails::Create(const String& strNINO, Ref<clsEmployeeNameType> objContact,
                                Ref<clsEmployeeAddress> objAddress, Date datBirthDate,
                                EMPLOYEE_GENDER eniGender, const String& strPassportNo,
                                Ref<clsEmployeePartnerDetails> objPartner) {
  nino_ = strNINO;
  passport_no_ = Trim(strPassportNo);
  date_of_birth_ = datBirthDate;
  gender_ = eniGender;
  Contact(std::move(objContact));
  Address(std::move(objAddress));
  PartnerDetails(std::move(objPartner));
  validated_ = false;
}

bool clsEmployeeDetails::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsEmployeeDetails", strXML);
}

bool clsEmployeeDetails::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsEmployeeDetails", "Function CreateFromXML", [&] {
    Create({}, std::make_shared<clsEmployeeNameType>(), nullptr, {}, gender_, {}, nullptr);
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "NINO") {
          nino_ = child.Text();
        } else if (name == "Name") {
          contact_->CreateFromXML(child);
        } else if (name == "Address") {
          address_ = NewFromXML<clsEmployeeAddress>(child);
        } else if (name == "BirthDate") {
          const String text = child.Text();
          date_of_birth_ = IsDate(text) ? ToDate(text) : Date();
        } else if (name == "Gender") {
          gender_ = UpperCase(child.Text()) == "F" ? EMPLOYEE_GENDER::f : EMPLOYEE_GENDER::M;
        } else if (name == "PassportNumber") {
          passport_no_ = child.Text();
        } else if (name == "PartnerDetails") {
          partner_details_ = NewFromXML<clsEmployeePartnerDetails>(child);
        }
      }
      result = true;
    }
  });
  return result;
}

bool clsEmployeeDetails::Validated() const {
  return validated_ && AbsentOrValidated(contact_) && AbsentOrValidated(address_) &&
         AbsentOrValidated(partner_details_);
}

String clsEmployeeDetails::RootElementName() const { return "EmployeeDetails"; }

String clsEmployeeDetails::NINO() const { return nino_; }
void clsEmployeeDetails::NINO(String value) { nino_ = std::move(value); }

Ref<clsEmployeeNameType> clsEmployeeDetails::Contact() { return MadeWhenAbsent(contact_); }
void clsEmployeeDetails::Contact(Ref<clsEmployeeNameType> value) {
  contact_ = std::move(value);
  ClearValidated(contact_);
}

Ref<clsEmployeeAddress> clsEmployeeDetails::Address() { return MadeWhenAbsent(address_); }
void clsEmployeeDetails::Address(Ref<clsEmployeeAddress> value) {
  address_ = std::move(value);
  ClearValidated(address_);
}

Date clsEmployeeDetails::DateOfBirth() const { return date_of_birth_; }
void clsEmployeeDetails::DateOfBirth(Date value) { date_of_birth_ = value; }

EMPLOYEE_GENDER clsEmployeeDetails::Gender() const { return gender_; }
void clsEmployeeDetails::Gender(EMPLOYEE_GENDER value) { gender_ = value; }

String clsEmployeeDetails::PassportNo() const { return passport_no_; }
void clsEmployeeDetails::PassportNo(const String& value) { passport_no_ = Trim(value); }

Ref<clsEmployeePartnerDetails> clsEmployeeDetails::PartnerDetails() {
  return MadeWhenAbsent(partner_details_);
}
void clsEmployeeDetails::PartnerDetails(Ref<clsEmployeePartnerDetails> value) {
  partner_details_ = std::move(value);
  ClearValidated(partner_details_);
}

Ref<clsEmployee> clsEmployeeDetails::Parent() const { return parent_.lock(); }
void clsEmployeeDetails::Parent(const Ref<clsEmployee>& value) { parent_ = value; }

bool clsEmployeeDetails::HasAddress() const { return address_ != nullptr; }
bool clsEmployeeDetails::HasPartnerDetails() const { return partner_details_ != nullptr; }

void clsEmployeeDetails::CreateContact(const String& strTitle, const String& strForename,
                                       const String& strSurname) {
  Contact()->Create(strTitle, strForename, strSurname);
}

void clsEmployeeDetails::CreateAddress(const String& strAddress1, const String& strAddress2,
                                       const String& strAddress3, const String& strAddress4,
                                       const String& strUKPostcode, const String& strForeignCountry) {
  Address()->Create(strAddress1, strAddress2, strAddress3, strAddress4, strUKPostcode, strForeignCountry);
}

void clsEmployeeDetails::CreatePartnerDetails(const String& strPartnerNINO,
                                              Ref<clsEmployeeNameType> objPartnerName) {
  PartnerDetails()->Create(strPartnerNINO, std::move(objPartnerName));
}

XmlNode clsEmployeeDetails::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsEmployeeDetails", "Function ToXML", [&] {
    Element out = Element::Emptied("EmployeeDetails", xmlParent);
    result = out.Node();
    const eRTISUBMISSIONTYPE type = DocumentTypeOf(result);
    const bool is_pay_report = type == eRTISUBMISSIONTYPE::IsFPS || type == eRTISUBMISSIONTYPE::IsEYU;
    out.OptionalText("NINO", nino_);
    Contact()->ToXML(result);
    if (address_ && (address_->PopulatedAddressLineCount() > 0 || !address_->Postcode().empty())) {
      address_->ToXML(result);
    }
    WriteBirthDate(out, type);
    out.Text("Gender", gender_ == EMPLOYEE_GENDER::f ? "F" : "M");
    if (is_pay_report) {
      out.OptionalText("PassportNumber", passport_no_);
      if (partner_details_) partner_details_->ToXML(result);
    }
  });
  return result;
}

// A body that isn't a person has no birthday, yet an EYU asks for the element.
void clsEmployeeDetails::WriteBirthDate(Element& out, eRTISUBMISSIONTYPE type) const {
  static const Date kNoBirthDate = Date::FromParts(1900, 1, 1);
  const auto is_non_individual = [&] {
    if (type != eRTISUBMISSIONTYPE::IsEYU) return false;
    const Ref<clsEmployee> parent = Parent();
    return parent && parent->HasPaymentToANonIndividualSet();
  };
  if (date_of_birth_ > kNoBirthDate || is_non_individual()) {
    out.Text("BirthDate", FormatDateOrDefault(date_of_birth_, "yyyy-mm-dd", ""));
  }
}

}  // namespace zelnor
