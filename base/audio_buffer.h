// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace corvane {

/// A view of one buffer of recorded sound, non-interleaved. The samples belong to the caller and
/// are valid only during the call that passes the view.
struct AudioBuffer {
  /// `channelCount` pointers to `frameLength` samples each, full scale 1.0; null when the buffer
  /// holds no float samples.
  const float* const* channels = nullptr;
  std::uint32_t frameLength = 0;
  std::uint32_t channelCount = 0;
  double sampleRate = 0.0;  ///< Hz
  bool afterGap = false;  ///< its first sample does not follow the last one of the previous buffer
};

}  // namespace corvane
