// SPDX-License-Identifier: MIT
#include "platform/pulse/pulse_loop.h"

#include <gmock/gmock.h>
#include <pthread.h>
#include <signal.h>
#include <sys/resource.h>

#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "base/urgent_thread.h"
#include "platform/pulse/tests/test_clock.h"

namespace corvane {
namespace {

TEST(PulseLoop, RunsSubmittedJobsInOrderBeforeItEnds) {
  std::vector<int> ran;
  {
    PulseLoop loop{testClock()};
    loop.async([&] {
      ran.push_back(1);
      // Submitted by a job, perhaps after the destructor's own job.
      loop.async([] {});
    });
    loop.async([&] { ran.push_back(2); });
    loop.async([&] { ran.push_back(3); });
  }
  EXPECT_THAT(ran, testing::ElementsAre(1, 2, 3));
}

TEST(PulseLoop, HasOneNamedUrgentThread) {
  int urgent = 0;
  std::thread([&urgent] {
    beUrgent("like");
    urgent = getpriority(PRIO_PROCESS, 0);
  }).join();
  int priority = 20;
  char name[16] = {};
  pthread_t first{};
  pthread_t second{};
  {
    PulseLoop loop{testClock()};
    loop.async([&] {
      first = pthread_self();
      pthread_getname_np(first, name, sizeof name);
      priority = getpriority(PRIO_PROCESS, 0);
    });
    loop.async([&] { second = pthread_self(); });
  }
  EXPECT_EQ(std::string(name), "corvane.pulse");
  EXPECT_EQ(priority, urgent);
  EXPECT_TRUE(pthread_equal(first, second));
  EXPECT_FALSE(pthread_equal(first, pthread_self()));
}

TEST(PulseLoop, BlocksSignalsOnItsThread) {
  sigset_t blocked;
  sigemptyset(&blocked);
  {
    PulseLoop loop{testClock()};
    loop.async([&] { pthread_sigmask(SIG_BLOCK, nullptr, &blocked); });
  }
  EXPECT_TRUE(sigismember(&blocked, SIGTERM));
  sigset_t here;
  pthread_sigmask(SIG_BLOCK, nullptr, &here);
  EXPECT_FALSE(sigismember(&here, SIGTERM));
}

/// poll fails with more descriptors than the limit of the program, which the administrator may
/// lower while the program runs.
TEST(PulseLoop, RunsJobsWhilePollFails) {
  PulseLoop loop{testClock()};
  const auto runsAJob = [&loop] {
    const auto ran = std::make_shared<std::promise<void>>();
    loop.async([ran] { ran->set_value(); });
    return ran->get_future().wait_for(std::chrono::seconds(10)) == std::future_status::ready;
  };
  ASSERT_TRUE(runsAJob());
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit nothing{.rlim_cur = 0, .rlim_max = before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &nothing), 0);
  const bool first = runsAJob();
  const bool second = runsAJob();
  setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_TRUE(first);
  EXPECT_TRUE(second);
}

TEST(PulseLoop, DestroysJobsThatHaveRun) {
  const auto owned = std::make_shared<int>();
  {
    PulseLoop loop{testClock()};
    loop.async([owned] {});
  }
  EXPECT_EQ(owned.use_count(), 1);
}

}  // namespace
}  // namespace corvane
