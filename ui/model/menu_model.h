// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QAbstractListModel>
#include <vector>

namespace corvane {

/// The entries of a pull-down menu, in sections. Main thread only.
class MenuModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Menus come from the tuner.")
  Q_PROPERTY(int chosenRow READ chosenRow NOTIFY entriesChanged)

 public:
  struct Entry {
    QString section;
    QString title;
    QString value;  ///< what choosing the entry assigns
    bool chosen = false;

    bool operator==(const Entry&) const = default;
  };

  /// The heading is the section's name for its first entry, empty for the others.
  enum Role { Heading = Qt::UserRole + 1, Title, Value, Chosen };

  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  int chosenRow() const;  ///< -1 when no entry is the current one
  Q_INVOKABLE QString valueAt(int row) const;
  Q_INVOKABLE int rowWith(const QString& value) const;  ///< -1 when no entry has it
  /// The next row after `row`, wrapping around, whose title starts with `text`, ignoring case; -1
  /// when there is none or `text` is empty.
  Q_INVOKABLE int rowStartingWith(const QString& text, int row) const;

  void setEntries(std::vector<Entry> next);

 signals:
  void entriesChanged();

 private:
  QString headingAt(std::size_t row) const;

  std::vector<Entry> entries;
};

}  // namespace corvane
