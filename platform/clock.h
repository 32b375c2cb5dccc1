// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace corvane {

/// Monotonic time, independent of the wall clock.
class Clock {
 public:
  using Time = std::chrono::steady_clock::time_point;

  virtual ~Clock() = default;
  virtual Time now() const = 0;
};

class SteadyClock final : public Clock {
 public:
  Time now() const override { return std::chrono::steady_clock::now(); }
};

}  // namespace corvane
