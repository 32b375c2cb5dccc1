// SPDX-License-Identifier: MIT
#include "ui/model/menu_model.h"

#include <algorithm>
#include <utility>

namespace corvane {

int MenuModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries.size());
}

QVariant MenuModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const Entry& entry = entries[row];
  switch (role) {
    case Heading:
      return headingAt(row);
    case Title:
      return entry.title;
    case Value:
      return entry.value;
    case Chosen:
      return entry.chosen;
    default:
      return {};
  }
}

QHash<int, QByteArray> MenuModel::roleNames() const {
  return {{Heading, "heading"}, {Title, "title"}, {Value, "value"}, {Chosen, "chosen"}};
}

int MenuModel::chosenRow() const {
  const auto found = std::ranges::find(entries, true, &Entry::chosen);
  return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

QString MenuModel::valueAt(int row) const {
  return data(index(row), Value).toString();
}

int MenuModel::rowWith(const QString& value) const {
  const auto found = std::ranges::find(entries, value, &Entry::value);
  return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

int MenuModel::rowStartingWith(const QString& text, int row) const {
  if (text.isEmpty()) return -1;
  for (int step = 1; step <= rowCount(); ++step) {
    const int next = (row + step) % rowCount();
    if (data(index(next), Title).toString().startsWith(text, Qt::CaseInsensitive)) return next;
  }
  return -1;
}

QString MenuModel::headingAt(std::size_t row) const {
  const QString& section = entries[row].section;
  return row > 0 && entries[row - 1].section == section ? QString() : section;
}

void MenuModel::setEntries(std::vector<Entry> next) {
  if (next == entries) return;
  beginResetModel();
  entries = std::move(next);
  endResetModel();
  emit entriesChanged();
}

}  // namespace corvane
