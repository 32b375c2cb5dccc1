// SPDX-License-Identifier: MIT
#pragma once

#include "base/in_place_function.h"

namespace corvane {

/// Runs jobs on the main thread.
class MainQueue {
 public:
  using Job = InPlaceFunction<void(), 96>;

  virtual ~MainQueue() = default;

  /// Runs `job` on the main thread, after this call, in the order of submission. Any thread. The
  /// queue's destructor drops jobs that have not run.
  virtual void async(Job job) = 0;
};

}  // namespace corvane
