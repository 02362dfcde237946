#include "zelnor/standin/scenario.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace zelnor::standin {
namespace {

// An action as it may be written: its arguments, each a choice of words or in capitals what it is, and its
// options. An argument in brackets may be left out.
struct Form {
  std::string_view name;
  std::string_view arguments;
  std::string_view options;
};

// What every action that makes up a message of its own may say of it; "+" in the table.
constexpr std::string_view kOfAnyMessage = "class correlation endpoint interval";

constexpr std::array kForms = {
    Form{"proper", "", ""},
    Form{"acknowledgement", "", "+"},
    Form{"response", "", "+"},
    Form{"response-immediate", "", "+ messages"},
    Form{"response-other", "", "+ function"},
    Form{"deleted", "", "+"},
    Form{"error", "", "+ number type raised-by text location"},
    Form{"business-error", "", "+ error text"},
    Form{"error-body", "", "+ xml"},
    Form{"error-noerrors", "", "+"},
    Form{"qualifier", "", "+ value function xml"},
    Form{"refuse", "", ""},
    Form{"drop", "[before|header|body]", ""},
    Form{"stall", "[before|header|body]", ""},
    Form{"slow", "", "ms"},
    Form{"status", "NUMBER [xml]", "body location"},
    Form{"unauthorized", "", ""},
    Form{"empty", "", ""},
    Form{"text", "TEXT", ""},
    Form{"cut", "", "bytes"},
    Form{"other-document", "", ""},
    Form{"encoding", "utf-16|latin1|wrong", ""},
    Form{"huge", "", "mb"},
    Form{"gzip", "", ""},
    Form{"bad-gzip", "", ""},
    Form{"file", "PATH", ""},
};

// Options that are numbers, and the largest that makes sense.
constexpr std::array<std::pair<std::string_view, long>, 3> kNumbers = {
    {{"ms", 86'400'000}, {"bytes", 1 << 30}, {"mb", 1024}}};

constexpr std::array<std::string_view, 3> kKinds = {"submission", "poll", "delete"};

[[noreturn]] void Refuse(int line, const std::string& reason) {
  throw std::runtime_error("The scenario, line " + std::to_string(line) + ": " + reason);
}

// A word of a line.
struct Word {
  std::string text;
  std::size_t sign = std::string::npos;  // where "=" ends an option's name
  bool quoted = false;                   // from its first character on
};

// The words of a line; a quoted part may hold blanks, and \" \\ \n \r.
std::vector<Word> Words(const std::string& text, int line) {
  std::vector<Word> words;
  Word word;
  bool quoted = false;
  bool begun = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (quoted && c == '\\' && at + 1 < text.size()) {
      const char next = text[++at];
      word.text += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    } else if (c == '"') {
      word.quoted = word.quoted || !begun;
      quoted = !quoted;
      begun = true;
    } else if (!quoted && (c == ' ' || c == '\t' || c == '\r')) {
      if (begun) words.push_back(std::exchange(word, {}));
      begun = false;
    } else if (!quoted && !begun && c == '#') {
      break;
    } else {
      if (c == '=' && !word.quoted && word.sign == std::string::npos) word.sign = word.text.size();
      word.text += c;
      begun = true;
    }
  }
  if (quoted) Refuse(line, "a quote isn't closed.");
  if (begun) words.push_back(word);
  return words;
}

bool IsNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// The number of an error, which the protocol has as an integer; negative ones are no gateway's, but may be
// told.
bool IsErrorNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return IsNumber(text) && text.size() <= 9;
}

bool IsRepetition(const Word& word) {
  return !word.quoted && word.text.size() > 1 && word.text[0] == 'x' &&
         IsNumber(std::string_view(word.text).substr(1));
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream{std::string(text)};
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

const Form& FormOf(const Action& action) {
  const auto* const found =
      std::find_if(kForms.begin(), kForms.end(), [&](const Form& form) { return form.name == action.name; });
  if (found == kForms.end()) Refuse(action.line, "\"" + action.name + "\" is no action.");
  return *found;
}

void CheckArgument(const Action& action, const std::string& argument, const std::string& form) {
  const std::string quoted = "\"" + argument + "\"";
  if (form == "TEXT") return;
  if (form == "NUMBER") {
    const bool status =
        argument.size() == 3 && IsNumber(argument) && argument[0] >= '2' && argument[0] <= '5';
    if (!status) Refuse(action.line, quoted + " is no HTTP status; it is a number from 200 to 599.");
  } else if (form == "PATH") {
    const std::ifstream file(argument, std::ios::binary);
    if (!file || std::filesystem::is_directory(argument)) {
      Refuse(action.line, "the file " + quoted + " can't be read.");
    }
  } else {
    const std::vector<std::string> choices = Split(form, '|');
    if (std::find(choices.begin(), choices.end(), argument) == choices.end()) {
      Refuse(action.line, quoted + " is nothing that \"" + action.name + "\" knows; it knows " + form + ".");
    }
  }
}

void CheckArguments(const Action& action, const Form& form) {
  std::size_t at = 0;
  for (std::string each : Split(form.arguments, ' ')) {
    const bool optional = each.front() == '[';
    if (optional) each = each.substr(1, each.size() - 2);
    if (at < action.arguments.size()) {
      CheckArgument(action, action.arguments[at++], each);
    } else if (!optional) {
      Refuse(action.line, "\"" + action.name + "\" needs " + each + ".");
    }
  }
  if (at < action.arguments.size()) {
    Refuse(action.line, "\"" + action.arguments[at] + "\" is one word too many for \"" + action.name + "\".");
  }
}

void CheckOptions(const Action& action, const Form& form) {
  std::vector<std::string> known;
  for (const std::string& each : Split(form.options, ' ')) {
    const std::vector<std::string> names = Split(each == "+" ? kOfAnyMessage : std::string_view(each), ' ');
    known.insert(known.end(), names.begin(), names.end());
  }
  std::vector<std::string> seen;
  for (const auto& [name, value] : action.options) {
    // Only the errors of the department come again and again.
    if (name != "error" && std::find(seen.begin(), seen.end(), name) != seen.end()) {
      Refuse(action.line, "\"" + name + "\" is there twice.");
    }
    seen.push_back(name);
    const std::string error = name == "error" ? value.substr(0, value.find('|')) : value;
    if ((name == "number" || name == "error") && !IsErrorNumber(error)) {
      Refuse(action.line, "\"" + error + "\" is no error's number; it is a whole one of up to nine digits.");
    }
    if (std::find(known.begin(), known.end(), name) == known.end()) {
      Refuse(action.line, "\"" + action.name + "\" has no option \"" + name + "\".");
    }
    for (const auto& [number, largest] : kNumbers) {
      if (name != number) continue;
      if (!IsNumber(value) || value.size() > 9 || std::stol(value) > largest) {
        Refuse(action.line, name + " is a number up to " + std::to_string(largest) + ".");
      }
    }
  }
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
    std::vector<Word> words = Words(line, number);
    if (words.empty()) continue;
    Action action;
    action.line = number;
    if (const std::string& first = words.front().text; !words.front().quoted && first.ends_with(':')) {
      action.kind = first.substr(0, first.size() - 1);
      if (std::find(kKinds.begin(), kKinds.end(), action.kind) == kKinds.end()) {
        Refuse(number, "\"" + action.kind + "\" is no kind of request; it is submission, poll or delete.");
      }
      words.erase(words.begin());
    }
    std::size_t times = 1;
    if (words.size() > 1 && IsRepetition(words.back())) {
      const std::string count = words.back().text.substr(1);
      if (count.size() > 5) Refuse(number, "\"x" + count + "\" is too often; the most is x99999.");
      if (std::stoul(count) == 0) Refuse(number, "\"x" + count + "\" is never; the least is x1.");
      times = std::stoul(count);
      words.pop_back();
    }
    if (words.empty()) Refuse(number, "an action is missing.");
    action.name = words.front().text;
    for (std::size_t at = 1; at < words.size(); ++at) {
      const auto& [word, sign, quoted] = words[at];
      if (sign == std::string::npos) {
        action.arguments.push_back(word);
      } else {
        action.options.emplace_back(word.substr(0, sign), word.substr(sign + 1));
      }
    }
    const Form& form = FormOf(action);
    CheckArguments(action, form);
    CheckOptions(action, form);
    actions_.insert(actions_.end(), times, action);
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

bool Action::TakesNotice() const {
  constexpr std::array<std::string_view, 7> kUnmoved = {"refuse",         "status", "unauthorized", "empty",
                                                        "other-document", "text",   "file"};
  const bool proper_message = Is("status") && arguments.size() > 1;
  return proper_message || std::find(kUnmoved.begin(), kUnmoved.end(), name) == kUnmoved.end();
}

bool Scenario::TakeRefusal() {
  if (actions_.empty() || !actions_.front().Is("refuse") || !actions_.front().kind.empty()) return false;
  actions_.pop_front();
  return true;
}

}  // namespace zelnor::standin
