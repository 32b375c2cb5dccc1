// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QQuickItem>

namespace corvane {

/// An item whose number screen readers announce when it changes. Qt 6.11 does not report changes of
/// a QML property to them; earlier versions report every `valueChanged`.
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
