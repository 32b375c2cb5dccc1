#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QFont>
#include <QString>

#include "ui/vector_item.h"

namespace corvane {

/// One line of text whose digits are all as wide as the widest, so that a changing number does not
/// make its neighbours dance. For fonts with proportional digits, which the toolkit cannot make
/// tabular.
class FixedDigits : public corvane::VectorItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString text MEMBER text NOTIFY textChanged)
  Q_PROPERTY(QFont font MEMBER font NOTIFY textChanged)
  Q_PROPERTY(QColor color MEMBER color NOTIFY colorChanged)

 public:
  explicit FixedDigits(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) const override;

 signals:
  void textChanged();
  void colorChanged();

 private:
  void layOut();

  QString text;
  QFont font;
  QColor color = Qt::white;
};

}  // namespace corvane
