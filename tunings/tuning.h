// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

struct GuitarString {
  std::int64_t index;  ///< position in the tuning, 0 for the lowest string
  std::int64_t midi;   ///< target pitch; A4 = 69
  std::string label;   ///< "A" to "G", with "♭" or "♯" where needed; no octave

  std::int64_t id() const { return index; }

  bool operator==(const GuitarString&) const = default;
};

struct Tuning {
  std::string id;                     ///< unique over all instruments; stored in the preferences
  std::string name;                   ///< its entry in the tuning menu
  std::string group;                  ///< its section in the menu
  std::string detail;                 ///< one line shown under the name
  std::vector<GuitarString> strings;  ///< lowest first; empty for the piano

  bool operator==(const Tuning&) const = default;
};

}  // namespace corvane
