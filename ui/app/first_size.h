// SPDX-License-Identifier: MIT
#pragma once

class QWindow;

namespace corvane {

/// Height in points reserved for the title bar, which cannot be measured before the window is
/// shown.
inline constexpr int titleBarHeight = 40;

/// Limits the size of a window that is not shown yet to its screen, but not below its minimum.
void fitToScreen(QWindow& window);

}  // namespace corvane
