// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>

#include "tools/replay/options.h"

namespace corvane::replay {

/// Runs the recording through the tuner's pipeline and engine without dropping blocks, and prints a
/// header and a line for each block. Throws Failure.
void replay(const Options& options, std::ostream& out);

}  // namespace corvane::replay
