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
  using Duration = std::chrono::steady_clock::duration;

  void async(Job job) override;

  /// Runs jobs until `condition`, which it looks at after each job and every few milliseconds,
  /// holds; false when it does not within `limit`.
  bool pumpUntil(const std::function<bool()>& condition, Duration limit = std::chrono::seconds(10));

  /// The longest that one job has held the main thread.
  Duration longestJob() const { return longest; }

 private:
  Job next();

  std::mutex lock;
  std::condition_variable submitted;
  std::deque<Job> jobs;  ///< under `lock`
  Duration longest{0};
};

}  // namespace corvane::support
