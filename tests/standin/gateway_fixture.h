#pragma once

/// @file
/// What the tests of the local gateway share: messages that the program itself has marked, and clients that
/// know nothing of this system: curl, and a bare socket.

#include "zelnor/platform/xml.h"
#include "zelnor/standin/local_gateway.h"

#include <memory>
#include <string>

#include "support/shell.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace zelnor::standin {

/// What curl tells of an exchange.
struct Curled {
  int exit = -1;       ///< curl's own: 0 good, 18 cut off, 28 timed out, 52 no answer, 56 reset
  int status = 0;      ///< of HTTP
  std::string header;  ///< the answer's, status line first
  std::string body;

  /// The text of the first element of that name, wherever it is; empty without one.
  std::string Text(const std::string& name) const;
  /// How many elements there are of that name.
  std::size_t Count(const std::string& name) const;
  /// "acknowledgement submit"
  std::string Kind() const { return Text("Qualifier") + " " + Text("Function"); }
};

/// Whoever talks over this leaves the connection when it goes.
class BareSocket {
 public:
  explicit BareSocket(int port);
  BareSocket(const BareSocket&) = delete;
  BareSocket& operator=(const BareSocket&) = delete;
  ~BareSocket();

  void Send(const std::string& bytes) const;
  /// Sends a POST of that body.
  void Post(const std::string& body, const std::string& path = "/submission") const;
  /// The bytes that come until the other side closes, or nothing comes for that long.
  std::string Read(int milliseconds = 10'000);
  /// Whether the last Read ended because the other side closed.
  bool Closed() const { return closed_; }

 private:
  int socket_;
  bool closed_ = false;
};

class GatewayTest : public testing::Test {
 protected:
  /// Starts the gateway of the test.
  void Start(GatewayOptions options = {});

  /// Posts a message with curl; `more` are further options of curl's.
  Curled Post(const std::string& message, const std::string& path = "/submission",
              const std::string& more = {}) const;

  /// A Full Payment Submission as `zelnor save` writes it, marked.
  static const std::string& Submission();

  /// The message with one text in place of another, which must be there.
  static std::string With(std::string message, const std::string& old_text, const std::string& new_text);

  /// A poll or a delete.
  static std::string Poll(const std::string& id, const std::string& message_class = "HMRC-PAYE-RTI-FPS");
  static std::string Delete(const std::string& id, const std::string& message_class = "HMRC-PAYE-RTI-FPS");

  /// Sends the submission and returns the id that it got.
  std::string Submitted() const;

  /// What xmllint finds against the envelope's schema: empty when nothing.
  std::string SchemaFaults(const std::string& message) const;

  static std::string Schemas() { return ZELNOR_SOURCE_DIR "/xsd"; }

  test::TemporaryFolder folder_;
  std::unique_ptr<LocalGateway> gateway_;
};

}  // namespace zelnor::standin
