#include "zelnor/controller/clsRTIController.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/gateway/clsSOAPInterface.h"

#include <malloc.h>

#include "controller/controller_fixture.h"
#include "support/descriptors.h"

namespace zelnor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

String Answer(const String& qualifier, const String& function, const String& body = {}) {
  return "<GovTalkMessage "
         "xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"><Header><MessageDetails><Qualifier>" +
         qualifier + "</Qualifier><Function>" + function +
         "</Function><CorrelationID>ABC123</CorrelationID><ResponseEndPoint "
         "PollInterval=\"1\">https://x.invalid/p"
         "</ResponseEndPoint></MessageDetails></Header><GovTalkDetails/><Body>" +
         body + "</Body></GovTalkMessage>";
}

/// A controller whose exchanges are answered by a list of texts; beyond its end by a refused connection.
class SendingTest : public ControllerTest {
 protected:
  SendingTest() {
    host_->exchange = [this](const HttpMessage& message) {
      sent_.push_back(message);
      if (sent_.size() > answers_.size()) throw RuntimeError(kHttpNoConnection, "ZELNOR", "nobody listens");
      return HttpAnswer{.status = 200, .body = answers_[sent_.size() - 1]};
    };
    answers_ = {Answer("acknowledgement", "submit"), Answer("response", "submit", "<SuccessResponse/>"),
                Answer("response", "delete")};
  }

  static void Load(clsRTIController& rti) {
    rti.ReadXML(Sample());
    rti.Submission()->Header()->DocIRMark();
    rti.OverrideCompression(true);
    rti.ValidationRequired(false);
  }

  static void CancelAValidation(clsRTIController& rti) {
    const Subscription cancel(
        rti.events.ControllerStatus.connect([&](const String&, const String&, Long) { rti.Cancel(); }));
    rti.Validate();
  }

  std::vector<String> answers_;
  std::vector<HttpMessage> sent_;
};

TEST_F(SendingTest, TheLogTellsOfASendLineByLine) {
  clsRTIController rti;
  Load(rti);
  EXPECT_EQ(rti.SendSubmission("user", "password"), SUBMISSION_RESULT::Successful);
  EXPECT_EQ(rti.CorrelationID(), "ABC123");
  EXPECT_EQ(rti.GatewayErrors(), "");
  const String at = "05/04/2017 10:11:1";
  EXPECT_THAT(
      Lines(rti),
      ElementsAre(StartsWith("RTI Controller initialised"), "Validation is disabled. Commencing build...",
                  "Submission generation completed in 0 milliseconds", "Initialising...",
                  StartsWith("IRmark generated at " + at),
                  StartsWith("Submitting document to Government Gateway at " + at),
                  "Attempting to send... attempt 1 of 3",
                  StartsWith("Message issued to Government Gateway at " + at), "Processing response...",
                  StartsWith("Response received from Government Gateway at " + at),
                  "Acknowledgement received from Government Gateway",
                  StartsWith("Document submission completed successfully at " + at), "Correlation ID: ABC123",
                  "Waiting to poll... 1 seconds.", "Commencing poll...", "Beginning Poll...", "Polling...",
                  StartsWith("Message issued to Government Gateway at " + at), "Processing response...",
                  StartsWith("Response received from Government Gateway at " + at),
                  "Receipt from Gov Gateway: submission accepted successfully.",
                  "Closing conversation with Gov Gateway for submission ABC123.",
                  StartsWith("Message issued to Government Gateway at " + at),
                  "Conversation successfully closed with Gov Gateway for submission ABC123.",
                  "Submission result: Successful", StartsWith("Submission send completed in 1,"),
                  StartsWith("Total process completed in 1,")));
}

TEST_F(SendingTest, TheLogHoldsTheMarkTheExchangesAndTheMarkedDocument) {
  clsRTIController rti;
  Load(rti);
  rti.SendSubmission();
  const XmlNode log = rti.ProcessingLog()->GetAsXML();
  EXPECT_EQ(log.SelectNodes("//SendLog/ToGateway").size(), 3U);
  EXPECT_EQ(log.SelectNodes("//SendLog/FromGateway").size(), 2U);
  EXPECT_EQ(log.SelectSingleNode("//SendLog/ToGateway/@Url").Text(),
            "https://transaction-engine.tax.service.gov.uk/submission");
  const std::vector<XmlNode> marks = log.SelectNodes("//Submission//*[local-name()='IRmark']");
  ASSERT_EQ(marks.size(), 1U);
  EXPECT_EQ(marks[0].Text(), rti.Submission()->Header()->DocIRMark()->value());
  EXPECT_THAT(sent_[0].body, HasSubstr(marks[0].Text()));
}

TEST_F(SendingTest, ControllerStatusTellsStageAndDetail) {
  clsRTIController rti;
  Load(rti);
  std::vector<String> told;
  rti.events.ControllerStatus.connect([&](const String& stage, const String& detail, Long percent) {
    EXPECT_EQ(percent, 0);
    told.push_back(stage + " / " + detail);
  });
  rti.SendSubmission();
  EXPECT_THAT(told, Contains("Communicating with Government Gateway, please wait... / Initialising..."));
  EXPECT_THAT(told,
              Contains("Preparing submission, please wait... / IRmark generated at 05/04/2017 10:11:12"));
  EXPECT_THAT(told, Contains("Polling for results, please wait... / Waiting to poll... 1 seconds."));
  EXPECT_THAT(told, Contains("Polling for HMRC response, please wait... / Polling..."));
  EXPECT_THAT(
      told,
      Contains("Processing HMRC response, please wait... / Receipt from Gov Gateway: submission accepted "
               "successfully."));
}

TEST_F(SendingTest, TheLogIsSavedWithTheIdBeforeThePollsBegin) {
  clsRTIController rti;
  Load(rti);
  String saved;
  rti.Transport()->events.WaitingToPollTitle.connect(
      [&](Long) { saved = ReadFile(rti.ProcessingLog()->LogFilePath()); });
  rti.SendSubmission();
  EXPECT_THAT(saved, HasSubstr("ABC123"));
}

TEST_F(SendingTest, AProcessThatIsKilledInAPollLeavesTheIdInTheLogAndWholeFiles) {
  const int killed = ResultInChild([&] {
    host_->exchange = [&](const HttpMessage& message) -> HttpAnswer {
      sent_.push_back(message);
      if (sent_.size() == 2) raise(SIGKILL);
      return {.status = 200, .body = answers_[0]};
    };
    clsRTIController rti;
    Load(rti);
    rti.SendSubmission();
    return 0;
  });
  EXPECT_EQ(killed, 201);
  for (const char* name : {"xml/send.xml", "xml/response.xml", "xml/poll1.xml"}) {
    const XmlDocument file;
    EXPECT_TRUE(file.Load(folder_.At(name))) << name;
  }
  const std::vector<String> logs = FileNames(folder_.At("xml/logs"));
  ASSERT_EQ(logs.size(), 1U);
  const XmlDocument log;
  ASSERT_TRUE(log.Load(folder_.At("xml/logs/" + logs[0])));
  const String id = log.SelectSingleNode("//CorrelationID").Text();
  EXPECT_EQ(id, "ABC123");
  answers_.erase(answers_.begin());
  clsRTIController rti;
  EXPECT_EQ(rti.PollSubmission("HMRC-PAYE-RTI-FPS", id), SUBMISSION_RESULT::Successful);
}

TEST_F(SendingTest, AFailedValidationSendsNothing) {
  clsRTIController rti;
  Load(rti);
  rti.ValidationRequired(true);
  rti.DoEnvelopeValidation(false);  // then the result of a validation is False
  bool raised = false;
  rti.events.ValidationFailed.connect([&] { raised = true; });
  EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::FailedValidation);
  EXPECT_TRUE(raised);
  EXPECT_THAT(sent_, IsEmpty());
  EXPECT_EQ(Lines(rti).back(), "Validation failed. Exiting Send...");
}

TEST_F(SendingTest, ACancelInTheValidationCancelsTheSend) {
  clsRTIController rti;
  Load(rti);
  rti.ValidationRequired(true);
  rti.DoEnvelopeValidation(false);  // then nothing has passed when the cancel comes
  bool raised = false;
  rti.events.ValidationFailed.connect([&] { raised = true; });
  rti.events.ControllerStatus.connect([&](const String&, const String&, Long) { rti.Cancel(); });
  EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::CancelledSend);
  EXPECT_TRUE(raised);
  EXPECT_THAT(sent_, IsEmpty());
  EXPECT_EQ(Lines(rti).back(), "User cancelled during Validation process.");
}

TEST_F(SendingTest, ACancelInTheWaitOfASendReturnsAtOnce) {
  clsRTIController rti;
  Load(rti);
  std::int64_t cancelled_at = -1;
  host_->on_yield = [&] {
    if (cancelled_at >= 0 || host_->tick < 500) return;
    cancelled_at = host_->tick;
    rti.Cancel();
  };
  EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::Pending);
  ASSERT_GE(cancelled_at, 500);
  EXPECT_LE(host_->tick - cancelled_at, 50);
  EXPECT_EQ(sent_.size(), 1U);
}

TEST_F(SendingTest, ACancelBetweenTwoPollsReturnsAtOnce) {
  answers_.assign(100, Answer("acknowledgement", "submit"));
  clsRTIController rti;
  std::int64_t cancelled_at = -1;
  host_->on_yield = [&] {
    if (cancelled_at >= 0 || sent_.size() < 3) return;
    cancelled_at = host_->tick;
    rti.Cancel();
  };
  EXPECT_EQ(rti.PollSubmission("HMRC-PAYE-RTI-FPS", "ABC123"), SUBMISSION_RESULT::Pending);
  ASSERT_GE(cancelled_at, 0);
  EXPECT_LE(host_->tick - cancelled_at, 50);
  EXPECT_EQ(sent_.size(), 3U);
}

TEST_F(SendingTest, ManyConversationsInOneProcessHoldNoMoreThanAFew) {
  const std::vector<String> answers = answers_;
  const auto converse = [&](int times) {
    for (int i = 0; i < times; ++i) {
      answers_ = answers;
      sent_.clear();
      clsRTIController rti;
      Load(rti);
      ASSERT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::Successful);
    }
  };
  const auto allocated = [] { return static_cast<std::int64_t>(mallinfo2().uordblks); };
  converse(20);
  const std::int64_t before = allocated();
  const auto descriptors = OpenDescriptors();
  converse(100);
  // The matchers' and the allocator's own stores still grow a little; a document that stays would hold a
  // hundred times that.
  EXPECT_LT(allocated() - before, 200'000);
  EXPECT_EQ(OpenDescriptors(), descriptors);
}

TEST_F(SendingTest, ACancelledValidationLeavesTheNextSendAlone) {
  clsRTIController rti;
  Load(rti);
  CancelAValidation(rti);
  EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::Successful);
  EXPECT_EQ(sent_.size(), 3U);
}

TEST_F(SendingTest, ACancelledValidationLeavesTheNextPollAlone) {
  clsRTIController rti;
  Load(rti);
  CancelAValidation(rti);
  answers_.erase(answers_.begin());
  EXPECT_EQ(rti.PollSubmission("HMRC-PAYE-RTI-FPS", "ABC123", RTI_SEND_MODE::Live, "", ""),
            SUBMISSION_RESULT::Successful);
}

TEST_F(SendingTest, AnAcknowledgementWithoutABodyIsPolledAsAnyOther) {
  for (String& answer : answers_) answer = Replace(answer, "<Body></Body>", "");
  clsRTIController rti;
  Load(rti);
  EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::Successful);
  ASSERT_EQ(sent_.size(), 3U);
  EXPECT_THAT(sent_[1].body, HasSubstr("<Qualifier>poll</Qualifier>"));
  EXPECT_THAT(sent_[1].body, Not(HasSubstr("IRmark")));
}

TEST_F(SendingTest, APollBehindASendTakesNothingOfTheSendersAlong) {
  clsRTIController rti;
  Load(rti);
  ASSERT_EQ(rti.SendSubmission("sender", "secret"), SUBMISSION_RESULT::Successful);
  sent_.clear();
  answers_.erase(answers_.begin());
  rti.PollSubmission("HMRC-PAYE-RTI-FPS", "ABC123", RTI_SEND_MODE::Live, "", "");
  ASSERT_FALSE(sent_.empty());
  EXPECT_THAT(sent_[0].body, Not(HasSubstr("secret")));
}

TEST_F(SendingTest, ASecondSendBeginsInTheSameModeAsTheFirst) {
  clsRTIController rti;
  Load(rti);
  rti.SubmissionMode(RTI_SEND_MODE::FileOnly);
  const std::vector<String> answers = answers_;
  answers_.insert(answers_.end(), answers.begin(), answers.end());
  std::vector<String> classes;
  for (int send = 0; send < 2; ++send) {
    EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::Successful);
    XmlDocument poll;
    ASSERT_TRUE(poll.Load(folder_.At("xml/poll1.xml")));
    classes.push_back(poll.SelectSingleNode("//*[local-name()='Class']").Text());
  }
  EXPECT_EQ(classes[0], classes[1]);
}

TEST_F(SendingTest, ARedirectIsAnAnswerWithoutADocument) {
  clsRTIController rti;
  Load(rti);
  host_->exchange = [](const HttpMessage&) {
    return HttpAnswer{.status = 302, .body = Answer("acknowledgement", "submit")};
  };
  EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::ConnectionFailed);
}

TEST_F(SendingTest, AnOldCopyIsReplaced) {
  clsRTIController rti;
  Load(rti);
  const String copy = folder_.Put("out/copy.xml", "old");
  EXPECT_EQ(rti.SendSubmission("", "", copy), SUBMISSION_RESULT::Successful);
  EXPECT_THAT(ReadFile(copy), HasSubstr("<IRmark Type=\"generic\">"));
}

TEST_F(SendingTest, AnotherCopyNeedsTheFirst) {
  clsRTIController rti;
  Load(rti);
  EXPECT_EQ(rti.SendSubmission("", "", "", folder_.At("second.xml")), SUBMISSION_RESULT::Successful);
  EXPECT_FALSE(PlainFileExists(folder_.At("second.xml")));
}

TEST_F(SendingTest, ACopyThatCannotBeWrittenMakesTheResultUnknown) {
  clsRTIController rti;
  Load(rti);
  const String copy = folder_.Put("plain", "") + "/copy.xml";
  EXPECT_EQ(rti.SendSubmission("", "", copy), SUBMISSION_RESULT::UnknownError);
  EXPECT_EQ(rti.CorrelationID(), "ABC123");
  EXPECT_THAT(host_->messages.back().text,
              HasSubstr("\r\n\r\nAn error occurred while attempting to save the submission to file " + copy));
  EXPECT_THAT(Lines(rti).back(), StartsWith("An error occurred while attempting to send the submission: "));
  EXPECT_THAT(Lines(rti).back(),
              HasSubstr(".An error occurred while attempting to save the submission to file"));
}

TEST_F(SendingTest, PollSubmissionReplacesTheMessage) {
  answers_.erase(answers_.begin());
  clsRTIController rti;
  Load(rti);
  EXPECT_EQ(rti.PollSubmission("HMRC-PAYE-RTI-FPS", "ABC123", RTI_SEND_MODE::DevTest, "user", "password"),
            SUBMISSION_RESULT::Successful);
  EXPECT_EQ(rti.SubmissionType(), eRTISUBMISSIONTYPE::IsPollDoc);
  EXPECT_EQ(rti.SubmissionMode(), RTI_SEND_MODE::DevTest);
  EXPECT_EQ(sent_[0].url, "https://test-transaction-engine.tax.service.gov.uk/poll");
  EXPECT_THAT(sent_[0].body, HasSubstr("<Class>HMRC-PAYE-RTI-FPS</Class>"));
  EXPECT_EQ(rti.CorrelationID(), "ABC123");
}

TEST_F(SendingTest, APollThatBreaksOffHasFailed) {
  answers_ = {Answer("acknowledgement", "submit")};
  clsRTIController rti;
  rti.Transport()->events.WaitingToPollTitle.connect([](Long) { ThrowTypeMismatch(); });
  EXPECT_EQ(rti.PollSubmission("HMRC-PAYE-RTI-FPS", "ABC123"), SUBMISSION_RESULT::FailedSend);
}

TEST_F(SendingTest, AnUnexpectedErrorLeavesAPollWithoutAResult) {
  clsRTIController rti;
  rti.events.ControllerStatus.connect([](const String&, const String&, Long) { ThrowTypeMismatch(); });
  std::filesystem::create_directories(folder_.At("xml/poll-1.xml/occupied"));  // told by ControllerStatus
  EXPECT_EQ(static_cast<Long>(rti.PollSubmission("HMRC-PAYE-RTI-FPS", "ABC123")), 0);
  EXPECT_THAT(host_->messages.back().text,
              StartsWith("Error in ZELNOR.dll::clsRTIController: Function PollSubmission: Error 13"));
}

TEST_F(SendingTest, ASecondSendOfOneControllerIsAConversationOfItsOwn) {
  const std::vector<String> once = answers_;
  answers_.insert(answers_.end(), once.begin(), once.end());
  clsRTIController rti;
  rti.SavePath(folder_.At("kept"));
  Load(rti);
  EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::Successful);
  EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::Successful);
  EXPECT_EQ(sent_.size(), 6U);
  EXPECT_EQ(rti.SavePath(), folder_.At("kept") + "\\");
}

TEST_F(SendingTest, ASessionWithoutALogSendsAllTheSame) {
  clsRTIController rti;
  rti.LogThisSession(false);
  Load(rti);
  EXPECT_EQ(rti.SendSubmission(), SUBMISSION_RESULT::Successful);
  EXPECT_THAT(host_->messages, IsEmpty());
}

TEST_F(SendingTest, ThePrefixesAreTheTransports) {
  clsRTIController rti;
  rti.ResponseFilePrefix("answer");
  rti.SendFilePrefix("out");
  rti.PollFilePrefix("ask");
  rti.DeleteFilePrefix("end");
  EXPECT_EQ(rti.Transport()->ResponseFilePrefix(), "answer");
  EXPECT_EQ(rti.SendFilePrefix(), "out");
  EXPECT_EQ(rti.PollFilePrefix(), "ask");
  EXPECT_EQ(rti.DeleteFilePrefix(), "end");
  Load(rti);
  rti.SendSubmission();
  for (const char* name : {"answer.xml", "out.xml", "ask1.xml", "end.xml", "endOriginal.xml"}) {
    EXPECT_TRUE(PlainFileExists(folder_.At("xml/") + name)) << name;
  }
}

TEST_F(SendingTest, SavePathEndsInASeparator) {
  clsRTIController rti;
  rti.SavePath(folder_.At("one"));
  EXPECT_EQ(rti.SavePath(), folder_.At("one") + "\\");
  rti.SavePath(folder_.At("two\\"));
  EXPECT_EQ(rti.SavePath(), folder_.At("two\\"));
}

TEST_F(SendingTest, TheConnectionIsNamedByTheFirstBitThatEqualsTheAnswer) {
  clsRTIController rti;
  const auto type = [&](bool connected, Long flags) {
    host_->connection = {connected, flags};
    String text = "before";
    EXPECT_EQ(rti.IsWebConnected(text), connected);
    return text;
  };
  EXPECT_EQ(type(true, kConnectionLan | kConnectionModem), "LAN");
  EXPECT_EQ(type(true, kConnectionModem | kConnectionProxy), "Modem");
  EXPECT_EQ(type(true, kConnectionProxy | kConnectionOffline), "Proxy");
  EXPECT_EQ(type(true, kConnectionOffline), "Offline");
  EXPECT_EQ(type(true, kConnectionConfigured | kConnectionRasInstalled), "Configured");
  EXPECT_EQ(type(true, kConnectionRasInstalled), "Remote");
  EXPECT_EQ(type(true, 0), "");
  EXPECT_EQ(type(false, kConnectionConfigured), "LAN");
  EXPECT_EQ(type(false, kConnectionLan | kConnectionConfigured), "Modem");
}

}  // namespace
}  // namespace zelnor::test
