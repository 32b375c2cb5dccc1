#include "tests/support/pumped_queue.h"

#include <algorithm>
#include <utility>

namespace corvane::support {

using Clock = std::chrono::steady_clock;

void PumpedQueue::async(Job job) {
  {
    const std::lock_guard held(lock);
    jobs.push_back(std::move(job));
  }
  submitted.notify_one();
}

bool PumpedQueue::pumpUntil(const std::function<bool()>& condition, Duration limit) {
  const auto deadline = Clock::now() + limit;
  while (!condition()) {
    if (Clock::now() > deadline) return false;
    const auto job = next();
    if (!job) continue;
    const auto begun = Clock::now();
    job();
    longest = std::max(longest, Clock::now() - begun);
  }
  return true;
}

MainQueue::Job PumpedQueue::next() {
  std::unique_lock held(lock);
  submitted.wait_for(held, std::chrono::milliseconds(5), [this] { return !jobs.empty(); });
  if (jobs.empty()) return nullptr;
  auto job = std::move(jobs.front());
  jobs.pop_front();
  return job;
}

}  // namespace corvane::support
