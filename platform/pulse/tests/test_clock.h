// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <mutex>

#include "platform/clock.h"

namespace corvane {

/// The clock of the adapter, and of libpulse in this program. It is stopped, so that a slow server
/// causes no timeout, until a test moves it or lets it run. Any thread.
class TestClock final : public Clock {
 public:
  Time now() const override;
  void advance(std::chrono::milliseconds duration);
  void run();
  void stop();

 private:
  mutable std::mutex lock;
  Time time = Time{} + std::chrono::hours(1);  ///< under `lock`, as the rest
  bool running = false;
  Time begun;  ///< of the last `run`, in the system's time
};

/// The one clock of this program.
TestClock& testClock();
/// The same, for the connection.
std::shared_ptr<const Clock> clockOfTests();

}  // namespace corvane
