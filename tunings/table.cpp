// SPDX-License-Identifier: MIT
#include "tunings/table.h"

#include <string>

#include "base/require.h"

namespace corvane::TuningLibrary {
namespace {

/// Removes and returns the text up to the next space.
std::string takeLabel(std::string_view& labels) {
  const std::size_t end = labels.find(' ');
  std::string label(labels.substr(0, end));
  labels.remove_prefix(end == std::string_view::npos ? labels.size() : end + 1);
  return label;
}

std::vector<GuitarString> makeStrings(const Row& row) {
  std::vector<GuitarString> strings;
  std::string_view labels = row.labels;
  for (const int midi : row.midi) {
    strings.push_back({static_cast<std::int64_t>(strings.size()), midi, takeLabel(labels)});
  }
  require(labels.empty(), "the tuning has as many labels as pitches");
  return strings;
}

}  // namespace

std::vector<Tuning> makeTable(std::initializer_list<Row> rows) {
  std::vector<Tuning> table;
  for (const Row& row : rows) {
    table.push_back({std::string(row.id), std::string(row.name), std::string(row.group),
                     std::string(row.detail), makeStrings(row)});
  }
  return table;
}

}  // namespace corvane::TuningLibrary
