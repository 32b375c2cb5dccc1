#pragma once

#include <cstddef>

namespace corvane {

/// How often the calling thread has allocated memory with `new`, or given some back with `delete`,
/// since it began. Only in a program that is built with allocation_count.cpp.
std::size_t allocationsOfThisThread();

}  // namespace corvane
