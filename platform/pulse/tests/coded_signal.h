// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "base/audio_buffer.h"

namespace corvane {

/// One frame of the coded signal.
struct CodedFrame {
  std::uint32_t room = 0;
  std::uint32_t number = 0;  ///< 1 to `coded_signal::period`; 0 in silence

  bool isSilence() const { return number == 0; }
};

/// Each sample of this sound encodes the room it was played in, its channel and its frame number,
/// as a 24-bit integer, which a float holds exactly. A recording that was resampled, scaled, mixed
/// or reordered differs from the original.
namespace coded_signal {

constexpr std::uint32_t period = 65535;  ///< frames, then the numbering restarts

/// The sample of `frame` on a channel.
float sample(const CodedFrame& frame, std::uint32_t channel);

/// Writes interleaved samples of `seconds` or a little more; `room` is 0 to 15.
void write(const std::filesystem::path& file, std::uint32_t room, std::uint32_t rate,
           std::uint32_t channels, double seconds);

}  // namespace coded_signal

/// A copy of a buffer that a tap got.
struct RecordedBuffer {
  explicit RecordedBuffer(const AudioBuffer& buffer);

  /// The rooms whose sound it contains; none in silence.
  std::set<std::uint32_t> rooms() const;
  /// Whether any frame is silent.
  bool holdsSilence() const;
  /// Describes the first difference from a continuous part of the coded signal of `room`; empty if
  /// there is none.
  std::string faultAgainst(std::uint32_t room) const;
  /// All frames, decoded from the first channel.
  std::vector<CodedFrame> codedFrames() const;

  double sampleRate;
  std::uint32_t frames;
  bool afterGap;
  std::vector<std::vector<float>> channels;
};

/// The number of the frame `count` frames after frame `number`.
std::uint32_t frameAfter(std::uint32_t number, std::uint32_t count = 1);

/// Finds joints: places where a sample does not continue the sound before it.
///
/// A stretch is what the tap gets between two buffers marked `afterGap`; the detector analyses
/// buffers of one stretch together. Within a stretch all sound must have one format and one room,
/// that is one microphone, and each frame must follow the previous one. After silence the player
/// either has advanced by as many frames or continues where it stopped.
class Joints {
 public:
  /// Checks the next buffer of the tap; describes a joint, or is empty.
  std::string in(const RecordedBuffer& buffer);

 private:
  /// The last frame of the stretch that was not silent, and the frames of silence since.
  struct Heard {
    CodedFrame frame;
    std::uint32_t silence = 0;
  };

  std::string formatFault(const RecordedBuffer& buffer) const;
  std::string fault(const CodedFrame& frame) const;
  void take(const CodedFrame& frame);

  bool begun = false;
  double sampleRate = 0.0;
  std::size_t channels = 0;
  std::size_t position = 0;  ///< in the stretch
  Heard heard;
};

}  // namespace corvane
