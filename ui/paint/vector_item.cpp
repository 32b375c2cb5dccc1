// SPDX-License-Identifier: MIT
#include "ui/paint/vector_item.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGRenderNode>
#include <QSGRendererInterface>

namespace corvane {
namespace {

/// Lives no longer than its item: both belong to the main thread here.
class PaintNode final : public QSGRenderNode {
 public:
  explicit PaintNode(const VectorItem& painted) : item(painted) {}

  void render(const RenderState* state) override {
    // An empty region is not "no clip": all of the item is scrolled out of what clips it.
    const QRegion* const clip = state->clipRegion();
    if (clip != nullptr && clip->isEmpty()) return;
    QQuickWindow* const window = item.window();
    auto* const painter = static_cast<QPainter*>(
        window->rendererInterface()->getResource(window, QSGRendererInterface::PainterResource));
    painter->save();
    if (clip != nullptr) painter->setClipRegion(*clip, Qt::ReplaceClip);
    painter->setTransform(matrix()->toTransform());
    painter->setOpacity(inheritedOpacity());
    painter->setRenderHint(QPainter::Antialiasing);
    item.paint(painter);
    painter->restore();
  }

  RenderingFlags flags() const override { return BoundedRectRendering; }

  QRectF rect() const override { return item.boundingRect(); }

 private:
  const VectorItem& item;
};

}  // namespace

VectorItem::VectorItem(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
}

QSGNode* VectorItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
  if (width() <= 0.0 || height() <= 0.0) {
    delete node;
    return nullptr;
  }
  if (node == nullptr) node = new PaintNode(*this);
  node->markDirty(QSGNode::DirtyMaterial);
  return node;
}

}  // namespace corvane
