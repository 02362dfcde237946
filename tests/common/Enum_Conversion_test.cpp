#include "zelnor/common/Enum_Conversion.h"

#include "support/recording_host.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {

/// Reaches the conversion that only the class itself uses.
struct Enum_ConversionPeer {
  static String PeriodDescription(Long value) {
    return Enum_Conversion::GetPeriodDescription(static_cast<PAY_FREQUENCY>(value));
  }
};

}  // namespace zelnor

using namespace zelnor;
using namespace zelnor::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Enum_Conversion kConversion;

String TypeText(Long value) {
  return kConversion.GetSubmissionTypeDescription(static_cast<eRTISUBMISSIONTYPE>(value));
}
String ModeText(Long value) { return kConversion.GetEntryTypeDescription(static_cast<RTI_SEND_MODE>(value)); }
String StatusText(Long value) {
  return kConversion.GetSubmissionStatusDescription(static_cast<SUBMISSION_RESULT>(value));
}

}  // namespace

TEST(Enum_Conversion, AbbreviatesTheDocumentsThatAnEmployerSends) {
  EXPECT_EQ(TypeText(1), "EAS");
  EXPECT_EQ(TypeText(2), "FPS");
  EXPECT_EQ(TypeText(4), "EPS");
  EXPECT_EQ(TypeText(8), "NVR");
  EXPECT_EQ(TypeText(64), "EYU");
}

TEST(Enum_Conversion, HasNoAbbreviationForOtherTypes) {
  for (const Long other : {0, 16, 32, 3, 66, 128, -1}) EXPECT_EQ(TypeText(other), "N/A") << other;
}

TEST(Enum_Conversion, NamesTheSendModes) {
  EXPECT_EQ(ModeText(0), "Live");
  EXPECT_EQ(ModeText(1), "FileOnly");
  EXPECT_EQ(ModeText(2), "Test");
  EXPECT_EQ(ModeText(3), "DevLive");
  EXPECT_EQ(ModeText(4), "DevTest");
  EXPECT_EQ(ModeText(5), "DevFileLive");
  EXPECT_EQ(ModeText(6), "DevFileTest");
  EXPECT_EQ(ModeText(7), "N/A");
  EXPECT_EQ(ModeText(-1), "N/A");
}

TEST(Enum_Conversion, BothFailuresReadFailed) {
  EXPECT_EQ(StatusText(1), "Failed");
  EXPECT_EQ(StatusText(2), "Failed");
  EXPECT_EQ(StatusText(4), "Successful");
  EXPECT_EQ(StatusText(8), "Pending");
}

TEST(Enum_Conversion, OtherResultsAreNotDescribed) {
  for (const Long other : {0, 3, 16, 32, 64, -1}) EXPECT_EQ(StatusText(other), "N/A") << other;
}

TEST(Enum_Conversion, SplitsASumOfTypesFromTheLargestDown) {
  using enum eRTISUBMISSIONTYPE;
  EXPECT_THAT(kConversion.GetSubmissionTypes(66), ElementsAre(IsEYU, IsFPS));
  EXPECT_THAT(kConversion.GetSubmissionTypes(64), ElementsAre(IsEYU));
  EXPECT_THAT(kConversion.GetSubmissionTypes(127),
              ElementsAre(IsEYU, IsErrorResponse, IsPollDoc, IsNVR, IsEPS, IsFPS, IsEAS));
}

TEST(Enum_Conversion, SplitsNothingIntoNothing) {
  EXPECT_THAT(kConversion.GetSubmissionTypes(0), IsEmpty());
  EXPECT_THAT(kConversion.GetSubmissionTypes(-66), IsEmpty());
  EXPECT_THAT(kConversion.GetSubmissionStatuses(0), IsEmpty());
}

TEST(Enum_Conversion, ASumOfTypesWithoutTheTopFlagRaisesToTheCaller) {
  const WithRecordingHost host;
  for (const Integer sum : std::initializer_list<Integer>{1, 2, 32, 63})
    EXPECT_EQ(RaisedNumber([&] { kConversion.GetSubmissionTypes(sum); }), 9) << sum;
  EXPECT_TRUE(host->messages.empty());
}

TEST(Enum_Conversion, SplitsASumOfResultsFromTheLargestDown) {
  using enum SUBMISSION_RESULT;
  EXPECT_THAT(kConversion.GetSubmissionStatuses(16), ElementsAre(UnknownError));
  EXPECT_THAT(kConversion.GetSubmissionStatuses(20), ElementsAre(UnknownError, Successful));
  EXPECT_THAT(kConversion.GetSubmissionStatuses(31),
              ElementsAre(UnknownError, Pending, Successful, FailedSend, FailedValidation));
}

TEST(Enum_Conversion, ASumOfResultsWithoutTheTopFlagRaisesToTheCaller) {
  const WithRecordingHost host;
  for (const Integer sum : std::initializer_list<Integer>{1, 8, 15})
    EXPECT_EQ(RaisedNumber([&] { kConversion.GetSubmissionStatuses(sum); }), 9) << sum;
  EXPECT_TRUE(host->messages.empty());
}

TEST(Enum_Conversion, DescribesThePayPeriod) {
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(0), "Week");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(1), "Fortnight");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(2), "Four-Weekly Period");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(3), "Month");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(4), "Quarter");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(5), "Bi-Annual Period");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(6), "Year");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(7), "One Off");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(8), "Irregular");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(-1), "Unknown Period");
  EXPECT_EQ(Enum_ConversionPeer::PeriodDescription(9), "Unknown Period");
}
