// SPDX-License-Identifier: MIT
#pragma once

class QFont;

namespace corvane {

/// The screen's scale for a desktop with the font `system` at `dotsPerInch`: 1 up to 11 points, the
/// largest default of a desktop, proportional above, at most 2.
double textZoom(const QFont& system, double dotsPerInch);

/// The same for the application's font and first screen. If it is above 1, turns off the hinting of
/// the application's texts: an enlarged text is clipped to its unscaled size, so widths must be
/// proportional.
double takeTextZoom();

}  // namespace corvane
