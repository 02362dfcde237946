#pragma once

/// @file
/// The kind of document that an element stands in.

#include "zelnor/common/enumerations.h"
#include "zelnor/platform/xml.h"

namespace zelnor {

/// Walks up from a node to the section that holds it: EAS, FPS, NVR or EYU by the section's name; FPS when
/// there is none. Employees that are compressed stand in an empty copy of their section meanwhile.
ZELNOR_INTERNAL eRTISUBMISSIONTYPE DocumentTypeOf(const XmlNode& node);

}  // namespace zelnor
