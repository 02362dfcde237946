#include "zelnor/standin/scenario.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace zelnor::standin {
namespace {

constexpr std::array<std::string_view, 27> kNames = {"proper",
                                                     "acknowledgement",
                                                     "response",
                                                     "response-immediate",
                                                     "response-other",
                                                     "error",
                                                     "business-error",
                                                     "error-body",
                                                     "error-noerrors",
                                                     "qualifier",
                                                     "refuse",
                                                     "drop",
                                                     "stall",
                                                     "slow",
                                                     "status",
                                                     "unauthorized",
                                                     "empty",
                                                     "text",
                                                     "cut",
                                                     "other-document",
                                                     "encoding",
                                                     "huge",
                                                     "gzip",
                                                     "file",
                                                     "deleted",
                                                     "bad-gzip",
                                                     "no-document"};

constexpr std::array<std::string_view, 3> kKinds = {"submission", "poll", "delete"};

[[noreturn]] void Refuse(int line, const std::string& reason) {
  throw std::runtime_error("The scenario, line " + std::to_string(line) + ": " + reason);
}

// The words of a line; a quoted part may hold blanks, and \" \\ \n \r.
std::vector<std::string> Words(const std::string& text, int line) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false;
  bool begun = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (quoted && c == '\\' && at + 1 < text.size()) {
      const char next = text[++at];
      word += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    } else if (c == '"') {
      quoted = !quoted;
      begun = true;
    } else if (!quoted && (c == ' ' || c == '\t' || c == '\r')) {
      if (begun) words.push_back(std::exchange(word, {}));
      begun = false;
    } else if (!quoted && !begun && c == '#') {
      break;
    } else {
      word += c;
      begun = true;
    }
  }
  if (quoted) Refuse(line, "a quote isn't closed.");
  if (begun) words.push_back(word);
  return words;
}

bool IsRepetition(const std::string& word) {
  return word.size() > 1 && word[0] == 'x' && word.find_first_not_of("0123456789", 1) == std::string::npos;
}

}  // namespace

std::string Action::Option(const char* key, const std::string& otherwise) const {
  for (const auto& [name, value] : options) {
    if (name == key) return value;
  }
  return otherwise;
}

std::vector<std::string> Action::All(const char* key) const {
  std::vector<std::string> values;
  for (const auto& [name, value] : options) {
    if (name == key) values.push_back(value);
  }
  return values;
}

Scenario::Scenario(const std::string& text) {
  std::istringstream lines(text);
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    std::vector<std::string> words = Words(line, number);
    if (words.empty()) continue;
    Action action;
    action.line = number;
    if (words.front().ends_with(':')) {
      action.kind = words.front().substr(0, words.front().size() - 1);
      if (std::find(kKinds.begin(), kKinds.end(), action.kind) == kKinds.end()) {
        Refuse(number, "\"" + action.kind + "\" is no kind of request; it is submission, poll or delete.");
      }
      words.erase(words.begin());
    }
    int times = 1;
    if (!words.empty() && IsRepetition(words.back())) {
      times = std::stoi(words.back().substr(1, 6));
      words.pop_back();
    }
    if (words.empty()) Refuse(number, "an action is missing.");
    action.name = words.front();
    if (std::find(kNames.begin(), kNames.end(), action.name) == kNames.end()) {
      Refuse(number, "\"" + action.name + "\" is no action.");
    }
    for (std::size_t at = 1; at < words.size(); ++at) {
      const std::size_t sign = words[at].find('=');
      if (sign == std::string::npos) {
        action.arguments.push_back(words[at]);
      } else {
        action.options.emplace_back(words[at].substr(0, sign), words[at].substr(sign + 1));
      }
    }
    actions_.insert(actions_.end(), static_cast<std::size_t>(times), action);
  }
}

std::optional<Action> Scenario::Take(const std::string& kind) {
  const auto found = std::find_if(actions_.begin(), actions_.end(), [&](const Action& action) {
    return action.kind.empty() || action.kind == kind;
  });
  if (found == actions_.end()) return std::nullopt;
  Action action = *found;
  actions_.erase(found);
  return action;
}

bool Scenario::TakeNamed(const char* name) {
  if (actions_.empty() || !actions_.front().Is(name)) return false;
  actions_.pop_front();
  return true;
}

}  // namespace zelnor::standin
