// SPDX-License-Identifier: MIT
#include "tunings/table.h"
#include "tunings/tuning_library.h"

namespace corvane::TuningLibrary {

const std::vector<Tuning>& piano() {
  static const std::vector<Tuning> table = makeTable({
      {"piano-chromatic",
       "Chromatic",
       "Piano",
       {},
       "",
       "A0 to C8. Set A4 to this piano. Older pianos were not all tuned to 440."},
  });
  return table;
}

}  // namespace corvane::TuningLibrary
