#pragma once

/// @file
/// An environment variable for the time of a test.

#include <cstdlib>
#include <optional>
#include <string>

namespace zelnor::test {

class ScopedEnvironment {
 public:
  /// Sets the variable; no value takes it away.
  ScopedEnvironment(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
    if (const char* before = std::getenv(name_.c_str())) before_ = before;
    Set(value);
  }
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
  ~ScopedEnvironment() { Set(before_); }

 private:
  void Set(const std::optional<std::string>& value) const {
    if (value) {
      setenv(name_.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
  }

  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace zelnor::test
