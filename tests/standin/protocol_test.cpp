// The protocol as a client sees it: what each message is answered with, and what is refused with which
// number.

#include "standin/gateway_fixture.h"
#include <gmock/gmock.h>

namespace zelnor::standin {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;

class ProtocolTest : public GatewayTest {
 protected:
  // The number of the gateway's own error; empty for any other answer.
  static std::string ErrorOf(const Curled& answer) {
    if (answer.Kind() != "error submit" || answer.Text("RaisedBy") != "Gateway") return {};
    return answer.Text("Number");
  }

  // Polls until there is a final answer.
  Curled Final(const std::string& id) const {
    Curled answer = Post(Poll(id), "/poll");
    for (int more = 0; more < 5 && answer.Text("Qualifier") == "acknowledgement"; ++more) {
      answer = Post(Poll(id), "/poll");
    }
    return answer;
  }
};

TEST_F(ProtocolTest, ASubmissionIsAcknowledged) {
  Start({.poll_interval = 7, .schema_folder = Schemas()});
  const Curled answer = Post(With(Submission(), "<Function>submit</Function>",
                                  "<Function>submit</Function><TransactionID>4711</TransactionID>"));
  EXPECT_EQ(answer.exit, 0);
  EXPECT_EQ(answer.status, 200);
  EXPECT_THAT(answer.header, HasSubstr("Content-Type: text/xml"));
  EXPECT_EQ(answer.Kind(), "acknowledgement submit");
  EXPECT_EQ(answer.Text("Class"), "HMRC-PAYE-RTI-FPS");
  EXPECT_THAT(answer.Text("CorrelationID"), MatchesRegex("[0-9A-F]{32}"));
  EXPECT_EQ(answer.Text("TransactionID"), "4711");
  EXPECT_THAT(answer.body, HasSubstr("<ResponseEndPoint PollInterval=\"7\">" + gateway_->url() +
                                     "/poll</ResponseEndPoint>"));
  EXPECT_THAT(answer.Text("GatewayTimestamp"), MatchesRegex("20..-..-..T..:..:.."));
  EXPECT_THAT(answer.body, HasSubstr("<SenderDetails/>"));
  EXPECT_THAT(answer.body, HasSubstr("<Keys/>"));
  EXPECT_THAT(answer.body, HasSubstr("<Body></Body>"));
  EXPECT_EQ(SchemaFaults(answer.body), "");
}

TEST_F(ProtocolTest, EachSubmissionHasAnIdOfItsOwn) {
  Start();
  EXPECT_NE(Submitted(), Submitted());
}

TEST_F(ProtocolTest, APollIsAnsweredProvisionallyFirst) {
  Start({.provisional = 2, .schema_folder = Schemas()});
  const std::string id = Submitted();
  for (int poll = 0; poll < 2; ++poll) {
    const Curled answer = Post(Poll(id), "/poll");
    EXPECT_EQ(answer.Kind(), "acknowledgement submit");
    EXPECT_EQ(answer.Text("CorrelationID"), id);
    EXPECT_EQ(answer.Text("TransactionID"), "7");
  }
  EXPECT_EQ(Post(Poll(id), "/poll").Kind(), "response submit");
}

TEST_F(ProtocolTest, TheResponseHoldsTheReceipt) {
  Start({.provisional = 0, .schema_folder = Schemas()});
  const std::string id = Submitted();
  const Curled answer = Post(Poll(id), "/poll");
  EXPECT_EQ(answer.Kind(), "response submit");
  EXPECT_EQ(answer.Text("CorrelationID"), id);
  EXPECT_EQ(answer.Count("GovTalkErrors"), 0U);
  const XmlDocument document;
  ASSERT_TRUE(document.LoadBytes(answer.body));
  const std::vector<XmlNode> receipt = document.SelectNodes(
      "/*/*[local-name()='Body']/*[local-name()='SuccessResponse']/*[local-name()='IRmarkReceipt']"
      "//*[local-name()='DigestValue']");
  ASSERT_EQ(receipt.size(), 1U);
  const XmlDocument sent;
  ASSERT_TRUE(sent.LoadBytes(Submission()));
  EXPECT_EQ(receipt[0].Text(), sent.SelectSingleNode("//*[local-name()='IRmark']").Text());
  EXPECT_EQ(document.SelectSingleNode("//*[local-name()='SuccessResponse']").NamespaceURI(),
            "http://www.inlandrevenue.gov.uk/SuccessResponse");
  EXPECT_EQ(
      document.SelectNodes("//*[local-name()='SuccessResponse']/*[local-name()='Message'][@code]").size(),
      1U);
  EXPECT_EQ(answer.Count("AcceptedTime"), 1U);
  EXPECT_EQ(SchemaFaults(answer.body), "");
}

TEST_F(ProtocolTest, AResponseCanBePolledUntilItIsDeleted) {
  Start({.provisional = 0});
  const std::string id = Submitted();
  EXPECT_EQ(Post(Poll(id), "/poll").Kind(), "response submit");
  EXPECT_EQ(Post(Poll(id), "/poll").Kind(), "response submit");
  const Curled deleted = Post(Delete(id));
  EXPECT_EQ(deleted.Kind(), "response delete");
  EXPECT_EQ(deleted.Text("CorrelationID"), id);
  EXPECT_THAT(deleted.body, HasSubstr("<Body></Body>"));
  EXPECT_EQ(SchemaFaults(deleted.body), "");
  EXPECT_EQ(ErrorOf(Post(Poll(id), "/poll")), "2000");
  EXPECT_EQ(ErrorOf(Post(Delete(id))), "2000");
}

TEST_F(ProtocolTest, ADeleteBeforeTheResponseFreesTheSubmission) {
  Start({.provisional = 5});
  const std::string id = Submitted();
  EXPECT_EQ(Post(Delete(id), "/poll").Kind(), "response delete");
  EXPECT_EQ(ErrorOf(Post(Poll(id), "/poll")), "2000");
}

TEST_F(ProtocolTest, SubmissionsAreKeptApart) {
  Start({.provisional = 0});
  const std::string first = Submitted();
  const std::string second = Submitted();
  Post(Delete(first));
  EXPECT_EQ(Post(Poll(second), "/poll").Kind(), "response submit");
}

TEST_F(ProtocolTest, AClassWithAndWithoutTilIsOne) {
  Start({.provisional = 0});
  const std::string id = Submitted();
  EXPECT_EQ(Post(Poll(id, "HMRC-PAYE-RTI-FPS-TIL"), "/poll").Kind(), "response submit");
  const Curled other =
      Post(With(Submission(), "<Class>HMRC-PAYE-RTI-FPS</Class>", "<Class>HMRC-PAYE-RTI-FPS-TIL</Class>"));
  EXPECT_EQ(other.Kind(), "acknowledgement submit");
  EXPECT_EQ(Post(Poll(other.Text("CorrelationID")), "/poll").Kind(), "response submit");
}

TEST_F(ProtocolTest, APollOrDeleteOfAnotherClassIsAnError) {
  Start({.provisional = 0});
  const std::string id = Submitted();
  EXPECT_EQ(ErrorOf(Post(Poll(id, "HMRC-PAYE-RTI-EPS"), "/poll")), "2000");
  EXPECT_EQ(ErrorOf(Post(Delete(id, "HMRC-PAYE-RTI-EPS"))), "2000");
  EXPECT_EQ(Post(Poll(id), "/poll").Kind(), "response submit");
}

// ---- what is refused

TEST_F(ProtocolTest, ARefusalIsAnErrorInFullForm) {
  Start({.schema_folder = Schemas()});
  const Curled answer = Post("this is no message");
  EXPECT_EQ(answer.status, 200);
  EXPECT_EQ(answer.Kind(), "error submit");
  EXPECT_EQ(answer.Text("Class"), "UndefinedClass");
  EXPECT_EQ(answer.Text("RaisedBy"), "Gateway");
  EXPECT_EQ(answer.Text("Number"), "1001");
  EXPECT_EQ(answer.Text("Type"), "fatal");
  EXPECT_NE(answer.Text("Text"), "");
  EXPECT_THAT(answer.body, HasSubstr("<Body></Body>"));
  EXPECT_EQ(SchemaFaults(answer.body), "");
}

TEST_F(ProtocolTest, RefusesWhatIsNoMessage) {
  Start({.schema_folder = Schemas()});
  EXPECT_EQ(ErrorOf(Post(Submission().substr(0, 2000))), "1001");
  EXPECT_EQ(ErrorOf(Post("<GovTalkMessage/>")), "1001");
  EXPECT_EQ(ErrorOf(Post("<html xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"/>")), "1001");
  EXPECT_EQ(ErrorOf(Post("")), "2002");
}

TEST_F(ProtocolTest, RefusesAnEnvelopeAgainstItsSchema) {
  Start({.schema_folder = Schemas()});
  const std::string wrong =
      With(Submission(), "<Transformation>XML</Transformation>", "<Transformation>PDF</Transformation>");
  EXPECT_EQ(ErrorOf(Post(wrong)), "1001");
  gateway_.reset();
  Start();
  EXPECT_EQ(Post(wrong).Kind(), "acknowledgement submit")
      << "without schemas nothing is checked against them";
}

TEST_F(ProtocolTest, RefusesAnUnknownClass) {
  Start();
  const Curled answer = Post(With(Submission(), "HMRC-PAYE-RTI-FPS", "HMRC-PAYE-RTI-XYZ"));
  EXPECT_EQ(ErrorOf(answer), "1001");
  EXPECT_EQ(answer.Text("Class"), "UndefinedClass");
}

TEST_F(ProtocolTest, RefusesWhatIsNeitherSubmissionNorPollNorDelete) {
  Start();
  EXPECT_EQ(ErrorOf(Post(With(Submission(), ">request<", ">acknowledgement<"))), "1001");
  EXPECT_EQ(ErrorOf(Post(With(Submission(), ">submit<", ">list<"))), "1001");
}

TEST_F(ProtocolTest, ASubmissionMayHaveAnEmptyIdButNoOther) {
  Start({.schema_folder = Schemas()});
  const auto with_id = [](const std::string& element) {
    return With(Submission(), "<Function>submit</Function>", "<Function>submit</Function>" + element);
  };
  EXPECT_EQ(Post(with_id("<CorrelationID></CorrelationID>")).Kind(), "acknowledgement submit");
  EXPECT_EQ(ErrorOf(Post(with_id("<CorrelationID>0123456789ABCDEF0123456789ABCDEF</CorrelationID>"))),
            "1020");
}

TEST_F(ProtocolTest, APollOrDeleteNeedsItsId) {
  Start();
  EXPECT_EQ(ErrorOf(Post(Delete(""))), "1035");
  EXPECT_EQ(ErrorOf(Post(Poll(""), "/poll")), "2000");
  EXPECT_EQ(ErrorOf(Post(Poll("0123456789ABCDEF0123456789ABCDEF"), "/poll")), "2000");
}

TEST_F(ProtocolTest, TheAuthenticationMustBeConsistent) {
  Start();
  const std::string value = "<Value>not-a-real-password</Value>";
  const std::string signature = "<Signature xmlns=\"http://www.w3.org/2000/09/xmldsig#\"/>";
  EXPECT_EQ(ErrorOf(Post(With(Submission(), value, "<Value></Value>"))), "1040");
  EXPECT_EQ(ErrorOf(Post(With(Submission(), value, signature))), "1040");
  EXPECT_EQ(ErrorOf(Post(With(Submission(), ">clear<", ">W3Csigned<"))), "1040");
  EXPECT_EQ(ErrorOf(Post(With(With(Submission(), ">clear<", ">W3Csigned<"), value, signature))), "1002");
}

TEST_F(ProtocolTest, TheCredentialsAreThoseOfTheStart) {
  Start({.user = "SAMPLE000001", .password = "not-a-real-password", .provisional = 0});
  const Curled answer = Post(Submission());
  EXPECT_EQ(answer.Kind(), "acknowledgement submit");
  EXPECT_EQ(ErrorOf(Post(With(Submission(), "not-a-real-password", "Not-a-real-password"))), "1046");
  EXPECT_EQ(ErrorOf(Post(With(Submission(), "SAMPLE000001", "SAMPLE000002"))), "1046");
  const std::string id = answer.Text("CorrelationID");
  EXPECT_EQ(Post(Poll(id), "/poll").Kind(), "response submit") << "a poll needs no credentials";
  EXPECT_EQ(Post(Delete(id)).Kind(), "response delete") << "a delete needs no credentials";
}

TEST_F(ProtocolTest, ASubmissionNeedsABody) {
  Start();
  const std::size_t body = Submission().find("<Body>");
  ASSERT_NE(body, std::string::npos);
  EXPECT_EQ(ErrorOf(Post(Submission().substr(0, body) + "<Body></Body></GovTalkMessage>")), "1042");
}

TEST_F(ProtocolTest, AMessageCanBeTooLarge) {
  Start({.largest_message = static_cast<std::int64_t>(Submission().size())});
  EXPECT_EQ(Post(Submission()).Kind(), "acknowledgement submit");
  EXPECT_EQ(ErrorOf(Post(Submission() + " ")), "2001");
}

// ---- what the department finds

TEST_F(ProtocolTest, AWrongMarkIsRejected) {
  Start({.provisional = 0, .schema_folder = Schemas()});
  const Curled acknowledged = Post(With(Submission(), ">Imogen<", ">Imogene<"));
  EXPECT_EQ(acknowledged.Kind(), "acknowledgement submit");
  const Curled answer = Post(Poll(acknowledged.Text("CorrelationID")), "/poll");
  EXPECT_EQ(answer.Kind(), "error submit");
  const XmlDocument document;
  ASSERT_TRUE(document.LoadBytes(answer.body));
  const auto text = [&](const std::string& from) {
    const XmlNode node = document.SelectSingleNode(from);
    return node ? node.Text() : std::string("none");
  };
  const std::string outer = "//*[local-name()='GovTalkErrors']/*[local-name()='Error']/*[local-name()=";
  EXPECT_EQ(text(outer + "'RaisedBy']"), "Department");
  EXPECT_EQ(text(outer + "'Number']"), "3001");
  EXPECT_EQ(text(outer + "'Type']"), "business");
  const std::string inner =
      "/*/*[local-name()='Body']/*[local-name()='ErrorResponse']/*[local-name()='Error']/*[local-name()=";
  EXPECT_EQ(text(inner + "'Number']"), "2021");
  EXPECT_EQ(text(inner + "'Location']"),
            "/hd:GovTalkMessage[1]/hd:Body[1]/fps:IRenvelope[1]/fps:IRheader[1]/fps:IRmark[1]");
  EXPECT_EQ(answer.Count("Application"), 1U);
  EXPECT_EQ(document.SelectSingleNode("//*[local-name()='ErrorResponse']").NamespaceURI(),
            "http://www.govtalk.gov.uk/CM/errorresponse");
  EXPECT_EQ(SchemaFaults(answer.body), "");
}

// The numbers of the department's errors for a message.
class DepartmentTest : public ProtocolTest {
 protected:
  std::vector<std::string> NumbersFor(const std::string& message) const {
    return TextsFor(message, "Number");
  }

  std::vector<std::string> TextsFor(const std::string& message, const std::string& name) const {
    const Curled answer = Final(Post(message).Text("CorrelationID"));
    const XmlDocument document;
    std::vector<std::string> texts;
    if (!document.LoadBytes(answer.body)) return {"no answer"};
    for (const XmlNode& node : document.SelectNodes(
             "//*[local-name()='ErrorResponse']/*[local-name()='Error']/*[local-name()='" + name + "']")) {
      texts.push_back(node.Text());
    }
    return texts;
  }

  static std::string WithoutMark() {
    const std::size_t begin = Submission().find("<IRmark");
    const std::size_t end = Submission().find("</IRmark>") + std::string("</IRmark>").size();
    return Submission().substr(0, begin) + Submission().substr(end);
  }
};

TEST_F(DepartmentTest, AGoodDocumentHasNoErrors) {
  Start({.schema_folder = Schemas()});
  EXPECT_THAT(NumbersFor(Submission()), ElementsAre());
}

TEST_F(DepartmentTest, AMissingMarkIsRejected) {
  Start({.schema_folder = Schemas()});
  EXPECT_THAT(NumbersFor(WithoutMark()), ElementsAre("2022"));
}

TEST_F(DepartmentTest, TheEnvelopeDoesntCountForTheMark) {
  Start();
  EXPECT_THAT(NumbersFor(With(Submission(), "SAMPLE000001", "SAMPLE000002")), ElementsAre());
}

TEST_F(DepartmentTest, WhiteSpaceInTheBodyCountsForTheMark) {
  Start();
  EXPECT_THAT(NumbersFor(With(Submission(), "<IRheader>", "<IRheader>\n")), ElementsAre("2021"));
}

/// The submission with its employees compressed.
std::string Compressed() {
  const test::TemporaryFolder folder;
  test::OutputOf("'" ZELNOR_PROGRAM "' --home '" + folder.At("home") +
                 "' save --compress --no-validation '" ZELNOR_SOURCE_DIR "/samples/FPS-25-26.xml' '" +
                 folder.At("FPS.xml") + "'");
  return folder.Get("FPS.xml");
}

TEST_F(DepartmentTest, CompressedEmployeesAreUnpackedAndChecked) {
  Start({.schema_folder = Schemas()});
  const std::string packed = Compressed();
  ASSERT_NE(packed.find("<CompressedPart Type=\"zip\">"), std::string::npos);
  EXPECT_THAT(NumbersFor(packed), ElementsAre());
}

TEST_F(DepartmentTest, AnEmployeeAgainstTheSchemaIsFoundInACompressedPart) {
  Start({.schema_folder = Schemas()});
  const test::TemporaryFolder folder;
  folder.Put("employee.xml", "<Employee><EmployeeDetails></EmployeeDetails></Employee>");
  const std::string part = test::OutputOf("gzip -c '" + folder.At("employee.xml") + "' | base64 -w 0");
  std::string packed = Compressed();
  const std::size_t at = packed.find('>', packed.find("<CompressedPart")) + 1;
  packed.replace(at, packed.find("</CompressedPart>") - at, part);
  EXPECT_THAT(NumbersFor(packed), ElementsAre("2021", "3001"));
  EXPECT_THAT(TextsFor(packed, "Location")[1], testing::HasSubstr("fps:Employee[1]"));
}

TEST_F(DepartmentTest, ACompressedPartThatIsNoArchiveIsRejected) {
  Start({.schema_folder = Schemas()});
  std::string packed = Compressed();
  const std::size_t at = packed.find('>', packed.find("<CompressedPart")) + 1;
  const std::size_t end = packed.find("</CompressedPart>");
  EXPECT_THAT(NumbersFor(std::string(packed).replace(at, end - at, "not Base64!")),
              ElementsAre("2021", "3001"));
  EXPECT_THAT(NumbersFor(std::string(packed).replace(at, end - at, "bm8gYXJjaGl2ZQ==")),
              ElementsAre("2021", "3001"));
}

TEST_F(DepartmentTest, ADocumentAgainstItsSchemaIsRejectedWithThePlace) {
  Start({.schema_folder = Schemas()});
  std::string wrong = Submission();
  std::size_t nino = wrong.find("<NINO>");
  nino = wrong.find("<NINO>", nino + 1);  // the second employee with one
  ASSERT_NE(nino, std::string::npos);
  wrong.replace(nino, std::string("<NINO>AA").size(), "<NINO>##");
  EXPECT_THAT(NumbersFor(wrong), ElementsAre("2021", "3001"));
  const std::vector<std::string> places = TextsFor(wrong, "Location");
  ASSERT_EQ(places.size(), 2U);
  EXPECT_THAT(
      places[1],
      MatchesRegex("/hd:GovTalkMessage\\[1\\]/hd:Body\\[1\\]/fps:IRenvelope\\[1\\]/"
                   "fps:FullPaymentSubmission\\[1\\]/fps:Employee\\[[2-9]\\]/fps:EmployeeDetails\\[1\\]/"
                   "fps:NINO\\[1\\]"));
}

// ---- HTTP

TEST_F(ProtocolTest, OtherAddressesAreNotFound) {
  Start();
  const Curled answer = Post(Submission(), "/elsewhere");
  EXPECT_EQ(answer.status, 404);
  EXPECT_THAT(answer.body, HasSubstr(gateway_->url() + "/submission"));
  ASSERT_EQ(gateway_->exchanges().size(), 1U);
  EXPECT_EQ(gateway_->exchanges()[0].path, "/elsewhere");
}

TEST_F(ProtocolTest, MessagesGoByPostAlone) {
  Start();
  const Curled answer = Post("", "/submission", "--get");
  EXPECT_EQ(answer.status, 405);
  EXPECT_THAT(answer.header, HasSubstr("Allow: POST"));
}

TEST_F(ProtocolTest, TheContentTypeDoesntMatter) {
  Start();
  for (const char* type :
       {"application/x-www-form-urlencoded", "multipart/form-data; boundary=x", "text/xml"}) {
    EXPECT_EQ(Post(Submission(), "/submission", std::string("--header 'Content-Type: ") + type + "'").Kind(),
              "acknowledgement submit")
        << type;
  }
}

TEST_F(ProtocolTest, ExchangesAreKept) {
  Start({.provisional = 0});
  const Curled answer = Post(Submission(), "/submission", "--user me:mine");
  Post(Poll(answer.Text("CorrelationID")), "/poll");
  Post(Delete(answer.Text("CorrelationID")), "/poll");
  const std::vector<Exchange> exchanges = gateway_->exchanges();
  ASSERT_EQ(exchanges.size(), 3U);
  EXPECT_EQ(exchanges[0].path, "/submission");
  EXPECT_EQ(exchanges[0].content_type, "text/xml");
  EXPECT_EQ(exchanges[0].authorization, "Basic bWU6bWluZQ==");
  EXPECT_EQ(exchanges[0].request, Submission());
  EXPECT_EQ(exchanges[0].answer, answer.body);
  EXPECT_EQ(exchanges[0].what, "submission request -> acknowledgement " + answer.Text("CorrelationID"));
  EXPECT_EQ(exchanges[1].what, "poll submit -> response: accepted");
  EXPECT_EQ(exchanges[2].what, "request delete -> deleted");
  EXPECT_EQ(exchanges[2].path, "/poll");
}

TEST_F(ProtocolTest, SpeaksTls) {
  test::OutputOf(
      "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=127.0.0.1 -addext "
      "subjectAltName=IP:127.0.0.1 -keyout '" +
      folder_.At("key.pem") + "' -out '" + folder_.At("certificate.pem") + "' 2>/dev/null");
  Start({.certificate = folder_.At("certificate.pem"), .key = folder_.At("key.pem"), .provisional = 0});
  EXPECT_THAT(gateway_->url(), testing::StartsWith("https://127.0.0.1:"));
  const std::string trusting = "--cacert '" + folder_.At("certificate.pem") + "'";
  const Curled answer = Post(Submission(), "/submission", trusting);
  EXPECT_EQ(answer.Kind(), "acknowledgement submit");
  EXPECT_EQ(answer.Text("ResponseEndPoint"), gateway_->url() + "/poll");
  EXPECT_EQ(Post(Poll(answer.Text("CorrelationID")), "/poll", trusting).Kind(), "response submit");
  EXPECT_EQ(Post(Submission()).exit, 60) << "who doesn't know the certificate doesn't trust it";
  gateway_->SetScenario("drop body\n");
  EXPECT_NE(Post(Submission(), "/submission", trusting).exit, 0);
}

TEST_F(ProtocolTest, LeadsTheClientWhereItHasComeFrom) {
  Start();
  const auto end_point = [&](const std::string& host) {
    return Post(Submission(), "/submission", "--header 'Host: " + host + "'").Text("ResponseEndPoint");
  };
  const std::string port = std::to_string(gateway_->port());
  EXPECT_EQ(end_point("localhost:" + port), "http://localhost:" + port + "/poll");
  EXPECT_EQ(end_point("[::1]:" + port), "http://[::1]:" + port + "/poll");
  EXPECT_EQ(end_point("gateway-1.test"), "http://gateway-1.test/poll");
  for (const char* odd : {"a/b", "user@host", "a b", "<x>", "::", "host:port", "host:99999", "[x", "h\xE9"}) {
    EXPECT_EQ(end_point(odd), gateway_->url() + "/poll") << odd;
  }
  EXPECT_EQ(end_point(std::string(300, 'a')), gateway_->url() + "/poll");
}

TEST_F(ProtocolTest, ListensOnLoopbackAlone) {
  Start();
  // /proc/net/tcp names each listening socket's address in hexadecimal: 0100007F is 127.0.0.1.
  std::array<char, 8> port{};
  std::snprintf(port.data(), port.size(), "%04X", static_cast<unsigned>(gateway_->port()));
  const std::string listening = test::OutputOf("cat /proc/net/tcp /proc/net/tcp6");
  EXPECT_THAT(listening, HasSubstr(std::string(" 0100007F:") + port.data() + " 00000000:0000 0A"));
  EXPECT_THAT(listening, testing::Not(HasSubstr(std::string(" 00000000:") + port.data() + " ")));
}

}  // namespace
}  // namespace zelnor::standin
