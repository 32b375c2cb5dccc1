#pragma once

namespace corvane {

/// Begins the application of this program anew: no window of it has had the keyboard.
void restartApplication();

}  // namespace corvane
