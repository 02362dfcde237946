#pragma once

/// @file
/// Runs a part of a test in a process of its own: one that may lose its rights, its disk or its life.

#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace zelnor::test {

/// The number (0 to 199) that `body` returned in the child; 200 when it threw, 201 when the child was killed,
/// 202 when it could not be started.
inline int ResultInChild(const std::function<int()>& body) {
  const pid_t child = fork();
  if (child < 0) return 202;
  if (child == 0) {
    int result = 200;
    try {
      result = body();
    } catch (...) {
      result = 200;
    }
    _exit(result);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child) return 202;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 201;
}

/// For use in a child: gives up root's rights. Returns whether there are none (any more).
inline bool BecomeNobody() {
  constexpr unsigned kNobody = 65534;
  if (geteuid() != 0) return true;
  return setgid(kNobody) == 0 && setuid(kNobody) == 0;
}

}  // namespace zelnor::test
