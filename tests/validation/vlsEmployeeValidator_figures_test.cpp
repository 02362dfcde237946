// What the rules of figures to date, NI letters and benefits leave behind on the records, and whole pounds;
// what the rules say is in tests/rules/.

#include "zelnor/documents/clsBenefits.h"
#include "zelnor/documents/clsCarDetails.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsFiguresToDate.h"
#include "zelnor/documents/clsFreeFuel.h"
#include "zelnor/documents/clsNILettersAndValues.h"
#include "zelnor/platform/failure.h"
#include "zelnor/validation/clsEmployeeException.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

#include <limits>

#include "support/recording_host.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

constexpr auto kFPS = eRTISUBMISSIONTYPE::IsFPS;

TEST(WholePounds, HaveNoPence) {
  const vlsEmployeeValidator validator;
  for (const double whole : {0.0, 1.0, -1.0, 112.0, -99999.0, 2147483647.0, -2147483648.0}) {
    EXPECT_TRUE(validator.IsWholePounds(whole)) << whole;
  }
  for (const double broken : {0.01, -0.01, 0.5, 1.5, 112.5, -99998.99, 2147483646.5}) {
    EXPECT_FALSE(validator.IsWholePounds(broken)) << broken;
  }
}

TEST(WholePounds, BeyondThirtyTwoBitsAreComparedByTheirText) {
  const vlsEmployeeValidator validator;
  for (const double whole : {2147483648.0, -2147483649.0, 1e10, -1e15, 1e300}) {
    EXPECT_TRUE(validator.IsWholePounds(whole)) << whole;
  }
  for (const double broken : {2147483648.5, -2147483649.25, 1e10 + 0.01}) {
    EXPECT_FALSE(validator.IsWholePounds(broken)) << broken;
  }
  // The text ends after two decimals.
  EXPECT_TRUE(validator.IsWholePounds(2147483648.001));
}

TEST(WholePounds, HaveNoAnswerForWhatNoTextCanHold) {
  const vlsEmployeeValidator validator;
  try {
    validator.IsWholePounds(std::numeric_limits<double>::infinity());
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Description(),
              "Overflow: the number inf is too large for the available comparable field types.");
    EXPECT_EQ(error.Source(), "[ZELNOR.DLL::vlsEmployeeValidator.IsWholePounds");
  }
}

class FiguresMarks : public testing::Test {
 protected:
  Ref<clsNILettersAndValues> AddLetter(const char* letter) {
    auto record = std::make_shared<clsNILettersAndValues>();
    record->NILetter(letter);
    job->AddNILettersAndValues(record);
    return record;
  }
  Ref<clsCarDetails> AddCar(const char* make, Date available_from = Date::FromParts(2025, 4, 6)) {
    return benefits->AddCarDetails(make, "98", eFuel::enmHybrid, false, Currency(28450), available_from,
                                   Currency(6828), "");
  }
  bool ValidateLetters() {
    return validator.ValidateNILettersAndValues(employee, job, nullptr, kFPS, "12_A1");
  }

  WithRecordingHost host;
  Ref<clsEmployee> employee = std::make_shared<clsEmployee>();
  Ref<clsEmployment> job = employee->AddEmployment();
  Ref<clsBenefits> benefits = std::make_shared<clsBenefits>();
  vlsEmployeeValidator validator;
};

TEST_F(FiguresMarks, AreSetOnFiguresThatPass) {
  job->FiguresToDate()->TaxablePay(Currency(2033));
  EXPECT_TRUE(validator.ValidateFiguresToDate(employee, job));
  EXPECT_TRUE(job->FiguresToDate()->Validated());
}

TEST_F(FiguresMarks, StayOffFiguresThatFailInTheFirstOrTheLastRule) {
  job->FiguresToDate()->TaxablePay(Currency(-1));
  EXPECT_FALSE(validator.ValidateFiguresToDate(employee, job));
  EXPECT_FALSE(job->FiguresToDate()->Validated());

  job->FiguresToDate()->TaxablePay(Currency(1));
  job->FiguresToDate()->EmpeePensionContribnsNotPaidYTD(Currency(-1));
  EXPECT_FALSE(validator.ValidateFiguresToDate(employee, job));
  EXPECT_FALSE(job->FiguresToDate()->Validated());
}

TEST_F(FiguresMarks, AreSetOnEachLetterByItself) {
  const auto good = AddLetter("A");
  const auto bad = AddLetter("O");
  const auto second = AddLetter("A");
  EXPECT_FALSE(ValidateLetters());
  EXPECT_TRUE(good->Validated());
  EXPECT_FALSE(bad->Validated());
  EXPECT_FALSE(second->Validated());
}

TEST_F(FiguresMarks, AreTakenFromALetterThatIsASecondOne) {
  AddLetter("A");
  const auto second = AddLetter("A");
  second->Validated(true);
  EXPECT_FALSE(ValidateLetters());
  EXPECT_FALSE(second->Validated());
}

TEST_F(FiguresMarks, AreSetOnLettersThatAreTooMany) {
  const auto first = AddLetter("A");
  for (const char* letter : {"C", "G", "H", "J"}) AddLetter(letter);
  EXPECT_FALSE(ValidateLetters());
  EXPECT_TRUE(first->Validated());
}

TEST_F(FiguresMarks, AreSetOnBenefitsCarsAndFuelThatPass) {
  const auto car = AddCar("Skoda Octavia");
  car->FreeFuel()->Create(Date::FromParts(2025, 4, 6), Currency(6950));
  EXPECT_TRUE(validator.ValidateBenefits(employee, benefits));
  EXPECT_TRUE(car->FreeFuel()->Validated());
  EXPECT_TRUE(car->Validated());
  EXPECT_TRUE(benefits->Validated());
}

TEST_F(FiguresMarks, StayOffBenefitsWithOneBadCar) {
  const auto good = AddCar("Skoda Octavia");
  const auto bad = AddCar("");
  EXPECT_FALSE(validator.ValidateBenefits(employee, benefits));
  EXPECT_TRUE(good->Validated());
  EXPECT_FALSE(bad->Validated());
  EXPECT_FALSE(benefits->Validated());
}

TEST_F(FiguresMarks, StayOffACarWithBadFuel) {
  const auto car = AddCar("Skoda Octavia");
  car->FreeFuel()->Create(Date(), Currency(6950));
  EXPECT_FALSE(validator.ValidateBenefits(employee, benefits));
  EXPECT_FALSE(car->FreeFuel()->Validated());
  EXPECT_FALSE(car->Validated());
}

TEST_F(FiguresMarks, RecordsNameTheEmployeeButForAWalkThatBrokeOff) {
  AddLetter("O");
  EXPECT_FALSE(ValidateLetters());
  const auto employee_of = [this](Long index) {
    return std::dynamic_pointer_cast<clsEmployeeException>(validator.Errors()->Item(index))->Employee();
  };
  ASSERT_EQ(validator.ErrorCount(), 1);
  EXPECT_EQ(employee_of(1), employee);

  EXPECT_FALSE(validator.ValidateFiguresToDate(employee, nullptr, "12_A1"));
  ASSERT_EQ(validator.ErrorCount(), 2);
  EXPECT_EQ(employee_of(2), nullptr);
}

TEST_F(FiguresMarks, RulesFailWithoutARecordOnceTheLimitIsReached) {
  validator.MaxErrors(1);
  job->WkOrMonthNoDirectorAppt(55);
  EXPECT_FALSE(validator.ValidateDirectorWeekNumber(employee, job));
  EXPECT_FALSE(validator.ValidateDirectorsNIC(employee, job));
  EXPECT_EQ(validator.ErrorCount(), 1);
}

}  // namespace
}  // namespace zelnor::test
