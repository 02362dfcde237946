#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// What a message is and which conversation it belongs to, element `MessageDetails` of the envelope's header.
/// A new one is a "request" to "submit".
///
/// @code
/// auto details = message->Header_MessageDetails();
/// details->Mode(RTI_SEND_MODE::Test);
/// details->Class("HMRC-PAYE-RTI-FPS");
/// details->Class();  // "HMRC-PAYE-RTI-FPS-TIL"
/// @endcode
class ZELNOR_API clsGTMMessageDetails : public Record {
 public:
  /// Stores its arguments and clears Validated. In the modes DevLive to DevFileTest test flag and timestamp
  /// are stored as well; in any other mode the test flag becomes False and the timestamp stays.
  void Create(bool blnGatewayTest, Date datGatewayTimestamp, TYPE_TRANSFORMATION inmTransformation,
              const String& strTransactionID, const String& strAuditID, const String& strCorrelationID,
              const String& strResponseEndPoint, Integer intResponsePollInterval = 0);

  /// Fills the record from text whose first node is `MessageDetails`. False for text that isn't well formed
  /// or has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the texts and the poll interval and fills the record from a node. Afterwards the mode is FileOnly
  /// when the test flag is set, and Live otherwise. False for a node of another name, and after a failure,
  /// such as a poll interval that is no number; that is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "MessageDetails".
  String RootElementName() const;

  /// Where the message goes; kept, never written.
  ///@{
  RTI_SEND_MODE Mode() const;
  void Mode(RTI_SEND_MODE value);
  ///@}

  /// The gateway's name for the kind of document (`Class`). In the modes Test and DevTest a class that isn't
  /// empty reads with "-TIL" behind it, the gateway's name for its test service; what is written to the
  /// document is always the stored text.
  ///@{
  String Class() const;
  void Class(String value);
  ///@}

  /// The kind of message: "request", "poll", "acknowledgement", "response" or "error" (`Qualifier`); written
  /// even when empty.
  String Qualifier() const;

  /// Stores the kind of message and clears Validated.
  ZELNOR_INTERNAL void Qualifier(String value);

  /// What the gateway is to do: "submit", "delete", "list" (`Function`); left out when empty.
  String MessageFunction() const;

  /// Stores what the gateway is to do and clears Validated.
  ZELNOR_INTERNAL void MessageFunction(String value);

  /// The application's number for the message (`TransactionID`), up to 32 hexadecimal digits; left out when
  /// empty.
  ///@{
  String TransactionID() const;
  void TransactionID(String value);
  ///@}

  /// The application's number for an audit (`AuditID`), up to 32 hexadecimal digits; left out when empty.
  ///@{
  String AuditID() const;
  void AuditID(String value);
  ///@}

  /// The gateway's number for the conversation (`CorrelationID`), up to 32 hexadecimal digits; left out when
  /// empty.
  ///@{
  String CorrelationID() const;
  void CorrelationID(String value);
  ///@}

  /// The address to which the next message of the conversation goes (`ResponseEndPoint`); left out when
  /// empty.
  ///@{
  String ResponseEndPoint() const;
  void ResponseEndPoint(String value);
  ///@}

  /// Seconds to wait between polls (attribute `PollInterval` of `ResponseEndPoint`), 0 when absent; written
  /// when 1 or more.
  ///@{
  Integer ResponsePollInterval() const;
  void ResponsePollInterval(Integer value);
  ///@}

  /// The form in which the gateway is to answer (`Transformation`); always written. Reads "XML", "HTML" and
  /// "TEXT" in any case; any other text leaves the value.
  ///@{
  TYPE_TRANSFORMATION Transformation() const;
  void Transformation(TYPE_TRANSFORMATION value);
  ///@}

  /// The gateway's test flag. Reads as stored in the modes DevLive to DevFileTest and as False in any other.
  /// From a document the element's presence alone sets it, whatever its text. In a document, the mode alone
  /// decides on `GatewayTest`: "1" in Test, DevTest and DevFileTest.
  ///@{
  bool GatewayTest() const;
  void GatewayTest(bool value);
  ///@}

  /// The date that the gateway is to take as today (`GatewayTimestamp`); read from documents, where a date
  /// also sets the test flag, and never written. Reads as stored in the modes DevLive to DevFileTest; in any
  /// other mode the read gives no date and sets the test flag to False.
  ///@{
  Date GatewayTimestamp();
  void GatewayTimestamp(Date value);
  ///@}

  /// Writes the record under its parent, into a `MessageDetails` that is emptied first, and returns that
  /// element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  void ReadChild(const XmlNode& child);

  String class_;
  String qualifier_ = "request";
  String function_ = "submit";
  String transaction_id_;
  String audit_id_;
  String correlation_id_;
  String response_end_point_;
  Integer poll_interval_ = 0;
  TYPE_TRANSFORMATION transformation_ = TYPE_TRANSFORMATION::XML;
  bool gateway_test_ = false;
  Date gateway_timestamp_;
  RTI_SEND_MODE mode_ = RTI_SEND_MODE::Live;
};

}  // namespace zelnor
