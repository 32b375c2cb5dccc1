#pragma once

#include <pulse/mainloop-api.h>

#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace corvane {

/// The one thread that talks to the audio server, named "corvane.pulse". Everything of libpulse is
/// created, used and destroyed in its jobs and callbacks: nothing of libpulse needs a lock, and
/// nobody else waits when the server, or a library that libpulse asks, is slow.
class PulseLoop {
 public:
  using Job = std::function<void()>;

  PulseLoop();
  /// Runs what was submitted before, then ends the thread.
  ~PulseLoop();
  PulseLoop(const PulseLoop&) = delete;
  PulseLoop& operator=(const PulseLoop&) = delete;

  /// Runs `job` on the loop's thread, after this call, in the order of submission. Any thread.
  void async(Job job);

  /// For jobs and callbacks on the loop's thread; null while the system has no loop for us, which
  /// is asked for again with every job.
  pa_mainloop_api* api() const { return mainloopApi; }

 private:
  void run();
  bool runMainloop();
  void runJobs();
  void waitForJobs() const;

  std::mutex lock;
  std::vector<Job> jobs;  ///< under `lock`
  int wakeup;             ///< an eventfd, readable while jobs wait
  pa_mainloop_api* mainloopApi = nullptr;
  bool used = false;  ///< a job has had the loop
  bool over = false;  ///< on the loop's thread
  std::thread thread;
};

}  // namespace corvane
