#include "zelnor/standin/local_gateway.h"

#include "zelnor/platform/address.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"
#include "zelnor/standin/engine.h"
#include "zelnor/standin/wire.h"

#include <array>
#include <atomic>
#include <condition_variable>
#include <csignal>
#include <filesystem>
#include <mutex>
#include <set>
#include <stdexcept>
#include <thread>
#include <unistd.h>
#include <zlib.h>

namespace zelnor::standin {
namespace {

constexpr const char* kHost = "127.0.0.1";
constexpr std::size_t kThreads = 32;
constexpr time_t kPatience = 60;  // seconds for a client that says nothing

std::string Gzip(const std::string& text) {
  z_stream stream{};
  constexpr int kGzipWindow = 15 + 16;
  deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, kGzipWindow, 8, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, text.size()) + 32, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
  stream.avail_in = static_cast<uInt>(text.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

// The message in another encoding, or in none that it says it has.
std::string Encoded(const std::string& text, const std::string& how) {
  constexpr std::string_view kDeclared = "encoding=\"UTF-8\"";
  const std::size_t at = text.find(kDeclared);
  const auto declared = [&](const char* name) {
    std::string other = text;
    if (at != std::string::npos)
      other.replace(at, kDeclared.size(), std::string("encoding=\"") + name + "\"");
    return other;
  };
  if (how == "utf-16") {
    std::string wide = "\xFF\xFE";
    for (const char16_t unit : ToUtf16(declared("UTF-16"))) {
      wide += static_cast<char>(unit & 0xFF);
      wide += static_cast<char>(unit >> 8);
    }
    return wide;
  }
  std::string narrow = how == "latin1" ? declared("ISO-8859-1") : text;
  const std::size_t end = narrow.rfind("</GovTalkMessage>");
  if (end != std::string::npos) narrow.insert(end, "<!--\xE9-->");
  return narrow;
}

// The path of an address; empty for one without.
std::string PathOf(const std::string& url) {
  const std::size_t host = url.find("://");
  if (host == std::string::npos) return {};
  const std::size_t path = url.find('/', host + 3);
  return path == std::string::npos ? std::string() : url.substr(path, url.find_first_of("?#", path) - path);
}

// Whether a client's word for the gateway is a name or an address, with or without a port, and nothing else.
bool IsHost(const std::string& text) {
  constexpr std::size_t kLongest = 253 + std::string_view(":65535").size();
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-[:]";
  return !text.empty() && text.size() <= kLongest && text.find_first_not_of(kLetters) == std::string::npos &&
         HostOfAddress("http://" + text).has_value();
}

std::string Quoted(const std::string& path) { return "\"" + path + "\""; }

}  // namespace

class LocalGateway::Server : public httplib::Server {
 public:
  explicit Server(GatewayOptions options) : options_(std::move(options)) {}

  void Start() {
    SetScenario(options_.scenario);
    if (!options_.schema_folder.empty() && !std::filesystem::is_directory(options_.schema_folder)) {
      throw std::runtime_error("The folder of the schemas, " + Quoted(options_.schema_folder) +
                               ", isn't there.");
    }
    MakeRecordFolder();
    if (!options_.certificate.empty() || !options_.key.empty()) ReadCertificate();
    // A stalled exchange holds a thread; others must go on beside it.
    new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
    // The HTTP library would share a port with whoever has it.
    set_socket_options([](socket_t socket) {
      const int yes = 1;
      setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    port_ = options_.port == 0 ? bind_to_any_port(kHost) : options_.port;
    if (options_.port != 0 && !bind_to_port(kHost, options_.port)) port_ = -1;
    if (port_ <= 0) {
      throw std::runtime_error("Port " + std::to_string(options_.port) +
                               " can't be listened on. Perhaps another program has it; 0 picks a free one.");
    }
    engine_ = std::make_unique<Engine>(options_);
    Get(".*", [](const httplib::Request&, httplib::Response& response) {
      response.status = 405;
      response.set_header("Allow", "POST");
      response.set_content("This is a local gateway. It takes messages by POST.\n", "text/plain");
    });
    Post(".*",
         [this](const httplib::Request& request, httplib::Response& response) { Serve(request, response); });
    listening_ = std::thread([this] { listen_after_bind(); });
    while (!is_running()) std::this_thread::yield();
  }

  void Stop() {
    if (!listening_.joinable()) return;
    stopping_ = true;
    rest_.notify_all();
    {
      const std::lock_guard lock(mutex_);
      for (const int socket : sockets_) shutdown(socket, SHUT_RDWR);
    }
    stop();
    listening_.join();
  }

  int Port() const { return port_; }
  std::string Url() const { return Scheme() + kHost + ":" + std::to_string(port_); }

  std::vector<Exchange> Exchanges() const {
    const std::lock_guard lock(mutex_);
    return exchanges_;
  }

  void SetScenario(const std::string& text) {
    Scenario scenario(text);
    const std::lock_guard lock(mutex_);
    scenario_ = std::move(scenario);
  }

 private:
  std::string Scheme() const { return context_ ? "https://" : "http://"; }

  // One connection, one request.
  bool process_and_close_socket(socket_t socket) override {
    sigset_t pipe;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, nullptr);  // a client that has gone is no reason to end
    if (Admit(socket)) {
      const timeval patience{.tv_sec = kPatience, .tv_usec = 0};
      setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
      WireStream stream(socket, context_.get(), stopping_);
      stream_ = &stream;
      bool closed = false;
      if (stream.Stands()) process_request(stream, true, closed, PrepareRequest);
      stream_ = nullptr;
    }
    {
      const std::lock_guard lock(mutex_);
      sockets_.erase(socket);
    }
    shutdown(socket, SHUT_RDWR);
    close(socket);
    return true;
  }

  bool Admit(int socket) {
    const std::lock_guard lock(mutex_);
    if (stopping_ || scenario_.TakeRefusal()) return false;
    sockets_.insert(socket);
    return true;
  }

  // The HTTP library would pack each answer for whoever takes it packed, and take a body apart, or refuse it,
  // by its content type. The gateway takes any body as a message.
  static void PrepareRequest(httplib::Request& request) {
    request.headers.erase("Accept-Encoding");
    content_type_ = request.get_header_value("Content-Type");
    request.headers.erase("Content-Type");
  }

  // The address by which the client knows the gateway: a certificate is for a name.
  std::string UrlFor(const httplib::Request& request) const {
    const std::string host = request.get_header_value("Host");
    return IsHost(host) ? Scheme() + host : Url();
  }

  void Serve(const httplib::Request& request, httplib::Response& response) {
    std::optional<Action> action;
    Engine::Reply reply;
    {
      const std::lock_guard lock(mutex_);
      action = TakeAction(request);
      if (!action && !paths_.contains(request.path)) {
        reply = {.kind = {},
                 .request = "request to " + request.path,
                 .answer = "404, not found",
                 .body = "A message goes to " + Url() + "/submission, a poll to " + Url() + "/poll.\n"};
        response.set_header("Content-Type", "text/plain");
      } else {
        reply = engine_->Answer(request.body, action, UrlFor(request));
      }
    }
    response.status = reply.kind.empty() ? 404 : 200;
    response.body = reply.body;
    if (action) Misbehave(*action, response, reply);
    if (!response.has_header("Content-Type")) response.set_header("Content-Type", "text/xml; charset=UTF-8");
    Note(request, response, reply);
  }

  // What is told for a request. A client that comes back with the credentials that it was asked for gets the
  // proper answer.
  std::optional<Action> TakeAction(const httplib::Request& request) {
    const bool authorized = request.has_header("Authorization");
    if (std::exchange(asked_for_credentials_, false) && authorized) return std::nullopt;
    std::optional<Action> action = scenario_.Take(Engine::KindOf(request.body));
    if (!action) return action;
    if (action->Is("unauthorized")) {
      if (authorized) return std::nullopt;
      asked_for_credentials_ = true;
    }
    for (const char* key : {"endpoint", "location"}) paths_.insert(PathOf(action->Option(key)));
    return action;
  }

  // What an action does to the proper answer on its way out.
  void Misbehave(const Action& action, httplib::Response& response, Engine::Reply& reply) {
    const std::string argument = action.Argument();
    std::string& body = response.body;
    if (action.Is("drop") || action.Is("stall") || action.Is("refuse")) {
      using enum Break::Place;
      const Break::Place place = argument == "header" ? Header : argument == "body" ? Body : Before;
      stream_->BreakAt({.place = place, .stall = action.Is("stall")});
    } else if (action.Is("slow")) {
      Rest(std::atoi(action.Option("ms", "1000").c_str()));
    } else if (action.Is("status")) {
      response.status = std::atoi(argument.c_str());
      const bool with_message = action.arguments.size() > 1 && action.arguments[1] == "xml";
      if (!with_message) body = action.Option("body");
      if (const std::string place = action.Option("location"); !place.empty())
        response.set_header("Location", place);
    } else if (action.Is("unauthorized")) {
      response.status = 401;
      response.set_header("WWW-Authenticate", "Basic realm=\"gateway\"");
      body.clear();
    } else if (action.Is("empty")) {
      body.clear();
    } else if (action.Is("text")) {
      body = argument;
      response.set_header("Content-Type", "text/plain");
    } else if (action.Is("cut")) {
      body.resize(
          std::min(body.size(), static_cast<std::size_t>(std::atoi(action.Option("bytes", "200").c_str()))));
    } else if (action.Is("other-document")) {
      body = "<html><body>Down for maintenance</body></html>";
    } else if (action.Is("encoding")) {
      body = Encoded(body, argument);
    } else if (action.Is("huge")) {
      body += std::string(static_cast<std::size_t>(std::atoi(action.Option("mb", "65").c_str())) << 20, ' ');
    } else if (action.Is("gzip")) {
      body = Gzip(body);
      response.set_header("Content-Encoding", "gzip");
    } else if (action.Is("bad-gzip")) {
      body = "this is not packed";
      response.set_header("Content-Encoding", "gzip");
    } else if (action.Is("file")) {
      body = ReadFile(argument);
    } else {
      return;
    }
    reply.answer = "told: " + action.name;
    for (const std::string& each : action.arguments) reply.answer += " " + each;
  }

  void Note(const httplib::Request& request, const httplib::Response& response, const Engine::Reply& reply) {
    const std::string what = reply.request + " -> " + reply.answer;
    const std::lock_guard noting(noting_);
    std::size_t number = 0;
    {
      const std::lock_guard lock(mutex_);
      exchanges_.push_back({.path = request.path,
                            .authorization = request.get_header_value("Authorization"),
                            .content_type = content_type_,
                            .request = request.body,
                            .answer = response.body,
                            .what = what});
      number = exchanges_.size();
    }
    if (options_.log) options_.log(what);
    Record(number, request.body, response.body);
  }

  // The files 0001-request.xml and 0001-answer.xml, for their owner alone: a request holds a password.
  void Record(std::size_t number, const std::string& request, const std::string& answer) const {
    if (options_.record_folder.empty()) return;
    std::string name = std::to_string(number);
    name = options_.record_folder + "/" + std::string(name.size() < 4 ? 4 - name.size() : 0, '0') + name;
    try {
      WriteFile(name + "-request.xml", request);
      WriteFile(name + "-answer.xml", answer);
    } catch (const RuntimeError& error) {
      if (options_.log) options_.log("not recorded: " + name + "-...: " + error.Description());
    }
  }

  void MakeRecordFolder() const {
    if (options_.record_folder.empty() || FolderExists(options_.record_folder)) return;
    try {
      MakeFolder(options_.record_folder);
    } catch (const RuntimeError& error) {
      throw std::runtime_error("The folder " + Quoted(options_.record_folder) +
                               " can't be made: " + error.Description() + ".");
    }
  }

  void Rest(int milliseconds) {
    std::unique_lock lock(resting_);
    rest_.wait_for(lock, std::chrono::milliseconds(milliseconds), [&] { return stopping_.load(); });
  }

  void ReadCertificate() {
    context_.reset(SSL_CTX_new(TLS_server_method()));
    SSL_CTX_set_min_proto_version(context_.get(), TLS1_2_VERSION);
    const bool good =
        SSL_CTX_use_certificate_chain_file(context_.get(), options_.certificate.c_str()) == 1 &&
        SSL_CTX_use_PrivateKey_file(context_.get(), options_.key.c_str(), SSL_FILETYPE_PEM) == 1;
    if (!good) {
      throw std::runtime_error("The certificate " + Quoted(options_.certificate) + " with the key " +
                               Quoted(options_.key) +
                               " doesn't serve. Give two PEM files that belong together.");
    }
  }

  const GatewayOptions options_;
  std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context_{nullptr, SSL_CTX_free};
  std::unique_ptr<Engine> engine_;
  int port_ = 0;
  std::thread listening_;
  std::atomic<bool> stopping_ = false;
  mutable std::mutex mutex_;
  std::mutex noting_;  // the log takes one line at a time
  std::mutex resting_;
  std::condition_variable rest_;
  Scenario scenario_;
  std::set<int> sockets_;
  bool asked_for_credentials_ = false;
  std::set<std::string> paths_ = {"/submission", "/poll"};  // those, and what a scenario leads a client to
  std::vector<Exchange> exchanges_;

  // Of the connection that a thread serves.
  static thread_local WireStream* stream_;
  static thread_local std::string content_type_;
};

thread_local WireStream* LocalGateway::Server::stream_ = nullptr;
thread_local std::string LocalGateway::Server::content_type_;

LocalGateway::LocalGateway(GatewayOptions options) : server_(std::make_unique<Server>(std::move(options))) {}
LocalGateway::~LocalGateway() { server_->Stop(); }
void LocalGateway::Start() { server_->Start(); }
void LocalGateway::Stop() { server_->Stop(); }
int LocalGateway::port() const { return server_->Port(); }
std::string LocalGateway::url() const { return server_->Url(); }
std::vector<Exchange> LocalGateway::exchanges() const { return server_->Exchanges(); }
void LocalGateway::SetScenario(const std::string& text) { server_->SetScenario(text); }

}  // namespace zelnor::standin
