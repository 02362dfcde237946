#include "zelnor/documents/clsSectionIRHeader.h"

#include "zelnor/platform/text.h"

#include <array>

namespace zelnor {
namespace {

// The texts of Sender by the number of their enmSender; any further number is "Other".
constexpr std::array<std::string_view, 9> kSenders = {"Individual", "Company",     "Agent",
                                                      "Bureau",     "Partnership", "Trust",
                                                      "Employer",   "Government",  "Acting In Capacity"};

std::string_view SenderText(enmSender sender) {
  const auto index = static_cast<std::size_t>(sender);
  return index < kSenders.size() ? kSenders[index] : "Other";
}

enmSender SenderFromText(std::string_view text) {
  for (std::size_t i = 0; i < kSenders.size(); ++i) {
    if (UpperCase(text) == UpperCase(kSenders[i])) return static_cast<enmSender>(i);
  }
  return enmSender::IsOther;
}

// The position of the first key equal in type and value; 0 when there is none.
Long PositionOf(const Collection<Ref<clsKey>>& keys, const String& type, const String& value) {
  for (Long position = 1; position <= keys.Count(); ++position) {
    const clsKey& key = Required(keys.Item(position));
    if (key.KeyType() == type && key.KeyValue() == value) return position;
  }
  return 0;
}

CollectionRef<clsKey> KeysFrom(const XmlNode& node) {
  CollectionRef<clsKey> keys = MakeCollection<clsKey>();
  for (const XmlNode& child : node.ChildNodes()) {
    if (child.BaseName() == "Key") keys->Add(NewFromXML<clsKey>(child));
  }
  return keys;
}

// Only a contact that stands first is read.
Ref<clsContact> PrincipalFrom(const XmlNode& node) {
  const XmlNode first = node.FirstChild();
  return first && first.BaseName() == "Contact" ? NewFromXML<clsContact>(first)
                                                : std::make_shared<clsContact>();
}

}  // namespace

clsSectionIRHeader::clsSectionIRHeader() : mark_(std::make_shared<clsIRMark>()) {}

void clsSectionIRHeader::Create(Date datPeriodEndDate, enmSender eniSender, const String& strDefaultCurrency,
                                CollectionRef<clsKey> colKeys, Ref<clsContact> objPrincipal,
                                Ref<clsAgent> objAgent, Ref<clsIRMark> objIRMark) {
  period_end_ = datPeriodEndDate;
  sender_ = eniSender;
  currency_ = strDefaultCurrency;
  keys_ = std::move(colKeys);
  principal_ = std::move(objPrincipal);
  agent_ = std::move(objAgent);
  mark_ = std::move(objIRMark);
  validated_ = false;
}

bool clsSectionIRHeader::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsSectionIRHeader", strXML);
}

bool clsSectionIRHeader::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsSectionIRHeader", "Function CreateFromXML", [&] {
    keys_.reset();
    principal_.reset();
    agent_.reset();
    currency_.clear();
    mark_.reset();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Keys") {
          keys_ = KeysFrom(child);
        } else if (name == "PeriodEnd") {
          period_end_ = ToDate(child.Text());
        } else if (name == "Principal") {
          principal_ = PrincipalFrom(child);
        } else if (name == "Agent") {
          agent_ = NewFromXML<clsAgent>(child);
        } else if (name == "DefaultCurrency") {
          currency_ = child.Text();
        } else if (name == "IRmark") {
          mark_ = NewFromXML<clsIRMark>(child);
        } else if (name == "Sender") {
          sender_ = SenderFromText(child.Text());
        }
      }
      result = true;
    }
  });
  return result;
}

bool clsSectionIRHeader::Validated() const {
  return validated_ && AbsentOrValidated(keys_) && AbsentOrValidated(principal_) &&
         AbsentOrValidated(agent_) && AbsentOrValidated(mark_);
}

String clsSectionIRHeader::RootElementName() const { return "IRheader"; }

CollectionRef<clsKey> clsSectionIRHeader::KeyCollection() { return MadeWhenAbsent(keys_); }
void clsSectionIRHeader::KeyCollection(CollectionRef<clsKey> value) { keys_ = std::move(value); }

Integer clsSectionIRHeader::KeyCount() const {
  Integer result = 0;
  Handled("clsSectionIRHeader", "Get KeyCount", [&] {
    if (keys_) result = ToInteger(static_cast<double>(keys_->Count()));
  });
  return result;
}

bool clsSectionIRHeader::AddKey(const String& strType, const String& strValue) {
  bool result = false;
  Handled("clsSectionIRHeader", "Function AddKey", [&] {
    const CollectionRef<clsKey> keys = KeyCollection();
    if (PositionOf(*keys, strType, strValue) == 0) {
      const auto key = std::make_shared<clsKey>();
      key->Create(strValue, strType);
      keys->Add(key);
    }
    result = true;
  });
  return result;
}

bool clsSectionIRHeader::RemoveKey(const String& strType, const String& strValue) {
  bool result = false;
  Handled("clsSectionIRHeader", "Function RemoveKey", [&] {
    const CollectionRef<clsKey> keys = KeyCollection();
    const Long position = PositionOf(*keys, strType, strValue);
    if (position == 0) return;
    keys->Remove(position);
    result = true;
  });
  return result;
}

Date clsSectionIRHeader::PeriodEndDate() const { return period_end_; }
void clsSectionIRHeader::PeriodEndDate(Date value) { Change(period_end_, value); }
void clsSectionIRHeader::SetPeriodEnd(Date datPeriodEnd) { PeriodEndDate(datPeriodEnd); }

Ref<clsContact> clsSectionIRHeader::PrincipalContact() { return MadeWhenAbsent(principal_); }
void clsSectionIRHeader::PrincipalContact(Ref<clsContact> value) {
  principal_ = std::move(value);
  ClearValidated(principal_);
}
void clsSectionIRHeader::SetPrincipal(Ref<clsContact> objContact) { PrincipalContact(std::move(objContact)); }
bool clsSectionIRHeader::HasPrincipalContact() const { return principal_ != nullptr; }

Ref<clsAgent> clsSectionIRHeader::AgentDetails() { return MadeWhenAbsent(agent_); }
void clsSectionIRHeader::AgentDetails(Ref<clsAgent> value) {
  agent_ = std::move(value);
  ClearValidated(agent_);
}
void clsSectionIRHeader::SetAgent(Ref<clsAgent> objAgent) { AgentDetails(std::move(objAgent)); }

String clsSectionIRHeader::DefaultCurrencyType() const { return currency_; }
void clsSectionIRHeader::DefaultCurrencyType(String value) { Change(currency_, std::move(value)); }

Ref<clsIRMark> clsSectionIRHeader::DocIRMark() { return MadeWhenAbsent(mark_); }
void clsSectionIRHeader::SetDocIRMark(Ref<clsIRMark> objIRMark) {
  mark_ = std::move(objIRMark);
  ClearValidated(mark_);
}
bool clsSectionIRHeader::HasDocIRMarkValue() const { return mark_ && !mark_->value().empty(); }

enmSender clsSectionIRHeader::SenderType() const { return sender_; }
void clsSectionIRHeader::SenderType(enmSender value) { Change(sender_, value); }
void clsSectionIRHeader::SetSender(enmSender eniSender) { SenderType(eniSender); }

XmlNode clsSectionIRHeader::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsSectionIRHeader", "Function ToXML", [&] {
    Element out = Element::Emptied("IRheader", xmlParent);
    result = out.Node();
    const XmlNode keys = out.Child("Keys");
    for (const Ref<clsKey>& key : *KeyCollection()) Required(key).ToXML(keys);
    out.Day("PeriodEnd", period_end_);
    const XmlNode principal = out.Child("Principal");
    if (principal_) principal_->ToXML(principal);
    if (agent_) agent_->ToXML(result);
    out.OptionalText("DefaultCurrency", UpperCase(currency_));
    Required(mark_).ToXML(result);
    out.Text("Sender", SenderText(sender_));
  });
  return result;
}

}  // namespace zelnor
