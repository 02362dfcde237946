#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/platform/event.h"
#include "zelnor/platform/xml.h"

namespace zelnor {

class EmployeeSection;
class clsSectionEAS;
class clsSectionEPS;
class clsSectionErrorResponse;
class clsSectionEYU;
class clsSectionFPS;
class clsSectionIRHeader;
class clsSectionNVR;

/// One document: the `IRheader` and one body section, chosen by the document's root element. A new one is an
/// empty Full Payment Submission.
///
/// @code
/// Ref<clsSubmission> submission = rti.Submission();
/// if (Ref<clsSectionFPS> fps = submission->FPS()) std::cout << fps->EmployeeCount();
/// @endcode
class ZELNOR_API clsSubmission {
 public:
  clsSubmission();
  clsSubmission(const clsSubmission&) = delete;
  clsSubmission& operator=(const clsSubmission&) = delete;
  ~clsSubmission();

  /// The events of a document.
  struct Events {
    /// A section's compression failed, for this reason; its employees go plain.
    Event<const String&> CompressionError;
  };
  Events events;

  /// Fills the document from text whose first node is `IRenvelope` or whose root is `ErrorResponse`. False
  /// for text that doesn't parse and for any other, an `IRenvelope` behind an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the document from a node: an `IRenvelope` with header and body, an `EmployerAlignmentSubmission`
  /// or `ErrorResponse` by itself; any other node is kept whole in `PLD`. No object makes it a polling
  /// document and gives False. An envelope without a known body keeps the earlier type.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// Passed on to the section of an EAS, FPS, NVR or EYU; nothing happens for other types.
  void UseValidation(bool value);

  /// The section's class, such as "HMRC-PAYE-RTI-FPS"; empty for a polling document.
  String Class();

  /// Whether the section and the header are validated. True for a polling document, False for an error
  /// response.
  bool Validated();

  /// The section's root element, such as "FullPaymentSubmission"; empty for a polling document.
  String RootElementName();

  /// The number of employees from which on they are compressed; -1 for types that never compress, and there
  /// writing does nothing.
  ///@{
  Long AutoCompressionLimit();
  void AutoCompressionLimit(Long value);
  ///@}

  /// Whether an FPS or EPS holds final-submission marks; False for other types.
  bool IsFinalSubmission();

  /// Whether the employer's references of an FPS or EYU hold an ECON; False for other types.
  bool HasECON();

  /// The section's schema, below the program's folder; empty for types without one.
  String DefaultSchema();

  /// The namespace of the document: the target namespace of its schema file. Empty when there is no schema or
  /// it can't be read.
  String Namespace();

  /// The `IRheader`; it survives a change of section. Reading makes an empty record when none is held.
  ///@{
  Ref<clsSectionIRHeader> Header();
  void Header(Ref<clsSectionIRHeader> value);
  ///@}

  /// The sections. Reading one gives no object unless the document is of its type; then it is made when
  /// absent, and what a former type left behind is dropped. Writing stores the reference and changes neither
  /// the type nor another section.
  ///@{
  Ref<clsSectionFPS> FPS();
  void FPS(Ref<clsSectionFPS> value);
  Ref<clsSectionEAS> EAS();
  void EAS(Ref<clsSectionEAS> value);
  Ref<clsSectionEPS> EPS();
  void EPS(Ref<clsSectionEPS> value);
  Ref<clsSectionNVR> NVR();
  void NVR(Ref<clsSectionNVR> value);
  Ref<clsSectionEYU> EYU();
  void EYU(Ref<clsSectionEYU> value);
  Ref<clsSectionErrorResponse> ERRORRESPONSE();
  void ERRORRESPONSE(Ref<clsSectionErrorResponse> value);
  ///@}

  /// A document of any other root, kept as a whole; no object unless the document is a polling document.
  ///@{
  XmlNode PLD();
  void PLD(const XmlNode& value);
  ///@}

  /// See the section; False for types that never compress, and there writing does nothing.
  ///@{
  bool UseCompression();
  void UseCompression(bool value);
  bool OverrideCompression();
  void OverrideCompression(bool value);
  ///@}

  /// The kind of document.
  eRTISUBMISSIONTYPE SubmissionType() const;

  /// Stored only: every document is built whole in memory.
  ///@{
  enmBuildMode BuildMode() const;
  void BuildMode(enmBuildMode value);
  ///@}

  /// Whether the section is to be validated; False for types without this switch.
  ZELNOR_INTERNAL bool UseValidation();

  /// Marks the section as checked or not.
  ZELNOR_INTERNAL void Validated(bool value);

  /// Changes the kind of document; nothing is carried over between sections.
  ZELNOR_INTERNAL void SetSubmissionType(eRTISUBMISSIONTYPE value);

  /// Writes the document under its parent, whose children are removed first.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

  /// Writes the header again, in its place in a document that is written already.
  ZELNOR_INTERNAL void RewriteHeader(const XmlNode& xmlParent);

 private:
  void DropSectionsBut(eRTISUBMISSIONTYPE type);
  bool ReadEnvelope(const XmlNode& xmlNode);
  void WriteSection(const XmlNode& xmlEnvelope);
  Ref<EmployeeSection> CompressibleSection();
  void Listen(EmployeeSection& section, Subscription& subscription);

  XmlDocument document_;
  Ref<clsSectionIRHeader> header_;
  Ref<clsSectionFPS> fps_;
  Ref<clsSectionEAS> eas_;
  Ref<clsSectionEYU> eyu_;
  Ref<clsSectionEPS> eps_;
  Ref<clsSectionNVR> nvr_;
  Ref<clsSectionErrorResponse> error_response_;
  XmlNode pld_;
  eRTISUBMISSIONTYPE submission_type_ = eRTISUBMISSIONTYPE::IsFPS;
  enmBuildMode build_mode_ = enmBuildMode::InMemory;
  String namespace_;
  Subscription fps_events_;
  Subscription eas_events_;
  Subscription eyu_events_;
};

}  // namespace zelnor
