#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>

#include "ui/vector_item.h"

namespace corvane {

/// One of the screen's small pictures, drawn in one colour inside a square as wide as the item.
class Symbol : public corvane::VectorItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(Kind kind MEMBER kind NOTIFY pictureChanged)
  Q_PROPERTY(QColor color MEMBER color NOTIFY pictureChanged)

 public:
  enum Kind {
    ChevronUpDown,  ///< a menu opens here
    Checkmark,      ///< the entry that is chosen
    SpeakerWave,    ///< sound comes out
    Plus,
    Minus,
  };
  Q_ENUM(Kind)

  explicit Symbol(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) const override;

 signals:
  void pictureChanged();

 private:
  Kind kind = Checkmark;
  QColor color = Qt::white;
};

}  // namespace corvane
