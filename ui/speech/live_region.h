#pragma once

#include <QtQml/qqmlregistration.h>

#include <QQuickItem>

namespace corvane {

/// Words that a screen reader says of itself whenever others are set, wherever its user is. It
/// shows nothing, but takes up room: what has none is nowhere for a screen reader. The toolkit's
/// own way to announce came with Qt 6.8; a notification that appears is announced with any.
class LiveRegion : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString words READ words WRITE setWords NOTIFY wordsChanged)

 public:
  using QQuickItem::QQuickItem;

  QString words() const { return said; }
  void setWords(const QString& words);  ///< the accessible name must be bound to them

 signals:
  void wordsChanged();

 private:
  QString said;
};

}  // namespace corvane
