// NI rows of an employment, and the question that a second row of one letter raises.

#include "zelnor/common/process_state.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsNILettersAndValues.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

using Row = clsNILettersAndValues;

constexpr Long kIgnore = 5;
constexpr Long kCombine = 8;
constexpr Long kReplace = 9;

const String kSource = "[ZELNOR.dll::clsEmployment]: AddNILettersAndValues \"";

/// With the check on and no answer remembered; afterwards the process is as it was.
class DuplicateNILetter : public testing::Test {
 protected:
  DuplicateNILetter() {
    Process().SystemDebugLevel = 1;
    Process().RememberedIssueResponse = -1;
    job.PayID("K-1");
  }
  ~DuplicateNILetter() override { Process() = before_; }

  /// A row with amounts that are told apart: 1 to 10, times `factor`.
  static Ref<Row> MakeRow(int factor, bool refund = false, const String& scon = {}) {
    const auto amount = [factor](int number) { return Currency(number * factor); };
    auto row = std::make_shared<Row>();
    row->Create("A", amount(1), amount(2), amount(3), amount(4), amount(5), amount(6), amount(7), amount(8),
                amount(9), amount(10), scon, refund);
    return row;
  }

  static void ExpectAmounts(const Row& row, int factor) {
    EXPECT_EQ(row.PaySubjectToNIC(), Currency(1 * factor));
    EXPECT_EQ(row.PaySubjectToNICYTD(), Currency(2 * factor));
    EXPECT_EQ(row.AtLEL(), Currency(3 * factor));
    EXPECT_EQ(row.LELtoPT(), Currency(4 * factor));
    EXPECT_EQ(row.PTtoUAP(), Currency(5 * factor));
    EXPECT_EQ(row.UAPtoUEL(), Currency(6 * factor));
    EXPECT_EQ(row.TotalEmpNIC(), Currency(7 * factor));
    EXPECT_EQ(row.TotalEmpNICYTD(), Currency(8 * factor));
    EXPECT_EQ(row.EmpeeContribns(), Currency(9 * factor));
    EXPECT_EQ(row.EmpeeContribnsYTD(), Currency(10 * factor));
  }

  WithRecordingHost host;
  clsEmployment job;

 private:
  ProcessState before_ = Process();
};

class BrokenHost : public DefaultHost {
 public:
  explicit BrokenHost(RuntimeError error) : error_(std::move(error)) {}
  DialogAnswer ShowDialog(const DialogRequest& /*request*/) override { throw error_; }

 private:
  RuntimeError error_;
};

}  // namespace

TEST_F(DuplicateNILetter, IsAddedWithoutAQuestionWhileTheCheckIsOff) {
  for (const Long level : {0, 2, -1}) {
    Process().SystemDebugLevel = level;
    clsEmployment other;
    const Ref<Row> first = MakeRow(1);
    const Ref<Row> second = MakeRow(2);
    EXPECT_EQ(other.AddNILettersAndValues(first), first);
    EXPECT_EQ(other.AddNILettersAndValues(second), second);
    EXPECT_EQ(other.NILettersAndValues()->Count(), 2);
    EXPECT_EQ(other.NILettersAndValues()->Item(2), second);
  }
  EXPECT_TRUE(host->dialogs.empty());
}

TEST_F(DuplicateNILetter, IsALetterOfTheSameCase) {
  job.AddNILettersAndValues(MakeRow(1));
  const Ref<Row> other = MakeRow(2);
  other->NILetter("a");
  EXPECT_EQ(job.AddNILettersAndValues(other), other);
  EXPECT_TRUE(host->dialogs.empty());
  EXPECT_EQ(job.NILettersAndValues()->Count(), 2);
}

TEST_F(DuplicateNILetter, IsAskedAboutByTheDialog) {
  job.AddNILettersAndValues(MakeRow(1));
  job.AddNILettersAndValues(MakeRow(2));
  ASSERT_EQ(host->dialogs.size(), 1U);
  EXPECT_EQ(host->dialogs[0].style, 38);
  EXPECT_EQ(host->dialogs[0].title, "ZELNOR");
  EXPECT_EQ(host->dialogs[0].style_ext, 1);
  EXPECT_EQ(host->dialogs[0].checkbox_text, "Do this for any further issues of this type");
}

TEST_F(DuplicateNILetter, IsReportedValueByValue) {
  job.AddNILettersAndValues(MakeRow(1, true, "S1"));
  job.AddNILettersAndValues(MakeRow(1000));
  ASSERT_EQ(host->dialogs.size(), 1U);
  EXPECT_EQ(host->dialogs[0].message,
            "NI Letter A already exists for employee K-1.\r\n"
            "\r\n"
            "Field               Current       Provided\r\n"
            "--------------------------------------------------\r\n"
            "At LEL              3.00          3000.00       \r\n"
            "LEL to PT           4.00          4000.00       \r\n"
            "PT to UAP           5.00          5000.00       \r\n"
            "UAP to UEL          6.00          6000.00       \r\n"
            "Empee Contribns TP  9.00          9000.00       \r\n"
            "Empee Contribns YTD 10.00         10000.00      \r\n"
            "NIC Refund          -1.00         0.00          \r\n"
            "Pay Subject To NIC  1.00          1000.00       \r\n"
            "Pay Subj To NIC YTD 2.00          2000.00       \r\n"
            "Total Empr NIC TP   7.00          7000.00       \r\n"
            "Total Empr NIC YTD  8.00          8000.00       \r\n"
            "SCON                S1                          \r\n"
            "\r\n"
            "Do you wish to combine the two values, replace the current values or skip and add the NI values "
            "anyway?\r\n");
}

TEST_F(DuplicateNILetter, IsReportedWithTheEmployeesName) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->EmployeeDetails()->CreateContact("Ms", "Petra", "Oakshott");
  const Ref<clsEmployment> own = employee->AddEmployment();
  own->PayID("K-1");
  own->AddNILettersAndValues(MakeRow(1));
  own->AddNILettersAndValues(MakeRow(2));
  ASSERT_EQ(host->dialogs.size(), 1U);
  EXPECT_TRUE(host->dialogs[0].message.starts_with(
      "NI Letter A already exists for employee K-1 Oakshott, Petra.\r\n\r\nField"));
}

TEST_F(DuplicateNILetter, IsAddedBesideTheOtherWhenIgnored) {
  host->answer = {kIgnore, false};
  const Ref<Row> held = job.AddNILettersAndValues(MakeRow(1));
  const Ref<Row> given = MakeRow(2);
  given->Validated(true);
  EXPECT_EQ(job.AddNILettersAndValues(given), given);
  EXPECT_FALSE(given->Validated());
  EXPECT_EQ(job.NILettersAndValues()->Count(), 2);
  ExpectAmounts(*held, 1);
}

TEST_F(DuplicateNILetter, IsAddedUpWhenCombined) {
  host->answer = {kCombine, false};
  const Ref<Row> held = job.AddNILettersAndValues(MakeRow(1));
  EXPECT_EQ(job.AddNILettersAndValues(MakeRow(10)), held);
  EXPECT_EQ(job.NILettersAndValues()->Count(), 1);
  ExpectAmounts(*held, 11);
}

TEST_F(DuplicateNILetter, LeavesTwoAmountsOfTheOtherAlone) {
  for (const Long answer : {kCombine, kReplace}) {
    host->answer = {answer, false};
    clsEmployment other;
    const Ref<Row> held = other.AddNILettersAndValues(MakeRow(1));
    held->PTtoUEL(21);
    held->GrossEarningsForNICs(22);
    const Ref<Row> given = MakeRow(10);
    given->PTtoUEL(31);
    given->GrossEarningsForNICs(32);
    EXPECT_EQ(other.AddNILettersAndValues(given), held);
    EXPECT_EQ(held->PTtoUEL(), Currency(21));
    EXPECT_EQ(held->GrossEarningsForNICs(), Currency(22));
  }
}

TEST_F(DuplicateNILetter, CombinesRefundsToTrueUnlessBothAreFalse) {
  host->answer = {kCombine, false};
  for (const bool held_refund : {false, true}) {
    for (const bool given_refund : {false, true}) {
      clsEmployment other;
      const Ref<Row> held = other.AddNILettersAndValues(MakeRow(1, held_refund));
      other.AddNILettersAndValues(MakeRow(1, given_refund));
      EXPECT_EQ(held->NICRefund(), held_refund || given_refund);
    }
  }
}

TEST_F(DuplicateNILetter, CombinesTheSCONIntoAnEmptyOne) {
  host->answer = {kCombine, false};
  const Ref<Row> held = job.AddNILettersAndValues(MakeRow(1));
  job.AddNILettersAndValues(MakeRow(1, false, "S1"));
  EXPECT_EQ(held->SCON(), "S1");
  job.AddNILettersAndValues(MakeRow(1, false, "S2"));
  EXPECT_EQ(held->SCON(), "S1");
  job.AddNILettersAndValues(MakeRow(1));
  EXPECT_EQ(held->SCON(), "S1");
}

TEST_F(DuplicateNILetter, OverwritesTheOtherWhenReplaced) {
  host->answer = {kReplace, false};
  const Ref<Row> held = job.AddNILettersAndValues(MakeRow(1, true, "S1"));
  EXPECT_EQ(job.AddNILettersAndValues(MakeRow(10)), held);
  EXPECT_EQ(job.NILettersAndValues()->Count(), 1);
  ExpectAmounts(*held, 10);
  EXPECT_FALSE(held->NICRefund());
  EXPECT_EQ(held->SCON(), "");
}

TEST_F(DuplicateNILetter, ChangesNothingWhenTheDialogIsClosed) {
  host->answer = {2, false};
  const Ref<Row> held = job.AddNILettersAndValues(MakeRow(1, true, "S1"));
  EXPECT_EQ(job.AddNILettersAndValues(MakeRow(10)), held);
  EXPECT_EQ(job.NILettersAndValues()->Count(), 1);
  ExpectAmounts(*held, 1);
  EXPECT_TRUE(held->NICRefund());
  EXPECT_EQ(held->SCON(), "S1");
}

TEST_F(DuplicateNILetter, MeetsTheFirstRowOfItsLetter) {
  host->answer = {kIgnore, false};
  const Ref<Row> first = job.AddNILettersAndValues(MakeRow(1));
  job.AddNILettersAndValues(MakeRow(2));
  host->answer = {kReplace, false};
  EXPECT_EQ(job.AddNILettersAndValues(MakeRow(10)), first);
  ExpectAmounts(*first, 10);
}

TEST_F(DuplicateNILetter, IsAnsweredByMemoryOnceTheCheckBoxWasTicked) {
  host->answer = {kReplace, true};
  const Ref<Row> held = job.AddNILettersAndValues(MakeRow(1));
  job.AddNILettersAndValues(MakeRow(2));
  EXPECT_EQ(Process().RememberedIssueResponse, kReplace);
  host->answer = {kIgnore, false};
  EXPECT_EQ(job.AddNILettersAndValues(MakeRow(3)), held);
  EXPECT_EQ(host->dialogs.size(), 1U);
  ExpectAmounts(*held, 3);
  Process().RememberedIssueResponse = -1;
  job.AddNILettersAndValues(MakeRow(4));
  EXPECT_EQ(host->dialogs.size(), 2U);
  EXPECT_EQ(Process().RememberedIssueResponse, -1);
}

TEST_F(DuplicateNILetter, PassesErrorsOnUnderItsName) {
  job.AddNILettersAndValues(MakeRow(1));
  const auto source_of = [&](const RuntimeError& raised, const std::function<void()>& body) {
    SetHost(std::make_shared<BrokenHost>(raised));
    try {
      body();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), raised.Number());
      EXPECT_EQ(error.Description(), raised.Description());
      return error.Source();
    }
    return String("nothing raised");
  };
  const auto add_row = [&] { job.AddNILettersAndValues(MakeRow(2)); };
  // The dialog has put its own name there already.
  EXPECT_EQ(source_of(RuntimeError(70), add_row), "[ZELNOR.dll::frmMsgBox2]: ShowMessageBox");
  EXPECT_EQ(source_of(RuntimeError(70, "[A]: B", "C"), add_row), "[A]: B");
  EXPECT_EQ(job.NILettersAndValues()->Count(), 1);
}

TEST_F(DuplicateNILetter, NamesItselfAsTheSourceOfItsOwnErrors) {
  host->answer = {kCombine, false};
  const Ref<Row> held = job.AddNILettersAndValues(MakeRow(1));
  held->AtLEL(Currency::FromUnits(INT64_MAX));
  const auto source_of = [](const std::function<void()>& body) {
    try {
      body();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), 6);
      return error.Source();
    }
    return String("nothing raised");
  };
  EXPECT_EQ(source_of([&] { job.AddNILettersAndValues(MakeRow(1)); }), kSource);
  EXPECT_EQ(source_of([&] { job.AddNILettersAndVals("A", 0, 0, 1, 0, 0, 0, 0, 0, 0, 0); }), kSource);
  EXPECT_TRUE(host->messages.empty());
}

TEST_F(DuplicateNILetter, IsFoundAmongRowsMadeOfAmounts) {
  host->answer = {kCombine, false};
  const Ref<Row> held = job.AddNILettersAndVals("A", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, "S1", 1);
  ExpectAmounts(*held, 1);
  EXPECT_EQ(held->NILetter(), "A");
  EXPECT_EQ(held->SCON(), "S1");
  EXPECT_TRUE(held->NICRefund());
  EXPECT_EQ(job.AddNILettersAndVals("A", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10), held);
  ExpectAmounts(*held, 2);
  EXPECT_EQ(host->dialogs.size(), 1U);
  const Ref<Row> other = job.AddNILettersAndVals("B", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10);
  EXPECT_NE(other, held);
  EXPECT_EQ(other->SCON(), "");
  EXPECT_FALSE(other->NICRefund());
  EXPECT_EQ(job.NILettersAndValues()->Count(), 2);
}

TEST_F(DuplicateNILetter, DoesNotMatterInAnEYU) {
  const Ref<Row> first = job.AddEYUNILettersAndVals("A", 3, 4, 5, 6, 7, 9, 0);
  const Ref<Row> second = job.AddEYUNILettersAndVals("A", 3, 4, 5, 6, 7, 9, 1);
  EXPECT_TRUE(host->dialogs.empty());
  ASSERT_EQ(job.NILettersAndValues()->Count(), 2);
  EXPECT_EQ(job.NILettersAndValues()->Item(1), first);
  EXPECT_EQ(job.NILettersAndValues()->Item(2), second);
  EXPECT_EQ(first->NILetter(), "A");
  EXPECT_EQ(first->AtLEL(), Currency(3));
  EXPECT_EQ(first->LELtoPT(), Currency(4));
  EXPECT_EQ(first->PTtoUAP(), Currency(5));
  EXPECT_EQ(first->UAPtoUEL(), Currency(6));
  EXPECT_EQ(first->TotalEmpNIC(), Currency(7));
  EXPECT_EQ(first->EmpeeContribns(), Currency(9));
  EXPECT_TRUE(first->PaySubjectToNIC().IsZero() && first->PaySubjectToNICYTD().IsZero() &&
              first->TotalEmpNICYTD().IsZero() && first->EmpeeContribnsYTD().IsZero());
  EXPECT_EQ(first->SCON(), "");
  EXPECT_FALSE(first->NICRefund());
  EXPECT_TRUE(second->NICRefund());
}

TEST_F(DuplicateNILetter, IsTheEmptyOneOfANewRow) {
  host->answer = {kReplace, false};
  const Ref<Row> held = job.AddNILettersAndValues();
  ASSERT_NE(held, nullptr);
  EXPECT_EQ(job.AddNILettersAndValues(), held);
  EXPECT_EQ(host->dialogs.size(), 1U);
}
