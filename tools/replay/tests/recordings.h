// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sndfile.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/signals.h"

namespace corvane::replay {

using Channels = std::vector<signals::Samples>;

/// A temporary directory of recordings.
class Recordings {
 public:
  Recordings() {
    std::string name = testing::TempDir() + "corvane-replay-XXXXXX";
    folder = ::mkdtemp(name.data());
  }
  ~Recordings() { std::filesystem::remove_all(folder); }
  Recordings(const Recordings&) = delete;

  std::string path(const std::string& name) const { return (folder / name).string(); }

  /// Writes 32-bit float samples, or those of `format`.
  std::string write(const std::string& name, int rate, const Channels& channels,
                    int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT) const {
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = static_cast<int>(channels.size());
    info.format = format;
    SNDFILE* file = sf_open(path(name).c_str(), SFM_WRITE, &info);
    EXPECT_NE(file, nullptr) << sf_strerror(nullptr);
    std::vector<float> interleaved;
    for (std::size_t i = 0; i < channels.front().size(); ++i) {
      for (const auto& channel : channels) interleaved.push_back(channel[i]);
    }
    const auto frames = static_cast<sf_count_t>(channels.front().size());
    EXPECT_EQ(sf_writef_float(file, interleaved.data(), frames), frames);
    sf_close(file);
    return path(name);
  }

  std::string writeBytes(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
    return path(name);
  }

  static std::string bytes(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

 private:
  std::filesystem::path folder;
};

}  // namespace corvane::replay
