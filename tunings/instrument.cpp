// SPDX-License-Identifier: MIT
#include "tunings/instrument.h"

#include <cstddef>

namespace corvane {
namespace {

struct Names {
  std::string_view rawValue;
  std::string_view displayTitle;
};

constexpr std::array<Names, allInstruments.size()> names = {
    {{"guitar", "Guitar"}, {"bass", "Bass"}, {"piano", "Piano"}}};

}  // namespace

std::string_view rawValue(Instrument instrument) {
  return names[static_cast<std::size_t>(instrument)].rawValue;
}

std::string_view displayTitle(Instrument instrument) {
  return names[static_cast<std::size_t>(instrument)].displayTitle;
}

std::optional<Instrument> instrumentFromRawValue(std::string_view text) {
  for (const Instrument instrument : allInstruments) {
    if (rawValue(instrument) == text) return instrument;
  }
  return std::nullopt;
}

}  // namespace corvane
