#pragma once

#include "zelnor/validation/validator.h"

namespace zelnor {

class clsGovTalkMessage;

/// The rules of the envelope: its version, the message's details, the sender's details and the GovTalk
/// details. The document in the body is not looked at.
///
/// @code
/// vlsFileValidator validator;
/// if (!validator.ValidateFile(message)) std::cout << validator.GetAsXML().Xml() << "\n";
/// @endcode
///
/// Each operation can be called by itself and adds to the records that are there; a record that is marked as
/// checked is skipped, and one that was checked is marked with the result. No message gives a record of an
/// unknown error from a rule, and from an operation that calls several rules a message box and False. The
/// event MaxErrorsHit is raised for each record that the limit keeps out.
class ZELNOR_API vlsFileValidator : public IntegerValidator {
 public:
  vlsFileValidator() : IntegerValidator({"vlsFileValidator", "FileValidationErrors", "File", false}) {}

  /// A number for the application; nothing reads it.
  ///@{
  Integer DocType() const { return doc_type_; }
  void DocType(Integer value) { doc_type_ = value; }
  ///@}

  /// All of the envelope, unless it is marked as checked.
  bool ValidateFile(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// The message's and the sender's details.
  bool ValidateHeader(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// The keys and the target details.
  bool ValidateGovTalkDetails(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Compares the keys with those of the IR header. A mismatch is no failure; it only leaves the key without
  /// the mark of a checked one.
  bool ValidateGTDKeys(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Qualifier, function and the three IDs.
  bool ValidateMessageDetails(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// E-mail address and authentication.
  bool ValidateSenderDetails(const Ref<clsGovTalkMessage>& objGovTalkMessage);
  bool ValidateSenderAuthentication(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// The method of each authentication record: clear, MD5 or W3Csigned in any case (F8).
  bool ValidateAuthenticationMethod(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Organisations of at most 64 characters (F10).
  bool ValidateGTDTargetDetails(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// One of request, acknowledgement, response, poll and error, in any case (F2).
  bool ValidateMessageQualifier(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Empty, or one of list, read, delete, add and submit, in any case (F3).
  bool ValidateMessageFunction(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Of at most 32 characters (F6).
  bool ValidateMessageCorrelationID(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Nothing to check; True.
  bool ValidateMessageTransformation(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Of at most 32 characters (F4).
  bool ValidateMessageTransactionID(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Of at most 32 characters (F5).
  bool ValidateMessageAuditID(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Empty, or 3 to 254 characters of the form A@A (E5.4.0, E5.5).
  bool ValidateSenderEmailAddress(const Ref<clsGovTalkMessage>& objGovTalkMessage);

  /// Not empty (F1).
  bool ValidateEnvelopeVersion(const Ref<clsGovTalkMessage>& objGovTalkMessage);

 private:
  void RecordDropped() override { events.MaxErrorsHit(); }

  Integer doc_type_ = 0;
};

}  // namespace zelnor
