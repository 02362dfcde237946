// What the gateway does when a scenario tells it to, as curl and a bare socket see it.

#include <chrono>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include "standin/gateway_fixture.h"
#include <gmock/gmock.h>

namespace zelnor::standin {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

class FaultsTest : public GatewayTest {
 protected:
  void Tell(const std::string& scenario) {
    Start({.scenario = scenario, .provisional = 0, .schema_folder = Schemas()});
  }

  // What a bare socket gets for a submission.
  std::string Bare(const std::string& scenario) {
    Tell(scenario);
    BareSocket client(gateway_->port());
    client.Post(Submission());
    const std::string bytes = client.Read();
    EXPECT_TRUE(client.Closed());
    return bytes;
  }

  static std::string BodyOf(const std::string& answer) {
    const std::size_t end = answer.find("\r\n\r\n");
    return end == std::string::npos ? std::string() : answer.substr(end + 4);
  }

  static std::size_t LengthOf(const std::string& answer) {
    const std::size_t at = answer.find("Content-Length: ");
    return at == std::string::npos ? 0 : std::stoul(answer.substr(at + std::strlen("Content-Length: ")));
  }
};

// ---- messages

TEST_F(FaultsTest, ProperIsWhatItDoesUntold) {
  Tell("proper\n");
  EXPECT_EQ(Post(Submission()).Kind(), "acknowledgement submit");
}

TEST_F(FaultsTest, AnAcknowledgementOfOtherDetails) {
  Tell(
      "acknowledgement interval=abc endpoint=http://127.0.0.1:9/x correlation=ABC class=Other\n"
      "acknowledgement interval=none\nacknowledgement endpoint=none correlation=none\n");
  const Curled other = Post(Submission());
  EXPECT_EQ(other.Kind(), "acknowledgement submit");
  EXPECT_EQ(other.Text("CorrelationID"), "ABC");
  EXPECT_EQ(other.Text("Class"), "Other");
  EXPECT_THAT(other.body, HasSubstr("<ResponseEndPoint PollInterval=\"abc\">http://127.0.0.1:9/x</"));
  EXPECT_THAT(Post(Submission()).body, HasSubstr("<ResponseEndPoint>" + gateway_->url() + "/poll</"));
  const Curled bare = Post(Submission());
  EXPECT_EQ(bare.Count("ResponseEndPoint"), 0U);
  EXPECT_EQ(bare.Text("CorrelationID"), "");
  EXPECT_EQ(Post(Poll("ABC"), "/poll").Kind(), "response submit")
      << "the id that it was told to give is good";
}

TEST_F(FaultsTest, AnEndPointOfItsOwnIsServed) {
  Start({.provisional = 0});
  gateway_->SetScenario("acknowledgement endpoint=" + gateway_->url() + "/inbox\n");
  const std::string id = Submitted();
  EXPECT_EQ(Post(Poll(id), "/inbox").Kind(), "response submit");
  EXPECT_EQ(Post(Poll(id), "/outbox").status, 404);
}

TEST_F(FaultsTest, AnEarlyResponse) {
  Start({.scenario = "poll: response\npoll: response class=Other correlation=ABC\nsubmission: response",
         .provisional = 9});
  const Curled at_once = Post(Submission());
  EXPECT_EQ(at_once.Kind(), "response submit");
  EXPECT_EQ(at_once.Count("IRmarkReceipt"), 1U);
  const std::string id = Submitted();
  const Curled early = Post(Poll(id), "/poll");
  EXPECT_EQ(early.Kind(), "response submit");
  EXPECT_EQ(early.Text("DigestValue"), at_once.Text("DigestValue"));
  EXPECT_EQ(early.Text("CorrelationID"), id);
  const Curled other = Post(Poll(id), "/poll");
  EXPECT_EQ(other.Text("Class") + other.Text("CorrelationID"), "OtherABC");
  EXPECT_EQ(Post(Poll(id), "/poll").Kind(), "acknowledgement submit") << "not ready yet";
}

TEST_F(FaultsTest, AnImmediateResponse) {
  Tell("response-immediate messages=\"9000:text one|9001:text <two>\"\n");
  const Curled answer = Post(Submission());
  EXPECT_EQ(answer.Kind(), "response submit");
  EXPECT_THAT(answer.body, HasSubstr("<Message code=\"9000\">text one</Message><Message code=\"9001\">text "
                                     "&lt;two&gt;</Message></SuccessResponse>"));
}

TEST_F(FaultsTest, ResponsesOfOtherFunctions) {
  Tell("response-other function=list\ndeleted\n");
  EXPECT_EQ(Post(Submission()).Kind(), "response list");
  EXPECT_EQ(Post(Submission()).Kind(), "response delete");
}

TEST_F(FaultsTest, AnErrorOfTheGateway) {
  Tell("error number=3000 type=recoverable raised-by=Someone text=\"a < b\" location=/x[1]\nerror\n");
  const Curled answer = Post(Submission());
  EXPECT_EQ(answer.Kind(), "error submit");
  EXPECT_THAT(answer.body, HasSubstr("<GovTalkErrors><Error><RaisedBy>Someone</RaisedBy><Number>3000</Number>"
                                     "<Type>recoverable</Type><Text>a &lt; b</Text><Location>/x[1]</Location>"
                                     "</Error></GovTalkErrors></GovTalkDetails><Body></Body>"));
  EXPECT_THAT(Post(Submission()).body, HasSubstr("<RaisedBy>Gateway</RaisedBy><Number>1000</Number>"));
}

TEST_F(FaultsTest, ErrorsOfTheDepartment) {
  Tell("business-error error=\"7780|business|Wrong & bad|/a/b[2]\" error=\"7781|warning|Odd\"\n");
  const Curled answer = Post(Submission());
  EXPECT_EQ(answer.Kind(), "error submit");
  EXPECT_THAT(answer.body,
              HasSubstr("<RaisedBy>Department</RaisedBy><Number>3001</Number><Type>business</Type>"));
  EXPECT_THAT(answer.body, HasSubstr("<Number>7780</Number><Type>business</Type><Text>Wrong &amp; bad</Text>"
                                     "<Location>/a/b[2]</Location></Error>"));
  EXPECT_THAT(answer.body, HasSubstr("<Number>7781</Number><Type>warning</Type><Text>Odd</Text></Error>"));
  EXPECT_EQ(SchemaFaults(answer.body), "");
}

TEST_F(FaultsTest, ErrorsOfOddForm) {
  Tell("error-body xml=\"<Odd/>\"\nerror-noerrors\n");
  const Curled odd = Post(Submission());
  EXPECT_EQ(odd.Kind(), "error submit");
  EXPECT_EQ(odd.Count("GovTalkErrors"), 0U);
  EXPECT_THAT(odd.body, HasSubstr("<Body><Odd/></Body>"));
  const Curled none = Post(Submission());
  EXPECT_EQ(none.Kind(), "error submit");
  EXPECT_EQ(none.Count("GovTalkErrors"), 0U);
  EXPECT_THAT(none.body, HasSubstr("<Body></Body>"));
}

TEST_F(FaultsTest, AnyOddEnvelope) {
  Tell("qualifier value=request function=read\n");
  EXPECT_EQ(Post(Submission()).Kind(), "request read");
}

TEST_F(FaultsTest, ToldAnswersLeaveTheSubmissionAlone) {
  Tell("delete: error number=1000\n");
  const std::string id = Submitted();
  EXPECT_EQ(Post(Delete(id)).Kind(), "error submit");
  EXPECT_EQ(Post(Poll(id), "/poll").Kind(), "response submit");
}

// ---- connections

TEST_F(FaultsTest, RefuseClosesWithoutReading) {
  Tell("refuse\n");
  BareSocket client(gateway_->port());
  EXPECT_EQ(client.Read(), "");
  EXPECT_TRUE(client.Closed());
  EXPECT_TRUE(gateway_->exchanges().empty());
  EXPECT_EQ(Post(Submission()).Kind(), "acknowledgement submit");
}

TEST_F(FaultsTest, RefuseOfOneKindOfRequestReadsIt) {
  Tell("poll: refuse\n");
  const std::string id = Submitted();
  const Curled refused = Post(Poll(id), "/poll");
  EXPECT_NE(refused.exit, 0);
  EXPECT_EQ(refused.header, "");
  EXPECT_EQ(Post(Poll(id), "/poll").Kind(), "response submit");
}

TEST_F(FaultsTest, DropBeforeAnswersNothing) {
  EXPECT_EQ(Bare("drop before\n"), "");
  ASSERT_EQ(gateway_->exchanges().size(), 1U);
  EXPECT_EQ(gateway_->exchanges()[0].request, Submission());
  EXPECT_EQ(gateway_->exchanges()[0].what, "submission request -> told: drop before");
  gateway_->SetScenario("drop\n");
  EXPECT_EQ(Post(Submission()).exit, 52);
}

TEST_F(FaultsTest, DropHeaderAnswersAPartOfTheHeader) {
  const std::string answer = Bare("drop header\n");
  EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 OK"));
  EXPECT_THAT(answer, Not(HasSubstr("\r\n\r\n")));
}

TEST_F(FaultsTest, DropBodyAnswersHalfOfTheBody) {
  const std::string answer = Bare("drop body\n");
  EXPECT_EQ(BodyOf(answer).size(), LengthOf(answer) / 2);
  gateway_->SetScenario("drop body\n");
  EXPECT_EQ(Post(Submission()).exit, 18);
}

TEST_F(FaultsTest, TheWaitForALargeRequestIsNoPartOfTheAnswer) {
  Tell("drop body\n");
  BareSocket client(gateway_->port());
  const std::string message = Submission() + std::string(2'000'000, ' ');
  client.Send("POST /submission HTTP/1.1\r\nHost: 127.0.0.1\r\nExpect: 100-continue\r\nContent-Length: " +
              std::to_string(message.size()) + "\r\n\r\n");
  EXPECT_EQ(client.Read(500), "HTTP/1.1 100 Continue\r\n\r\n");
  client.Send(message);
  const std::string answer = client.Read();
  EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 OK"));
  EXPECT_EQ(BodyOf(answer).size(), LengthOf(answer) / 2);
}

TEST_F(FaultsTest, AStallHoldsTheConnection) {
  Tell("stall\nstall header\nstall body\n");
  for (const char* where : {"before", "header", "body"}) {
    BareSocket client(gateway_->port());
    client.Post(Submission());
    const std::string answer = client.Read(500);
    EXPECT_FALSE(client.Closed()) << where;
    if (where == std::string("before")) {
      EXPECT_EQ(answer, "");
    } else if (where == std::string("header")) {
      EXPECT_THAT(answer, StartsWith("HTTP/1.1 200"));
      EXPECT_EQ(BodyOf(answer), "");
    } else {
      EXPECT_EQ(BodyOf(answer).size(), LengthOf(answer) / 2);
    }
  }
}

TEST_F(FaultsTest, StalledExchangesLeaveRoomForOthers) {
  Tell("stall x12\n");
  std::vector<std::unique_ptr<BareSocket>> clients;
  for (int each = 0; each < 12; ++each) {
    clients.push_back(std::make_unique<BareSocket>(gateway_->port()));
    clients.back()->Post(Submission());
    while (gateway_->exchanges().size() <= static_cast<std::size_t>(each)) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }
  EXPECT_EQ(Post(Submission()).Kind(), "acknowledgement submit");
}

TEST_F(FaultsTest, StopEndsAStall) {
  Tell("stall\nslow ms=60000\n");
  BareSocket stalled(gateway_->port());
  stalled.Post(Submission());
  EXPECT_EQ(stalled.Read(300), "");
  BareSocket slow(gateway_->port());
  slow.Post(Submission());
  BareSocket silent(gateway_->port());
  EXPECT_EQ(slow.Read(300), "");
  const auto begin = std::chrono::steady_clock::now();
  gateway_->Stop();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
  EXPECT_EQ(stalled.Read(), "");
  EXPECT_TRUE(stalled.Closed());
  silent.Read();
  EXPECT_TRUE(silent.Closed());
  EXPECT_THROW(BareSocket(gateway_->port()), std::runtime_error);
  gateway_->Stop();  // once more does no harm
}

TEST_F(FaultsTest, SlowAnswersProperlyInTheEnd) {
  Tell("slow ms=400\n");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(Post(Submission()).Kind(), "acknowledgement submit");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(400));
}

// ---- HTTP

TEST_F(FaultsTest, OtherStatuses) {
  Tell("status 503 body=\"Try later\"\nstatus 302 location=http://127.0.0.1:9/x\nstatus 500 xml\n");
  const Curled later = Post(Submission());
  EXPECT_EQ(later.status, 503);
  EXPECT_EQ(later.body, "Try later");
  const Curled moved = Post(Submission());
  EXPECT_EQ(moved.status, 302);
  EXPECT_THAT(moved.header, HasSubstr("Location: http://127.0.0.1:9/x\r\n"));
  EXPECT_EQ(moved.body, "");
  const Curled with_message = Post(Submission());
  EXPECT_EQ(with_message.status, 500);
  EXPECT_EQ(with_message.Kind(), "acknowledgement submit");
}

TEST_F(FaultsTest, UnauthorizedAsksForAPasswordAndThenAnswers) {
  Start({.scenario = "submission: unauthorized\nsubmission: empty\npoll: unauthorized\n", .provisional = 1});
  const Curled asked = Post(Submission());
  EXPECT_EQ(asked.status, 401);
  EXPECT_THAT(asked.header, HasSubstr("WWW-Authenticate: Basic realm="));
  const Curled answer = Post(Submission(), "/submission", "--user me:mine");
  EXPECT_EQ(answer.Kind(), "acknowledgement submit") << "the retry doesn't use up the next line";
  EXPECT_EQ(Post(Submission()).body, "");
  const std::string id = answer.Text("CorrelationID");
  EXPECT_EQ(Post(Poll(id), "/poll", "--anyauth --user me:mine").Kind(), "acknowledgement submit")
      << "a poll that was turned away doesn't count";
  EXPECT_EQ(Post(Poll(id), "/poll").Kind(), "response submit");
}

TEST_F(FaultsTest, WhatIsTurnedAwayIsNotDealtWith) {
  Tell("delete: status 500\ndelete: empty\ndelete: text \"Down: a=b\"\ndelete: other-document\n");
  const std::string id = Submitted();
  EXPECT_EQ(Post(Delete(id)).status, 500);
  EXPECT_EQ(Post(Delete(id)).body, "");
  const Curled text = Post(Delete(id));
  EXPECT_EQ(text.body, "Down: a=b");
  EXPECT_THAT(text.header, HasSubstr("Content-Type: text/plain"));
  EXPECT_THAT(Post(Delete(id)).body, StartsWith("<html>"));
  EXPECT_EQ(Post(Delete(id)).Kind(), "response delete");
}

TEST_F(FaultsTest, ADropLosesTheAnswerAlone) {
  Tell("delete: drop before\n");
  const std::string id = Submitted();
  EXPECT_EQ(Post(Delete(id)).exit, 52);
  EXPECT_EQ(Post(Delete(id)).Text("Number"), "2000");
}

// ---- bytes

TEST_F(FaultsTest, CutEndsEarlyWithAFittingLength) {
  Tell("cut bytes=100\ncut bytes=1000000\n");
  const Curled cut = Post(Submission());
  EXPECT_EQ(cut.exit, 0);
  EXPECT_EQ(cut.body.size(), 100U);
  EXPECT_EQ(LengthOf(cut.header), 100U);
  EXPECT_EQ(Post(Submission()).Kind(), "acknowledgement submit");
}

TEST_F(FaultsTest, OtherEncodings) {
  Tell("encoding utf-16\nencoding latin1\nencoding wrong\n");
  const Curled wide = Post(Submission());
  EXPECT_THAT(wide.body, StartsWith("\xFF\xFE"));
  EXPECT_EQ(wide.Kind(), "acknowledgement submit");
  const Curled narrow = Post(Submission());
  EXPECT_THAT(narrow.body, HasSubstr("encoding=\"ISO-8859-1\""));
  EXPECT_THAT(narrow.body, HasSubstr("\xE9"));
  EXPECT_EQ(narrow.Kind(), "acknowledgement submit");
  const Curled wrong = Post(Submission());
  EXPECT_THAT(wrong.body, HasSubstr("encoding=\"UTF-8\""));
  EXPECT_EQ(std::system(
                ("xmllint --noout '" + folder_.Put("wrong.xml", wrong.body) + "' 2>/dev/null").c_str()) == 0,
            false);
}

TEST_F(FaultsTest, AHugeAnswer) {
  Tell("huge mb=3\n");
  const Curled huge = Post(Submission());
  EXPECT_GT(huge.body.size(), 3U << 20);
  EXPECT_EQ(huge.Kind(), "acknowledgement submit");
}

TEST_F(FaultsTest, PackedAnswers) {
  Tell("gzip\nbad-gzip\n");
  const Curled packed = Post(Submission(), "/submission", "--compressed");
  EXPECT_THAT(packed.header, HasSubstr("Content-Encoding: gzip"));
  EXPECT_EQ(packed.Kind(), "acknowledgement submit");
  EXPECT_NE(Post(Submission(), "/submission", "--compressed").exit, 0);
  EXPECT_THAT(Post(Submission(), "/submission", "--compressed").header, Not(HasSubstr("gzip")))
      << "nothing is packed untold";
}

TEST_F(FaultsTest, TheBytesOfAFile) {
  const std::string bytes("\0<a/>\r\n\xFF", 8);
  Tell("file \"" + folder_.Put("an answer", bytes) + "\"\n");
  EXPECT_EQ(Post(Submission()).body, bytes);
}

// ---- the gateway itself

TEST_F(FaultsTest, ANewScenarioReplacesWhatIsLeft) {
  Tell("empty x5\n");
  EXPECT_EQ(Post(Submission()).body, "");
  gateway_->SetScenario("status 503\n");
  EXPECT_EQ(Post(Submission()).status, 503);
  EXPECT_EQ(Post(Submission()).Kind(), "acknowledgement submit");
  gateway_->SetScenario("empty\n");
  EXPECT_THROW(gateway_->SetScenario("nonsense\n"), std::runtime_error);
  EXPECT_EQ(Post(Submission()).body, "") << "one that isn't understood changes nothing";
}

TEST_F(FaultsTest, ExchangesAreRecorded) {
  Start({.record_folder = folder_.At("record"), .provisional = 0});
  const Curled answer = Post(Submission());
  gateway_->SetScenario("empty\n");
  Post(Poll("1"), "/poll");
  EXPECT_EQ(folder_.Get("record/0001-request.xml"), Submission());
  EXPECT_EQ(folder_.Get("record/0001-answer.xml"), answer.body);
  EXPECT_EQ(folder_.Get("record/0002-request.xml"), Poll("1"));
  EXPECT_EQ(folder_.Get("record/0002-answer.xml"), "");
  for (const auto& entry : std::filesystem::directory_iterator(folder_.At("record"))) {
    EXPECT_EQ(entry.status().permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write)
        << entry.path();
  }
}

TEST_F(FaultsTest, EachExchangeIsLogged) {
  std::vector<std::string> lines;
  Start({.scenario = "poll: error number=3000\n", .provisional = 0, .log = [&](const std::string& line) {
           lines.push_back(line);
         }});
  const std::string id = Submitted();
  Post(Poll(id), "/poll");
  Post(Poll(id), "/poll");
  Post(Delete(id), "/poll");
  Post(Delete(id), "/poll");
  gateway_->Stop();
  EXPECT_THAT(lines,
              ElementsAre("submission request -> acknowledgement " + id, "poll submit -> told: error 3000",
                          "poll submit -> response: accepted", "request delete -> deleted",
                          "request delete -> error 2000: There is no record of this CorrelationID."));
}

// What Start says to options that don't serve.
std::string Complaint(const GatewayOptions& options) {
  LocalGateway gateway(options);
  try {
    gateway.Start();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "started";
}

TEST_F(FaultsTest, StartTellsWhatDoesntServe) {
  Start();
  EXPECT_THAT(Complaint({.port = gateway_->port()}),
              MatchesRegex("Port [0-9]+ can't be listened on.*another program.*"));
  EXPECT_THAT(Complaint({.certificate = "/not/there", .key = "/not/there"}),
              HasSubstr("The certificate \"/not/there\" with the key"));
  EXPECT_EQ(Complaint({.scenario = "\nprober"}), "The scenario, line 2: \"prober\" is no action.");
  EXPECT_THAT(Complaint({.schema_folder = "/not/there"}), HasSubstr("\"/not/there\", isn't there."));
  EXPECT_THAT(Complaint({.record_folder = "/not/there"}), HasSubstr("\"/not/there\" can't be made"));
  EXPECT_EQ(LocalGateway({}).port(), 0);
}

TEST_F(FaultsTest, GatewaysDontDisturbEachOther) {
  Start();
  LocalGateway other({});
  other.Start();
  EXPECT_NE(other.port(), gateway_->port());
  Submitted();
  EXPECT_TRUE(other.exchanges().empty());
}

}  // namespace
}  // namespace zelnor::standin
