// SPDX-License-Identifier: MIT
#include "tunings/table.h"
#include "tunings/tuning_library.h"

namespace corvane::TuningLibrary {

const std::vector<Tuning>& bass() {
  static const std::vector<Tuning> table = makeTable({
      {"b4-standard", "4-string standard", "4-string", {28, 33, 38, 43}, "E A D G"},
      {"b4-dropd", "4-string drop D", "4-string", {26, 33, 38, 43}, "D A D G"},
      {"b4-dropc", "4-string drop C", "4-string", {24, 31, 36, 41}, "C G C F"},
      {"b4-half", "4-string half step down", "4-string", {27, 32, 37, 42}, "E♭ A♭ D♭ G♭"},
      {"b4-whole", "4-string whole step down", "4-string", {26, 31, 36, 41}, "D G C F"},
      {"b4-tenor", "Tenor", "4-string", {33, 38, 43, 48}, "A D G C"},
      {"b5-standard", "5-string standard", "5-string", {23, 28, 33, 38, 43}, "B E A D G"},
      {"b5-dropa", "5-string drop A", "5-string", {21, 28, 33, 38, 43}, "A E A D G"},
      {"b6-standard", "6-string standard", "6-string", {23, 28, 33, 38, 43, 48}, "B E A D G C"},
  });
  return table;
}

}  // namespace corvane::TuningLibrary
