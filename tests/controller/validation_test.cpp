#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsPaymentForPeriod.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/validation/error_record.h"

#include "controller/controller_fixture.h"

namespace zelnor::test {
namespace {

using testing::ElementsAre;

struct StatusLine {
  String stage;
  String detail;
  Long percent;
};

// What a run of Validate shows and logs.
struct Outcome {
  bool result = false;
  std::vector<StatusLine> status;
  std::vector<String> lines;
};

class ValidationTest : public ControllerTest {
 protected:
  ValidationTest() { TodayOfTheSample(); }

  // A document read without a mark has no place for one until it is asked for.
  static void ReadSample(clsRTIController& rti) {
    rti.ReadXML(Sample());
    rti.Submission()->Header()->DocIRMark();
  }

  static Outcome Validate(clsRTIController& rti) {
    Outcome run;
    rti.events.ControllerStatus.connect([&](const String& stage, const String& detail, Long percent) {
      run.status.push_back({stage, detail, percent});
    });
    run.result = rti.Validate();
    run.lines = Lines(rti);
    run.lines.erase(run.lines.begin());  // the line of the construction
    return run;
  }

  static std::vector<std::pair<String, Long>> Details(const Outcome& run) {
    std::vector<std::pair<String, Long>> details;
    for (const StatusLine& line : run.status) details.emplace_back(line.detail, line.percent);
    return details;
  }

  // Reads the sample and spoils the envelope once, two of the employer's references and four employees.
  static void ValidateSpoiledSample(clsRTIController& rti) {
    ReadSample(rti);
    rti.GovTalkMessage()->GTMEnvelopeVersion("");
    const Ref<clsSectionFPS> fps = rti.Submission()->FPS();
    fps->Employer_References()->AORef("none");
    fps->Employer_References()->OfficeNo("none");
    for (Long i = 1; i <= 4; ++i) fps->Employees()->Item(i)->EmployeeDetails()->NINO("AA104217E");
    EXPECT_FALSE(rti.Validate());
  }

  // Leaves an error of the schema and one of the payments behind. They stand until their stages run again.
  static void ValidateBadSchemaAndPayment(clsRTIController& rti) {
    rti.ReadXML(Sample());
    EXPECT_FALSE(rti.Validate());  // for want of a mark
    rti.ReadXML(ReadFile(ZELNOR_SOURCE_DIR "/samples/EPS-25-26.xml"));
    rti.Submission()->EPS()->PaymentForPeriod()->TaxMonth("13");
    EXPECT_FALSE(rti.Validate());
  }

  // The names of the fields that failed.
  static std::vector<String> Fields(const CollectionRef<ErrorRecord>& errors) {
    std::vector<String> fields;
    for (const Ref<ErrorRecord>& error : *errors) fields.push_back(error->FieldName());
    return fields;
  }
};

TEST_F(ValidationTest, RunsTheStagesInOrderAndTimesThem) {
  clsRTIController rti;
  ReadSample(rti);
  const Outcome run = Validate(rti);
  EXPECT_TRUE(run.result) << rti.Errors().Xml();
  EXPECT_THAT(
      Details(run),
      ElementsAre(std::pair("Commencing Validation...", 0), std::pair("Validating Envelope...", 1),
                  std::pair("Envelope Validation Completed", 10), std::pair("Validating Company...", 11),
                  std::pair("Company Validation completed", 20), std::pair("Validating Employees...", 21),
                  std::pair("Employee Validation Completed", 75), std::pair("Validating Schema...", 90),
                  std::pair("Schema Validation Completed", 99), std::pair("Validation successful", 100)));
  EXPECT_EQ(run.status.front().stage, "Validating data for Full Payment Submission, please wait");
  const String count = ToText(rti.Submission()->FPS()->EmployeeCount());
  EXPECT_THAT(
      run.lines,
      ElementsAre("Beginning validation...", "Validation commenced at 05/04/2017 10:11:12.",
                  "Commencing File Validation", "File Validation successful.",
                  "File Validation completed in 0 milliseconds",
                  "Envelope Validation completed in 0 milliseconds.", "Commencing Company Validation",
                  "Company Validation successful.", "Company Validation completed in 0 milliseconds",
                  "Company Validation completed in 0 milliseconds.", "Commencing Employee Validation",
                  "Employee Validation successful.", "Employee Validation completed in 0 milliseconds",
                  "Average Validation processing time per Employee: 0 milliseconds",
                  "Employees: Checked: " + count + "; Valid: " + count + "; Invalid: 0",
                  "Employee Validation completed in 0 milliseconds.",
                  "Schema validation passed successfully.", "Schema Validation completed in 0 milliseconds.",
                  "Total time to validate: 0 milliseconds.", "Validation completed at 05/04/2017 10:11:12."));
  EXPECT_EQ(host_->yields, 10);
}

TEST_F(ValidationTest, TimesAreGroupedAndMeasuredByTheTick) {
  host_->on_yield = [this] { host_->tick += 600; };
  clsRTIController rti;
  ReadSample(rti);
  const Outcome run = Validate(rti);
  EXPECT_THAT(run.lines, testing::Contains("Total time to validate: 5,400 milliseconds."));
}

TEST_F(ValidationTest, AnEPSRunsThePaymentStageInPlaceOfTheEmployees) {
  clsRTIController rti;
  rti.SubmissionType(eRTISUBMISSIONTYPE::IsEPS);
  const Outcome run = Validate(rti);
  EXPECT_THAT(Details(run), testing::IsSupersetOf(
                                {std::pair(String("Employee Validation Completed"), Long{76}),
                                 std::pair(String("Payment for Period Validation Completed"), Long{89})}));
  EXPECT_THAT(run.lines,
              testing::IsSupersetOf({"Commencing Employer Payment Summary Validation",
                                     "Employer Payment Summary Validation successful.",
                                     "Employer Payment Summary Validation completed in 0 milliseconds",
                                     "Payment for Period Validation completed in 0 milliseconds."}));
  EXPECT_EQ(run.status.front().stage, "Validating data for Employer Payment Summary, please wait");
}

TEST_F(ValidationTest, IsTrueAtOnceWhenNotRequired) {
  clsRTIController rti;
  rti.ValidationRequired(false);
  const Outcome run = Validate(rti);
  EXPECT_TRUE(run.result);
  EXPECT_THAT(run.status, testing::IsEmpty());
  EXPECT_THAT(run.lines, testing::IsEmpty());
}

TEST_F(ValidationTest, TellsOfStagesThatAreSwitchedOff) {
  clsRTIController rti;
  rti.DoCompanyValidation(false);
  rti.DoEmployeeValidation(false);
  rti.DoPaymentValidation(false);
  rti.DoSchemaValidation(false);
  const Outcome run = Validate(rti);
  EXPECT_TRUE(run.result);
  EXPECT_THAT(run.lines,
              testing::IsSupersetOf({"Company Validation is disabled... proceeding with next stage.",
                                     "Employee Validation is disabled... proceeding with next stage.",
                                     "Payment Validation is disabled... proceeding with next stage.",
                                     "Schema Validation is disabled... proceeding with next stage."}));
  EXPECT_EQ(run.status.back().percent, 100);
}

TEST_F(ValidationTest, WithoutTheEnvelopeStageTheResultIsFalseAndTheSchemaStageIsSkipped) {
  clsRTIController rti;
  rti.DoEnvelopeValidation(false);
  const Outcome run = Validate(rti);
  EXPECT_FALSE(run.result);
  EXPECT_THAT(run.lines, testing::Contains("Envelope Validation is disabled... proceeding with next stage."));
  EXPECT_THAT(run.lines, testing::Not(testing::Contains("Schema validation passed successfully.")));
  EXPECT_EQ(run.status.back().detail, "Validation failed");
}

TEST_F(ValidationTest, WithoutTheEnvelopeStageAnAllowanceEndsTheRunBehindTheCompanyStage) {
  clsRTIController rti;
  rti.DoEnvelopeValidation(false);
  rti.MaxErrors(3);
  const Outcome run = Validate(rti);
  EXPECT_FALSE(run.result);
  EXPECT_EQ(run.status.back().detail, "Validating Company...");
  EXPECT_EQ(run.lines.back(), "Company Validation completed in 0 milliseconds.");
}

TEST_F(ValidationTest, CopiesTheEnvelopeIntoTheLog) {
  clsRTIController rti;
  rti.ReadXML(Sample());
  rti.Validate();
  rti.Validate();
  const XmlNode submission = rti.ProcessingLog()->Submission();
  EXPECT_EQ(submission.SelectNodes("*").size(), 1U);
  EXPECT_EQ(submission.FirstChild().NodeName(), "GovTalkMessage");
}

TEST_F(ValidationTest, CountsErrorsOfTheStagesBelowTheGivenSum) {
  clsRTIController rti;
  ValidateSpoiledSample(rti);
  constexpr Long kFile = 1;
  constexpr Long kCompany = 2;
  constexpr Long kEmployee = 4;
  const std::pair<Long, Long> counts[] = {{-1, kFile + kCompany + kEmployee},
                                          {0, 0},
                                          {1, 0},
                                          {2, kEmployee},
                                          {3, kCompany},
                                          {4, kCompany + kEmployee},
                                          {5, kFile},
                                          {6, kFile + kEmployee},
                                          {7, kFile + kCompany},
                                          {8, kFile + kCompany + kEmployee},
                                          {9, 0},
                                          {16, kFile + kCompany + kEmployee},
                                          {17, 0}};
  for (const auto& [types, count] : counts) EXPECT_EQ(rti.ErrorCount(types), count) << types;
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

TEST_F(ValidationTest, CollectsTheErrorsOfTheFileBeforeTheCompanys) {
  clsRTIController rti;
  ValidateSpoiledSample(rti);
  EXPECT_THAT(Fields(rti.ErrorCollection(1)),
              ElementsAre("NI Number", "NI Number", "NI Number", "NI Number"));
  EXPECT_THAT(Fields(rti.ErrorCollection(2)), ElementsAre("HMRCOfficeNumber", "AORef"));
  EXPECT_THAT(Fields(rti.ErrorCollection(4)), ElementsAre("Envelope Version"));
  EXPECT_THAT(Fields(rti.ErrorCollection(6)), ElementsAre("Envelope Version", "HMRCOfficeNumber", "AORef"));
}

TEST_F(ValidationTest, KeepsTheErrorsOfEveryStageUntilItRunsAgain) {
  clsRTIController rti;
  ValidateBadSchemaAndPayment(rti);
  ValidateSpoiledSample(rti);
  std::vector<String> types;
  for (const XmlNode& type : rti.Errors().SelectNodes("Errors/Error/ErrorType")) types.push_back(type.Text());
  EXPECT_THAT(types, ElementsAre("File", "Company", "Company", "Employee", "Employee", "Employee", "Employee",
                                 "Payment For Period", "Schema"));
  EXPECT_THAT(Fields(rti.ErrorCollection(30)),
              ElementsAre("Tax Month", "Schema", "Envelope Version", "HMRCOfficeNumber", "AORef"));
  EXPECT_EQ(rti.ErrorCount(-1), 9);
  EXPECT_EQ(rti.ErrorCount(16), 8);
  EXPECT_EQ(rti.ErrorCount(17), 1);
}

TEST_F(ValidationTest, EndsWithAReportWhenTheLogIsGone) {
  clsRTIController rti;
  rti.LogThisSession(false);
  EXPECT_FALSE(rti.Validate());
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(
      host_->messages[0].text,
      "Error in ZELNOR.dll::clsRTIController: Function Validate: Error 91 - Object variable or With block "
      "variable not set");
}

}  // namespace
}  // namespace zelnor::test
