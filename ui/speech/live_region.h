// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QQuickItem>

namespace corvane {

/// A text that screen readers announce whenever it changes. Draws nothing, but needs a size: screen
/// readers ignore items without one. QAccessibleAnnouncementEvent needs Qt 6.8; the show event of a
/// notification works with every version.
class LiveRegion : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString words READ words WRITE setWords NOTIFY wordsChanged)

 public:
  using QQuickItem::QQuickItem;

  QString words() const { return said; }
  void setWords(const QString& words);  ///< bind the accessible name to them

 signals:
  void wordsChanged();

 private:
  QString said;
};

}  // namespace corvane
