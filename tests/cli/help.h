#pragma once

/// @file
/// What the program's own help tells of its commands: the measure of the manual page and of the shells'
/// completions.

#include "zelnor/platform/values.h"

#include <algorithm>
#include <set>
#include <sstream>

#include "support/shell.h"
#include <re2/re2.h>

namespace zelnor::test {

/// The help of one command.
struct Help {
  String command;                ///< "" for the program itself, else "show", "log prune"
  std::vector<String> commands;  ///< those below it
  struct Option {
    std::vector<String> names;    ///< "-o" and "--out"
    std::vector<String> choices;  ///< where only these values go
    bool takes_value = false;
  };
  std::vector<Option> options;

  /// All names of its options.
  std::set<String> Names() const {
    std::set<String> names;
    for (const Option& option : options) names.insert(option.names.begin(), option.names.end());
    return names;
  }
};

inline std::vector<String> Split(const String& text, char separator) {
  std::vector<String> parts;
  std::istringstream stream(text);
  for (String part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

/// The help of a command, from the program.
inline Help HelpOf(const String& command) {
  Help help;
  help.command = command;
  static const re2::RE2 kOption("  (-[-a-z,]+)(?: (.*))?");
  static const re2::RE2 kChoices(R"(\{([^}]*)\})");
  static const re2::RE2 kCommand("  ([a-z]+) .*");
  bool subcommands = false;
  for (const String& line : Split(OutputOf("'" ZELNOR_PROGRAM "' " + command + " --help"), '\n')) {
    if (line == "Subcommands:") subcommands = true;
    String names, rest, name;
    if (subcommands && re2::RE2::FullMatch(line, kCommand, &name)) {
      help.commands.push_back(name);
    } else if (re2::RE2::FullMatch(line, kOption, &names, &rest)) {
      Help::Option option;
      option.names = Split(names, ',');
      // The name of a value follows after one blank, the description in its own column.
      option.takes_value =
          !rest.empty() && rest[0] != ' ' && !rest.starts_with("Excludes:") && !rest.starts_with("Needs:");
      if (String choices; re2::RE2::PartialMatch(rest.substr(0, rest.find("  ")), kChoices, &choices)) {
        option.choices = Split(choices, ',');
      }
      help.options.push_back(option);
    }
  }
  return help;
}

/// The help of the program and of each command, with those below a command after it.
inline const std::vector<Help>& AllHelp() {
  static const auto* all = [] {
    auto* helps = new std::vector<Help>{HelpOf("")};
    for (std::size_t i = 0; i < helps->size(); ++i) {
      const Help parent = (*helps)[i];
      for (const String& name : parent.commands) {
        helps->push_back(HelpOf(parent.command.empty() ? name : parent.command + " " + name));
      }
    }
    return helps;
  }();
  return *all;
}

/// The options that every command takes although only the program's own help tells of them.
inline std::set<String> CommonOptionNames() {
  std::set<String> names = HelpOf("").Names();
  names.erase("--version");
  return names;
}

}  // namespace zelnor::test
