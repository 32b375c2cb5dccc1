#include "ui/listening_switch.h"

#include <utility>

namespace corvane {

ListeningSwitch::ListeningSwitch(QWindow& shown, std::shared_ptr<TunerEngine> tuner)
    : window(shown), engine(std::move(tuner)) {
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
  } else {
    engine->stop();
  }
}

/// The answer to a request for the microphone may come when the window has gone again.
void ListeningSwitch::listeningChanged() {
  if (engine->listening() && !onScreen) engine->stop();
}

void ListeningSwitch::activeChanged() {
  if (window.isActive()) engine->start();
}

}  // namespace corvane
