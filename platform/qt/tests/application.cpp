// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <memory>

namespace corvane {
namespace {

/// The application of all tests in this program.
class Application final : public testing::Environment {
  void SetUp() override { app = std::make_unique<QCoreApplication>(argc, argv); }
  void TearDown() override { app.reset(); }

  int argc = 1;
  char name[8] = "qt_test";
  char* argv[2] = {name, nullptr};
  std::unique_ptr<QCoreApplication> app;
};

[[maybe_unused]] testing::Environment* const application =
    testing::AddGlobalTestEnvironment(new Application);

}  // namespace
}  // namespace corvane
