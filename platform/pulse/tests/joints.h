#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/pulse/tests/coded_signal.h"

namespace corvane {

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
