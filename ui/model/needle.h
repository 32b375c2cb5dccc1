#pragma once

#include <QString>

namespace corvane {

/// The x of the needle's centre for `value` cents, on a bar of `width` by `height` points that
/// spans `span` cents either side of its centre: clamped to the span, and kept wholly inside the
/// bar.
double needleCentre(double width, double height, double span, double value);

/// Whether the needles at `from` and `to` cents on such a bar are visibly apart: a steady string
/// keeps changing by thousandths of a cent. On a bar without room for a needle, whether they
/// differ.
bool needleMoves(double width, double height, double span, double from, double to);

/// "−50   0   +50" for a span of 50, which must be finite.
QString scaleText(double span);

}  // namespace corvane
