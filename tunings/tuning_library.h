// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "tunings/instrument.h"
#include "tunings/tuning.h"

namespace corvane {

/// All tunings, one table per instrument. A table is built on first use and is then constant; it is
/// never empty, and its first row is the instrument's default. Any thread.
namespace TuningLibrary {

const std::vector<Tuning>& guitar();
const std::vector<Tuning>& bass();
const std::vector<Tuning>& piano();

/// The table of this instrument.
const std::vector<Tuning>& tunings(Instrument instrument);

/// The row of this instrument's table with exactly this id, or null.
const Tuning* find(Instrument instrument, std::string_view id);

/// As `find`, or the instrument's default, also for an id of another instrument.
const Tuning& resolve(Instrument instrument, std::string_view id);

}  // namespace TuningLibrary
}  // namespace corvane
