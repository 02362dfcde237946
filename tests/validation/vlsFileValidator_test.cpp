// What the validator leaves behind on the records, and its event; its rules are in tests/rules/envelope.json.

#include "zelnor/validation/vlsFileValidator.h"

#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMGovTalkDetails.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsKey.h"

#include "support/recording_host.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

class FileValidatorTest : public testing::Test {
 protected:
  FileValidatorTest() {
    message->UseValidation(true);
    message->GTMEnvelopeVersion("2.0");
    message->Header_MessageDetails()->Qualifier("request");
  }

  WithRecordingHost host;
  Ref<clsGovTalkMessage> message = std::make_shared<clsGovTalkMessage>();
  vlsFileValidator validator;
};

TEST_F(FileValidatorTest, MarksWhatPassed) {
  EXPECT_TRUE(validator.ValidateFile(message));
  EXPECT_TRUE(message->Header_MessageDetails()->Validated());
  EXPECT_TRUE(message->Header_SenderDetails()->Validated());
}

TEST_F(FileValidatorTest, LeavesWhatFailedUnmarked) {
  message->Header_MessageDetails()->Qualifier("none");
  EXPECT_FALSE(validator.ValidateFile(message));
  EXPECT_FALSE(message->Header_MessageDetails()->Validated());
  EXPECT_TRUE(message->Header_SenderDetails()->Validated());
  EXPECT_FALSE(message->Validated());
}

TEST_F(FileValidatorTest, MarksTheKeysThatTheHeaderHasAsWell) {
  message->GTMGovTalkDetails()->Keys()->Add(std::make_shared<clsKey>());
  message->GTMGovTalkDetails()->Keys()->Add(std::make_shared<clsKey>());
  message->GTMGovTalkDetails()->Keys()->Item(1)->KeyType("TaxOfficeNumber");
  message->GTMGovTalkDetails()->Keys()->Item(1)->KeyValue("961");
  message->GTMGovTalkDetails()->Keys()->Item(2)->KeyType("TaxOfficeNumber");
  message->GTMGovTalkDetails()->Keys()->Item(2)->KeyValue("962");
  message->SubmissionDocument()->Header()->AddKey("TaxOfficeNumber", "961");
  EXPECT_TRUE(validator.ValidateFile(message));
  EXPECT_TRUE(message->GTMGovTalkDetails()->Keys()->Item(1)->Validated());
  EXPECT_FALSE(message->GTMGovTalkDetails()->Keys()->Item(2)->Validated());
}

TEST_F(FileValidatorTest, TellsOfEachRecordThatTheLimitKeepsOut) {
  int told = 0;
  validator.events.MaxErrorsHit.connect([&] { ++told; });
  validator.MaxErrors(1);
  message->GTMEnvelopeVersion("");
  EXPECT_FALSE(validator.ValidateFile(message));
  EXPECT_EQ(told, 0);
  message->Header_MessageDetails()->Qualifier("");
  EXPECT_FALSE(validator.ValidateFile(message));
  EXPECT_EQ(told, 3);  // the version again, and both rules of the qualifier
  EXPECT_EQ(validator.ErrorCount(), 1);
  EXPECT_FALSE(validator.MaxErrorsHit());
}

TEST_F(FileValidatorTest, XmlBearsItsOwnNames) {
  message->GTMEnvelopeVersion("");
  validator.ValidateFile(message);
  EXPECT_EQ(validator.GetAsXML().Xml(),
            "<FileValidationErrors><Error><ErrorType>File</ErrorType><Title>Mandatory</Title>"
            "<Code>F1.0.1</Code><Description>Envelope Version must be set.</Description>"
            "<FieldName>Envelope Version</FieldName><FieldValue></FieldValue><Employee>N/A</Employee>"
            "<CompanyId>N/A</CompanyId><EmployeeId>N/A</EmployeeId><EmployeeName>N/A</EmployeeName>"
            "<EmployeeCode>N/A</EmployeeCode><Source>EnvVersion</Source><Status>Critical</Status></Error>"
            "</FileValidationErrors>");
}

TEST_F(FileValidatorTest, KeepsANumberForTheApplication) {
  EXPECT_EQ(validator.DocType(), 0);
  validator.DocType(7);
  EXPECT_EQ(validator.DocType(), 7);
}

}  // namespace
}  // namespace zelnor::test
