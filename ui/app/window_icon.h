#pragma once

class QQuickWindow;

namespace corvane {

/// Gives the window its icon once it has been drawn for the first time, which does not wait for it.
/// On X11 alone, where window managers ask the window; elsewhere they ask the desktop entry.
void showIcon(QQuickWindow& window);

}  // namespace corvane
