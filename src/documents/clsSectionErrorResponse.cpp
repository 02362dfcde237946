#include "zelnor/documents/clsSectionErrorResponse.h"

#include "zelnor/envelope/clsGTMGovTalkError.h"

namespace zelnor {

clsSectionErrorResponse::clsSectionErrorResponse() : errors_(MakeCollection<clsGTMGovTalkError>()) {}
clsSectionErrorResponse::~clsSectionErrorResponse() = default;

void clsSectionErrorResponse::Create() {
  errors_ = MakeCollection<clsGTMGovTalkError>();
  validated_ = false;
}

bool clsSectionErrorResponse::ParseFromXML(const String& strXML) {
  bool result = false;
  Handled("clsSectionErrorResponse", "Function ParseFromXML", [&] {
    if (const XmlNode node = DocumentElementNamed(strXML, RootElementName())) result = CreateFromXML(node);
  });
  return result;
}

bool clsSectionErrorResponse::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsSectionErrorResponse", "Function CreateFromXML", [&] {
    Create();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (child.BaseName() == "Application") {
          for (const XmlNode& inner : child.ChildNodes()) ReadError(inner);
        } else {
          ReadError(child);
        }
      }
      result = true;
    }
  });
  return result;
}

void clsSectionErrorResponse::ReadError(const XmlNode& child) {
  if (child.BaseName() == "Error") errors_->Add(NewFromXML<clsGTMGovTalkError>(child));
}

bool clsSectionErrorResponse::Validated() const { return validated_ && AbsentOrValidated(errors_); }

String clsSectionErrorResponse::RootElementName() const { return "ErrorResponse"; }
String clsSectionErrorResponse::Class() const { return "ERROR"; }

CollectionRef<clsGTMGovTalkError> clsSectionErrorResponse::Errors() { return errors_; }
Long clsSectionErrorResponse::ErrorCount() const { return errors_->Count(); }
Long clsSectionErrorResponse::Errors_MinIndex() const { return 1; }
Long clsSectionErrorResponse::Errors_MaxIndex() const { return errors_->Count(); }

void clsSectionErrorResponse::Append(const Ref<clsGTMGovTalkError>& objError) {
  Required(objError).Validated(false);
  errors_->Add(objError);
}

void clsSectionErrorResponse::AddError(const Ref<clsGTMGovTalkError>& objError) {
  Handled("clsSectionErrorResponse", "Sub AddError", [&] { Append(objError); });
}

void clsSectionErrorResponse::AddErrorRange(CollectionRef<clsGTMGovTalkError> colErrors) {
  Handled("clsSectionErrorResponse", "Sub AddErrorRange", [&] {
    // Counted first: the range may be the section's own collection.
    const Long count = Required(colErrors).Count();
    for (Long i = 1; i <= count; ++i) Append(Ref<clsGTMGovTalkError>(colErrors->Item(i)));
  });
}

Ref<clsGTMGovTalkError> clsSectionErrorResponse::GetError(Integer intIndex) {
  Ref<clsGTMGovTalkError> result;
  Handled("clsSectionErrorResponse", "Function GetError", [&] { result = errors_->Item(intIndex); });
  return result;
}

XmlNode clsSectionErrorResponse::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsSectionErrorResponse", "Function ToXML", [&] {
    result = Element::Emptied("ErrorResponse", xmlParent).Node();
    for (const Ref<clsGTMGovTalkError>& error : *errors_) Required(error).ToXML(result);
  });
  return result;
}

}  // namespace zelnor
