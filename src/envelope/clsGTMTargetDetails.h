#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// The organisations to which a message is addressed, element `TargetDetails`.
///
/// @code
/// message->GTMGovTalkDetails()->TargetDetails()->AddOrganisation("IR");
/// @endcode
class ZELNOR_API clsGTMTargetDetails : public Record {
 public:
  /// Names in the order in which they are written.
  using OrganisationCollection = std::shared_ptr<Collection<String>>;

  clsGTMTargetDetails();

  /// Stores the collection and clears Validated.
  void Create(OrganisationCollection colOrganisations);

  /// Fills the record from text whose first node is `TargetDetails`. False for text that isn't well formed or
  /// has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Adds the organisations of a node to those at hand. False for a node of another name, and after a
  /// failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "TargetDetails".
  String RootElementName() const;

  /// The organisations (`Organisation`), at most 64 characters each; an absent collection is made by the
  /// read.
  ///@{
  OrganisationCollection Organisations();
  void Organisations(OrganisationCollection value);
  ///@}

  /// Adds an organisation last.
  void AddOrganisation(const String& strOrganisation);

  /// Writes the record under its parent, into a `TargetDetails` that is emptied first, and returns that
  /// element. Without organisations a `TargetDetails` under the parent is removed, and there is no object to
  /// return.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  OrganisationCollection organisations_;
};

}  // namespace zelnor
