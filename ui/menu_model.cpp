#include "ui/menu_model.h"

#include <algorithm>
#include <utility>

namespace corvane {

int MenuModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries.size());
}

QVariant MenuModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Entry& entry = entries[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Section:
      return entry.section;
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
  return {{Section, "section"}, {Title, "title"}, {Value, "value"}, {Chosen, "chosen"}};
}

int MenuModel::chosenRow() const {
  const auto found = std::ranges::find(entries, true, &Entry::chosen);
  return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

QString MenuModel::valueAt(int row) const {
  return data(index(row), Value).toString();
}

QString MenuModel::titleAt(int row) const {
  return data(index(row), Title).toString();
}

void MenuModel::setEntries(std::vector<Entry> next) {
  if (next == entries) return;
  beginResetModel();
  entries = std::move(next);
  endResetModel();
  emit entriesChanged();
}

}  // namespace corvane
