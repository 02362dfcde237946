#include "zelnor/validation/validator.h"

#include "zelnor/common/record.h"
#include "zelnor/validation/clsException.h"
#include "zelnor/validation/pattern.h"

namespace zelnor {

bool Finding::Fail(std::string_view code, std::string_view title, std::string_view description) {
  return Fail(code, title, description, rule_.status);
}

bool Finding::Fail(std::string_view code, std::string_view title, std::string_view description,
                   Integer status) {
  passed_ = false;
  if (!raise_errors_) return false;
  const String source = Source();
  validator_.AddError(code, title, source, description, Field(), value, status, validator_.GetError(source));
  return false;
}

void Finding::At(String key, String field) {
  key_ = std::move(key);
  if (!field.empty()) field_ = std::move(field);
}

String Finding::Source() const {
  return Validator::Joined(prefix_, key_ ? std::string_view(*key_) : rule_.key);
}

// Stands in a catch block.
void Finding::ProcessingError() noexcept {
  passed_ = false;
  if (!raise_errors_) return;
  const RuntimeError error = CurrentError();
  Handled(validator_.ClassName(), "Sub AddError", [&] {
    if (validator_.LimitReached()) return validator_.RecordDropped();
    String text(rule_.description);
    if (text.empty()) {
      text = "An error occurred while attempting to validate ";
      if (rule_.what.empty()) {
        text.append("the ").append(Field()).append(rule_.ending);
      } else {
        text.append(rule_.what);
      }
      text.append(error.Description());
    }
    const std::string_view field = rule_.processing_field.empty() ? Field() : rule_.processing_field;
    validator_.AddProcessingError(
        validator_.FilledRecord(rule_.code, rule_.title, Source(), std::move(text), field, value, 3));
  });
}

Validator::Validator(const Kind& kind) : kind_(kind) {}

Validator::~Validator() = default;

XmlNode Validator::GetAsXML(const XmlNode& xmlParent) const {
  XmlNode result;
  Handled(kind_.class_name, "Function GetAsXML", [&] {
    const XmlNode parent = xmlParent ? xmlParent : XmlDocument().Node().AppendElement(kind_.root_name);
    GenerateXMLTree(*errors_, parent);
    result = parent;
  });
  return result;
}

void Validator::GenerateXMLTree(const Collection<Ref<ErrorRecord>>& colErrors,
                                const XmlNode& xmlParent) const {
  Handled(kind_.class_name, "Sub GenerateXMLTree", [&] {
    for (const Ref<ErrorRecord>& each : colErrors) {
      const ErrorRecord& error = Required(each);
      const Concerned concerned = ConcernedBy(error);
      Element out = Element::Appended("Error", xmlParent);
      out.Text("ErrorType", kind_.error_type);
      out.Text("Title", error.Title());
      out.Text("Code", error.Code());
      out.Text("Description", error.Description());
      out.Text("FieldName", error.FieldName());
      out.Text("FieldValue", error.FieldValue());
      out.Text("Employee", concerned.employee);
      out.Text("CompanyId", concerned.company_id);
      out.Text("EmployeeId", concerned.employee_id);
      out.Text("EmployeeName", concerned.employee_name);
      out.Text("EmployeeCode", concerned.employee_code);
      out.Text("Source", error.Source());
      out.Text("Status", SeverityText(error.Status()));
      const CollectionRef<ErrorRecord>& inner = error.InnerExceptions();
      if (inner && inner->Count() > 0) GenerateXMLTree(*inner, out.Child("InnerExceptions"));
    }
  });
}

bool Validator::ValidatePattern(std::string_view value, const Pattern& pattern) const {
  bool result = false;
  Handled(kind_.class_name, "Function ValidatePattern",
          [&] { result = pattern.Test(value, kind_.ignore_case); });
  return result;
}

Ref<ErrorRecord> Validator::GetError(const String& strKey) const {
  Ref<ErrorRecord> result;
  Handled(kind_.class_name, "Get Error", [&] {
    // The keys ignore the case of letters, so that what they don't know no Source is.
    if (!errors_->Contains(strKey)) return;
    result = errors_->Item(strKey);
    if (result->Source() == strKey) return;
    const auto found = std::find_if(errors_->begin(), errors_->end(),
                                    [&](const Ref<ErrorRecord>& each) { return each->Source() == strKey; });
    result = found == errors_->end() ? nullptr : *found;
  });
  return result;
}

// An error on the way into a collection goes on to the rule, whose processing error then tells of it.
void Validator::AddError(std::string_view code, std::string_view title, const String& source,
                         std::string_view description, std::string_view field, String value, Integer status,
                         const Ref<ErrorRecord>& parent) {
  if (LimitReached()) return RecordDropped();
  const Ref<ErrorRecord> record =
      FilledRecord(code, title, source, description, field, std::move(value), status);
  if (parent) return parent->AddInnerException(record);
  try {
    errors_->Add(record, source);
  } catch (...) {
    ReportError(CurrentError(), kind_.class_name, "Sub AddError");
    throw;
  }
}

// Goes in without a key where its Source, which may be the reason of the error, is taken.
void Validator::AddProcessingError(const Ref<ErrorRecord>& record) {
  const Ref<ErrorRecord> parent = GetError(record->Source());
  if (parent && !parent->InnerExceptions()) parent->InnerExceptions(MakeCollection<ErrorRecord>());
  Collection<Ref<ErrorRecord>>& records = parent ? *parent->InnerExceptions() : *errors_;
  records.Add(record, records.Contains(record->Source()) ? String() : record->Source());
}

Ref<ErrorRecord> Validator::FilledRecord(std::string_view code, std::string_view title, const String& source,
                                         std::string_view description, std::string_view field, String value,
                                         Integer status) const {
  Ref<ErrorRecord> record = NewRecord();
  record->Create(source, String(code), String(title), String(description), String(field), std::move(value),
                 status);
  return record;
}

Ref<ErrorRecord> Validator::NewRecord() const { return std::make_shared<clsException>(); }

Validator::Concerned Validator::ConcernedBy(const ErrorRecord& /*record*/) const { return {}; }

String Validator::Joined(std::string_view prefix, std::string_view word) {
  String result;
  result.reserve(prefix.size() + 1 + word.size());
  if (!prefix.empty()) result.append(prefix).append("_");
  return result.append(word);
}

Integer IntegerValidator::ErrorCount() const {
  Integer result = 0;
  Handled(ClassName(), "Get ErrorCount", [&] { result = ToInteger(Validator::ErrorCount()); });
  return result;
}

Long Validator::Percentage(Long done, Long total) {
  return total == 0 ? 0 : ToLong(static_cast<double>(done) / static_cast<double>(total) * 100.0);
}

}  // namespace zelnor
