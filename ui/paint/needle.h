// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QVariantAnimation>

#include "ui/paint/continuous_rectangle.h"

namespace corvane {

/// The x of the needle's centre for `value` cents, on a bar of `width` by `height` points that
/// spans `span` cents either side of its centre: clamped to the span, and kept wholly inside the
/// bar.
double needleCentre(double width, double height, double span, double value);

/// Whether the needles at `from` and `to` cents on such a bar are visibly apart: a steady string
/// keeps changing by thousandths of a cent. On a bar without room for a needle, whether they
/// differ.
bool needleMoves(double width, double height, double span, double from, double to);

/// The needle of a meter. It eases out to its goal in 80 ms: the first step is in the frame that
/// shows the color and the texts of the reading.
class Needle : public corvane::ContinuousRectangle {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(double track MEMBER track WRITE setTrack REQUIRED FINAL)
  Q_PROPERTY(double span MEMBER span REQUIRED FINAL)
  Q_PROPERTY(double cents MEMBER cents WRITE setCents REQUIRED FINAL)
  Q_PROPERTY(double goal READ goalCents FINAL)
  Q_PROPERTY(double value READ shownCents FINAL)

 public:
  explicit Needle(QQuickItem* parent = nullptr);

  void setTrack(double points);
  void setCents(double reading);
  double goalCents() const { return goal; }
  double shownCents() const { return value; }

 protected:
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
  double centre(double value) const;
  void show(double value);

  double track = 0.0;  ///< width of the bar that it moves on
  double span = 0.0;   ///< of the bar, in cents either side of its centre; set once
  double cents = 0.0;
  double goal = 0.0;   ///< cents
  double value = 0.0;  ///< cents, as shown
  QVariantAnimation move;
};

}  // namespace corvane
