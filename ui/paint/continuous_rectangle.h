// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QPainterPath>

#include "ui/paint/vector_item.h"

namespace corvane {

/// The outline of a rectangle whose corners pass into the sides without a jump in curvature: each
/// is a piece of a superellipse that cuts the diagonal where a circle of `radius` would.
QPainterPath continuousRectangle(const QRectF& rectangle, double radius);

/// Such a rectangle, filled, with an outline inside its edge where `borderWidth` is not 0.
class ContinuousRectangle : public corvane::VectorItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY shapeChanged)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY shapeChanged)
  Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor NOTIFY shapeChanged)
  Q_PROPERTY(double borderWidth READ borderWidth WRITE setBorderWidth NOTIFY shapeChanged)

 public:
  using VectorItem::VectorItem;

  double radius() const { return cornerRadius; }
  void setRadius(double points) { change(cornerRadius, points); }
  QColor color() const { return fill; }
  void setColor(const QColor& color) { change(fill, color); }
  QColor borderColor() const { return outline; }
  void setBorderColor(const QColor& color) { change(outline, color); }
  double borderWidth() const { return outlineWidth; }
  void setBorderWidth(double points) { change(outlineWidth, points); }

  void paint(QPainter* painter) const override;

 signals:
  void shapeChanged();

 private:
  template <class Value>
  void change(Value& member, const Value& value) {
    if (value == member) return;
    member = value;
    update();
    emit shapeChanged();
  }

  struct Outline {
    double width, height, cornerRadius, outlineWidth;
    bool operator==(const Outline&) const = default;
  };

  bool isBetweenTheCorners(const QRectF& seen) const;
  const QPainterPath& path() const;

  double cornerRadius = 0.0;
  QColor fill = Qt::transparent;
  QColor outline = Qt::transparent;
  double outlineWidth = 0.0;
  mutable Outline drawn{};  ///< what `drawnPath` is the outline of
  mutable QPainterPath drawnPath;
};

}  // namespace corvane
