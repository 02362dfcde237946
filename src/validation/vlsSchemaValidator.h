#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/platform/xml.h"

#include <memory>
#include <string_view>

namespace zelnor {

class clsException;

/// The check of a finished envelope against the published schemas: that of the envelope, that of signatures,
/// and that of the document's class. They are read from the program's `xsd` folder, or from where the
/// settings say; nothing is ever fetched.
///
/// @code
/// vlsSchemaValidator validator;
/// if (!validator.ValidateSchema("HMRC-PAYE-RTI-FPS", message->Document()) && validator.HasErrors()) {
///   std::cout << validator.Exception()->Description() << "\n";
/// }
/// @endcode
///
/// Failures are shown in the host's message box ("Error in ZELNOR.dll::vlsSchemaValidator: ...").
class ZELNOR_API vlsSchemaValidator {
 public:
  vlsSchemaValidator() = default;
  vlsSchemaValidator(const vlsSchemaValidator&) = delete;
  vlsSchemaValidator& operator=(const vlsSchemaValidator&) = delete;

  /// Stores the path of a class's schema in the settings. A leading "\" means below the program's folder.
  void SetSchema(const String& strClass, const String& strSchemaPath);

  /// The schema processor's number of the error, and all that it said; empty without an error.
  ///@{
  const String& ErrorCode() const { return error_.ErrorCode; }
  const SchemaError& Error() const { return error_; }
  ///@}

  /// The error as a record of severity 3; no object without an error.
  Ref<clsException> Exception() const;

  /// Whether the last validation found the document invalid.
  bool HasErrors() const { return !error_.ErrorCode.empty(); }

  /// 1 or 0.
  Integer ErrorCount() const { return HasErrors() ? Integer{1} : Integer{0}; }

  /// Appends the error, if there is one, as XML to a node and returns it; without a node, a new root element
  /// is made.
  XmlNode GetAsXML(const XmlNode& xmlParent = nullptr) const;

  /// Whether a document is valid by the schemas of its class. The document isn't changed.
  ///
  /// Two outcomes are False: an invalid document, with HasErrors set; and a validation that could not be
  /// made, which is shown in the host's message box: a schema file that isn't there (error -99999), a class
  /// without a schema (-99998), no document (-99997).
  ///
  /// @param strClass such as "HMRC-PAYE-RTI-FPS"
  /// @param xmlEmployeeFrag the employees of an EAS that carries them compressed: the document is validated
  ///   as it stands and once more with them in place of `CompressedPart`, and what both have to say is
  ///   gathered in one error. It has no effect in other documents.
  bool ValidateSchema(const String& strClass, const XmlDocument& xmlDoc,
                      const XmlNode& xmlEmployeeFrag = nullptr);

 private:
  XmlDocument GetXMLDocWithSchemas(const String& strClass) const;
  String GetSchemaPathFromConst(const String& strSafeClass) const;
  String SchemaPath(const String& key, std::string_view default_path) const;
  void KeepError(const XmlParseError& found);
  XmlNode FindNodeByPath(const XmlDocument& document, const String& strClass) const;

  SchemaError error_;
};

}  // namespace zelnor
