#pragma once

/// @file
/// What the cases of tests/rules/ work on, and the tables by which they name operations and preparations.
///
/// A file of cases:
///
/// @code{.json}
/// {
///   "base": "FPS",                      // tests/rules/base/FPS.xml; the root is IRenvelope or
///   GovTalkMessage "operation": "ValidateCompany",     // what runs, from the table of operations "today":
///   "2025-06-20",              // the computer's date "cases": [
///     {
///       "name": "SurnameIsMissing",
///       "edit": [{"remove": "//Contact/Name/Sur"}],
///       "errors": [{"code": "E5.1.1", "source": "Company_ContactSurname", "title": "Mandatory",
///                   "message": "Contact Surname must be present", "field": "Contact Surname",
///                   "value": "", "status": 3}]
///     }
///   ]
/// }
/// @endcode
///
/// All members above may stand in the file and, going before it, in a case. In a case there may also be:
///
/// - "edit": changes of the base, in order, each at the first node of an XPath over names without namespace:
///   {"set": path, "to": text} the text of an element or attribute; {"remove": path}, which takes all nodes
///   of the path; {"copy": path} a second one behind it; {"add": xml, "to": path} as the last child,
///   {"add": xml, "before": path}.
/// - "prepare": {"name": value, ...} what no document can carry, from the table of preparations, in order.
/// - "arguments": {...} for operations that take more than the document; "" as "prefix" where they use it.
/// - "max_errors": the limit; "runs": how often the operation runs on one validator, 1 unless said.
/// - "passes": the result; unless said, whether "errors" is empty.
/// - "errors": the records in order, without it none. "field", "value", "title" and "status" need not be
///   said; "inner" holds the inner records, none unless said. "message_begins" may stand for "message".
/// - "boxes": the texts of the message boxes in order, none unless said.
/// - "why": a remark.

#include "zelnor/common/process_state.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/validation/validator.h"

#include <functional>
#include <map>

#include <nlohmann/json.hpp>

namespace zelnor::test {

using Json = nlohmann::ordered_json;

/// The document of a case, and its arguments.
struct Scene {
  Ref<clsGovTalkMessage> message;  ///< no object where the base is an IRenvelope
  Ref<clsSubmission> submission;
  Json arguments;

  /// An argument, or a default where the case doesn't give it.
  template <class T>
  T Argument(const char* name, T otherwise) const {
    return arguments.contains(name) ? arguments.at(name).get<T>() : otherwise;
  }
  String Prefix() const { return Argument<String>("prefix", ""); }
};

/// An operation under a name.
struct RuleOperation {
  std::function<Ref<Validator>()> new_validator;
  std::function<bool(Validator& validator, Scene& scene)> run;
};

/// The table of operations, into which each validator's file of this folder puts its own.
inline std::map<String, RuleOperation>& RuleOperations() {
  static std::map<String, RuleOperation> operations;
  return operations;
}

/// The table of preparations, likewise.
using Preparation = std::function<void(Scene& scene, const Json& value)>;
inline std::map<String, Preparation>& Preparations() {
  static std::map<String, Preparation> preparations;
  return preparations;
}

/// Puts an operation in the table; stands as a constant at file level:
///
/// @code
/// const AddOperation<vlsCompanyValidator> kSurname(
///     "ValidateContactSurname", [](vlsCompanyValidator& validator, Scene& scene) {
///       return validator.ValidateContactSurname(scene.submission->Header(), scene.Prefix());
///     });
/// @endcode
template <class ValidatorClass>
struct AddOperation {
  template <class Run>
  AddOperation(const char* name, Run run) {
    RuleOperations()[name] = {[] { return std::make_shared<ValidatorClass>(); },
                              [run](Validator& validator, Scene& scene) -> bool {
                                return run(dynamic_cast<ValidatorClass&>(validator), scene);
                              }};
  }
};

/// Puts a preparation in the table.
struct AddPreparation {
  AddPreparation(const char* name, Preparation prepare) { Preparations()[name] = std::move(prepare); }
};

}  // namespace zelnor::test
