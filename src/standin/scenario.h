#pragma once

/// @file
/// What a local gateway is told to do: one action for each POST, in order.

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zelnor::standin {

/// One line of a scenario, such as `poll: error number=2000 text="gone" x2`.
struct Action {
  std::string kind;  ///< "submission", "poll", "delete", or empty for any request
  std::string name;
  std::vector<std::string> arguments;                        ///< words without "="
  std::vector<std::pair<std::string, std::string>> options;  ///< words with "="
  int line = 0;

  bool Is(const char* other) const { return name == other; }
  std::string Argument() const { return arguments.empty() ? std::string() : arguments.front(); }
  std::string Option(const char* key, const std::string& otherwise = {}) const;
  std::vector<std::string> All(const char* key) const;

  /// Whether the gateway deals with the request before it misbehaves: a submission is kept, a poll counts, a
  /// delete deletes. An action that puts something else in the answer's place takes no notice.
  bool TakesNotice() const;
};

/// The actions that are left.
class Scenario {
 public:
  Scenario() = default;

  /// Reads the text: a line an action, "#" begins a comment. Raises std::runtime_error that names the line.
  explicit Scenario(const std::string& text);

  /// Takes the next action for a request of that kind: the first that is for it or for any. Nothing when
  /// there is none.
  std::optional<Action> Take(const std::string& kind);

  /// Whether the next action refuses whatever request comes; taken then.
  bool TakeRefusal();

  bool Empty() const { return actions_.empty(); }

 private:
  std::deque<Action> actions_;
};

}  // namespace zelnor::standin
