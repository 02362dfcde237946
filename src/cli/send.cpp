#include "zelnor/cli/conversation.h"
#include "zelnor/cli/interrupt.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"

namespace zelnor::cli {
namespace {

String NextStep(SUBMISSION_RESULT result, const GatewayInUse& gateway, clsRTIController& controller) {
  if (result != SUBMISSION_RESULT::Pending) return {};
  if (gateway.IsOwn()) {
    return "This was a rehearsal: its gateway is gone with the answer, and nothing went to HMRC. Send again "
           "to see it through.\n";
  }
  return "HMRC has the submission; its answer is still to come. Ask for it by\n  zelnor poll --class " +
         controller.GetHMRCClass() + " --correlation-id " + controller.CorrelationID() +
         "\nwith the options that name the gateway.\n";
}

}  // namespace

int RunSend(const CommonOptions& options, const SendOptions& send) {
  const Date today = TodayOf(send.today);
  const String copy = AbsolutePath(send.save_copy);
  const String another_copy = AbsolutePath(send.save_another_copy);
  for (const String& path : {copy, another_copy}) RefuseToOverwrite(path, send.file);
  if (send.file == "-" && send.gateway.password_file == "-") {
    throw CommandError(kWrongUsage, "Standard input can't be both the document and the password.");
  }
  PrepareWritableHome(options);
  RequireSchemas();
  const String password = PasswordOf(send.gateway);
  XmlDocument document = ReadMessage(send.file);
  const GatewayInUse gateway(send.gateway);
  if (!gateway.Remark().empty()) Tell(gateway.Remark());
  const OwnSetting validation_required("ValidationRequired");
  const OwnSetting connection_test("DoInternetConnectionTest");
  clsRTIController rti;
  if (send.no_validation) rti.ValidationRequired(false);
  if (send.gateway.no_connection_test) rti.DoInternetConnectionTest(false);
  LoadWholeDocument(rti, send.file, std::move(document));
  if (!send.today.empty()) rti.SystemDate(today);
  rti.SubmissionMode(gateway.Mode());
  ChooseForm(rti, send.compress, send.plain);
  if (!send.gateway.user.empty()) {
    auto sender = std::make_shared<clsGTMSenderDetails>();
    sender->Create(send.gateway.user, "principal", password, "", "clear");
    rti.GovTalkMessage()->Header_SenderDetails(sender);
  }
  const auto host = std::make_shared<ConversationHost>(rti, gateway.IsLoopback());
  SetHost(host);
  NoticeOfInterrupt(kCancelling);
  Account account(rti);
  SUBMISSION_RESULT result = rti.SendSubmission(send.gateway.user, password, copy, another_copy);
  account.EndProgress();
  // A cancel between two stages of the validation lets the send begin, which then sends nothing.
  if (result == SUBMISSION_RESULT::FailedSend && host->Interrupted() && !account.HasTriedToSend())
    result = SUBMISSION_RESULT::CancelledSend;
  account.TellCause();
  account.AddCopy(copy);
  account.AddCopy(another_copy);
  Print(options, account.AsJson(result), account.AsText(result) + NextStep(result, gateway, rti));
  SetHost(nullptr);
  if (host->Interrupted()) ObeySignal();
  return StatusOf(result);
}

}  // namespace zelnor::cli
