#pragma once

#include <string_view>
#include <vector>

#include "tunings/instrument.h"
#include "ui/model/menu_model.h"

namespace corvane {

/// The tunings of the instrument in the sections of its groups; the value is the tuning's id.
std::vector<MenuModel::Entry> tuningEntries(Instrument instrument, std::string_view chosenID);

/// The concert pitches, those below 440 Hz first; the value is the number of hertz.
std::vector<MenuModel::Entry> concertPitchEntries();

/// The privacy policy, alone.
std::vector<MenuModel::Entry> helpEntries();

}  // namespace corvane
