#pragma once

#include "zelnor/common/enumerations.h"

#include <vector>

namespace zelnor {

/// Enumerations as texts, and sums of flags as lists, for applications that store the numbers.
///
/// @code
/// Enum_Conversion().GetSubmissionTypeDescription(eRTISUBMISSIONTYPE::IsFPS);  // "FPS"
/// @endcode
class ZELNOR_API Enum_Conversion {
 public:
  /// "EAS", "FPS", "EPS", "NVR" or "EYU"; "N/A" for anything else.
  String GetSubmissionTypeDescription(eRTISUBMISSIONTYPE enmValue) const;

  /// The members of a sum, from the largest value down; empty for 0. The first test, for 64, makes the list:
  /// a sum without it raises error 9 at its first member.
  std::vector<eRTISUBMISSIONTYPE> GetSubmissionTypes(Integer enmValue) const;

  /// The mode's name, such as "DevLive"; "N/A" for anything else.
  String GetEntryTypeDescription(RTI_SEND_MODE enmValue) const;

  /// "Failed", "Successful" or "Pending"; "N/A" for anything else, UnknownError, ConnectionFailed and
  /// CancelledSend among them.
  String GetSubmissionStatusDescription(SUBMISSION_RESULT enmValue) const;

  /// The members of a sum of 16, 8, 4, 2 and 1, from the largest value down; empty for 0. A sum without 16
  /// raises error 9 at its first member.
  std::vector<SUBMISSION_RESULT> GetSubmissionStatuses(Integer enmValue) const;

 private:
  friend struct Enum_ConversionPeer;

  static String GetPeriodDescription(PAY_FREQUENCY enmValue);
};

}  // namespace zelnor
