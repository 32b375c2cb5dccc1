#pragma once

class QWindow;

namespace corvane {

/// Makes a window that is to be shown no higher than its screen has room for, and no lower than
/// its own minimum.
void fitToScreen(QWindow& window);

}  // namespace corvane
