#include "zelnor/validation/vlsSchemaValidator.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/common/record.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/clsException.h"

#include <array>
#include <span>
#include <utility>

namespace zelnor {
namespace {

constexpr std::string_view kClass = "vlsSchemaValidator";
constexpr const char* kSettingsVersion = "15.0";
constexpr const char* kTitle = "Schema Validation Error";

constexpr Long kSchemaNotFound = -99999;
constexpr Long kSchemaNotIdentified = -99998;
constexpr Long kDocumentNotFound = -99997;

[[noreturn]] void Throw(Long number, const String& description) {
  throw RuntimeError(number, "ZELNOR", description);
}

String SchemaKey(const String& strClass) { return MakeSafeElementName(strClass) + "_XSD"; }

XmlDocument LoadedSchema(const String& path) {
  const String full_path = ResolveProgramPath(path);
  if (!FileExists(full_path)) Throw(kSchemaNotFound, "XML Schema not found: " + full_path);
  XmlDocument schema;
  if (!schema.Load(full_path)) Throw(schema.ParseError().errorCode, schema.ParseError().reason);
  return schema;
}

/// Where in the error's document, or in the file: filepos, line and linepos.
String Position(const SchemaError& error) { return error.FilePos + "." + error.Line + "." + error.LinePos; }

}  // namespace

void vlsSchemaValidator::SetSchema(const String& strClass, const String& strSchemaPath) {
  Handled(kClass, "Sub SetSchema",
          [&] { alsAppSettings().SetSetting(SchemaKey(strClass), strSchemaPath, kSettingsVersion); });
}

Ref<clsException> vlsSchemaValidator::Exception() const {
  Ref<clsException> result;
  Handled(kClass, "Get Exception", [&] {
    if (!HasErrors()) return;
    auto record = std::make_shared<clsException>();
    record->Create("Schema " + Position(error_), error_.ErrorCode, kTitle,
                   error_.Reason + ": " + error_.SrcText, "Schema", "", 3);
    result = record;
  });
  return result;
}

XmlNode vlsSchemaValidator::GetAsXML(const XmlNode& xmlParent) const {
  XmlNode result;
  Handled(kClass, "Function GetAsXML", [&] {
    const XmlNode parent =
        xmlParent ? xmlParent : XmlDocument().Node().AppendElement("SchemaValidationErrors");
    if (const Ref<clsException> error = Exception()) {
      Element out = Element::Appended("Error", parent);
      out.Text("ErrorType", "Schema");
      out.Text("Title", kTitle);
      out.Text("Code", error->Code() + "_" + Position(error_));
      out.Text("Description", error->Description());
      out.Text("FieldName", "Schema");
      out.Text("FieldValue", error->FieldValue());
      out.Text("Employee", "N/A");
      out.Text("CompanyId", "N/A");
      out.Text("EmployeeId", "N/A");
      out.Text("EmployeeName", "N/A");
      out.Text("EmployeeCode", "N/A");
      out.Text("Source", error->Source());
      out.Text("Status", SeverityText(3));
    }
    result = parent;
  });
  return result;
}

bool vlsSchemaValidator::ValidateSchema(const String& strClass, const XmlDocument& xmlDoc,
                                        const XmlNode& xmlEmployeeFrag) {
  bool result = false;
  Handled(kClass, "Function ValidateSchema", [&] {
    error_ = {};
    const XmlDocument document = GetXMLDocWithSchemas(strClass);
    if (!xmlDoc) {
      Throw(kDocumentNotFound, "Document not found! Check XML structure is valid RTI document.");
    }
    const bool loaded = document.LoadXML(xmlDoc.Xml());
    if (!loaded || !document.Validate()) KeepError(document.ParseError());
    if (xmlEmployeeFrag) {
      if (const XmlNode compressed = FindNodeByPath(document, strClass)) {
        const XmlNode section = compressed.ParentNode();
        for (const XmlNode& employee : xmlEmployeeFrag.ChildNodes()) {
          section.InsertBefore(document.ImportNode(employee, true), compressed);
        }
        section.RemoveChild(compressed);
        if (!document.Validate()) KeepError(document.ParseError());
      }
    }
    result = !HasErrors();
  });
  return result;
}

// Keeps the first error; of a further one its reason, behind two line ends.
void vlsSchemaValidator::KeepError(const XmlParseError& found) {
  if (HasErrors()) {
    error_.Reason += "\r\n\r\n" + found.reason;
    return;
  }
  error_.ErrorCode = ToText(found.errorCode);
  error_.FilePos = ToText(found.filepos);
  error_.Line = ToText(found.line);
  error_.LinePos = ToText(found.linepos);
  error_.Reason = found.reason;
  error_.SrcText = found.srcText;
  error_.Url = found.url;
}

// A new document for each validation: the schemas may have changed in between.
XmlDocument vlsSchemaValidator::GetXMLDocWithSchemas(const String& strClass) const {
  const std::array<String, 3> paths = {
      SchemaPath("GovTalkMessage_XSD", "\\xsd\\envelope-v2-0-HMRC.xsd"),
      SchemaPath("dsig_XSD", "\\xsd\\xmldsig-core-schema.xsd"),
      SchemaPath(SchemaKey(strClass), GetSchemaPathFromConst(MakeSafeElementName(strClass))),
  };
  auto schemas = std::make_shared<XmlSchemaCollection>();
  for (const String& path : paths) {
    if (path.empty()) Throw(kSchemaNotIdentified, "Submission Schema not identified!");
    const XmlDocument schema = LoadedSchema(path);
    schemas->Add(schema.DocumentElement().Attribute("targetNamespace").value_or(""), schema);
  }
  XmlDocument document;
  document.ValidateOnParse(false);
  document.Async(false);
  document.ResolveExternals(true);
  document.Schemas(schemas);
  return document;
}

// The path of a setting, or the default, which is then written to the settings. Without a default nothing is.
String vlsSchemaValidator::SchemaPath(const String& key, std::string_view default_path) const {
  String path = alsAppSettings().ReadSetting(key, kSettingsVersion);
  if (path.empty() && !default_path.empty()) {
    path = default_path;
    alsAppSettings().SetSetting(key, path, kSettingsVersion);
  }
  return path;
}

String vlsSchemaValidator::GetSchemaPathFromConst(const String& strSafeClass) const {
  static constexpr std::pair<std::string_view, const char*> kFiles[] = {
      {"HMRCPAYERTIFPS", "\\xsd\\FullPaymentSubmission-2026-v1-0.xsd"},
      {"HMRCPAYERTIEPS", "\\xsd\\EmployerPaymentSummary-2026-v1-0.xsd"},
      {"HMRCPAYERTINVR", "\\xsd\\NINOverificationRequest-v1-2.xsd"},
      {"HMRCPAYERTIEAS", "\\xsd\\EmployerAlignmentSubmission-v3-3.xsd"},
      {"HMRCPAYERTIEYU", "\\xsd\\EarlierYearUpdate-2020-v1-0.xsd"},
  };
  const String start = UpperCase(Left(strSafeClass, 14));
  for (const auto& [class_start, file] : kFiles) {
    if (start == class_start) return file;
  }
  return {};
}

// The node that holds the compressed employees. In an FPS no such path exists: its body has no `RTI`.
XmlNode vlsSchemaValidator::FindNodeByPath(const XmlDocument& document, const String& strClass) const {
  static constexpr std::string_view kFPS[] = {"GovTalkMessage",        "Body",          "IRenvelope", "RTI",
                                              "FullPaymentSubmission", "CompressedPart"};
  static constexpr std::string_view kEAS[] = {"GovTalkMessage", "Body", "IRenvelope",
                                              "EmployerAlignmentSubmission", "CompressedPart"};
  std::span<const std::string_view> path;
  if (Find(strClass, "FPS") > 0) {
    path = kFPS;
  } else if (Find(strClass, "EAS") > 0) {
    path = kEAS;
  } else {
    return nullptr;
  }
  XmlNode node = document;
  for (const std::string_view name : path) {
    node = node.FindChild(name);
    if (!node) return nullptr;
  }
  return node;
}

}  // namespace zelnor
