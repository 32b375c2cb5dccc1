// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>

namespace corvane {

/// System resources of this process.
struct Held {
  std::ptrdiff_t descriptors;
  std::ptrdiff_t threads;

  bool operator==(const Held&) const = default;
};

inline void PrintTo(const Held& held, std::ostream* out) {
  *out << held.descriptors << " descriptors, " << held.threads << " threads";
}

inline Held heldByThisProcess() {
  using Iterator = std::filesystem::directory_iterator;
  const auto entries = [](const char* directory) {
    return std::distance(Iterator(directory), Iterator());
  };
  return {entries("/proc/self/fd"), entries("/proc/self/task")};
}

/// Resident memory in kB.
inline long memoryOfThisProcess() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    long kilobytes = 0;
    if (word == "VmRSS:" && status >> kilobytes) return kilobytes;
  }
  return -1;
}

}  // namespace corvane
