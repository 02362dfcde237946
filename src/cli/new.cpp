#include "zelnor/cli/command.h"
#include "zelnor/cli/new_documents.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <algorithm>

namespace zelnor::cli {

int RunNew(const CommonOptions& options, const String& type, const String& out) {
  const auto found =
      std::find_if(kNewDocuments.begin(), kNewDocuments.end(),
                   [&](const NewDocument& document) { return document.type == LowerCase(type); });
  if (found == kNewDocuments.end()) {
    throw CommandError(kWrongUsage, "\"" + type + "\" is no type. Choose fps, eps, eas, eyu or nvr.");
  }
  if (out.empty()) {
    Print(options, {{"type", UpperCase(type)}, {"document", found->text}}, String(found->text));
    return kSuccessful;
  }
  const String path = AbsolutePath(out);
  if (PlainFileExists(path)) {
    throw CommandError(kWrongUsage, path + " is there already. Name another file, or take that one away.");
  }
  WriteOutput(path, found->text);
  Print(options, {{"type", UpperCase(type)}, {"path", path}}, "Document " + path + "\n");
  return kSuccessful;
}

}  // namespace zelnor::cli
