#pragma once

#include <QtQml/qqmlregistration.h>

#include <QBasicTimer>
#include <QQuickItem>

namespace corvane {

/// An area that is pressed with the mouse, with a finger, or with the keys Space, Return and Enter;
/// it shows nothing itself. A press that leaves it, or loses it to something that scrolls, does not
/// count. The Tab key comes here, and so does the focus with a press, unless `activeFocusOnTab` is
/// off.
class Pressable : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool down READ isDown NOTIFY downChanged)
  Q_PROPERTY(bool hovered READ isHovered NOTIFY hoveredChanged)
  Q_PROPERTY(bool visualFocus READ hasVisualFocus NOTIFY visualFocusChanged)
  Q_PROPERTY(bool autoRepeat MEMBER autoRepeat NOTIFY autoRepeatChanged)

 public:
  explicit Pressable(QQuickItem* parent = nullptr);

  bool isDown() const { return down; }        ///< letting go now would be a click
  bool isHovered() const { return hovered; }  ///< the mouse is over it
  /// The keyboard is here, and came otherwise than by a press.
  bool hasVisualFocus() const { return visualFocus; }

  /// A click from elsewhere: a screen reader, say. Nothing happens while it is disabled.
  Q_INVOKABLE void press();

 signals:
  void clicked();
  /// The mouse or a finger: down, under way and up again, in the window's own coordinates.
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
  void hoverEnterEvent(QHoverEvent* event) override;
  void hoverLeaveEvent(QHoverEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  void setDown(bool now);
  void setHovered(bool now);
  void setVisualFocus(bool now);
  void release();

  bool down = false;
  bool hovered = false;
  bool visualFocus = false;
  bool focusedByKeyboard = false;
  bool autoRepeat = false;
  int repeats = 0;  ///< how often the press that is going on has clicked already
  QBasicTimer repeat;
};

}  // namespace corvane
