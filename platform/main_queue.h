#pragma once

#include "base/in_place_function.h"

namespace corvane {

/// The way onto the user interface's thread.
class MainQueue {
 public:
  using Job = InPlaceFunction<void(), 96>;

  virtual ~MainQueue() = default;

  /// Runs `job` on the main thread, after this call, in the order of submission. Any thread. Jobs
  /// that have not run when the queue is destroyed never run.
  virtual void async(Job job) = 0;
};

}  // namespace corvane
