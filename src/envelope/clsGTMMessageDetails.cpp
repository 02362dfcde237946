#include "zelnor/envelope/clsGTMMessageDetails.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

// The modes in which the application itself sets the gateway's test flag and date.
bool TakesGatewayFields(RTI_SEND_MODE mode) {
  return mode >= RTI_SEND_MODE::DevLive && mode <= RTI_SEND_MODE::DevFileTest;
}

// The modes in which the class is told with the name of the test service. A file made for a test keeps the
// plain class, though it carries the test flag.
bool TellsTestClass(RTI_SEND_MODE mode) {
  return mode == RTI_SEND_MODE::Test || mode == RTI_SEND_MODE::DevTest;
}

bool CarriesTestFlag(RTI_SEND_MODE mode) {
  return TellsTestClass(mode) || mode == RTI_SEND_MODE::DevFileTest;
}

String TransformationText(TYPE_TRANSFORMATION value) {
  switch (value) {
    case TYPE_TRANSFORMATION::XML:
      return "XML";
    case TYPE_TRANSFORMATION::HTML:
      return "HTML";
    case TYPE_TRANSFORMATION::Text:
      return "Text";
  }
  return ToText(static_cast<Long>(value));
}

}  // namespace

void clsGTMMessageDetails::Create(bool blnGatewayTest, Date datGatewayTimestamp,
                                  TYPE_TRANSFORMATION inmTransformation, const String& strTransactionID,
                                  const String& strAuditID, const String& strCorrelationID,
                                  const String& strResponseEndPoint, Integer intResponsePollInterval) {
  if (TakesGatewayFields(mode_)) {
    gateway_test_ = blnGatewayTest;
    gateway_timestamp_ = datGatewayTimestamp;
  } else {
    gateway_test_ = false;
  }
  transformation_ = inmTransformation;
  transaction_id_ = strTransactionID;
  audit_id_ = strAuditID;
  correlation_id_ = strCorrelationID;
  response_end_point_ = strResponseEndPoint;
  poll_interval_ = intResponsePollInterval;
  validated_ = false;
}

bool clsGTMMessageDetails::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsGTMMessageDetails", strXML);
}

bool clsGTMMessageDetails::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  validated_ = false;
  Handled("clsGTMMessageDetails", "Function CreateFromXML", [&] {
    class_.clear();
    qualifier_.clear();
    function_.clear();
    transaction_id_.clear();
    audit_id_.clear();
    correlation_id_.clear();
    response_end_point_.clear();
    poll_interval_ = 0;
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) ReadChild(child);
      mode_ = gateway_test_ ? RTI_SEND_MODE::FileOnly : RTI_SEND_MODE::Live;
      result = true;
    }
  });
  return result;
}

void clsGTMMessageDetails::ReadChild(const XmlNode& child) {
  const std::string_view name = child.BaseName();
  if (name == "Class") {
    class_ = child.Text();
  } else if (name == "Qualifier") {
    qualifier_ = child.Text();
  } else if (name == "Function") {
    function_ = child.Text();
  } else if (name == "TransactionID") {
    transaction_id_ = child.Text();
  } else if (name == "AuditID") {
    audit_id_ = child.Text();
  } else if (name == "CorrelationID") {
    correlation_id_ = child.Text();
  } else if (name == "ResponseEndPoint") {
    response_end_point_ = child.Text();
    const auto interval = child.Attribute("PollInterval");
    poll_interval_ = interval ? ToInteger(*interval) : Integer{0};
  } else if (name == "Transformation") {
    const String text = UpperCase(child.Text());
    if (text == "XML") transformation_ = TYPE_TRANSFORMATION::XML;
    if (text == "HTML") transformation_ = TYPE_TRANSFORMATION::HTML;
    if (text == "TEXT") transformation_ = TYPE_TRANSFORMATION::Text;
  } else if (name == "GatewayTest") {
    gateway_test_ = true;
  } else if (name == "GatewayTimestamp") {
    gateway_timestamp_ = DateFromXML(child.Text());
    if (!gateway_timestamp_.IsZero()) gateway_test_ = true;
  }
}

String clsGTMMessageDetails::RootElementName() const { return "MessageDetails"; }

RTI_SEND_MODE clsGTMMessageDetails::Mode() const { return mode_; }
void clsGTMMessageDetails::Mode(RTI_SEND_MODE value) { Change(mode_, value); }

String clsGTMMessageDetails::Class() const {
  return TellsTestClass(mode_) && !class_.empty() ? class_ + "-TIL" : class_;
}
void clsGTMMessageDetails::Class(String value) { Change(class_, std::move(value)); }

String clsGTMMessageDetails::Qualifier() const { return qualifier_; }
void clsGTMMessageDetails::Qualifier(String value) {
  qualifier_ = std::move(value);
  validated_ = false;
}

String clsGTMMessageDetails::MessageFunction() const { return function_; }
void clsGTMMessageDetails::MessageFunction(String value) {
  function_ = std::move(value);
  validated_ = false;
}

String clsGTMMessageDetails::TransactionID() const { return transaction_id_; }
void clsGTMMessageDetails::TransactionID(String value) { Change(transaction_id_, std::move(value)); }

String clsGTMMessageDetails::AuditID() const { return audit_id_; }
void clsGTMMessageDetails::AuditID(String value) { Change(audit_id_, std::move(value)); }

String clsGTMMessageDetails::CorrelationID() const { return correlation_id_; }
void clsGTMMessageDetails::CorrelationID(String value) { Change(correlation_id_, std::move(value)); }

String clsGTMMessageDetails::ResponseEndPoint() const { return response_end_point_; }
void clsGTMMessageDetails::ResponseEndPoint(String value) { Change(response_end_point_, std::move(value)); }

Integer clsGTMMessageDetails::ResponsePollInterval() const { return poll_interval_; }
void clsGTMMessageDetails::ResponsePollInterval(Integer value) { Change(poll_interval_, value); }

TYPE_TRANSFORMATION clsGTMMessageDetails::Transformation() const { return transformation_; }
void clsGTMMessageDetails::Transformation(TYPE_TRANSFORMATION value) { Change(transformation_, value); }

bool clsGTMMessageDetails::GatewayTest() const { return TakesGatewayFields(mode_) && gateway_test_; }
void clsGTMMessageDetails::GatewayTest(bool value) { Change(gateway_test_, value); }

Date clsGTMMessageDetails::GatewayTimestamp() {
  if (TakesGatewayFields(mode_)) return gateway_timestamp_;
  // Who asks for the date outside of development gets no test either.
  gateway_test_ = false;
  return {};
}
void clsGTMMessageDetails::GatewayTimestamp(Date value) { Change(gateway_timestamp_, value); }

XmlNode clsGTMMessageDetails::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsGTMMessageDetails", "Function ToXML", [&] {
    Element out = Element::Emptied("MessageDetails", xmlParent);
    result = out.Node();
    out.Text("Class", class_);
    out.Text("Qualifier", qualifier_);
    out.OptionalText("Function", function_);
    out.OptionalText("TransactionID", transaction_id_);
    out.OptionalText("AuditID", audit_id_);
    out.OptionalText("CorrelationID", correlation_id_);
    if (!response_end_point_.empty()) {
      const XmlNode end_point = out.Child("ResponseEndPoint");
      end_point.Text(response_end_point_);
      if (poll_interval_ >= 1) end_point.Attribute("PollInterval", ToText(poll_interval_));
    }
    out.Text("Transformation", TransformationText(transformation_));
    out.TextIf(CarriesTestFlag(mode_), "GatewayTest", "1");
  });
  return result;
}

}  // namespace zelnor
