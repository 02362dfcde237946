#pragma once

#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"

namespace zelnor {

/// An error as the transport's events tell it: of an already formatted one its source, " : " and its
/// description; of any other "Error in ZELNOR.dll::clsSOAPInterface::", the member, ": Error ", the number,
/// " - " and the description.
inline String TransportErrorText(const RuntimeError& error, const char* member) {
  if (error.Number() == kFormattedError) return error.Source() + " : " + error.Description();
  return String("Error in ZELNOR.dll::clsSOAPInterface::") + member + ": Error " + ToText(error.Number()) +
         " - " + error.Description();
}

}  // namespace zelnor
