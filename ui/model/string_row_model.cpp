// SPDX-License-Identifier: MIT
#include "ui/model/string_row_model.h"

#include <algorithm>
#include <utility>

#include "ui/paint/tuner_theme.h"

namespace corvane {
namespace {

StringRowModel::Chip chipFor(const GuitarString& string, const TunerEngine& engine) {
  const bool selected = engine.state().lockedStringIndex == string.index;
  const bool hearing = engine.state().heard && engine.state().highlightedString == string.index;
  return {static_cast<int>(string.index),
          QString::fromStdString(string.label),
          static_cast<int>(string.midi / 12 - 1),
          selected,
          hearing,
          chipFill(selected, hearing, engine.state().inTune)};
}

std::vector<StringRowModel::Chip> chipsFor(const TunerEngine& engine) {
  std::vector<StringRowModel::Chip> chips;
  for (const GuitarString& string : engine.tuning().strings) {
    chips.push_back(chipFor(string, engine));
  }
  if (engine.state().leftHanded) std::ranges::reverse(chips);
  return chips;
}

}  // namespace

int StringRowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(chips.size());
}

QVariant StringRowModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Chip& chip = chips[static_cast<std::size_t>(index.row())];
  switch (role) {
    case StringIndex:
      return chip.stringIndex;
    case Label:
      return chip.label;
    case Octave:
      return chip.octave;
    case Selected:
      return chip.selected;
    case Hearing:
      return chip.hearing;
    case Fill:
      return chip.fill;
    default:
      return {};
  }
}

QHash<int, QByteArray> StringRowModel::roleNames() const {
  return {{StringIndex, "stringIndex"}, {Label, "label"},     {Octave, "octave"},
          {Selected, "selected"},       {Hearing, "hearing"}, {Fill, "fill"}};
}

void StringRowModel::update(const TunerEngine& engine) {
  std::vector<Chip> next = chipsFor(engine);
  if (next.size() != chips.size()) {
    beginResetModel();
    chips = std::move(next);
    endResetModel();
    emit countChanged();
    return;
  }
  for (std::size_t i = 0; i < chips.size(); ++i) {
    if (next[i] == chips[i]) continue;
    chips[i] = std::move(next[i]);
    const QModelIndex changed = index(static_cast<int>(i));
    emit dataChanged(changed, changed);
  }
}

}  // namespace corvane
