#pragma once

#include <gmock/gmock.h>

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/pulse/pulse_audio_output.h"
#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {

/// Keeps which buffers' ends have been told, in order, and on which thread.
class Ends {
 public:
  struct End {
    int buffer;
    std::string thread;

    bool operator==(const End&) const = default;
  };

  AudioOutput::Ended of(int buffer);
  std::vector<End> told() const;

 private:
  mutable std::mutex lock;
  std::vector<End> all;
};

void PrintTo(const Ends::End& end, std::ostream* out);

/// A client with loudspeakers, which are those of the microphone's room.
class OutputTest : public PulseTest {
 protected:
  static constexpr const char* loudspeakers = "mic-room";

  /// Adds the loudspeakers and starts the output.
  void startOutput(std::uint32_t rate = 44100, std::uint32_t channels = 1);
  void addLoudspeakers(std::uint32_t rate = 44100, std::uint32_t channels = 1);
  /// Asks again until it starts.
  bool startsInTime();
  bool start();
  void press(int buffer, std::vector<float> samples);
  /// True once this program's sound is at the server.
  bool serverPlays() const;

  /// Waits for the ends of buffers 1 to `count`, ends the program's audio, after which nothing can
  /// be told any more, and fails unless each end was told once, in order, on the loop's thread.
  void expectEnds(int count, std::chrono::seconds limit);
  bool waitForEnds(std::size_t count, std::chrono::seconds limit);
  void endProgram();

  Ends ends;
  std::optional<PulseAudioOutput> output{*client.connection};
};

}  // namespace corvane
