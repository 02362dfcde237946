#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

class clsGTMGovTalkError;

/// The body of a gateway's answer that refuses a submission: its errors in order.
///
/// @code
/// for (Integer i = 1; i <= response->Errors_MaxIndex(); ++i) {
///   std::cout << response->GetError(i)->Text() << "\n";
/// }
/// @endcode
class ZELNOR_API clsSectionErrorResponse : public Record {
 public:
  clsSectionErrorResponse();
  ~clsSectionErrorResponse() override;

  /// Begins anew without errors and clears `Validated`.
  void Create();

  /// Fills the section from text whose document element is `ErrorResponse`; a declaration may stand before
  /// it. False, and nothing changed, for text that doesn't parse or has another root.
  bool ParseFromXML(const String& strXML);

  /// Fills the section from its element: each `Error` directly below it, or below an `Application` in it, in
  /// document order. The errors are cleared first. False when the node has another name.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;
  bool Validated() const override;

  /// "ErrorResponse".
  String RootElementName() const;

  /// "ERROR".
  String Class() const;

  /// The errors, in document order.
  CollectionRef<clsGTMGovTalkError> Errors();

  /// The number of errors.
  Long ErrorCount() const;

  /// The bounds of GetError's index: 1, and the number of errors, which is 0 without any.
  ///@{
  Long Errors_MinIndex() const;
  Long Errors_MaxIndex() const;
  ///@}

  /// Appends an error, clearing its `Validated`. No object is reported as error 91.
  void AddError(const Ref<clsGTMGovTalkError>& objError);

  /// Appends each member in order. No object is reported as error 91.
  void AddErrorRange(CollectionRef<clsGTMGovTalkError> colErrors);

  /// The error at a position between the bounds. Any other position is reported as error 9, and the result is
  /// no object.
  Ref<clsGTMGovTalkError> GetError(Integer intIndex);

  /// Writes the section with its errors under its parent, replacing the elements of one already there.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  void ReadError(const XmlNode& child);
  void Append(const Ref<clsGTMGovTalkError>& objError);

  CollectionRef<clsGTMGovTalkError> errors_;
};

}  // namespace zelnor
