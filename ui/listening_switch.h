#pragma once

#include <QObject>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <memory>

#include "engine/tuner_engine.h"
#include "platform/microphone_watch.h"

namespace corvane {

/// Listens while the user can see the window: starts when it is shown and whenever it becomes the
/// active one, stops when it is minimised or hidden. A window that is merely not active goes on
/// listening, so that one can tune while reading a score. A microphone that comes meanwhile is
/// taken up; that there is none any more, or that it is denied, is told by starting once again.
class ListeningSwitch : public QObject {
 public:
  /// `window` and `watch` must outlive the switch. After `grace` without a microphone the user
  /// reads that there is none; a device that is being replaced is back sooner.
  ListeningSwitch(QWindow& window, std::shared_ptr<TunerEngine> engine, MicrophoneWatch& watch,
                  std::chrono::milliseconds grace = std::chrono::milliseconds(1500));

 private:
  void visibilityChanged(QWindow::Visibility visibility);
  void activeChanged();
  void listeningChanged();
  void microphoneChanged(bool present);
  void tellOfAbsence();

  QWindow& window;
  std::shared_ptr<TunerEngine> engine;
  MicrophoneWatch& watch;
  QTimer absence;
  std::shared_ptr<const void> observation;
  bool onScreen = false;
};

}  // namespace corvane
