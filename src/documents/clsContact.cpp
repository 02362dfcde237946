#include "zelnor/documents/clsContact.h"

namespace zelnor {
namespace {

// Removes the first entry for which `equal` holds.
template <class T, class Equal>
void RemoveFirst(Collection<Ref<T>>& entries, Equal&& equal) {
  for (Long position = 1; position <= entries.Count(); ++position) {
    if (equal(Required(entries.Item(position)))) {
      entries.Remove(position);
      return;
    }
  }
}

}  // namespace

clsContact::clsContact()
    : name_(std::make_shared<clsNameType>()),
      emails_(MakeCollection<clsEmailType>()),
      telephones_(MakeCollection<clsTelephoneType>()),
      faxes_(MakeCollection<clsFaxType>()) {}

void clsContact::Create(Ref<clsNameType> objContact, CollectionRef<clsEmailType> colEmail,
                        CollectionRef<clsTelephoneType> colTelephone, CollectionRef<clsFaxType> colFax) {
  name_ = std::move(objContact);
  emails_ = std::move(colEmail);
  telephones_ = std::move(colTelephone);
  faxes_ = std::move(colFax);
  ClearValidated(name_);
  ClearValidated(emails_);
  ClearValidated(telephones_);
  ClearValidated(faxes_);
  validated_ = false;
}

bool clsContact::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsContact", strXML); }

bool clsContact::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsContact", "Function CreateFromXML", [&] {
    emails_ = MakeCollection<clsEmailType>();
    telephones_ = MakeCollection<clsTelephoneType>();
    faxes_ = MakeCollection<clsFaxType>();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Name") {
          name_ = NewFromXML<clsNameType>(child);
        } else if (name == "Email") {
          emails_->Add(NewFromXML<clsEmailType>(child));
        } else if (name == "Telephone") {
          telephones_->Add(NewFromXML<clsTelephoneType>(child));
        } else if (name == "Fax") {
          faxes_->Add(NewFromXML<clsFaxType>(child));
        }
      }
      result = true;
    }
  });
  return result;
}

bool clsContact::Validated() const {
  return validated_ && AbsentOrValidated(name_) && AbsentOrValidated(emails_) &&
         AbsentOrValidated(telephones_) && AbsentOrValidated(faxes_);
}

String clsContact::RootElementName() const { return "Contact"; }

Ref<clsNameType> clsContact::ContactName() { return MadeWhenAbsent(name_); }
void clsContact::ContactName(Ref<clsNameType> value) {
  name_ = std::move(value);
  ClearValidated(name_);
}

CollectionRef<clsEmailType> clsContact::EmailAddresses() { return MadeWhenAbsent(emails_); }
void clsContact::EmailAddresses(CollectionRef<clsEmailType> value) { emails_ = std::move(value); }

CollectionRef<clsTelephoneType> clsContact::Telephone() { return MadeWhenAbsent(telephones_); }
void clsContact::Telephone(CollectionRef<clsTelephoneType> value) { telephones_ = std::move(value); }

CollectionRef<clsFaxType> clsContact::Fax() { return MadeWhenAbsent(faxes_); }
void clsContact::Fax(CollectionRef<clsFaxType> value) { faxes_ = std::move(value); }

void clsContact::CreateContactName(const String& strTitle, const String& strForename,
                                   const String& strSurname) {
  name_ = std::make_shared<clsNameType>();
  name_->Create(strTitle, strForename, strSurname);
}

void clsContact::CreateEmail(const String& strEmailAddress, Integer strEmailType, bool blnPreferred) {
  const auto email = std::make_shared<clsEmailType>();
  email->Create(strEmailAddress, EMAIL_TYPE{strEmailType}, blnPreferred ? 1 : 0);
  EmailAddresses()->Add(email);
}

void clsContact::CreateTelephone(const String& strTelephone, TELEPHONE_TYPE eniType, bool blnMobile,
                                 bool blnPreferred, const String& strExtension) {
  const auto telephone = std::make_shared<clsTelephoneType>();
  telephone->Create(strTelephone, eniType, blnMobile, blnPreferred, strExtension);
  Telephone()->Add(telephone);
}

void clsContact::CreateFax(const String& strTelephone, TELEPHONE_TYPE eniType, bool blnPreferred,
                           const String& strExtension) {
  const auto fax = std::make_shared<clsFaxType>();
  fax->Create(strTelephone, eniType, blnPreferred, strExtension);
  Fax()->Add(fax);
}

void clsContact::RemoveEmail(const String& strEmailAddress, EMAIL_TYPE eniEmailType, bool blnPreferred) {
  Handled("clsContact", "Sub RemoveEmail", [&] {
    RemoveFirst(*EmailAddresses(), [&](const clsEmailType& each) {
      return each.EmailAddress() == strEmailAddress && each.EmailType() == eniEmailType &&
             each.Preferred() == blnPreferred;
    });
  });
}

void clsContact::RemoveTelephone(const String& strTelephone, TELEPHONE_TYPE eniType, bool blnMobile,
                                 bool blnPreferred, const String& strExtension) {
  Handled("clsContact", "Sub RemoveTelephone", [&] {
    RemoveFirst(*Telephone(), [&](const clsTelephoneType& each) {
      return each.Number() == strTelephone && each.TelType() == eniType && each.Preferred() == blnPreferred &&
             each.IsMobile() == blnMobile && each.Extension() == strExtension;
    });
  });
}

// The search takes its first entry from the telephones, so it never gets to compare anything: there either is
// no entry (error 9), or one that is no fax. Applications rely on the error, which is why it isn't handled.
void clsContact::RemoveFax(const String& /*strTelephone*/, TELEPHONE_TYPE /*eniType*/, bool /*blnMobile*/,
                           bool /*blnPreferred*/, const String& /*strExtension*/) {
  if (Fax()->Count() == 0) return;
  Required(Telephone()->Item(1));
  ThrowTypeMismatch();
}

XmlNode clsContact::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsContact", "Function ToXML", [&] {
    result = Element::Emptied("Contact", xmlParent).Node();
    ContactName()->ToXML(result);
    for (const Ref<clsEmailType>& email : *EmailAddresses()) Required(email).ToXML(result);
    for (const Ref<clsTelephoneType>& telephone : *Telephone()) Required(telephone).ToXML(result);
    for (const Ref<clsFaxType>& fax : *Fax()) Required(fax).ToXML(result);
  });
  return result;
}

}  // namespace zelnor
