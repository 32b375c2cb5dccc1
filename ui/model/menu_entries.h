// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tunings/instrument.h"
#include "tunings/tuning.h"
#include "ui/model/menu_model.h"

namespace corvane {

/// One section of the tuning menu.
struct TuningGroup {
  std::string name;
  std::vector<Tuning> tunings;
};

/// The instrument's tunings by group: groups in order of first occurrence, tunings in library
/// order.
std::vector<TuningGroup> groupedTunings(Instrument instrument);

/// The instrument's tunings, one section per group; the value is the tuning's id.
std::vector<MenuModel::Entry> tuningEntries(Instrument instrument, std::string_view chosenID);

/// The concert pitches, those below 440 Hz first; the value is the number of hertz.
std::vector<MenuModel::Entry> concertPitchEntries();

/// The privacy policy, alone.
std::vector<MenuModel::Entry> helpEntries();

}  // namespace corvane
