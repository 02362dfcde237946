#pragma once

#include "zelnor/common/record.h"
#include "zelnor/platform/event.h"

namespace zelnor {

class clsGTMGovTalkDetails;
class clsGTMMessageDetails;
class clsGTMSenderDetails;
class clsSubmission;

/// One GovTalk envelope in memory: its version, its header records, the GovTalk details and the document that
/// is its body. It reads a whole envelope, writes it back to a document and to text, and carries every
/// message that the gateway answers with. Header content comes from the caller or from what was read; nothing
/// is invented.
///
/// @code
/// auto message = std::make_shared<clsGovTalkMessage>();
/// if (message->ParseFromXML(text)) std::cout << message->Header_MessageDetails()->Class();
/// @endcode
class ZELNOR_API clsGovTalkMessage {
 public:
  clsGovTalkMessage();
  clsGovTalkMessage(const clsGovTalkMessage&) = delete;
  clsGovTalkMessage& operator=(const clsGovTalkMessage&) = delete;
  ~clsGovTalkMessage();

  /// The events of an envelope.
  struct Events {
    /// The document's compression failed, for this reason; its employees go plain.
    Event<const String&> CompressionError;
  };
  Events events;

  /// Stores its arguments and clears `Validated` here and on each record that is present.
  void Create(const String& strEnvelopeVersion, Ref<clsGTMMessageDetails> objMessageDetails,
              Ref<clsGTMSenderDetails> objSenderDetails, Ref<clsGTMGovTalkDetails> objGovTalkDetails);

  /// Fills the envelope from text. False for text that doesn't parse or has another root than
  /// `GovTalkMessage`.
  bool ParseFromXML(const String& strXML);

  /// Fills the envelope from its root element. Version, sender's details, message details and document are
  /// made anew; the GovTalk details stay where their element is absent. False when the node has another name.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// Whether `Document` looks at `Validated`; passed on to the document's section.
  void UseValidation(bool value);

  /// True when validation isn't used; else whether this object and every record present are validated.
  bool Validated();

  /// "GovTalkMessage".
  String RootElementName() const;

  /// The path of the envelope's schema: the setting `GovTalkMessage_XSD`, else "\xsd\envelope-v2-0-HMRC.xsd".
  String DefaultGTMSchema();

  /// The path of the signature schema: the setting `dsig_XSD`, else "\xsd\xmldsig-core-schema.xsd".
  String DefaultDSGSchema();

  /// The envelope's version, "2.0" unless the setting `GovTalkVersion` says otherwise.
  ///@{
  String GTMEnvelopeVersion() const;
  void GTMEnvelopeVersion(const String& value);
  ///@}

  /// The same as writing `Header_MessageDetails`.
  void SetMessageDetails(Ref<clsGTMMessageDetails> objMessageDetails);

  /// The message's details. Reading makes a record when none is held. Writing clears the record's `Validated`
  /// and, when there is a document, copies its class in.
  ///@{
  Ref<clsGTMMessageDetails> Header_MessageDetails();
  void Header_MessageDetails(Ref<clsGTMMessageDetails> value);
  ///@}

  /// The sender's details. Reading makes a record when none is held; writing clears the record's `Validated`.
  ///@{
  Ref<clsGTMSenderDetails> Header_SenderDetails();
  void Header_SenderDetails(Ref<clsGTMSenderDetails> value);
  ///@}

  /// The GovTalk details. Reading makes a record when none is held; writing clears the record's `Validated`.
  ///@{
  Ref<clsGTMGovTalkDetails> GTMGovTalkDetails();
  void GTMGovTalkDetails(Ref<clsGTMGovTalkDetails> value);
  ///@}

  /// The document in the body. Reading makes one when none is held. Writing clears its `Validated` and copies
  /// its class to the message's details.
  ///@{
  Ref<clsSubmission> SubmissionDocument();
  void SubmissionDocument(Ref<clsSubmission> value);
  ///@}

  /// The `xml` text of `Document`.
  String XML();

  /// The envelope as an XML document. It is built when there is none yet, and again when validation is used
  /// and something has changed; otherwise the last one is given, also after changes (ForceRebuild serves that
  /// case). Writing stores the document and fills the envelope from it.
  ///@{
  XmlDocument Document();
  void Document(const XmlDocument& value);
  ///@}

  /// Builds the document anew, whatever its state. The former one stays valid for whoever holds it.
  void ForceRebuild();

  /// For the validators, which mark this object, not the records in it, as checked.
  ZELNOR_INTERNAL void Validated(bool value) { validated_ = value; }

  /// Whether there is a submission; makes none.
  ZELNOR_INTERNAL bool HasSubmission() const;

  /// Whether a document has been built or given; if not, nobody outside can hold it.
  ZELNOR_INTERNAL bool HasDocument() const;

  /// Writes the `IRheader` again into the document at hand, where nothing else has changed since it was
  /// built.
  ZELNOR_INTERNAL void RewriteIRHeader();

 private:
  void Hold(Ref<clsSubmission> submission);
  XmlNode ToXML(const XmlNode& xmlParent);
  XmlNode GovTalkMessage();
  XmlNode ChildOnce(XmlNode& cached, const char* name);
  String Namespace();
  String SchemaSetting(const String& name, const String& default_path) const;

  XmlDocument document_;
  XmlNode root_;
  XmlNode version_element_;
  XmlNode header_element_;
  XmlNode body_element_;
  String envelope_version_;
  Ref<clsGTMMessageDetails> message_details_;
  Ref<clsGTMSenderDetails> sender_details_;
  Ref<clsGTMGovTalkDetails> govtalk_details_;
  Ref<clsSubmission> submission_;
  String namespace_;
  String default_gtm_schema_;
  String default_dsg_schema_;
  bool validated_ = false;
  bool use_validation_ = false;
  bool warned_ = false;
  Subscription submission_events_;
};

}  // namespace zelnor
