#pragma once

#include "zelnor/documents/clsEmailType.h"
#include "zelnor/documents/clsFaxType.h"
#include "zelnor/documents/clsNameType.h"
#include "zelnor/documents/clsTelephoneType.h"

namespace zelnor {

/// A person whom HMRC may turn to: a name with any number of e-mail addresses, telephones and faxes, element
/// `Contact`. A new record holds an empty name and three empty collections.
///
/// @code
/// auto contact = std::make_shared<clsContact>();
/// contact->CreateContactName("Ms", "Petra", "Oakshott");
/// contact->CreateEmail("wages@kelby-joinery.example");
/// contact->CreateTelephone("01632 960417");
/// header->PrincipalContact(contact);
/// @endcode
class ZELNOR_API clsContact : public Record {
 public:
  clsContact();

  /// Stores the four by reference and clears Validated, here, on the name and on each member of the
  /// collections. Where no collection is given, the next read of that property makes an empty one.
  void Create(Ref<clsNameType> objContact, CollectionRef<clsEmailType> colEmail = nullptr,
              CollectionRef<clsTelephoneType> colTelephone = nullptr,
              CollectionRef<clsFaxType> colFax = nullptr);

  /// Fills the record from text whose first node is `Contact`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Replaces the three collections by new empty ones and fills the record from the node's children; the name
  /// stays until a `Name` replaces it. False for a node of another name, and after a failure, which is shown
  /// in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked this record, the name and every entry since the last change.
  bool Validated() const override;

  /// "Contact".
  String RootElementName() const;

  /// The name; an absent one is made by the read. A write clears the name's Validated.
  ///@{
  Ref<clsNameType> ContactName();
  void ContactName(Ref<clsNameType> value);
  ///@}

  /// The e-mail addresses, in the order in which they are written; an absent collection is made by the read.
  ///@{
  CollectionRef<clsEmailType> EmailAddresses();
  void EmailAddresses(CollectionRef<clsEmailType> value);
  ///@}

  /// The telephones, likewise.
  ///@{
  CollectionRef<clsTelephoneType> Telephone();
  void Telephone(CollectionRef<clsTelephoneType> value);
  ///@}

  /// The faxes, likewise.
  ///@{
  CollectionRef<clsFaxType> Fax();
  void Fax(CollectionRef<clsFaxType> value);
  ///@}

  /// Replaces the name by a new one, see clsNameType::Create.
  void CreateContactName(const String& strTitle, const String& strForename, const String& strSurname);

  /// Adds a new e-mail address last. `strEmailType` is the number of an EMAIL_TYPE.
  void CreateEmail(const String& strEmailAddress, Integer strEmailType = 0, bool blnPreferred = false);

  /// Adds a new telephone last.
  void CreateTelephone(const String& strTelephone, TELEPHONE_TYPE eniType = TELEPHONE_TYPE::Work,
                       bool blnMobile = false, bool blnPreferred = false, const String& strExtension = {});

  /// Adds a new fax last.
  void CreateFax(const String& strTelephone, TELEPHONE_TYPE eniType = TELEPHONE_TYPE::Work,
                 bool blnPreferred = false, const String& strExtension = {});

  /// Removes the first e-mail address that is equal in all three; nothing when there is none.
  void RemoveEmail(const String& strEmailAddress, EMAIL_TYPE eniEmailType = EMAIL_TYPE::Work,
                   bool blnPreferred = false);

  /// Removes the first telephone that is equal in all five; nothing when there is none.
  void RemoveTelephone(const String& strTelephone, TELEPHONE_TYPE eniType = TELEPHONE_TYPE::Work,
                       bool blnMobile = false, bool blnPreferred = false, const String& strExtension = {});

  /// Returns at once when there are no faxes. Otherwise raises an error to the caller and removes nothing:
  /// the search looks through the telephones, and a telephone is no fax (error 13), nor is there an entry to
  /// look at without telephones (error 9). To take a fax out, use the collection: `contact.Fax()->Remove(1)`.
  void RemoveFax(const String& strTelephone, TELEPHONE_TYPE eniType = TELEPHONE_TYPE::Work,
                 bool blnMobile = false, bool blnPreferred = false, const String& strExtension = {});

  /// Writes the record under its parent, into a `Contact` that is emptied first, and returns that element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  Ref<clsNameType> name_;
  CollectionRef<clsEmailType> emails_;
  CollectionRef<clsTelephoneType> telephones_;
  CollectionRef<clsFaxType> faxes_;
};

}  // namespace zelnor
