#include "zelnor/validation/vlsFileValidator.h"

#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMAuthentication.h"
#include "zelnor/envelope/clsGTMGovTalkDetails.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsGTMTargetDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsKey.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/email_address.h"
#include "zelnor/validation/pattern.h"

#include <algorithm>
#include <initializer_list>

namespace zelnor {
namespace {

constexpr std::string_view kClass = "vlsFileValidator";
constexpr const char* kUnknown = "Unknown Error";

// Without anchors, and so met by any text: what bites is the length.
const Pattern kID("[0-9A-F]{0,32}");

bool IsOneOf(const String& text, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), UpperCase(text)) != words.end();
}

clsGTMMessageDetails& MessageDetailsOf(const Ref<clsGovTalkMessage>& message) {
  return Required(Required(message).Header_MessageDetails());
}

clsGTMSenderDetails& SenderDetailsOf(const Ref<clsGovTalkMessage>& message) {
  return Required(Required(message).Header_SenderDetails());
}

clsGTMGovTalkDetails& GovTalkDetailsOf(const Ref<clsGovTalkMessage>& message) {
  return Required(Required(message).GTMGovTalkDetails());
}

}  // namespace

bool vlsFileValidator::ValidateFile(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  bool result = false;
  Handled(kClass, "Function ValidateFile", [&] {
    clsGovTalkMessage& message = Required(objGovTalkMessage);
    bool passed = true;
    if (!message.Validated()) {
      passed &= ValidateEnvelopeVersion(objGovTalkMessage);
      passed &= ValidateHeader(objGovTalkMessage);
      passed &= ValidateGovTalkDetails(objGovTalkMessage);
      message.Validated(passed);
    }
    result = passed;
  });
  return result;
}

bool vlsFileValidator::ValidateHeader(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  bool result = false;
  Handled(kClass, "Function ValidateHeader", [&] {
    Required(objGovTalkMessage);
    bool passed = ValidateMessageDetails(objGovTalkMessage);
    passed &= ValidateSenderDetails(objGovTalkMessage);
    result = passed;
  });
  return result;
}

bool vlsFileValidator::ValidateGovTalkDetails(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  bool result = false;
  Handled(kClass, "Function ValidateGovTalkDetails", [&] {
    clsGTMGovTalkDetails& details = GovTalkDetailsOf(objGovTalkMessage);
    bool passed = true;
    if (!details.Validated()) {
      passed &= ValidateGTDKeys(objGovTalkMessage);
      passed &= ValidateGTDTargetDetails(objGovTalkMessage);
      details.Validated(passed);
    }
    result = passed;
  });
  return result;
}

bool vlsFileValidator::ValidateMessageDetails(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  bool result = false;
  Handled(kClass, "Function ValidateMessageDetails", [&] {
    clsGTMMessageDetails& details = MessageDetailsOf(objGovTalkMessage);
    bool passed = true;
    if (!details.Validated()) {
      passed &= ValidateMessageQualifier(objGovTalkMessage);
      passed &= ValidateMessageFunction(objGovTalkMessage);
      passed &= ValidateMessageCorrelationID(objGovTalkMessage);
      passed &= ValidateMessageTransformation(objGovTalkMessage);
      passed &= ValidateMessageTransactionID(objGovTalkMessage);
      passed &= ValidateMessageAuditID(objGovTalkMessage);
      details.Validated(passed);
    }
    result = passed;
  });
  return result;
}

bool vlsFileValidator::ValidateSenderDetails(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  bool result = false;
  Handled(kClass, "Function ValidateSenderDetails", [&] {
    clsGTMSenderDetails& details = SenderDetailsOf(objGovTalkMessage);
    bool passed = true;
    if (!details.Validated()) {
      passed &= ValidateSenderEmailAddress(objGovTalkMessage);
      passed &= ValidateSenderAuthentication(objGovTalkMessage);
      details.Validated(passed);
    }
    result = passed;
  });
  return result;
}

bool vlsFileValidator::ValidateSenderAuthentication(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  bool result = false;
  Handled(kClass, "Function ValidateSenderAuthentication", [&] {
    Required(objGovTalkMessage);
    result = ValidateAuthenticationMethod(objGovTalkMessage);
  });
  return result;
}

bool vlsFileValidator::ValidateEnvelopeVersion(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{
      .key = "EnvVersion", .field = "Envelope Version", .code = "F1.0.0", .title = kUnknown};
  return Check(kRule, "", [&](Finding& found) {
    found.value = Required(objGovTalkMessage).GTMEnvelopeVersion();
    if (found.value.empty()) found.Fail("F1.0.1", "Mandatory", "Envelope Version must be set.");
  });
}

bool vlsFileValidator::ValidateMessageQualifier(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{.key = "MsgQualifier",
                              .field = "Qualifier",
                              .code = "F2.0.0",
                              .what = "the Message Details Qualifier. ",
                              .title = kUnknown};
  return Check(kRule, "", [&](Finding& found) {
    const String& qualifier = found.value = MessageDetailsOf(objGovTalkMessage).Qualifier();
    if (qualifier.empty()) found.Fail("F2.0.1", "Mandatory", "Message Details Qualifier must be set.");
    if (!IsOneOf(qualifier, {"REQUEST", "ACKNOWLEDGEMENT", "RESPONSE", "POLL", "ERROR"})) {
      found.Fail("F2.0.2", "Invalid Value",
                 "Message Details Qualifier must be one of reqest, acknowledgement, response, poll or "
                 "error.");
    }
  });
}

bool vlsFileValidator::ValidateMessageFunction(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{.key = "MsgFunction",
                              .field = "Function",
                              .code = "F3.0.0",
                              .what = "the Message Details Function. ",
                              .title = kUnknown};
  return Check(kRule, "", [&](Finding& found) {
    const String& function = found.value = MessageDetailsOf(objGovTalkMessage).MessageFunction();
    if (!function.empty() && !IsOneOf(function, {"LIST", "READ", "DELETE", "ADD", "SUBMIT"})) {
      found.Fail("F3.0.1", "Invalid Value",
                 "Message Details Function must be one of list, read, delete, add or submit.");
    }
  });
}

bool vlsFileValidator::ValidateMessageTransactionID(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{.key = "MsgTransID",
                              .field = "Transaction ID",
                              .code = "F4.0.0",
                              .what = "the Message Details Transaction ID. ",
                              .title = kUnknown};
  return Check(kRule, "", [&](Finding& found) {
    const String& id = found.value = MessageDetailsOf(objGovTalkMessage).TransactionID();
    if (!id.empty() && !ValidatePattern(id, kID)) {
      found.Fail("F4.0.1", "Invalid Value",
                 "Message Details Transaction ID must consist of numbers and uppercase letters.");
    }
    if (Length(id) > 32) {
      found.Fail("F4.0.2", "Invalid Value", "Message Details Transaction ID must not exceed 32 characters.");
    }
  });
}

bool vlsFileValidator::ValidateMessageAuditID(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{.key = "MsgAuditID",
                              .field = "Audit ID",
                              .code = "F5.0.0",
                              .what = "the Message Details Audit ID. ",
                              .title = kUnknown};
  return Check(kRule, "", [&](Finding& found) {
    const String& id = found.value = MessageDetailsOf(objGovTalkMessage).AuditID();
    if (!id.empty() && !ValidatePattern(id, kID)) {
      found.Fail("F5.0.1", "Invalid Value",
                 "Message Details Audit ID must consist of numbers and uppercase letters.");
    }
    if (Length(id) > 32) {
      found.Fail("F5.0.2", "Invalid Value", "Message Details Audit ID must not exceed 32 characters.");
    }
  });
}

bool vlsFileValidator::ValidateMessageCorrelationID(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{.key = "MsgCorrelationID",
                              .field = "Correlation ID",
                              .code = "F6.0.0",
                              .what = "the Message Details Correlation ID. ",
                              .title = kUnknown};
  return Check(kRule, "", [&](Finding& found) {
    const String& id = found.value = MessageDetailsOf(objGovTalkMessage).CorrelationID();
    if (!id.empty() && !ValidatePattern(id, kID)) {
      found.Fail("F6.0.1", "Invalid Value",
                 "Message Details Correlation ID must consist of numbers and uppercase letters.");
    }
    if (Length(id) > 32) {
      found.Fail("F6.0.2", "Invalid Value", "Message Details Correlation ID must not exceed 32 characters.");
    }
  });
}

bool vlsFileValidator::ValidateMessageTransformation(const Ref<clsGovTalkMessage>& /*objGovTalkMessage*/) {
  return true;
}

// The records share a Source: the third failure among them is an unknown error, and ends the rule.
bool vlsFileValidator::ValidateAuthenticationMethod(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{
      .key = "AuthMethod", .field = "Authentication Method", .code = "F8.0.0", .title = kUnknown};
  return Check(kRule, "", [&](Finding& found) {
    for (const Ref<clsGTMAuthentication>& each : *SenderDetailsOf(objGovTalkMessage).Authentication()) {
      if (Required(each).Validated()) continue;
      const String& method = found.value = each->Method();
      bool passed = true;
      if (method.empty()) passed = found.Fail("F8.0.1", "Mandatory", "Authentication Method must be set.");
      if (!IsOneOf(method, {"CLEAR", "MD5", "W3CSIGNED"})) {
        passed = found.Fail("F8.0.2", "Invalid Value",
                            "Authentication Method must be one of Clear, MD5 or W3Csigned.");
      }
      each->Validated(passed);
    }
  });
}

bool vlsFileValidator::ValidateSenderEmailAddress(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{
      .key = "Contact Email", .field = "Contact Email Address", .code = "F9.0.0", .title = kUnknown};
  return Check(kRule, "", [&](Finding& found) {
    found.value = SenderDetailsOf(objGovTalkMessage).EmailAddress();
    CheckEmailAddress(found);
  });
}

bool vlsFileValidator::ValidateGTDKeys(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{
      .key = "GovTalkDetails_Keys", .field = "Keys", .code = "F8.0.0", .title = kUnknown};
  return Check(kRule, "", [&](Finding& /*found*/) {
    const CollectionRef<clsKey> keys = GovTalkDetailsOf(objGovTalkMessage).Keys();
    if (!objGovTalkMessage->HasSubmission()) return;
    const CollectionRef<clsKey> of_header =
        Required(objGovTalkMessage->SubmissionDocument()->Header()).KeyCollection();
    for (const Ref<clsKey>& key : *keys) {
      if (Required(key).Validated()) continue;
      key->Validated(std::any_of(of_header->begin(), of_header->end(), [&](const Ref<clsKey>& each) {
        return Required(each).KeyType() == key->KeyType() && each->KeyValue() == key->KeyValue();
      }));
    }
  });
}

bool vlsFileValidator::ValidateGTDTargetDetails(const Ref<clsGovTalkMessage>& objGovTalkMessage) {
  static constexpr Rule kRule{.key = "GTDTargOrganisation",
                              .field = "Target Organisation",
                              .code = "F10.0.0",
                              .what = "the GovTalkDetails Target Organisation. ",
                              .title = kUnknown};
  return Check(kRule, "", [&](Finding& found) {
    clsGTMTargetDetails& details = Required(GovTalkDetailsOf(objGovTalkMessage).TargetDetails());
    if (details.Validated()) return;
    const clsGTMTargetDetails::OrganisationCollection organisations = details.Organisations();
    for (Long index = 1; index <= organisations->Count(); ++index) {
      found.value = organisations->Item(index);
      if (Length(found.value) <= 64) continue;
      found.At("GTDTargOrganisation" + ToText(index));
      found.Fail("F10.0.1", "Invalid Value",
                 "Target Organisation '" + found.value + "' must not exceed 64 characters.");
    }
    details.Validated(found.Passed());
  });
}

}  // namespace zelnor
