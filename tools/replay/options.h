// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "tunings/instrument.h"

namespace corvane::replay {

struct Options {
  bool help = false;
  std::string file;
  Instrument instrument = Instrument::guitar;
  std::optional<std::string> tuning;   ///< an id of the instrument's table
  double a4 = 440.0;                   ///< Hz, 377 to 560
  std::optional<std::int64_t> string;  ///< a position in the tuning
};

extern const char* const usage;

/// Throws UsageError for unknown options and invalid values.
Options parseOptions(std::span<const char* const> arguments);

}  // namespace corvane::replay
