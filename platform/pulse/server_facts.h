#pragma once

#include <pulse/channelmap.h>
#include <pulse/introspect.h>

#include <optional>
#include <string>

#include "platform/audio_input.h"

namespace corvane {

/// What the audio server tells; all zero about recording when there is no microphone.
struct ServerFacts {
  bool loudspeakers = false;  ///< there is something to play on
  /// The default source's own, at a multiple of its rate where that is too low to find a pitch in;
  /// zero when that is not known.
  AudioFormat device;
  pa_channel_map deviceOrder{};  ///< where each channel of `device` belongs
  AudioFormat server;            ///< the format that the server itself works in, likewise
};

bool operator==(const ServerFacts& a, const ServerFacts& b);

/// Puts the server's answers together to facts.
class ServerSurvey {
 public:
  explicit ServerSurvey(const pa_server_info& server);

  void add(const pa_source_info& source);
  ServerFacts facts() const;
  /// False while the server has microphones and none of its sources is the default.
  bool isConclusive() const;

 private:
  std::string defaultSource;
  bool microphone = false;
  bool defaultSeen = false;
  ServerFacts collected;
};

}  // namespace corvane
