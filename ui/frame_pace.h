#pragma once

#include <QAnimationDriver>
#include <QBasicTimer>

namespace corvane {

/// How often the screen is drawn while a needle moves. A frame costs the same whatever has moved on
/// it, and needles move for much of the time that a string sounds. To be installed once, before the
/// first window. Main thread.
class FramePace final : public QAnimationDriver {
  Q_OBJECT

 protected:
  void start() override;
  void stop() override;
  void timerEvent(QTimerEvent* event) override;

 private:
  QBasicTimer timer;
};

}  // namespace corvane
