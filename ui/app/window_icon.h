// SPDX-License-Identifier: MIT
#pragma once

class QQuickWindow;

namespace corvane {

/// Sets the window's icon after its first frame, so as not to delay it. Only on X11: elsewhere the
/// icon comes from the desktop entry.
void showIcon(QQuickWindow& window);

}  // namespace corvane
