#include "zelnor/cli/conversation.h"
#include "zelnor/cli/interrupt.h"
#include "zelnor/gateway/poll_wait.h"
#include "zelnor/platform/waiting.h"

namespace zelnor::cli {
namespace {

// Rests that many seconds, and tells how many are left; an interrupt ends it.
void Rest(Long seconds, const ConversationHost& host, Account& account) {
  const std::int64_t end = CurrentHost()->Tick() + std::int64_t{1000} * seconds;
  std::int64_t told = -1;
  for (std::int64_t now = CurrentHost()->Tick(); now < end && !host.Interrupted();
       now = CurrentHost()->Tick()) {
    const std::int64_t left = (end - now + 999) / 1000;
    if (std::exchange(told, left) != left)
      account.ShowProgress("The answer isn't ready. Polling again in " + std::to_string(left) + " s");
    YieldAndRest();
  }
}

}  // namespace

int RunPoll(const CommonOptions& options, const PollOptions& poll) {
  if (poll.gateway.gateway != "hmrc" && poll.gateway.submission_url.empty()) {
    throw CommandError(
        kWrongUsage,
        "Say which gateway has the submission: --submission-url and --poll-url, or --gateway hmrc.");
  }
  PrepareWritableHome(options);
  const String password = PasswordOf(poll.gateway);
  const GatewayInUse gateway(poll.gateway);
  const OwnSetting connection_test("DoInternetConnectionTest");
  clsRTIController rti;
  if (poll.gateway.no_connection_test) rti.DoInternetConnectionTest(false);
  const auto host = std::make_shared<ConversationHost>(rti, gateway.IsLoopback());
  SetHost(host);
  NoticeOfInterrupt(kCancelling);
  Account account(rti);
  // PollSubmission asks again at once while the answer is provisional; a gateway wants to be left in peace.
  rti.events.ControllerStatus.connect([&](const String&, const String&, Long) {
    if (account.TakeProvisionalAnswer()) rti.Cancel();
  });
  SUBMISSION_RESULT result{};
  for (Long polls = 1;; ++polls) {
    result = rti.PollSubmission(poll.document_class, poll.correlation_id, gateway.Mode(), poll.gateway.user,
                                password);
    if (!poll.wait || result != SUBMISSION_RESULT::Pending || host->Interrupted()) break;
    Rest(SecondsToPoll(account.ToldInterval(), polls), *host, account);
    if (host->Interrupted()) break;
  }
  account.EndProgress();
  account.TellCause();
  Print(options, account.AsJson(result), account.AsText(result));
  SetHost(nullptr);
  if (host->Interrupted()) ObeySignal();
  return StatusOf(result);
}

}  // namespace zelnor::cli
