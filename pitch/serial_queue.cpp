// SPDX-License-Identifier: MIT
#include "pitch/serial_queue.h"

#include <condition_variable>
#include <mutex>
#include <utility>

#include "base/job_list.h"
#include "base/urgent_thread.h"

namespace corvane {

struct SerialQueue::State {
  std::mutex lock;
  std::condition_variable changed;
  JobList<Job> jobs;
  bool ending = false;

  void add(Job job) {
    const std::lock_guard held(lock);
    jobs.add(std::move(job));
  }

  /// Waits for the next job; nothing once the queue is ending and empty.
  Job next() {
    std::unique_lock held(lock);
    changed.wait(held, [this] { return ending || !jobs.empty(); });
    if (jobs.empty()) return nullptr;
    return jobs.take();
  }
};

SerialQueue::SerialQueue(const std::string& label) : state(std::make_shared<State>()) {
  thread = std::thread([label, shared = state] {
    beUrgent(label);
    while (Job job = shared->next()) job();
  });
}

SerialQueue::~SerialQueue() {
  {
    const std::lock_guard held(state->lock);
    state->ending = true;
  }
  state->changed.notify_one();
  // A job may hold the last reference to the queue's owner; a thread cannot join itself.
  if (thread.get_id() == std::this_thread::get_id()) {
    thread.detach();
  } else {
    thread.join();
  }
}

void SerialQueue::async(Job job) {
  state->add(std::move(job));
  state->changed.notify_one();
}

}  // namespace corvane
