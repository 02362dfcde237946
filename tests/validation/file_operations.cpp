// The operations of the envelope's rules for the cases of tests/rules/.

#include "zelnor/envelope/clsGTMAuthentication.h"
#include "zelnor/envelope/clsGTMGovTalkDetails.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsGTMTargetDetails.h"
#include "zelnor/validation/vlsFileValidator.h"

#include "validation/rule_scene.h"

namespace zelnor::test {
namespace {

using File = vlsFileValidator;

/// A rule on the case's envelope, which is checked unless the case has the argument "unused"; with the
/// argument "absent" on none.
template <bool (File::*kRule)(const Ref<clsGovTalkMessage>&)>
struct EnvelopeRule : AddOperation<File> {
  explicit EnvelopeRule(const char* name)
      : AddOperation(name, [](File& validator, Scene& scene) {
          scene.message->UseValidation(!scene.Argument("unused", false));
          return (validator.*kRule)(scene.Argument("absent", false) ? nullptr : scene.message);
        }) {}
};

const EnvelopeRule<&File::ValidateFile> kFile("ValidateFile");
const EnvelopeRule<&File::ValidateHeader> kHeader("ValidateHeader");
const EnvelopeRule<&File::ValidateGovTalkDetails> kGovTalkDetails("ValidateGovTalkDetails");
const EnvelopeRule<&File::ValidateGTDKeys> kKeys("ValidateGTDKeys");
const EnvelopeRule<&File::ValidateMessageDetails> kMessageDetails("ValidateMessageDetails");
const EnvelopeRule<&File::ValidateSenderDetails> kSenderDetails("ValidateSenderDetails");
const EnvelopeRule<&File::ValidateSenderAuthentication> kAuthentication("ValidateSenderAuthentication");
const EnvelopeRule<&File::ValidateAuthenticationMethod> kMethod("ValidateAuthenticationMethod");
const EnvelopeRule<&File::ValidateGTDTargetDetails> kTargetDetails("ValidateGTDTargetDetails");
const EnvelopeRule<&File::ValidateMessageQualifier> kQualifier("ValidateMessageQualifier");
const EnvelopeRule<&File::ValidateMessageFunction> kFunction("ValidateMessageFunction");
const EnvelopeRule<&File::ValidateMessageCorrelationID> kCorrelationID("ValidateMessageCorrelationID");
const EnvelopeRule<&File::ValidateMessageTransformation> kTransformation("ValidateMessageTransformation");
const EnvelopeRule<&File::ValidateMessageTransactionID> kTransactionID("ValidateMessageTransactionID");
const EnvelopeRule<&File::ValidateMessageAuditID> kAuditID("ValidateMessageAuditID");
const EnvelopeRule<&File::ValidateSenderEmailAddress> kEmailAddress("ValidateSenderEmailAddress");
const EnvelopeRule<&File::ValidateEnvelopeVersion> kVersion("ValidateEnvelopeVersion");

const AddPreparation kMethodText("AuthenticationMethod", [](Scene& scene, const Json& value) {
  scene.message->Header_SenderDetails()->Authentication()->Item(1)->Method(value.get<String>());
});

/// Puts a record that isn't there among the organisations' and the authentication records.
const AddPreparation kNoRecord("AbsentAuthentication", [](Scene& scene, const Json&) {
  scene.message->Header_SenderDetails()->Authentication()->Add(nullptr);
});
const AddPreparation kNoKey("AbsentKey", [](Scene& scene, const Json&) {
  scene.message->GTMGovTalkDetails()->Keys()->Add(nullptr);
});

/// Marks records of the envelope as checked, by name.
const AddPreparation kChecked("ValidatedEnvelope", [](Scene& scene, const Json& names) {
  clsGovTalkMessage& message = *scene.message;
  for (const String name : names) {
    if (name == "message details") message.Header_MessageDetails()->Validated(true);
    if (name == "authentication") {
      message.Header_SenderDetails()->Authentication()->Item(1)->Validated(true);
    }
    if (name == "target details") message.GTMGovTalkDetails()->TargetDetails()->Validated(true);
  }
});

}  // namespace
}  // namespace zelnor::test
