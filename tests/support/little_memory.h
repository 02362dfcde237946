#pragma once

#include <cstddef>
#include <fstream>
#include <stdexcept>
#include <sys/resource.h>
#include <unistd.h>

namespace zelnor::test {

/// As long as it stands, the process gets no more than so many bytes of address space beyond what it has.
class LittleMemory {
 public:
  explicit LittleMemory(std::size_t bytes) {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    if (pages == 0 || getrlimit(RLIMIT_AS, &former_) != 0) throw std::runtime_error("the limit is not known");
    rlimit limit = former_;
    limit.rlim_cur = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + bytes;
    if (setrlimit(RLIMIT_AS, &limit) != 0) throw std::runtime_error("no limit");
  }
  LittleMemory(const LittleMemory&) = delete;
  LittleMemory& operator=(const LittleMemory&) = delete;
  ~LittleMemory() { setrlimit(RLIMIT_AS, &former_); }

 private:
  rlimit former_{};
};

}  // namespace zelnor::test
