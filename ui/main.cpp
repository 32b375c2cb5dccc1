#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <memory>

#include "base/require.h"
#include "engine/tuner_engine.h"
#include "platform/clock.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/qt/qt_preferences.h"
#include "platform/qt/qt_url_opener.h"
#include "ui/listening_switch.h"
#include "ui/tuner_model.h"

int main(int argc, char** argv) {
  return 0;
}
