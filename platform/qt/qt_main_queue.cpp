// SPDX-License-Identifier: MIT
#include "platform/qt/qt_main_queue.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cstdint>
#include <mutex>
#include <utility>

#include "base/job_list.h"
#include "base/require.h"

namespace corvane {

/// Wakes the main thread through a descriptor, because Qt allocates an event for each job.
class QtMainQueue::Inbox final : public QObject {
 public:
  Inbox() {
    require(wake.descriptor >= 0, "the program starts with file descriptors to spare");
    connect(&notifier, &QSocketNotifier::activated, this, &Inbox::run);
  }

  /// No job runs afterwards.
  void close() {
    JobList<Job> dropped;
    const std::lock_guard held(lock);
    std::swap(dropped, jobs);
  }

  void add(Job job) {
    {
      const std::lock_guard held(lock);
      jobs.add(std::move(job));
      if (std::exchange(awake, true)) return;
    }
    // After unlocking, so that the main thread does not wake up and wait for the lock.
    ::eventfd_write(wake.descriptor, 1);
  }

 private:
  /// Declared before the notifier, so that it is closed after it.
  struct Wake {
    ~Wake() { ::close(descriptor); }
    const int descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  };

  void run() {
    while (Job job = next()) job();
  }

  Job next() {
    const std::lock_guard held(lock);
    if (!jobs.empty()) return jobs.take();
    eventfd_t count = 0;
    ::eventfd_read(wake.descriptor, &count);
    awake = false;
    return nullptr;
  }

  std::mutex lock;
  JobList<Job> jobs;   ///< under `lock`
  bool awake = false;  ///< under `lock`: the main thread was woken and has not emptied `jobs` since
  Wake wake;
  QSocketNotifier notifier{wake.descriptor, QSocketNotifier::Read};
};

QtMainQueue::QtMainQueue() : inbox(new Inbox) {}

QtMainQueue::~QtMainQueue() {
  inbox->close();
}

void QtMainQueue::async(Job job) {
  inbox->add(std::move(job));
}

}  // namespace corvane
