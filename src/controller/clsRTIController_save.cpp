#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/common/record.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/controller/log_text.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsSHA1.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/host.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "clsRTIController";
constexpr const char* kDefaultFolder = "\\xml\\";

// Marks the message and has its document hold the mark. A document that is built for the mark alone is nobody
// else's yet, so that its header alone needs to be written again.
void MarkAndRebuild(clsGovTalkMessage& message) {
  const bool has_document = message.HasDocument();
  clsSHA1().MarkSubmission(message);
  if (has_document) {
    message.ForceRebuild();
  } else {
    message.RewriteIRHeader();
  }
}

}  // namespace

SUBMISSION_RESULT clsRTIController::SaveSubmission(const String& strFilepath) {
  auto result = SUBMISSION_RESULT::Successful;
  try {
    submission_saved_ = false;
    if (log_this_session_) Required(log_).SetSubmissionType(SubmissionType());
    const std::int64_t start = LogTick();
    if (!validation_required_) {
      Log("Validation is disabled. Commencing build...");
    } else if (Validate()) {
      Log("Submission validated successfully.");
    } else {
      Log("Validation failed.");
      result = SUBMISSION_RESULT::FailedValidation;
    }
    const Ref<clsGovTalkMessage> held = mobjGovTalkMessage;  // a handler may replace it meanwhile
    clsGovTalkMessage& message = Required(held);
    if (!message.SubmissionDocument()->Header()->HasDocIRMarkValue()) {
      MarkAndRebuild(message);
    }
    const XmlDocument document = MarkedDocument(message);
    document.ValidateOnParse(false);
    document.ResolveExternals(false);
    document.PreserveWhiteSpace(false);
    if (log_this_session_) {
      Required(log_).AppendSubmission(document.DocumentElement());
    }
    const std::int64_t generated = LogTick();
    Log("Submission generation completed in " + LogCount(generated - start) + " milliseconds");
    const String path = PathToSave(strFilepath);
    document.Save(path);
    submission_saved_ = true;
    submission_file_path_ = path;
    Log("Submission saved to file " + path);
    const std::int64_t saved = LogTick();
    Log("Submission save completed in " + LogCount(saved - generated) + " milliseconds");
    Log("Total process completed in " + LogCount(saved - start) + " milliseconds");
    SaveLog();
  } catch (...) {
    const RuntimeError error = CurrentError();
    ReportError(error, kClass, "Function SaveSubmission");
    result = SUBMISSION_RESULT::UnknownError;
    if (log_this_session_ && log_) {
      log_->AddTimingRecord("An error occurred while attempting to save the submission: " +
                            error.Description());
      log_->Save();
    }
  }
  return result;
}

// The file to write: as given; or, for an empty path, in the folder of the settings; in a folder, with a name
// made of class, date and time. Its folder is made.
String clsRTIController::PathToSave(const String& strFilepath) {
  String path = strFilepath;
  if (path.empty()) {
    alsAppSettings settings;
    path = settings.ReadSetting("XMLFilePath");
    if (path.empty()) {
      path = kDefaultFolder;
      settings.SetSetting("XMLFilePath", path);
    }
    path = ResolveProgramPath(path);
  }
  CreateFolder(path);
  if (GetFileName(path).empty()) {
    path += Required(Submission()).Class() + Format(CurrentHost()->Now(), "yyyyMmDd HhNnSs") + ".xml";
  }
  return path;
}

void clsRTIController::OpenSubmissionFile(const String& strApplicationPath) {
  Handled(kClass, "Sub OpenSubmissionFile", [&] {
    if (submission_file_path_.empty()) ThrowFileNotFound();
    if (!CurrentHost()->OpenFile(strApplicationPath, submission_file_path_)) ThrowFileNotFound();
  });
}

}  // namespace zelnor
