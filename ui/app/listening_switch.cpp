// SPDX-License-Identifier: MIT
#include "ui/app/listening_switch.h"

#include <QEvent>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QVersionNumber>
#include <utility>

namespace corvane {
namespace {

constexpr std::chrono::milliseconds exposureGrace{500};

/// On X11 a window is exposed while it is mapped. On Wayland Qt before 6.8 does not report
/// suspended windows, and reports covered windows, and those of a late compositor, as unexposed.
bool exposureReportsWorkspaces() {
  return !QGuiApplication::platformName().startsWith("wayland") ||
         QLibraryInfo::version() >= QVersionNumber(6, 8);
}

}  // namespace

ListeningSwitch::ListeningSwitch(QWindow& shown, std::shared_ptr<TunerEngine> tuner)
    : window(shown), engine(std::move(tuner)) {
  unexposed.setSingleShot(true);
  unexposed.setInterval(exposureGrace);
  connect(&unexposed, &QTimer::timeout, this, [this] { setOnScreen(false); });
  connect(&window, &QWindow::visibilityChanged, this, &ListeningSwitch::look);
  connect(&window, &QWindow::activeChanged, this, &ListeningSwitch::activeChanged);
  observation = engine->observe([this](const DisplayState&, const DisplayState& now) {
    if (now.listening && !onScreen) engine->stop();
  });
  window.installEventFilter(this);
  look();
}

bool ListeningSwitch::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose) look();
  return QObject::eventFilter(watched, event);
}

/// A window is unexposed for a moment while it is being reparented.
void ListeningSwitch::look() {
  if (!isShown()) return setOnScreen(false);
  if (!window.isExposed() && exposureReportsWorkspaces()) {
    if (onScreen && !unexposed.isActive()) unexposed.start();
    return;
  }
  setOnScreen(true);
}

bool ListeningSwitch::isShown() const {
  return window.isVisible() && window.visibility() != QWindow::Minimized;
}

void ListeningSwitch::setOnScreen(bool shown) {
  unexposed.stop();
  if (shown == std::exchange(onScreen, shown)) return;
  shown ? engine->start() : engine->stop();
}

void ListeningSwitch::activeChanged() {
  if (onScreen && window.isActive()) engine->start();
}

}  // namespace corvane
