#include "zelnor/cli/command.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsSHA1.h"
#include "zelnor/platform/failure.h"

namespace zelnor::cli {

int RunIRmark(const CommonOptions& options, const String& file) {
  PrepareHome(options);
  const XmlDocument document = ReadMessage(file);
  clsGovTalkMessage message;
  message.UseValidation(false);
  message.Document(document);
  clsSHA1 sha1;
  try {
    sha1.CreateIRMark(message);
  } catch (const RuntimeError& error) {
    throw CommandError(kUnknownError,
                       file + ": no mark can be made: " + error.Description() +
                           ".\nThe message needs a Body with an IRenvelope whose IRheader has Keys.");
  }
  Print(options, {{"base64", sha1.Base64Mark()}, {"base32", sha1.Base32Mark()}},
        "Base64  " + sha1.Base64Mark() + "\nBase32  " + sha1.Base32Mark() + "\n");
  return kSuccessful;
}

}  // namespace zelnor::cli
