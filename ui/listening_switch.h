#pragma once

#include <QObject>
#include <QWindow>
#include <memory>

#include "engine/tuner_engine.h"

namespace corvane {

/// Listens while the user can see the window: starts when it is shown and whenever it becomes the
/// active one, stops when it is minimised or hidden. A window that is merely not active goes on
/// listening, so that one can tune while reading a score.
class ListeningSwitch : public QObject {
 public:
  /// `window` must outlive the switch.
  ListeningSwitch(QWindow& window, std::shared_ptr<TunerEngine> engine);

 private:
  void visibilityChanged(QWindow::Visibility visibility);
  void activeChanged();
  void listeningChanged();

  QWindow& window;
  std::shared_ptr<TunerEngine> engine;
  std::shared_ptr<const void> observation;
  bool onScreen = false;
};

}  // namespace corvane
