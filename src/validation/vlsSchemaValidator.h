#pragma once

#include "zelnor/validation/validator.h"

namespace zelnor {

/// The check of a finished envelope against the schemas. This version makes none yet, and finds every
/// envelope valid.
class ZELNOR_API vlsSchemaValidator : public Validator {
 public:
  vlsSchemaValidator() : Validator({"vlsSchemaValidator", "SchemaValidationErrors", "Schema", false}) {}

  /// Whether the document is valid by the schemas of its class.
  bool ValidateSchema(const String& /*strClass*/, const XmlDocument& /*xmlDoc*/,
                      const XmlNode& /*xmlEmployeeFrag*/ = nullptr) {
    return IsValid();
  }

  /// The one error that a validation keeps; no object without an error.
  Ref<ErrorRecord> Exception() const { return nullptr; }
};

}  // namespace zelnor
