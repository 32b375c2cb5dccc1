// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <memory>
#include <utility>

#include "pitch/serial_queue.h"

namespace corvane {

/// Jobs that wait until the test runs them on its own thread.
struct WaitingJobs {
  std::deque<TaskQueue::Job> jobs;

  /// Runs the oldest job. There must be one.
  void runOne() {
    const TaskQueue::Job job = std::move(jobs.front());
    jobs.pop_front();
    job();
  }
};

/// Stores submitted jobs in an object that outlives the queue.
class ManualQueue final : public TaskQueue {
 public:
  explicit ManualQueue(std::shared_ptr<WaitingJobs> where) : waiting(std::move(where)) {}

  void async(Job job) override { waiting->jobs.push_back(std::move(job)); }

 private:
  std::shared_ptr<WaitingJobs> waiting;
};

}  // namespace corvane
