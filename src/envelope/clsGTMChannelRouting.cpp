#include "zelnor/envelope/clsGTMChannelRouting.h"

#include "zelnor/platform/host.h"
#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

bool CarriesTimestamp(RTI_SEND_MODE mode) {
  return mode >= RTI_SEND_MODE::Test && mode <= RTI_SEND_MODE::DevFileTest;
}

}  // namespace

clsGTMChannelRouting::clsGTMChannelRouting() : timestamp_(CurrentHost()->Now()) {}

void clsGTMChannelRouting::Create(const String& strProduct, const String& strVersion, const String& strURI,
                                  const String& strName, Date datTimestamp) {
  product_ = strProduct;
  version_ = strVersion;
  uri_ = strURI;
  name_ = strName;
  timestamp_ = datTimestamp.IsZero() ? CurrentHost()->Now() : datTimestamp;
  validated_ = false;
}

bool clsGTMChannelRouting::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsGTMChannelRouting", strXML);
}

bool clsGTMChannelRouting::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsGTMChannelRouting", "Function CreateFromXML", [&] {
    uri_.clear();
    name_.clear();
    product_.clear();
    version_.clear();
    id_.clear();
    id_type_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Channel") {
          ReadChannel(child);
        } else if (name == "ID") {
          id_ = child.Text();
          id_type_ = child.Attribute("Type").value_or(String());
        } else if (name == "Timestamp") {
          timestamp_ = ToDate(Replace(child.Text(), "T", " "));
        }
      }
      result = true;
    }
  });
  return result;
}

void clsGTMChannelRouting::ReadChannel(const XmlNode& channel) {
  for (const XmlNode& child : channel.ChildNodes()) {
    const std::string_view name = child.BaseName();
    if (name == "URI") {
      uri_ = child.Text();
    } else if (name == "Name") {
      name_ = child.Text();
    } else if (name == "Product") {
      product_ = child.Text();
    } else if (name == "Version") {
      version_ = child.Text();
    }
  }
}

String clsGTMChannelRouting::RootElementName() const { return "ChannelRouting"; }

RTI_SEND_MODE clsGTMChannelRouting::Mode() const { return mode_; }
void clsGTMChannelRouting::Mode(RTI_SEND_MODE value) { Change(mode_, value); }

String clsGTMChannelRouting::URI() const { return uri_; }
void clsGTMChannelRouting::URI(String value) { Change(uri_, std::move(value)); }

String clsGTMChannelRouting::Name() const { return name_; }
void clsGTMChannelRouting::Name(String value) { Change(name_, std::move(value)); }

String clsGTMChannelRouting::Product() const { return product_; }
void clsGTMChannelRouting::Product(String value) { Change(product_, std::move(value)); }

String clsGTMChannelRouting::Version() const { return version_; }
void clsGTMChannelRouting::Version(String value) { Change(version_, std::move(value)); }

String clsGTMChannelRouting::ID() const { return id_; }
String clsGTMChannelRouting::IDType() const { return id_type_; }
void clsGTMChannelRouting::SetID(const String& strID, const String& strIDType) {
  Change(id_, strID);
  Change(id_type_, strIDType);
}

Date clsGTMChannelRouting::Timestamp() const { return timestamp_; }
void clsGTMChannelRouting::Timestamp(Date value) { Change(timestamp_, value); }

XmlNode clsGTMChannelRouting::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsGTMChannelRouting", "Function ToXML", [&] {
    Element out = Element::Appended("ChannelRouting", xmlParent);
    result = out.Node();
    Element channel = Element::Single("Channel", result);
    if (uri_.empty()) {
      channel.Text("Name", name_);
    } else {
      channel.Text("URI", uri_);
    }
    channel.Text("Product", product_);
    channel.Text("Version", version_);
    if (!id_.empty()) {
      const XmlNode id = out.Child("ID");
      id.Text(id_);
      id.Attribute("Type", id_type_);
    }
    if (!timestamp_.IsZero() && CarriesTimestamp(mode_))
      out.Text("Timestamp", Format(timestamp_, "yyyy-mm-ddThh:nn:ss"));
  });
  return result;
}

}  // namespace zelnor
