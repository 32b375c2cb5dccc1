#pragma once

class QFont;

namespace corvane {

/// By how much the screen is to be larger for a user whose desktop writes in `system`, on a screen
/// of `dotsPerInch`: 1 up to 11 points, the largest that a desktop starts with, and in proportion
/// above, up to 2.
double textZoom(const QFont& system, double dotsPerInch);

/// The same for the font and the first screen of the running application. Where it is more than 1,
/// the application's texts are not fitted to whole pixels from now on: an enlarged text is cut to
/// the room that it takes at its own size, which has to be in proportion.
double takeTextZoom();

}  // namespace corvane
