// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace corvane {

/// Handles the arguments, before the display is opened. Returns the exit status if they were
/// answered, nothing if the tuner is to be shown. `--help` and `--version` print to standard
/// output; any other argument gets one line on standard error and status 2.
std::optional<int> answerCommandLine(int argc, char** argv);

}  // namespace corvane
