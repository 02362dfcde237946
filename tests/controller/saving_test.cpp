#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/envelope/clsSHA1.h"

#include "controller/controller_fixture.h"

namespace zelnor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SavingTest : public ControllerTest {
 protected:
  SavingTest() {
    TodayOfTheSample();
    rti_.ReadXML(Sample());
    rti_.Submission()->Header()->DocIRMark()->value("");
  }

  XmlDocument Saved() const {
    XmlDocument saved;
    EXPECT_TRUE(saved.Load(rti_.SubmissionFilePath())) << saved.ParseError().reason;
    return saved;
  }

  clsRTIController rti_;
};

String MarkIn(const XmlDocument& document) {
  return document.SelectSingleNode("//*[local-name()='IRheader']/*[local-name()='IRmark']").Text();
}

TEST_F(SavingTest, WritesTheDocumentWithItsMark) {
  EXPECT_EQ(rti_.SaveSubmission(folder_.At("out/fps one.xml")), SUBMISSION_RESULT::Successful);
  EXPECT_TRUE(rti_.SubmissionSaved());
  EXPECT_EQ(rti_.SubmissionFilePath(), folder_.At("out/fps one.xml"));
  const XmlDocument saved = Saved();
  clsGovTalkMessage message;
  message.UseValidation(false);
  message.Document(saved);
  clsSHA1 sha1;
  sha1.CreateIRMark(message);
  EXPECT_EQ(MarkIn(saved).size(), 28U);
  EXPECT_EQ(MarkIn(saved), sha1.Base64Mark());
  EXPECT_EQ(saved.DocumentElement().NamespaceURI(), "http://www.govtalk.gov.uk/CM/envelope");
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

TEST_F(SavingTest, LogsWhatItDid) {
  rti_.ValidationRequired(false);
  const String path = folder_.At("fps.xml");
  rti_.SaveSubmission(path);
  EXPECT_THAT(Lines(rti_),
              ElementsAre("RTI Controller initialised at 05/04/2017 10:11:12",
                          "Validation is disabled. Commencing build...",
                          "Submission generation completed in 0 milliseconds",
                          "Submission saved to file " + path, "Submission save completed in 0 milliseconds",
                          "Total process completed in 0 milliseconds"));
  const XmlNode submission = rti_.ProcessingLog()->Submission();
  EXPECT_EQ(submission.FirstChild().Xml(), Saved().DocumentElement().Xml());
  XmlDocument log;
  EXPECT_TRUE(log.Load(rti_.ProcessingLog()->LogFilePath()));
}

TEST_F(SavingTest, ValidatesFirst) {
  rti_.SaveSubmission(folder_.At("fps.xml"));
  EXPECT_THAT(Lines(rti_), testing::Contains("Submission validated successfully."));
}

TEST_F(SavingTest, ADocumentThatFailedValidationIsWrittenAllTheSame) {
  rti_.DoEnvelopeValidation(false);
  EXPECT_EQ(rti_.SaveSubmission(folder_.At("fps.xml")), SUBMISSION_RESULT::FailedValidation);
  EXPECT_TRUE(rti_.SubmissionSaved());
  EXPECT_THAT(Lines(rti_), testing::Contains("Validation failed."));
  EXPECT_EQ(MarkIn(Saved()).size(), 28U);
}

TEST_F(SavingTest, AFolderGetsAFileNamedByClassDateAndTime) {
  rti_.SaveSubmission(folder_.At("out") + "/");
  EXPECT_EQ(rti_.SubmissionFilePath(), folder_.At("out") + "/HMRC-PAYE-RTI-FPS20170405 101112.xml");
  EXPECT_EQ(MarkIn(Saved()).size(), 28U);
}

TEST_F(SavingTest, AnEmptyPathMeansTheFolderOfTheSettings) {
  rti_.SaveSubmission();
  EXPECT_EQ(Setting("XMLFilePath"), "\\xml\\");
  EXPECT_EQ(rti_.SubmissionFilePath(), folder_.Path() + "\\xml\\HMRC-PAYE-RTI-FPS20170405 101112.xml");
  Set("XMLFilePath", "\\kept\\");
  rti_.SaveSubmission("");
  EXPECT_EQ(rti_.SubmissionFilePath(), folder_.Path() + "\\kept\\HMRC-PAYE-RTI-FPS20170405 101112.xml");
  Set("XMLFilePath", folder_.At("elsewhere/"));
  rti_.SaveSubmission("");
  EXPECT_EQ(rti_.SubmissionFilePath(), folder_.At("elsewhere/HMRC-PAYE-RTI-FPS20170405 101112.xml"));
  EXPECT_EQ(MarkIn(Saved()).size(), 28U);
}

TEST_F(SavingTest, AMarkThatIsThereStays) {
  rti_.Submission()->Header()->DocIRMark()->value("kept as it is");
  rti_.SaveSubmission(folder_.At("fps.xml"));
  EXPECT_EQ(MarkIn(Saved()), "kept as it is");
}

TEST_F(SavingTest, WithoutAConnectionTheFileHasItsMarkAllTheSame) {
  rti_.ValidationRequired(false);
  for (const bool logged : {true, false}) {
    if (!logged) rti_.LogThisSession(false);
    rti_.Submission()->Header()->DocIRMark()->value("");
    rti_.GovTalkMessage()->ForceRebuild();
    host_->connection = {};
    ASSERT_EQ(rti_.SendSubmission("user", "word"), SUBMISSION_RESULT::ConnectionFailed);
    EXPECT_EQ(rti_.SaveSubmission(folder_.At("fps.xml")), SUBMISSION_RESULT::Successful);
    EXPECT_EQ(MarkIn(Saved()).size(), 28U);
    EXPECT_EQ(MarkIn(Saved()), rti_.Submission()->Header()->DocIRMark()->value());
  }
}

TEST_F(SavingTest, SavingTwiceWritesTheSame) {
  rti_.SaveSubmission(folder_.At("one.xml"));
  rti_.SaveSubmission(folder_.At("two.xml"));
  EXPECT_EQ(folder_.Get("one.xml"), folder_.Get("two.xml"));
  EXPECT_NE(folder_.Get("one.xml"), "");
}

TEST_F(SavingTest, AFailureIsReportedLoggedAndGivesUnknownError) {
  folder_.Put("file", "x");
  EXPECT_EQ(rti_.SaveSubmission(folder_.At("file") + "/fps.xml"), SUBMISSION_RESULT::UnknownError);
  EXPECT_FALSE(rti_.SubmissionSaved());
  ASSERT_FALSE(host_->messages.empty());
  EXPECT_THAT(host_->messages.back().text,
              testing::StartsWith("Error in ZELNOR.dll::clsRTIController: Function SaveSubmission: Error "));
  EXPECT_THAT(Lines(rti_).back(),
              testing::StartsWith("An error occurred while attempting to save the submission: "));
  EXPECT_EQ(folder_.Get("file"), "x");
}

TEST_F(SavingTest, ADocumentWithoutKeysCannotBeMarked) {
  clsRTIController rti;
  rti.ReadXML("<GovTalkMessage/>");
  rti.SubmissionType(eRTISUBMISSIONTYPE::IsPollDoc);
  EXPECT_EQ(rti.SaveSubmission(folder_.At("fps.xml")), SUBMISSION_RESULT::UnknownError);
  EXPECT_THAT(host_->messages.back().text,
              HasSubstr("Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark: Error Number = 91 - "));
  EXPECT_FALSE(std::filesystem::exists(folder_.At("fps.xml")));
}

TEST_F(SavingTest, TheSavedFileIsOpenedByItsProgram) {
  rti_.SaveSubmission(folder_.At("fps.xml"));
  rti_.OpenSubmissionFile();
  rti_.OpenSubmissionFile("/usr/bin/my viewer");
  EXPECT_THAT(host_->opened, ElementsAre(std::pair(String(), folder_.At("fps.xml")),
                                         std::pair(String("/usr/bin/my viewer"), folder_.At("fps.xml"))));
}

TEST_F(SavingTest, OpeningBeforeAnySaveIsReported) {
  rti_.OpenSubmissionFile();
  EXPECT_THAT(host_->opened, testing::IsEmpty());
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(host_->messages[0].text,
            "Error in ZELNOR.dll::clsRTIController: Sub OpenSubmissionFile: Error 53 - File not found");
}

TEST_F(SavingTest, AProgramThatCannotBeStartedIsReported) {
  rti_.SaveSubmission(folder_.At("fps.xml"));
  host_->can_open = false;
  rti_.OpenSubmissionFile("/nowhere/viewer");
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(host_->messages[0].text,
            "Error in ZELNOR.dll::clsRTIController: Sub OpenSubmissionFile: Error 53 - File not found");
}

TEST_F(SavingTest, WritingWhatWasReadAndReadingItAgainChangesNothing) {
  rti_.SaveSubmission(folder_.At("one.xml"));
  clsRTIController again;
  again.ReadXML(folder_.Get("one.xml"));
  again.Submission()->Header()->DocIRMark()->value("");
  again.SaveSubmission(folder_.At("two.xml"));
  EXPECT_EQ(folder_.Get("one.xml"), folder_.Get("two.xml"));
}

}  // namespace
}  // namespace zelnor::test
