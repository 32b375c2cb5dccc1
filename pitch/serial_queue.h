// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <thread>

#include "base/in_place_function.h"

namespace corvane {

/// Runs jobs one at a time in the order of submission.
class TaskQueue {
 public:
  using Job = InPlaceFunction<void(), 64>;

  virtual ~TaskQueue() = default;

  /// Submits a job. Any thread.
  virtual void async(Job job) = 0;
};

/// A queue with its own high-priority thread, named after the first 15 bytes of the label. The
/// destructor runs all submitted jobs, then ends the thread; called from a job it returns at once,
/// and the thread ends after the remaining jobs. Submitting allocates only when more jobs wait than
/// ever before.
class SerialQueue final : public TaskQueue {
 public:
  explicit SerialQueue(const std::string& label);
  ~SerialQueue() override;
  SerialQueue(const SerialQueue&) = delete;
  SerialQueue& operator=(const SerialQueue&) = delete;

  void async(Job job) override;

 private:
  struct State;
  std::shared_ptr<State> state;
  std::thread thread;
};

/// Runs each job in the call that submits it, for a source that may wait for detection.
class InlineQueue final : public TaskQueue {
 public:
  void async(Job job) override { job(); }
};

}  // namespace corvane
