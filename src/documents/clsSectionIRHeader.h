#pragma once

#include "zelnor/documents/clsAgent.h"
#include "zelnor/documents/clsContact.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/envelope/clsKey.h"

namespace zelnor {

/// The header of every document, element `IRheader`: keys, end of the period, contacts, IRmark and sender. A
/// new one holds an empty IRmark.
///
/// @code
/// auto header = submission->Header();
/// header->AddKey("TaxOfficeNumber", "527");
/// header->AddKey("TaxOfficeReference", "AS90316");
/// header->PeriodEndDate(Date::FromParts(2026, 4, 5));
/// header->SenderType(enmSender::IsEmployer);
/// @endcode
class ZELNOR_API clsSectionIRHeader : public Record {
 public:
  clsSectionIRHeader();

  /// Stores its arguments, children by reference, and clears Validated. What isn't given is absent
  /// afterwards, the IRmark too.
  void Create(Date datPeriodEndDate, enmSender eniSender, const String& strDefaultCurrency = {},
              CollectionRef<clsKey> colKeys = nullptr, Ref<clsContact> objPrincipal = nullptr,
              Ref<clsAgent> objAgent = nullptr, Ref<clsIRMark> objIRMark = nullptr);

  /// Fills the record from text whose first node is `IRheader`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Drops keys, contact, agent, currency and IRmark and fills the record from the node's children; period
  /// end and sender stay where their elements are absent. False for a node of another name, and after a
  /// failure, such as a period end that is no date; that is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked this record, and each key, contact, agent and mark that is there, since
  /// the last change.
  bool Validated() const override;

  /// "IRheader".
  String RootElementName() const;

  /// The keys that tell HMRC whose document it is (`Keys`), such as TaxOfficeNumber and TaxOfficeReference;
  /// an absent collection is made by the read.
  ///@{
  CollectionRef<clsKey> KeyCollection();
  void KeyCollection(CollectionRef<clsKey> value);
  ///@}

  /// The number of keys. 0 after a failure, which is shown in the host's message box.
  Integer KeyCount() const;

  /// Adds a key last, unless one of equal type and value is there; True in both cases. Leaves Validated as it
  /// is. False after a failure, which is shown in the host's message box.
  bool AddKey(const String& strType, const String& strValue);

  /// Removes the first key that is equal in type and value; False when there is none. Leaves Validated as it
  /// is.
  bool RemoveKey(const String& strType, const String& strValue);

  /// The last day of the period that the document reports (`PeriodEnd`, yyyy-mm-dd); always written.
  ///@{
  Date PeriodEndDate() const;
  void PeriodEndDate(Date value);
  ///@}

  /// The same as writing PeriodEndDate.
  void SetPeriodEnd(Date datPeriodEnd);

  /// The employer's contact (`Principal/Contact`); an absent one is made by the read. A write clears the
  /// contact's Validated.
  ///@{
  Ref<clsContact> PrincipalContact();
  void PrincipalContact(Ref<clsContact> value);
  ///@}

  /// The same as writing PrincipalContact.
  void SetPrincipal(Ref<clsContact> objContact);

  /// Whether there is a contact. None is made.
  bool HasPrincipalContact() const;

  /// The agent (`Agent`), written when held; an absent one is made by the read. A write clears the agent's
  /// Validated.
  ///@{
  Ref<clsAgent> AgentDetails();
  void AgentDetails(Ref<clsAgent> value);
  ///@}

  /// The same as writing AgentDetails.
  void SetAgent(Ref<clsAgent> objAgent);

  /// The currency of all amounts (`DefaultCurrency`), such as GBP; written in capitals, left out when empty.
  ///@{
  String DefaultCurrencyType() const;
  void DefaultCurrencyType(String value);
  ///@}

  /// The document's IRmark (`IRmark`); an absent one is made by the read. A document without one can't be
  /// written whole: see ToXML.
  Ref<clsIRMark> DocIRMark();

  /// Stores the mark, or none, and clears the mark's Validated.
  ZELNOR_INTERNAL void SetDocIRMark(Ref<clsIRMark> objIRMark);

  /// Whether there is an IRmark with a value. None is made.
  ZELNOR_INTERNAL bool HasDocIRMarkValue() const;

  /// In what capacity the sender acts (`Sender`); always written. A text that isn't known reads as `IsOther`.
  ///@{
  enmSender SenderType() const;
  void SenderType(enmSender value);
  ///@}

  /// The same as writing SenderType.
  void SetSender(enmSender eniSender);

  /// Writes the record under its parent, into an `IRheader` that is emptied first, and returns that element.
  /// Without an IRmark error 91 is shown and the element ends behind the currency.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  CollectionRef<clsKey> keys_;
  Date period_end_;
  Ref<clsContact> principal_;
  Ref<clsAgent> agent_;
  String currency_;
  Ref<clsIRMark> mark_;
  enmSender sender_ = enmSender::IsIndividual;
};

}  // namespace zelnor
