#pragma once

/// @file
/// The parts of an http or https address, as the HTTP client takes them.

#include "zelnor/platform/values.h"

#include <optional>

namespace zelnor {

/// Who an address names.
struct AddressHost {
  String name;            ///< in lower case; an IPv6 address without its brackets
  bool has_user = false;  ///< whether a user or a password stands in front of it
  bool loopback = false;  ///< `localhost`, `::1`, or a whole IPv4 address in 127.0.0.0/8
};

/// The host of an address; nothing for one that the HTTP client couldn't take apart either, or of another
/// scheme than http and https.
ZELNOR_INTERNAL std::optional<AddressHost> HostOfAddress(const String& url);

}  // namespace zelnor
