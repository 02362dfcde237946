#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// Through which product a message came, element `ChannelRouting`. A new one bears the time of its making.
///
/// @code
/// auto routing = std::make_shared<clsGTMChannelRouting>();
/// routing->Create("Kelby Payroll", "7.2", "9999");
/// @endcode
class ZELNOR_API clsGTMChannelRouting : public Record {
 public:
  clsGTMChannelRouting();

  /// Stores its arguments and clears Validated. The zero date means now.
  void Create(const String& strProduct, const String& strVersion = {}, const String& strURI = {},
              const String& strName = {}, Date datTimestamp = {});

  /// Fills the record from text whose first node is `ChannelRouting`. False for text that isn't well formed
  /// or has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the texts and fills the record from a node; without a `Timestamp` the date stays. False for a
  /// node of another name, and after a failure, such as a timestamp that is no date; that is shown in the
  /// host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "ChannelRouting".
  String RootElementName() const;

  /// Where the message goes; kept, never written. It decides whether the timestamp is written.
  ///@{
  RTI_SEND_MODE Mode() const;
  void Mode(RTI_SEND_MODE value);
  ///@}

  /// The vendor's id at HMRC (`Channel/URI`); written in place of the name when not empty.
  ///@{
  String URI() const;
  void URI(String value);
  ///@}

  /// The vendor's name (`Channel/Name`); written, even when empty, where there is no URI.
  ///@{
  String Name() const;
  void Name(String value);
  ///@}

  /// The product (`Channel/Product`); written even when empty.
  ///@{
  String Product() const;
  void Product(String value);
  ///@}

  /// The product's version (`Channel/Version`); written even when empty.
  ///@{
  String Version() const;
  void Version(String value);
  ///@}

  /// The channel's own id for the message (`ID`); left out when empty.
  String ID() const;

  /// The kind of that id (attribute `Type` of `ID`).
  String IDType() const;

  /// Sets the id and its kind.
  void SetID(const String& strID, const String& strIDType);

  /// When the message passed the channel (`Timestamp`, yyyy-mm-ddThh:nn:ss). Written only in the modes Test
  /// to DevFileTest, and not for the zero date.
  ///@{
  Date Timestamp() const;
  void Timestamp(Date value);
  ///@}

  /// Appends a new `ChannelRouting` to the parent and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  void ReadChannel(const XmlNode& channel);

  String uri_;
  String name_;
  String product_;
  String version_;
  String id_;
  String id_type_;
  Date timestamp_;
  RTI_SEND_MODE mode_ = RTI_SEND_MODE::Live;
};

}  // namespace zelnor
