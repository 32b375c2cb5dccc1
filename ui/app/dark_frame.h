#pragma once

#include <QWindow>

namespace corvane {

/// Asks for a dark title bar and border, whatever the desktop's own are. Before `window` is shown.
void askForDarkFrame(QWindow& window);

}  // namespace corvane
