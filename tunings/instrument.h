// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace corvane {

enum class Instrument { guitar, bass, piano };

/// In the order of the instrument picker.
inline constexpr std::array allInstruments = {Instrument::guitar, Instrument::bass,
                                              Instrument::piano};

/// The text that identifies the instrument in the preferences, such as "guitar".
std::string_view rawValue(Instrument instrument);

/// The text in the instrument picker, such as "Guitar".
std::string_view displayTitle(Instrument instrument);

/// The instrument with exactly this raw value, or nothing.
std::optional<Instrument> instrumentFromRawValue(std::string_view text);

}  // namespace corvane
