#pragma once

#include <istream>

namespace corvane::replay {

/// True when `file` is a RIFF or RF64 file of WAVE form whose chunks promise more bytes than it
/// holds. The audio library reads such a file without complaint, as far as it goes. A length that a
/// recorder left open (0 or all ones, as when it wrote to a pipe) promises nothing.
bool isCutShort(std::istream& file);

}  // namespace corvane::replay
