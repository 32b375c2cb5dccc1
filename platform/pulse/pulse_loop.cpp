#include "platform/pulse/pulse_loop.h"

#include <poll.h>
#include <pthread.h>
#include <pulse/mainloop.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <memory>
#include <utility>

#include "base/require.h"

namespace corvane {
namespace {

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

}  // namespace

PulseLoop::PulseLoop() : wakeup(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  require(wakeup >= 0, "a descriptor is left to wake the audio thread");
  thread = startWithoutSignals([this] { run(); });
}

PulseLoop::~PulseLoop() {
  async([this] {
    over = true;
    if (mainloopApi != nullptr) mainloopApi->quit(mainloopApi, 0);
  });
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

void PulseLoop::run() {
  pthread_setname_np(pthread_self(), "corvane.pulse");
  while (!over) {
    if (runMainloop()) continue;
    runJobs();
    if (!over) waitForJobs();
  }
}

/// False when the system has no loop for us: descriptors are short.
bool PulseLoop::runMainloop() {
  const std::unique_ptr<pa_mainloop, decltype(&pa_mainloop_free)> mainloop(pa_mainloop_new(),
                                                                           pa_mainloop_free);
  if (mainloop == nullptr) return false;
  mainloopApi = pa_mainloop_get_api(mainloop.get());
  const auto wake = [](pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* loop) {
    static_cast<PulseLoop*>(loop)->runJobs();
  };
  pa_io_event* const event =
      mainloopApi->io_new(mainloopApi, wakeup, PA_IO_EVENT_INPUT, wake, this);
  const bool ran = pa_mainloop_run(mainloop.get(), nullptr) >= 0;
  require(ran || !used, "a loop that has begun goes on");
  mainloopApi->io_free(event);
  mainloopApi = nullptr;
  return ran;
}

void PulseLoop::waitForJobs() const {
  pollfd jobsWaiting{.fd = wakeup, .events = POLLIN, .revents = 0};
  poll(&jobsWaiting, 1, -1);
}

void PulseLoop::runJobs() {
  eventfd_t count = 0;
  eventfd_read(wakeup, &count);
  std::vector<Job> ready;
  {
    const std::lock_guard held(lock);
    ready.swap(jobs);
  }
  used = used || (mainloopApi != nullptr && !ready.empty());
  for (const Job& job : ready) job();
}

}  // namespace corvane
