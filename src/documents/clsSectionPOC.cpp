#include "zelnor/documents/clsSectionPOC.h"

namespace zelnor {

bool clsSectionPOC::ParseFromXML(const String& /*strXML*/) { return false; }
bool clsSectionPOC::CreateFromXML(const XmlNode& /*xmlNode*/) { return false; }

bool clsSectionPOC::UseCompression() const { return use_compression_; }
void clsSectionPOC::UseCompression(bool value) { use_compression_ = value; }

String clsSectionPOC::XML() const { return {}; }
XmlDocument clsSectionPOC::Document() const { return nullptr; }
String clsSectionPOC::Class() const { return {}; }
String clsSectionPOC::RootElementName() const { return "RTI"; }

}  // namespace zelnor
