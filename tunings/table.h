// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "tunings/tuning.h"

namespace corvane::TuningLibrary {

/// One row of a table, lowest string first. `labels` has one label per MIDI number, separated by
/// single spaces; it is also the tuning's detail if none is given.
struct Row {
  std::string_view id;
  std::string_view name;
  std::string_view group;
  std::initializer_list<int> midi;
  std::string_view labels;
  std::string_view detail = labels;
};

/// Numbers the strings of each row from 0.
std::vector<Tuning> makeTable(std::initializer_list<Row> rows);

}  // namespace corvane::TuningLibrary
