// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace corvane {

/// Additions and multiplications of doubles per pass.
constexpr std::size_t operationsOfAPass = 192;

/// Equal numbers of additions and multiplications in AVX-512 registers, which keep every arithmetic
/// unit busy without memory access or dependencies. Requires AVX-512.
void addAndMultiply(std::size_t passes);

}  // namespace corvane
