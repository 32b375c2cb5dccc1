#include "platform/pulse/pulse_loop.h"

#include <pthread.h>
#include <pulse/mainloop.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

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
  async([this] { mainloopApi->quit(mainloopApi, 0); });
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
  pa_mainloop* const mainloop = pa_mainloop_new();
  mainloopApi = pa_mainloop_get_api(mainloop);
  const auto wake = [](pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* loop) {
    static_cast<PulseLoop*>(loop)->runJobs();
  };
  pa_io_event* const event =
      mainloopApi->io_new(mainloopApi, wakeup, PA_IO_EVENT_INPUT, wake, this);
  pa_mainloop_run(mainloop, nullptr);
  mainloopApi->io_free(event);
  pa_mainloop_free(mainloop);
}

void PulseLoop::runJobs() {
  eventfd_t count = 0;
  eventfd_read(wakeup, &count);
  std::vector<Job> ready;
  {
    const std::lock_guard held(lock);
    ready.swap(jobs);
  }
  for (const Job& job : ready) job();
}

}  // namespace corvane
