#pragma once

#include <string_view>
#include <vector>

#include "tunings/instrument.h"
#include "tunings/tuning.h"

namespace corvane {

/// Every tuning on offer, one table an instrument. A table is built on its first use and never
/// changes afterwards; none is empty, and its first row is the instrument's default. Any thread.
namespace TuningLibrary {

const std::vector<Tuning>& guitar();
const std::vector<Tuning>& bass();
const std::vector<Tuning>& piano();

/// The table of this instrument.
const std::vector<Tuning>& tunings(Instrument instrument);

/// The row of this instrument's table with exactly this id, or null.
const Tuning* find(Instrument instrument, std::string_view id);

/// As `find`, or the instrument's default: an id of another instrument gives the default too.
const Tuning& resolve(Instrument instrument, std::string_view id);

}  // namespace TuningLibrary
}  // namespace corvane
