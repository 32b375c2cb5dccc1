// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <vector>

namespace corvane::fuzz {

/// A simple model of the capture pipeline.
struct CaptureModel {
  struct Block {
    std::vector<float> samples;
    double rate;
  };

  /// One vector per channel, all of the same length.
  void consume(const std::vector<std::vector<float>>& channels, double rate);
  void reset();

  std::vector<float> stash;
  std::optional<Block> pending;
  bool draining = false;
};

/// Same bits, or both NaN: which NaN a sum returns is unspecified.
bool sameSound(std::span<const float> a, std::span<const float> b);

}  // namespace corvane::fuzz
