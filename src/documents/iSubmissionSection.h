#pragma once

#include "zelnor/platform/xml.h"

namespace zelnor {

/// The published shape of a submission's section. Its bodies are empty: they return False, empty or nothing.
/// No class of the system derives from it; it stands for applications that name the shape.
class ZELNOR_API iSubmissionSection {
 public:
  virtual ~iSubmissionSection() = default;
  virtual bool ParseFromXML(const String& /*strXML*/) { return false; }     ///< False
  virtual bool CreateFromXML(const XmlNode& /*xmlNode*/) { return false; }  ///< False
  virtual bool UseCompression() const { return false; }                     ///< False
  virtual void UseCompression(bool /*value*/) {}                            ///< nothing happens
  virtual String XML() { return {}; }                                       ///< empty
  virtual XmlDocument Document() { return nullptr; }                        ///< no object
  virtual String Class() const { return {}; }                               ///< empty
};

}  // namespace zelnor
