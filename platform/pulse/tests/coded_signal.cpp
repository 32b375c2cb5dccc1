// SPDX-License-Identifier: MIT
#include "platform/pulse/tests/coded_signal.h"

#include <algorithm>
#include <fstream>

namespace corvane {
namespace {

constexpr float fullScale = 16777216.0F;

CodedFrame frameIn(float sample) {
  const auto code = static_cast<std::uint32_t>(sample * fullScale);
  return {code >> 20U, code & 0xFFFFU};
}

std::string text(const CodedFrame& frame) {
  return "frame " + std::to_string(frame.number) + " of room " + std::to_string(frame.room);
}

}  // namespace

std::uint32_t frameAfter(std::uint32_t number, std::uint32_t count) {
  return (number + count - 1) % coded_signal::period + 1;
}

float coded_signal::sample(const CodedFrame& frame, std::uint32_t channel) {
  return static_cast<float>(frame.room << 20U | channel << 16U | frame.number) / fullScale;
}

void coded_signal::write(const std::filesystem::path& file, std::uint32_t room, std::uint32_t rate,
                         std::uint32_t channels, double seconds) {
  std::vector<float> samples;
  for (std::uint32_t frame = 1; frame <= period; ++frame) {
    for (std::uint32_t c = 0; c < channels; ++c) samples.push_back(sample({room, frame}, c));
  }
  std::ofstream out(file, std::ios::binary);
  for (double written = 0.0; written < seconds * rate; written += period) {
    out.write(reinterpret_cast<const char*>(samples.data()),
              static_cast<std::streamsize>(samples.size() * sizeof(float)));
  }
}

RecordedBuffer::RecordedBuffer(const AudioBuffer& buffer)
    : sampleRate(buffer.sampleRate), frames(buffer.frameLength), afterGap(buffer.afterGap) {
  for (std::uint32_t c = 0; c < buffer.channelCount; ++c) {
    channels.emplace_back(buffer.channels[c], buffer.channels[c] + frames);
  }
}

std::set<std::uint32_t> RecordedBuffer::rooms() const {
  std::set<std::uint32_t> found;
  for (const float sample : channels.at(0)) {
    if (sample != 0.0F) found.insert(frameIn(sample).room);
  }
  return found;
}

bool RecordedBuffer::holdsSilence() const {
  return std::any_of(channels.at(0).begin(), channels.at(0).end(),
                     [](float sample) { return frameIn(sample).isSilence(); });
}

std::string RecordedBuffer::faultAgainst(std::uint32_t room) const {
  std::uint32_t frame = frameIn(channels.at(0).front()).number;
  for (std::size_t i = 0; i < frames; ++i, frame = frameAfter(frame)) {
    for (std::uint32_t c = 0; c < channels.size(); ++c) {
      const float played = coded_signal::sample({room, frame}, c);
      if (channels[c][i] == played) continue;
      return "frame " + std::to_string(i) + " of channel " + std::to_string(c) + " is " +
             std::to_string(channels[c][i] * fullScale) + " instead of " +
             std::to_string(played * fullScale);
    }
  }
  return {};
}

std::vector<CodedFrame> RecordedBuffer::codedFrames() const {
  std::vector<CodedFrame> found;
  for (const float sample : channels.at(0)) found.push_back(frameIn(sample));
  return found;
}

std::string Joints::in(const RecordedBuffer& buffer) {
  if (buffer.afterGap) *this = {};
  std::string found = formatFault(buffer);
  begun = true;
  sampleRate = buffer.sampleRate;
  channels = buffer.channels.size();
  for (const CodedFrame& frame : buffer.codedFrames()) {
    if (found.empty()) found = fault(frame);
    take(frame);
  }
  return found;
}

std::string Joints::formatFault(const RecordedBuffer& buffer) const {
  if (!begun || (buffer.sampleRate == sampleRate && buffer.channels.size() == channels)) return {};
  return "one format follows another";
}

std::string Joints::fault(const CodedFrame& frame) const {
  const CodedFrame& last = heard.frame;
  if (frame.isSilence() || last.isSilence()) return {};
  const bool waited = frame.number == frameAfter(last.number);
  const bool wentOn = frame.number == frameAfter(last.number, heard.silence + 1);
  if (frame.room == last.room && (waited || wentOn)) return {};
  return text(frame) + " follows " + text(last) + " after " + std::to_string(heard.silence) +
         " of silence, " + std::to_string(position) + " frames into the stretch";
}

void Joints::take(const CodedFrame& frame) {
  ++position;
  if (!frame.isSilence()) {
    heard = {frame};
  } else {
    ++heard.silence;
  }
}

}  // namespace corvane
