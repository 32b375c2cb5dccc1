// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>

namespace corvane::diagnose {

/// Prints one line for each fact that a maintainer needs. Requires an application object. Takes
/// five seconds, longer if the audio server does not answer.
void report(std::ostream& out);

}  // namespace corvane::diagnose
