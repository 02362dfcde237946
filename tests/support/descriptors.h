#pragma once

#include <filesystem>
#include <iterator>

namespace zelnor::test {

/// How many files and sockets this process has open.
inline std::ptrdiff_t OpenDescriptors() {
  const std::filesystem::directory_iterator open("/proc/self/fd");
  return std::distance(begin(open), end(open));
}

}  // namespace zelnor::test
