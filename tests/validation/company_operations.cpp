// The operations of the employer's rules for the cases of tests/rules/.

#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/validation/vlsCompanyValidator.h"

#include "validation/rule_scene.h"

namespace zelnor::test {
namespace {

const AddOperation<vlsCompanyValidator> kContactSurname(
    "ValidateContactSurname", [](vlsCompanyValidator& validator, Scene& scene) {
      return validator.ValidateContactSurname(
          scene.Argument("absent", false) ? nullptr : scene.submission->Header(), scene.Prefix());
    });

}  // namespace
}  // namespace zelnor::test
