#pragma once

#include <cstddef>
#include <string>

/// Makes the adapter's calls of libpulse fail. The program must be linked so that every function
/// which can fail is wrapped (`--wrap`); what libpulse calls itself is not affected. Any thread.
namespace corvane::failing_calls {

enum class Lasting {
  once,     ///< one call fails, and the next succeeds
  forGood,  ///< that call and every later one
};

/// From now on the `nth` call, counted from 1, fails.
void arm(std::size_t nth, Lasting lasting);

/// From now on the first call of `function` fails, and that of no other.
void arm(const std::string& function, Lasting lasting);

/// From now on none fails.
void heal();

/// The function that failed first since `arm`; empty while none has.
std::string failed();

}  // namespace corvane::failing_calls
