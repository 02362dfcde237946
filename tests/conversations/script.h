#pragma once

/// @file
/// A conversation as a script: settings, then two columns. What the gateway answers stands on the left, what
/// the system must have done by the end on the right. README.md tells the words.

#include <string>
#include <utility>
#include <vector>

namespace zelnor::test {

/// One word or line of a script, with the line that it stands on.
struct ScriptLine {
  std::string text;
  int line = 0;
};

struct Script {
  std::vector<ScriptLine> settings;
  std::string scenario;                  ///< the left column
  std::vector<ScriptLine> expectations;  ///< the right column

  /// The value of a setting, the last one given; `otherwise` when there is none.
  std::string Setting(const std::string& name, const std::string& otherwise = {}) const;
  bool Has(const std::string& name) const;
  std::vector<std::string> All(const std::string& name) const;
};

/// Reads a script; raises std::runtime_error for one that isn't understood.
Script ReadScript(const std::string& path);

/// Whether a text is what a pattern says: "*" stands for any run of characters.
bool Matches(const std::string& pattern, const std::string& text);

}  // namespace zelnor::test
