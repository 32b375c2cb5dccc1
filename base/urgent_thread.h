#pragma once

#include <string>

#if defined(__linux__)
#include <pthread.h>
#include <sys/resource.h>
#endif

namespace corvane {

/// Names the calling thread (by up to 15 bytes) and puts it before those of other programs, as far
/// as the system lets its user do that. For a thread that has little to do, which nobody can do
/// later.
inline void beUrgent([[maybe_unused]] const std::string& name) {
#if defined(__linux__)
  pthread_setname_np(pthread_self(), name.substr(0, 15).c_str());
  constexpr int mostUrgent = -10;  // of -20 to 19
  const int usual = getpriority(PRIO_PROCESS, 0);
  for (int nice = mostUrgent; nice < usual && setpriority(PRIO_PROCESS, 0, nice) != 0;) ++nice;
#endif
}

}  // namespace corvane
