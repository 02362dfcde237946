#include "zelnor/documents/clsSubmission.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/common/record.h"
#include "zelnor/common/schema_namespace.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionErrorResponse.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/platform/files.h"

namespace zelnor {
namespace {

using enum eRTISUBMISSIONTYPE;

constexpr std::string_view kClass = "clsSubmission";

}  // namespace

clsSubmission::clsSubmission() : header_(std::make_shared<clsSectionIRHeader>()) {
  FPS(std::make_shared<clsSectionFPS>());
}

clsSubmission::~clsSubmission() = default;

bool clsSubmission::ParseFromXML(const String& strXML) {
  bool result = false;
  Handled(kClass, "Function ParseFromXML", [&] {
    const XmlDocument document;
    if (!document.LoadXML(strXML)) return;
    const XmlNode first = document.Node().FirstChild();
    if (first.NodeName() == "IRenvelope" || document.DocumentElement().NodeName() == "ErrorResponse") {
      result = CreateFromXML(first);
    }
  });
  return result;
}

bool clsSubmission::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled(kClass, "Function CreateFromXML", [&] {
    DropSectionsBut(IsUndefined);
    if (!xmlNode) {
      submission_type_ = IsPollDoc;
      return;
    }
    const std::string_view name = xmlNode.BaseName();
    if (name == "IRenvelope") {
      result = ReadEnvelope(xmlNode);
    } else if (name == "EmployerAlignmentSubmission") {
      EAS(NewFromXML<clsSectionEAS>(xmlNode));
      submission_type_ = IsEAS;
      result = true;
    } else if (name == "ErrorResponse") {
      error_response_ = NewFromXML<clsSectionErrorResponse>(xmlNode);
      submission_type_ = IsErrorResponse;
      result = true;
    } else {
      pld_ = XmlDocument().ImportNode(xmlNode, true);
      submission_type_ = IsPollDoc;
      result = true;
    }
  });
  return result;
}

bool clsSubmission::ReadEnvelope(const XmlNode& xmlNode) {
  for (const XmlNode& child : xmlNode.ChildNodes()) {
    const std::string_view name = child.BaseName();
    if (name == "IRheader") {
      header_ = NewFromXML<clsSectionIRHeader>(child);
    } else if (name == "FullPaymentSubmission") {
      FPS(NewFromXML<clsSectionFPS>(child));
      submission_type_ = IsFPS;
    } else if (name == "EmployerPaymentSummary") {
      eps_ = NewFromXML<clsSectionEPS>(child);
      submission_type_ = IsEPS;
    } else if (name == "NINOverificationRequest") {
      nvr_ = NewFromXML<clsSectionNVR>(child);
      submission_type_ = IsNVR;
    } else if (name == "EmployerAlignmentSubmission") {
      EAS(NewFromXML<clsSectionEAS>(child));
      submission_type_ = IsEAS;
    } else if (name == "EarlierYearUpdate") {
      EYU(NewFromXML<clsSectionEYU>(child));
      submission_type_ = IsEYU;
    }
  }
  return true;
}

void clsSubmission::UseValidation(bool value) {
  Handled(kClass, "Let UseValidation", [&] {
    if (const Ref<EmployeeSection> section = CompressibleSection()) section->UseValidation(value);
    if (submission_type_ == IsNVR) NVR()->UseValidation(value);
  });
}

bool clsSubmission::UseValidation() {
  bool result = false;
  Handled(kClass, "Get UseValidation", [&] {
    if (const Ref<EmployeeSection> section = CompressibleSection()) result = section->UseValidation();
    if (submission_type_ == IsNVR) result = NVR()->UseValidation();
  });
  return result;
}

String clsSubmission::Class() {
  String result;
  Handled(kClass, "Get Class", [&] {
    switch (submission_type_) {
      case IsEAS:
        result = EAS()->Class();
        break;
      case IsFPS:
        result = FPS()->Class();
        break;
      case IsEPS:
        result = EPS()->Class();
        break;
      case IsNVR:
        result = NVR()->Class();
        break;
      case IsErrorResponse:
        result = ERRORRESPONSE()->Class();
        break;
      case IsEYU:
        result = EYU()->Class();
        break;
      default:
        break;
    }
  });
  return result;
}

String clsSubmission::RootElementName() {
  String result;
  Handled(kClass, "Get RootElementName", [&] {
    switch (submission_type_) {
      case IsEAS:
        result = EAS()->RootElementName();
        break;
      case IsFPS:
        result = FPS()->RootElementName();
        break;
      case IsEPS:
        result = EPS()->RootElementName();
        break;
      case IsNVR:
        result = NVR()->RootElementName();
        break;
      case IsErrorResponse:
        result = ERRORRESPONSE()->RootElementName();
        break;
      case IsEYU:
        result = EYU()->RootElementName();
        break;
      default:
        break;
    }
  });
  return result;
}

String clsSubmission::DefaultSchema() {
  String result;
  Handled(kClass, "Get DefaultSchema", [&] {
    switch (submission_type_) {
      case IsEAS:
        result = EAS()->DefaultSchema();
        break;
      case IsFPS:
        result = FPS()->DefaultSchema();
        break;
      case IsEPS:
        result = EPS()->DefaultSchema();
        break;
      case IsNVR:
        result = NVR()->DefaultSchema();
        break;
      case IsEYU:
        result = EYU()->DefaultSchema();
        break;
      default:
        break;
    }
  });
  return result;
}

bool clsSubmission::Validated() {
  bool result = false;
  Handled(kClass, "Get Validated", [&] {
    const auto with_header = [&](const Record& section) {
      return section.Validated() && AbsentOrValidated(header_);
    };
    switch (submission_type_) {
      case IsEAS:
        result = with_header(*EAS());
        break;
      case IsFPS:
        result = with_header(*FPS());
        break;
      case IsEPS:
        result = with_header(*EPS());
        break;
      case IsNVR:
        result = with_header(*NVR());
        break;
      case IsEYU:
        result = with_header(*EYU());
        break;
      case IsPollDoc:
        result = true;
        break;
      default:
        break;
    }
  });
  return result;
}

void clsSubmission::Validated(bool value) {
  Handled(kClass, "Let Validated", [&] {
    switch (submission_type_) {
      case IsEAS:
        EAS()->Validated(value);
        break;
      case IsFPS:
        FPS()->Validated(value);
        break;
      case IsEPS:
        EPS()->Validated(value);
        break;
      case IsNVR:
        NVR()->Validated(value);
        break;
      case IsEYU:
        EYU()->Validated(value);
        break;
      default:
        break;
    }
  });
}

Ref<EmployeeSection> clsSubmission::CompressibleSection() {
  switch (submission_type_) {
    case IsEAS:
      return EAS();
    case IsFPS:
      return FPS();
    case IsEYU:
      return EYU();
    default:
      return nullptr;
  }
}

Long clsSubmission::AutoCompressionLimit() {
  Long result = -1;
  Handled(kClass, "Get AutoCompressionLimit", [&] {
    if (const Ref<EmployeeSection> section = CompressibleSection()) result = section->AutoCompressionLimit();
  });
  return result;
}

void clsSubmission::AutoCompressionLimit(Long value) {
  Handled(kClass, "Let AutoCompressionLimit", [&] {
    if (const Ref<EmployeeSection> section = CompressibleSection()) section->AutoCompressionLimit(value);
  });
}

bool clsSubmission::UseCompression() {
  bool result = false;
  Handled(kClass, "Get UseCompression", [&] {
    if (const Ref<EmployeeSection> section = CompressibleSection()) result = section->UseCompression();
  });
  return result;
}

void clsSubmission::UseCompression(bool value) {
  Handled(kClass, "Let UseCompression", [&] {
    if (const Ref<EmployeeSection> section = CompressibleSection()) section->UseCompression(value);
  });
}

bool clsSubmission::OverrideCompression() {
  bool result = false;
  Handled(kClass, "Get OverrideCompression", [&] {
    if (const Ref<EmployeeSection> section = CompressibleSection()) result = section->OverrideCompression();
  });
  return result;
}

void clsSubmission::OverrideCompression(bool value) {
  Handled(kClass, "Let OverrideCompression", [&] {
    if (const Ref<EmployeeSection> section = CompressibleSection()) section->OverrideCompression(value);
  });
}

bool clsSubmission::IsFinalSubmission() {
  bool result = false;
  Handled(kClass, "Get IsFinalSubmission", [&] {
    if (submission_type_ == IsFPS) result = FPS()->HasFinalSubmission();
    if (submission_type_ == IsEPS) result = EPS()->HasFinalSubmission();
  });
  return result;
}

bool clsSubmission::HasECON() {
  bool result = false;
  Handled(kClass, "Get HasECON", [&] {
    if (submission_type_ == IsFPS) result = !FPS()->Employer_References()->ECON().empty();
    if (submission_type_ == IsEYU) result = !EYU()->Employer_References()->ECON().empty();
  });
  return result;
}

String clsSubmission::Namespace() {
  String result;
  Handled(kClass, "Get Namespace", [&] {
    if (namespace_.empty()) {
      String path = DefaultSchema();
      // A safety net that rests: the path is the default schema itself.
      if (!DefaultSchema().empty() && path.empty()) {
        const String default_path = ProgramFolder() + DefaultSchema();
        if (FileExists(default_path)) {
          alsAppSettings().SetSetting(MakeSafeElementName("_XSD" + Class()), default_path, "15.0");
          path = DefaultSchema();
        } else {
          WarnOfMissingSchema();
        }
      }
      if (!path.empty()) namespace_ = TargetNamespaceOf(path).value_or("");
    }
    result = namespace_;
  });
  return result;
}

Ref<clsSectionIRHeader> clsSubmission::Header() { return MadeWhenAbsent(header_); }
void clsSubmission::Header(Ref<clsSectionIRHeader> value) {
  ClearValidated(value);
  header_ = std::move(value);
}

void clsSubmission::DropSectionsBut(eRTISUBMISSIONTYPE type) {
  if (type != IsFPS) FPS(nullptr);
  if (type != IsEPS) eps_ = nullptr;
  if (type != IsNVR) nvr_ = nullptr;
  if (type != IsEYU) EYU(nullptr);
  if (type != IsEAS) EAS(nullptr);
  if (type != IsErrorResponse) error_response_ = nullptr;
}

void clsSubmission::Listen(EmployeeSection& section, Subscription& subscription) {
  subscription = Subscription(
      section.events.CompressionError.connect([this](const String& text) { events.CompressionError(text); }));
}

Ref<clsSectionFPS> clsSubmission::FPS() {
  if (submission_type_ != IsFPS) return nullptr;
  DropSectionsBut(IsFPS);
  if (!fps_) FPS(std::make_shared<clsSectionFPS>());
  return fps_;
}
void clsSubmission::FPS(Ref<clsSectionFPS> value) {
  fps_events_ = {};
  fps_ = std::move(value);
  if (fps_) Listen(*fps_, fps_events_);
}

Ref<clsSectionEAS> clsSubmission::EAS() {
  if (submission_type_ != IsEAS) return nullptr;
  DropSectionsBut(IsEAS);
  if (!eas_) EAS(std::make_shared<clsSectionEAS>());
  return eas_;
}
void clsSubmission::EAS(Ref<clsSectionEAS> value) {
  eas_events_ = {};
  eas_ = std::move(value);
  if (eas_) Listen(*eas_, eas_events_);
}

Ref<clsSectionEYU> clsSubmission::EYU() {
  if (submission_type_ != IsEYU) return nullptr;
  DropSectionsBut(IsEYU);
  if (!eyu_) EYU(std::make_shared<clsSectionEYU>());
  return eyu_;
}
void clsSubmission::EYU(Ref<clsSectionEYU> value) {
  eyu_events_ = {};
  eyu_ = std::move(value);
  if (eyu_) Listen(*eyu_, eyu_events_);
}

Ref<clsSectionEPS> clsSubmission::EPS() {
  if (submission_type_ != IsEPS) return nullptr;
  DropSectionsBut(IsEPS);
  return MadeWhenAbsent(eps_);
}
void clsSubmission::EPS(Ref<clsSectionEPS> value) { eps_ = std::move(value); }

Ref<clsSectionNVR> clsSubmission::NVR() {
  if (submission_type_ != IsNVR) return nullptr;
  DropSectionsBut(IsNVR);
  return MadeWhenAbsent(nvr_);
}
void clsSubmission::NVR(Ref<clsSectionNVR> value) { nvr_ = std::move(value); }

Ref<clsSectionErrorResponse> clsSubmission::ERRORRESPONSE() {
  if (submission_type_ != IsErrorResponse) return nullptr;
  DropSectionsBut(IsErrorResponse);
  return MadeWhenAbsent(error_response_);
}
void clsSubmission::ERRORRESPONSE(Ref<clsSectionErrorResponse> value) { error_response_ = std::move(value); }

XmlNode clsSubmission::PLD() {
  if (submission_type_ != IsPollDoc) return {};
  DropSectionsBut(IsPollDoc);
  return pld_;
}
void clsSubmission::PLD(const XmlNode& value) { pld_ = value; }

eRTISUBMISSIONTYPE clsSubmission::SubmissionType() const { return submission_type_; }

void clsSubmission::SetSubmissionType(eRTISUBMISSIONTYPE value) {
  if (submission_type_ != value) namespace_.clear();
  submission_type_ = value;
}

enmBuildMode clsSubmission::BuildMode() const { return build_mode_; }
void clsSubmission::BuildMode(enmBuildMode value) { build_mode_ = value; }

XmlNode clsSubmission::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled(kClass, "Function ToXML", [&] {
    document_ = xmlParent.OwnerDocument();
    document_.PreserveWhiteSpace(false);
    while (const XmlNode child = xmlParent.FirstChild()) xmlParent.RemoveChild(child);
    if (submission_type_ == IsPollDoc) {
      if (pld_) result = xmlParent.AppendChild(document_.ImportNode(pld_, true));
      return;
    }
    if (submission_type_ == IsErrorResponse) {
      result = ERRORRESPONSE()->ToXML(xmlParent);
      return;
    }
    result = GetSingularElement("IRenvelope", xmlParent, Namespace());
    RemoveAllChildNodes(result);
    if (header_) header_->ToXML(result);
    WriteSection(result);
  });
  return result;
}

void clsSubmission::RewriteHeader(const XmlNode& xmlParent) {
  Handled(kClass, "Sub RewriteHeader", [&] { Header()->ToXML(xmlParent.FindChild("IRenvelope")); });
}

void clsSubmission::WriteSection(const XmlNode& xmlEnvelope) {
  switch (submission_type_) {
    case IsEAS:
      EAS()->ToXML(xmlEnvelope);
      break;
    case IsFPS:
      FPS()->ToXML(xmlEnvelope);
      break;
    case IsEPS:
      EPS()->ToXML(xmlEnvelope);
      break;
    case IsNVR:
      NVR()->ToXML(xmlEnvelope);
      break;
    case IsEYU:
      EYU()->ToXML(xmlEnvelope);
      break;
    default:
      break;
  }
}

}  // namespace zelnor
