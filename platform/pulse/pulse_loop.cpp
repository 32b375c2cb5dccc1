#include "platform/pulse/pulse_loop.h"

#include <pthread.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <utility>

#include "base/require.h"
#include "base/urgent_thread.h"

namespace corvane {
namespace {

constexpr std::chrono::milliseconds breather{10};

/// A thread that takes no signals: they are the business of the threads that expect them.
std::thread startWithoutSignals(std::function<void()> body) {
  sigset_t every;
  sigset_t before;
  sigfillset(&every);
  pthread_sigmask(SIG_SETMASK, &every, &before);
  std::thread started(std::move(body));
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return started;
}

/// For `poll`: no earlier than `moment`, and -1 for the end of time.
int millisecondsUntil(Clock::Time now, std::optional<Clock::Time> moment) {
  if (!moment) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*moment - now).count();
  return static_cast<int>(std::clamp<std::int64_t>(left, 0, 1'000'000));
}

int sooner(int one, int other) {
  return one < 0 || other < 0 ? std::max(one, other) : std::min(one, other);
}

void forget(int wakeup) {
  eventfd_t count = 0;
  eventfd_read(wakeup, &count);
}

}  // namespace

PulseLoop::PulseLoop(const Clock& ofTimers)
    : clock(ofTimers), wakeup(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), loopTimers(ofTimers) {
  require(wakeup >= 0, "a descriptor is left to wake the audio thread");
  thread = startWithoutSignals([this] { run(); });
}

PulseLoop::~PulseLoop() {
  async([this] { over = true; });
  thread.join();
  close(wakeup);
}

void PulseLoop::async(Job job) {
  {
    const std::lock_guard held(lock);
    jobs.push_back(std::move(job));
  }
  eventfd_write(wakeup, 1);
}

pa_mainloop_api* PulseLoop::api() const {
  return mainloop == nullptr ? nullptr : pa_mainloop_get_api(mainloop.get());
}

void PulseLoop::run() {
  beUrgent("corvane.pulse");
  while (!over) {
    if (mainloop == nullptr) openMainloop();
    runJobs();
    if (over) break;
    mainloop != nullptr ? iterate() : waitForJobs();
    loopTimers.callDue();
  }
  mainloop.reset();
}

void PulseLoop::iterate() {
  pa_mainloop_iterate(mainloop.get(), 1, nullptr);
}

void PulseLoop::waitForJobs() {
  pollfd jobsWaiting{.fd = wakeup, .events = POLLIN, .revents = 0};
  wait(&jobsWaiting, 1, -1);
  forget(wakeup);
}

/// Leaves none when the system has none for us: descriptors are short.
void PulseLoop::openMainloop() {
  mainloop.reset(pa_mainloop_new());
  if (mainloop == nullptr) return;
  pa_mainloop_set_poll_func(
      mainloop.get(),
      [](pollfd* descriptors, unsigned long count, int limit, void* loop) {
        return static_cast<PulseLoop*>(loop)->wait(descriptors, count, limit);
      },
      this);
  const auto wake = [](pa_mainloop_api*, pa_io_event*, int descriptor, pa_io_event_flags_t, void*) {
    forget(descriptor);
  };
  api()->io_new(api(), wakeup, PA_IO_EVENT_INPUT, wake, nullptr);
}

/// Until something happens, a timer is due, or the time is up. A system that cannot tell what has
/// happened is asked again.
int PulseLoop::wait(pollfd* descriptors, unsigned long count, int limit) {
  const int longest = sooner(limit, millisecondsUntil(clock.now(), loopTimers.next()));
  const int ready = poll(descriptors, count, longest);
  if (ready >= 0) return ready;
  if (errno != EINTR) std::this_thread::sleep_for(breather);
  return 0;
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
