#include "zelnor/documents/document_type.h"

namespace zelnor {

eRTISUBMISSIONTYPE DocumentTypeOf(const XmlNode& node) {
  for (XmlNode at = node; at; at = at.ParentNode()) {
    const std::string_view name = at.BaseName();
    if (name == "FullPaymentSubmission") return eRTISUBMISSIONTYPE::IsFPS;
    if (name == "EmployerAlignmentSubmission") return eRTISUBMISSIONTYPE::IsEAS;
    if (name == "NINOverificationRequest") return eRTISUBMISSIONTYPE::IsNVR;
    if (name == "EarlierYearUpdate") return eRTISUBMISSIONTYPE::IsEYU;
  }
  return eRTISUBMISSIONTYPE::IsFPS;
}

}  // namespace zelnor
