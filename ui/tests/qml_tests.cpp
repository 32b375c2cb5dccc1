// SPDX-License-Identifier: MIT
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>
#include <QtQuickTest>

#include "ui/tests/fake_tuner.h"
#include "ui/tests/probe.h"

Q_IMPORT_QML_PLUGIN(CorvanePlugin)

/// Prepares the program that runs the tst_*.qml files.
class Setup : public QObject {
  Q_OBJECT

 public slots:
  void applicationAvailable() {
    // The program's render settings.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    qmlRegisterType<corvane::FakeTuner>("Corvane.Fakes", 1, 0, "FakeTuner");
    qmlRegisterType<corvane::Probe>("Corvane.Fakes", 1, 0, "Probe");
  }

  void qmlEngineAvailable(QQmlEngine* engine) { engine->addImportPath("qrc:/qt/qml"); }
};

int main(int argc, char** argv) {
  Setup setup;
  return quick_test_main_with_setup(argc, argv, "screen", QML_TESTS_DIR, &setup);
}

#include "qml_tests.moc"
