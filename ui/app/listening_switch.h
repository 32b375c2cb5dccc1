#pragma once

#include <QObject>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <memory>

#include "engine/tuner_engine.h"
#include "platform/microphone_watch.h"

namespace corvane {

/// Listens while the window is on the screen: starts when it comes there and whenever it becomes
/// the active one, stops when it is minimised, hidden, or on another workspace, as far as the
/// desktop tells. A window that is merely inactive or covered goes on listening, so that one can
/// tune while reading a score. A microphone that comes meanwhile is taken up; that there is none
/// any more, or that it is denied, is told by starting once again.
class ListeningSwitch : public QObject {
 public:
  /// `window` and `watch` must outlive the switch. After `grace` without a microphone the user
  /// reads that there is none; a device that is being replaced is back sooner.
  ListeningSwitch(QWindow& window, std::shared_ptr<TunerEngine> engine, MicrophoneWatch& watch,
                  std::chrono::milliseconds grace = std::chrono::milliseconds(1500));

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void look();
  bool isShown() const;
  void setOnScreen(bool shown);
  void activeChanged();
  void listeningChanged();
  void microphoneChanged(bool present);
  void tellOfAbsence();

  QWindow& window;
  std::shared_ptr<TunerEngine> engine;
  MicrophoneWatch& watch;
  QTimer absence;
  QTimer unexposed;
  std::shared_ptr<const void> observation;
  bool onScreen = false;
};

}  // namespace corvane
