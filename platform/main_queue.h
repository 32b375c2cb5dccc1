#pragma once

#include <functional>

namespace corvane {

/// The way onto the user interface's thread.
class MainQueue {
 public:
  virtual ~MainQueue() = default;

  /// Runs `job` on the main thread, after this call, in the order of submission. Any thread. Jobs
  /// that have not run when the queue is destroyed never run.
  virtual void async(std::function<void()> job) = 0;
};

}  // namespace corvane
