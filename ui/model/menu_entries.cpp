// SPDX-License-Identifier: MIT
#include "ui/model/menu_entries.h"

#include <algorithm>
#include <string>

#include "pitch/pitch_math.h"
#include "tunings/tuning_library.h"
#include "ui/model/privacy_policy.h"

namespace corvane {

std::vector<TuningGroup> groupedTunings(Instrument instrument) {
  std::vector<TuningGroup> groups;
  for (const Tuning& tuning : TuningLibrary::tunings(instrument)) {
    auto group = std::ranges::find(groups, tuning.group, &TuningGroup::name);
    if (group == groups.end()) group = groups.insert(group, {tuning.group, {}});
    group->tunings.push_back(tuning);
  }
  return groups;
}

std::vector<MenuModel::Entry> tuningEntries(Instrument instrument, std::string_view chosenID) {
  std::vector<MenuModel::Entry> entries;
  for (const TuningGroup& group : groupedTunings(instrument)) {
    for (const Tuning& tuning : group.tunings) {
      entries.push_back({QString::fromStdString(group.name), QString::fromStdString(tuning.name),
                         QString::fromStdString(tuning.id), tuning.id == chosenID});
    }
  }
  return entries;
}

std::vector<MenuModel::Entry> concertPitchEntries() {
  std::vector<MenuModel::Entry> entries;
  for (const PitchMath::ConcertPitch& pitch : PitchMath::concertPitches) {
    entries.push_back(
        {pitch.hertz < 440 ? QStringLiteral("Older pitches") : QStringLiteral("Modern"),
         QString::fromStdString(pitch.title()), QString::number(pitch.hertz), false});
  }
  return entries;
}

std::vector<MenuModel::Entry> helpEntries() {
  return {{QString(), PrivacyPolicy::title(), QString(), false}};
}

}  // namespace corvane
