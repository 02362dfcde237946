#pragma once

#include "zelnor/documents/clsAddress.h"
#include "zelnor/documents/clsContact.h"

namespace zelnor {

/// The agent who reports for an employer, element `Agent`.
///
/// @code
/// auto agent = std::make_shared<clsAgent>();
/// agent->Create("AG4471", "Hollin and Wray");
/// agent->Contact()->CreateContactName("Mr", "Amos", "Wray");
/// header->AgentDetails(agent);
/// @endcode
class ZELNOR_API clsAgent : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strAgentID, const String& strCompany, Ref<clsAddress> objAddress = nullptr,
              Ref<clsContact> objContact = nullptr);

  /// Fills the record from text whose document element is `Agent`; a declaration may stand before it. False
  /// for text that isn't well formed or has another root, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Fills the record from the node's children and clears nothing first: a field without element keeps its
  /// value. False for a node of another name, and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked this record, and address and contact where held, since the last change.
  bool Validated() const override;

  /// "Agent".
  String RootElementName() const;

  /// The agent's reference (`AgentID`); written even when empty.
  ///@{
  String AgentID() const;
  void AgentID(String value);
  ///@}

  /// The agent's firm (`Company`); written even when empty.
  ///@{
  String Company() const;
  void Company(String value);
  ///@}

  /// The agent's address, written when held; an absent one is made by the read. A write clears the address's
  /// Validated.
  ///@{
  Ref<clsAddress> Address();
  void Address(Ref<clsAddress> value);
  ///@}

  /// The person at the agent's, written when held; an absent one is made by the read. A write clears the
  /// contact's Validated.
  ///@{
  Ref<clsContact> Contact();
  void Contact(Ref<clsContact> value);
  ///@}

  /// Writes the record into `Agent` under the parent, or into the parent where that is an `Agent` itself,
  /// emptied first, and returns that element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String agent_id_;
  String company_;
  Ref<clsAddress> address_;
  Ref<clsContact> contact_;
};

}  // namespace zelnor
