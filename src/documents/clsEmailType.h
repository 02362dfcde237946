#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// One e-mail address of a contact, element `Email`. New records are at work and not preferred.
///
/// @code
/// auto email = std::make_shared<clsEmailType>();
/// email->Create("wages@kelby-joinery.example", EMAIL_TYPE::Work, 1);
/// @endcode
class ZELNOR_API clsEmailType : public Record {
 public:
  /// Stores its arguments and clears Validated. Any `blnPreferred` but zero means preferred.
  void Create(const String& strEmailAddress, EMAIL_TYPE eniEmailType = EMAIL_TYPE::Work,
              Integer blnPreferred = 0);

  /// Fills the record from text whose first node is `Email`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Fills the record from a node and clears nothing first: an absent attribute keeps the stored value. False
  /// for a node of another name, and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "Email".
  String RootElementName() const;

  /// Whether this is the address to be used first; attribute `Preferred`, "yes" or "no". Any text but "yes",
  /// in any case, reads as False.
  ///@{
  bool Preferred() const;
  void Preferred(bool value);
  ///@}

  /// Home or work; attribute `Type`, "home" or "work". Any text but "home", in any case, reads as Work.
  ///@{
  EMAIL_TYPE EmailType() const;
  void EmailType(EMAIL_TYPE value);
  ///@}

  /// The address: the element's text.
  ///@{
  String EmailAddress() const;
  void EmailAddress(String value);
  ///@}

  /// Appends a new `Email` to the parent and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String email_address_;
  EMAIL_TYPE email_type_ = EMAIL_TYPE::Work;
  bool preferred_ = false;
};

}  // namespace zelnor
