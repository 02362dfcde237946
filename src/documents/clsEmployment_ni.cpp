// The NI rows of an employment, and the question that a second row of one letter raises.

#include "zelnor/common/frmMsgBox2.h"
#include "zelnor/common/process_state.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsNILettersAndValues.h"

namespace zelnor {
namespace {

constexpr Long kNoAnswer = -1;
constexpr Long kIgnore = 5;
constexpr Long kCombine = 8;
constexpr Long kReplace = 9;

// The question icon with the buttons Combine, Replace and Ignore.
constexpr Long kQuestionStyle = 38;
constexpr Long kWithCheckBox = 1;

constexpr std::string_view kSource = "[ZELNOR.dll::clsEmployment]: AddNILettersAndValues \"";

constexpr std::string_view kLineEnd = "\r\n";
constexpr Integer kColumnWidth = 14;

using Row = clsNILettersAndValues;

// One amount of a row, to be read and written.
struct Amount {
  std::string_view label;
  Currency (Row::*get)() const;
  void (Row::*set)(Currency);
};

constexpr Amount kAmountsBeforeRefund[] = {
    {"At LEL              ", &Row::AtLEL, &Row::AtLEL},
    {"LEL to PT           ", &Row::LELtoPT, &Row::LELtoPT},
    {"PT to UAP           ", &Row::PTtoUAP, &Row::PTtoUAP},
    {"UAP to UEL          ", &Row::UAPtoUEL, &Row::UAPtoUEL},
    {"Empee Contribns TP  ", &Row::EmpeeContribns, &Row::EmpeeContribns},
    {"Empee Contribns YTD ", &Row::EmpeeContribnsYTD, &Row::EmpeeContribnsYTD},
};

constexpr Amount kAmountsBehindRefund[] = {
    {"Pay Subject To NIC  ", &Row::PaySubjectToNIC, &Row::PaySubjectToNIC},
    {"Pay Subj To NIC YTD ", &Row::PaySubjectToNICYTD, &Row::PaySubjectToNICYTD},
    {"Total Empr NIC TP   ", &Row::TotalEmpNIC, &Row::TotalEmpNIC},
    {"Total Empr NIC YTD  ", &Row::TotalEmpNICYTD, &Row::TotalEmpNICYTD},
};

template <class Action>
void ForEachAmount(const Action& action) {
  for (const Amount& each : kAmountsBeforeRefund) action(each);
  for (const Amount& each : kAmountsBehindRefund) action(each);
}

void Combine(Row& held, const Row& given) {
  ForEachAmount([&](const Amount& each) { (held.*each.set)((held.*each.get)() + (given.*each.get)()); });
  held.NICRefund(held.NICRefund() || given.NICRefund());
  if (held.SCON().empty() && !given.SCON().empty()) held.SCON(given.SCON());
}

void Overwrite(Row& held, const Row& given) {
  ForEachAmount([&](const Amount& each) { (held.*each.set)((given.*each.get)()); });
  held.NICRefund(given.NICRefund());
  held.SCON(given.SCON());
}

String Line(std::string_view label, const String& held, const String& given) {
  String line(label);
  line += PadRight(held, kColumnWidth, " ");
  line += PadRight(given, kColumnWidth, " ");
  line += kLineEnd;
  return line;
}

String Line(const Amount& amount, const Row& held, const Row& given) {
  return Line(amount.label, Format((held.*amount.get)(), "0.00"), Format((given.*amount.get)(), "0.00"));
}

// A flag is shown as its stored number, which is -1 when set.
String FlagText(bool value) { return Format(value ? -1 : 0, "0.00"); }

}  // namespace

Ref<clsNILettersAndValues> clsEmployment::AddNILettersAndValues(
    Ref<clsNILettersAndValues> objNILettersAndValues) {
  Ref<clsNILettersAndValues> result;
  PassedOn(kSource, [&] {
    const Ref<clsNILettersAndValues>& given = MadeWhenAbsent(objNILettersAndValues);
    const Ref<clsNILettersAndValues> held = DuplicateOf(*given);
    const Long answer = held ? AnswerToDuplicate(*held, *given) : kIgnore;
    if (answer == kIgnore) {
      given->Validated(false);
      NILettersAndValues()->Add(given);
      result = given;
      return;
    }
    if (answer == kCombine) Combine(*held, *given);
    if (answer == kReplace) Overwrite(*held, *given);
    result = held;
  });
  return result;
}

Ref<clsNILettersAndValues> clsEmployment::AddNILettersAndVals(
    const String& strNILetter, Currency curPaySubjectToNIC, Currency curPaySubjectToNICYTD, Currency curAtLEL,
    Currency curLELtoPT, Currency curPTtoUAP, Currency curUAPtoUEL, Currency curTotalEmpNIC,
    Currency curTotalEmpNICYTD, Currency curEmpeeCtbns, Currency curEmpeeCtbnsYTD, const String& strSCON,
    Currency curNICRefund) {
  Ref<clsNILettersAndValues> result;
  PassedOn(kSource, [&] {
    auto row = std::make_shared<clsNILettersAndValues>();
    row->Create(strNILetter, curPaySubjectToNIC, curPaySubjectToNICYTD, curAtLEL, curLELtoPT, curPTtoUAP,
                curUAPtoUEL, curTotalEmpNIC, curTotalEmpNICYTD, curEmpeeCtbns, curEmpeeCtbnsYTD, strSCON,
                !curNICRefund.IsZero());
    result = AddNILettersAndValues(std::move(row));
  });
  return result;
}

Ref<clsNILettersAndValues> clsEmployment::AddEYUNILettersAndVals(
    const String& strNILetter, Currency curAtLEL, Currency curLELtoPT, Currency curPTtoUAP,
    Currency curUAPtoUEL, Currency curTotalEmpNIC, Currency curEmpeeCtbns, Currency curNICRefund) {
  Ref<clsNILettersAndValues> result;
  Handled("clsEmployment", "Function AddEYUNILettersAndVals", [&] {
    auto row = std::make_shared<clsNILettersAndValues>();
    row->Create(strNILetter, {}, {}, curAtLEL, curLELtoPT, curPTtoUAP, curUAPtoUEL, curTotalEmpNIC, {},
                curEmpeeCtbns, {}, {}, !curNICRefund.IsZero());
    NILettersAndValues()->Add(row);
    result = std::move(row);
  });
  return result;
}

Ref<clsNILettersAndValues> clsEmployment::DuplicateOf(const clsNILettersAndValues& given) const {
  if (Process().SystemDebugLevel != 1 || !ni_letters_and_values_) return nullptr;
  for (const Ref<clsNILettersAndValues>& row : *ni_letters_and_values_) {
    if (Required(row).NILetter() == given.NILetter()) return row;
  }
  return nullptr;
}

Long clsEmployment::AnswerToDuplicate(const clsNILettersAndValues& held,
                                      const clsNILettersAndValues& given) const {
  Long& remembered = Process().RememberedIssueResponse;
  if (remembered != kNoAnswer) return remembered;
  frmMsgBox2 question;
  const Long answer = question.ShowMessageBox(DuplicateReport(held, given), kQuestionStyle, "ZELNOR",
                                              kWithCheckBox, "Do this for any further issues of this type");
  if (question.DontShowAgain()) remembered = answer;
  return answer;
}

String clsEmployment::DuplicateReport(const clsNILettersAndValues& held,
                                      const clsNILettersAndValues& given) const {
  String report = "NI Letter " + given.NILetter() + " already exists for employee " + pay_id_;
  if (const Ref<clsEmployee> parent = Parent()) {
    const Ref<clsEmployeeNameType> name = parent->EmployeeDetails()->Contact();
    report += " " + name->Surname() + ", " + name->Forename();
  }
  report += ".";
  report += kLineEnd;
  report += kLineEnd;
  report += "Field               Current       Provided";
  report += kLineEnd;
  report += "--------------------------------------------------";
  report += kLineEnd;
  for (const Amount& each : kAmountsBeforeRefund) report += Line(each, held, given);
  report += Line("NIC Refund          ", FlagText(held.NICRefund()), FlagText(given.NICRefund()));
  for (const Amount& each : kAmountsBehindRefund) report += Line(each, held, given);
  report += Line("SCON                ", held.SCON(), given.SCON());
  report += kLineEnd;
  report +=
      "Do you wish to combine the two values, replace the current values or skip and add the NI values "
      "anyway?";
  report += kLineEnd;
  return report;
}

}  // namespace zelnor
