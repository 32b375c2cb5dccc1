// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// Makes the adapter's calls of libpulse fail. The program is linked with `--wrap` for every
/// function that can fail. Calls within libpulse are not affected. Any thread.
namespace corvane::failing_calls {

enum class Lasting {
  once,     ///< one call fails, later ones succeed
  forGood,  ///< that call and every later one fail
};

/// The `nth` call from now, counted from 1, fails.
void arm(std::size_t nth, Lasting lasting);

/// The next call of `function` fails, and no other function.
void arm(const std::string& function, Lasting lasting);

/// No call fails from now on.
void heal();

/// The function that failed first since `arm`; empty if none did.
std::string failed();

}  // namespace corvane::failing_calls
