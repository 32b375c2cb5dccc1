#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/audio_input.h"

namespace corvane {

/// Collects interleaved fragments of any length and hands the tap non-interleaved buffers of one
/// length. Allocates when it is made, never while it collects.
class BufferCollector {
 public:
  /// `frames` is the length of every buffer that `tap` gets; `format` is that of the fragments.
  BufferCollector(std::uint32_t frames, const AudioFormat& format, AudioInput::Tap tap);
  // A copy would point into the samples of its original.
  BufferCollector(BufferCollector&&) = default;
  BufferCollector& operator=(BufferCollector&&) = default;

  /// Appends `frames` frames, which are silence when `interleaved` is null, and calls the tap for
  /// each buffer that they fill.
  void append(const float* interleaved, std::size_t frames);

  /// Forgets the frames that do not fill a buffer yet; what comes next does not follow them.
  void drop();

 private:
  void copy(const float* interleaved, std::size_t frames);

  AudioInput::Tap tap;
  std::size_t channelCount;
  std::size_t capacity;        ///< frames of a whole buffer
  std::vector<float> samples;  ///< one whole channel after the other
  std::vector<const float*> channels;
  AudioBuffer whole;       ///< as the tap gets it next
  std::size_t filled = 0;  ///< frames
};

}  // namespace corvane
