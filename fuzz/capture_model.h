#pragma once

#include <optional>
#include <span>
#include <vector>

namespace corvane::fuzz {

/// The capture pipeline once more, as plainly as it can be written.
struct CaptureModel {
  struct Block {
    std::vector<float> samples;
    double rate;
  };

  /// One vector a channel, all of the same length.
  void consume(const std::vector<std::vector<float>>& channels, double rate);
  void reset();

  std::vector<float> stash;
  std::optional<Block> pending;
  bool draining = false;
};

/// Sample by sample the same bits, or both not a number: which of two a sum hands on is open.
bool sameSound(std::span<const float> a, std::span<const float> b);

}  // namespace corvane::fuzz
