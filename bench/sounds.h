// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tests/support/signals.h"

namespace corvane {

/// Blocks of 8192 samples, analysed in turn.
struct Sounds {
  std::string name;
  std::vector<signals::Samples> blocks;
};

/// No lag is below the threshold, so all are computed.
Sounds worstCase();

/// Plucked strings of the guitar (E A D G B E) or the five-string bass (B E A D G), 0, 0.1, 0.25,
/// 0.5, 1, 2 and 3 s after the attack.
Sounds guitar(double rate);
Sounds bass(double rate);

}  // namespace corvane
