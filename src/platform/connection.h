#pragma once

/// @file
/// Which network interfaces make a connection.

#include "zelnor/platform/export.h"

struct ifaddrs;

namespace zelnor {

/// Whether any interface of the system's list, loopback aside, is up and running with an IPv4 address or an
/// IPv6 address that reaches beyond its own link.
ZELNOR_INTERNAL bool AnyInterfaceConnected(const ifaddrs* interfaces);

}  // namespace zelnor
