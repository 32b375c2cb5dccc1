#pragma once

#include <QString>

namespace corvane {

/// Where the centre of a meter's needle lies on a bar of `width` by `height` points that spans
/// `span` cents either side of its centre, when it shows `value` cents: clamped to the span, and
/// kept wholly inside the bar.
double needleCentre(double width, double height, double span, double value);

/// Whether the eye can tell the needles at `from` and at `to` cents on such a bar apart: a steady
/// string goes on changing by thousandths of a cent. On a bar that has no room for a needle yet,
/// whether they differ.
bool needleMoves(double width, double height, double span, double from, double to);

/// "−50   0   +50" for a span of 50, which must be finite.
QString scaleText(double span);

}  // namespace corvane
