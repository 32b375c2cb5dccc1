#pragma once

#include <chrono>

namespace corvane {

/// How long we wait for a server's answer: long enough for one that is being started, short enough
/// for a person who waits.
constexpr std::chrono::milliseconds patience{3000};

}  // namespace corvane
