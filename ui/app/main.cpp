// SPDX-License-Identifier: MIT
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <cstdlib>
#include <memory>

#include "base/require.h"
#include "engine/tuner_engine.h"
#include "platform/clock.h"
#include "platform/pulse/pulse_audio_input.h"
#include "platform/pulse/pulse_audio_output.h"
#include "platform/pulse/pulse_connection.h"
#include "platform/pulse/pulse_microphone_permission.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/qt/qt_preferences.h"
#include "platform/qt/qt_url_opener.h"
#include "ui/app/application.h"
#include "ui/app/command_line.h"
#include "ui/app/dark_frame.h"
#include "ui/app/first_size.h"
#include "ui/app/listening_switch.h"
#include "ui/app/text_zoom.h"
#include "ui/app/window_icon.h"
#include "ui/model/tuner_model.h"
#include "ui/paint/frame_pace.h"

namespace {

using namespace corvane;

/// The window that shows `tuner`; null if it cannot be created.
QQuickWindow* showWindow(QQmlApplicationEngine& qml, TunerModel& tuner) {
  qml.setInitialProperties({{"tuner", QVariant::fromValue(&tuner)}, {"textZoom", takeTextZoom()}});
  qml.addImportPath("qrc:/qt/qml");  // Qt 6.5 and later search it anyway.
  qml.load(QUrl("qrc:/qt/qml/Corvane/app/Main.qml"));
  const QObjectList roots = qml.rootObjects();
  return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.front());
}

/// Runs the program. When it returns the exit status, settings are saved and streams are closed.
int tune() {
  QGuiApplication::setApplicationDisplayName("Corvane");
  QGuiApplication::setDesktopFileName("org.corvane.Corvane");
  FramePace pace;
  pace.install();

  const auto mainQueue = std::make_shared<QtMainQueue>();
  PulseConnection connection(*mainQueue);
  const Platform platform{
      .clock = std::make_shared<SteadyClock>(),
      .mainQueue = mainQueue,
      .audioInput = std::make_shared<PulseAudioInput>(connection, *mainQueue),
      .audioOutput = std::make_shared<PulseAudioOutput>(connection),
      .microphonePermission = std::make_shared<PulseMicrophonePermission>(connection, *mainQueue),
      .preferences = std::make_shared<QtPreferences>(),
      .urlOpener = std::make_shared<QtUrlOpener>(),
  };
  const auto engine = TunerEngine::create(platform);

  TunerModel tuner(engine, platform.urlOpener);
  QQmlApplicationEngine qml;
  QQuickWindow* window = showWindow(qml, tuner);
  require(window != nullptr, "the QML of the window loads");
  const ListeningSwitch listening(*window, engine);
  fitToScreen(*window);
  showIcon(*window);
  askForDarkFrame(*window);
  window->show();
  return QGuiApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto status = answerCommandLine(argc, argv)) return *status;

  // A GPU context would cost more memory than the rest of the program.
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);

  const auto app = openApplication(argc, argv);
  const int status = tune();
  // Qt 6.4 on Wayland can wait for its event thread forever when the application is destroyed.
  if (QGuiApplication::platformName().startsWith("wayland")) std::_Exit(status);
  return status;
}
