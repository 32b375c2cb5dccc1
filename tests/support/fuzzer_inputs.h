// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace corvane {

/// Runs the program's fuzzer on `count` pseudo-random inputs of `size` bytes, the same in every
/// run. The fuzzer stops the program on a finding.
inline void runFuzzer(int count, std::size_t size) {
  std::mt19937 random(1);
  for (int number = 0; number < count; ++number) {
    SCOPED_TRACE(number);
    std::vector<std::uint8_t> input(size);
    std::ranges::generate(input, [&] { return static_cast<std::uint8_t>(random()); });
    EXPECT_EQ(LLVMFuzzerTestOneInput(input.data(), input.size()), 0);
  }
}

}  // namespace corvane
