#include "zelnor/gateway/clsSOAPInterface.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/process_state.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployeeNameType.h"
#include "zelnor/documents/clsSectionErrorResponse.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMGovTalkError.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/platform/files.h"

#include <filesystem>

#include "support/payroll.h"
#include "support/recording_host.h"
#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {

/// Opens the private steps of a conversation to its tests.
struct clsSOAPInterfacePeer {
  static void CollectMessages(clsSOAPInterface& transport, const XmlDocument& document) {
    transport.CollectMessages(document);
  }
  static String SuccessText(const clsSOAPInterface& transport) { return transport.success_text_; }
  static String PollURL(clsSOAPInterface& transport) {
    return transport.SelectGatewayUrl(eRTISUBMISSIONTYPE::IsPollDoc);
  }
};

namespace {

using test::RaisedNumber;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// An answer of the gateway's, as text.
struct Answer {
  String qualifier = "acknowledgement";
  String function = "submit";
  String body = {};
  String errors = {};
  String interval = "5";
  String end_point = "https://gateway.invalid/poll";
  String id = "0123456789ABCDEF0123456789ABCDEF";

  String Text() const {
    return "<GovTalkMessage "
           "xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"><EnvelopeVersion>2.0</EnvelopeVersion>"
           "<Header><MessageDetails><Class>HMRC-PAYE-RTI-FPS</Class><Qualifier>" +
           qualifier + "</Qualifier><Function>" + function + "</Function><CorrelationID>" + id +
           "</CorrelationID><ResponseEndPoint PollInterval=\"" + interval + "\">" + end_point +
           "</ResponseEndPoint></MessageDetails><SenderDetails/></Header><GovTalkDetails><Keys/>" + errors +
           "</GovTalkDetails><Body>" + body + "</Body></GovTalkMessage>";
  }
};

String Acknowledgement() { return Answer().Text(); }
String Acceptance() {
  return Answer{.qualifier = "response",
                .body = "<SuccessResponse xmlns=\"http://www.inlandrevenue.gov.uk/SuccessResponse\"/>"}
      .Text();
}
String Deleted() { return Answer{.qualifier = "response", .function = "delete"}.Text(); }

/// A transport whose exchanges are answered by a list of texts; beyond its end by a refused connection.
class TransportTest : public testing::Test {
 protected:
  TransportTest() {
    SetProgramFolder(folder_.Path());
    FurnishProgramFolder();
    Process() = {};
    host_->now = Date::FromParts(2017, 4, 5).WithTimeOf(Date::FromTime(10, 11, 12));
    host_->exchange = [this](const HttpMessage& message) {
      sent_.push_back(message);
      if (sent_.size() > answers_.size()) throw RuntimeError(kHttpNoConnection, "ZELNOR", "nobody listens");
      return HttpAnswer{.status = 200, .body = answers_[sent_.size() - 1]};
    };
  }
  ~TransportTest() override {
    Process() = {};
    SetProgramFolder("");
  }

  void Follow(clsSOAPInterface& transport) {
    clsSOAPInterface::Events& e = transport.events;
    const auto note = [this](const String& line) { events_.push_back(line); };
    e.SendingDocument.connect([=](Long attempt) { note("SendingDocument " + ToText(attempt)); });
    e.NoDocumentToSend.connect([=] { note("NoDocumentToSend"); });
    e.SendingError.connect([=](const String& reason) { note("SendingError " + reason); });
    e.CannotSendDocument.connect([=](const String& error) { note("CannotSendDocument " + error); });
    e.ErrorProcessingResponse.connect([=](const String& error) { note("ErrorProcessingResponse " + error); });
    e.PollingDocument.connect([=](Long attempt) { note("PollingDocument " + ToText(attempt)); });
    e.WaitingToPollTitle.connect([=](Long type) { note("WaitingToPollTitle " + ToText(type)); });
    e.MessageSent.connect(
        [=](const Ref<clsGovTalkMessage>&, const String& url) { note("MessageSent " + url); });
    e.ResponseReceived.connect([=](const Ref<clsGovTalkMessage>& response) {
      note("ResponseReceived " + response->Header_MessageDetails()->Qualifier());
    });
    e.SubmissionSuccessful.connect([=](const String& id, const String& end_point, const String& interval) {
      note("SubmissionSuccessful " + id + " " + end_point + " " + interval);
    });
    e.AcknowledgementReceived.connect([=](const String& id) { note("AcknowledgementReceived " + id); });
    e.GatewayConnectionError.connect([=](const String& id) { note("GatewayConnectionError " + id); });
    e.ERRORRESPONSE.connect([=](const String& text, const Ref<clsGTMGovTalkError>& error) {
      note("ERRORRESPONSE " + ToText(Long{error->Number()}) + " " + text);
    });
    e.Cancelled.connect([=] { note("Cancelled"); });
    e.StatusChanged.connect([=](const String& status) { note("StatusChanged " + status); });
    e.IRmarkGenerated.connect([=](const String& base64, const String& base32) {
      EXPECT_EQ(base64.size(), 28U);
      EXPECT_EQ(base32.size(), 32U);
      note("IRmarkGenerated");
    });
    e.SuccessResponseReceived.connect([=](const String& id) { note("SuccessResponseReceived " + id); });
    e.ErrorResponseReceived.connect([=](const String& id) { note("ErrorResponseReceived " + id); });
    e.InitialErrorResponseReceived.connect([=] { note("InitialErrorResponseReceived"); });
    e.ClosingConversation.connect([=](const String& id) { note("ClosingConversation " + id); });
    e.ConversationClosed.connect([=](const String& id) { note("ConversationClosed " + id); });
  }

  static Ref<clsGovTalkMessage> Message() {
    auto message = std::make_shared<clsGovTalkMessage>();
    EXPECT_TRUE(message->ParseFromXML(ReadFile(ZELNOR_SOURCE_DIR "/samples/FPS-25-26.xml")));
    message->SubmissionDocument()->FPS()->OverrideCompression(true);
    message->SubmissionDocument()->Header()->DocIRMark();  // the writer needs the record
    return message;
  }

  std::vector<String> Files() const {
    std::vector<String> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.At("xml"))) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  static String Setting(const String& key) { return alsAppSettings().ReadSetting(key); }

  test::TemporaryFolder folder_;
  test::WithRecordingHost host_;
  std::vector<String> answers_;
  std::vector<HttpMessage> sent_;
  std::vector<String> events_;
};

constexpr const char* kId = "0123456789ABCDEF0123456789ABCDEF";
constexpr const char* kPoll = "https://gateway.invalid/poll";

TEST_F(TransportTest, StartsUnsentWithThreeAttemptsInModeLive) {
  clsSOAPInterface transport;
  EXPECT_EQ(transport.MaxSendAttempts(), 3);
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Unsent);
  EXPECT_EQ(transport.Mode(), RTI_SEND_MODE::Live);
  EXPECT_EQ(transport.Status(), "");
  EXPECT_EQ(transport.GatewayErrors(), "");
  EXPECT_EQ(transport.GatewayErrorsCollection()->Count(), 0);
  EXPECT_EQ(Setting("XMLFilePath"), "\\xml\\");
  EXPECT_TRUE(FolderExists(folder_.At("xml")));
}

TEST_F(TransportTest, ConstructionMakesTheFolderOfTheSettings) {
  alsAppSettings().SetSetting("XMLFilePath", "\\messages\\kept");
  const clsSOAPInterface transport;
  EXPECT_TRUE(FolderExists(folder_.At("messages/kept")));
  EXPECT_EQ(Setting("XMLFilePath"), "\\messages\\kept");
}

TEST_F(TransportTest, MaxSendAttemptsIgnoresZeroAndLess) {
  clsSOAPInterface transport;
  transport.MaxSendAttempts(0);
  EXPECT_EQ(transport.MaxSendAttempts(), 3);
  transport.MaxSendAttempts(-1);
  EXPECT_EQ(transport.MaxSendAttempts(), 3);
  transport.MaxSendAttempts(1);
  EXPECT_EQ(transport.MaxSendAttempts(), 1);
}

TEST_F(TransportTest, PrefixesComeFromTheSettingsOrAreWrittenThere) {
  alsAppSettings().SetSetting("PollFilePrefix", "ask");
  clsSOAPInterface transport;
  EXPECT_EQ(transport.ResponseFilePrefix(), "response");
  EXPECT_EQ(transport.SendFilePrefix(), "send");
  EXPECT_EQ(transport.PollFilePrefix(), "ask");
  EXPECT_EQ(transport.DeleteFilePrefix(), "delete");
  EXPECT_EQ(Setting("ResponseFilePrefix"), "response");
  EXPECT_EQ(Setting("SendFilePrefix"), "send");
  EXPECT_EQ(Setting("DeleteFilePrefix"), "delete");
}

TEST_F(TransportTest, AnEmptyPrefixIsNotWrittenAndReadsAsTheSetting) {
  clsSOAPInterface transport;
  transport.SendFilePrefix("out");
  EXPECT_EQ(Setting("SendFilePrefix"), "out");
  EXPECT_EQ(transport.SendFilePrefix(), "out");
  transport.SendFilePrefix("");
  EXPECT_EQ(Setting("SendFilePrefix"), "out");
  EXPECT_EQ(transport.SendFilePrefix(), "out");
}

TEST_F(TransportTest, SavePathMakesItsFolder) {
  clsSOAPInterface transport;
  EXPECT_EQ(transport.SavePath(), folder_.Path() + "\\xml\\");
  transport.SavePath(folder_.At("here\\"));
  EXPECT_TRUE(FolderExists(folder_.At("here")));
  std::filesystem::remove(folder_.At("here"));
  EXPECT_EQ(transport.SavePath(), folder_.At("here\\"));
  EXPECT_TRUE(FolderExists(folder_.At("here")));
}

TEST_F(TransportTest, AddressesAreBuiltInAndWrittenToTheSettingsOnFirstUse) {
  clsSOAPInterface transport;
  EXPECT_EQ(transport.GatewayURL(), "https://transaction-engine.tax.service.gov.uk/submission");
  EXPECT_EQ(Setting("GovGatewayURL_Live"), "https://transaction-engine.tax.service.gov.uk/submission");
  EXPECT_EQ(clsSOAPInterfacePeer::PollURL(transport), "https://transaction-engine.tax.service.gov.uk/poll");
  EXPECT_EQ(Setting("GovGatewayPollURL_Live"), "https://transaction-engine.tax.service.gov.uk/poll");
  transport.Mode(RTI_SEND_MODE::DevTest);
  EXPECT_EQ(transport.GatewayURL(), "https://test-transaction-engine.tax.service.gov.uk/submission");
  EXPECT_EQ(clsSOAPInterfacePeer::PollURL(transport),
            "https://test-transaction-engine.tax.service.gov.uk/poll");
  EXPECT_EQ(Setting("GovGatewayURL_Test"), "https://test-transaction-engine.tax.service.gov.uk/submission");
  EXPECT_EQ(Setting("GovGatewayPollURL_Test"), "https://test-transaction-engine.tax.service.gov.uk/poll");
}

TEST_F(TransportTest, OnlyLiveAndTestTakeTheLiveAddress) {
  alsAppSettings().SetSetting("GovGatewayURL_Live", "https://live.invalid/");
  alsAppSettings().SetSetting("GovGatewayURL_Test", "https://test.invalid/");
  clsSOAPInterface transport;
  for (Long mode = 0; mode <= 6; ++mode) {
    transport.Mode(static_cast<RTI_SEND_MODE>(mode));
    EXPECT_EQ(transport.GatewayURL(),
              mode == 0 || mode == 2 ? "https://live.invalid/" : "https://test.invalid/");
  }
}

TEST_F(TransportTest, ClassGetsTILInModeFileOnlyAlone) {
  clsSOAPInterface transport;
  for (Long mode = 0; mode <= 6; ++mode) {
    transport.Mode(static_cast<RTI_SEND_MODE>(mode));
    transport.Class("HMRC-PAYE-RTI-FPS");
    EXPECT_EQ(transport.Class(), mode == 1 ? "HMRC-PAYE-RTI-FPS-TIL" : "HMRC-PAYE-RTI-FPS");
  }
  transport.Mode(RTI_SEND_MODE::FileOnly);
  transport.Class("X-TIL");
  EXPECT_EQ(transport.Class(), "X-TIL");
}

TEST_F(TransportTest, NoMessageFails) {
  clsSOAPInterface transport;
  Follow(transport);
  EXPECT_FALSE(transport.Send(nullptr));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Failed);
  EXPECT_THAT(events_, ElementsAre("NoDocumentToSend"));
}

TEST_F(TransportTest, AnAcceptedSubmissionRaisesItsEventsInOrder) {
  answers_ = {Acknowledgement(), Acceptance(), Deleted()};
  alsAppSettings().SetSetting("GovGatewayURL_Live", "https://gateway.invalid/submission");
  clsSOAPInterface transport;
  Follow(transport);
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Complete);
  const String id = kId;
  const String poll = kPoll;
  EXPECT_THAT(events_,
              ElementsAre("StatusChanged Initialising...", "IRmarkGenerated", "SendingDocument 0",
                          "StatusChanged Attempting to send... attempt 1 of 3",
                          "MessageSent https://gateway.invalid/submission",
                          "StatusChanged Processing response...", "ResponseReceived acknowledgement",
                          "StatusChanged Acknowledgement received from Government Gateway",
                          "SubmissionSuccessful " + id + " " + poll + " 5", "AcknowledgementReceived " + id,
                          "WaitingToPollTitle 0", "StatusChanged Beginning Poll...", "PollingDocument 0",
                          "MessageSent " + poll, "StatusChanged Processing response...",
                          "ResponseReceived response", "SuccessResponseReceived " + id,
                          "ClosingConversation " + id, "MessageSent " + poll, "ConversationClosed " + id));
  EXPECT_THAT(Files(),
              ElementsAre("delete.xml", "deleteOriginal.xml", "poll1.xml", "response.xml", "send.xml"));
  EXPECT_THAT(host_->messages, IsEmpty());
}

TEST_F(TransportTest, EachMessageIsPostedAsXmlText) {
  answers_ = {Acknowledgement(), Acceptance(), Deleted()};
  clsSOAPInterface transport;
  transport.Username("ISV635");
  transport.Password("open sesame");
  transport.Send(Message());
  ASSERT_EQ(sent_.size(), 3U);
  for (const HttpMessage& message : sent_) {
    EXPECT_EQ(message.method, "POST");
    EXPECT_THAT(message.headers, ElementsAre(std::pair<String, String>("Content-type", "text/xml")));
  }
  EXPECT_EQ(sent_[0].user, "");
  EXPECT_EQ(sent_[1].user, "");
  EXPECT_EQ(sent_[2].user, "ISV635");
  EXPECT_EQ(sent_[2].password, "open sesame");
  EXPECT_EQ(sent_[0].body, ReadFile(folder_.At("xml/send.xml")));
  EXPECT_THAT(sent_[0].body, HasSubstr("<IRmark Type=\"generic\">"));
  // What is polled with is the first answer, with class and sender of the submission.
  EXPECT_THAT(sent_[1].body, HasSubstr("<Qualifier>poll</Qualifier><Function>submit</Function>"));
  EXPECT_THAT(sent_[1].body, HasSubstr("<Class>HMRC-PAYE-RTI-FPS</Class>"));
  EXPECT_THAT(sent_[1].body, HasSubstr(String("<CorrelationID>") + kId + "</CorrelationID>"));
  EXPECT_THAT(sent_[1].body, HasSubstr("<Body></Body>"));
  // The delete request is emptied only on its way out.
  EXPECT_THAT(sent_[2].body, HasSubstr("<Qualifier>request</Qualifier><Function>delete</Function>"));
  EXPECT_THAT(sent_[2].body, HasSubstr("<Body></Body>"));
  EXPECT_THAT(ReadFile(folder_.At("xml/deleteOriginal.xml")), HasSubstr("SuccessResponse"));
  EXPECT_THAT(ReadFile(folder_.At("xml/delete.xml")), HasSubstr("<Body></Body>"));
}

TEST_F(TransportTest, ThePollFileHoldsTheUserAndTheMessageDoesNot) {
  answers_ = {Acknowledgement(), Acceptance(), Deleted()};
  clsSOAPInterface transport;
  transport.Class("HMRC-PAYE-RTI-FPS");
  transport.Username("ISV635");
  transport.Password("open sesame");
  transport.Send(Message());
  const String file = ReadFile(folder_.At("xml/poll1.xml"));
  EXPECT_THAT(file, HasSubstr("<SenderID>ISV635</SenderID>"));
  EXPECT_THAT(file, HasSubstr("<Value>open sesame</Value>"));
  EXPECT_THAT(file, HasSubstr("<Qualifier>poll</Qualifier>"));
  EXPECT_THAT(sent_[1].body, testing::Not(HasSubstr("ISV635")));
}

TEST_F(TransportTest, AFailedConnectionIsTriedFourTimes) {
  clsSOAPInterface transport;
  Follow(transport);
  Ref<clsGovTalkMessage> response;
  transport.events.ResponseReceived.connect([&](const Ref<clsGovTalkMessage>& each) { response = each; });
  EXPECT_FALSE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::ConnectionFailed);
  EXPECT_EQ(sent_.size(), 4U);
  EXPECT_THAT(events_, ElementsAre("StatusChanged Initialising...", "IRmarkGenerated", "SendingDocument 0",
                                   "StatusChanged Attempting to send... attempt 1 of 3", "IRmarkGenerated",
                                   "SendingDocument 1", "StatusChanged Attempting to send... attempt 2 of 3",
                                   "IRmarkGenerated", "SendingDocument 2",
                                   "StatusChanged Attempting to send... attempt 3 of 3", "IRmarkGenerated",
                                   "SendingDocument 3", "StatusChanged Attempting to send... attempt 4 of 3",
                                   "CannotSendDocument Maximum attempts reached",
                                   "StatusChanged Failed to connect to the Government Gateway.",
                                   "ResponseReceived error"));
  ASSERT_TRUE(response);
  EXPECT_EQ(response->Header_MessageDetails()->MessageFunction(), "submit");
  EXPECT_EQ(response->Header_SenderDetails()->SenderID(), "");
  EXPECT_EQ(response->SubmissionDocument()->SubmissionType(), eRTISUBMISSIONTYPE::IsErrorResponse);
  const Ref<clsGTMGovTalkError> error = response->SubmissionDocument()->ERRORRESPONSE()->GetError(1);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->RaisedBy(), "ZELNOR.clsSOAPInterface.SendXML");
  EXPECT_EQ(error->ErrorType(), "INTERNAL");
  EXPECT_EQ(error->Number(), -9999);
  EXPECT_EQ(error->Text(), "Unable to communicate with the Government Gateway: Null response");
  EXPECT_EQ(error->Location(), "");
  EXPECT_THAT(Files(), ElementsAre("send.xml"));
}

TEST_F(TransportTest, ARefusedCertificateIsTriedOnce) {
  host_->exchange = [this](const HttpMessage& message) -> HttpAnswer {
    sent_.push_back(message);
    throw RuntimeError(kHttpRefusedCertificate, "ZELNOR", "expired");
  };
  clsSOAPInterface transport;
  Follow(transport);
  Ref<clsGovTalkMessage> response;
  transport.events.ResponseReceived.connect([&](const Ref<clsGovTalkMessage>& each) { response = each; });
  EXPECT_FALSE(transport.Send(Message()));
  EXPECT_EQ(sent_.size(), 1U);
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::ConnectionFailed);
  EXPECT_EQ(
      response->SubmissionDocument()->ERRORRESPONSE()->GetError(1)->Text(),
      "Unable to communicate with the Government Gateway. The target server may have an invalid HTTP "
      "security certificate.\r\n\r\nPlease ensure that your PC date is set to the correct date and time, "
      "and that you are able to access the Internet without any issues.");
}

TEST_F(TransportTest, AnAnswerThatIsNoXmlFailsTheConnectionWithoutARetry) {
  answers_ = {"this is not XML"};
  clsSOAPInterface transport;
  Follow(transport);
  Ref<clsGovTalkMessage> response;
  transport.events.ResponseReceived.connect([&](const Ref<clsGovTalkMessage>& each) { response = each; });
  EXPECT_FALSE(transport.Send(Message()));
  EXPECT_EQ(sent_.size(), 1U);
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::ConnectionFailed);
  EXPECT_EQ(response->Header_MessageDetails()->Qualifier(), "request");
  EXPECT_EQ(response->SubmissionDocument()->ERRORRESPONSE()->GetError(1)->Text(),
            "Invalid response from HMRC: Null response");
  EXPECT_EQ(events_.back(), "ResponseReceived request");
  EXPECT_EQ(transport.Status(), "Processing response...");
}

TEST_F(TransportTest, AFailureBehindTheExchangeKeepsTheAnswerBesideTheProgram) {
  answers_ = {"<odd/>", Answer{.qualifier = "error"}.Text()};
  clsSOAPInterface transport;
  bool first = true;
  transport.events.MessageSent.connect([&](const Ref<clsGovTalkMessage>&, const String&) {
    if (std::exchange(first, false)) ThrowTypeMismatch();
  });
  EXPECT_FALSE(transport.Send(Message()));
  EXPECT_EQ(sent_.size(), 2U);
  EXPECT_EQ(ReadFile(folder_.At("ResponseError20170405-101112.xml")), "<odd></odd>");
}

TEST_F(TransportTest, ACancelBeforeTheExchangeSendsNothing) {
  clsSOAPInterface transport;
  Follow(transport);
  transport.Cancel();
  EXPECT_FALSE(transport.Send(Message()));
  EXPECT_THAT(sent_, IsEmpty());
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Processing);
  EXPECT_EQ(events_.back(), "Cancelled");
}

TEST_F(TransportTest, ACancelBetweenTwoAttemptsEndsTheRetries) {
  clsSOAPInterface transport;
  Follow(transport);
  host_->exchange = [&](const HttpMessage& message) -> HttpAnswer {
    sent_.push_back(message);
    transport.Cancel();
    throw RuntimeError(kHttpTimedOut, "ZELNOR", "too slow");
  };
  EXPECT_FALSE(transport.Send(Message()));
  EXPECT_EQ(sent_.size(), 1U);
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Processing);
  EXPECT_THAT(events_, testing::Not(testing::Contains("Cancelled")));
}

TEST_F(TransportTest, ACancelAtTheAcknowledgementLeavesTheResultPending) {
  answers_ = {Acknowledgement()};
  clsSOAPInterface transport;
  Follow(transport);
  transport.events.AcknowledgementReceived.connect([&](const String&) { transport.Cancel(); });
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::PendingResult);
  EXPECT_EQ(events_.back(), "Cancelled");
  EXPECT_EQ(sent_.size(), 1U);
}

TEST_F(TransportTest, ACancelInTheWaitEndsItWithinAYieldAndPostsNothing) {
  answers_ = {Acknowledgement(), Acceptance()};
  clsSOAPInterface transport;
  Follow(transport);
  std::int64_t cancelled_at = -1;
  host_->on_yield = [&] {
    if (cancelled_at >= 0 || host_->tick < 2000) return;
    transport.Cancel();
    cancelled_at = host_->tick;
  };
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Cancelled);
  EXPECT_EQ(sent_.size(), 1U);
  EXPECT_LE(host_->tick - cancelled_at, 50);
}

TEST_F(TransportTest, TheWaitIsToldOnceASecondInMinutes) {
  answers_ = {Answer{.interval = "3"}.Text(), Acceptance(), Deleted()};
  clsSOAPInterface transport;
  std::vector<double> told;
  transport.events.WaitingToPoll.connect([&](double minutes) { told.push_back(minutes * 60); });
  transport.Send(Message());
  EXPECT_THAT(told, ElementsAre(testing::DoubleEq(3), testing::DoubleEq(2), testing::DoubleEq(1),
                                testing::DoubleNear(0, 1e-9)));
}

// The waits in seconds before each of a conversation's polls.
class WaitTest : public TransportTest {
 protected:
  std::vector<Long> Waits(const String& interval, int polls) {
    answers_ = {Answer{.interval = interval}.Text()};
    for (int poll = 1; poll < polls; ++poll) answers_.push_back(Acknowledgement());
    answers_.push_back(Acceptance());
    answers_.push_back(Deleted());
    sent_.clear();
    std::vector<Long> waits;
    clsSOAPInterface transport;
    bool first = true;
    transport.events.WaitingToPoll.connect([&](double minutes) {
      if (std::exchange(first, false)) waits.push_back(static_cast<Long>(minutes * 60 + 0.5));
    });
    transport.events.PollingDocument.connect([&](Long) { first = true; });
    EXPECT_TRUE(transport.Send(Message()));
    EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Complete);
    return waits;
  }
};

TEST_F(WaitTest, ThePollsBackOff) {
  const auto table = [](Long first, Long sixth, Long thirteenth, Long last) {
    std::vector<Long> waits(5, first);
    waits.insert(waits.end(), 7, sixth);
    waits.insert(waits.end(), 8, thirteenth);
    waits.insert(waits.end(), 5, last);
    return waits;
  };
  EXPECT_EQ(Waits("0", 25), table(10, 15, 20, 30));
  EXPECT_EQ(Waits("1", 25), table(1, 2, 2, 3));
  EXPECT_EQ(Waits("5", 25), table(5, 8, 10, 15));
  EXPECT_EQ(Waits("3", 25), table(3, 4, 6, 9));
  EXPECT_EQ(Waits("98", 25), table(98, 147, 196, 294));
  EXPECT_EQ(Waits("99", 25), table(10, 15, 20, 30));
  EXPECT_EQ(Waits("120", 25), table(10, 15, 20, 30));
  EXPECT_EQ(Waits("-1", 25), table(0, 0, 0, 0));
}

TEST_F(TransportTest, AProvisionalAnswerLeavesStatusAsItIs) {
  answers_ = {Acknowledgement(), Answer{.interval = "50", .end_point = "https://elsewhere.invalid/"}.Text(),
              Acceptance(), Deleted()};
  clsSOAPInterface transport;
  Follow(transport);
  transport.events.StatusChanged.connect([&](const String& status) {
    if (status == "Provisional acknowledgement received...") {
      EXPECT_EQ(transport.Status(), "Processing response...");
    }
  });
  transport.Send(Message());
  EXPECT_THAT(events_, testing::Contains("StatusChanged Provisional acknowledgement received..."));
  // The first acknowledgement's end point and interval serve all polls.
  EXPECT_EQ(sent_[2].url, kPoll);
  EXPECT_LT(host_->tick, 12000);
}

TEST_F(TransportTest, WithoutAnEndPointThePollURLOfTheSettingsServes) {
  alsAppSettings().SetSetting("GovGatewayPollURL_Live", "https://settings.invalid/poll");
  answers_ = {Answer{.end_point = ""}.Text(), Acceptance(), Deleted()};
  clsSOAPInterface transport;
  transport.Send(Message());
  EXPECT_EQ(sent_[1].url, "https://settings.invalid/poll");
}

TEST_F(TransportTest, APollWhoseAnswerIsNoXmlIsFollowedByAnother) {
  answers_ = {Acknowledgement(), "garbage", Acceptance(), Deleted()};
  clsSOAPInterface transport;
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Complete);
  EXPECT_EQ(sent_.size(), 4U);
}

TEST_F(TransportTest, APollThatBeginsWithAnAcceptanceClosesTheConversation) {
  answers_ = {Deleted()};
  clsSOAPInterface transport;
  Follow(transport);
  const auto acceptance = std::make_shared<clsGovTalkMessage>();
  ASSERT_TRUE(acceptance->ParseFromXML(Acceptance()));
  transport.PollForResponse(acceptance);
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Complete);
  ASSERT_EQ(sent_.size(), 1U);
  EXPECT_THAT(sent_[0].body, HasSubstr("<Function>delete</Function>"));
  ASSERT_FALSE(events_.empty());
  EXPECT_EQ(events_[0], "StatusChanged Closing conversation with Government Gateway");
}

TEST_F(TransportTest, APollThatBeginsWithAnotherFunctionsAnswerPollsNothing) {
  clsSOAPInterface transport;
  Follow(transport);
  const auto deleted = std::make_shared<clsGovTalkMessage>();
  ASSERT_TRUE(deleted->ParseFromXML(Deleted()));
  transport.PollForResponse(deleted);
  EXPECT_THAT(events_, ElementsAre("WaitingToPollTitle 0"));
  EXPECT_TRUE(sent_.empty());
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::PendingResult);
}

TEST_F(TransportTest, AConnectionLostWhilePollingFailsTheConnection) {
  answers_ = {Acknowledgement()};
  clsSOAPInterface transport;
  Follow(transport);
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::ConnectionFailed);
  EXPECT_EQ(sent_.size(), 5U);
  EXPECT_EQ(events_.back(), String("GatewayConnectionError ") + kId);
  EXPECT_EQ(transport.GatewayErrors(), "Unable to communicate with the Government Gateway: Null response");
}

TEST_F(TransportTest, AnImmediateAcceptanceClosesTheConversation) {
  answers_ = {Acceptance(), Deleted()};
  clsSOAPInterface transport;
  Follow(transport);
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Complete);
  EXPECT_EQ(transport.Status(), "Immediate response received from Government Gateway");
  EXPECT_EQ(events_.back(), String("ConversationClosed ") + kId);
  EXPECT_THAT(events_, testing::Not(testing::Contains(StartsWith("SubmissionSuccessful"))));
}

TEST_F(TransportTest, AnImmediateAnswerOfAnotherFunctionIsASuccessToo) {
  answers_ = {Answer{.qualifier = "RESPONSE", .function = "list"}.Text(), Deleted()};
  clsSOAPInterface transport;
  Follow(transport);
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Complete);
  EXPECT_EQ(transport.Status(), "Successful response received from Government Gateway");
  EXPECT_THAT(events_, testing::Contains(StartsWith("SubmissionSuccessful")));
}

TEST_F(TransportTest, AnyOtherQualifierFails) {
  answers_ = {Answer{.qualifier = "request"}.Text()};
  clsSOAPInterface transport;
  EXPECT_FALSE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Failed);
  EXPECT_THAT(Files(), ElementsAre("response.xml", "send.xml"));
}

TEST_F(TransportTest, TheMessagesOfAnAcceptanceEndBehindNumber9001) {
  XmlDocument document;
  document.LoadXML(
      "<GovTalkMessage><Body><SuccessResponse><Message code=\"1\">one</Message><Message "
      "code=\"9001\">two</Message>"
      "<Message code=\"2\">three</Message></SuccessResponse></Body></GovTalkMessage>");
  clsSOAPInterface transport;
  clsSOAPInterfacePeer::CollectMessages(transport, document);
  EXPECT_EQ(clsSOAPInterfacePeer::SuccessText(transport), "one\r\n\r\ntwo");
}

TEST_F(TransportTest, AConversationThatCannotBeClosedIsShownAndStaysComplete) {
  answers_ = {Acknowledgement(), Acceptance()};
  clsSOAPInterface transport;
  Follow(transport);
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Complete);
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(
      host_->messages[0].text,
      "Error in ZELNOR.dll::clsSOAPInterface: Sub CloseConversation: Error -2146697211 - nobody listens");
  EXPECT_EQ(events_.back(), String("ClosingConversation ") + kId);
}

TEST_F(TransportTest, LaterAnswersToASubmissionAreNumbered) {
  answers_ = {Answer{.qualifier = "error"}.Text(), Answer{.qualifier = "error"}.Text()};
  clsSOAPInterface transport;
  transport.Send(Message());
  transport.Send(Message());
  EXPECT_THAT(Files(), ElementsAre("response.xml", "response1.xml", "send.xml"));
}

// The errors of a first answer.
class ErrorTest : public TransportTest {
 protected:
  void Receive(const String& errors, const String& body, const Ref<clsGovTalkMessage>& message = Message()) {
    answers_ = {Answer{.qualifier = "error", .body = body, .errors = errors}.Text()};
    Follow(transport_);
    EXPECT_FALSE(transport_.Send(message));
    EXPECT_EQ(transport_.ProcessingStatus(), SEND_STATUS::Failed);
  }
  clsGTMGovTalkError& Only() const {
    EXPECT_EQ(transport_.GatewayErrorsCollection()->Count(), 1);
    return *transport_.GatewayErrorsCollection()->Item(1);
  }
  static String Error(const String& number, const String& text, const String& location = {}) {
    return "<Error><RaisedBy>Gateway</RaisedBy><Number>" + number + "</Number><Type>fatal</Type><Text>" +
           text + "</Text><Location>" + location + "</Location></Error>";
  }
  static String ErrorResponse(const String& errors) {
    return "<ErrorResponse xmlns=\"http://www.govtalk.gov.uk/CM/errorresponse\">" + errors +
           "</ErrorResponse>";
  }

  clsSOAPInterface transport_;
};

TEST_F(ErrorTest, TheEnvelopesErrorsAreTold) {
  Receive("<GovTalkErrors>" + Error("1001", "first") + Error("2001", "second") + "</GovTalkErrors>", "");
  EXPECT_EQ(transport_.GatewayErrors(), "first\r\nsecond\r\nEmpty error response from Government Gateway!");
  EXPECT_THAT(events_, testing::Contains("InitialErrorResponseReceived"));
  EXPECT_EQ(events_.back(), String("ErrorResponseReceived ") + kId);
}

TEST_F(ErrorTest, AnEmptyAnswerIsSaidToBeEmpty) {
  Receive("", "");
  EXPECT_EQ(transport_.GatewayErrors(), "Empty error response from Government Gateway!");
  EXPECT_EQ(Only().RaisedBy(), "INTERNAL");
  EXPECT_EQ(Only().ErrorType(), "UNKNOWN");
  EXPECT_EQ(Only().Number(), 0);
  EXPECT_EQ(Only().Location(), "/Body");
}

TEST_F(ErrorTest, TheDepartmentsErrorsFollowTheEnvelopes) {
  Receive("<GovTalkErrors>" + Error("3001", "rejected") + "</GovTalkErrors>",
          ErrorResponse(Error("7777", "bad NINO")));
  EXPECT_EQ(transport_.GatewayErrors(), "rejected\r\nbad NINO");
  EXPECT_EQ(transport_.GatewayErrorsCollection()->Count(), 2);
}

TEST_F(ErrorTest, ADepartmentsAnswerWithoutErrorsIsUnidentified) {
  Receive("", ErrorResponse(""));
  EXPECT_EQ(Only().Text(), "Unable to identify errors!");
  EXPECT_EQ(Only().Location(), "/Body/ErrorResponse; GovTalkDetails/GovTalkErrors");
}

TEST_F(ErrorTest, ErrorsInsideAnotherBodyAreFound) {
  Receive("", "<Wrapper>" + ErrorResponse(Error("1", "deep")) + "</Wrapper>");
  EXPECT_EQ(transport_.GatewayErrors(), "deep");
}

TEST_F(ErrorTest, AnotherBodyWithoutErrorsSaysSo) {
  Receive("", "<Wrapper>" + ErrorResponse("<Application/>") + "</Wrapper>");
  EXPECT_EQ(Only().Text(), "No errors found to parse!");
  EXPECT_EQ(Only().Location(), "/Body/ErrorResponse");
}

TEST_F(ErrorTest, AChildThatIsNoFilledErrorResponseSaysSo) {
  Receive("", "<Wrapper><Other>x</Other><ErrorResponse/></Wrapper>");
  EXPECT_EQ(
      transport_.GatewayErrors(),
      "Error response contains no identifiable errors!\r\nError response contains no identifiable errors!");
}

TEST_F(ErrorTest, RefusedCredentialsReplaceWhatWasGatheredBefore) {
  for (const char* number : {"1040", "1046"}) {
    const String text =
        "Sender ID / Password are incorrect for the Tax District Number and Reference you are submitting.";
    sent_.clear();
    Receive("<GovTalkErrors>" + Error("1001", "before") + Error(number, "no") + Error("1002", "after") +
                "</GovTalkErrors>",
            ErrorResponse("<Application/>"));
    EXPECT_EQ(transport_.GatewayErrors(), text + "\r\nafter");
    EXPECT_THAT(events_, testing::Contains(String("ERRORRESPONSE ") + number + " " + text));
  }
}

TEST_F(ErrorTest, EmployeesButTheLastAreNamed) {
  const Ref<clsGovTalkMessage> message = Message();
  const Long count = message->SubmissionDocument()->FPS()->EmployeeCount();
  ASSERT_GT(count, 2);
  const auto at = [](Long index) {
    return "/GovTalkMessage[1]/Body[1]/x:Employee[" + ToText(index) + "]/NINO";
  };
  Receive("",
          ErrorResponse(Error("1", "second", at(2)) + Error("2", "last", at(count)) +
                        Error("3", "none", at(count + 1)) + Error("4", "no one", "/Body/Employee[1]")),
          message);
  EXPECT_EQ(transport_.GatewayErrors(), "M-1042 BRACKENRIDGE OLUWASEUN: second\r\nlast\r\nnone\r\nno one");
  EXPECT_EQ(transport_.GatewayErrorsCollection()->Item(1)->Text(), "M-1042 BRACKENRIDGE OLUWASEUN: second");
}

TEST_F(ErrorTest, AnErrorInAPollFailsTheSubmission) {
  answers_ = {Acknowledgement(),
              Answer{.qualifier = "error",
                     .body = ErrorResponse("<Application/>"),
                     .errors = "<GovTalkErrors>" + Error("2000", "gone") + "</GovTalkErrors>"}
                  .Text()};
  clsSOAPInterface transport;
  Follow(transport);
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Failed);
  EXPECT_EQ(transport.GatewayErrors(), "gone");
  EXPECT_EQ(events_.back(), String("ErrorResponseReceived ") + kId);
}

TEST_F(TransportTest, FailuresOfTheTransportAreToldByEvents) {
  answers_ = {Acknowledgement()};
  clsSOAPInterface transport;
  Follow(transport);
  transport.events.AcknowledgementReceived.connect([](const String&) { ThrowTypeMismatch(); });
  EXPECT_FALSE(transport.Send(Message()));
  EXPECT_EQ(
      events_.back(),
      "CannotSendDocument Error in ZELNOR.dll::clsSOAPInterface::Function EvaluateSubmissionXMLResponse: "
      "Error 13 - Type mismatch");
}

TEST_F(TransportTest, AFormattedFailureIsToldWithItsSource) {
  answers_ = {Acknowledgement()};
  clsSOAPInterface transport;
  Follow(transport);
  transport.events.WaitingToPollTitle.connect(
      [](Long) { throw RuntimeError(kFormattedError, "[there]", "told already"); });
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::PendingResult);
  EXPECT_EQ(events_.back(), "ErrorProcessingResponse [there] : told already");
}

TEST_F(TransportTest, APollFileThatCannotBeWrittenDoesNotStopThePoll) {
  answers_ = {Acknowledgement(), Acceptance(), Deleted()};
  clsSOAPInterface transport;
  Follow(transport);
  std::filesystem::create_directories(folder_.At("xml/poll1.xml/occupied"));
  EXPECT_TRUE(transport.Send(Message()));
  EXPECT_EQ(transport.ProcessingStatus(), SEND_STATUS::Complete);
  EXPECT_THAT(events_, testing::Contains(StartsWith("SendingError Error generating poll document: ")));
}

}  // namespace
}  // namespace zelnor
