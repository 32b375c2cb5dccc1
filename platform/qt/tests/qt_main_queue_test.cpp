#include "platform/qt/qt_main_queue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <thread>
#include <vector>

namespace corvane {
namespace {

class QtMainQueueTest : public testing::Test {
 protected:
  int argc = 0;
  QCoreApplication app{argc, nullptr};
  std::shared_ptr<QtMainQueue> queue = std::make_shared<QtMainQueue>();
};

TEST_F(QtMainQueueTest, RunsJobsOfAnyThreadOnTheMainThreadInTheirOrder) {
  std::vector<int> ran;
  std::vector<QThread*> threads;
  std::thread other([&] {
    for (int i = 0; i < 3; ++i) {
      queue->async([&, i] {
        ran.push_back(i);
        threads.push_back(QThread::currentThread());
      });
    }
  });
  other.join();
  EXPECT_TRUE(ran.empty());
  QCoreApplication::processEvents();
  EXPECT_THAT(ran, testing::ElementsAre(0, 1, 2));
  EXPECT_THAT(threads, testing::Each(app.thread()));
}

TEST_F(QtMainQueueTest, NeverRunsAJobWithinTheCallThatSubmitsIt) {
  bool ran = false;
  queue->async([&] { ran = true; });
  EXPECT_FALSE(ran);
  QCoreApplication::processEvents();
  EXPECT_TRUE(ran);
}

TEST_F(QtMainQueueTest, ReleasedLastByAnotherThreadItRunsNothingMore) {
  int ran = 0;
  std::thread other([&ran, last = std::move(queue)]() mutable {
    last->async([&ran] { ++ran; });
    last.reset();
  });
  other.join();
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(ran, 0);
}

}  // namespace
}  // namespace corvane
