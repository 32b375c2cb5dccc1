// SPDX-License-Identifier: MIT
#pragma once

#include <QtQml/qqmlregistration.h>

#include <QBasicTimer>
#include <QPointer>
#include <QQuickItem>

namespace corvane {

/// An invisible area that responds to mouse, touch, Space, Return and Enter. A press that leaves
/// it, or that a Flickable takes over, is no click. Takes the focus with Tab and with a press,
/// unless `activeFocusOnTab` is off.
class Pressable : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool down READ isDown NOTIFY downChanged)
  Q_PROPERTY(bool hovered READ isHovered NOTIFY hoveredChanged)
  Q_PROPERTY(bool visualFocus READ hasVisualFocus NOTIFY visualFocusChanged)
  Q_PROPERTY(bool autoRepeat MEMBER autoRepeat NOTIFY autoRepeatChanged)

 public:
  explicit Pressable(QQuickItem* parent = nullptr);
  ~Pressable() override;

  bool isDown() const { return down; }        ///< a release now would be a click
  bool isHovered() const { return hovered; }  ///< by the mouse
  /// Has the focus, and got it otherwise than by a press.
  bool hasVisualFocus() const { return visualFocus; }

  /// Clicks, for example for a screen reader. No effect while disabled.
  Q_INVOKABLE void press();

 signals:
  void clicked();
  // Mouse or touch press, move and release, in window coordinates.
  void pressed();
  void dragged(QPointF place);
  void dropped(QPointF place);
  void downChanged();
  void hoveredChanged();
  void visualFocusChanged();
  void autoRepeatChanged();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseUngrabEvent() override;
  void touchUngrabEvent() override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  class HoverArea;
  void moveTo(QQuickWindow* window);
  void setDown(bool now);
  void setHovered(bool now);
  void setVisualFocus(bool now);
  void release();

  bool down = false;
  bool hovered = false;
  bool visualFocus = false;
  bool focusedByKeyboard = false;
  bool autoRepeat = false;
  int repeats = 0;  ///< clicks of the current press so far
  QBasicTimer repeat;
  QPointer<QQuickItem> hoverArea;  ///< of its window
};

}  // namespace corvane
