// What the log holds.

#include "zelnor/common/clsLog.h"

#include "log_fixture.h"

using namespace zelnor;
using namespace zelnor::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class clsLogTest : public LogTest {
 protected:
  /// An error record's element.
  static String Error(const String& type, const String& code) {
    return "<Error><ErrorCode>" + code + "</ErrorCode><ErrorType>" + type + "</ErrorType></Error>";
  }
  static XmlNode Errors(const String& inside) { return Root("<Errors>" + inside + "</Errors>"); }
};

}  // namespace

TEST_F(clsLogTest, BeginsWithItsAttributesAndEmptyElements) {
  clsLog log;
  EXPECT_EQ(log.GetAsXML().OwnerDocument().Xml(),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
            "<Log Version=\"15.0\" SubmissionType=\"Unspecified\" Company=\"Unspecified\" "
            "Operator=\"Unspecified\"><SubmissionPeriods></SubmissionPeriods><CorrelationID></CorrelationID>"
            "<IRmark><Base64IRMark></Base64IRMark><Base32IRMark></Base32IRMark></IRmark>"
            "<LogRecords></LogRecords><ValidationErrors></ValidationErrors><Submission></Submission>"
            "<SendLog></SendLog><LatestHMRCResponse></LatestHMRCResponse>"
            "<LastReportRunDate></LastReportRunDate><ReportSortOrder></ReportSortOrder></Log>");
  EXPECT_TRUE(log.IsSavedToDate());
  EXPECT_FALSE(log.DontSaveLog());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(clsLogTest, NamesEachKindOfDocumentInFull) {
  clsLog log;
  const auto text = [&](Long type) {
    log.SetSubmissionType(static_cast<eRTISUBMISSIONTYPE>(type));
    return RootAttribute(log, "SubmissionType");
  };
  EXPECT_EQ(text(1), "Employer Alignment Submission");
  EXPECT_EQ(text(2), "Full Payment Submission");
  EXPECT_EQ(text(4), "Employer Payment Summary");
  EXPECT_EQ(text(8), "NINO Verification Request");
  EXPECT_EQ(text(16), "Polling Document");
  EXPECT_EQ(text(64), "Earlier Year Update");
  for (const Long other : {0, 32, 3, 128}) EXPECT_EQ(text(other), "Unspecified") << other;
}

TEST_F(clsLogTest, WritesTheModeAsNumberAndText) {
  clsLog log;
  EXPECT_EQ(RootAttribute(log, "SubmissionMode"), "(absent)");
  EXPECT_EQ(RootAttribute(log, "SubmissionModeDescr"), "(absent)");
  log.SetSubmissionMode(RTI_SEND_MODE::DevFileTest);
  EXPECT_EQ(RootAttribute(log, "SubmissionMode"), "6");
  EXPECT_EQ(RootAttribute(log, "SubmissionModeDescr"), "DevFileTest");
  log.SetSubmissionMode(static_cast<RTI_SEND_MODE>(9));
  EXPECT_EQ(RootAttribute(log, "SubmissionMode"), "9");
  EXPECT_EQ(RootAttribute(log, "SubmissionModeDescr"), "N/A");
}

TEST_F(clsLogTest, WritesYearCompanyAndOperator) {
  clsLog log;
  EXPECT_EQ(RootAttribute(log, "SubmissionYear"), "(absent)");
  log.SetSubmissionYear(2017);
  log.SetCompany("Harbour & Lights \"Ltd\"");
  log.SetOperator("pat");
  EXPECT_EQ(RootAttribute(log, "SubmissionYear"), "2017");
  EXPECT_EQ(RootAttribute(log, "Company"), "Harbour & Lights \"Ltd\"");
  EXPECT_EQ(RootAttribute(log, "Operator"), "pat");
}

TEST_F(clsLogTest, JoinsPeriodsWithCommas) {
  clsLog log;
  const XmlNode periods = log.GetAsXML().FindChild("SubmissionPeriods");
  log.AddSubmissionPeriod(PERIOD_TYPE::ptMonth, 3);
  EXPECT_EQ(periods.Text(), "Month 3");
  log.AddSubmissionPeriod(PERIOD_TYPE::ptWeek, 12);
  EXPECT_EQ(periods.Text(), "Month 3, Week 12");
  log.AddSubmissionMonth("July");
  EXPECT_EQ(periods.Text(), "Month 3, Week 12, July");
  log.SetSubmissionPeriod("All year");
  EXPECT_EQ(periods.Text(), "All year");
  log.SetSubmissionPeriod("");
  log.AddSubmissionMonth("May");
  EXPECT_EQ(periods.Text(), "May");
}

TEST_F(clsLogTest, AnyPeriodTypeButTheMonthIsAWeek) {
  clsLog log;
  log.AddSubmissionPeriod(static_cast<PERIOD_TYPE>(7), 1);
  EXPECT_EQ(log.GetAsXML().FindChild("SubmissionPeriods").Text(), "Week 1");
}

TEST_F(clsLogTest, AttributesAndPeriodsLeaveItSavedToDate) {
  clsLog log;
  log.SetSubmissionMode(RTI_SEND_MODE::Test);
  log.SetSubmissionType(eRTISUBMISSIONTYPE::IsFPS);
  log.SetSubmissionYear(2017);
  log.SetSubmissionPeriod("x");
  log.AddSubmissionPeriod(PERIOD_TYPE::ptWeek, 1);
  log.AddSubmissionMonth("May");
  log.SetCompany("a");
  log.SetOperator("b");
  EXPECT_TRUE(log.IsSavedToDate());
}

TEST_F(clsLogTest, EveryOtherChangeClearsTheFlag) {
  const XmlNode node = Root("<a/>");
  const std::vector<std::function<void(clsLog&)>> changes = {
      [&](clsLog& log) { log.SetCorrelationID("x"); },
      [&](clsLog& log) { log.SetIRMark("x", "y"); },
      [&](clsLog& log) { log.AddTimingRecord("x"); },
      [&](clsLog& log) { log.AddSubmission(node); },
      [&](clsLog& log) { log.AddSubmission(nullptr); },
      [&](clsLog& log) { log.AddLatestPollResponse(node); },
      [&](clsLog& log) { log.AddSendDoc(node, SEND_DIRECTION::Incoming); },
      [&](clsLog& log) { log.AddPaymentForPeriodValidationErrors(node); },
      [&](clsLog& log) { log.AddEmployeeValidationErrors(node); },
      [&](clsLog& log) { log.AddCompanyValidationErrors(node); },
      [&](clsLog& log) { log.AddFileValidationErrors(node); },
      [&](clsLog& log) { log.AddSchemaValidationError(node); },
  };
  for (std::size_t i = 0; i < changes.size(); ++i) {
    clsLog log;
    changes[i](log);
    EXPECT_FALSE(log.IsSavedToDate()) << "change " << i;
    log.DontSaveLog(true);
  }
}

TEST_F(clsLogTest, StampsCorrelationIdAndMarks) {
  clsLog log;
  EXPECT_TRUE(log.SetCorrelationID("ABC123"));
  EXPECT_EQ(Xml(log, "CorrelationID"),
            "<CorrelationID TimeStamp=\"05/04/2017 10:11:12\">ABC123</CorrelationID>");
  EXPECT_TRUE(log.SetIRMark("b64=", "B32"));
  EXPECT_EQ(Xml(log, "IRmark"),
            "<IRmark><Base64IRMark TimeStamp=\"05/04/2017 10:11:12\">b64=</Base64IRMark>"
            "<Base32IRMark TimeStamp=\"05/04/2017 10:11:12\">B32</Base32IRMark></IRmark>");
  Later(1);
  EXPECT_TRUE(log.SetCorrelationID(""));
  EXPECT_EQ(Xml(log, "CorrelationID"), "<CorrelationID TimeStamp=\"05/04/2017 10:11:13\"></CorrelationID>");
}

TEST_F(clsLogTest, RecordsMessagesInOrderWithTheirTimes) {
  clsLog log;
  EXPECT_TRUE(log.AddTimingRecord("one < two"));
  Later(48);
  EXPECT_TRUE(log.AddTimingRecord(""));
  EXPECT_EQ(Xml(log, "LogRecords"),
            "<LogRecords><Timing TimeStamp=\"2017-04-05T10:11:12\">one &lt; two</Timing>"
            "<Timing TimeStamp=\"2017-04-05T10:12:00\"></Timing></LogRecords>");
}

TEST_F(clsLogTest, KeepsTheErrorsOfAllValidators) {
  clsLog log;
  EXPECT_TRUE(log.AddPaymentForPeriodValidationErrors(Errors(Error("PaymentForPeriod", "1"))));
  EXPECT_TRUE(log.AddEmployeeValidationErrors(Errors(Error("Employee", "2") + Error("Employee", "3"))));
  EXPECT_TRUE(log.AddCompanyValidationErrors(Errors(Error("Company", "4"))));
  EXPECT_TRUE(log.AddFileValidationErrors(Errors(Error("File", "5"))));
  EXPECT_TRUE(log.AddSchemaValidationError(Errors(Error("Schema", "6"))));
  EXPECT_EQ(Xml(log, "ValidationErrors"), "<ValidationErrors>" + Error("PaymentForPeriod", "1") +
                                              Error("Employee", "2") + Error("Employee", "3") +
                                              Error("Company", "4") + Error("File", "5") +
                                              Error("Schema", "6") + "</ValidationErrors>");
}

TEST_F(clsLogTest, EachRunReplacesTheErrorsOfItsOwnFamily) {
  const std::vector<std::pair<String, bool (clsLog::*)(const XmlNode&)>> families = {
      {"PaymentForPeriod", &clsLog::AddPaymentForPeriodValidationErrors},
      {"Employee", &clsLog::AddEmployeeValidationErrors},
      {"Company", &clsLog::AddCompanyValidationErrors},
      {"File", &clsLog::AddFileValidationErrors},
      {"Schema", &clsLog::AddSchemaValidationError},
  };
  for (const auto& [own, add] : families) {
    clsLog log;
    String others;
    String all;
    for (const auto& [type, ignored] : families) {
      all += Error(type, "old") + Error(type, "old too");
      if (type != own) others += Error(type, "old") + Error(type, "old too");
    }
    const XmlNode errors = log.GetAsXML().FindChild("ValidationErrors");
    for (const XmlNode& error : Errors(all).ChildNodes()) {
      errors.AppendChild(errors.OwnerDocument().ImportNode(error, true));
    }
    EXPECT_TRUE((log.*add)(Errors(Error(own, "new"))));
    EXPECT_EQ(Xml(log, "ValidationErrors"),
              "<ValidationErrors>" + others + Error(own, "new") + "</ValidationErrors>");
    log.DontSaveLog(true);
  }
}

TEST_F(clsLogTest, ARunWithoutErrorsClearsTheEarlierOnes) {
  clsLog log;
  log.AddCompanyValidationErrors(Errors(Error("Company", "1")));
  EXPECT_TRUE(log.AddCompanyValidationErrors(Root("<Errors/>")));
  EXPECT_EQ(Xml(log, "ValidationErrors"), "<ValidationErrors></ValidationErrors>");
}

TEST_F(clsLogTest, WithoutANodeNoErrorIsTouched) {
  clsLog log;
  log.AddCompanyValidationErrors(Errors(Error("Company", "1")));
  log.Save();
  const String before = Xml(log, "ValidationErrors");
  EXPECT_FALSE(log.AddCompanyValidationErrors(nullptr));
  EXPECT_FALSE(log.AddSchemaValidationError(nullptr));
  EXPECT_EQ(Xml(log, "ValidationErrors"), before);
  EXPECT_TRUE(log.IsSavedToDate());
}

TEST_F(clsLogTest, OnlyErrorsOfExactlyTheTypeAreReplaced) {
  clsLog log;
  const String kept = Error("company", "case") + "<Error><Inner>" + Error("Company", "inner") +
                      "</Inner></Error><Other><ErrorType>Company</ErrorType></Other><Error></Error>";
  log.AddCompanyValidationErrors(Errors(kept + Error("Company", "own")));
  log.AddCompanyValidationErrors(Root("<Errors/>"));
  EXPECT_EQ(Xml(log, "ValidationErrors"), "<ValidationErrors>" + kept + "</ValidationErrors>");
}

TEST_F(clsLogTest, ErrorsAreCopiedAndTheValidatorKeepsItsOwn) {
  clsLog log;
  const XmlNode errors = Errors(Error("File", "1"));
  log.AddFileValidationErrors(errors);
  EXPECT_EQ(errors.Xml(), "<Errors>" + Error("File", "1") + "</Errors>");
}

TEST_F(clsLogTest, ItsOwnErrorsMayBeAddedToIt) {
  clsLog log;
  log.AddFileValidationErrors(Errors(Error("File", "1") + Error("File", "2")));
  log.AddCompanyValidationErrors(log.GetAsXML().FindChild("ValidationErrors"));
  EXPECT_EQ(Xml(log, "ValidationErrors"), "<ValidationErrors>" + Error("File", "1") + Error("File", "2") +
                                              Error("File", "1") + Error("File", "2") +
                                              "</ValidationErrors>");
}

TEST_F(clsLogTest, ManyErrorsAreReplacedInOnePass) {
  clsLog log;
  String many;
  for (int i = 0; i < 50000; ++i) many += Error("Employee", std::to_string(i));
  const XmlNode errors = Errors(many);
  log.AddEmployeeValidationErrors(errors);
  log.AddEmployeeValidationErrors(errors);
  EXPECT_EQ(Xml(log, "ValidationErrors").size(),
            many.size() + String("<ValidationErrors></ValidationErrors>").size());
}

TEST_F(clsLogTest, AddSubmissionReplacesTheCopyOfTheEnvelope) {
  clsLog log;
  const XmlNode envelope = Root("<GovTalkMessage xmlns=\"urn:g\"><Body>1</Body></GovTalkMessage>");
  EXPECT_TRUE(log.AddSubmission(envelope));
  EXPECT_TRUE(log.AddSubmission(envelope));
  EXPECT_EQ(Xml(log, "Submission"), "<Submission>" + envelope.Xml() + "</Submission>");
  envelope.FirstChild().Text("2");
  EXPECT_EQ(log.GetSubmission().Text(), "1");
}

TEST_F(clsLogTest, AddSubmissionWithoutANodeEmptiesIt) {
  clsLog log;
  log.AddSubmission(Root("<a/>"));
  EXPECT_FALSE(log.AddSubmission(nullptr));
  EXPECT_EQ(Xml(log, "Submission"), "<Submission></Submission>");
  EXPECT_FALSE(log.GetSubmission());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(clsLogTest, AddSubmissionLeavesText) {
  clsLog log;
  log.Submission().Text("note");
  log.AddSubmission(Root("<a/>"));
  EXPECT_EQ(Xml(log, "Submission"), "<Submission>note<a></a></Submission>");
}

TEST_F(clsLogTest, GetSubmissionGivesACopyOfTheFirst) {
  clsLog log;
  log.AddSubmission(Root("<a>1</a>"));
  log.Submission().AppendElement("b");
  const XmlNode copy = log.GetSubmission();
  EXPECT_EQ(copy.Xml(), "<a>1</a>");
  copy.Text("2");
  EXPECT_EQ(Xml(log, "Submission"), "<Submission><a>1</a><b></b></Submission>");
}

TEST_F(clsLogTest, SettingSubmissionReplacesTheReferenceOnly) {
  clsLog log;
  log.AddSubmission(Root("<a/>"));
  const XmlNode other = Root("<Elsewhere/>");
  log.Submission(other);
  EXPECT_EQ(log.Submission(), other);
  EXPECT_TRUE(log.AddSubmission(Root("<b/>")));
  EXPECT_EQ(other.Xml(), "<Elsewhere><b></b></Elsewhere>");
  EXPECT_EQ(Xml(log, "Submission"), "<Submission><a></a></Submission>");
}

TEST_F(clsLogTest, LogsDocumentsThatWentOutAndCameIn) {
  clsLog log;
  EXPECT_TRUE(
      log.AddSendDoc(Root("<Sent><a/></Sent>"), SEND_DIRECTION::Outgoing, "http://localhost/submission?a&b"));
  Later(60);
  EXPECT_TRUE(log.AddSendDoc(Root("<Answer/>"), SEND_DIRECTION::Incoming, "http://localhost/"));
  EXPECT_EQ(
      log.SendLog().Xml(),
      "<SendLog><ToGateway Url=\"http://localhost/submission?a&amp;b\" TimeStamp=\"05/04/2017 10:11:12\">"
      "<Sent><a></a></Sent></ToGateway><FromGateway TimeStamp=\"05/04/2017 10:12:12\"><Answer></Answer>"
      "</FromGateway></SendLog>");
}

TEST_F(clsLogTest, NoDocumentIsNotLogged) {
  clsLog log;
  EXPECT_FALSE(log.AddSendDoc(nullptr, SEND_DIRECTION::Outgoing, "http://localhost/"));
  EXPECT_EQ(log.SendLog().Xml(), "<SendLog></SendLog>");
  EXPECT_TRUE(log.IsSavedToDate());
}

TEST_F(clsLogTest, KeepsTheLatestResponseAlone) {
  clsLog log;
  EXPECT_FALSE(log.LatestPollResponse());
  EXPECT_TRUE(log.AddLatestPollResponse(Root("<First/>")));
  EXPECT_TRUE(log.AddLatestPollResponse(Root("<Second>1</Second>")));
  EXPECT_EQ(Xml(log, "LatestHMRCResponse"), "<LatestHMRCResponse><Second>1</Second></LatestHMRCResponse>");
  const XmlNode copy = log.LatestPollResponse();
  EXPECT_EQ(copy.Xml(), "<Second>1</Second>");
  copy.Text("2");
  EXPECT_EQ(log.LatestPollResponse().Text(), "1");
  EXPECT_FALSE(log.AddLatestPollResponse(nullptr));
  EXPECT_FALSE(log.LatestPollResponse());
}

TEST_F(clsLogTest, SettingTheLatestResponseReplacesTheReferenceOnly) {
  clsLog log;
  log.AddLatestPollResponse(Root("<a/>"));
  log.LatestPollResponse(Root("<Holder><b/></Holder>"));
  EXPECT_EQ(log.LatestPollResponse().Xml(), "<b></b>");
  EXPECT_EQ(Xml(log, "LatestHMRCResponse"), "<LatestHMRCResponse><a></a></LatestHMRCResponse>");
}

TEST_F(clsLogTest, GetAsXMLGivesTheRootItself) {
  clsLog log;
  log.SetCompany("a");
  EXPECT_EQ(log.GetAsXML().NodeName(), "Log");
  EXPECT_EQ(log.GetAsXML(), log.GetAsXML());
}

TEST_F(clsLogTest, GetAsXMLAppendsACopyToANode) {
  clsLog log;
  const XmlNode report = Root("<Report><Title/></Report>");
  const XmlNode root = log.GetAsXML(report);
  EXPECT_EQ(report.Xml(), "<Report><Title></Title>" + root.Xml() + "</Report>");
  log.SetCompany("later");
  EXPECT_EQ(report.LastChild().Attribute("Company"), "Unspecified");
  EXPECT_EQ(RootAttribute(log, "Company"), "later");
}

TEST_F(clsLogTest, ANodeThatTakesNoChildIsReported) {
  clsLog log;
  const XmlNode text = Root("<a>text</a>").FirstChild();
  EXPECT_EQ(log.GetAsXML(text).NodeName(), "Log");
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith("Error in ZELNOR.dll::clsLog: Get GetAsXML: Error 5 - ")));
}

TEST_F(clsLogTest, AChangeThroughAReferenceToNothingIsReported) {
  clsLog log;
  log.LatestPollResponse(nullptr);
  EXPECT_FALSE(log.AddLatestPollResponse(Root("<a/>")));
  EXPECT_THAT(Boxes(), testing::Contains(StartsWith(
                           "Error in ZELNOR.dll::clsLog: Function AddLatestPollResponse: Error 91 - ")));
}
