// SPDX-License-Identifier: MIT
#include "tests/support/pumped_queue.h"

#include <time.h>

#include <algorithm>
#include <utility>

#include "tests/support/private_home.h"

namespace corvane::support {

void PumpedQueue::async(Job job) {
  {
    const std::lock_guard held(lock);
    jobs.push_back(std::move(job));
  }
  submitted.notify_one();
}

bool PumpedQueue::pumpUntil(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + longestWait;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    if (const auto job = next(std::chrono::milliseconds(5))) run(job);
  }
  return true;
}

void PumpedQueue::pump() {
  while (const auto job = next({})) run(job);
}

void PumpedQueue::run(const Job& job) {
  const auto begun = timeOfThisThread();
  job();
  longest = std::max(longest, timeOfThisThread() - begun);
}

MainQueue::Job PumpedQueue::next(std::chrono::milliseconds limit) {
  std::unique_lock held(lock);
  submitted.wait_for(held, limit, [this] { return !jobs.empty(); });
  if (jobs.empty()) return nullptr;
  auto job = std::move(jobs.front());
  jobs.pop_front();
  return job;
}

std::chrono::nanoseconds timeOfThisThread() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace corvane::support
