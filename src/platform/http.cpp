#include "zelnor/platform/http.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/host.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string_view>

#include <curl/curl.h>

namespace zelnor {
namespace {

using Clock = std::chrono::steady_clock;

// The loopback addresses are never asked through a proxy.
constexpr std::string_view kNoProxy = "localhost,127.0.0.0/8,::1";

String Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? String() : String(value);
}

// libcurl is set up once for the process, before its first use.
void StartCurl() {
  static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
  if (started != CURLE_OK)
    throw RuntimeError(kHttpNoConnection, "ZELNOR", "The HTTP client can't be started.");
}

// One exchange: what libcurl's callbacks need to know.
struct Exchange {
  const HttpMessage& message;
  HttpAnswer answer;
  Clock::time_point last_byte = Clock::now();
  curl_off_t sent = 0;
  bool connected = false;
  bool header_ended = false;
  bool stalled = false;
};

std::size_t OnBody(char* bytes, std::size_t size, std::size_t count, void* context) {
  auto& exchange = *static_cast<Exchange*>(context);
  exchange.last_byte = Clock::now();
  const std::size_t length = size * count;
  if (exchange.answer.body.size() + length > exchange.message.max_answer) {
    exchange.answer.too_long = true;
    exchange.answer.body = {};
    return 0;  // ends the exchange
  }
  exchange.answer.body.append(bytes, length);
  return length;
}

// Called for each line of the header, the empty one at its end among them, and for the trailers behind a
// body, which have no such end. Only a status line begins a header.
std::size_t OnHeader(char* bytes, std::size_t size, std::size_t count, void* context) {
  auto& exchange = *static_cast<Exchange*>(context);
  exchange.last_byte = Clock::now();
  const std::string_view line(bytes, size * count);
  if (line.starts_with("HTTP/")) exchange.header_ended = false;
  if (line == "\r\n" || line == "\n") exchange.header_ended = true;
  return size * count;
}

// Called at least once a second. The time to connect in is libcurl's own affair.
int OnProgress(void* context, curl_off_t /*to_receive*/, curl_off_t /*received*/, curl_off_t /*to_send*/,
               curl_off_t sent) {
  auto& exchange = *static_cast<Exchange*>(context);
  if (!exchange.connected || sent != exchange.sent) exchange.last_byte = Clock::now();
  exchange.sent = sent;
  const auto silence =
      std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - exchange.last_byte);
  exchange.stalled = silence.count() >= exchange.message.stall_timeout;
  return exchange.stalled ? 1 : 0;
}

// Called when the connection, its TLS included, stands and the request is about to go out.
int OnConnected(void* context, char* /*remote*/, char* /*local*/, int /*remote_port*/, int /*local_port*/) {
  auto& exchange = *static_cast<Exchange*>(context);
  exchange.connected = true;
  exchange.last_byte = Clock::now();
  return CURL_PREREQFUNC_OK;
}

String HostOf(const String& url) {
  const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> parts(curl_url(), curl_url_cleanup);
  char* host = nullptr;
  if (!parts || curl_url_set(parts.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK ||
      curl_url_get(parts.get(), CURLUPART_HOST, &host, 0) != CURLUE_OK) {
    return "the server";
  }
  String name = host;
  curl_free(host);
  return name;
}

// A server that goes away in the middle of the TLS handshake has refused nothing.
bool BrokenOffInHandshake(std::string_view detail) {
  constexpr std::array<std::string_view, 5> kSigns = {"SSL_ERROR_SYSCALL", "SSL_ERROR_ZERO_RETURN",
                                                      "unexpected eof", "reset by peer", "Broken pipe"};
  return std::any_of(kSigns.begin(), kSigns.end(),
                     [&](std::string_view sign) { return detail.find(sign) != std::string_view::npos; });
}

RuntimeError ErrorOf(CURLcode code, const Exchange& exchange, std::string_view detail) {
  const String host = HostOf(exchange.message.url);
  const String cause = detail.empty() ? curl_easy_strerror(code) : String(detail);
  const auto error = [](Long number, const String& sentence) {
    return RuntimeError(number, "ZELNOR", sentence);
  };
  if (exchange.stalled) return error(kHttpTimedOut, "No answer came from " + host + " in time.");
  switch (code) {
    case CURLE_UNSUPPORTED_PROTOCOL:
      if (exchange.connected) break;  // what answered there doesn't speak HTTP
      [[fallthrough]];
    case CURLE_URL_MALFORMAT:
    case CURLE_LOGIN_DENIED:  // a user and password in the address itself
      return error(kHttpBadAddress, "The gateway's address is no plain http or https address.");
    case CURLE_COULDNT_RESOLVE_HOST:
      return error(kHttpNoConnection, "The name of " + host + " could not be resolved.");
    case CURLE_OPERATION_TIMEDOUT:
      return error(kHttpTimedOut, "The connection to " + host + " timed out.");
    case CURLE_SSL_CONNECT_ERROR:
      if (BrokenOffInHandshake(detail)) break;
      [[fallthrough]];
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CIPHER:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_INVALIDCERTSTATUS:
    case CURLE_SSL_PINNEDPUBKEYNOTMATCH:
      return error(kHttpRefusedCertificate,
                   "The security certificate or TLS of " + host + " was refused: " + cause + ".");
    case CURLE_OK:
      return error(kHttpNoConnection, "The connection to " + host + " broke off in the answer's header.");
    default:
      break;
  }
  return error(kHttpNoConnection, "The connection to " + host + " failed: " + cause + ".");
}

struct HeaderList {
  HeaderList() = default;
  HeaderList(const HeaderList&) = delete;
  HeaderList& operator=(const HeaderList&) = delete;
  ~HeaderList() { curl_slist_free_all(list); }
  void Add(const String& line) {
    curl_slist* longer = curl_slist_append(list, line.c_str());
    if (longer == nullptr) throw std::bad_alloc();
    list = longer;
  }
  curl_slist* list = nullptr;
};

// A server that has gone away in the middle of a write over TLS must not end the process.
class WithoutBrokenPipe {
 public:
  WithoutBrokenPipe() {
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe_, &former_);
  }
  WithoutBrokenPipe(const WithoutBrokenPipe&) = delete;
  WithoutBrokenPipe& operator=(const WithoutBrokenPipe&) = delete;
  ~WithoutBrokenPipe() {
    constexpr timespec kNow{};
    if (sigismember(&former_, SIGPIPE) == 0) sigtimedwait(&pipe_, nullptr, &kNow);
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
  }

 private:
  sigset_t pipe_{};
  sigset_t former_{};
};

/// The hosts that are reached without a proxy. "*", for all, is known to libcurl only by itself.
String NoProxy() {
  String hosts;
  for (const char* name : {"no_proxy", "NO_PROXY"}) {
    const String value = Environment(name);
    if (value == "*") return "*";
    hosts += value + ",";
  }
  return hosts.append(kNoProxy);
}

}  // namespace

HttpAnswer ExchangeHttp(const HttpMessage& message) {
  StartCurl();
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> handle(curl_easy_init(), curl_easy_cleanup);
  CURL* curl = handle.get();
  if (curl == nullptr) throw std::bad_alloc();
  Exchange exchange{.message = message, .answer = {}};
  std::array<char, CURL_ERROR_SIZE> detail{};
  HeaderList headers;
  for (const auto& [name, value] : message.headers) headers.Add(name + ": " + value);
  headers.Add("Expect:");  // one round trip less, and some servers never answer it
  if (message.url.starts_with("https:") && !message.user.empty()) {
    // libcurl sends these only where the server has asked for them.
    curl_easy_setopt(curl, CURLOPT_USERNAME, message.user.c_str());
    curl_easy_setopt(curl, CURLOPT_PASSWORD, message.password.c_str());
    curl_easy_setopt(curl, CURLOPT_HTTPAUTH, CURLAUTH_BASIC | CURLAUTH_DIGEST);
  }
  const String no_proxy = NoProxy();
  const String certificates = Environment("SSL_CERT_FILE");
  if (!certificates.empty()) curl_easy_setopt(curl, CURLOPT_CAINFO, certificates.c_str());
  curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, detail.data());
  curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(curl, CURLOPT_URL, message.url.c_str());
  curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl, CURLOPT_DISALLOW_USERNAME_IN_URL, 1L);
  curl_easy_setopt(curl, CURLOPT_NOPROXY, no_proxy.c_str());
  curl_easy_setopt(curl, CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_1);
  curl_easy_setopt(curl, CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2);
  curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 0L);
  // libcurl repeats a POST whose kept connection turns out dead; a submission must not go twice.
  curl_easy_setopt(curl, CURLOPT_FRESH_CONNECT, 1L);
  curl_easy_setopt(curl, CURLOPT_FORBID_REUSE, 1L);
  curl_easy_setopt(curl, CURLOPT_ACCEPT_ENCODING, "gzip");
  curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(message.connect_timeout));
  curl_easy_setopt(curl, CURLOPT_POST, 1L);
  curl_easy_setopt(curl, CURLOPT_CUSTOMREQUEST, message.method.c_str());
  curl_easy_setopt(curl, CURLOPT_POSTFIELDS, message.body.data());
  curl_easy_setopt(curl, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(message.body.size()));
  curl_easy_setopt(curl, CURLOPT_HTTPHEADER, headers.list);
  curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, OnBody);
  curl_easy_setopt(curl, CURLOPT_WRITEDATA, &exchange);
  curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, OnHeader);
  curl_easy_setopt(curl, CURLOPT_HEADERDATA, &exchange);
  curl_easy_setopt(curl, CURLOPT_PREREQFUNCTION, OnConnected);
  curl_easy_setopt(curl, CURLOPT_PREREQDATA, &exchange);
  curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, OnProgress);
  curl_easy_setopt(curl, CURLOPT_XFERINFODATA, &exchange);
  const WithoutBrokenPipe quiet;
  const CURLcode code = curl_easy_perform(curl);
  // An answer that can't be unpacked is an answer without a document.
  if (code == CURLE_BAD_CONTENT_ENCODING) exchange.answer.body = {};
  // libcurl takes a header that breaks off for a whole one.
  const bool whole = code == CURLE_OK && exchange.header_ended;
  const bool answered = whole || code == CURLE_BAD_CONTENT_ENCODING || exchange.answer.too_long;
  if (!answered) throw ErrorOf(code, exchange, detail.data());
  long status = 0;
  curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);
  exchange.answer.status = static_cast<Long>(status);
  return std::move(exchange.answer);
}

void HttpRequest::Open(const String& method, const String& url, const String& user, const String& password) {
  message_.method = method;
  message_.url = url;
  message_.user = user;
  message_.password = password;
  message_.headers.clear();
  response_ = nullptr;
}

void HttpRequest::SetRequestHeader(const String& name, const String& value) {
  message_.headers.emplace_back(name, value);
}

void HttpRequest::Send(String body) {
  response_ = nullptr;
  message_.body = std::move(body);
  const HttpAnswer answer = CurrentHost()->Exchange(message_);
  message_.body = {};
  XmlDocument document;
  const bool redirected = answer.status >= 300 && answer.status < 400;
  if (!answer.too_long && !redirected) document.LoadBytes(answer.body);
  response_ = document;
}

void HttpRequest::Send(const XmlDocument& document) { Send(document.Xml()); }

}  // namespace zelnor
