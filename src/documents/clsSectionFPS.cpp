#include "zelnor/documents/clsSectionFPS.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsFinalSubmission.h"

namespace zelnor {

clsSectionFPS::clsSectionFPS() = default;
clsSectionFPS::~clsSectionFPS() = default;

void clsSectionFPS::Create(Ref<clsEmployerReferences> objEmployerReferences, const String& strTaxYear,
                           CollectionRef<clsEmployee> colEmployees, bool blnCompressed,
                           Ref<clsFinalSubmission> objFinalSubmission) {
  StoreReferences(std::move(objEmployerReferences));
  tax_year_ = strTaxYear;
  StoreEmployees(std::move(colEmployees));
  UseCompression(blnCompressed);
  final_submission_ = std::move(objFinalSubmission);
  validated_ = false;
}

bool clsSectionFPS::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, ClassName(), strXML); }

bool clsSectionFPS::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled(ClassName(), "Function CreateFromXML", [&] {
    ClearEmployees();
    final_submission_ = nullptr;
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (ReadCommonChild(child)) continue;
        const std::string_view name = child.BaseName();
        if (name == "RelatedTaxYear") tax_year_ = child.Text();
        if (name == "FinalSubmission") final_submission_ = NewFromXML<clsFinalSubmission>(child);
      }
      result = true;
    }
  });
  return result;
}

bool clsSectionFPS::Validated() const {
  return PaidSection::Validated() && AbsentOrValidated(final_submission_);
}

String clsSectionFPS::RootElementName() const { return "FullPaymentSubmission"; }
String clsSectionFPS::Class() const { return "HMRC-PAYE-RTI-FPS"; }
String clsSectionFPS::DefaultSchema() const { return "\\xsd\\FullPaymentSubmission-2026-v1-0.xsd"; }
String clsSectionFPS::ClassName() const { return "clsSectionFPS"; }

void clsSectionFPS::AddEmployee(const Ref<clsEmployee>& objEmployee) {
  Handled(ClassName(), "Sub AddEmployee", [&] { Append(objEmployee); });
}

Ref<clsFinalSubmission> clsSectionFPS::Final_Submission() { return MadeWhenAbsent(final_submission_); }
void clsSectionFPS::Final_Submission(Ref<clsFinalSubmission> value) {
  ClearValidated(value);
  final_submission_ = std::move(value);
}
bool clsSectionFPS::HasFinalSubmission() const { return final_submission_ != nullptr; }
void clsSectionFPS::KillFinalSubmissionInfo() { final_submission_ = nullptr; }

Long clsSectionFPS::MonthIdentifier() const { return month_identifier_; }
void clsSectionFPS::MonthIdentifier(Long value) { month_identifier_ = value; }
Long clsSectionFPS::WeekIdentifier() const { return week_identifier_; }
void clsSectionFPS::WeekIdentifier(Long value) { week_identifier_ = value; }

bool clsSectionFPS::MatchesIdentifiers(Long app_period_no) const {
  return PaidSection::MatchesIdentifiers(app_period_no) ||
         (month_identifier_ != 0 && app_period_no == month_identifier_) ||
         (week_identifier_ != 0 && app_period_no == week_identifier_);
}

void clsSectionFPS::GetTotalsForPeriod(Long lngPeriodNo, Long& lngTotalEmployeesPaid,
                                       Currency& curTotalTaxPaid, Currency& curTotalEmployersNI,
                                       Currency& curTotalEmployeesNI, Currency& curTotalStudentLoansPaid) {
  Handled(ClassName(), "Sub GetTotalsForPeriod", [&] {
    curTotalTaxPaid = curTotalEmployersNI = curTotalEmployeesNI = curTotalStudentLoansPaid = {};
    AddTotals([&](Long number) { return number == lngPeriodNo; },
              {lngTotalEmployeesPaid, curTotalTaxPaid, curTotalEmployersNI, curTotalEmployeesNI,
               curTotalStudentLoansPaid, curTotalStudentLoansPaid});
  });
}

void clsSectionFPS::GetCountsForPeriod(Long lngPeriodNo, Long& lngTotalEmployees, Long& lngNewEmployees,
                                       Long& lngCurrentEmployees, Long& lngLeaverEmployees,
                                       Long& lngPaidCount, Long& lngUnpaidCount) {
  Handled(ClassName(), "Sub GetCountsForPeriod", [&] {
    AddCounts([&](Long number) { return number == lngPeriodNo; },
              {lngTotalEmployees, lngNewEmployees, lngCurrentEmployees, lngLeaverEmployees, lngPaidCount,
               lngUnpaidCount});
  });
}

XmlNode clsSectionFPS::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled(ClassName(), "Function ToXML", [&] {
    Element out = Element::Single("FullPaymentSubmission", xmlParent);
    result = out.Node();
    WriteReferences(result);
    out.Text("RelatedTaxYear", tax_year_);
    WriteEmployees(result);
    if (final_submission_) {
      final_submission_->ToXML(result);
    } else {
      out.Remove("FinalSubmission");
    }
  });
  return result;
}

}  // namespace zelnor
