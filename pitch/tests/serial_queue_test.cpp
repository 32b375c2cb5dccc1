// SPDX-License-Identifier: MIT
#include "pitch/serial_queue.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <numeric>

#include "pitch/tests/threads.h"

namespace corvane {
namespace {

std::vector<int> firstIntegers(int count) {
  std::vector<int> integers(static_cast<std::size_t>(count));
  std::iota(integers.begin(), integers.end(), 0);
  return integers;
}

TEST(SerialQueue, RunsOneJobAtATimeInSubmissionOrder) {
  int running = 0;  // written only by jobs, without a lock
  int overlaps = 0;
  std::vector<int> order[3];
  {
    SerialQueue queue("order");
    std::vector<std::jthread> producers;
    for (auto& mine : order) {
      producers.emplace_back([&] {
        for (int i = 0; i < 300; ++i) {
          queue.async([&, i] {
            overlaps += running++;
            mine.push_back(i);
            --running;
          });
        }
      });
    }
  }
  EXPECT_EQ(overlaps, 0);
  for (const auto& each : order) EXPECT_EQ(each, firstIntegers(300));
}

TEST(SerialQueue, RunsJobsOnOneThreadNamedAfterItsLabel) {
  Inbox<std::thread::id> threads;
  Inbox<std::string> names;
  SerialQueue queue("a label of twenty-nine bytes.");
  for (int i = 0; i < 3; ++i) {
    queue.async([&] {
      names.push(threadName());
      threads.push(std::this_thread::get_id());
    });
  }
  ASSERT_TRUE(threads.waitFor(3));
  EXPECT_NE(threads.all()[0], std::this_thread::get_id());
  EXPECT_EQ(threads.all(), std::vector(3, threads.all()[0]));
  EXPECT_EQ(names.all()[0], "a label of twen") << "the first 15 bytes";
}

TEST(SerialQueue, RunsJobsAtTheHighestPermittedPriority) {
  const auto ofThisThread = [] { return getpriority(PRIO_PROCESS, 0); };
  int allowed = 0;
  std::thread([&] {
    for (int nice = ofThisThread(); nice >= -10; --nice) setpriority(PRIO_PROCESS, 0, nice);
    allowed = ofThisThread();
  }).join();
  const int before = ofThisThread();
  Inbox<int> priorities;
  SerialQueue queue("urgent");
  queue.async([&] { priorities.push(ofThisThread()); });
  ASSERT_TRUE(priorities.waitFor(1));
  EXPECT_EQ(priorities.all()[0], allowed);
  EXPECT_EQ(ofThisThread(), before) << "other threads keep theirs";
}

TEST(SerialQueue, SubmittingDoesNotWaitForARunningJob) {
  Door door;
  Inbox<int> ran;
  SerialQueue queue("busy");
  queue.async([&] {
    queue.async([&] { ran.push(2); });
    ran.push(door.pass() ? 0 : -1);
  });
  queue.async([&] { ran.push(1); });
  EXPECT_TRUE(ran.all().empty());
  door.open();
  ASSERT_TRUE(ran.waitFor(3));
  EXPECT_THAT(ran.all(), testing::UnorderedElementsAre(0, 1, 2));
}

TEST(SerialQueue, DestructorRunsAllSubmittedJobs) {
  for (int jobs = 0; jobs < 50; ++jobs) {
    std::vector<int> ran;  // no lock needed: the destructor ends the thread
    {
      SerialQueue queue("ending");
      for (int i = 0; i < jobs; ++i) queue.async([&, i] { ran.push_back(i); });
    }
    ASSERT_EQ(ran, firstIntegers(jobs));
  }
  EXPECT_TRUE(noThreadIsLeftNamed("ending"));
}

TEST(SerialQueue, MayBeDestroyedByOneOfItsJobs) {
  Inbox<int> ran;
  Door submitted;
  auto queue = std::make_unique<SerialQueue>("destroyed");
  SerialQueue& submit = *queue;
  submit.async([&ran, &submitted, mine = std::shared_ptr<SerialQueue>(std::move(queue))]() mutable {
    if (!submitted.pass()) return;
    mine.reset();
    ran.push(0);
  });
  submit.async([&] { ran.push(1); });
  submitted.open();
  ASSERT_TRUE(ran.waitFor(2));
  EXPECT_EQ(ran.all(), firstIntegers(2)) << "the job continues, and the remaining jobs run";
  EXPECT_TRUE(noThreadIsLeftNamed("destroyed"));
}

TEST(SerialQueue, DestroysAJobAsSoonAsItHasRun) {
  auto token = std::make_shared<int>(0);
  const std::weak_ptr<int> alive = token;
  SerialQueue queue("release");
  queue.async([token = std::move(token)] { ++*token; });
  EXPECT_TRUE(eventually([&] { return alive.expired(); }));
}

}  // namespace
}  // namespace corvane
