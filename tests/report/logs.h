#pragma once

/// @file
/// Logs of whole sessions, made with the log's own members as a controller makes them.

#include "zelnor/common/clsLog.h"
#include "zelnor/platform/xml.h"

#include <string>

#include "support/recording_host.h"
#include "support/records.h"

namespace zelnor::test {

inline constexpr const char* kPassword = "Tr0ub4dor&amp;3 horse";  // as it stands in XML
inline constexpr const char* kPasswordText = "Tr0ub4dor&3 horse";
inline constexpr const char* kBase64Mark = "d2Q8Lk9peG/Nldf6ej7ppUuC6Oc=";
inline constexpr const char* kBase32Mark = "O5SDYLSPNF4G7TMV275HUPXJUVFYF2HH";
inline constexpr const char* kCorrelationId = "0A1B2C3D4E5F60718293A4B5C6D7E8F9";

/// An envelope with this in its header's MessageDetails, behind its header, and in its body.
inline String Envelope(const String& details, const String& credentials, const String& more,
                       const String& body) {
  return "<GovTalkMessage "
         "xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"><EnvelopeVersion>2.0</EnvelopeVersion>"
         "<Header><MessageDetails><Class>HMRC-PAYE-RTI-FPS</Class>" +
         details + "</MessageDetails><SenderDetails>" + credentials +
         "</SenderDetails></Header><GovTalkDetails><Keys/>" + more + "</GovTalkDetails><Body>" + body +
         "</Body></GovTalkMessage>";
}

inline String Credentials() {
  return "<IDAuthentication><SenderID>ISV635</SenderID><Authentication><Method>clear</"
         "Method><Role>principal</Role>"
         "<Value>" +
         String(kPassword) + "</Value></Authentication></IDAuthentication>";
}

inline String Details(const String& qualifier, const String& function, const String& id = kCorrelationId,
                      const String& end_point = {}) {
  return "<Qualifier>" + qualifier + "</Qualifier><Function>" + function + "</Function><CorrelationID>" + id +
         "</CorrelationID>" + end_point;
}

/// A Full Payment Submission of three employees, the second of two forenames.
inline String Request() {
  const auto employee = [](const String& forenames, const String& surname) {
    return "<Employee><EmployeeDetails><NINO>AB123456C</NINO><Name>" + forenames + "<Sur>" + surname +
           "</Sur></Name></EmployeeDetails></Employee>";
  };
  return Envelope(
      Details("request", "submit", ""), Credentials(), "",
      "<IRenvelope xmlns=\"http://www.govtalk.gov.uk/taxation/PAYE/RTI/FullPaymentSubmission/25-26/1\">"
      "<IRheader><IRmark Type=\"generic\">" +
          String(kBase64Mark) +
          "</IRmark></IRheader><FullPaymentSubmission><EmpRefs><OfficeNo>123</OfficeNo><PayeRef>AB456</"
          "PayeRef></EmpRefs>"
          "<RelatedTaxYear>16-17</RelatedTaxYear>" +
          employee("<Fore>Ada</Fore>", "Quince") +
          employee("<Fore>Bo</Fore><Fore>Lee</Fore>", "O&apos;Hare &lt;b&gt;") +
          employee("<Fore>Cy</Fore>", "Marsh") + "</FullPaymentSubmission></IRenvelope>");
}

inline String Acknowledgement() {
  return Envelope(
      Details("acknowledgement", "submit", kCorrelationId,
              "<ResponseEndPoint "
              "PollInterval=\"10\">https://transaction-engine.tax.service.gov.uk/poll</ResponseEndPoint>"),
      "", "", "");
}

inline String Poll() { return Envelope(Details("poll", "submit"), Credentials(), "", ""); }

inline String Accepted(const String& mark = kBase64Mark) {
  return Envelope(
      Details("response", "submit"), "", "",
      "<SuccessResponse xmlns=\"http://www.inlandrevenue.gov.uk/SuccessResponse\"><IRmarkReceipt><Signature "
      "xmlns=\"http://www.w3.org/2000/09/xmldsig#\"><SignedInfo><Reference><DigestValue>" +
          mark +
          "</DigestValue></Reference></SignedInfo></Signature></IRmarkReceipt><Message code=\"0000\">Thank "
          "you "
          "for your submission.</Message><AcceptedTime>2017-04-05T10:11:30</AcceptedTime></SuccessResponse>");
}

/// HMRC's refusal, for so many errors in its three employees and one in the employer's part.
inline String Refused(int count) {
  String errors;
  for (int i = 1; i <= count; ++i) {
    const String at = i == 1 ? "/hd:GovTalkMessage[1]/hd:Body[1]/fps:IRenvelope[1]/"
                               "fps:FullPaymentSubmission[1]/fps:EmpRefs[1]/"
                               "fps:AORef[1]"
                             : "/hd:GovTalkMessage[1]/hd:Body[1]/fps:IRenvelope[1]/"
                               "fps:FullPaymentSubmission[1]/fps:Employee[" +
                                   std::to_string(i % 3 + 1) + "]/fps:Employment[1]/fps:Payment[1]/fps:" +
                                   (i % 2 == 0 ? "TaxDeductedOrRefunded[1]" : "PmtDate[1]");
    errors += "<Error><RaisedBy>ChRIS</RaisedBy><Number>" + std::to_string(i % 2 == 0 ? 7801 : 7900) +
              "</Number><Type>business</Type><Text>The entry number " + std::to_string(i) +
              " is not one that is allowed here.</Text><Location>" + at + "</Location></Error>";
  }
  return Envelope(
      Details("error", "submit"), "",
      "<GovTalkErrors><Error><RaisedBy>Department</RaisedBy><Number>3001</Number><Type>business</"
      "Type><Text>The "
      "submission of this document has failed due to departmental specific business logic in the Body "
      "tag.</Text></Error></GovTalkErrors>",
      "<ErrorResponse xmlns=\"http://www.govtalk.gov.uk/CM/errorresponse\"><Application><MessageCount>" +
          std::to_string(count) + "</MessageCount></Application>" + errors + "</ErrorResponse>");
}

/// The gateway's own refusal, by number.
inline String GatewayRefusal(const String& number, const String& text) {
  return Envelope(Details("error", "submit", ""), "",
                  "<GovTalkErrors><Error><RaisedBy>Gateway</RaisedBy><Number>" + number +
                      "</Number><Type>fatal</Type><Text>" + text + "</Text></Error></GovTalkErrors>",
                  "");
}

/// A validator's record.
inline String Error(const String& type, const String& employee, const String& code, const String& field,
                    const String& value, const String& text, const String& status, const String& inner = {}) {
  const bool of_employee = !employee.empty();
  return "<Error><ErrorType>" + type + "</ErrorType><Title>Invalid</Title><Code>" + code +
         "</Code><Description>" + text + "</Description><FieldName>" + field + "</FieldName><FieldValue>" +
         value + "</FieldValue><Employee>" + (of_employee ? "12_" + employee.substr(0, 2) : "N/A") +
         "</Employee><CompanyId>" + (of_employee ? "1" : "N/A") + "</CompanyId><EmployeeId>" +
         (of_employee ? "12" : "N/A") + "</EmployeeId><EmployeeName>" + (of_employee ? employee : "N/A") +
         "</EmployeeName><EmployeeCode>" + (of_employee ? employee.substr(0, 2) : "N/A") +
         "</EmployeeCode><Source>x</Source><Status>" + status + "</Status>" +
         (inner.empty() ? "" : "<InnerExceptions>" + inner + "</InnerExceptions>") + "</Error>";
}

/// Makes logs as sessions leave them.
class Session {
 public:
  explicit Session(RecordingHost& host) : host_(host) {
    log.SetSubmissionType(eRTISUBMISSIONTYPE::IsFPS);
    log.SetSubmissionMode(RTI_SEND_MODE::Live);
    log.SetSubmissionYear(2017);
    log.AddSubmissionPeriod(PERIOD_TYPE::ptMonth, 1);
    log.AddSubmissionPeriod(PERIOD_TYPE::ptWeek, 4);
    log.SetCompany("Harbour Lights & Sons <Ltd>");
    log.SetOperator("M. Reed");
    Say("RTI Controller initialised at 05/04/2017 10:11:12");
  }

  Session& Say(const String& line, int seconds = 0) {
    host_.Sleep(std::int64_t{seconds} * 1000);
    log.AddTimingRecord(line);
    return *this;
  }
  Session& Checked() { return Say("Beginning validation...").Say("Submission validated successfully.", 1); }
  Session& Marked() {
    log.SetIRMark(kBase64Mark, kBase32Mark);
    return Say("IRmark generated at 05/04/2017 10:11:13");
  }
  Session& Made(const String& xml) {
    log.AddSubmission(Root(xml));
    return *this;
  }
  Session& Out(const String& xml,
               const String& url = "https://transaction-engine.tax.service.gov.uk/submission") {
    log.AddSendDoc(Root(xml), SEND_DIRECTION::Outgoing, url);
    return Say("Message issued to Government Gateway at 05/04/2017 10:11:13");
  }
  Session& In(const String& xml, int seconds) {
    host_.Sleep(std::int64_t{seconds} * 1000);
    log.AddSendDoc(Root(xml), SEND_DIRECTION::Incoming);
    log.AddLatestPollResponse(Root(xml));
    return Say("Response received from Government Gateway at 05/04/2017 10:11:15");
  }

  /// Sent and acknowledged.
  Session& Sent() {
    Checked().Marked().Made(Request()).Out(Request()).In(Acknowledgement(), 2);
    Say("Acknowledgement received from Government Gateway");
    Say("Document submission completed successfully at 05/04/2017 10:11:15");
    Say(String("Correlation ID: ") + kCorrelationId);
    log.SetCorrelationID(kCorrelationId);
    return *this;
  }
  Session& Polled(const String& answer) {
    return Say("Waiting to poll... 10 seconds.")
        .Say("Polling...", 11)
        .Out(Poll(), "https://transaction-engine.tax.service.gov.uk/poll")
        .In(answer, 1);
  }
  Session& WasAccepted(const String& mark = kBase64Mark) {
    Sent().Polled(Accepted(mark)).Say("Receipt from Gov Gateway: submission accepted successfully.");
    Say(String("Closing conversation with Gov Gateway for submission ") + kCorrelationId + ".");
    Out(Envelope(Details("request", "delete"), Credentials(), "", ""),
        "https://transaction-engine.tax.service.gov.uk/poll");
    return Say("Submission result: Successful").Say("Submission send completed in 15,012 milliseconds");
  }
  Session& WasRefused(int errors) {
    return Sent()
        .Polled(Refused(errors))
        .Say("Submission result: Send Failed")
        .Say("Total process completed in 15,012 milliseconds");
  }
  Session& BrokeRules() {
    Say("Beginning validation...").Say("Employee Validation failed. 4 errors found.", 1);
    log.AddCompanyValidationErrors(
        Root("<E>" +
             Error("Company", "", "E3.1.1", "Accounts Office Reference", "123PX0012345X",
                   "Accounts Office Reference has the wrong form.", "Critical") +
             "</E>"));
    log.AddEmployeeValidationErrors(
        Root("<E>" +
             Error("Employee", "Quince, A", "E4.5.1", "Postcode", "ZZ9 9Z", "Postcode is short.", "Warning") +
             Error("Employee", "Quince, A", "E4.1.1", "Surname", "Qu1nce",
                   "Surname holds characters that are not allowed.", "Critical",
                   Error("Employee", "Quince, A", "E4.1.2", "Surname", "Qu1nce", "Surname is too long.",
                         "Critical")) +
             Error("Employee", "Marsh, C", "E4.1.1", "Surname", "", "Surname must be given.", "Critical") +
             "</E>"));
    return Made(Request()).Say("Validation failed. Exiting Send...");
  }
  Session& FoundNoConnection() {
    Checked();
    Say("Cannot send document. Maximum attempts reached", 61);
    In(Envelope(Details("error", "submit", ""), "",
                "<GovTalkErrors><Error><RaisedBy>ZELNOR.clsSOAPInterface.SendXML</RaisedBy><Number>-9999</"
                "Number><Type>"
                "INTERNAL</Type><Text>Unable to communicate with the Government Gateway: Null "
                "response</Text></Error>"
                "</GovTalkErrors>",
                ""),
       0);
    return Made(Request()).Say("Total process completed in 61,000 milliseconds");
  }

  /// The log's document as another program reads it from the file.
  XmlDocument Document() {
    const XmlDocument document;
    EXPECT_TRUE(document.LoadXML(log.GetAsXML().Xml())) << document.ParseError().reason;
    return document;
  }

  clsLog log;

 private:
  RecordingHost& host_;
};

}  // namespace zelnor::test
