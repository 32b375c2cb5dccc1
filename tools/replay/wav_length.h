// SPDX-License-Identifier: MIT
#pragma once

#include <istream>

namespace corvane::replay {

/// True if `file` is a RIFF or RF64 file of WAVE form whose chunks declare more bytes than it has.
/// libsndfile reads such a file without an error. A length that a recorder left open (0 or all
/// ones, as when writing to a pipe) declares nothing.
bool isTruncated(std::istream& file);

}  // namespace corvane::replay
