#pragma once

class QWindow;

namespace corvane {

/// What is left of the screen's height, in points, for a title bar, which nobody can measure before
/// the window is shown.
inline constexpr int titleBarHeight = 40;

/// Makes a window that is to be shown no larger than its screen has room for, and no smaller than
/// its own minimum.
void fitToScreen(QWindow& window);

}  // namespace corvane
