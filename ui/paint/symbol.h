// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>

#include "ui/paint/vector_item.h"

namespace corvane {

/// One of the screen's small pictures, drawn in one colour inside a square as wide as the item.
class Symbol : public corvane::VectorItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(Kind kind READ kind WRITE setKind NOTIFY pictureChanged)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY pictureChanged)

 public:
  enum Kind {
    ChevronUpDown,  ///< a menu opens here
    Checkmark,      ///< the entry that is chosen
    SpeakerWave,    ///< sound comes out
    Plus,
    Minus,
    Flat,   ///< of a big note, in the middle
    Sharp,  ///< the same
  };
  Q_ENUM(Kind)

  using VectorItem::VectorItem;

  Kind kind() const { return picture; }
  void setKind(Kind kind);
  QColor color() const { return ink; }
  void setColor(const QColor& color);

  void paint(QPainter* painter) const override;

 signals:
  void pictureChanged();

 private:
  Kind picture = Checkmark;
  QColor ink = Qt::white;
};

}  // namespace corvane
