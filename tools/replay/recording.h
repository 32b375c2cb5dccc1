// SPDX-License-Identifier: MIT
#pragma once

#include <sndfile.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/audio_input.h"

namespace corvane::replay {

/// A sound file, read sequentially.
class Recording {
 public:
  /// Throws Failure if there is no such file, or it is a pipe, empty, not sound, or truncated.
  explicit Recording(const std::string& path);

  AudioFormat format() const;

  /// The next frames, up to `frames`, one vector per channel; empty vectors at the end. Throws
  /// Failure if the file is truncated.
  std::vector<std::vector<float>> read(std::uint32_t frames);

 private:
  struct Close {
    void operator()(SNDFILE* opened) const { sf_close(opened); }
  };

  std::string path;
  SF_INFO info{};
  std::unique_ptr<SNDFILE, Close> file;
  sf_count_t framesRead = 0;
};

}  // namespace corvane::replay
