#include "zelnor/documents/clsStarter.h"

#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

String LetterOf(STARTER_DECLARATION declaration) {
  switch (declaration) {
    case STARTER_DECLARATION::MyFirstJob:
      return "A";
    case STARTER_DECLARATION::MyOnlyCurrentJob:
      return "B";
    case STARTER_DECLARATION::HaveAnotherJobOrPension:
      return "C";
    default:
      return {};
  }
}

STARTER_DECLARATION DeclarationOf(std::string_view letter) {
  const String upper = UpperCase(letter);
  if (upper == "A") return STARTER_DECLARATION::MyFirstJob;
  if (upper == "B") return STARTER_DECLARATION::MyOnlyCurrentJob;
  if (upper == "C") return STARTER_DECLARATION::HaveAnotherJobOrPension;
  return STARTER_DECLARATION::Undefined;
}

}  // namespace

void clsStarter::Create(Date datStartDate, STARTER_DECLARATION enmStartDec, bool blnStudentLoan,
                        Ref<clsSeconded> objSeconded, Ref<clsOccPension> objOccPension,
                        Ref<clsStatePension> objStatePension, bool blnPostgradLoan) {
  start_date_ = datStartDate;
  starter_declaration_ = enmStartDec;
  student_loan_ = blnStudentLoan;
  postgrad_loan_ = blnPostgradLoan;
  seconded_ = std::move(objSeconded);
  occ_pension_ = std::move(objOccPension);
  state_pension_ = std::move(objStatePension);
  validated_ = false;
}

bool clsStarter::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsStarter", strXML); }

bool clsStarter::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsStarter", "Function CreateFromXML", [&] {
    // Without a declaration the employee counts as one with another job.
    Create({}, STARTER_DECLARATION::HaveAnotherJobOrPension);
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "StartDate") start_date_ = ToDate(child.Text());
        if (name == "StartDec") starter_declaration_ = DeclarationOf(child.Text());
        if (name == "StudentLoan") student_loan_ = true;
        if (name == "PostgradLoan") postgrad_loan_ = true;
        if (name == "Seconded") seconded_ = NewFromXML<clsSeconded>(child);
        if (name == "OccPension") occ_pension_ = NewFromXML<clsOccPension>(child);
        if (name == "StatePension") state_pension_ = NewFromXML<clsStatePension>(child);
      }
      result = true;
    }
  });
  return result;
}

bool clsStarter::Validated() const {
  return validated_ && AbsentOrValidated(seconded_) && AbsentOrValidated(occ_pension_) &&
         AbsentOrValidated(state_pension_);
}

String clsStarter::RootElementName() const { return "Starter"; }

Date clsStarter::StartDate() const { return start_date_; }
void clsStarter::StartDate(Date value) { Change(start_date_, value); }

STARTER_DECLARATION clsStarter::StarterDeclaration() const { return starter_declaration_; }
void clsStarter::StarterDeclaration(STARTER_DECLARATION value) { Change(starter_declaration_, value); }

bool clsStarter::StudentLoan() const { return student_loan_; }
void clsStarter::StudentLoan(bool value) { Change(student_loan_, value); }

bool clsStarter::PostgradLoan() const { return postgrad_loan_; }
void clsStarter::PostgradLoan(bool value) { Change(postgrad_loan_, value); }

Ref<clsSeconded> clsStarter::Seconded() { return MadeWhenAbsent(seconded_); }
void clsStarter::Seconded(Ref<clsSeconded> value) {
  seconded_ = std::move(value);
  ClearValidated(seconded_);
}

Ref<clsOccPension> clsStarter::OccPension() { return MadeWhenAbsent(occ_pension_); }
void clsStarter::OccPension(Ref<clsOccPension> value) {
  occ_pension_ = std::move(value);
  ClearValidated(occ_pension_);
}

Ref<clsStatePension> clsStarter::StatePension() { return MadeWhenAbsent(state_pension_); }
void clsStarter::StatePension(Ref<clsStatePension> value) {
  state_pension_ = std::move(value);
  ClearValidated(state_pension_);
}

bool clsStarter::IsSeconded() const { return seconded_ != nullptr; }
bool clsStarter::HasOccPension() const { return occ_pension_ != nullptr; }
bool clsStarter::HasStatePension() const { return state_pension_ != nullptr; }

XmlNode clsStarter::ToXML(const XmlNode& xmlParent) {
  static const Date kNoStart = Date::FromParts(1901, 1, 1);
  XmlNode result;
  Handled("clsStarter", "Function ToXML", [&] {
    Element out = Element::Emptied("Starter", xmlParent);
    result = out.Node();
    if (start_date_ > kNoStart) out.Day("StartDate", start_date_);
    out.OptionalText("StartDec", LetterOf(starter_declaration_));
    out.Yes("StudentLoan", student_loan_);
    out.Yes("PostgradLoan", postgrad_loan_);
    if (seconded_) seconded_->ToXML(result);
    if (occ_pension_) occ_pension_->ToXML(result);
    if (state_pension_) state_pension_->ToXML(result);
  });
  return result;
}

}  // namespace zelnor
