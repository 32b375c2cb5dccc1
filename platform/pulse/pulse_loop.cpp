// SPDX-License-Identifier: MIT
#include "platform/pulse/pulse_loop.h"

#include <pthread.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include "base/require.h"
#include "base/urgent_thread.h"

namespace corvane {
namespace {

constexpr std::chrono::milliseconds pollRetryDelay{10};

/// Starts a thread with all signals blocked: other threads handle them.
std::thread startWithoutSignals(std::function<void()> body) {
  sigset_t every;
  sigset_t before;
  sigfillset(&every);
  pthread_sigmask(SIG_SETMASK, &every, &before);
  std::thread started(std::move(body));
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return started;
}

/// Rounded up, so that the timer is due after the wait; -1 for no limit.
int microsecondsUntil(Clock::Time now, std::optional<Clock::Time> moment) {
  if (!moment) return -1;
  const auto left = std::chrono::ceil<std::chrono::microseconds>(*moment - now).count();
  return static_cast<int>(std::clamp<std::int64_t>(left, 0, 1'000'000'000));
}

}  // namespace

PulseLoop::PulseLoop(const Clock& ofTimers)
    : clock(ofTimers), loopTimers(ofTimers), mainloop(pa_mainloop_new(), pa_mainloop_free) {
  require(mainloop != nullptr, "the program starts with file descriptors to spare");
  thread = startWithoutSignals([this] { run(); });
}

PulseLoop::~PulseLoop() {
  async([this] { over = true; });
  thread.join();
}

void PulseLoop::async(Job job) {
  {
    const std::lock_guard held(lock);
    jobs.push_back(std::move(job));
  }
  pa_mainloop_wakeup(mainloop.get());
}

void PulseLoop::run() {
  beUrgent("corvane.pulse");
  while (!over) {
    iterate();
    loopTimers.callDue();
    runJobs();
  }
}

void PulseLoop::iterate() {
  {
    // Preparing discards earlier wake-ups, so no job may be added between the check and the call.
    const std::lock_guard held(lock);
    const int limit = jobs.empty() ? microsecondsUntil(clock.now(), loopTimers.next()) : 0;
    pa_mainloop_prepare(mainloop.get(), limit);
  }
  if (pa_mainloop_poll(mainloop.get()) >= 0) {
    pa_mainloop_dispatch(mainloop.get());
  } else {
    std::this_thread::sleep_for(pollRetryDelay);
  }
}

void PulseLoop::runJobs() {
  std::vector<Job> ready;
  {
    const std::lock_guard held(lock);
    ready.swap(jobs);
  }
  for (const Job& job : ready) job();
}

}  // namespace corvane
