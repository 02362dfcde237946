#include "zelnor/cli/conversation.h"
#include "zelnor/cli/interrupt.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/clsEmployeeException.h"
#include "zelnor/validation/clsException.h"
#include "zelnor/validation/vlsEmployeeValidator.h"
#include "zelnor/validation/vlsSchemaValidator.h"

#include <algorithm>
#include <array>
#include <set>
#include <sstream>

namespace zelnor::cli {
namespace {

// A stage of a validation: by which percentages of the progress it is told that it begins and that it ended.
struct Stage {
  const char* name;
  const char* family;
  RTI_ERROR_TYPE type;
  Long begins;
  Long ends;
  bool ran = false;
  bool passed = true;
  std::int64_t tick = 0;
  std::int64_t milliseconds = 0;
};

using Stages = std::array<Stage, 5>;

Stages AllStages() {
  return {{{"envelope", "File", RTI_ERROR_TYPE::File, 1, 10},
           {"company", "Company", RTI_ERROR_TYPE::Company, 11, 20},
           {"employees", "Employee", RTI_ERROR_TYPE::Employee, 21, 75},
           {"payment", "PaymentForPeriod", RTI_ERROR_TYPE::PaymentForPeriod, 76, 89},
           {"schema", "FileSchema", RTI_ERROR_TYPE::FileSchema, 90, 99}}};
}

// The stages that were asked for, by name.
std::set<String> ChosenStages(const String& list) {
  std::set<String> chosen;
  const Stages stages = AllStages();
  if (list.empty()) {
    for (const Stage& stage : stages) chosen.insert(stage.name);
    return chosen;
  }
  std::istringstream names(list);
  for (std::string entry; std::getline(names, entry, ',');) {
    const String name(TrimXmlSpace(entry));
    if (std::none_of(stages.begin(), stages.end(), [&](const Stage& stage) { return name == stage.name; })) {
      throw CommandError(
          kWrongUsage,
          "--stages: \"" + name + "\" is none. Choose from envelope, company, employees, payment, schema.");
    }
    chosen.insert(name);
  }
  return chosen;
}

// An error in the shape of all formats.
Json ErrorJson(const char* family, const ErrorRecord& error) {
  Json employee = nullptr;
  if (const auto* record = dynamic_cast<const clsEmployeeException*>(&error); record && record->Employee()) {
    employee = record->Employee()->EmployeeKey();
  }
  Json inner = Json::array();
  if (const CollectionRef<ErrorRecord>& records = error.InnerExceptions()) {
    for (const Ref<ErrorRecord>& each : *records) inner.push_back(ErrorJson(family, Required(each)));
  }
  return {{"family", family},           {"code", error.Code()},
          {"title", error.Title()},     {"description", error.Description()},
          {"field", error.FieldName()}, {"value", error.FieldValue()},
          {"source", error.Source()},   {"severity", SeverityText(error.Status())},
          {"employee", employee},       {"inner", inner}};
}

// What a run found.
struct Findings {
  bool valid = false;
  bool cancelled = false;
  String type;
  Stages stages = AllStages();
  Long checked = 0;
  Long passed = 0;
  Long failed = 0;
  Json errors = Json::array();
  String log;
};

Json AsJson(const Findings& found) {
  Json stages = Json::array();
  for (const Stage& stage : found.stages) {
    stages.push_back({{"name", stage.name},
                      {"ran", stage.ran},
                      {"passed", stage.ran && stage.passed},
                      {"milliseconds", stage.milliseconds}});
  }
  return {{"valid", found.valid},
          {"cancelled", found.cancelled},
          {"type", found.type},
          {"stages", stages},
          {"employees", {{"checked", found.checked}, {"valid", found.passed}, {"invalid", found.failed}}},
          {"errors", found.errors},
          {"log", LogAsJson(found.log)}};
}

// Calls `body` with each error and its inner ones, with the depth.
void Walk(const Json& errors, int depth, const std::function<void(const Json&, int)>& body) {
  for (const Json& error : errors) {
    body(error, depth);
    Walk(error["inner"], depth + 1, body);
  }
}

String TextOf(const Json& value) { return value.is_null() ? String() : value.get<String>(); }

// The errors under whom and what they concern.
String AsText(const Findings& found) {
  String text;
  String employee;
  String field;
  Long count = 0;
  Walk(found.errors, 0, [&](const Json& error, int) {
    ++count;
    const String who =
        error["employee"].is_null() ? TextOf(error["family"]) : "Employee " + TextOf(error["employee"]);
    if (who != employee) {
      text += (text.empty() ? "" : "\n") + who + "\n";
      employee = who;
      field.clear();
    }
    if (TextOf(error["field"]) != field) {
      field = TextOf(error["field"]);
      text += "  " + field;
      if (!TextOf(error["value"]).empty()) text += ": \"" + TextOf(error["value"]) + "\"";
      text += "\n";
    }
    const String severity = TextOf(error["severity"]);
    text += "    " + TextOf(error["code"]) + "  " + TextOf(error["description"]) +
            (severity == "Critical" ? String() : " (" + severity + ")") + "\n";
  });
  String summary = found.cancelled ? "Cancelled before all was checked" : found.valid ? "Valid" : "Not valid";
  summary += ": " + found.type + ", " + ToText(count) + (count == 1 ? " error" : " errors");
  if (found.checked > 0) {
    summary += ", " + ToText(found.passed) + " of " + ToText(found.checked) + " employees without any";
  }
  return text + (text.empty() ? "" : "\n") + summary + "\nLog  " + (found.log.empty() ? kNoLog : found.log) +
         "\n";
}

String CsvField(const String& text) {
  // A leading "=", "+", "-" or "@" would be a formula to a spreadsheet.
  const bool formula = !text.empty() && String("=+-@").find(text.front()) != String::npos;
  return "\"" + String(formula ? "'" : "") + Replace(text, "\"", "\"\"") + "\"";
}

String AsCsv(const Findings& found) {
  constexpr std::array kColumns = {"family",      "employee", "field",    "code",  "title",
                                   "description", "value",    "severity", "source"};
  String text;
  for (const char* column : kColumns) text += (text.empty() ? "" : ",") + String(column);
  text += "\r\n";
  Walk(found.errors, 0, [&](const Json& error, int) {
    String line;
    for (const char* column : kColumns) line += (line.empty() ? "" : ",") + CsvField(TextOf(error[column]));
    text += line + "\r\n";
  });
  return text;
}

// A suite for each stage, with a case for each error, or one that passed.
String AsJunit(const Findings& found) {
  XmlDocument document;
  const XmlNode suites = document.AppendChild(document.CreateElement("testsuites"));
  suites.Attribute("name", "zelnor validate");
  for (const Stage& stage : found.stages) {
    if (!stage.ran) continue;
    const XmlNode suite = suites.AppendElement("testsuite");
    suite.Attribute("name", stage.name);
    Long failures = 0;
    Walk(found.errors, 0, [&](const Json& error, int) {
      if (TextOf(error["family"]) != stage.family) return;
      ++failures;
      const XmlNode test = suite.AppendElement("testcase");
      test.Attribute("classname",
                     error["employee"].is_null() ? String(stage.family) : TextOf(error["employee"]));
      const String rule(TrimXmlSpace(TextOf(error["field"]) + " " + TextOf(error["code"])));
      test.Attribute("name", rule.empty() ? TextOf(error["title"]) : rule);
      const XmlNode failure = test.AppendElement("failure");
      failure.Attribute("type", TextOf(error["severity"]));
      failure.Attribute("message", TextOf(error["title"]));
      failure.Text(TextOf(error["description"]) + "\n" + TextOf(error["value"]));
    });
    if (failures == 0) suite.AppendElement("testcase").Attribute("name", stage.name);
    suite.Attribute("tests", ToText(std::max<Long>(failures, 1)));
    suite.Attribute("failures", ToText(failures));
    suite.Attribute("time", Format(static_cast<double>(stage.milliseconds) / 1000.0, "0.000"));
  }
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + document.Xml() + "\n";
}

// Follows the stages by the percentages that they are told with.
void Follow(clsRTIController& rti, Findings& found, ProgressLine& line) {
  rti.events.ControllerStatus.connect([&](const String&, const String& detail, Long percent) {
    line.Show(detail + " " + ToText(percent) + "%");
    for (Stage& stage : found.stages) {
      if (percent == stage.begins) {
        stage.ran = true;
        stage.tick = CurrentHost()->Tick();
      } else if (percent == stage.ends) {
        stage.milliseconds = CurrentHost()->Tick() - stage.tick;
      }
    }
  });
}

// A bar that grows with the employees, drawn anew at each percent.
void FollowEmployees(clsRTIController& rti, ProgressLine& line) {
  rti.OnEmployeeProgress([&line, shown = Long{-1}](const vlsEmployeeValidator& validator) mutable {
    if (validator.Progress() == shown) return;
    shown = validator.Progress();
    constexpr std::size_t kWidth = 25;
    const std::size_t done = std::min(kWidth, kWidth * static_cast<std::size_t>(shown) / 100);
    line.Show("Employees [" + String(done, '#') + String(kWidth - done, '.') + "] " + ToText(shown) + "%, " +
              Format(validator.EmployeesChecked(), "#,##0") + " checked, " +
              Format(validator.InvalidEmployees(), "#,##0") + " with errors");
  });
}

void GatherErrors(clsRTIController& rti, Findings& found) {
  for (Stage& stage : found.stages) {
    if (!stage.ran) continue;
    const CollectionRef<ErrorRecord> errors = rti.ErrorCollection(static_cast<Long>(stage.type));
    if (!errors) continue;
    stage.passed = errors->Count() == 0;
    for (const Ref<ErrorRecord>& error : *errors)
      found.errors.push_back(ErrorJson(stage.family, Required(error)));
  }
}

// What was shown meanwhile, line by line.
String Joined(const std::deque<ShownMessage>& messages) {
  if (messages.empty()) return "The check ended early; the log tells more.";
  String text;
  for (const ShownMessage& message : messages) text += (text.empty() ? "" : "\n") + message.text;
  return text;
}

// A check that ends early leaves no record: the stage that ran last gets one.
void TellOfEnd(Findings& found, const String& title, const String& description) {
  const auto last =
      std::find_if(found.stages.rbegin(), found.stages.rend(), [](const Stage& stage) { return stage.ran; });
  if (last == found.stages.rend()) return;
  clsException error;
  error.Create("", "", title, description, "", "", 3);
  last->passed = false;
  found.errors.push_back(ErrorJson(last->family, error));
}

// `Validate` leaves the schema out when the envelope was; asked for by name, it is checked all the same.
void RunSchemaStage(clsRTIController& rti, Findings& found) {
  Stage& stage = found.stages.back();
  const std::int64_t start = CurrentHost()->Tick();
  vlsSchemaValidator validator;
  stage.ran = true;
  stage.passed = validator.ValidateSchema(rti.Submission()->Class(), rti.GovTalkMessage()->Document());
  stage.milliseconds = CurrentHost()->Tick() - start;
  if (validator.HasErrors()) found.errors.push_back(ErrorJson(stage.family, Required(validator.Exception())));
}

}  // namespace

int RunValidate(const CommonOptions& options, const ValidateOptions& validate) {
  const std::set<String> chosen = ChosenStages(validate.stages);
  const Date today = TodayOf(validate.today);
  const String format = !validate.format.empty() ? validate.format : options.json ? "json" : "text";
  if (options.json && format != "json") {
    throw CommandError(kWrongUsage, "--format " + format + " contradicts --json: leave one of them out.");
  }
  PrepareWritableHome(options);
  XmlDocument document = ReadMessage(validate.file);
  std::vector<std::unique_ptr<OwnSetting>> kept;
  for (const char* key : {"ValidationRequired", "ValidateEnvelope", "ValidateCompany", "ValidateEmployees",
                          "ValidatePayment", "ValidateSchema"}) {
    kept.push_back(std::make_unique<OwnSetting>(key));
  }
  clsRTIController rti;
  rti.ValidationRequired(true);
  rti.DoEnvelopeValidation(chosen.contains("envelope"));
  rti.DoCompanyValidation(chosen.contains("company"));
  rti.DoEmployeeValidation(chosen.contains("employees"));
  rti.DoPaymentValidation(chosen.contains("payment"));
  rti.DoSchemaValidation(chosen.contains("schema"));
  rti.MaxErrors(static_cast<Integer>(validate.max_errors));
  if (!validate.today.empty()) rti.SystemDate(today);
  LoadWholeDocument(rti, validate.file, std::move(document));
  ChooseForm(rti, validate.compress, validate.plain);

  Findings found;
  found.type = rti.GetAbbrClassDescr();
  const auto host = std::make_shared<ConversationHost>(rti, true);
  SetHost(host);
  ProgressLine line;
  Follow(rti, found, line);
  FollowEmployees(rti, line);
  const bool valid = rti.Validate();
  line.End();
  GatherErrors(rti, found);
  found.cancelled = host->Interrupted();
  const bool has_envelope = chosen.contains("envelope");  // without it, `Validate` gives False
  if (!has_envelope && !found.cancelled && chosen.contains("schema") && !found.stages.back().ran)
    RunSchemaStage(rti, found);
  const bool broke_off = has_envelope ? !valid : !host->Messages().empty();
  if (found.cancelled) {
    TellOfEnd(found, "Cancelled", "The check was cancelled before all was checked.");
  } else if (broke_off && found.errors.empty()) {
    TellOfEnd(found, "The check broke off", Joined(host->Messages()));
  }
  SetHost(nullptr);
  found.valid =
      !found.cancelled && std::all_of(found.stages.begin(), found.stages.end(),
                                      [](const Stage& stage) { return !stage.ran || stage.passed; });
  found.checked = rti.EmployeeValidator()->EmployeesChecked();
  found.passed = rti.EmployeeValidator()->ValidEmployees();
  found.failed = rti.EmployeeValidator()->InvalidEmployees();
  found.log = WrittenLog(*rti.ProcessingLog());
  if (format == "json") {
    CommonOptions as_json = options;
    as_json.json = true;
    Print(as_json, AsJson(found), {});
  } else {
    Print({}, {}, format == "csv" ? AsCsv(found) : format == "junit" ? AsJunit(found) : AsText(found));
  }
  if (found.cancelled) {
    ObeySignal();
    return kCancelledSend;
  }
  return found.valid ? kSuccessful : kFailedValidation;
}

}  // namespace zelnor::cli
