#pragma once

#include "zelnor/platform/xml.h"

#include <string>

namespace zelnor::standin {

/// Puts the employees that a `CompressedPart` holds in its place, unpacked. A document without one stays as
/// it is.
///
/// @return what is wrong with the part, in a sentence; empty when nothing is
std::string Unpack(const XmlDocument& body);

}  // namespace zelnor::standin
