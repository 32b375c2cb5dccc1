#include "ui/listening_switch.h"

#include <utility>

namespace corvane {

ListeningSwitch::ListeningSwitch(QWindow& shown, std::shared_ptr<TunerEngine> tuner,
                                 MicrophoneWatch& microphones, std::chrono::milliseconds grace)
    : window(shown), engine(std::move(tuner)), watch(microphones) {
  absence.setSingleShot(true);
  absence.setInterval(grace);
  connect(&absence, &QTimer::timeout, this, &ListeningSwitch::tellOfAbsence);
  connect(&window, &QWindow::visibilityChanged, this, &ListeningSwitch::visibilityChanged);
  connect(&window, &QWindow::activeChanged, this, &ListeningSwitch::activeChanged);
  observation = engine->observe([this](Field field) {
    if (field == Field::listening) listeningChanged();
  });
  visibilityChanged(window.visibility());
}

void ListeningSwitch::visibilityChanged(QWindow::Visibility visibility) {
  const bool visible = visibility != QWindow::Hidden && visibility != QWindow::Minimized;
  if (visible == std::exchange(onScreen, visible)) return;
  if (visible) {
    engine->start();
    watch.begin([this](bool present) { microphoneChanged(present); });
  } else {
    watch.end();
    absence.stop();
    engine->stop();
  }
}

/// The answer to a request for the microphone may come when the window has gone again.
void ListeningSwitch::listeningChanged() {
  if (engine->listening() && !onScreen) engine->stop();
}

void ListeningSwitch::microphoneChanged(bool present) {
  absence.stop();
  if (!engine->listening()) return engine->start();
  if (!present) absence.start();
}

void ListeningSwitch::tellOfAbsence() {
  if (!engine->listening()) return;
  engine->stop();
  engine->start();
}

void ListeningSwitch::activeChanged() {
  if (onScreen && window.isActive()) engine->start();
}

}  // namespace corvane
