#include "zelnor/common/schema_namespace.h"

#include "zelnor/platform/files.h"
#include "zelnor/platform/host.h"
#include "zelnor/platform/xml.h"

namespace zelnor {

std::optional<String> TargetNamespaceOf(const String& strSchemaPath) {
  const XmlDocument schema;
  schema.ValidateOnParse(false);
  schema.Async(false);
  schema.ResolveExternals(false);
  if (!schema.Load(ResolveProgramPath(strSchemaPath))) return {};
  return schema.DocumentElement().Attribute("targetNamespace");
}

void WarnOfMissingSchema(const String& strMore) {
  CurrentHost()->MessageBox(
      "Could not locate schema to retrieve Namespaces from!\r\n\r\n"
      "Any submissions may not pass at the Government Gateway without the required namespaces." +
          strMore,
      kExclamationIcon, "HMRC Online Services");
}

}  // namespace zelnor
