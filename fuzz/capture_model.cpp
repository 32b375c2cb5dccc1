// SPDX-License-Identifier: MIT
#include "fuzz/capture_model.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace corvane::fuzz {
namespace {

constexpr std::ptrdiff_t block = 8192;
constexpr std::ptrdiff_t hop = 4096;

float mixed(const std::vector<std::vector<float>>& channels, std::size_t i) {
  float sum = 0.0F;
  for (const auto& channel : channels) sum = sum + channel[i];
  if (channels.size() == 1) return sum;
  const float share = 1.0F / static_cast<float>(channels.size());
  return sum * share;
}

bool sameSample(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b) ||
         (std::isnan(a) && std::isnan(b));
}

}  // namespace

void CaptureModel::consume(const std::vector<std::vector<float>>& channels, double rate) {
  for (std::size_t i = 0; i < channels.front().size(); ++i) stash.push_back(mixed(channels, i));
  while (stash.size() >= static_cast<std::size_t>(block)) {
    pending = Block{{stash.begin(), stash.begin() + block}, rate};
    draining = true;
    stash.erase(stash.begin(), stash.begin() + hop);
  }
}

void CaptureModel::reset() {
  stash.clear();
  pending.reset();
}

bool sameSound(std::span<const float> a, std::span<const float> b) {
  return std::ranges::equal(a, b, sameSample);
}

}  // namespace corvane::fuzz
