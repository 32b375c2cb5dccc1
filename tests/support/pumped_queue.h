// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "platform/main_queue.h"

namespace corvane::support {

/// Makes the test's thread the main thread, which runs jobs while it pumps.
class PumpedQueue final : public MainQueue {
 public:
  void async(Job job) override;

  /// Runs jobs until `condition` holds, checked after each job and every few milliseconds; false
  /// after `longestWait`.
  bool pumpUntil(const std::function<bool()>& condition);
  /// Runs the waiting jobs.
  void pump();

  /// The largest processor time of one job.
  std::chrono::nanoseconds longestJob() const { return longest; }

 private:
  void run(const Job& job);
  Job next(std::chrono::milliseconds limit);

  std::mutex lock;
  std::condition_variable submitted;
  std::deque<Job> jobs;  ///< under `lock`
  std::chrono::nanoseconds longest{0};
};

/// The calling thread's processor time, without waiting.
std::chrono::nanoseconds timeOfThisThread();

}  // namespace corvane::support
