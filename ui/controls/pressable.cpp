// SPDX-License-Identifier: MIT
#include "ui/controls/pressable.h"

#include <QQuickWindow>
#include <algorithm>
#include <utility>
#include <vector>

namespace corvane {
namespace {

constexpr int beforeRepeatingMs = 300;

/// Accelerates: a hundred steps take three seconds.
int nextRepeatMs(int repeats) {
  return std::max(20, 100 - 4 * repeats);
}

bool presses(const QKeyEvent& event) {
  return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return ||
         event.key() == Qt::Key_Enter;
}

}  // namespace

/// Receives the hover events of its window for all its pressables. Qt delivers a hover event before
/// every frame, item by item until one accepts; this item is first.
class Pressable::HoverArea final : public QQuickItem {
 public:
  static HoverArea* of(const QQuickWindow& window) {
    for (QQuickItem* const item : window.contentItem()->childItems()) {
      if (auto* const area = dynamic_cast<HoverArea*>(item)) return area;
    }
    return new HoverArea(window.contentItem());
  }

  bool contains(const QPointF&) const override { return true; }

  std::vector<Pressable*> all;

 protected:
  void hoverEnterEvent(QHoverEvent* event) override { search(event->position()); }
  void hoverMoveEvent(QHoverEvent* event) override { search(event->position()); }
  void hoverLeaveEvent(QHoverEvent*) override {
    for (Pressable* const each : all) each->setHovered(false);
  }

 private:
  explicit HoverArea(QQuickItem* content) : QQuickItem(content) {
    setAcceptHoverEvents(true);
    setZ(0.5);  // Menus are above it.
  }

  void search(QPointF place) {
    for (Pressable* const each : all) {
      each->setHovered(each->isVisible() && each->isEnabled() &&
                       each->contains(each->mapFromItem(this, place)));
    }
  }
};

Pressable::Pressable(QQuickItem* parent) : QQuickItem(parent) {
  // Qt sends unaccepted touch events as mouse events.
  setAcceptedMouseButtons(Qt::LeftButton);
  setActiveFocusOnTab(true);
}

Pressable::~Pressable() {
  moveTo(nullptr);
}

void Pressable::press() {
  if (isEnabled()) emit clicked();
}

void Pressable::mousePressEvent(QMouseEvent*) {
  if (activeFocusOnTab()) forceActiveFocus(Qt::MouseFocusReason);
  focusedByKeyboard = false;
  setVisualFocus(false);
  setDown(true);
  repeats = 0;
  emit pressed();
  if (autoRepeat) repeat.start(beforeRepeatingMs, this);
}

void Pressable::mouseMoveEvent(QMouseEvent* event) {
  setDown(contains(event->position()));
  emit dragged(event->scenePosition());
}

void Pressable::mouseReleaseEvent(QMouseEvent* event) {
  release();
  emit dropped(event->scenePosition());
}

void Pressable::mouseUngrabEvent() {
  setDown(false);
  repeat.stop();
}

/// A finger that slides off within one frame sends no move before the release.
void Pressable::touchUngrabEvent() {
  mouseUngrabEvent();
}

void Pressable::keyPressEvent(QKeyEvent* event) {
  event->setAccepted(presses(*event));
  if (presses(*event) && !event->isAutoRepeat()) setDown(true);
}

/// The key may have been pressed elsewhere, in a menu that closed and returned the focus.
void Pressable::keyReleaseEvent(QKeyEvent* event) {
  event->setAccepted(presses(*event));
  if (presses(*event) && !event->isAutoRepeat()) release();
}

void Pressable::focusInEvent(QFocusEvent* event) {
  QQuickItem::focusInEvent(event);  // Notifies assistive technology.
  // A window that becomes active again keeps its focus ring as it was.
  if (event->reason() != Qt::ActiveWindowFocusReason) {
    focusedByKeyboard = event->reason() != Qt::MouseFocusReason;
  }
  setVisualFocus(focusedByKeyboard);
}

void Pressable::focusOutEvent(QFocusEvent*) {
  setVisualFocus(false);
  setDown(false);
}

void Pressable::timerEvent(QTimerEvent*) {
  repeat.start(nextRepeatMs(repeats), this);
  if (!down) return;
  ++repeats;
  emit clicked();
}

void Pressable::itemChange(ItemChange change, const ItemChangeData& data) {
  if ((change == ItemEnabledHasChanged || change == ItemVisibleHasChanged) && !data.boolValue) {
    setHovered(false);
    mouseUngrabEvent();
  }
  if (change == ItemSceneChange) moveTo(data.window);
  QQuickItem::itemChange(change, data);
}

void Pressable::moveTo(QQuickWindow* window) {
  if (hoverArea) std::erase(static_cast<HoverArea&>(*hoverArea).all, this);
  hoverArea = nullptr;
  if (window == nullptr) return;
  HoverArea* const area = HoverArea::of(*window);
  area->all.push_back(this);
  hoverArea = area;
}

void Pressable::release() {
  repeat.stop();
  const bool counts = std::exchange(repeats, 0) == 0 && down;
  setDown(false);
  if (counts) emit clicked();
}

void Pressable::setDown(bool now) {
  if (std::exchange(down, now) != now) emit downChanged();
}

void Pressable::setHovered(bool now) {
  if (std::exchange(hovered, now) != now) emit hoveredChanged();
}

void Pressable::setVisualFocus(bool now) {
  if (std::exchange(visualFocus, now) != now) emit visualFocusChanged();
}

}  // namespace corvane
