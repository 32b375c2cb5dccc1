#include "ui/frame_pace.h"

namespace corvane {
namespace {

/// A third of the 80 ms of a move, rounded up, so that the third frame shows its end.
constexpr int frameMs = 27;

}  // namespace

void FramePace::start() {
  QAnimationDriver::start();
  timer.start(frameMs, Qt::PreciseTimer, this);
}

void FramePace::stop() {
  timer.stop();
  QAnimationDriver::stop();
}

void FramePace::timerEvent(QTimerEvent*) {
  advance();
}

}  // namespace corvane
