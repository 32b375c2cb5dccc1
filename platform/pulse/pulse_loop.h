// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/mainloop.h>

#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/clock.h"
#include "platform/pulse/timer.h"

namespace corvane {

/// The one thread that talks to the audio server, named "corvane.pulse". Contexts and streams of
/// libpulse are created, used and destroyed in its jobs and callbacks: none needs a lock, and no
/// other thread waits when the server, or a library that libpulse calls, is slow.
class PulseLoop {
 public:
  using Job = std::function<void()>;

  /// `clock` drives the timers and must outlive the loop.
  explicit PulseLoop(const Clock& clock);
  /// Runs the jobs submitted before, then ends the thread.
  ~PulseLoop();
  PulseLoop(const PulseLoop&) = delete;
  PulseLoop& operator=(const PulseLoop&) = delete;

  /// Runs `job` on the loop's thread, after this call, in the order of submission. Any thread.
  void async(Job job);

  /// For jobs and callbacks on the loop's thread.
  pa_mainloop_api& api() const { return *pa_mainloop_get_api(mainloop.get()); }
  Timers& timers() { return loopTimers; }

 private:
  void run();
  void runJobs();
  void iterate();

  std::mutex lock;
  std::vector<Job> jobs;  ///< under `lock`
  const Clock& clock;
  Timers loopTimers;
  const std::unique_ptr<pa_mainloop, decltype(&pa_mainloop_free)> mainloop;
  bool over = false;  ///< on the loop's thread
  std::thread thread;
};

}  // namespace corvane
