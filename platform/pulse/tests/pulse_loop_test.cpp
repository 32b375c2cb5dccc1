#include "platform/pulse/pulse_loop.h"

#include <gmock/gmock.h>
#include <pthread.h>
#include <signal.h>

#include <memory>
#include <string>
#include <vector>

namespace corvane {
namespace {

TEST(PulseLoop, RunsWhatWasSubmittedInOrderBeforeItEnds) {
  std::vector<int> ran;
  {
    PulseLoop loop;
    loop.async([&] {
      ran.push_back(1);
      // Submitted by a job, so it may come after the end was.
      loop.async([] {});
    });
    loop.async([&] { ran.push_back(2); });
    loop.async([&] { ran.push_back(3); });
  }
  EXPECT_THAT(ran, testing::ElementsAre(1, 2, 3));
}

TEST(PulseLoop, HasOneThreadThatCarriesItsName) {
  char name[16] = {};
  pthread_t first{};
  pthread_t second{};
  {
    PulseLoop loop;
    loop.async([&] {
      first = pthread_self();
      pthread_getname_np(first, name, sizeof name);
    });
    loop.async([&] { second = pthread_self(); });
  }
  EXPECT_EQ(std::string(name), "corvane.pulse");
  EXPECT_TRUE(pthread_equal(first, second));
  EXPECT_FALSE(pthread_equal(first, pthread_self()));
}

TEST(PulseLoop, LeavesSignalsToTheOtherThreads) {
  sigset_t blocked;
  sigemptyset(&blocked);
  {
    PulseLoop loop;
    loop.async([&] { pthread_sigmask(SIG_BLOCK, nullptr, &blocked); });
  }
  EXPECT_TRUE(sigismember(&blocked, SIGTERM));
  sigset_t here;
  pthread_sigmask(SIG_BLOCK, nullptr, &here);
  EXPECT_FALSE(sigismember(&here, SIGTERM));
}

TEST(PulseLoop, KeepsNothingOfAJobThatHasRun) {
  const auto owned = std::make_shared<int>();
  {
    PulseLoop loop;
    loop.async([owned] {});
  }
  EXPECT_EQ(owned.use_count(), 1);
}

}  // namespace
}  // namespace corvane
