#pragma once

#include <string>
#include <vector>

#include "tests/support/signals.h"

namespace corvane {

/// Blocks of 8192 samples that are analysed one after the other.
struct Sounds {
  std::string name;
  std::vector<signals::Samples> blocks;
};

/// In which no lag is below the threshold, so that all of them are needed.
Sounds worstCase();

/// Every string of the six-string guitar and of the five-string bass in standard tuning (E A D G B
/// E and B E A D G), plucked, and heard from the attack on: 0, 0.1, 0.25, 0.5, 1, 2 and 3 s after
/// it.
Sounds guitar(double rate);
Sounds bass(double rate);

}  // namespace corvane
