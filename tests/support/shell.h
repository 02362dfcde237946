#pragma once

/// @file
/// Other programs as witnesses of what this system computes.

#include <cstdio>
#include <stdexcept>
#include <string>

namespace zelnor::test {

/// Runs a command and returns what it wrote to standard output, without the line end at its end. Throws when
/// the command fails.
inline std::string OutputOf(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("can't run " + command);
  std::string output;
  char buffer[4096];
  for (std::size_t count = 0; (count = fread(buffer, 1, sizeof buffer, pipe)) != 0;)
    output.append(buffer, count);
  if (pclose(pipe) != 0) throw std::runtime_error("failed: " + command);
  while (!output.empty() && output.back() == '\n') output.pop_back();
  return output;
}

/// Whether the programs are installed.
inline bool HasPrograms(const std::string& names) {
  try {
    OutputOf("command -v " + names);
    return true;
  } catch (const std::runtime_error&) {
    return false;
  }
}

}  // namespace zelnor::test
