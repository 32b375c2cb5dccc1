// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#if defined(__linux__)
#include <pthread.h>
#include <sys/resource.h>
#endif

namespace corvane {

/// Names the calling thread (up to 15 bytes) and raises its priority as far as the system permits.
/// For a thread with little work that cannot wait.
inline void beUrgent([[maybe_unused]] const std::string& name) {
#if defined(__linux__)
  pthread_setname_np(pthread_self(), name.substr(0, 15).c_str());
  constexpr int mostUrgent = -10;  // of -20 to 19
  const int usual = getpriority(PRIO_PROCESS, 0);
  for (int nice = mostUrgent; nice < usual && setpriority(PRIO_PROCESS, 0, nice) != 0;) ++nice;
#endif
}

}  // namespace corvane
