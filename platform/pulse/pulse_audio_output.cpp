// SPDX-License-Identifier: MIT
#include "platform/pulse/pulse_audio_output.h"

#include <utility>

#include "base/require.h"

namespace corvane {

PulseAudioOutput::PulseAudioOutput(PulseConnection& server) : connection(server) {}

PulseAudioOutput::~PulseAudioOutput() {
  cutOff();
}

bool PulseAudioOutput::isRunning() const {
  return sampleRate > 0.0 && connection.facts().loudspeakers;
}

bool PulseAudioOutput::start(const AudioFormat& format) {
  cutOff();
  if (connection.state() != PulseConnection::State::connected) {
    connection.connect([](PulseConnection::State) {});
  }
  sampleRate = connection.facts().loudspeakers ? format.sampleRate : 0.0;
  return isRunning();
}

void PulseAudioOutput::play(std::vector<float> samples, Ended ended) {
  require(sampleRate > 0.0, "play is called after start");
  cutOff();
  sounding = std::make_shared<PlayStream>(sampleRate, std::move(samples), std::move(ended));
  connection.async([stream = sounding](PulseSession* server) { stream->open(server); });
}

void PulseAudioOutput::cutOff() {
  const auto last = std::exchange(sounding, nullptr);
  if (last == nullptr) return;
  connection.async([last](PulseSession*) { last->cutOff(); });
}

}  // namespace corvane
