// SPDX-License-Identifier: MIT
#pragma once

#include <QAnimationDriver>
#include <QBasicTimer>
#include <QQuickItem>
#include <chrono>

namespace corvane {

/// How often the screen is drawn while a needle moves. A frame costs the same whatever has moved on
/// it, and needles move for much of the time that a string sounds. To be installed once, before the
/// first window. Main thread.
class FramePace final : public QAnimationDriver {
  Q_OBJECT

 public:
  FramePace();
  ~FramePace() override;

  /// Draws at the rate of the display that `item` is on until nothing moves any more. No effect
  /// unless a pace is installed.
  static void quicken(const QQuickItem& item);

  std::chrono::milliseconds interval() const { return frame; }

 protected:
  void start() override;
  void stop() override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void startTimer();

  QBasicTimer timer;
  std::chrono::milliseconds frame;
};

}  // namespace corvane
