#include "zelnor/cli/conversation.h"
#include "zelnor/cli/interrupt.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/envelope/clsSHA1.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/files.h"

#include <filesystem>

namespace zelnor::cli {
namespace {

String OutOf(const String& out, const String& file) {
  String path = AbsolutePath(out);
  RefuseToOverwrite(path, file);
  if (!EndsInSeparator(path) && std::filesystem::is_directory(SystemPath(path))) {
    throw CommandError(
        kWrongUsage, path + " is a folder. Name a file, or end the path in \"/\" to save into that folder.");
  }
  return path;
}

}  // namespace

int RunSave(const CommonOptions& options, const SaveOptions& save) {
  const Date today = TodayOf(save.today);
  const String out = OutOf(save.out, save.file);
  PrepareWritableHome(options);
  clsRTIController rti;
  const OwnSetting validation_required("ValidationRequired");
  if (save.no_validation) rti.ValidationRequired(false);
  if (!save.today.empty()) rti.SystemDate(today);
  const String unread = LoadDocument(rti, save.file, ReadMessage(save.file));
  ChooseForm(rti, save.compress, save.plain);
  NoticeOfInterrupt(
      "\nzelnor: The document is saved first. Once more, after two seconds, ends the program at once.\n");
  SUBMISSION_RESULT result = rti.SaveSubmission(out);
  if (!unread.empty()) {
    Tell(unread + "\nThe saved document lacks it: correct the document and save it again.");
    if (result == SUBMISSION_RESULT::Successful) result = SUBMISSION_RESULT::FailedValidation;
  }
  const bool saved = rti.SubmissionSaved();
  const String mark = saved ? rti.Submission()->Header()->DocIRMark()->value() : String();
  const String path = saved ? SystemPath(rti.SubmissionFilePath()) : String();
  const String log = WrittenLog(*rti.ProcessingLog());
  Json json = {{"result", NameOf(result)},
               {"path", path},
               {"irmark", {{"base64", mark}, {"base32", clsSHA1::Base32Of(mark)}}},
               {"log", LogAsJson(log)}};
  String text = "Result   " + NameOf(result) + "\n";
  if (saved)
    text += "Saved    " + path + "\nIRmark   " + mark + "\n         " + clsSHA1::Base32Of(mark) + "\n";
  if (!unread.empty()) json["error"] = unread;
  if (result == SUBMISSION_RESULT::UnknownError) {
    const String trouble = LoggedTrouble(*rti.ProcessingLog(), out);
    if (!trouble.empty()) {
      Tell(trouble);
      json["error"] = trouble;
    }
  }
  Print(options, json, text + LogLine(log));
  return StatusOf(result);
}

}  // namespace zelnor::cli
