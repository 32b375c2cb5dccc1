// SPDX-License-Identifier: MIT
#include "platform/pulse/timer.h"

#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <future>
#include <memory>

#include "platform/pulse/pulse_loop.h"
#include "platform/pulse/tests/test_clock.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

/// A timer that counts the calls of its job.
class TimerTest : public testing::Test {
 protected:
  int callsAfter(std::chrono::milliseconds time) {
    clock.advance(time);
    timers.callDue();
    return calls;
  }
  std::function<void()> count() {
    return [this] { ++calls; };
  }
  std::function<void()> fail() {
    return [] { ADD_FAILURE() << "the first job ran"; };
  }

  TestClock clock;
  Timers timers{clock};
  std::optional<Timer> timer{std::in_place, timers};
  int calls = 0;
};

TEST_F(TimerTest, CallsOnceAfterTheDelay) {
  EXPECT_EQ(timers.next(), std::nullopt);
  timer->arm(30ms, count());
  EXPECT_EQ(timers.next(), clock.now() + 30ms);
  EXPECT_EQ(callsAfter(29ms), 0);
  EXPECT_EQ(callsAfter(1ms), 1);
  EXPECT_EQ(callsAfter(60ms), 1);
}

TEST_F(TimerTest, RearmingReplacesJobAndDelay) {
  timer->arm(10ms, fail());
  clock.advance(10ms);
  timer->arm(30ms, count());
  EXPECT_EQ(callsAfter(29ms), 0);
  EXPECT_EQ(callsAfter(1ms), 1);
}

TEST_F(TimerTest, DisarmedOrDestroyedIsNotCalled) {
  timer->arm(10ms, fail());
  timer->disarm();
  EXPECT_EQ(timers.next(), std::nullopt);
  callsAfter(10ms);
  timer->arm(10ms, fail());
  timer.reset();
  callsAfter(10ms);
}

TEST_F(TimerTest, TimersRunInOrderAndMayDestroyThemselves) {
  Timer other(timers);
  timer->arm(20ms, [this] {
    EXPECT_EQ(calls, 1);
    timer.reset();
  });
  other.arm(10ms, count());
  callsAfter(20ms);
  EXPECT_EQ(timer, std::nullopt);
}

TEST_F(TimerTest, ArmedByItsOwnJobCallsLater) {
  timer->arm(1ms, [this] { timer->arm(1ms, count()); });
  EXPECT_EQ(callsAfter(5ms), 0);
  EXPECT_EQ(callsAfter(1ms), 1);
}

/// Input may rearm a timer that is due.
TEST(TimersOfALoop, RunAfterInputOfTheSameIteration) {
  TestClock clock;
  const int other = eventfd(1, EFD_CLOEXEC | EFD_NONBLOCK);
  std::string order;
  std::promise<void> called;
  std::optional<Timer> timer;  // Destroyed after the loop, whose last job resets it.
  PulseLoop loop(clock);
  const std::function<void()> event = [&] { order += "event "; };
  loop.async([&] {
    timer.emplace(loop.timers());
    loop.api().io_new(
        &loop.api(), other, PA_IO_EVENT_INPUT,
        [](pa_mainloop_api* api, pa_io_event* io, int, pa_io_event_flags_t, void* job) {
          api->io_free(io);
          (*static_cast<const std::function<void()>*>(job))();
        },
        const_cast<std::function<void()>*>(&event));
    timer->arm(1ms, [&] {
      order += "timer";
      called.set_value();
    });
    clock.advance(1ms);
  });
  called.get_future().wait();
  loop.async([&] { timer.reset(); });
  EXPECT_EQ(order, "event timer");
  close(other);
}

}  // namespace
}  // namespace corvane
