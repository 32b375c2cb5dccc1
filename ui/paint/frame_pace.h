#pragma once

#include <QtQml/qqmlregistration.h>

#include <QAnimationDriver>
#include <QBasicTimer>
#include <QQuickItem>
#include <chrono>

class QJSEngine;
class QQmlEngine;

namespace corvane {

/// How often the screen is drawn while a needle moves. A frame costs the same whatever has moved on
/// it, and needles move for much of the time that a string sounds. To be installed once, before the
/// first window. QML sees the one that lives, or one without effect. Main thread.
class FramePace final : public QAnimationDriver {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  FramePace();
  ~FramePace() override;

  static FramePace* create(QQmlEngine* qml, QJSEngine* js);

  /// Draws at the rate of the display that `item` is on until nothing moves any more.
  Q_INVOKABLE void quicken(const QQuickItem* item);

  std::chrono::milliseconds interval() const { return frame; }

 protected:
  void start() override;
  void stop() override;
  void timerEvent(QTimerEvent* event) override;

 private:
  QBasicTimer timer;
  std::chrono::milliseconds frame;
};

}  // namespace corvane
