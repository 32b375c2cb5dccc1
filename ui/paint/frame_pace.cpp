// SPDX-License-Identifier: MIT
#include "ui/paint/frame_pace.h"

#include <QQuickWindow>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

using std::chrono::milliseconds;

/// A third of the 80 ms of a move, rounded up, so that the third frame shows its end.
constexpr milliseconds usual{27};
/// Some displays report implausible rates.
constexpr milliseconds shortest{4};

FramePace* living = nullptr;

}  // namespace

FramePace::FramePace() : frame(usual) {
  living = this;
}

FramePace::~FramePace() {
  if (living == this) living = nullptr;
}

void FramePace::quicken(const QQuickItem& item) {
  const double hertz = item.window() ? item.window()->screen()->refreshRate() : 0.0;
  if (living == nullptr || !(hertz > 0.0)) return;
  living->frame = std::clamp(milliseconds(std::lround(1000.0 / hertz)), shortest, usual);
  if (living->isRunning()) living->startTimer();
}

void FramePace::start() {
  QAnimationDriver::start();
  startTimer();
}

void FramePace::startTimer() {
  timer.start(static_cast<int>(frame.count()), Qt::PreciseTimer, this);
}

void FramePace::stop() {
  timer.stop();
  frame = usual;
  QAnimationDriver::stop();
}

void FramePace::timerEvent(QTimerEvent*) {
  advance();
}

}  // namespace corvane
