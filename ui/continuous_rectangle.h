#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QPainterPath>

#include "ui/vector_item.h"

namespace corvane {

/// The outline of a rectangle whose corners pass into the sides without a jump in curvature: each
/// is a piece of a superellipse that cuts the diagonal where a circle of `radius` would.
QPainterPath continuousRectangle(const QRectF& rectangle, double radius);

/// Such a rectangle, filled, with an outline inside its edge where `borderWidth` is not 0.
class ContinuousRectangle : public corvane::VectorItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(double radius MEMBER radius NOTIFY shapeChanged)
  Q_PROPERTY(QColor color MEMBER color NOTIFY shapeChanged)
  Q_PROPERTY(QColor borderColor MEMBER borderColor NOTIFY shapeChanged)
  Q_PROPERTY(double borderWidth MEMBER borderWidth NOTIFY shapeChanged)

 public:
  explicit ContinuousRectangle(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) const override;

 signals:
  void shapeChanged();

 private:
  double radius = 0.0;
  QColor color = Qt::transparent;
  QColor borderColor = Qt::transparent;
  double borderWidth = 0.0;
};

}  // namespace corvane
