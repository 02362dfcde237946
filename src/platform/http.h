#pragma once

/// @file
/// One HTTP POST: the request as its user makes it, and what the host is asked to exchange.
///
/// @code
/// HttpRequest request;
/// request.Open("POST", "https://gateway.example/submission");
/// request.SetRequestHeader("Content-type", "text/xml");
/// request.Send(message->Document());
/// if (XmlNode answer = request.ResponseXML().DocumentElement()) std::cout << answer.NodeName();
/// @endcode

#include "zelnor/platform/values.h"
#include "zelnor/platform/xml.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zelnor {

/// The numbers of the errors that an exchange ends with.
inline constexpr Long kHttpBadAddress = static_cast<Long>(0x800C0002U);  ///< no address, or not http or https
/// Not resolved, not connected, or broken off at any point.
inline constexpr Long kHttpNoConnection = static_cast<Long>(0x800C0005U);
/// The server's certificate or its TLS was refused, and nothing else.
inline constexpr Long kHttpRefusedCertificate = static_cast<Long>(0x800C0008U);
inline constexpr Long kHttpTimedOut = static_cast<Long>(0x800C000BU);  ///< connecting, or waiting for a byte

/// What goes out, and how long it may take.
struct HttpMessage {
  String method = "POST";
  String url;
  String user;      ///< with the password, the answer to a server's challenge over TLS; never sent unasked
  String password;  ///< never in a message of an error
  std::vector<std::pair<String, String>> headers;
  String body;
  std::int64_t connect_timeout = 60'000;           ///< milliseconds to be connected in
  std::int64_t stall_timeout = 300'000;            ///< milliseconds without a byte either way
  std::size_t max_answer = std::size_t{64} << 20;  ///< bytes of the answer's body, unpacked
};

/// What came back.
struct HttpAnswer {
  Long status = 0;        ///< the status code
  std::string body;       ///< as sent, unpacked where it was compressed
  bool too_long = false;  ///< the body went beyond the bound, and was dropped
};

/// Exchanges a message for an answer with libcurl: HTTP/1.1 over a fresh connection, TLS 1.2 or later checked
/// against the system's certificates (or those of `SSL_CERT_FILE`), no redirect followed. Any answer counts,
/// whatever its status. Raises one of the errors above, with a sentence that names the host and the cause.
ZELNOR_API HttpAnswer ExchangeHttp(const HttpMessage& message);

/// A synchronous request. It exchanges through the process's host.
class ZELNOR_API HttpRequest {
 public:
  /// Says where to. User and password answer a server that asks for them over TLS, and go nowhere else.
  void Open(const String& method, const String& url, const String& user = {}, const String& password = {});

  /// Adds a header, sent as it stands.
  void SetRequestHeader(const String& name, const String& value);

  /// Sends a text, as UTF-8, or a document as its `xml` text, and waits for the answer. Raises the errors of
  /// ExchangeHttp; then there is no response.
  ///@{
  void Send(String body);
  void Send(const XmlDocument& document);
  ///@}

  /// The answer as a document; without a document element where it was empty, too long or no XML. No object
  /// before an answer.
  XmlDocument ResponseXML() const { return response_; }

  /// The bounds of the exchange, to be changed before `Send`.
  HttpMessage& Message() { return message_; }

 private:
  HttpMessage message_;
  XmlDocument response_{nullptr};
};

}  // namespace zelnor
