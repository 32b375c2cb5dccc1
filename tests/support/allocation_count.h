// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace corvane {

/// The calling thread's calls of `new` and `delete` since its start. Requires allocation_count.cpp
/// in the program.
std::size_t allocationsOfThisThread();

}  // namespace corvane
