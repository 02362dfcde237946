#pragma once

#include "zelnor/platform/xml.h"

namespace zelnor {

/// The empty body of a poll document. It reads and writes nothing.
class ZELNOR_API clsSectionPOC {
 public:
  /// False; nothing is read.
  bool ParseFromXML(const String& strXML);

  /// False; nothing is read.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// Plain storage, False at first; nothing is ever compressed.
  ///@{
  bool UseCompression() const;
  void UseCompression(bool value);
  ///@}

  /// Empty.
  String XML() const;

  /// No object.
  XmlDocument Document() const;

  /// Empty: a poll document goes by the class of what is polled for.
  String Class() const;

  /// "RTI".
  String RootElementName() const;

 private:
  bool use_compression_ = false;
};

}  // namespace zelnor
