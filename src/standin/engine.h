#pragma once

#include "zelnor/platform/xml.h"
#include "zelnor/standin/scenario.h"

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zelnor::standin {

struct GatewayOptions;

/// The protocol behind a local gateway: what it answers to a message, and which submissions it holds.
class Engine {
 public:
  explicit Engine(const GatewayOptions& options);
  ~Engine();

  /// What a request is and what it is answered with.
  struct Reply {
    std::string kind = "submission";  ///< "submission", "poll" or "delete"
    std::string request = {};         ///< in words
    std::string answer;               ///< in words
    std::string body;                 ///< the message
  };

  /// What kind of request the message is, by its qualifier and function.
  static std::string KindOf(const std::string& message);

  /// The answer to a message: the proper one, or what the action says; no body for an action that takes no
  /// notice of the message. `base` is the gateway's address as the client knows it, such as
  /// "https://localhost:8080"; it leads there for the polls.
  Reply Answer(const std::string& message, const std::optional<Action>& action, const std::string& base);

 private:
  struct Request;
  struct Problem;
  struct Submission;

  Reply Proper(const Request& request);
  Reply Failed(const Request& request, const Problem& problem) const;
  Reply ProperAcknowledgement(const Request& request, const Action* action);
  Reply ProperPoll(const Request& request);
  Reply ProperDelete(const Request& request);
  Reply Told(const Request& request, const Action& action);

  std::optional<Problem> ProblemOf(const Request& request) const;
  std::optional<Problem> ProblemOfSubmission(const Request& request) const;
  std::optional<Problem> ProblemOfConversation(const Request& request) const;
  Submission Received(const Request& request) const;
  std::optional<Problem> SchemaProblem(const XmlDocument& document, const std::string& ns) const;

  std::string Envelope(const Request& request, const std::string& qualifier, const std::string& function,
                       const Action* action, const std::string& errors, const std::string& body) const;
  std::string Receipt(const Submission& submission) const;
  std::string ErrorResponse(const std::vector<Problem>& problems) const;
  std::shared_ptr<const XmlSchemaCollection> SchemasFor(const std::string& ns) const;

  const GatewayOptions& options_;
  std::map<std::string, Submission> submissions_;  // by correlation id
  mutable std::map<std::string, std::shared_ptr<const XmlSchemaCollection>> schemas_;
};

}  // namespace zelnor::standin
