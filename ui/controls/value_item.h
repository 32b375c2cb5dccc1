#pragma once

#include <QtQml/qqmlregistration.h>

#include <QQuickItem>

namespace corvane {

/// An item with a number that a screen reader says when it changes. Qt 6.11 does not report the
/// changes of a property of QML, and earlier versions report those of any `valueChanged`.
class ValueItem : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(double value READ value WRITE setValue NOTIFY moved REQUIRED)

 public:
  using QQuickItem::QQuickItem;

  double value() const { return shown; }
  void setValue(double value);

 signals:
  void moved();

 private:
  double shown = 0.0;
};

}  // namespace corvane
