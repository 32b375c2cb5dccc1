#include "ui/listening_switch.h"

#include <utility>

namespace corvane {

ListeningSwitch::ListeningSwitch(QWindow& shown, std::shared_ptr<TunerEngine> tuner)
    : window(shown), engine(std::move(tuner)) {
  connect(&window, &QWindow::visibilityChanged, this, &ListeningSwitch::visibilityChanged);
  connect(&window, &QWindow::activeChanged, this, &ListeningSwitch::activeChanged);
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

void ListeningSwitch::activeChanged() {
  if (window.isActive()) engine->start();
}

}  // namespace corvane
