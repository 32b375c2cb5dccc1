// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>
#include <source_location>

namespace corvane {

/// Stops the program with one line on standard error unless `holds`. For the program's own
/// invariants, never for input. Any thread.
inline void require(bool holds, const char* invariant,
                    std::source_location where = std::source_location::current()) noexcept {
  if (holds) return;
  std::fprintf(stderr, "%s:%u: broken invariant: %s\n", where.file_name(),
               static_cast<unsigned>(where.line()), invariant);
  std::abort();
}

}  // namespace corvane
