// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <limits>
#include <memory>
#include <mutex>

#include "pitch/pitch_capture.h"

namespace corvane::diagnose {

/// How much a detector received and how loud it was; nothing else about the sound.
struct Counts {
  int blocks = 0;
  int readings = 0;                                           ///< blocks in which it found a pitch
  double softest = std::numeric_limits<double>::infinity();   ///< rms in dBFS
  double loudest = -std::numeric_limits<double>::infinity();  ///< likewise
};

/// The program's detector, counting. `detect` on one thread, `counts` on any.
class CountedDetector {
 public:
  std::optional<PitchDetector::Reading> detect(std::span<const float> block, double rate);
  Counts counts() const;

 private:
  PitchCapture::Detect detector = PitchCapture::musicalPitchDetector();
  mutable std::mutex lock;
  Counts counted;  ///< under `lock`
};

}  // namespace corvane::diagnose
