#pragma once

#include <sndfile.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/audio_input.h"

namespace corvane::replay {

/// A sound file, read from its start to its end.
class Recording {
 public:
  /// Throws Failure when there is no such file, or it is a pipe, empty, no sound, or cut short.
  explicit Recording(const std::string& path);

  AudioFormat format() const;

  /// The next frames, up to `frames` of them, one vector a channel; empty vectors at the end.
  /// Throws Failure when the file ends before it should.
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
