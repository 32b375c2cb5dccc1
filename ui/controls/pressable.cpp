#include "ui/controls/pressable.h"

#include <algorithm>
#include <utility>

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

Pressable::Pressable(QQuickItem* parent) : QQuickItem(parent) {
  // Qt sends unaccepted touch events as mouse events.
  setAcceptedMouseButtons(Qt::LeftButton);
  setAcceptHoverEvents(true);
  setActiveFocusOnTab(true);
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

// The parent may handle it too.
void Pressable::hoverEnterEvent(QHoverEvent* event) {
  setHovered(true);
  event->ignore();
}

void Pressable::hoverLeaveEvent(QHoverEvent* event) {
  setHovered(false);
  event->ignore();
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
  QQuickItem::itemChange(change, data);
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
