// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/audio_input.h"

namespace corvane {

/// Collects interleaved fragments of any length and passes the tap non-interleaved buffers of one
/// length. Allocates only in its constructor.
class BufferCollector {
 public:
  /// `frames` is the length of each buffer; `format` is the format of the fragments.
  BufferCollector(std::uint32_t frames, const AudioFormat& format, AudioInput::Tap tap);
  // A copy would point into the samples of the original.
  BufferCollector(BufferCollector&&) = default;
  BufferCollector& operator=(BufferCollector&&) = default;

  /// Appends `frames` frames, silence if `interleaved` is null, and calls the tap for each full
  /// buffer.
  void append(const float* interleaved, std::size_t frames);

  /// Drops the frames of an incomplete buffer. The next buffer is marked `afterGap`.
  void drop();

 private:
  void copy(const float* interleaved, std::size_t frames);

  AudioInput::Tap tap;
  std::size_t channelCount;
  std::size_t capacity;        ///< frames of a whole buffer
  std::vector<float> samples;  ///< one whole channel after the other
  std::vector<const float*> channels;
  AudioBuffer whole;       ///< the next buffer for the tap
  std::size_t filled = 0;  ///< frames
};

}  // namespace corvane
