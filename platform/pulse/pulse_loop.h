#pragma once

#include <poll.h>
#include <pulse/mainloop.h>

#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/clock.h"
#include "platform/pulse/timer.h"

namespace corvane {

/// The one thread that talks to the audio server, named "corvane.pulse". Everything of libpulse is
/// created, used and destroyed in its jobs and callbacks: nothing of libpulse needs a lock, and
/// nobody else waits when the server, or a library that libpulse asks, is slow.
class PulseLoop {
 public:
  using Job = std::function<void()>;

  /// `clock` is that of the timers and must outlive the loop.
  explicit PulseLoop(const Clock& clock);
  /// Runs what was submitted before, then ends the thread.
  ~PulseLoop();
  PulseLoop(const PulseLoop&) = delete;
  PulseLoop& operator=(const PulseLoop&) = delete;

  /// Runs `job` on the loop's thread, after this call, in the order of submission. Any thread.
  void async(Job job);

  /// For jobs and callbacks on the loop's thread; null while the system has no loop for us, which
  /// is asked for again with every job and timer.
  pa_mainloop_api* api() const;

  /// For the loop's thread; they work without a loop too.
  Timers& timers() { return loopTimers; }

 private:
  void run();
  void openMainloop();
  void runJobs();
  void iterate();
  void waitForJobs();
  int wait(pollfd* descriptors, unsigned long count, int limit);

  std::mutex lock;
  std::vector<Job> jobs;  ///< under `lock`
  const Clock& clock;
  int wakeup;  ///< an eventfd, readable while jobs wait
  Timers loopTimers;
  std::unique_ptr<pa_mainloop, decltype(&pa_mainloop_free)> mainloop{nullptr, pa_mainloop_free};
  bool over = false;  ///< on the loop's thread
  std::thread thread;
};

}  // namespace corvane
