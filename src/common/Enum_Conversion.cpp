#include "zelnor/common/Enum_Conversion.h"

#include "zelnor/platform/failure.h"

namespace zelnor {
namespace {

// Splits a sum into its flags, from `top` down to 1. Only the test for `top` makes the list that the others
// add to.
template <class Flag>
std::vector<Flag> Split(Integer sum, Integer top) {
  std::vector<Flag> flags;
  int rest = sum;
  for (int value = top; value >= 1; value /= 2) {
    if (rest < value) continue;
    if (value != top && flags.empty()) ThrowOutOfSubscript();
    flags.push_back(static_cast<Flag>(value));
    rest -= value;
  }
  return flags;
}

}  // namespace

String Enum_Conversion::GetSubmissionTypeDescription(eRTISUBMISSIONTYPE enmValue) const {
  switch (enmValue) {
    case eRTISUBMISSIONTYPE::IsEAS:
      return "EAS";
    case eRTISUBMISSIONTYPE::IsFPS:
      return "FPS";
    case eRTISUBMISSIONTYPE::IsEPS:
      return "EPS";
    case eRTISUBMISSIONTYPE::IsNVR:
      return "NVR";
    case eRTISUBMISSIONTYPE::IsEYU:
      return "EYU";
    default:
      return "N/A";
  }
}

std::vector<eRTISUBMISSIONTYPE> Enum_Conversion::GetSubmissionTypes(Integer enmValue) const {
  return Split<eRTISUBMISSIONTYPE>(enmValue, 64);
}

String Enum_Conversion::GetEntryTypeDescription(RTI_SEND_MODE enmValue) const {
  switch (enmValue) {
    case RTI_SEND_MODE::Live:
      return "Live";
    case RTI_SEND_MODE::FileOnly:
      return "FileOnly";
    case RTI_SEND_MODE::Test:
      return "Test";
    case RTI_SEND_MODE::DevLive:
      return "DevLive";
    case RTI_SEND_MODE::DevTest:
      return "DevTest";
    case RTI_SEND_MODE::DevFileLive:
      return "DevFileLive";
    case RTI_SEND_MODE::DevFileTest:
      return "DevFileTest";
    default:
      return "N/A";
  }
}

String Enum_Conversion::GetSubmissionStatusDescription(SUBMISSION_RESULT enmValue) const {
  switch (enmValue) {
    case SUBMISSION_RESULT::FailedValidation:
    case SUBMISSION_RESULT::FailedSend:
      return "Failed";
    case SUBMISSION_RESULT::Successful:
      return "Successful";
    case SUBMISSION_RESULT::Pending:
      return "Pending";
    default:
      return "N/A";
  }
}

std::vector<SUBMISSION_RESULT> Enum_Conversion::GetSubmissionStatuses(Integer enmValue) const {
  return Split<SUBMISSION_RESULT>(enmValue, 16);
}

String Enum_Conversion::GetPeriodDescription(PAY_FREQUENCY enmValue) {
  switch (enmValue) {
    case PAY_FREQUENCY::WEEKLY:
      return "Week";
    case PAY_FREQUENCY::Fortnightly:
      return "Fortnight";
    case PAY_FREQUENCY::FourWeekly:
      return "Four-Weekly Period";
    case PAY_FREQUENCY::CalendarMonthly:
      return "Month";
    case PAY_FREQUENCY::Quarterly:
      return "Quarter";
    case PAY_FREQUENCY::Biannually:
      return "Bi-Annual Period";
    case PAY_FREQUENCY::Annually:
      return "Year";
    case PAY_FREQUENCY::OneOff:
      return "One Off";
    case PAY_FREQUENCY::Irregular:
      return "Irregular";
    default:
      return "Unknown Period";
  }
}

}  // namespace zelnor
