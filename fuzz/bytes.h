// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

namespace corvane::fuzz {

/// Reads values from the front of a fuzzer's input; zeros after its end. One byte affects one
/// choice, and seeds can be written by hand.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : left(data, size) {}

  bool empty() const { return left.empty(); }
  std::span<const std::uint8_t> rest() const { return left; }

  /// Any value of an integer or floating-point type, from its bytes in memory order.
  template <class Number>
  Number take() {
    std::array<std::uint8_t, sizeof(Number)> bytes{};
    const std::size_t count = std::min(bytes.size(), left.size());
    std::copy_n(left.begin(), count, bytes.begin());
    left = left.subspan(count);
    Number number;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
  }

  bool flag() { return (take<std::uint8_t>() & 1U) != 0; }

  /// 0 to `count` - 1.
  std::size_t below(std::size_t count) {
    return count <= 256 ? take<std::uint8_t>() % count : take<std::uint16_t>() % count;
  }

  /// One of the usual values, or any value.
  double usualOrAny(std::span<const double> usual) {
    const std::size_t choice = below(usual.size() + 1);
    return choice < usual.size() ? usual[choice] : take<double>();
  }

  /// A text of up to `most` bytes.
  std::string text(std::size_t most) {
    const std::size_t count = std::min(below(most + 1), left.size());
    std::string taken(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(count));
    left = left.subspan(count);
    return taken;
  }

 private:
  std::span<const std::uint8_t> left;
};

}  // namespace corvane::fuzz
