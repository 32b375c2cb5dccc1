// SPDX-License-Identifier: MIT
#include "tools/replay/recording.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "tools/replay/failure.h"
#include "tools/replay/wav_length.h"

namespace corvane::replay {
namespace {

void expectWholeFile(const std::string& path) {
  std::error_code unknown;
  const auto what = std::filesystem::status(path, unknown);
  if (std::filesystem::is_directory(what)) throw Failure(path + ": is a directory");
  // Opening a pipe would wait for a writer.
  if (std::filesystem::is_other(what)) throw Failure(path + ": is a pipe or a device");
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw Failure(path + ": " + std::strerror(errno));
  if (stream.peek() == std::ifstream::traits_type::eof()) throw Failure(path + ": is empty");
  if (isTruncated(stream)) throw Failure(path + ": is truncated");
}

}  // namespace

Recording::Recording(const std::string& filePath) : path(filePath) {
  expectWholeFile(path);
  file.reset(sf_open(path.c_str(), SFM_READ, &info));
  if (!file) throw Failure(path + ": is not a sound file (" + sf_strerror(nullptr) + ")");
  if (info.frames == 0) throw Failure(path + ": has no samples");
}

AudioFormat Recording::format() const {
  return {static_cast<double>(info.samplerate), static_cast<std::uint32_t>(info.channels)};
}

std::vector<std::vector<float>> Recording::read(std::uint32_t frames) {
  const auto channelCount = static_cast<std::size_t>(info.channels);
  std::vector<float> interleaved(frames * channelCount);
  const sf_count_t count = sf_readf_float(file.get(), interleaved.data(), frames);
  framesRead += count;
  if (count == 0 && framesRead < info.frames) throw Failure(path + ": is truncated");

  std::vector<std::vector<float>> channels(channelCount,
                                           std::vector<float>(static_cast<std::size_t>(count)));
  for (std::size_t c = 0; c < channelCount; ++c) {
    for (std::size_t i = 0; i < channels[c].size(); ++i) {
      channels[c][i] = interleaved[i * channelCount + c];
    }
  }
  return channels;
}

}  // namespace corvane::replay
