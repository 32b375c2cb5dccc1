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

}  // namespace

std::uint32_t frameAfter(std::uint32_t number, std::uint32_t count) {
  return (number + count - 1) % coded_signal::period + 1;
}

float coded_signal::sample(const CodedFrame& frame, std::uint32_t channel) {
  return static_cast<float>(frame.room << 20U | channel << 16U | frame.number) / fullScale;
}

void coded_signal::write(const std::filesystem::path& file, std::uint32_t room, std::uint32_t rate,
                         std::uint32_t channels, double seconds) {
  const auto frames = static_cast<std::size_t>(seconds * rate);
  std::vector<float> samples;
  samples.reserve(frames * channels);
  std::uint32_t frame = 1;
  for (std::size_t i = 0; i < frames; ++i, frame = frameAfter(frame)) {
    for (std::uint32_t c = 0; c < channels; ++c) {
      samples.push_back(sample({room, frame}, c));
    }
  }
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(samples.data()),
             static_cast<std::streamsize>(samples.size() * sizeof(float)));
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
  std::uint32_t frame = firstFrame();
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

std::uint32_t RecordedBuffer::firstFrame() const {
  return frameIn(channels.at(0).front()).number;
}

std::uint32_t RecordedBuffer::lastFrame() const {
  return frameIn(channels.at(0).back()).number;
}

}  // namespace corvane
