#pragma once

/// @file
/// The namespace of a document, which is the target namespace of its schema file.

#include "zelnor/platform/values.h"

#include <optional>

namespace zelnor {

/// The `targetNamespace` of the schema at a path; a leading "\" means below the program's folder. Nothing
/// when the file can't be read or has no such attribute.
ZELNOR_INTERNAL std::optional<String> TargetNamespaceOf(const String& strSchemaPath);

/// Tells the person that no schema was found to take a namespace from. `strMore` stands behind the text.
ZELNOR_INTERNAL void WarnOfMissingSchema(const String& strMore = {});

}  // namespace zelnor
