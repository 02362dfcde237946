#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/envelope/clsGTMChannelRouting.h"
#include "zelnor/envelope/clsGTMGovTalkDetails.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/envelope/clsSHA1.h"
#include "zelnor/validation/error_record.h"

#include "controller/controller_fixture.h"

namespace zelnor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using enum eRTISUBMISSIONTYPE;

TEST_F(ControllerTest, ANewControllerWritesTheDefaultsOfItsSwitches) {
  const clsRTIController rti;
  for (const char* key : {"ValidationRequired", "ValidateEnvelope", "ValidateCompany", "ValidateEmployee",
                          "ValidatePayment", "ValidateSchema", "DoInternetConnectionTest"}) {
    EXPECT_EQ(Setting(key), "True") << key;
  }
  EXPECT_EQ(Setting("ValidateEmployees"), "");
  EXPECT_EQ(Setting("SystemDebug"), "");
  EXPECT_TRUE(rti.ValidationRequired());
  EXPECT_TRUE(rti.DoInternetConnectionTest());
  EXPECT_EQ(rti.MaxErrors(), 0);
  EXPECT_EQ(rti.SubmissionMode(), RTI_SEND_MODE::Live);
  EXPECT_EQ(rti.CorrelationID(), "");
  EXPECT_TRUE(rti.LogThisSession());
  EXPECT_FALSE(rti.SubmissionSaved());
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

TEST_F(ControllerTest, ANewControllerIsAFullPaymentSubmissionAndSaysSoInTheLog) {
  clsRTIController rti;
  EXPECT_EQ(rti.SubmissionType(), IsFPS);
  EXPECT_TRUE(rti.Submission()->FPS());
  EXPECT_THAT(Lines(rti), ElementsAre("RTI Controller initialised at 05/04/2017 10:11:12"));
}

TEST_F(ControllerTest, TerminationWritesTheClosingLineAndSavesTheLog) {
  String path;
  {
    const clsRTIController rti;
    path = rti.ProcessingLog()->LogFilePath();
    host_->now = host_->now.WithTimeOf(Date::FromTime(11, 0, 0));
  }
  const XmlDocument log;
  ASSERT_TRUE(log.Load(path));
  const std::vector<XmlNode> lines = log.SelectNodes("Log/LogRecords/Timing");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1].Text(), "RTI Controller terminated at 05/04/2017 11:00:00");
  EXPECT_FALSE(log.SelectSingleNode("Log/LogRecords/TerminateLog"));
}

TEST_F(ControllerTest, SwitchesAreReadFromTheSettings) {
  Set("ValidateCompany", "False");
  Set("ValidateSchema", "0");
  Set("DoInternetConnectionTest", "no");
  const clsRTIController rti;
  EXPECT_TRUE(rti.DoEnvelopeValidation());
  EXPECT_FALSE(rti.DoCompanyValidation());
  EXPECT_FALSE(rti.DoSchemaValidation());
  EXPECT_FALSE(rti.DoInternetConnectionTest());
}

TEST_F(ControllerTest, AStoredMasterSwitchDoesNotOverrideTheStages) {
  Set("ValidationRequired", "True");
  Set("ValidatePayment", "False");
  EXPECT_FALSE(clsRTIController().DoPaymentValidation());
}

TEST_F(ControllerTest, TheEmployeeSwitchIsWrittenUnderAnotherKeyThanItIsReadFrom) {
  {
    clsRTIController rti;
    rti.DoEmployeeValidation(false);
    EXPECT_FALSE(rti.DoEmployeeValidation());
  }
  EXPECT_EQ(Setting("ValidateEmployees"), "False");
  EXPECT_EQ(Setting("ValidateEmployee"), "True");
  EXPECT_TRUE(clsRTIController().DoEmployeeValidation());
}

TEST_F(ControllerTest, EachSwitchWritesItsSetting) {
  clsRTIController rti;
  rti.DoEnvelopeValidation(false);
  rti.DoCompanyValidation(false);
  rti.DoPaymentValidation(false);
  rti.DoSchemaValidation(false);
  rti.DoInternetConnectionTest(false);
  for (const char* key : {"ValidateEnvelope", "ValidateCompany", "ValidatePayment", "ValidateSchema",
                          "DoInternetConnectionTest"}) {
    EXPECT_EQ(Setting(key), "False") << key;
  }
}

TEST_F(ControllerTest, SwitchingValidationOnSwitchesTheStagesOn) {
  clsRTIController rti;
  rti.DoCompanyValidation(false);
  rti.ValidationRequired(false);
  EXPECT_EQ(Setting("ValidationRequired"), "False");
  EXPECT_FALSE(rti.DoCompanyValidation());
  EXPECT_TRUE(rti.DoEnvelopeValidation());
  rti.ValidationRequired(true);
  EXPECT_TRUE(rti.DoCompanyValidation());
  EXPECT_EQ(Setting("ValidateCompany"), "False");  // in memory only
}

TEST_F(ControllerTest, SystemDebugIsOnForThreeTextsAlone) {
  const std::pair<const char*, Long> cases[] = {{"1", 1},    {"On", 1},  {"True", 1}, {"on", 0},
                                                {"true", 0}, {"yes", 0}, {"2", 0},    {"", 0}};
  for (const auto& [text, level] : cases) {
    Set("SystemDebug", text);
    Process().RememberedIssueResponse = 8;
    const clsRTIController rti;
    EXPECT_EQ(Process().SystemDebugLevel, level) << text;
    EXPECT_EQ(Process().RememberedIssueResponse, -1);
  }
}

TEST_F(ControllerTest, ANegativeErrorAllowanceIsStoredAsZero) {
  clsRTIController rti;
  rti.MaxErrors(-5);
  EXPECT_EQ(rti.MaxErrors(), 0);
  rti.MaxErrors(7);
  EXPECT_EQ(rti.MaxErrors(), 7);
}

TEST_F(ControllerTest, OpensItsLog) {
  clsRTIController rti;
  rti.OpenLog();
  EXPECT_THAT(host_->opened, ElementsAre(std::pair(String(), rti.ProcessingLog()->LogFilePath())));
}

TEST_F(ControllerTest, ADroppedLogDoesNotComeBack) {
  clsRTIController rti;
  const Ref<clsLog> log = rti.ProcessingLog();
  rti.LogThisSession(false);
  EXPECT_TRUE(log->DontSaveLog());
  EXPECT_FALSE(rti.ProcessingLog());
  rti.OpenLog();
  EXPECT_THAT(host_->opened, testing::IsEmpty());
  rti.LogCompanyName("X");
  rti.AddExternalLogEntry("nothing");
  rti.AddLogPeriodDescr(PERIOD_TYPE::ptWeek, 3);
  rti.LogThisSession(true);
  EXPECT_TRUE(rti.LogThisSession());
  EXPECT_FALSE(rti.ProcessingLog());
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

TEST_F(ControllerTest, LogMembersReachTheLog) {
  clsRTIController rti;
  rti.LogSubmissionYear(2026);
  rti.LogCompanyName("Harbour Lights Ltd");
  rti.LogOperatorName("Mo");
  rti.AddLogPeriodDescr(PERIOD_TYPE::ptMonth, 3);
  rti.AddLogPeriodDescr(PERIOD_TYPE::ptWeek, 12);
  rti.AddLogMonthDescr("June");
  rti.AddExternalLogEntry("from the host");
  rti.SubmissionMode(RTI_SEND_MODE::DevTest);
  rti.SubmissionType(IsEPS);
  const XmlNode log = rti.ProcessingLog()->GetAsXML();
  EXPECT_EQ(log.Attribute("SubmissionYear"), "2026");
  EXPECT_EQ(log.Attribute("Company"), "Harbour Lights Ltd");
  EXPECT_EQ(log.Attribute("Operator"), "Mo");
  EXPECT_EQ(log.Attribute("SubmissionMode"), "4");
  EXPECT_EQ(log.Attribute("SubmissionModeDescr"), "DevTest");
  EXPECT_EQ(log.Attribute("SubmissionType"), "Employer Payment Summary");
  EXPECT_EQ(log.FindChild("SubmissionPeriods").Text(), "Month 3, Week 12, June");
  EXPECT_EQ(Lines(rti).back(), "from the host");
  rti.SetLogPeriodDescr("all");
  EXPECT_EQ(log.FindChild("SubmissionPeriods").Text(), "all");
}

TEST_F(ControllerTest, DescribesEachClass) {
  struct Row {
    eRTISUBMISSIONTYPE type;
    const char* quick;
    const char* hmrc;
    const char* abbreviation;
  };
  const Row rows[] = {{IsEAS, "Employer Alignment Submission", "HMRC-PAYE-RTI-EAS", "EAS"},
                      {IsFPS, "Full Payment Submission", "HMRC-PAYE-RTI-FPS", "FPS"},
                      {IsEPS, "Employer Payment Summary", "HMRC-PAYE-RTI-EPS", "EPS"},
                      {IsNVR, "NINO Verification Request", "HMRC-PAYE-RTI-NVR", "NVR"},
                      {IsErrorResponse, "HMRC Gateway Error Response", "HMRC-PAYE-RTI-UNK", "ERR"},
                      {IsEYU, "Earlier Year Update", "HMRC-PAYE-RTI-EYU", "EYU"},
                      {IsPollDoc, "Unknown Submission Type", "HMRC-PAYE-RTI-UNK", "UNK"},
                      {eRTISUBMISSIONTYPE{128}, "Unknown Submission Type", "HMRC-PAYE-RTI-UNK", "UNK"}};
  clsRTIController rti;
  for (const Row& row : rows) {
    EXPECT_EQ(rti.GetQuickClassDescr(row.type), row.quick);
    EXPECT_EQ(rti.GetHMRCClass(row.type), row.hmrc);
    EXPECT_EQ(rti.GetAbbrClassDescr(row.type), row.abbreviation);
  }
  EXPECT_EQ(rti.GetAbbrClassDescr(), "FPS");
  rti.SubmissionType(IsNVR);
  EXPECT_EQ(rti.GetQuickClassDescr(), "NINO Verification Request");
}

TEST_F(ControllerTest, ReadsTextAndDocuments) {
  clsRTIController rti;
  rti.ReadXML(Sample());
  ASSERT_EQ(rti.SubmissionType(), IsFPS);
  const Long employees = rti.Submission()->FPS()->EmployeeCount();
  EXPECT_GT(employees, 5);
  const XmlDocument document;
  ASSERT_TRUE(document.LoadXML(Sample()));
  clsRTIController other;
  other.ReadXMLDoc(document);
  EXPECT_EQ(other.Submission()->FPS()->EmployeeCount(), employees);
}

TEST_F(ControllerTest, TellsNothingOfATextThatCannotBeRead) {
  clsRTIController rti;
  rti.ReadXML("<GovTalkMessage");
  rti.ReadXML("<Other/>");
  EXPECT_EQ(rti.SubmissionType(), IsFPS);
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

TEST_F(ControllerTest, AMissingDocumentIsReported) {
  clsRTIController rti;
  rti.ReadXMLDoc(nullptr);
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(host_->messages[0].text,
            "Error in ZELNOR.dll::clsRTIController: Sub ReadXMLDoc: Error 91 - Object variable or With block "
            "variable "
            "not set");
  EXPECT_EQ(host_->messages[0].title, "ZELNOR");
}

TEST_F(ControllerTest, ModeAndDateReachTheEnvelope) {
  clsRTIController rti;
  rti.ReadXML(Sample());
  const Date day = Date::FromParts(2025, 9, 30);
  rti.SystemDate(day);
  EXPECT_EQ(rti.SystemDate(), day);
  EXPECT_EQ(Process().SystemDate, day);
  rti.SubmissionMode(RTI_SEND_MODE::DevTest);
  const Ref<clsGovTalkMessage> message = rti.GovTalkMessage();
  EXPECT_EQ(message->Header_MessageDetails()->Mode(), RTI_SEND_MODE::DevTest);
  EXPECT_EQ(message->Header_MessageDetails()->GatewayTimestamp(), day);
  const auto routing = message->GTMGovTalkDetails()->ChannelRouting();
  ASSERT_GT(routing->Count(), 0);
  EXPECT_EQ(routing->Item(1)->Mode(), RTI_SEND_MODE::DevTest);
  EXPECT_EQ(routing->Item(1)->Timestamp(), day);
}

TEST_F(ControllerTest, AModeWithoutADateLeavesTheRoutingsTheirTime) {
  clsRTIController rti;
  rti.ReadXML(Sample());
  const auto routing = rti.GovTalkMessage()->GTMGovTalkDetails()->ChannelRouting()->Item(1);
  const Date time = routing->Timestamp();
  ASSERT_FALSE(time.IsZero());
  rti.SubmissionMode(RTI_SEND_MODE::Test);
  EXPECT_EQ(routing->Mode(), RTI_SEND_MODE::Test);
  EXPECT_EQ(routing->Timestamp(), time);
  rti.SystemDate({});
  EXPECT_TRUE(routing->Timestamp().IsZero());
}

TEST_F(ControllerTest, CompressionMembersAreTheDocuments) {
  clsRTIController rti;
  EXPECT_EQ(rti.AutoCompressionLimit(), 5000);
  rti.AutoCompressionLimit(77);
  EXPECT_EQ(rti.Submission()->AutoCompressionLimit(), 77);
  rti.UseCompression(true);
  rti.OverrideCompression(true);
  EXPECT_TRUE(rti.Submission()->UseCompression());
  EXPECT_TRUE(rti.OverrideCompression());
  rti.Submission()->AutoCompressionLimit(40000);
  EXPECT_EQ(rti.AutoCompressionLimit(), 0);
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_THAT(host_->messages[0].text, HasSubstr("Get AutoCompressionLimit: Error 6 - Overflow"));
}

TEST_F(ControllerTest, CompressesFromItsDocumentsLimitOn) {
  clsRTIController rti;
  rti.ReadXML(Sample());
  const auto part = [&] {
    rti.GovTalkMessage()->ForceRebuild();
    return rti.GovTalkMessage()->Document().GetElementsByTagName("CompressedPart").size();
  };
  const Long count = rti.Submission()->FPS()->EmployeeCount();
  rti.AutoCompressionLimit(static_cast<Integer>(count + 1));
  EXPECT_EQ(part(), 0U);
  rti.AutoCompressionLimit(static_cast<Integer>(count));
  EXPECT_EQ(part(), 1U);
  rti.OverrideCompression(true);
  EXPECT_EQ(part(), 0U);
}

TEST_F(ControllerTest, AMarkHoldsForACompressedDocumentThatIsWrittenAgainLater) {
  clsRTIController rti;
  rti.ReadXML(Sample());
  rti.UseCompression(true);
  rti.Submission()->Header()->DocIRMark()->value("");
  rti.GovTalkMessage()->ForceRebuild();
  clsSHA1 before;
  before.MarkSubmission(*rti.GovTalkMessage());
  host_->now = Date::FromParts(2017, 5, 6);
  rti.GovTalkMessage()->ForceRebuild();
  clsSHA1 after;
  after.MarkSubmission(*rti.GovTalkMessage());
  EXPECT_EQ(rti.GovTalkMessage()->Document().GetElementsByTagName("CompressedPart").size(), 1U);
  EXPECT_EQ(after.Base64Mark(), before.Base64Mark());
}

TEST_F(ControllerTest, EmployeesThatCanNotBePackedGoPlainAndTheLogSaysSo) {
  clsRTIController rti;
  std::vector<String> raised;
  rti.events.CompressionError.connect([&](const String& text) { raised.push_back(text); });
  rti.ReadXML(Sample());
  rti.Submission()->FPS()->Employees()->Item(1)->EmployeeDetails()->NINO(String(70'000'000, 'a'));
  rti.UseCompression(true);
  rti.GovTalkMessage()->ForceRebuild();
  const XmlDocument document = rti.GovTalkMessage()->Document();
  EXPECT_TRUE(document.GetElementsByTagName("CompressedPart").empty());
  EXPECT_EQ(document.GetElementsByTagName("Employee").size(),
            static_cast<std::size_t>(rti.Submission()->FPS()->EmployeeCount()));
  const String text = "Error occurred Zipping Data - Dynazip error number = 18";
  EXPECT_THAT(raised, testing::Each(text));
  EXPECT_FALSE(raised.empty());
  const std::vector<String> lines = Lines(rti);
  EXPECT_THAT(lines, testing::Contains("An error occurred while attempting to compress: " + text));
  EXPECT_THAT(lines, testing::Contains("The submission will be issued decompressed."));
}

TEST_F(ControllerTest, ACompressionErrorIsLoggedAndRaised) {
  clsRTIController rti;
  std::vector<String> raised;
  rti.events.CompressionError.connect([&](const String& text) { raised.push_back(text); });
  rti.Submission()->FPS()->events.CompressionError("no room");
  EXPECT_THAT(raised, ElementsAre("no room"));
  const std::vector<String> lines = Lines(rti);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[1], "An error occurred while attempting to compress: no room");
  EXPECT_EQ(lines[2], "The submission will be issued decompressed.");
}

TEST_F(ControllerTest, AReplacedDocumentOrEnvelopeTakesTheValidationSwitch) {
  clsRTIController rti;
  rti.ValidationRequired(false);
  const auto submission = std::make_shared<clsSubmission>();
  submission->FPS()->UseValidation(true);
  rti.Submission(submission);
  EXPECT_EQ(rti.Submission(), submission);
  EXPECT_FALSE(submission->UseValidation());
  const auto message = std::make_shared<clsGovTalkMessage>();
  message->UseValidation(true);
  rti.GovTalkMessage(message);
  EXPECT_EQ(rti.GovTalkMessage(), message);
  EXPECT_TRUE(message->Validated());
}

TEST_F(ControllerTest, EmployeeErrorsCannotBeMixedWithOthers) {
  clsRTIController rti;
  EXPECT_FALSE(rti.ErrorCollection(3));
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_THAT(
      host_->messages[0].text,
      HasSubstr("Get ErrorCollection: Error 5 - Cannot mix Employee and other error types - these use "
                "different class structures!"));
  ASSERT_TRUE(rti.ErrorCollection(1));
  EXPECT_EQ(rti.ErrorCollection(6)->Count(), 0);
  EXPECT_EQ(rti.ErrorCount(-1), 0);
}

TEST_F(ControllerTest, WithoutAnEnvelopeMembersReportAndGoOn) {
  clsRTIController rti;
  rti.GovTalkMessage(nullptr);
  host_->messages.clear();
  EXPECT_FALSE(rti.Validate());
  EXPECT_EQ(rti.SaveSubmission(folder_.At("x.xml")), SUBMISSION_RESULT::UnknownError);
  EXPECT_FALSE(rti.Submission());
  rti.UseCompression(true);
  rti.SubmissionMode(RTI_SEND_MODE::Test);
  ASSERT_FALSE(host_->messages.empty());
  for (const ShownMessage& message : host_->messages) EXPECT_THAT(message.text, HasSubstr("Error 91 - "));
}

TEST_F(ControllerTest, WritingACompressionSwitchMakesNoDocument) {
  clsRTIController rti;
  rti.GovTalkMessage(std::make_shared<clsGovTalkMessage>());
  rti.UseCompression(true);
  rti.OverrideCompression(true);
  EXPECT_FALSE(rti.GovTalkMessage()->HasSubmission());
}

TEST_F(ControllerTest, ErrorsAsXMLHaveTheirRoot) {
  clsRTIController rti;
  EXPECT_EQ(rti.Errors().Xml(), "<Errors></Errors>");
}

TEST_F(ControllerTest, AnEnvelopeSchemaThatCannotBeReadIsReported) {
  for (const char* content : {"", "no xml", "<a/>"}) {
    folder_.Put("envelope.xsd", content);
    if (String(content).empty()) std::filesystem::remove(folder_.At("envelope.xsd"));
    clsRTIController rti;
    alsAppSettings().SetSetting("GovTalkMessage_XSD", folder_.At("envelope.xsd"));
    host_->messages.clear();
    EXPECT_THAT(rti.GovTalkMessage()->XML(), testing::StartsWith("<GovTalkMessage><EnvelopeVersion>"));
    ASSERT_FALSE(host_->messages.empty());
    EXPECT_EQ(
        host_->messages[0].text,
        "Error in ZELNOR.dll::clsGovTalkMessage: Property Namespace: Error 91 - Object variable or With "
        "block variable not set: the envelope has no namespace, since the schema " +
            folder_.At("envelope.xsd") + " of the setting GovTalkMessage_XSD can't be read.");
  }
}

TEST_F(ControllerTest, OneWarningAndNoNamespaceWithoutSchemas) {
  std::filesystem::remove_all(folder_.At("xsd"));
  clsRTIController rti;
  rti.ReadXML(Sample());
  rti.Submission()->Header()->DocIRMark()->value("");
  rti.GovTalkMessage()->ForceRebuild();
  rti.GovTalkMessage()->ForceRebuild();
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(
      host_->messages[0].text,
      "Could not locate schema to retrieve Namespaces from!\r\n\r\n"
      "Any submissions may not pass at the Government Gateway without the required namespaces.\r\n\r\n" +
          folder_.Path() + "\\xsd\\envelope-v2-0-HMRC.xsd");
  EXPECT_EQ(host_->messages[0].style, kExclamationIcon);
  EXPECT_EQ(host_->messages[0].title, "HMRC Online Services");
  EXPECT_EQ(rti.GovTalkMessage()->XML().find("xmlns"), String::npos);
}

}  // namespace
}  // namespace zelnor::test
