#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "base/audio_buffer.h"

namespace corvane {

/// What one frame of the coded signal says.
struct CodedFrame {
  std::uint32_t room = 0;
  std::uint32_t number = 0;  ///< 1 to `coded_signal::period`; 0 in silence

  bool isSilence() const { return number == 0; }
};

/// A sound each of whose samples says which room it was played in, on which channel and as which
/// frame. Every code is a 24-bit integer, which a float holds exactly, so a recording of it that
/// was resampled, scaled, mixed or reordered cannot pass for the original.
namespace coded_signal {

constexpr std::uint32_t period = 65535;  ///< frames, after which the numbering starts again

/// What is played as `frame` on a channel.
float sample(const CodedFrame& frame, std::uint32_t channel);

/// Interleaved samples that last `seconds` or a little longer; `room` is 0 to 15.
void write(const std::filesystem::path& file, std::uint32_t room, std::uint32_t rate,
           std::uint32_t channels, double seconds);

}  // namespace coded_signal

/// A copy of a buffer that a tap was given.
struct RecordedBuffer {
  explicit RecordedBuffer(const AudioBuffer& buffer);

  /// The rooms that it holds sound of; none in silence.
  std::set<std::uint32_t> rooms() const;
  /// Whether any of its frames is silent.
  bool holdsSilence() const;
  /// Empty when the buffer is one stretch of the coded signal of `room`, whole and unchanged; else
  /// what is wrong with it.
  std::string faultAgainst(std::uint32_t room) const;
  /// All frames, as the first channel has them.
  std::vector<CodedFrame> codedFrames() const;

  double sampleRate;
  std::uint32_t frames;
  bool afterGap;
  std::vector<std::vector<float>> channels;
};

/// The number of the frame that comes `count` frames after the one with that number.
std::uint32_t frameAfter(std::uint32_t number, std::uint32_t count = 1);

/// Finds joints: places where sound follows sound that it does not continue.
///
/// The coded signal says of each sample which room, and so which microphone, it is from, and as
/// which frame it was played there. A stretch is what the tap got between two buffers that are
/// marked as coming after a gap; whoever looks at several buffers at once looks at one stretch. In
/// a stretch all sound must be of one format and one room, and each frame must follow the one
/// before it. Where there is silence between them, the player either went on meanwhile, unheard,
/// and has got further by as many frames, or waited, and goes on where it was.
class Joints {
 public:
  /// Takes the next buffer that the tap got; what is wrong with it, which is nothing mostly.
  std::string in(const RecordedBuffer& buffer);

 private:
  /// The last frame of the stretch that was no silence, and how much silence has come since.
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
