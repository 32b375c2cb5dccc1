#include "pitch/serial_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <numeric>

#include "pitch/tests/threads.h"

namespace corvane {
namespace {

std::vector<int> firstIntegers(int count) {
  std::vector<int> integers(static_cast<std::size_t>(count));
  std::iota(integers.begin(), integers.end(), 0);
  return integers;
}

TEST(SerialQueue, RunsJobsInTheOrderOfSubmission) {
  Inbox<int> ran;
  SerialQueue queue("order");
  for (int i = 0; i < 1000; ++i) queue.async([&, i] { ran.push(i); });
  ASSERT_TRUE(ran.waitFor(1000));
  EXPECT_EQ(ran.all(), firstIntegers(1000));
}

TEST(SerialQueue, RunsOneJobAtATimeWhoeverSubmits) {
  std::atomic<int> running = 0;
  std::atomic<int> overlaps = 0;
  std::vector<int> order[3];  // written by jobs alone, without a lock
  {
    SerialQueue queue("one");
    std::vector<std::thread> producers;
    for (auto& mine : order) {
      producers.emplace_back([&] {
        for (int i = 0; i < 500; ++i) {
          queue.async([&, i] {
            if (running.fetch_add(1) != 0) ++overlaps;
            mine.push_back(i);
            --running;
          });
        }
      });
    }
    for (std::thread& producer : producers) producer.join();
  }
  EXPECT_EQ(overlaps, 0);
  for (const auto& each : order) EXPECT_EQ(each, firstIntegers(500)) << "each keeps its own order";
}

TEST(SerialQueue, RunsJobsOnOneThreadOfItsOwn) {
  Inbox<std::thread::id> threads;
  SerialQueue queue("own");
  for (int i = 0; i < 3; ++i) queue.async([&] { threads.push(std::this_thread::get_id()); });
  ASSERT_TRUE(threads.waitFor(3));
  const auto ids = threads.all();
  EXPECT_NE(ids[0], std::this_thread::get_id());
  EXPECT_EQ(ids[1], ids[0]);
  EXPECT_EQ(ids[2], ids[0]);
}

TEST(SerialQueue, SubmittingDoesNotWaitForTheJobThatRuns) {
  Door door;
  Inbox<int> ran;
  SerialQueue queue("busy");
  queue.async([&] { ran.push(door.pass() ? 0 : -1); });
  queue.async([&] { ran.push(1); });
  EXPECT_TRUE(ran.all().empty());
  door.open();
  ASSERT_TRUE(ran.waitFor(2));
  EXPECT_EQ(ran.all(), firstIntegers(2));
}

TEST(SerialQueue, RunsEverythingSubmittedBeforeItsDestruction) {
  for (int round = 0; round < 50; ++round) {
    std::vector<int> ran;  // destruction ends the thread, so that no lock is needed after it
    {
      SerialQueue queue("ending");
      for (int i = 0; i < 50; ++i) queue.async([&, i] { ran.push_back(i); });
    }
    ASSERT_EQ(ran, firstIntegers(50));
  }
}

TEST(SerialQueue, AQueueWithoutAJobEndsAtOnce) {
  for (int round = 0; round < 50; ++round) SerialQueue queue("idle");
  EXPECT_TRUE(eventually([] { return threadsNamed("idle") == 0; }));
}

TEST(SerialQueue, AJobMaySubmitAnother) {
  Inbox<int> ran;
  SerialQueue queue("nested");
  queue.async([&] {
    queue.async([&] { ran.push(1); });
    ran.push(0);
  });
  ASSERT_TRUE(ran.waitFor(2));
  EXPECT_EQ(ran.all(), firstIntegers(2));
}

TEST(SerialQueue, MayBeDestroyedByOneOfItsJobs) {
  Inbox<int> ran;
  Door submitted;
  auto queue = std::make_unique<SerialQueue>("suicide");
  SerialQueue& submit = *queue;
  submit.async([&ran, &submitted, mine = std::shared_ptr<SerialQueue>(std::move(queue))]() mutable {
    if (!submitted.pass()) return;
    mine.reset();
    ran.push(0);
  });
  submit.async([&] { ran.push(1); });
  submitted.open();
  ASSERT_TRUE(ran.waitFor(2));
  EXPECT_EQ(ran.all(), firstIntegers(2)) << "that job goes on, and those behind it are run";
  EXPECT_TRUE(eventually([] { return threadsNamed("suicide") == 0; }));
}

TEST(SerialQueue, GivesAJobBackAsSoonAsItHasRun) {
  auto token = std::make_shared<int>(0);
  const std::weak_ptr<int> alive = token;
  SerialQueue queue("release");
  queue.async([token = std::move(token)] { ++*token; });
  EXPECT_TRUE(eventually([&] { return alive.expired(); }));
}

TEST(SerialQueue, ItsThreadCarriesItsLabel) {
  Inbox<std::string> names;
  SerialQueue queue("corvane.pitch");
  queue.async([&] { names.push(threadName()); });
  ASSERT_TRUE(names.waitFor(1));
  EXPECT_EQ(names.all()[0], "corvane.pitch");
  EXPECT_EQ(threadsNamed("corvane.pitch"), 1U);
}

TEST(SerialQueue, ALongLabelIsCutToFifteenBytes) {
  Inbox<std::string> names;
  SerialQueue queue("a label of twenty-nine bytes.");
  queue.async([&] { names.push(threadName()); });
  ASSERT_TRUE(names.waitFor(1));
  EXPECT_EQ(names.all()[0], "a label of twen");
}

TEST(InlineQueue, RunsEachJobWithinTheCallThatSubmitsIt) {
  std::vector<int> ran;
  InlineQueue queue;
  queue.async([&] { ran.push_back(0); });
  EXPECT_EQ(ran.size(), 1U);
  queue.async([&] { ran.push_back(1); });
  EXPECT_EQ(ran, firstIntegers(2));
}

}  // namespace
}  // namespace corvane
