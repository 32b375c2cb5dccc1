// SPDX-License-Identifier: MIT
#include "tunings/tuning_library.h"

#include "base/require.h"

namespace corvane::TuningLibrary {

const std::vector<Tuning>& tunings(Instrument instrument) {
  switch (instrument) {
    case Instrument::guitar:
      return guitar();
    case Instrument::bass:
      return bass();
    case Instrument::piano:
      return piano();
  }
  require(false, "the instrument is valid");
  return guitar();
}

const Tuning* find(Instrument instrument, std::string_view id) {
  for (const Tuning& tuning : tunings(instrument)) {
    if (tuning.id == id) return &tuning;
  }
  return nullptr;
}

const Tuning& resolve(Instrument instrument, std::string_view id) {
  const Tuning* found = find(instrument, id);
  if (found != nullptr) return *found;
  require(!tunings(instrument).empty(), "the instrument has a tuning");
  return tunings(instrument).front();
}

}  // namespace corvane::TuningLibrary
