#pragma once

#include <ostream>

#include "tools/replay/options.h"

namespace corvane::replay {

/// Sends the recording through the tuner's own pipeline and engine, every block in order and none
/// dropped, and prints a header line and a line for each block. Throws Failure.
void replay(const Options& options, std::ostream& out);

}  // namespace corvane::replay
