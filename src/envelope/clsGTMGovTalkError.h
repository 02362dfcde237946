#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// One error that the gateway or HMRC reports, element `Error`.
///
/// @code
/// for (const auto& error : *message->GTMGovTalkDetails()->GovTalkErrors())
///   std::cout << error->Number() << ": " << error->Text() << '\n';
/// @endcode
class ZELNOR_API clsGTMGovTalkError : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(const String& strRaisedBy, const String& strType, Integer intNumber = 0,
              const String& strText = {}, const String& strLocation = {});

  /// Fills the record from text whose first node is `Error`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the texts and fills the record from the node's children; without a `Number` the number stays. Of
  /// several `Text` or `Location` the last is kept. False for a node of another name, and after a failure,
  /// such as a `Number` that is none; that is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "Error".
  String RootElementName() const;

  /// Who found the error (`RaisedBy`); written even when empty.
  ///@{
  String RaisedBy() const;
  void RaisedBy(String value);
  ///@}

  /// The error's number (`Number`), such as 1046 for a wrong password; always written.
  ///@{
  Integer Number() const;
  void Number(Integer value);
  ///@}

  /// The kind of error: "fatal", "recoverable", "business", "warning" (`Type`); written even when empty.
  ///@{
  String ErrorType() const;
  void ErrorType(String value);
  ///@}

  /// What is wrong (`Text`); left out when empty.
  ///@{
  String Text() const;
  void Text(String value);
  ///@}

  /// The path of the element at fault (`Location`); left out when empty.
  ///@{
  String Location() const;
  void Location(String value);
  ///@}

  /// The position, from 1, of the employee at fault, taken from the location (":Employee[3]" gives 3); 0
  /// where it names none. A number beyond a Long is shown in the host's message box and gives 0.
  Long EmployeeIndex() const;

  /// Appends a new `Error` to the parent and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String raised_by_;
  String error_type_;
  String text_;
  String location_;
  Integer number_ = 0;
};

}  // namespace zelnor
