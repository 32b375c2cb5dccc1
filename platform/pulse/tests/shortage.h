#pragma once

#include <sys/resource.h>
#include <unistd.h>

namespace corvane {

/// While it exists, this process is given no more descriptors, but for the first `spare`.
class Shortage {
 public:
  explicit Shortage(unsigned spare) {
    getrlimit(RLIMIT_NOFILE, &before);
    const int lowestFree = dup(STDIN_FILENO);
    close(lowestFree);
    // The limit is on their numbers, of which the lowest is always taken.
    const rlimit low{.rlim_cur = static_cast<rlim_t>(lowestFree) + spare,
                     .rlim_max = before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &low);
  }
  ~Shortage() { setrlimit(RLIMIT_NOFILE, &before); }
  Shortage(const Shortage&) = delete;
  Shortage& operator=(const Shortage&) = delete;

 private:
  rlimit before{};
};

}  // namespace corvane
