#pragma once

#include "zelnor/controller/clsRTIController.h"
#include "zelnor/standin/local_gateway.h"

#include <memory>
#include <string>
#include <vector>

#include "conversations/script.h"
#include "support/recording_host.h"
#include "support/temporary_folder.h"

namespace zelnor::test {

/// Runs a script against a real gateway on loopback, with the host's clock, and keeps a trace of all that
/// happened.
class Conversation {
 public:
  explicit Conversation(const Script& script);
  ~Conversation();
  Conversation(const Conversation&) = delete;
  Conversation& operator=(const Conversation&) = delete;

  void Run();

  /// Why an expectation isn't met; empty when it is. Lines of the trace are to be asked for in their order.
  std::string Failure(const std::string& expectation);

  /// The trace, a line each.
  std::string TraceText() const;

 private:
  void SetUpGateway();
  void Open();
  void FollowController();
  void FollowTransport();
  HttpAnswer Exchange(const HttpMessage& message);
  void Note(std::string line);
  void Interfere(const std::string& line);
  void Load(const std::string& document);
  std::string Shown(std::string text) const;
  std::string FailureInTrace(const std::string& expectation);
  std::string FileNames() const;

  const Script& script_;
  TemporaryFolder folder_;
  WithRecordingHost host_;
  std::unique_ptr<standin::LocalGateway> gateway_;
  std::unique_ptr<clsRTIController> rti_;
  std::string url_;
  std::string id_;
  std::vector<std::string> trace_;
  std::vector<std::string> sent_;
  std::size_t checked_ = 0;
  SUBMISSION_RESULT result_{};
  bool first_wait_ = true;
  bool cancel_at_next_yield_ = false;
};

/// The results of the two operations, by name.
std::string NameOf(SUBMISSION_RESULT result);

}  // namespace zelnor::test
