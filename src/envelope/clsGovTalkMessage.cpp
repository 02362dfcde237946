#include "zelnor/envelope/clsGovTalkMessage.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/common/schema_namespace.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMGovTalkDetails.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/platform/files.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "clsGovTalkMessage";
constexpr const char* kSettingsVersion = "15.0";
constexpr const char* kSchemaKey = "GovTalkMessage_XSD";

}  // namespace

clsGovTalkMessage::clsGovTalkMessage() {
  Handled(kClass, "Sub Class_Initialize", [&] {
    envelope_version_ = alsAppSettings().ReadSetting("GovTalkVersion", kSettingsVersion);
    if (envelope_version_.empty()) envelope_version_ = "2.0";
    message_details_ = std::make_shared<clsGTMMessageDetails>();
    govtalk_details_ = std::make_shared<clsGTMGovTalkDetails>();
  });
}

clsGovTalkMessage::~clsGovTalkMessage() = default;

void clsGovTalkMessage::Create(const String& strEnvelopeVersion, Ref<clsGTMMessageDetails> objMessageDetails,
                               Ref<clsGTMSenderDetails> objSenderDetails,
                               Ref<clsGTMGovTalkDetails> objGovTalkDetails) {
  envelope_version_ = strEnvelopeVersion;
  message_details_ = std::move(objMessageDetails);
  sender_details_ = std::move(objSenderDetails);
  govtalk_details_ = std::move(objGovTalkDetails);
  validated_ = false;
  ClearValidated(message_details_);
  ClearValidated(sender_details_);
  ClearValidated(govtalk_details_);
}

bool clsGovTalkMessage::ParseFromXML(const String& strXML) {
  bool result = false;
  Handled(kClass, "Function ParseFromXML", [&] {
    const XmlDocument document;
    if (!document.LoadXML(strXML)) return;
    const XmlNode root = document.DocumentElement();
    if (root.BaseName() == RootElementName()) result = CreateFromXML(root);
  });
  return result;
}

bool clsGovTalkMessage::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled(kClass, "Function CreateFromXML", [&] {
    envelope_version_.clear();
    Hold(nullptr);
    sender_details_ = nullptr;
    message_details_ = std::make_shared<clsGTMMessageDetails>();
    if (xmlNode.NodeName() != RootElementName()) return;
    for (const XmlNode& child : xmlNode.ChildNodes()) {
      const std::string_view name = child.BaseName();
      if (name == "EnvelopeVersion") {
        envelope_version_ = child.Text();
      } else if (name == "Header") {
        for (const XmlNode& part : child.ChildNodes()) {
          if (part.BaseName() == "SenderDetails") sender_details_ = NewFromXML<clsGTMSenderDetails>(part);
          if (part.BaseName() == "MessageDetails") message_details_->CreateFromXML(part);
        }
      } else if (name == "GovTalkDetails") {
        govtalk_details_ = NewFromXML<clsGTMGovTalkDetails>(child);
      } else if (name == "Body") {
        Hold(nullptr);
        SubmissionDocument()->CreateFromXML(child.FirstChild());
      }
    }
    validated_ = false;
    result = true;
  });
  return result;
}

void clsGovTalkMessage::UseValidation(bool value) {
  use_validation_ = value;
  if (submission_) submission_->UseValidation(value);
}

bool clsGovTalkMessage::Validated() {
  if (!use_validation_) return true;
  return validated_ && AbsentOrValidated(message_details_) && AbsentOrValidated(sender_details_) &&
         AbsentOrValidated(govtalk_details_) && AbsentOrValidated(submission_);
}

String clsGovTalkMessage::RootElementName() const { return "GovTalkMessage"; }

String clsGovTalkMessage::SchemaSetting(const String& name, const String& default_path) const {
  const String set = alsAppSettings().ReadSetting(MakeSafeElementName(name), kSettingsVersion);
  return set.empty() ? default_path : set;
}

String clsGovTalkMessage::DefaultGTMSchema() {
  if (default_gtm_schema_.empty())
    default_gtm_schema_ = SchemaSetting(kSchemaKey, "\\xsd\\envelope-v2-0-HMRC.xsd");
  return default_gtm_schema_;
}

String clsGovTalkMessage::DefaultDSGSchema() {
  if (default_dsg_schema_.empty())
    default_dsg_schema_ = SchemaSetting("dsig_XSD", "\\xsd\\xmldsig-core-schema.xsd");
  return default_dsg_schema_;
}

String clsGovTalkMessage::GTMEnvelopeVersion() const { return envelope_version_; }
void clsGovTalkMessage::GTMEnvelopeVersion(const String& value) {
  if (envelope_version_ != value) validated_ = false;
  envelope_version_ = value;
}

void clsGovTalkMessage::SetMessageDetails(Ref<clsGTMMessageDetails> objMessageDetails) {
  Header_MessageDetails(std::move(objMessageDetails));
}

Ref<clsGTMMessageDetails> clsGovTalkMessage::Header_MessageDetails() {
  return MadeWhenAbsent(message_details_);
}
void clsGovTalkMessage::Header_MessageDetails(Ref<clsGTMMessageDetails> value) {
  message_details_ = std::move(value);
  ClearValidated(message_details_);
  if (message_details_ && submission_) message_details_->Class(submission_->Class());
}

Ref<clsGTMSenderDetails> clsGovTalkMessage::Header_SenderDetails() { return MadeWhenAbsent(sender_details_); }
void clsGovTalkMessage::Header_SenderDetails(Ref<clsGTMSenderDetails> value) {
  sender_details_ = std::move(value);
  ClearValidated(sender_details_);
}

Ref<clsGTMGovTalkDetails> clsGovTalkMessage::GTMGovTalkDetails() { return MadeWhenAbsent(govtalk_details_); }
void clsGovTalkMessage::GTMGovTalkDetails(Ref<clsGTMGovTalkDetails> value) {
  govtalk_details_ = std::move(value);
  ClearValidated(govtalk_details_);
}

Ref<clsSubmission> clsGovTalkMessage::SubmissionDocument() {
  if (!submission_) Hold(std::make_shared<clsSubmission>());
  return submission_;
}

void clsGovTalkMessage::SubmissionDocument(Ref<clsSubmission> value) {
  Hold(std::move(value));
  if (!submission_) return;
  submission_->Validated(false);
  if (message_details_) message_details_->Class(submission_->Class());
}

// Stores the document and listens to it.
void clsGovTalkMessage::Hold(Ref<clsSubmission> submission) {
  submission_events_ = {};
  submission_ = std::move(submission);
  if (!submission_) return;
  submission_events_ = Subscription(submission_->events.CompressionError.connect(
      [this](const String& text) { events.CompressionError(text); }));
}

String clsGovTalkMessage::XML() {
  String result;
  Handled(kClass, "Function XML", [&] { result = Document().Xml(); });
  return result;
}

XmlDocument clsGovTalkMessage::Document() {
  Handled(kClass, "Get Document", [&] {
    if (!document_) {
      ToXML(nullptr);
      return;
    }
    document_.PreserveWhiteSpace(false);
    if (!document_.HasChildNodes() || (use_validation_ && !Validated())) ToXML(nullptr);
  });
  return document_;
}

void clsGovTalkMessage::Document(const XmlDocument& value) {
  Handled(kClass, "Set Document", [&] {
    root_ = version_element_ = header_element_ = body_element_ = nullptr;
    document_ = value;
    if (document_ && document_.DocumentElement()) CreateFromXML(document_.DocumentElement());
  });
}

void clsGovTalkMessage::ForceRebuild() { ToXML(nullptr); }

bool clsGovTalkMessage::HasSubmission() const { return submission_ != nullptr; }

bool clsGovTalkMessage::HasDocument() const { return document_ && document_.HasChildNodes(); }

void clsGovTalkMessage::RewriteIRHeader() {
  Handled(kClass, "Sub RewriteIRHeader",
          [&] { SubmissionDocument()->RewriteHeader(ChildOnce(body_element_, "Body")); });
}

XmlNode clsGovTalkMessage::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled(kClass, "Function ToXML", [&] {
    root_ = version_element_ = header_element_ = body_element_ = nullptr;
    document_ = XmlDocument();
    document_.Async(false);
    document_.ValidateOnParse(false);
    document_.ResolveExternals(false);
    document_.PreserveWhiteSpace(false);
    const XmlNode root = GovTalkMessage();
    ChildOnce(version_element_, "EnvelopeVersion").Text(envelope_version_);
    if (Header_MessageDetails()->Class().empty()) message_details_->Class(SubmissionDocument()->Class());
    message_details_->ToXML(ChildOnce(header_element_, "Header"));
    Header_SenderDetails()->ToXML(ChildOnce(header_element_, "Header"));
    GTMGovTalkDetails()->ToXML(root);
    SubmissionDocument()->ToXML(ChildOnce(body_element_, "Body"));
    if (xmlParent) xmlParent.AppendChild(root);
    result = root;
  });
  return result;
}

XmlNode clsGovTalkMessage::GovTalkMessage() {
  Handled(kClass, "Property GovTalkMessage", [&] {
    if (root_) return;
    root_ = GetSingularElementFromDocument(RootElementName(), document_);
    if (root_.Attribute("xmlns")) return;
    const String ns = Namespace();
    if (!ns.empty()) root_.Attribute("xmlns", ns);
  });
  return root_;
}

// The root's child of that name, found or made at the first need.
XmlNode clsGovTalkMessage::ChildOnce(XmlNode& cached, const char* name) {
  if (!cached) cached = GetSingularElement(name, GovTalkMessage());
  return cached;
}

String clsGovTalkMessage::Namespace() {
  Handled(kClass, "Property Namespace", [&] {
    if (!namespace_.empty()) return;
    alsAppSettings settings;
    const String key = MakeSafeElementName(kSchemaKey);
    String path = settings.ReadSetting(key);
    if (path.empty()) {
      const String tried = ProgramFolder() + DefaultGTMSchema();
      if (FileExists(tried)) {
        path = DefaultGTMSchema();
        settings.SetSetting(key, path, kSettingsVersion);
      } else if (!warned_) {
        warned_ = true;
        WarnOfMissingSchema("\r\n\r\n" + tried);
      }
    }
    if (path.empty()) return;
    const std::optional<String> found = TargetNamespaceOf(path);
    if (!found) {
      throw RuntimeError(91, "ZELNOR",
                         DescriptionOf(91) + ": the envelope has no namespace, since the schema " + path +
                             " of the setting " + key + " can't be read.");
    }
    namespace_ = *found;
  });
  return namespace_;
}

}  // namespace zelnor
