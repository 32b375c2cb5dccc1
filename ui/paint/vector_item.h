// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QQuickItem>

class QPainter;

namespace corvane {

/// An item that paints itself straight onto the window, so that it is sharp at every scale and
/// keeps no picture of its own in memory. For the software scene graph alone, which renders on the
/// main thread. A derived class names it in full, or the linter of Qt 6.4 does not find it.
class VectorItem : public QQuickItem {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  explicit VectorItem(QQuickItem* parent = nullptr);

  /// Paints within (0, 0) to (width, height).
  virtual void paint(QPainter* painter) const = 0;

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
};

}  // namespace corvane
