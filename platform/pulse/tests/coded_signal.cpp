#include "platform/pulse/tests/coded_signal.h"

#include <fstream>

namespace corvane {
namespace {

constexpr float fullScale = 16777216.0F;

std::uint32_t codeOf(std::uint32_t room, std::uint32_t channel, std::uint32_t frame) {
  return room << 20U | channel << 16U | frame;
}

std::uint32_t frameIn(float sample) {
  return static_cast<std::uint32_t>(sample * fullScale) & 0xFFFFU;
}

}  // namespace

std::uint32_t frameAfter(std::uint32_t frame) {
  return frame % coded_signal::period + 1;
}

void coded_signal::write(const std::filesystem::path& file, std::uint32_t room, std::uint32_t rate,
                         std::uint32_t channels, double seconds) {
  const auto frames = static_cast<std::size_t>(seconds * rate);
  std::vector<float> samples;
  samples.reserve(frames * channels);
  std::uint32_t frame = 1;
  for (std::size_t i = 0; i < frames; ++i, frame = frameAfter(frame)) {
    for (std::uint32_t c = 0; c < channels; ++c) {
      samples.push_back(static_cast<float>(codeOf(room, c, frame)) / fullScale);
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
    if (sample != 0.0F) found.insert(static_cast<std::uint32_t>(sample * fullScale) >> 20U);
  }
  return found;
}

std::string RecordedBuffer::faultAgainst(std::uint32_t room) const {
  std::uint32_t frame = firstFrame();
  for (std::size_t i = 0; i < frames; ++i, frame = frameAfter(frame)) {
    for (std::uint32_t c = 0; c < channels.size(); ++c) {
      const float played = static_cast<float>(codeOf(room, c, frame)) / fullScale;
      if (channels[c][i] == played) continue;
      return "frame " + std::to_string(i) + " of channel " + std::to_string(c) + " is " +
             std::to_string(channels[c][i] * fullScale) + " instead of " +
             std::to_string(played * fullScale);
    }
  }
  return {};
}

std::vector<std::uint32_t> RecordedBuffer::frameNumbers() const {
  std::vector<std::uint32_t> numbers;
  for (const float sample : channels.at(0)) numbers.push_back(frameIn(sample));
  return numbers;
}

std::uint32_t RecordedBuffer::firstFrame() const {
  return frameIn(channels.at(0).front());
}

std::uint32_t RecordedBuffer::lastFrame() const {
  return frameIn(channels.at(0).back());
}

}  // namespace corvane
