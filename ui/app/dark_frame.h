// SPDX-License-Identifier: MIT
#pragma once

#include <QWindow>

namespace corvane {

/// Requests a dark title bar and border. Call before `window` is shown.
void askForDarkFrame(QWindow& window);

}  // namespace corvane
