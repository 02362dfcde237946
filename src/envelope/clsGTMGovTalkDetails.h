#pragma once

#include "zelnor/envelope/clsGTMChannelRouting.h"
#include "zelnor/envelope/clsGTMGatewayValidation.h"
#include "zelnor/envelope/clsGTMGovTalkError.h"
#include "zelnor/envelope/clsGTMTargetDetails.h"
#include "zelnor/envelope/clsKey.h"

namespace zelnor {

/// What the gateway needs to route a message, and the errors that it answers with: element `GovTalkDetails`.
///
/// @code
/// auto details = message->GTMGovTalkDetails();
/// details->Create("527", "AS90316", "9999", "Kelby Payroll", "7.2");
/// details->TargetDetails()->AddOrganisation("IR");
/// @endcode
class ZELNOR_API clsGTMGovTalkDetails : public Record {
 public:
  clsGTMGovTalkDetails();

  /// Begins a new collection of keys with one of type "TaxOfficeNumber" and one of type "TaxOfficeReference",
  /// adds a channel routing unless URI, product and version are all empty, and clears Validated. The zero
  /// date means now.
  void Create(const String& strKeyTaxOfficeNumber, const String& strKeyTaxOfficeReference,
              const String& strChannelURI = {}, const String& strChannelProduct = {},
              const String& strChannelProductVersion = {}, Date datChannelTimestamp = {});

  /// Fills the record from text whose first node is `GovTalkDetails`. False for text that isn't well formed
  /// or has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Fills the record from a node: target and validation are made new, while keys, routings and errors are
  /// added to those at hand. Each routing gets this record's Mode. False for a node of another name, and
  /// after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked this record and all that it holds since the last change.
  bool Validated() const override;

  /// "GovTalkDetails".
  String RootElementName() const;

  /// The mode that routings get when they are read; kept, never written.
  ///@{
  RTI_SEND_MODE Mode() const;
  void Mode(RTI_SEND_MODE value);
  ///@}

  /// The keys that tell whose document it is (`Keys/Key`); `Keys` is left out without any. An absent
  /// collection is made by the read, as are the three below.
  ///@{
  CollectionRef<clsKey> Keys();
  void Keys(CollectionRef<clsKey> value);
  ///@}

  /// The organisations addressed (`TargetDetails`), written when held; an absent record is made by the read.
  /// A write clears the record's Validated.
  ///@{
  Ref<clsGTMTargetDetails> TargetDetails();
  void TargetDetails(Ref<clsGTMTargetDetails> value);
  ///@}

  /// The gateway's validation (`GatewayValidation`), written when held; an absent record is made by the read.
  /// A write clears the record's Validated.
  ///@{
  Ref<clsGTMGatewayValidation> GatewayValidation();
  void GatewayValidation(Ref<clsGTMGatewayValidation> value);
  ///@}

  /// The channels that the message passed (`ChannelRouting`), in order.
  ///@{
  CollectionRef<clsGTMChannelRouting> ChannelRouting();
  void ChannelRouting(CollectionRef<clsGTMChannelRouting> value);
  ///@}

  /// The gateway's errors (`GovTalkErrors/Error`); `GovTalkErrors` is left out without any.
  ///@{
  CollectionRef<clsGTMGovTalkError> GovTalkErrors();
  void GovTalkErrors(CollectionRef<clsGTMGovTalkError> value);
  ///@}

  /// Whether there is at least one error.
  bool HasErrors() const;

  /// Adds a key last.
  void AddKey(Ref<clsKey> objKey);

  /// Makes a key and adds it last.
  void AddKeyValue(const String& strKeyType, const String& strKeyValue);

  /// Adds a channel routing last.
  void AddChannelRouting(Ref<clsGTMChannelRouting> objChannelRouting);

  /// Makes a channel routing and adds it last. The zero date means now.
  void AddChnlRouting(const String& strProduct, const String& strVersion = {}, const String& strURI = {},
                      const String& strName = {}, Date datTimestamp = {});

  /// Adds an error last.
  void AddGovTalkError(Ref<clsGTMGovTalkError> objGovTalkError);

  /// Writes the record under its parent, into a `GovTalkDetails` that is emptied first, and returns that
  /// element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  CollectionRef<clsKey> keys_;
  Ref<clsGTMTargetDetails> target_details_;
  Ref<clsGTMGatewayValidation> gateway_validation_;
  CollectionRef<clsGTMChannelRouting> channel_routing_;
  CollectionRef<clsGTMGovTalkError> errors_;
  RTI_SEND_MODE mode_ = RTI_SEND_MODE::Live;
};

}  // namespace zelnor
