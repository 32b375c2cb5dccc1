// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQuickWindow>
#include <memory>

namespace corvane {
namespace {

/// The application of all tests in this program: offscreen, with the tuner's render settings.
class Application final : public testing::Environment {
  void SetUp() override {
    // A fork of a program with Qt's threads may hang, so death tests start a new process.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    app = std::make_unique<QGuiApplication>(argc, argv);
  }
  void TearDown() override { app.reset(); }

  int argc = 1;
  char name[8] = "ui_test";
  char* argv[2] = {name, nullptr};
  std::unique_ptr<QGuiApplication> app;
};

[[maybe_unused]] testing::Environment* const application =
    testing::AddGlobalTestEnvironment(new Application);

}  // namespace
}  // namespace corvane
