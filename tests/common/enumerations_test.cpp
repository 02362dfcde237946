// Applications store the numbers of the enumerations, so that each of them is held here.

#include "zelnor/common/enumerations.h"

#include <type_traits>

#include <gtest/gtest.h>

using namespace zelnor;

namespace {

template <class Enum>
Long Number(Enum value) {
  static_assert(std::is_same_v<std::underlying_type_t<Enum>, std::int32_t>);
  return static_cast<Long>(value);
}

}  // namespace

TEST(Enumerations, KindsOfDocumentAreFlags) {
  EXPECT_EQ(Number(eRTISUBMISSIONTYPE::IsUndefined), 0);
  EXPECT_EQ(Number(eRTISUBMISSIONTYPE::IsEAS), 1);
  EXPECT_EQ(Number(eRTISUBMISSIONTYPE::IsFPS), 2);
  EXPECT_EQ(Number(eRTISUBMISSIONTYPE::IsEPS), 4);
  EXPECT_EQ(Number(eRTISUBMISSIONTYPE::IsNVR), 8);
  EXPECT_EQ(Number(eRTISUBMISSIONTYPE::IsPollDoc), 16);
  EXPECT_EQ(Number(eRTISUBMISSIONTYPE::IsErrorResponse), 32);
  EXPECT_EQ(Number(eRTISUBMISSIONTYPE::IsEYU), 64);
}

TEST(Enumerations, SendModes) {
  EXPECT_EQ(Number(RTI_SEND_MODE::Live), 0);
  EXPECT_EQ(Number(RTI_SEND_MODE::FileOnly), 1);
  EXPECT_EQ(Number(RTI_SEND_MODE::Test), 2);
  EXPECT_EQ(Number(RTI_SEND_MODE::DevLive), 3);
  EXPECT_EQ(Number(RTI_SEND_MODE::DevTest), 4);
  EXPECT_EQ(Number(RTI_SEND_MODE::DevFileLive), 5);
  EXPECT_EQ(Number(RTI_SEND_MODE::DevFileTest), 6);
}

TEST(Enumerations, ResultsAreFlags) {
  EXPECT_EQ(Number(SUBMISSION_RESULT::FailedValidation), 1);
  EXPECT_EQ(Number(SUBMISSION_RESULT::FailedSend), 2);
  EXPECT_EQ(Number(SUBMISSION_RESULT::Successful), 4);
  EXPECT_EQ(Number(SUBMISSION_RESULT::Pending), 8);
  EXPECT_EQ(Number(SUBMISSION_RESULT::UnknownError), 16);
  EXPECT_EQ(Number(SUBMISSION_RESULT::ConnectionFailed), 32);
  EXPECT_EQ(Number(SUBMISSION_RESULT::CancelledSend), 64);
}

TEST(Enumerations, StatesOfTheTransport) {
  EXPECT_EQ(Number(SEND_STATUS::Unsent), 0);
  EXPECT_EQ(Number(SEND_STATUS::Processing), 1);
  EXPECT_EQ(Number(SEND_STATUS::PendingResult), 2);
  EXPECT_EQ(Number(SEND_STATUS::Complete), 3);
  EXPECT_EQ(Number(SEND_STATUS::Failed), 4);
  EXPECT_EQ(Number(SEND_STATUS::Cancelled), 5);
  EXPECT_EQ(Number(SEND_STATUS::ConnectionFailed), 6);
}

TEST(Enumerations, FamiliesOfValidatorsAreFlags) {
  EXPECT_EQ(Number(RTI_ERROR_TYPE::Employee), 1);
  EXPECT_EQ(Number(RTI_ERROR_TYPE::Company), 2);
  EXPECT_EQ(Number(RTI_ERROR_TYPE::File), 4);
  EXPECT_EQ(Number(RTI_ERROR_TYPE::FileSchema), 8);
  EXPECT_EQ(Number(RTI_ERROR_TYPE::PaymentForPeriod), 16);
}

TEST(Enumerations, SmallOnesOfTheEnvelopeAndTheTransport) {
  EXPECT_EQ(Number(SEND_DIRECTION::Incoming), 0);
  EXPECT_EQ(Number(SEND_DIRECTION::Outgoing), 1);
  EXPECT_EQ(Number(VALIDATION_STATUS::Failed), 0);
  EXPECT_EQ(Number(VALIDATION_STATUS::Passed), 1);
  EXPECT_EQ(Number(RTI_MODE::Live), 0);
  EXPECT_EQ(Number(RTI_MODE::Test), 1);
  EXPECT_EQ(Number(eDOCUMENTTYPE::dtInitial), 0);
  EXPECT_EQ(Number(eDOCUMENTTYPE::dtPoll), 1);
  EXPECT_EQ(Number(eDOCUMENTTYPE::dtDelete), 2);
  EXPECT_EQ(Number(enmBuildMode::InMemory), 0);
  EXPECT_EQ(Number(enmBuildMode::FileSpool), 1);
  EXPECT_EQ(Number(enmCompressionMode::Zip), 0);
  EXPECT_EQ(Number(enmCompressionMode::GZip), 1);
  EXPECT_EQ(Number(TYPE_TRANSFORMATION::XML), 0);
  EXPECT_EQ(Number(TYPE_TRANSFORMATION::HTML), 1);
  EXPECT_EQ(Number(TYPE_TRANSFORMATION::Text), 2);
  EXPECT_EQ(Number(IR_MARK_TYPE::SAOnly), 0);
  EXPECT_EQ(Number(IR_MARK_TYPE::generic), 1);
  EXPECT_EQ(Number(IRMARK_OUTPUT_MODE::ToBase32), 0);
  EXPECT_EQ(Number(IRMARK_OUTPUT_MODE::ToBase64), 1);
  EXPECT_EQ(Number(eFTPTransferTypes::FTP_ASCII), 1);
  EXPECT_EQ(Number(eFTPTransferTypes::FTP_BINARY), 2);
}

TEST(Enumerations, SmallOnesOfPeriodsReferencesAndContacts) {
  EXPECT_EQ(Number(PERIOD_TYPE::ptWeek), 0);
  EXPECT_EQ(Number(PERIOD_TYPE::ptMonth), 1);
  EXPECT_EQ(Number(etaxEmpRefTaxRef::extUndefined), 0);
  EXPECT_EQ(Number(etaxEmpRefTaxRef::etxUseUTR), 1);
  EXPECT_EQ(Number(etaxEmpRefTaxRef::extUseCOTAXRef), 2);
  EXPECT_EQ(Number(TELEPHONE_TYPE::Work), 0);
  EXPECT_EQ(Number(TELEPHONE_TYPE::Home), 1);
  EXPECT_EQ(Number(EMAIL_TYPE::Work), 0);
  EXPECT_EQ(Number(EMAIL_TYPE::Home), 1);
}

TEST(Enumerations, CapacitiesOfTheSender) {
  EXPECT_EQ(Number(enmSender::IsIndividual), 0);
  EXPECT_EQ(Number(enmSender::IsCompany), 1);
  EXPECT_EQ(Number(enmSender::IsAgent), 2);
  EXPECT_EQ(Number(enmSender::IsBureau), 3);
  EXPECT_EQ(Number(enmSender::IsPartnership), 4);
  EXPECT_EQ(Number(enmSender::IsTrust), 5);
  EXPECT_EQ(Number(enmSender::IsEmployer), 6);
  EXPECT_EQ(Number(enmSender::IsGovernment), 7);
  EXPECT_EQ(Number(enmSender::IsActinginCapacity), 8);
  EXPECT_EQ(Number(enmSender::IsOther), 9);
}

TEST(Enumerations, People) {
  EXPECT_EQ(Number(EMPLOYEE_GENDER::Undefined), -1);
  EXPECT_EQ(Number(EMPLOYEE_GENDER::M), 0);
  EXPECT_EQ(Number(EMPLOYEE_GENDER::f), 1);
  EXPECT_EQ(Number(eEMPLOYEE_STATUS::eesCurrent), 0);
  EXPECT_EQ(Number(eEMPLOYEE_STATUS::eesNew), 1);
  EXPECT_EQ(Number(eEMPLOYEE_STATUS::eesLeaver), 2);
  EXPECT_EQ(Number(DIRECTORS_NIC::NA), -1);
  EXPECT_EQ(Number(DIRECTORS_NIC::Annual), 0);
  EXPECT_EQ(Number(DIRECTORS_NIC::Alternative), 1);
  EXPECT_EQ(Number(dnDIRECTORS_NIC::ednNA), -1);
  EXPECT_EQ(Number(dnDIRECTORS_NIC::ednAnnual), 0);
  EXPECT_EQ(Number(dnDIRECTORS_NIC::ednAlternative), 1);
  EXPECT_EQ(Number(STARTER_DECLARATION::Undefined), 0);
  EXPECT_EQ(Number(STARTER_DECLARATION::MyFirstJob), 1);
  EXPECT_EQ(Number(STARTER_DECLARATION::MyOnlyCurrentJob), 2);
  EXPECT_EQ(Number(STARTER_DECLARATION::HaveAnotherJobOrPension), 3);
  EXPECT_EQ(Number(SECONDMENT_LENGTH::Undefined), 0);
  EXPECT_EQ(Number(SECONDMENT_LENGTH::StayOver6Months), 1);
  EXPECT_EQ(Number(SECONDMENT_LENGTH::StayLessThan6Months), 2);
  EXPECT_EQ(Number(SECONDMENT_LENGTH::InOutUK), 3);
}

TEST(Enumerations, Pay) {
  EXPECT_EQ(Number(StudentLoan_PlanType::enmPlan1), 1);
  EXPECT_EQ(Number(StudentLoan_PlanType::enmPlan2), 2);
  EXPECT_EQ(Number(StudentLoan_PlanType::enmPlan4), 4);
  EXPECT_EQ(Number(tcpPaymentType::tcptLumpSums), 1);
  EXPECT_EQ(Number(tcpPaymentType::tcptPersonalPension), 2);
  EXPECT_EQ(Number(tcpPaymentType::tcptOccupationalPension), 3);
  EXPECT_EQ(Number(eFuel::enmDiesel), 0);
  EXPECT_EQ(Number(eFuel::enmElectric), 1);
  EXPECT_EQ(Number(eFuel::enmHybrid), 2);
  EXPECT_EQ(Number(eFuel::enmAllOther), 3);
  EXPECT_EQ(Number(eFuel::enmDieselEuroStd), 4);
}

TEST(Enumerations, PayFrequencies) {
  EXPECT_EQ(Number(PAY_FREQUENCY::Undisclosed), -1);
  EXPECT_EQ(Number(PAY_FREQUENCY::WEEKLY), 0);
  EXPECT_EQ(Number(PAY_FREQUENCY::Fortnightly), 1);
  EXPECT_EQ(Number(PAY_FREQUENCY::FourWeekly), 2);
  EXPECT_EQ(Number(PAY_FREQUENCY::CalendarMonthly), 3);
  EXPECT_EQ(Number(PAY_FREQUENCY::Quarterly), 4);
  EXPECT_EQ(Number(PAY_FREQUENCY::Biannually), 5);
  EXPECT_EQ(Number(PAY_FREQUENCY::Annually), 6);
  EXPECT_EQ(Number(PAY_FREQUENCY::OneOff), 7);
  EXPECT_EQ(Number(PAY_FREQUENCY::Irregular), 8);
}

TEST(Enumerations, HoursWorked) {
  EXPECT_EQ(Number(HOURS_WORKED::Undisclosed), -1);
  EXPECT_EQ(Number(HOURS_WORKED::UpTo16), 0);
  EXPECT_EQ(Number(HOURS_WORKED::SixteenToTwentyFour), 1);
  EXPECT_EQ(Number(HOURS_WORKED::TwentyFourToThirty), 2);
  EXPECT_EQ(Number(HOURS_WORKED::ThirtyOrMore), 3);
  EXPECT_EQ(Number(HOURS_WORKED::Other), 4);
}

TEST(Enumerations, LateReasons) {
  EXPECT_EQ(Number(lreLateReason::llrNoExcuse), 0);
  EXPECT_EQ(Number(lreLateReason::llrNotionalPaymentToExpat), 1);
  EXPECT_EQ(Number(lreLateReason::llrNotionalPaymentSecurity), 2);
  EXPECT_EQ(Number(lreLateReason::llrNotionalPaymentOther), 3);
  EXPECT_EQ(Number(lreLateReason::llrPmtSubjC1NICsButP11DTax), 4);
  EXPECT_EQ(Number(lreLateReason::llrNoRequirementForDWS), 5);
  EXPECT_EQ(Number(lreLateReason::llrImpracticalToReport), 6);
  EXPECT_EQ(Number(lreLateReason::llrReasonableExcuse), 7);
  EXPECT_EQ(Number(lreLateReason::llrCorrectionToEarlier), 8);
}

TEST(PeriodValues, HoldsItsFieldsInTheirOrder) {
  const PeriodValues values{PERIOD_TYPE::ptMonth, 3,           12,          Currency(1),
                            Currency(2),          Currency(3), Currency(4), Currency(5)};
  EXPECT_EQ(values.Type, PERIOD_TYPE::ptMonth);
  EXPECT_EQ(values.PeriodNo, 3);
  EXPECT_EQ(values.TotalEmployeesPaid, 12);
  EXPECT_EQ(values.TotalTaxPaid, Currency(1));
  EXPECT_EQ(values.TotalEmployersNI, Currency(2));
  EXPECT_EQ(values.TotalEmployeesNI, Currency(3));
  EXPECT_EQ(values.TotalStudentLoansPaid, Currency(4));
  EXPECT_EQ(values.TotalPostgradLoansPaid, Currency(5));
}

TEST(SchemaError, HoldsItsFieldsInTheirOrder) {
  const SchemaError error{"code", "pos", "line", "linepos", "reason", "text", "url"};
  EXPECT_EQ(error.ErrorCode, "code");
  EXPECT_EQ(error.FilePos, "pos");
  EXPECT_EQ(error.Line, "line");
  EXPECT_EQ(error.LinePos, "linepos");
  EXPECT_EQ(error.Reason, "reason");
  EXPECT_EQ(error.SrcText, "text");
  EXPECT_EQ(error.Url, "url");
}
