// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace corvane::replay {

/// Ends the program with status 1 and its text as one line on standard error.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Invalid arguments: the same with status 2.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace corvane::replay
