#include "zelnor/platform/connection.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

namespace zelnor {
namespace {

bool ReachesOut(const sockaddr* address) {
  if (address == nullptr) return false;
  if (address->sa_family == AF_INET) return true;
  // An interface has a link-local IPv6 address as soon as it is up, long before there is a network behind it.
  return address->sa_family == AF_INET6 &&
         !IN6_IS_ADDR_LINKLOCAL(&reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr);
}

}  // namespace

bool AnyInterfaceConnected(const ifaddrs* interfaces) {
  constexpr unsigned kWanted = IFF_UP | IFF_RUNNING;
  for (const ifaddrs* one = interfaces; one != nullptr; one = one->ifa_next) {
    const bool works = (one->ifa_flags & (kWanted | IFF_LOOPBACK)) == kWanted;
    if (works && ReachesOut(one->ifa_addr)) return true;
  }
  return false;
}

}  // namespace zelnor
