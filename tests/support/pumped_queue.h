#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "platform/main_queue.h"

namespace corvane::support {

/// Makes the test's own thread the main thread, which runs jobs while it pumps.
class PumpedQueue final : public MainQueue {
 public:
  void async(Job job) override;

  /// Runs jobs until `condition`, which it checks after each job and every few milliseconds,
  /// holds; false if it never does, which takes `longestWait`.
  bool pumpUntil(const std::function<bool()>& condition);
  /// Runs the jobs that wait now.
  void pump();

  /// The longest that one job has kept a processor busy.
  std::chrono::nanoseconds longestJob() const { return longest; }

 private:
  void run(const Job& job);
  Job next(std::chrono::milliseconds limit);

  std::mutex lock;
  std::condition_variable submitted;
  std::deque<Job> jobs;  ///< under `lock`
  std::chrono::nanoseconds longest{0};
};

/// How long the calling thread has run so far; what it waits for, and how many others share its
/// processor, does not count.
std::chrono::nanoseconds timeOfThisThread();

}  // namespace corvane::support
