// SPDX-License-Identifier: MIT
#include "platform/qt/qt_main_queue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QThread>
#include <atomic>
#include <thread>
#include <vector>

#include "tests/support/allocation_count.h"
#include "tests/support/eventually.h"

namespace corvane {
namespace {

TEST(QtMainQueue, RunsJobsOfAnyThreadInOrderOnTheMainThread) {
  QtMainQueue queue;
  std::vector<int> ran;
  std::vector<QThread*> threads;
  const auto submitTwo = [&] {
    for (int i = 0; i < 2; ++i) {
      queue.async([&, i] {
        ran.push_back(i);
        threads.push_back(QThread::currentThread());
      });
    }
  };
  std::thread(submitTwo).join();
  submitTwo();
  EXPECT_TRUE(ran.empty());
  QCoreApplication::processEvents();
  EXPECT_THAT(ran, testing::ElementsAre(0, 1, 0, 1));
  EXPECT_THAT(threads, testing::Each(QCoreApplication::instance()->thread()));
}

TEST(QtMainQueue, ReleasedByAnotherThreadRunsNoMoreJobs) {
  int ran = 0;
  std::thread other([&ran, last = std::make_shared<QtMainQueue>()]() mutable {
    last->async([&ran] { ++ran; });
    last.reset();
  });
  other.join();
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(ran, 0);
}

TEST(QtMainQueue, OnlyTheFirstJobAllocatesWhenSubmitted) {
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
  EXPECT_TRUE(eventually([&] { return ran == jobs; }));
  ran = jobs;  // Otherwise the thread would wait forever.
  ran.notify_one();
  detection.join();
  EXPECT_EQ(allocations, 0U);
}

}  // namespace
}  // namespace corvane
