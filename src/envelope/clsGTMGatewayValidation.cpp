#include "zelnor/envelope/clsGTMGatewayValidation.h"

namespace zelnor {

void clsGTMGatewayValidation::Create(const String& strProcessed, const String& strResult) {
  processed_ = strProcessed;
  result_ = strResult;
  validated_ = false;
}

bool clsGTMGatewayValidation::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsGTMGatewayValidation", strXML);
}

bool clsGTMGatewayValidation::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsGTMGatewayValidation", "Function CreateFromXML", [&] {
    processed_.clear();
    result_.clear();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "Processed") {
          processed_ = child.Text();
        } else if (name == "Result") {
          result_ = child.Text();
        }
      }
      result = true;
    }
  });
  return result;
}

String clsGTMGatewayValidation::RootElementName() const { return "GatewayValidation"; }

String clsGTMGatewayValidation::Processed() const { return processed_; }
void clsGTMGatewayValidation::Processed(String value) { Change(processed_, std::move(value)); }

String clsGTMGatewayValidation::Result() const { return result_; }
void clsGTMGatewayValidation::Result(String value) { Change(result_, std::move(value)); }

XmlNode clsGTMGatewayValidation::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsGTMGatewayValidation", "Function ToXML", [&] {
    Element out = Element::Emptied("GatewayValidation", xmlParent);
    result = out.Node();
    out.Text("Processed", processed_);
    out.Text("Result", result_);
  });
  return result;
}

}  // namespace zelnor
