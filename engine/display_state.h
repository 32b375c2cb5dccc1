// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tunings/instrument.h"

namespace corvane {

/// Everything that the engine publishes, as one value.
struct DisplayState {
  // The user's selection.
  Instrument instrument = Instrument::guitar;
  std::string tuningID;
  double a4 = 440.0;  ///< Hz, 377 to 560
  bool leftHanded = false;
  /// The string, as a position in the current tuning, that the user has pinned.
  std::optional<std::int64_t> lockedStringIndex;

  // What is heard.
  bool listening = false;
  bool micAllowed = false;
  bool heard = false;      ///< the last reading was accepted
  bool inTune = false;     ///< within 5 cents of the target
  double cents = 0.0;      ///< deviation from the target, negative is flat; held in silence
  double frequency = 0.0;  ///< Hz, smoothed; held in silence
  /// The target's name: the string's label or, on the piano, the note's name.
  std::string noteLabel = "—";
  std::string octaveLabel;
  /// Name and octave of the equal-tempered note nearest to what is heard.
  std::string heardSpelling;
  double signal = 0.0;  ///< input level, 0 to 1
  /// The string, as a position in the current tuning, that is being tuned.
  std::optional<std::int64_t> highlightedString;
  std::string status = "Play a note";
  std::optional<std::string> errorText;  ///< why the microphone is not heard, for the user
  bool playingReference = false;

  bool operator==(const DisplayState&) const = default;
};

}  // namespace corvane
