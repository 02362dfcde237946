#pragma once

/// @file
/// The frame that the validators share. A rule says where its value comes from and what it tests; the frame
/// has the rest: the key of the field, the record of a failure and its place, the limit, and the record of a
/// rule that could not run.
///
/// @code
/// bool vlsCompanyValidator::ValidateContactSurname(const Ref<clsSectionIRHeader>& objIRHeader,
///                                                  const String& strErrKey) {
///   static constexpr Rule kRule{.key = "ContactSurname", .field = "Contact Surname", .code = "E5.1.0"};
///   return Check(kRule, strErrKey, [&](Finding& found) {
///     const Ref<clsContact> contact = Required(objIRHeader).PrincipalContact();
///     const String& surname = found.value = contact->ContactName()->Surname();
///     if (surname.empty()) found.Fail("E5.1.1", "Mandatory", "Contact Surname must be present");
///   });
/// }
/// @endcode

#include "zelnor/platform/event.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/xml.h"
#include "zelnor/validation/error_record.h"

#include <optional>
#include <string_view>
#include <utility>

namespace zelnor {

class Pattern;

/// What a rule is called: by its failures, and by the record that is made when the rule itself fails.
struct Rule {
  std::string_view key;    ///< the word that the field's Source ends in
  std::string_view field;  ///< the field's display name
  std::string_view code;   ///< the code of the processing error, such as "E4.1.0"

  /// The processing error's text between "An error occurred while attempting to validate " and the error's
  /// description; empty for "the ", the field, and `ending`.
  std::string_view what = {};
  std::string_view ending = ". ";
  std::string_view title = "Processing Error";  ///< the processing error's
  std::string_view description = {};            ///< its whole text, where it tells nothing of the error
  std::string_view processing_field = {};       ///< its display name, where that differs from `field`
  Integer status = 3;                           ///< the severity of failures that name none
};

class Validator;

/// One run of a rule.
class Finding {
 public:
  Finding(const Finding&) = delete;
  Finding& operator=(const Finding&) = delete;

  /// The value that is tested, as text: what a record of this run shows. Rules with a value that takes time
  /// to write out set it before they fail.
  String value;

  /// Makes a record of a failure; the rule has failed from here on. Always False, for the mark of what was
  /// tested.
  ///@{
  bool Fail(std::string_view code, std::string_view title, std::string_view description);
  bool Fail(std::string_view code, std::string_view title, std::string_view description, Integer status);
  ///@}

  /// Makes the following records, that of a processing error among them, bear another key word and display
  /// name than the rule's. An empty name leaves the name.
  void At(String key, String field = {});

  /// Takes over the result of another rule that this one ends in or calls.
  void And(bool passed) { passed_ = passed_ && passed; }

  /// Whether nothing has failed so far.
  bool Passed() const { return passed_; }

 private:
  friend class Validator;
  Finding(Validator& validator, const Rule& rule, std::string_view prefix, bool raise_errors)
      : validator_(validator), rule_(rule), prefix_(prefix), raise_errors_(raise_errors) {}

  String Source() const;
  std::string_view Field() const { return field_.empty() ? rule_.field : std::string_view(field_); }
  void ProcessingError() noexcept;

  Validator& validator_;
  const Rule& rule_;
  std::string_view prefix_;
  std::optional<String> key_;
  String field_;
  bool raise_errors_;
  bool passed_ = true;
};

/// What the validators share: the records of failed rules, and their limit.
///
/// Rules never raise an error to their caller. A container, which calls several rules, calls them all and
/// marks the record that it has checked with the result.
class ZELNOR_API Validator {
 public:
  Validator(const Validator&) = delete;
  Validator& operator=(const Validator&) = delete;
  virtual ~Validator();

  /// The events of a validator.
  struct Events {
    Event<> MaxErrorsHit;     ///< the limit is reached
    Event<> ProgressChanged;  ///< Progress has a new value
  };
  Events events;

  /// How many records are kept; 0 for no limit. A negative value is stored as 0.
  ///@{
  Long MaxErrors() const { return max_errors_; }
  void MaxErrors(Long value) { max_errors_ = value < 0 ? 0 : value; }
  ///@}

  /// Always False: that the limit is reached is told by the event of the same name.
  bool MaxErrorsHit() const { return false; }

  /// Whether no record is held, of whatever severity.
  bool IsValid() const { return errors_->Count() == 0; }

  /// The number of records, inner exceptions not counted.
  Long ErrorCount() const { return errors_->Count(); }

  /// The records, in the order in which the rules failed, with their Source as key.
  const CollectionRef<ErrorRecord>& Errors() const { return errors_; }

  /// Appends the records as XML to a node and returns it; without a node, a new root element is made for
  /// them. A failure is shown in the host's message box.
  XmlNode GetAsXML(const XmlNode& xmlParent = nullptr) const;

 protected:
  /// By what a validator is told from the others.
  struct Kind {
    const char* class_name;  ///< by which failures are reported
    const char* root_name;   ///< of the XML of its records
    const char* error_type;  ///< of its records in XML
    bool ignore_case;        ///< whether its patterns ignore the case of letters
  };

  /// What the XML tells of whom a record concerns.
  struct Concerned {
    String employee = "N/A";
    String company_id = "N/A";
    String employee_id = "N/A";
    String employee_name = "N/A";
    String employee_code = "N/A";
  };

  explicit Validator(const Kind& kind);

  /// Runs a rule.
  ///
  /// @param prefix the path to the field; empty for none. "_" and the rule's key word follow it
  /// @param raise_errors whether failures make records; the result is the same
  /// @param body what reads and tests the value, called with a Finding
  /// @return whether nothing failed
  template <class Body>
  bool Check(const Rule& rule, std::string_view prefix, Body&& body, bool raise_errors = true) {
    Finding found(*this, rule, prefix, raise_errors);
    try {
      std::forward<Body>(body)(found);
    } catch (...) {
      found.ProcessingError();
    }
    return found.Passed();
  }

  /// Runs a rule whose own failure makes no record, but is shown in the host's message box, and gives False.
  ///
  /// @param location where it is said to have come about, such as "[ZELNOR.dll::cls]: Member"
  template <class Body>
  bool CheckAt(const String& location, const Rule& rule, std::string_view prefix, Body&& body) {
    Finding found(*this, rule, prefix, true);
    const bool ran = HandledAt(location, [&] { std::forward<Body>(body)(found); });
    return ran && found.Passed();
  }

  /// A prefix for the rules of a record: the prefix at hand, "_" behind it unless it is empty, and a word.
  static String Joined(std::string_view prefix, std::string_view word);

  /// Whether the pattern matches anywhere in the value. A failure is shown in the host's message box and
  /// gives False.
  bool ValidatePattern(std::string_view value, const Pattern& pattern) const;

  /// A failure that is not a rule's: the record goes the same way.
  void AddError(std::string_view code, std::string_view title, const String& source,
                std::string_view description, std::string_view field, String value, Integer status,
                const Ref<ErrorRecord>& parent);

  /// The first record of that Source in exactly this spelling; no object when there is none.
  Ref<ErrorRecord> GetError(const String& strKey) const;

  /// Drops all records.
  void ClearErrors() { errors_ = MakeCollection<ErrorRecord>(); }

  /// Whether `MaxErrors` is in force and that many records are held.
  bool LimitReached() const { return max_errors_ != 0 && errors_->Count() >= max_errors_; }

  /// Done as a percentage of the total, rounded; 0 of no total.
  static Long Percentage(Long done, Long total);

  const char* ClassName() const { return kind_.class_name; }

 private:
  friend class Finding;

  /// A new empty record, which knows whom the rule at hand concerns.
  virtual Ref<ErrorRecord> NewRecord() const;

  /// Whom a record concerns; "N/A" all over where it is the employer.
  virtual Concerned ConcernedBy(const ErrorRecord& record) const;

  /// Called when a record is dropped since the limit is reached.
  virtual void RecordDropped() {}

  Ref<ErrorRecord> FilledRecord(std::string_view code, std::string_view title, const String& source,
                                std::string_view description, std::string_view field, String value,
                                Integer status) const;
  void AddProcessingError(const Ref<ErrorRecord>& record);
  void GenerateXMLTree(const Collection<Ref<ErrorRecord>>& colErrors, const XmlNode& xmlParent) const;

  Kind kind_;
  CollectionRef<ErrorRecord> errors_ = MakeCollection<ErrorRecord>();
  Long max_errors_ = 0;
};

/// What the validators but that of the employees share: they count in Integers.
class ZELNOR_API IntegerValidator : public Validator {
 public:
  /// As Validator::MaxErrors.
  ///@{
  Integer MaxErrors() const { return static_cast<Integer>(Validator::MaxErrors()); }
  void MaxErrors(Integer value) { Validator::MaxErrors(value); }
  ///@}

  /// As Validator::ErrorCount; more than an Integer holds is shown in the host's message box as error 6, and
  /// gives 0.
  Integer ErrorCount() const;

 protected:
  using Validator::Validator;
};

}  // namespace zelnor
