// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>
#include <memory>

namespace corvane {

/// Creates the application. If no display can be opened, ends the program with one line on standard
/// error and status 1. `argc` and `argv` must outlive the result.
std::unique_ptr<QGuiApplication> openApplication(int& argc, char** argv);

}  // namespace corvane
