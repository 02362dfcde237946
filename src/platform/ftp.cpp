#include "zelnor/platform/ftp.h"

#include "zelnor/platform/failure.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <poll.h>
#include <utility>

#include <curl/curl.h>

namespace zelnor {
namespace {

using Clock = std::chrono::steady_clock;

struct Sentence {
  Long code;
  const char* text;
};

constexpr Sentence kSentences[] = {
    {kFtpNoMoreFiles, "There is no file of that name on the FTP server."},
    {kFtpTimedOut, "The FTP server did not answer in time."},
    {kFtpExtendedError, "The FTP server refused the operation."},
    {kFtpNameNotResolved, "The name of the FTP server could not be resolved."},
    {kFtpLoginRefused, "The FTP server refused the user name or the password."},
    {kFtpCannotConnect, "No connection, or no secure one, could be made to the FTP server."},
    {kFtpConnectionReset, "The connection to the FTP server was broken off."},
};

// What the library made, with its function that takes it away.
template <auto function>
struct Release {
  template <class Object>
  void operator()(Object* object) const {
    function(object);
  }
};
template <class Object, auto function>
using Handle = std::unique_ptr<Object, Release<function>>;

// A name goes into a line of the protocol, and must not end it.
void RequireOneLine(const String& text) {
  if (std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
      })) {
    ThrowInvalidArgument();
  }
}

// "host", "host:port", "[address]", "[address]:port"; an address of IPv6 alone has more than one colon.
std::pair<String, String> HostAndPort(const String& server) {
  const std::size_t colon = server.rfind(':');
  if (colon == String::npos || server.ends_with(']')) return {server, {}};
  if (server.find(':') != colon && server[colon - 1] != ']') return {"[" + server + "]", {}};
  return {server.substr(0, colon), server.substr(colon + 1)};
}

int ReplyCode(const String& reply) { return reply.size() < 3 ? 0 : std::atoi(reply.substr(0, 3).c_str()); }

// "123 text" ends a reply, "123-text" and anything else goes on.
bool EndsReply(std::string_view line) {
  const auto digit = [](char c) { return c >= '0' && c <= '9'; };
  return line.size() >= 3 && digit(line[0]) && digit(line[1]) && digit(line[2]) &&
         (line.size() == 3 || line[3] == ' ' || line[3] == '\r' || line[3] == '\n');
}

// Commands as the library takes them.
using CommandList = Handle<curl_slist, curl_slist_free_all>;

void StartLibraryOnce() {
  static std::once_flag once;
  std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

// libcurl 7.87 and 7.88 send the file of an active transfer in the clear, whatever was agreed with the
// server.
bool ProtectsActiveTransfers() {
  constexpr unsigned kFirstThatDoes = 0x080000;
  return curl_version_info(CURLVERSION_NOW)->version_num >= kFirstThatDoes;
}

Long CodeOf(CURLcode result) {
  switch (result) {
    case CURLE_OPERATION_TIMEDOUT:
    case CURLE_FTP_ACCEPT_TIMEOUT:
      return kFtpTimedOut;
    case CURLE_COULDNT_RESOLVE_HOST:
      return kFtpNameNotResolved;
    case CURLE_LOGIN_DENIED:
      return kFtpLoginRefused;
    case CURLE_COULDNT_CONNECT:
    case CURLE_USE_SSL_FAILED:
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CIPHER:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_PEER_FAILED_VERIFICATION:
      return kFtpCannotConnect;
    default:
      return kFtpConnectionReset;
  }
}

// Results that tell of a reply of the server which was no success.
bool IsRefusal(CURLcode result) {
  switch (result) {
    case CURLE_FTP_WEIRD_SERVER_REPLY:
    case CURLE_REMOTE_ACCESS_DENIED:
    case CURLE_FTP_WEIRD_PASS_REPLY:
    case CURLE_FTP_WEIRD_PASV_REPLY:
    case CURLE_FTP_COULDNT_SET_TYPE:
    case CURLE_FTP_COULDNT_RETR_FILE:
    case CURLE_QUOTE_ERROR:
    case CURLE_UPLOAD_FAILED:
    case CURLE_FTP_PORT_FAILED:
    case CURLE_FTP_ACCEPT_FAILED:
    case CURLE_REMOTE_DISK_FULL:
    case CURLE_REMOTE_FILE_EXISTS:
    case CURLE_REMOTE_FILE_NOT_FOUND:
    case CURLE_PARTIAL_FILE:
    case CURLE_OPERATION_TIMEDOUT:  // so the library takes a 421
      return true;
    default:
      return false;
  }
}

}  // namespace

String FtpErrorText(Long code) {
  for (const Sentence& each : kSentences) {
    if (each.code == code) return each.text;
  }
  return {};
}

class FtpConnection::Session {
 public:
  explicit Session(FtpConnection& owner) : owner_(owner), multi_(curl_multi_init()), curl_(curl_easy_init()) {
    if (!multi_ || !curl_) throw std::bad_alloc();
  }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  FtpOutcome Open(const String& server, const String& user, const String& password, bool passive);
  bool Protected() const { return secure_; }
  bool LeftUnprotected() const { return !secure_ && result_ == CURLE_USE_SSL_FAILED; }
  FtpOutcome Command(const String& text);
  FtpOutcome Transfer(const String& remote, bool ascii, const Source* source, const Sink* sink);
  FtpOutcome Size(const String& remote, std::int64_t& size);

 private:
  template <class Value>
  void Set(CURLoption option, Value value) {
    if (curl_easy_setopt(curl_.get(), option, value) != CURLE_OK) throw std::bad_alloc();
  }

  void SetOptions(bool passive);
  void GoPassive();
  void GoTo(const String& remote);
  CURLcode Run();
  FtpOutcome Perform();
  FtpOutcome Quote(const String& first, const String& second);
  bool TakeReplyLine(std::string_view line);
  bool ReplyWaits() const;
  template <class Body>
  bool Guarded(Body&& body) noexcept;
  void Forget() noexcept;

  // Nothing of an operation outlasts it.
  struct AtItsEnd {
    Session& session;
    ~AtItsEnd() { session.Forget(); }
  };

  void RequireIdle() const {
    if (busy_) ThrowInvalidArgument();
  }

  // The library's callbacks.
  static std::size_t OnReply(char* bytes, std::size_t size, std::size_t count, void* self);
  static int OnTalk(CURL* curl, curl_infotype kind, char* bytes, std::size_t count, void* self);
  static std::size_t OnRead(char* buffer, std::size_t size, std::size_t count, void* self);
  static std::size_t OnWrite(char* bytes, std::size_t size, std::size_t count, void* self);
  static int OnProgress(void* self, curl_off_t total_down, curl_off_t down, curl_off_t total_up,
                        curl_off_t up);

  FtpConnection& owner_;
  Handle<CURLM, curl_multi_cleanup> multi_;  // holds the connection, and so goes last
  Handle<CURL, curl_easy_cleanup> curl_;
  String root_;  // the server's address as the library takes it
  bool passive_ = true;
  bool opened_ = false;
  bool busy_ = false;
  bool secure_ = false;                      // the commands go under TLS
  bool ascii_ = false;                       // whether the server may take the next file for text
  long response_limit_ = 0;                  // seconds
  curl_socket_t control_ = CURL_SOCKET_BAD;  // bad when the connection is closed

  // Of the operation that runs.
  const Source* source_ = nullptr;
  const Sink* sink_ = nullptr;
  std::string_view block_;  // what is left of the source's block
  bool source_ends_ = false;
  CURLcode result_ = CURLE_OK;
  String reply_;
  bool reply_ends_ = true;
  bool began_ = false;
  bool moved_ = false;       // a byte of the file went over
  bool protecting_ = false;  // the last command asks for files under TLS
  bool unprotected_ = false;
  bool lost_ = false;
  bool timed_out_ = false;
  curl_off_t seen_bytes_ = 0;
  Clock::time_point last_byte_;
  std::exception_ptr error_;
};

// Says good-bye. What the library does about that when it is taken down itself may last minutes.
FtpConnection::Session::~Session() {
  constexpr long kGoodBye = 5;  // seconds
  if (control_ == CURL_SOCKET_BAD) return;
  try {
    Set(CURLOPT_FORBID_REUSE, 1L);
    Set(CURLOPT_SERVER_RESPONSE_TIMEOUT, std::min(response_limit_, kGoodBye));
    Quote({}, {});
  } catch (...) {
    // The connection is closed all the same.
  }
}

void FtpConnection::Session::Forget() noexcept {
  source_ = nullptr;
  sink_ = nullptr;
  for (const CURLoption each : {CURLOPT_QUOTE, CURLOPT_PREQUOTE}) {
    curl_easy_setopt(curl_.get(), each, static_cast<curl_slist*>(nullptr));
  }
}

void FtpConnection::Session::SetOptions(bool passive) {
  Set(CURLOPT_PROTOCOLS_STR, "ftp");
  Set(CURLOPT_NOSIGNAL, 1L);
  Set(CURLOPT_PROXY, "");
  Set(CURLOPT_TCP_KEEPALIVE, 1L);
  // The one connection serves until it is closed; that it is fresh after a pause of a while would go
  // unnoticed and leave the folder of the session behind.
  Set(CURLOPT_MAXAGE_CONN, 365L * 24 * 3600);
  Set(CURLOPT_PATH_AS_IS, 1L);
  Set(CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_NOCWD));
  Set(CURLOPT_IGNORE_CONTENT_LENGTH, 1L);  // no size query of the library's own

  Set(CURLOPT_USE_SSL, static_cast<long>(owner_.protected_only ? CURLUSESSL_ALL : CURLUSESSL_TRY));
  Set(CURLOPT_FTPSSLAUTH, static_cast<long>(CURLFTPAUTH_TLS));
  // Servers want the files' connections to take up the session of the commands' one, as a proof that both are
  // the same client's. Under TLS 1.3, whose tickets serve once, they refuse the second file.
  Set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2) | CURL_SSLVERSION_MAX_TLSv1_2);
  if (const char* file = std::getenv("SSL_CERT_FILE"); file != nullptr && *file != '\0') {
    Set(CURLOPT_CAINFO, file);
  }
  if (const char* folder = std::getenv("SSL_CERT_DIR"); folder != nullptr && *folder != '\0') {
    Set(CURLOPT_CAPATH, folder);
  }

  passive_ = passive;
  if (!passive) Set(CURLOPT_FTPPORT, "-");

  const auto limit = [](std::chrono::milliseconds value) { return std::max<long>(1, value.count()); };
  Set(CURLOPT_CONNECTTIMEOUT_MS, limit(owner_.connect_limit));
  Set(CURLOPT_ACCEPTTIMEOUT_MS, limit(owner_.connect_limit));
  // Silence is measured in OnProgress; the library's own limit only must not come first.
  response_limit_ = limit(owner_.silence_limit) / 1000 + 2;
  Set(CURLOPT_SERVER_RESPONSE_TIMEOUT, response_limit_);

  Set(CURLOPT_HEADERFUNCTION, &Session::OnReply);
  Set(CURLOPT_HEADERDATA, this);
  Set(CURLOPT_VERBOSE, 1L);
  Set(CURLOPT_DEBUGFUNCTION, &Session::OnTalk);
  Set(CURLOPT_DEBUGDATA, this);
  Set(CURLOPT_READFUNCTION, &Session::OnRead);
  Set(CURLOPT_READDATA, this);
  Set(CURLOPT_WRITEFUNCTION, &Session::OnWrite);
  Set(CURLOPT_WRITEDATA, this);
  Set(CURLOPT_NOPROGRESS, 0L);
  Set(CURLOPT_XFERINFOFUNCTION, &Session::OnProgress);
  Set(CURLOPT_XFERINFODATA, this);
}

void FtpConnection::Session::GoPassive() {
  passive_ = true;
  Set(CURLOPT_FTPPORT, static_cast<const char*>(nullptr));
}

FtpOutcome FtpConnection::Session::Open(const String& server, const String& user, const String& password,
                                        bool passive) {
  RequireIdle();
  RequireOneLine(user);
  RequireOneLine(password);
  const auto [host, port] = HostAndPort(server);
  const Handle<CURLU, curl_url_cleanup> url(curl_url());
  if (!url) throw std::bad_alloc();
  char* text = nullptr;
  if (host.empty() || curl_url_set(url.get(), CURLUPART_SCHEME, "ftp", 0) != CURLUE_OK ||
      curl_url_set(url.get(), CURLUPART_HOST, host.c_str(), 0) != CURLUE_OK ||
      (!port.empty() && curl_url_set(url.get(), CURLUPART_PORT, port.c_str(), 0) != CURLUE_OK) ||
      curl_url_get(url.get(), CURLUPART_URL, &text, 0) != CURLUE_OK) {
    return {kFtpNameNotResolved, {}};
  }
  root_ = text;
  curl_free(text);
  if (!root_.ends_with('/')) root_ += '/';
  SetOptions(passive);
  if (!user.empty()) {
    Set(CURLOPT_USERNAME, user.c_str());
    Set(CURLOPT_PASSWORD, password.c_str());
  }
  FtpOutcome outcome = Quote({}, {});
  opened_ = outcome.code == 0;
  if (!opened_) return outcome;
  if (secure_ && !ProtectsActiveTransfers()) GoPassive();
  return outcome;
}

FtpOutcome FtpConnection::Session::Command(const String& text) {
  RequireOneLine(text);
  FtpOutcome outcome = Quote(text, {});
  if (outcome && ReplyCode(outcome.reply) >= 400) outcome.code = kFtpExtendedError;
  return outcome;
}

// Connects where that wasn't done yet, and sends up to two commands; of the first a refusal doesn't count,
// and of the second the caller reads the reply.
FtpOutcome FtpConnection::Session::Quote(const String& first, const String& second) {
  RequireIdle();
  Set(CURLOPT_URL, root_.c_str());
  Set(CURLOPT_UPLOAD, 0L);
  Set(CURLOPT_NOBODY, 1L);
  curl_slist* commands = nullptr;
  for (const String& each : {first, second}) {
    // The star keeps the connection after a refusal.
    if (!each.empty()) commands = curl_slist_append(commands, ("*" + each).c_str());
  }
  const CommandList held(commands);
  const AtItsEnd forget{*this};
  Set(CURLOPT_QUOTE, held.get());
  return Perform();
}

void FtpConnection::Session::GoTo(const String& remote) {
  RequireOneLine(remote);
  if (remote.empty()) ThrowInvalidArgument();
  char* name = curl_easy_escape(curl_.get(), remote.c_str(), static_cast<int>(remote.size()));
  if (name == nullptr) throw std::bad_alloc();
  const String address = root_ + name;
  curl_free(name);
  Set(CURLOPT_URL, address.c_str());
}

FtpOutcome FtpConnection::Session::Transfer(const String& remote, bool ascii, const Source* source,
                                            const Sink* sink) {
  RequireIdle();
  GoTo(remote);
  // The library is told of binary data whatever they are, so that it changes no line end; what the caller
  // wants is announced behind that.
  const bool was_ascii = ascii_;
  const CommandList commands(ascii || was_ascii ? curl_slist_append(nullptr, ascii ? "TYPE A" : "TYPE I")
                                                : nullptr);
  const AtItsEnd forget{*this};
  Set(CURLOPT_PREQUOTE, commands.get());
  Set(CURLOPT_NOBODY, 0L);
  Set(CURLOPT_UPLOAD, source != nullptr ? 1L : 0L);
  source_ = source;
  sink_ = sink;
  ascii_ = true;  // of a transfer that is broken off nobody knows
  FtpOutcome outcome = Perform();
  if (!passive_ && !moved_ && (result_ == CURLE_FTP_PORT_FAILED || ReplyCode(outcome.reply) == 425)) {
    GoPassive();
    outcome = Perform();
  }
  if (outcome) ascii_ = ascii;
  if (outcome && source != nullptr && !source_ends_) outcome.code = kFtpConnectionReset;
  return outcome;
}

FtpOutcome FtpConnection::Session::Size(const String& remote, std::int64_t& size) {
  RequireOneLine(remote);
  // Servers tell the size of what they would send, and of text many tell none.
  FtpOutcome outcome = Quote("TYPE I", "SIZE " + remote);
  if (!outcome) return outcome;
  ascii_ = false;
  const int code = ReplyCode(outcome.reply);
  if (code == 550) {
    outcome.code = kFtpNoMoreFiles;
  } else if (code != 213) {
    outcome.code = kFtpExtendedError;
  } else {
    size = std::strtoll(outcome.reply.c_str() + 3, nullptr, 10);
  }
  return outcome;
}

// Drives the library, which overlooks in some states that a socket is ready, and so is woken often.
CURLcode FtpConnection::Session::Run() {
  constexpr int kNap = 20;  // milliseconds
  if (curl_multi_add_handle(multi_.get(), curl_.get()) != CURLM_OK) throw std::bad_alloc();
  CURLcode result = CURLE_SEND_ERROR;
  for (int running = 1; running != 0;) {
    if (curl_multi_perform(multi_.get(), &running) != CURLM_OK) break;
    if (running != 0) curl_multi_poll(multi_.get(), nullptr, 0, kNap, nullptr);
  }
  int left = 0;
  while (const CURLMsg* message = curl_multi_info_read(multi_.get(), &left)) {
    if (message->msg == CURLMSG_DONE) result = message->data.result;
  }
  curl_easy_getinfo(curl_.get(), CURLINFO_ACTIVESOCKET, &control_);
  curl_multi_remove_handle(multi_.get(), curl_.get());
  return result;
}

FtpOutcome FtpConnection::Session::Perform() {
  reply_.clear();
  reply_ends_ = true;
  began_ = moved_ = protecting_ = unprotected_ = lost_ = timed_out_ = source_ends_ = false;
  block_ = {};
  seen_bytes_ = 0;
  error_ = nullptr;
  last_byte_ = Clock::now();
  busy_ = true;
  result_ = Run();
  busy_ = false;
  if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
  while (reply_.ends_with('\n') || reply_.ends_with('\r')) reply_.pop_back();
  FtpOutcome outcome{0, reply_, began_};
  if (result_ == CURLE_OK) return outcome;
  if (timed_out_) {
    outcome.code = kFtpTimedOut;
  } else if (unprotected_) {
    outcome.code = kFtpCannotConnect;
  } else if (lost_) {
    outcome.code = kFtpConnectionReset;
  } else if (IsRefusal(result_) && ReplyCode(reply_) >= 400) {
    outcome.code = kFtpExtendedError;
  } else {
    outcome.code = !opened_ && result_ == CURLE_URL_MALFORMAT ? kFtpNameNotResolved : CodeOf(result_);
  }
  return outcome;
}

// Runs what may raise an error below the library, through which none may pass. False after an error, which
// Perform raises again.
template <class Body>
bool FtpConnection::Session::Guarded(Body&& body) noexcept {
  try {
    body();
    last_byte_ = Clock::now();
    return true;
  } catch (...) {
    error_ = std::current_exception();
    return false;
  }
}

bool FtpConnection::Session::TakeReplyLine(std::string_view line) {
  if (reply_ends_) reply_.clear();
  reply_ += line;
  reply_ends_ = EndsReply(line);
  if (!reply_ends_) return true;
  const int code = ReplyCode(reply_);
  if (code < 200) began_ = true;
  if (code == 234) secure_ = true;
  // The library would log in anew by itself, in another folder.
  if (code == 220 && opened_) lost_ = true;
  if (protecting_ && code >= 400) unprotected_ = true;
  return !lost_ && !unprotected_;
}

std::size_t FtpConnection::Session::OnReply(char* bytes, std::size_t size, std::size_t count, void* self) {
  Session& session = *static_cast<Session*>(self);
  bool goes_on = false;
  session.Guarded([&] { goes_on = session.TakeReplyLine({bytes, size * count}); });
  return goes_on ? size * count : 0;
}

// Sees the commands go out, passwords among them, and keeps nothing of them.
int FtpConnection::Session::OnTalk(CURL*, curl_infotype kind, char* bytes, std::size_t count, void* self) {
  if (kind != CURLINFO_HEADER_OUT) return 0;
  Session& session = *static_cast<Session*>(self);
  session.reply_.clear();
  session.reply_ends_ = true;
  session.protecting_ = std::string_view(bytes, count).starts_with("PROT ");
  return 0;
}

// A reply that comes before the file was sent is the server's refusal of the rest; to go on writing would
// break the connection and lose it.
bool FtpConnection::Session::ReplyWaits() const {
  pollfd control{control_, POLLIN, 0};
  return poll(&control, 1, 0) > 0;
}

std::size_t FtpConnection::Session::OnRead(char* buffer, std::size_t size, std::size_t count, void* self) {
  Session& session = *static_cast<Session*>(self);
  if (session.source_ == nullptr) return CURL_READFUNC_ABORT;
  session.began_ = true;
  if (session.ReplyWaits()) return 0;
  // A block may be larger than the buffer.
  std::size_t taken = 0;
  const bool good = session.Guarded([&] {
    if (session.block_.empty()) session.block_ = (*session.source_)();
    session.source_ends_ = session.block_.empty();
    taken = std::min(size * count, session.block_.size());
    std::copy_n(session.block_.data(), taken, buffer);
    session.block_.remove_prefix(taken);
    session.moved_ = session.moved_ || taken > 0;
  });
  return good ? taken : CURL_READFUNC_ABORT;
}

std::size_t FtpConnection::Session::OnWrite(char* bytes, std::size_t size, std::size_t count, void* self) {
  Session& session = *static_cast<Session*>(self);
  if (session.sink_ == nullptr) return size * count;
  session.moved_ = true;
  return session.Guarded([&] { (*session.sink_)({bytes, size * count}); }) ? size * count : 0;
}

int FtpConnection::Session::OnProgress(void* self, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up) {
  Session& session = *static_cast<Session*>(self);
  if (down + up != session.seen_bytes_) {
    session.seen_bytes_ = down + up;
    session.last_byte_ = Clock::now();
  }
  session.timed_out_ = Clock::now() - session.last_byte_ > session.owner_.silence_limit;
  if (session.timed_out_) return 1;
  if (!session.owner_.stop) return 0;
  const Clock::time_point last_byte = session.last_byte_;
  bool stopped = false;
  const bool good = session.Guarded([&] { stopped = session.owner_.stop(); });
  session.last_byte_ = last_byte;
  return !good || stopped ? 1 : 0;
}

FtpConnection::FtpConnection() {
  StartLibraryOnce();
  session_ = std::make_unique<Session>(*this);
}

FtpConnection::~FtpConnection() = default;

FtpOutcome FtpConnection::Open(const String& server, const String& user, const String& password,
                               bool passive) {
  return session_->Open(server, user, password, passive);
}

bool FtpConnection::Protected() const { return session_->Protected(); }

bool FtpConnection::LeftUnprotected() const { return session_->LeftUnprotected(); }

FtpOutcome FtpConnection::Command(const String& text) { return session_->Command(text); }

FtpOutcome FtpConnection::Upload(const String& remote, bool ascii, const Source& source) {
  return session_->Transfer(remote, ascii, &source, nullptr);
}

FtpOutcome FtpConnection::Download(const String& remote, bool ascii, const Sink& sink) {
  return session_->Transfer(remote, ascii, nullptr, &sink);
}

FtpOutcome FtpConnection::Size(const String& remote, std::int64_t& size) {
  return session_->Size(remote, size);
}

}  // namespace zelnor
