// Any bytes as a message: what is read is written, and what was written, read again, is written the same.

#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/host.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>

namespace {

// Shows nothing: a fuzzer meets a message box at every turn.
class QuietHost : public zelnor::DefaultHost {
 public:
  zelnor::Long MessageBox(const zelnor::String& /*text*/, zelnor::Long /*style*/,
                          const zelnor::String& /*title*/) override {
    return 1;
  }
};

bool Prepare() {
  zelnor::SetHost(std::make_shared<QuietHost>());
  zelnor::SetProgramFolder((std::filesystem::temp_directory_path() / "zelnor-fuzz").string());
  zelnor::FurnishProgramFolder();
  return true;
}

// What the writer makes of a text; empty for a text that isn't read.
zelnor::String Rewritten(const zelnor::String& text) {
  zelnor::clsGovTalkMessage message;
  if (!message.ParseFromXML(text)) return {};
  const auto submission = message.SubmissionDocument();
  submission->OverrideCompression(true);
  submission->Header()->DocIRMark()->value("");
  message.ForceRebuild();
  return message.XML();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool prepared = Prepare();
  if (!prepared) std::abort();
  const zelnor::String once = Rewritten(zelnor::String(reinterpret_cast<const char*>(data), size));
  if (once.empty()) return 0;
  const zelnor::String twice = Rewritten(once);
  const zelnor::String thrice = Rewritten(twice);
  if (thrice != twice) std::abort();
  return 0;
}
