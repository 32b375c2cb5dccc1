#pragma once

#include <optional>

namespace corvane {

/// What the program's arguments ask for, before there is a display: the exit status of a program
/// that has answered them, nothing when the tuner is to be shown. `--help` and `--version` are
/// answered on standard output; any other argument gets one line on standard error and status 2.
std::optional<int> answerCommandLine(int argc, char** argv);

}  // namespace corvane
