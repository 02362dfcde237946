#pragma once

/// @file
/// The vocabulary of the public interface. The values are part of it: applications store and compare them.

#include "zelnor/platform/values.h"

#include <cstdint>

namespace zelnor {

/// The kind of document. The values are bit flags, so that sets of types can be summed.
enum class eRTISUBMISSIONTYPE : std::int32_t {
  IsUndefined = 0,       ///< no type set
  IsEAS = 1,             ///< Employer Alignment Submission
  IsFPS = 2,             ///< Full Payment Submission
  IsEPS = 4,             ///< Employer Payment Summary
  IsNVR = 8,             ///< NINO Verification Request
  IsPollDoc = 16,        ///< a polling document
  IsErrorResponse = 32,  ///< the gateway's error response
  IsEYU = 64             ///< Earlier Year Update
};

/// Where a submission goes.
enum class RTI_SEND_MODE : std::int32_t {
  Live = 0,         ///< the live gateway
  FileOnly = 1,     ///< written to file, not sent
  Test = 2,         ///< the gateway's test service
  DevLive = 3,      ///< development, live
  DevTest = 4,      ///< development, test
  DevFileLive = 5,  ///< development, file only, as live
  DevFileTest = 6   ///< development, file only, as test
};

/// The outcome of sending, saving and polling (bit values).
enum class SUBMISSION_RESULT : std::int32_t {
  FailedValidation = 1,   ///< validation failed
  FailedSend = 2,         ///< the send failed
  Successful = 4,         ///< accepted
  UnknownError = 16,      ///< an unexpected error was caught
  Pending = 8,            ///< no final answer yet; poll later
  ConnectionFailed = 32,  ///< no connection to the gateway
  CancelledSend = 64      ///< the user cancelled
};

/// The transport's processing state.
enum class SEND_STATUS : std::int32_t {
  Unsent = 0,
  Processing = 1,
  PendingResult = 2,
  Complete = 3,
  Failed = 4,
  Cancelled = 5,
  ConnectionFailed = 6
};

/// The validator families (bit values).
enum class RTI_ERROR_TYPE : std::int32_t {
  Employee = 1,
  Company = 2,
  File = 4,
  FileSchema = 8,
  PaymentForPeriod = 16
};

/// The direction of a logged document.
enum class SEND_DIRECTION : std::int32_t { Incoming = 0, Outgoing = 1 };

/// The outcome of a validation.
enum class VALIDATION_STATUS : std::int32_t { Failed = 0, Passed = 1 };

/// Live or test.
enum class RTI_MODE : std::int32_t { Live = 0, Test = 1 };

/// The stage of a gateway conversation.
enum class eDOCUMENTTYPE : std::int32_t { dtInitial = 0, dtPoll = 1, dtDelete = 2 };

/// How the document is built.
enum class enmBuildMode : std::int32_t { InMemory = 0, FileSpool = 1 };

/// How employees are compressed.
enum class enmCompressionMode : std::int32_t { Zip = 0, GZip = 1 };

/// The transformation of the gateway's answer that is asked for.
enum class TYPE_TRANSFORMATION : std::int32_t { XML = 0, HTML = 1, Text = 2 };

/// The rule set of the IRmark.
enum class IR_MARK_TYPE : std::int32_t { SAOnly = 0, generic = 1 };

/// The form of an IRmark. Both forms are always made.
enum class IRMARK_OUTPUT_MODE : std::int32_t { ToBase32 = 0, ToBase64 = 1 };

/// How FTP transfers a file.
enum class eFTPTransferTypes : std::int32_t { FTP_ASCII = 1, FTP_BINARY = 2 };

/// Weeks or months.
enum class PERIOD_TYPE : std::int32_t { ptWeek = 0, ptMonth = 1 };

/// Which tax reference an employer's reference is.
enum class etaxEmpRefTaxRef : std::int32_t { extUndefined = 0, etxUseUTR = 1, extUseCOTAXRef = 2 };

/// Where a telephone stands.
enum class TELEPHONE_TYPE : std::int32_t { Work = 0, Home = 1 };

/// Where an e-mail address belongs.
enum class EMAIL_TYPE : std::int32_t { Work = 0, Home = 1 };

/// The capacity of the sender.
enum class enmSender : std::int32_t {
  IsIndividual = 0,
  IsCompany = 1,
  IsAgent = 2,
  IsBureau = 3,
  IsPartnership = 4,
  IsTrust = 5,
  IsEmployer = 6,
  IsGovernment = 7,
  IsActinginCapacity = 8,
  IsOther = 9
};

/// An employee's gender.
enum class EMPLOYEE_GENDER : std::int32_t { Undefined = -1, M = 0, f = 1 };

/// Where an employment stands.
enum class eEMPLOYEE_STATUS : std::int32_t { eesCurrent = 0, eesNew = 1, eesLeaver = 2 };

/// The basis of a director's NIC, in clsNILiability.
enum class DIRECTORS_NIC : std::int32_t { NA = -1, Annual = 0, Alternative = 1 };

/// The basis of a director's NIC, in clsEmployment.
enum class dnDIRECTORS_NIC : std::int32_t { ednNA = -1, ednAnnual = 0, ednAlternative = 1 };

/// A new employee's declaration (statements A, B and C).
enum class STARTER_DECLARATION : std::int32_t {
  Undefined = 0,
  MyFirstJob = 1,
  MyOnlyCurrentJob = 2,
  HaveAnotherJobOrPension = 3
};

/// How long a seconded employee stays.
enum class SECONDMENT_LENGTH : std::int32_t {
  Undefined = 0,
  StayOver6Months = 1,
  StayLessThan6Months = 2,
  InOutUK = 3
};

/// The plan of a student loan.
enum class StudentLoan_PlanType : std::int32_t { enmPlan1 = 1, enmPlan2 = 2, enmPlan4 = 4 };

/// The kind of a trivial commutation payment.
enum class tcpPaymentType : std::int32_t {
  tcptLumpSums = 1,
  tcptPersonalPension = 2,
  tcptOccupationalPension = 3
};

/// A company car's fuel.
enum class eFuel : std::int32_t {
  enmDiesel = 0,
  enmElectric = 1,
  enmHybrid = 2,
  enmAllOther = 3,
  enmDieselEuroStd = 4
};

/// How often an employee is paid.
enum class PAY_FREQUENCY : std::int32_t {
  Undisclosed = -1,
  WEEKLY = 0,
  Fortnightly = 1,
  FourWeekly = 2,
  CalendarMonthly = 3,
  Quarterly = 4,
  Biannually = 5,
  Annually = 6,
  OneOff = 7,
  Irregular = 8
};

/// The band of an employee's weekly hours.
enum class HOURS_WORKED : std::int32_t {
  Undisclosed = -1,
  UpTo16 = 0,
  SixteenToTwentyFour = 1,
  TwentyFourToThirty = 2,
  ThirtyOrMore = 3,
  Other = 4
};

/// Why a payment is reported late.
enum class lreLateReason : std::int32_t {
  llrNoExcuse = 0,
  llrNotionalPaymentToExpat = 1,
  llrNotionalPaymentSecurity = 2,
  llrNotionalPaymentOther = 3,
  llrPmtSubjC1NICsButP11DTax = 4,
  llrNoRequirementForDWS = 5,
  llrImpracticalToReport = 6,
  llrReasonableExcuse = 7,
  llrCorrectionToEarlier = 8
};

/// The totals of one pay period.
struct ZELNOR_API PeriodValues {
  PERIOD_TYPE Type = PERIOD_TYPE::ptWeek;  ///< week or month
  Long PeriodNo = 0;                       ///< period number
  Long TotalEmployeesPaid = 0;             ///< employees paid
  Currency TotalTaxPaid;                   ///< tax
  Currency TotalEmployersNI;               ///< employer's NI
  Currency TotalEmployeesNI;               ///< employees' NI
  Currency TotalStudentLoansPaid;          ///< student loan deductions
  Currency TotalPostgradLoansPaid;         ///< postgraduate loan deductions
};

/// What the schema processor said.
struct ZELNOR_API SchemaError {
  String ErrorCode;
  String FilePos;
  String Line;
  String LinePos;
  String Reason;
  String SrcText;
  String Url;
};

}  // namespace zelnor
