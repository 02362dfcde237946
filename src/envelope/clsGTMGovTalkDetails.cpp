#include "zelnor/envelope/clsGTMGovTalkDetails.h"

namespace zelnor {
namespace {

// Adds each child of that name, read as a new record.
template <class T>
void AddChildren(const XmlNode& node, std::string_view name, Collection<Ref<T>>& records) {
  for (const XmlNode& child : node.ChildNodes()) {
    if (child.BaseName() == name) records.Add(NewFromXML<T>(child));
  }
}

// Writes the block with all records in it; no block without records.
template <class T>
void WriteBlock(Element& out, std::string_view name, const Collection<Ref<T>>& records) {
  if (records.Count() == 0) return;
  const XmlNode block = out.Child(name);
  for (const Ref<T>& record : records) Required(record).ToXML(block);
}

}  // namespace

clsGTMGovTalkDetails::clsGTMGovTalkDetails()
    : keys_(MakeCollection<clsKey>()),
      channel_routing_(MakeCollection<clsGTMChannelRouting>()),
      errors_(MakeCollection<clsGTMGovTalkError>()) {}

void clsGTMGovTalkDetails::Create(const String& strKeyTaxOfficeNumber, const String& strKeyTaxOfficeReference,
                                  const String& strChannelURI, const String& strChannelProduct,
                                  const String& strChannelProductVersion, Date datChannelTimestamp) {
  keys_ = MakeCollection<clsKey>();
  AddKeyValue("TaxOfficeNumber", strKeyTaxOfficeNumber);
  AddKeyValue("TaxOfficeReference", strKeyTaxOfficeReference);
  if (!strChannelURI.empty() || !strChannelProduct.empty() || !strChannelProductVersion.empty())
    AddChnlRouting(strChannelProduct, strChannelProductVersion, strChannelURI, {}, datChannelTimestamp);
  validated_ = false;
}

bool clsGTMGovTalkDetails::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsGTMGovTalkDetails", strXML);
}

bool clsGTMGovTalkDetails::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsGTMGovTalkDetails", "Function CreateFromXML", [&] {
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Keys") {
          AddChildren(child, "Key", *Keys());
        } else if (name == "TargetDetails") {
          target_details_ = NewFromXML<clsGTMTargetDetails>(child);
        } else if (name == "GatewayValidation") {
          gateway_validation_ = NewFromXML<clsGTMGatewayValidation>(child);
        } else if (name == "ChannelRouting") {
          const auto routing = NewFromXML<clsGTMChannelRouting>(child);
          routing->Mode(mode_);
          AddChannelRouting(routing);
        } else if (name == "GovTalkErrors") {
          AddChildren(child, "Error", *GovTalkErrors());
        }
      }
      result = true;
    }
  });
  return result;
}

bool clsGTMGovTalkDetails::Validated() const {
  return validated_ && AbsentOrValidated(keys_) && AbsentOrValidated(target_details_) &&
         AbsentOrValidated(gateway_validation_) && AbsentOrValidated(channel_routing_) &&
         AbsentOrValidated(errors_);
}

String clsGTMGovTalkDetails::RootElementName() const { return "GovTalkDetails"; }

RTI_SEND_MODE clsGTMGovTalkDetails::Mode() const { return mode_; }
void clsGTMGovTalkDetails::Mode(RTI_SEND_MODE value) { Change(mode_, value); }

CollectionRef<clsKey> clsGTMGovTalkDetails::Keys() { return MadeWhenAbsent(keys_); }
void clsGTMGovTalkDetails::Keys(CollectionRef<clsKey> value) { Change(keys_, std::move(value)); }

Ref<clsGTMTargetDetails> clsGTMGovTalkDetails::TargetDetails() { return MadeWhenAbsent(target_details_); }
void clsGTMGovTalkDetails::TargetDetails(Ref<clsGTMTargetDetails> value) {
  Change(target_details_, std::move(value));
  ClearValidated(target_details_);
}

Ref<clsGTMGatewayValidation> clsGTMGovTalkDetails::GatewayValidation() {
  return MadeWhenAbsent(gateway_validation_);
}
void clsGTMGovTalkDetails::GatewayValidation(Ref<clsGTMGatewayValidation> value) {
  Change(gateway_validation_, std::move(value));
  ClearValidated(gateway_validation_);
}

CollectionRef<clsGTMChannelRouting> clsGTMGovTalkDetails::ChannelRouting() {
  return MadeWhenAbsent(channel_routing_);
}
void clsGTMGovTalkDetails::ChannelRouting(CollectionRef<clsGTMChannelRouting> value) {
  Change(channel_routing_, std::move(value));
}

CollectionRef<clsGTMGovTalkError> clsGTMGovTalkDetails::GovTalkErrors() { return MadeWhenAbsent(errors_); }
void clsGTMGovTalkDetails::GovTalkErrors(CollectionRef<clsGTMGovTalkError> value) {
  Change(errors_, std::move(value));
}

bool clsGTMGovTalkDetails::HasErrors() const { return errors_ && errors_->Count() > 0; }

void clsGTMGovTalkDetails::AddKey(Ref<clsKey> objKey) { Keys()->Add(std::move(objKey)); }

void clsGTMGovTalkDetails::AddKeyValue(const String& strKeyType, const String& strKeyValue) {
  const auto key = std::make_shared<clsKey>();
  key->Create(strKeyValue, strKeyType);
  AddKey(key);
}

void clsGTMGovTalkDetails::AddChannelRouting(Ref<clsGTMChannelRouting> objChannelRouting) {
  ChannelRouting()->Add(std::move(objChannelRouting));
}

void clsGTMGovTalkDetails::AddChnlRouting(const String& strProduct, const String& strVersion,
                                          const String& strURI, const String& strName, Date datTimestamp) {
  const auto routing = std::make_shared<clsGTMChannelRouting>();
  routing->Create(strProduct, strVersion, strURI, strName, datTimestamp);
  AddChannelRouting(routing);
}

void clsGTMGovTalkDetails::AddGovTalkError(Ref<clsGTMGovTalkError> objGovTalkError) {
  GovTalkErrors()->Add(std::move(objGovTalkError));
}

XmlNode clsGTMGovTalkDetails::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsGTMGovTalkDetails", "Function ToXML", [&] {
    Element out = Element::Emptied("GovTalkDetails", xmlParent);
    result = out.Node();
    WriteBlock(out, "Keys", *Keys());
    if (target_details_) target_details_->ToXML(result);
    if (gateway_validation_) gateway_validation_->ToXML(result);
    for (const Ref<clsGTMChannelRouting>& routing : *ChannelRouting()) Required(routing).ToXML(result);
    WriteBlock(out, "GovTalkErrors", *GovTalkErrors());
  });
  return result;
}

}  // namespace zelnor
