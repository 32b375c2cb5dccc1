#pragma once

class QFont;

namespace corvane {

/// By how much the screen is to be larger for a user whose desktop writes in `system`, on a screen
/// of `dotsPerInch`: 1 up to 11 points, the largest that a desktop starts with, and in proportion
/// above, up to 2.
double textZoom(const QFont& system, double dotsPerInch);

/// The same for the font and the first screen of the running application.
double textZoom();

}  // namespace corvane
