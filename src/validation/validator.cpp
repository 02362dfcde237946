#include "zelnor/validation/validator.h"

namespace zelnor {

Validator::Validator(const char* root_name) : root_name_(root_name) {}

Validator::~Validator() = default;

XmlNode Validator::GetAsXML(const XmlNode& xmlParent) const {
  if (xmlParent) return xmlParent;
  return XmlDocument().Node().AppendElement(root_name_);
}

}  // namespace zelnor
