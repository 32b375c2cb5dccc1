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

ListeningSwitch::ListeningSwitch(QWindow& shown, std::shared_ptr<TunerEngine> tuner,
                                 MicrophoneWatch& microphones, std::chrono::milliseconds grace)
    : window(shown), engine(std::move(tuner)), watch(microphones) {
  absence.setSingleShot(true);
  absence.setInterval(grace);
  connect(&absence, &QTimer::timeout, this, &ListeningSwitch::tellOfAbsence);
  unexposed.setSingleShot(true);
  unexposed.setInterval(exposureGrace);
  connect(&unexposed, &QTimer::timeout, this, [this] { setOnScreen(false); });
  connect(&window, &QWindow::visibilityChanged, this, &ListeningSwitch::look);
  connect(&window, &QWindow::activeChanged, this, &ListeningSwitch::activeChanged);
  observation =
      engine->observe([this](const DisplayState&, const DisplayState&) { listeningChanged(); });
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
  if (shown) {
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
  if (engine->state().listening && !onScreen) engine->stop();
}

void ListeningSwitch::microphoneChanged(bool present) {
  absence.stop();
  if (!engine->state().listening) return engine->start();
  if (!present) absence.start();
}

void ListeningSwitch::tellOfAbsence() {
  if (!engine->state().listening) return;
  engine->stop();
  engine->start();
}

void ListeningSwitch::activeChanged() {
  if (onScreen && window.isActive()) engine->start();
}

}  // namespace corvane
