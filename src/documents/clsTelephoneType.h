#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// One telephone number of a contact, element `Telephone`. New records are at work, neither mobile nor
/// preferred.
///
/// @code
/// auto telephone = std::make_shared<clsTelephoneType>();
/// telephone->Create("01632 960417", TELEPHONE_TYPE::Work, false, true, "212");
/// @endcode
class ZELNOR_API clsTelephoneType : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strTelephone, TELEPHONE_TYPE eniType = TELEPHONE_TYPE::Work,
              bool blnMobile = false, bool blnPreferred = false, const String& strExtension = {});

  /// Fills the record from text whose first node is `Telephone`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears number, extension, `Preferred` and `IsMobile`, then fills the record from a node; without the
  /// attribute `Type` the type stays. False for a node of another name, and after a failure, which is shown
  /// in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "Telephone".
  String RootElementName() const;

  /// Whether the number is a mobile's; attribute `Mobile`, "yes" or "no". Any text but "yes", in any case,
  /// reads as False.
  ///@{
  bool IsMobile() const;
  void IsMobile(bool value);
  ///@}

  /// Whether this is the number to be used first; attribute `Preferred`, read and written as `Mobile` is.
  ///@{
  bool Preferred() const;
  void Preferred(bool value);
  ///@}

  /// Home or work; attribute `Type`, "home" or "work". Any text but "home", in any case, reads as Work.
  ///@{
  TELEPHONE_TYPE TelType() const;
  void TelType(TELEPHONE_TYPE value);
  ///@}

  /// The number (`Number`); written even when empty.
  ///@{
  String Number() const;
  void Number(String value);
  ///@}

  /// The extension (`Extension`); left out when empty.
  ///@{
  String Extension() const;
  void Extension(String value);
  ///@}

  /// Appends a new `Telephone` to the parent and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

  /// Writes attributes and children; a fax is written the same way under its own name.
  ZELNOR_INTERNAL void WriteInto(Element& out) const;

  /// Reads `Type`, `Preferred`, `Number` and `Extension`: all that a fax reads, too.
  ZELNOR_INTERNAL void ReadAllButMobile(const XmlNode& xmlNode);

 private:
  String number_;
  String extension_;
  TELEPHONE_TYPE tel_type_ = TELEPHONE_TYPE::Work;
  bool mobile_ = false;
  bool preferred_ = false;
};

}  // namespace zelnor
