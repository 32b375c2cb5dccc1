// SPDX-License-Identifier: MIT
#include "tunings/table.h"
#include "tunings/tuning_library.h"

namespace corvane::TuningLibrary {

const std::vector<Tuning>& guitar() {
  static const std::vector<Tuning> table = makeTable({
      {"g6-standard", "Standard", "6-string", {40, 45, 50, 55, 59, 64}, "E A D G B E"},
      {"g6-half", "Half step down", "6-string", {39, 44, 49, 54, 58, 63}, "E♭ A♭ D♭ G♭ B♭ E♭"},
      {"g6-whole", "Whole step down", "6-string", {38, 43, 48, 53, 57, 62}, "D G C F A D"},
      {"g6-dropd", "Drop D", "6-string", {38, 45, 50, 55, 59, 64}, "D A D G B E"},
      {"g6-ddropd", "Double drop D", "6-string", {38, 45, 50, 55, 59, 62}, "D A D G B D"},
      {"g6-dropc", "Drop C", "6-string", {36, 43, 48, 53, 57, 62}, "C G C F A D"},
      {"g6-dropb", "Drop B", "6-string", {35, 42, 47, 52, 56, 61}, "B F♯ B E G♯ C♯"},
      {"g6-dropa", "Drop A", "6-string", {33, 40, 45, 50, 54, 59}, "A E A D F♯ B"},
      {"g6-cstd", "C standard", "6-string", {36, 41, 46, 51, 55, 60}, "C F B♭ E♭ G C"},
      {"g6-dadgad", "DADGAD", "Open and alternate", {38, 45, 50, 55, 57, 62}, "D A D G A D"},
      {"g6-openg", "Open G", "Open and alternate", {38, 43, 50, 55, 59, 62}, "D G D G B D"},
      {"g6-opend", "Open D", "Open and alternate", {38, 45, 50, 54, 57, 62}, "D A D F♯ A D"},
      {"g6-opene", "Open E", "Open and alternate", {40, 47, 52, 56, 59, 64}, "E B E G♯ B E"},
      {"g6-opena", "Open A", "Open and alternate", {40, 45, 52, 57, 61, 64}, "E A E A C♯ E"},
      {"g6-openc", "Open C", "Open and alternate", {36, 43, 48, 55, 60, 64}, "C G C G C E"},
      {"g6-nst", "New standard", "Open and alternate", {36, 43, 50, 57, 64, 67}, "C G D A E G"},
      {"g6-fourths", "All fourths", "Open and alternate", {40, 45, 50, 55, 60, 65}, "E A D G C F"},
      {"g6-baritone", "Baritone", "Baritone", {35, 40, 45, 50, 54, 59}, "B E A D F♯ B"},
      {"g7-standard",
       "7-string standard",
       "7-string",
       {35, 40, 45, 50, 55, 59, 64},
       "B E A D G B E"},
      {"g7-dropa", "7-string drop A", "7-string", {33, 40, 45, 50, 55, 59, 64}, "A E A D G B E"},
      {"g8-standard",
       "8-string standard",
       "8-string",
       {30, 35, 40, 45, 50, 55, 59, 64},
       "F♯ B E A D G B E"},
      {"g8-drope",
       "8-string drop E",
       "8-string",
       {28, 35, 40, 45, 50, 55, 59, 64},
       "E B E A D G B E"},
      {"g12-standard",
       "12-string standard",
       "12-string",
       {40, 45, 50, 55, 59, 64},
       "E A D G B E",
       "Octave courses follow E A D G B E"},
  });
  return table;
}

}  // namespace corvane::TuningLibrary
