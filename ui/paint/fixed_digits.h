// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "ui/paint/vector_item.h"

namespace corvane {

/// One line of text whose digits are all as wide as the widest, so that a changing number does not
/// make its neighbours dance. For fonts with proportional digits, which the toolkit cannot make
/// tabular.
class FixedDigits : public corvane::VectorItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
  Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY textChanged)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

 public:
  using VectorItem::VectorItem;

  QString text() const { return shown; }
  void setText(const QString& text);
  QFont font() const { return drawnIn; }
  void setFont(const QFont& font);
  QColor color() const { return ink; }
  void setColor(const QColor& color);

  void paint(QPainter* painter) const override;
  /// Without the empty space above the text: a change repaints what lies there.
  QRectF boundingRect() const override;

 signals:
  void textChanged();
  void colorChanged();

 protected:
  void componentComplete() override;

 private:
  struct Extent {
    double advance, top;  ///< the top from the baseline
  };
  struct Place {
    QString character;
    double x;
  };

  static Extent extentOf(const QFontMetricsF& metrics, QChar character);
  void layOut();

  QString shown;
  QFont drawnIn;
  QColor ink = Qt::white;
  /// Of `drawnIn`, once it was needed: to measure ten digits takes longer than to draw a number.
  std::optional<std::array<Extent, 10>> digits;
  std::vector<Place> places;
  double top = 0.0;  ///< of the tallest, from the baseline
};

}  // namespace corvane
