// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QAbstractListModel>
#include <QColor>
#include <vector>

#include "engine/tuner_engine.h"

namespace corvane {

/// The string chips in screen order. Main thread only.
class StringRowModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The string row comes from the tuner.")
  Q_PROPERTY(int count READ count NOTIFY countChanged)

 public:
  struct Chip {
    int stringIndex = 0;  ///< position in the tuning, independent of the screen order
    QString label;
    int octave = 0;
    bool selected = false;
    bool hearing = false;
    QColor fill;

    bool operator==(const Chip&) const = default;
  };

  enum Role { StringIndex = Qt::UserRole + 1, Label, Octave, Selected, Hearing, Fill };

  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  int count() const { return rowCount(); }

  /// Copies the engine's state and reports the chips that differ.
  void update(const TunerEngine& engine);

 signals:
  void countChanged();

 private:
  std::vector<Chip> chips;
};

}  // namespace corvane
