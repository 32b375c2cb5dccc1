// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "tests/support/audio_server.h"

namespace corvane {

/// Records with another program what loudspeakers play, from before the first sound.
class MonitorRecording {
 public:
  /// `rate` and `channels` are the loudspeakers' own, so that nothing is resampled or mixed.
  /// Returns once it is recording.
  MonitorRecording(const support::AudioServer& server, const std::string& loudspeakers,
                   std::uint32_t rate, std::uint32_t channels = 1);

  /// Frames so far; the server has played at least as many.
  std::size_t size() const;
  /// The first channel so far.
  std::vector<float> samples() const;
  /// True if there is sound louder than `level` at or after `frame`.
  bool soundsSince(std::size_t frame, float level = 0.0F) const;
  /// The silence at the end, in frames.
  std::size_t silence() const;

 private:
  std::filesystem::path file;
  std::uint32_t channels;
  support::ChildProcess recorder;
};

/// The first frame of sound; the size if there is none.
std::size_t firstSound(std::span<const float> samples);
/// The frame after the last sound; 0 if there is none.
std::size_t endOfSound(std::span<const float> samples);

}  // namespace corvane
