#include "platform/pulse/timer.h"

#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <future>
#include <memory>
#include <thread>

#include "platform/pulse/pulse_loop.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// A timer on a loop of its own; the test runs its steps there.
class TimerTest : public testing::Test {
 protected:
  TimerTest() {
    onLoop([this] { timer = std::make_unique<Timer>(loop.timers()); });
  }
  ~TimerTest() override {
    onLoop([this] { timer.reset(); });
  }

  void onLoop(const std::function<void()>& step) {
    std::promise<void> done;
    loop.async([&] {
      step();
      done.set_value();
    });
    done.get_future().wait();
  }

  /// Sets `called` to the moment of the call.
  std::function<void()> call() {
    return [this] { called.set_value(Clock::now()); };
  }

  PulseLoop loop;
  std::unique_ptr<Timer> timer;
  std::promise<Clock::time_point> called;
};

TEST_F(TimerTest, CallsOnceAfterTheDelay) {
  Clock::time_point start;
  onLoop([&] {
    start = Clock::now();
    timer->arm(30ms, call());
  });
  EXPECT_GE(called.get_future().get() - start, 30ms);
}

/// The other callback is called first: whatever has happened comes before the timers.
TEST_F(TimerTest, ArmedAnewByACallbackOfTheSameMomentItWaitsAllOfTheDelay) {
  const int other = eventfd(1, EFD_CLOEXEC | EFD_NONBLOCK);
  pa_io_event* event = nullptr;
  Clock::time_point start;
  const std::function<void()> rearm = [&] {
    loop.api()->io_free(event);
    start = Clock::now();
    timer->arm(50ms, call());
  };
  onLoop([&] {
    event = loop.api()->io_new(
        loop.api(), other, PA_IO_EVENT_INPUT,
        [](pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* job) {
          (*static_cast<const std::function<void()>*>(job))();
        },
        const_cast<std::function<void()>*>(&rearm));
    timer->arm(1ms, [] { ADD_FAILURE() << "the first job ran"; });
    std::this_thread::sleep_for(5ms);  // Both are ready when the loop looks next.
  });
  EXPECT_GE(called.get_future().get() - start, 50ms);
  close(other);
}

TEST_F(TimerTest, ArmedAnewItForgetsTheJobBefore) {
  onLoop([&] {
    timer->arm(1ms, [] { ADD_FAILURE() << "the first job ran"; });
    timer->arm(20ms, call());
  });
  called.get_future().wait();
}

TEST_F(TimerTest, DisarmedItCallsNobody) {
  Timer* other = nullptr;
  onLoop([&] {
    timer->arm(1ms, [] { ADD_FAILURE() << "it ran all the same"; });
    timer->disarm();
    other = new Timer(loop.timers());
    other->arm(20ms, call());
  });
  called.get_future().wait();
  onLoop([&] { delete other; });
}

TEST_F(TimerTest, CanBeDestroyedByItsOwnJob) {
  onLoop([&] {
    timer->arm(1ms, [this] {
      timer.reset();
      called.set_value(Clock::now());
    });
  });
  called.get_future().wait();
  EXPECT_EQ(timer, nullptr);
}

TEST_F(TimerTest, CanBeArmedByItsOwnJob) {
  onLoop([&] { timer->arm(1ms, [this] { timer->arm(1ms, call()); }); });
  called.get_future().wait();
}

}  // namespace
}  // namespace corvane
