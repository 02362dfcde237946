#include "zelnor/cli/command.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/platform/formats.h"

#include <optional>

#include <fmt/format.h>

namespace zelnor::cli {
namespace {

// What a document's section tells; nothing where its kind has no such figure.
struct Facts {
  Ref<clsEmployerReferences> references;
  std::optional<String> tax_year;
  std::optional<Long> employees;
  Ref<PaidSection> paid;
};

Facts FactsOf(clsSubmission& submission) {
  Facts facts;
  if (const auto fps = submission.FPS()) {
    facts = {fps->Employer_References(), fps->TaxYear(), fps->EmployeeCount(), fps};
  } else if (const auto eyu = submission.EYU()) {
    facts = {eyu->Employer_References(), eyu->TaxYear(), eyu->EmployeeCount(), eyu};
  } else if (const auto eas = submission.EAS()) {
    facts = {eas->Employer_References(), std::nullopt, eas->EmployeeCount(), nullptr};
  } else if (const auto nvr = submission.NVR()) {
    facts = {nvr->Employer_References(), std::nullopt, nvr->EmployeeCount(), nullptr};
  } else if (const auto eps = submission.EPS()) {
    facts = {eps->Employer_References(), eps->TaxYear(), std::nullopt, nullptr};
  }
  return facts;
}

template <class T>
Json OrNull(const std::optional<T>& value) {
  return value ? Json(*value) : Json();
}

Json EmployerJson(const Facts& facts) {
  if (!facts.references) return {{"office", nullptr}, {"paye_ref", nullptr}, {"ao_ref", nullptr}};
  return {{"office", facts.references->OfficeNo()},
          {"paye_ref", facts.references->PayeRef()},
          {"ao_ref", facts.references->AORef()}};
}

Json TotalsJson(const Facts& facts) {
  Json totals = {{"employees_paid", nullptr}, {"tax", nullptr},          {"employers_ni", nullptr},
                 {"employees_ni", nullptr},   {"student_loan", nullptr}, {"postgrad_loan", nullptr}};
  if (!facts.paid) return totals;
  totals["employees_paid"] = facts.paid->TotalEmployeesPaid();
  totals["tax"] = Format(facts.paid->TotalTaxPaid(), "0.00");
  totals["employers_ni"] = Format(facts.paid->TotalEmployersNI(), "0.00");
  totals["employees_ni"] = Format(facts.paid->TotalEmployeesNI(), "0.00");
  totals["student_loan"] = Format(facts.paid->TotalStudentLoan(), "0.00");
  totals["postgrad_loan"] = Format(facts.paid->TotalPostgradLoan(), "0.00");
  return totals;
}

String Line(const char* label, const Json& value) {
  if (value.is_null()) return {};
  return fmt::format("{:<22}{}\n", label, value.is_string() ? value.get<String>() : value.dump());
}

// One line for each figure that the document has.
String People(const String& description, const Json& json) {
  const Json& totals = json["totals"];
  String text = Line("Document", description + " (" + json["type"].get<String>() + ")");
  text += Line("Class", json["class"]);
  text += Line("Tax year", json["tax_year"]);
  text += Line("Tax office", json["employer"]["office"]);
  text += Line("PAYE reference", json["employer"]["paye_ref"]);
  text += Line("Accounts office", json["employer"]["ao_ref"]);
  text += Line("Employees", json["employees"]);
  text += Line("Employees paid", totals["employees_paid"]);
  text += Line("Tax", totals["tax"]);
  text += Line("Employer's NI", totals["employers_ni"]);
  text += Line("Employees' NI", totals["employees_ni"]);
  text += Line("Student loans", totals["student_loan"]);
  text += Line("Postgraduate loans", totals["postgrad_loan"]);
  const String mark = json["irmark"];
  return text + Line("IRmark", mark.empty() ? "none" : mark);
}

// A message without a document shows as one of no employees.
bool HasDocument(const XmlDocument& message) {
  for (const XmlNode& child : message.DocumentElement().ChildNodes()) {
    if (child.BaseName() != "Body") continue;
    for (const XmlNode& document : child.ChildNodes())
      if (document.IsElement()) return true;
  }
  return false;
}

}  // namespace

int RunShow(const CommonOptions& options, const String& file) {
  PrepareHome(options);
  clsRTIController rti;
  rti.LogThisSession(false);
  const XmlDocument document = ReadMessage(file);
  if (!HasDocument(document)) Tell("The message holds no document: its Body is missing or empty.");
  const String unread = ReadInto(rti, file, document);
  if (!unread.empty()) Tell(unread + "\nThe figures are those of the rest.");
  const Ref<clsSubmission> submission = rti.Submission();
  const Facts facts = FactsOf(*submission);
  const Ref<clsSectionIRHeader> header = submission->Header();
  Json json;
  json["type"] = rti.GetAbbrClassDescr();
  json["class"] = submission->Class();
  json["tax_year"] = OrNull(facts.tax_year);
  json["employer"] = EmployerJson(facts);
  json["employees"] = OrNull(facts.employees);
  json["totals"] = TotalsJson(facts);
  json["irmark"] = header->HasDocIRMarkValue() ? header->DocIRMark()->value() : String();
  Print(options, json, People(rti.GetQuickClassDescr(), json));
  return kSuccessful;
}

}  // namespace zelnor::cli
