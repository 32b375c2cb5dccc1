#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <atomic>
#include <thread>

#include "platform/qt/qt_main_queue.h"
#include "tests/support/allocation_count.h"

namespace corvane {
namespace {

TEST(QtMainQueueAllocation, NoJobAfterTheFirstAllocatesOnTheThreadThatSubmitsIt) {
  int argc = 0;
  QCoreApplication app(argc, nullptr);
  QtMainQueue queue;
  constexpr int jobs = 100;
  std::atomic<int> ran = 0;
  std::size_t allocations = jobs;
  std::thread detection([&] {
    std::size_t afterTheFirst = 0;
    for (int job = 0; job < jobs; ++job) {
      queue.async([&ran] {
        ++ran;
        ran.notify_one();
      });
      if (job == 0) afterTheFirst = allocationsOfThisThread();
      ran.wait(job);
    }
    allocations = allocationsOfThisThread() - afterTheFirst;
  });
  const QDeadlineTimer limit(10000);
  while (ran < jobs && !limit.hasExpired()) QCoreApplication::processEvents();
  const bool allRan = ran == jobs;
  if (!allRan) {  // Or the thread would wait for ever.
    ran = jobs;
    ran.notify_one();
  }
  detection.join();
  EXPECT_TRUE(allRan);
  EXPECT_EQ(allocations, 0U);
}

}  // namespace
}  // namespace corvane
