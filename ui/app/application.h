#pragma once

#include <QGuiApplication>
#include <memory>

namespace corvane {

/// The application on its display. Where no display can be opened, ends the program with one line
/// on standard error and status 1. `argc` and `argv` must outlive what is returned.
std::unique_ptr<QGuiApplication> openApplication(int& argc, char** argv);

}  // namespace corvane
