#pragma once

/// @file
/// A Transaction Engine on this machine, for development and tests: a real HTTP server on loopback that
/// speaks the document submission protocol, checks what it gets, and can be told to misbehave.
///
/// @code
/// zelnor::standin::LocalGateway gateway({.provisional = 2});
/// gateway.Start();
/// // ... send to gateway.url() + "/submission" ...
/// for (const auto& exchange : gateway.exchanges()) std::cout << exchange.what << '\n';
/// @endcode

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zelnor::standin {

/// How a gateway is set up.
struct GatewayOptions {
  int port = 0;  ///< 0 picks a free one
  std::string certificate =
      {};                ///< PEM files of certificate and key: both or neither; with them it speaks https
  std::string key = {};  ///< see certificate
  std::string scenario = {};       ///< the text of a scenario; empty for the proper behaviour
  std::string record_folder = {};  ///< a folder for each exchange's request and answer; empty for none
  std::string user = {};           ///< whose credentials pass; empty for anybody's
  std::string password = {};       ///< the user's
  int poll_interval = 5;           ///< seconds, told to the client
  int provisional = 1;             ///< polls that are answered provisionally before the final answer
  std::string schema_folder =
      {};  ///< the schemas of envelope and documents; empty for no checks against them

  /// Takes a readable line for each exchange, one at a time, in the threads of the gateway; may be empty.
  std::function<void(const std::string& line)> log = {};

  std::int64_t largest_message = 256LL << 20;  ///< bytes; what is larger is answered with error 2001
};

/// One request and what it was answered with.
struct Exchange {
  std::string path;
  std::string authorization;  ///< of the request's headers
  std::string content_type;
  std::string request;  ///< the body as received
  std::string answer;   ///< the body as sent
  std::string what;     ///< such as "submission request -> acknowledgement"
};

/// The gateway. It listens on 127.0.0.1 alone.
class LocalGateway {
 public:
  explicit LocalGateway(GatewayOptions options);
  LocalGateway(const LocalGateway&) = delete;
  LocalGateway& operator=(const LocalGateway&) = delete;

  /// Stops it.
  ~LocalGateway();

  /// Listens, in threads of its own. Raises std::runtime_error, with a sentence for the person, when the port
  /// is taken, the certificate doesn't serve, or the scenario isn't understood.
  void Start();

  /// Drops the open connections and ends. A stalled exchange doesn't hold it up.
  void Stop();

  /// The port that it listens on; 0 before Start.
  int port() const;

  /// Its address, such as "http://127.0.0.1:8080".
  std::string url() const;

  /// What was exchanged so far.
  std::vector<Exchange> exchanges() const;

  /// Replaces what is left of the scenario. Raises std::runtime_error when it isn't understood.
  void SetScenario(const std::string& text);

 private:
  class Server;
  std::unique_ptr<Server> server_;
};

}  // namespace zelnor::standin
