#include "zelnor/platform/address.h"

#include "zelnor/platform/text.h"

#include <arpa/inet.h>
#include <memory>

#include <curl/curl.h>

namespace zelnor {
namespace {

// A part of an address; nothing where it has none.
std::optional<String> PartOf(CURLU* address, CURLUPart part) {
  char* text = nullptr;
  if (curl_url_get(address, part, &text, 0) != CURLUE_OK) return std::nullopt;
  const String copy = text;
  curl_free(text);
  return copy;
}

// A name that only begins like an address, such as "127.0.0.1.example", is any other name.
bool IsLoopback(const String& host) {
  if (host == "localhost") return true;
  in_addr four{};
  if (inet_pton(AF_INET, host.c_str(), &four) == 1) return ntohl(four.s_addr) >> 24U == 127;
  in6_addr six{};
  return inet_pton(AF_INET6, host.c_str(), &six) == 1 && IN6_IS_ADDR_LOOPBACK(&six);
}

}  // namespace

std::optional<AddressHost> HostOfAddress(const String& url) {
  const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> address(curl_url(), curl_url_cleanup);
  if (!address) throw std::bad_alloc();
  // The HTTP client guesses a scheme that is left out, too.
  if (curl_url_set(address.get(), CURLUPART_URL, url.c_str(), CURLU_GUESS_SCHEME) != CURLUE_OK)
    return std::nullopt;
  const String scheme = PartOf(address.get(), CURLUPART_SCHEME).value_or("");
  String host = LowerCase(PartOf(address.get(), CURLUPART_HOST).value_or(""));
  if (host.empty() || (scheme != "http" && scheme != "https")) return std::nullopt;
  if (host.starts_with('[') && host.ends_with(']')) host = host.substr(1, host.size() - 2);
  AddressHost result;
  result.has_user = PartOf(address.get(), CURLUPART_USER) || PartOf(address.get(), CURLUPART_PASSWORD);
  result.loopback = IsLoopback(host);
  result.name = host;
  return result;
}

}  // namespace zelnor
