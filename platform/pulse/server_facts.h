// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/channelmap.h>
#include <pulse/introspect.h>

#include <optional>
#include <string>

#include "platform/audio_input.h"

namespace corvane {

/// Reported by the audio server. Everything about recording is zero without a microphone.
struct ServerFacts {
  bool loudspeakers = false;  ///< there is a default sink
  /// Of the default source, at a multiple of its rate if that is too low to detect a pitch; zero if
  /// unknown.
  AudioFormat device;
  pa_channel_map deviceOrder{};  ///< the position of each channel of `device`
  AudioFormat server;            ///< the server's default format, likewise
};

bool operator==(const ServerFacts& a, const ServerFacts& b);

/// Combines the server's answers into facts.
class ServerSurvey {
 public:
  explicit ServerSurvey(const pa_server_info& server);

  void add(const pa_source_info& source);
  ServerFacts facts() const;
  /// False if the server has microphones but no default source.
  bool isConclusive() const;

 private:
  std::string defaultSource;
  bool microphone = false;
  bool defaultSeen = false;
  ServerFacts collected;
};

}  // namespace corvane
