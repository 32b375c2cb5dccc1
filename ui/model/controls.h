#pragma once

#include <QColor>
#include <QString>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "tunings/instrument.h"
#include "tunings/tuning.h"

namespace corvane {

/// One section of the tuning menu.
struct TuningGroup {
  std::string name;
  std::vector<Tuning> tunings;
};

/// The concert pitches that have a chip of their own, in whole hertz.
inline constexpr std::array<std::int64_t, 4> quickPitches = {415, 432, 440, 466};

/// The instrument's tunings by their group: groups in the order in which they first occur, tunings
/// in the library's order.
std::vector<TuningGroup> groupedTunings(Instrument instrument);

/// `a4` (Hz) as a whole number, halves away from zero.
std::int64_t wholeHertz(double a4);

/// The title of the preset that `a4` rounds to, or "Custom".
QString concertPitchTitle(double a4);

/// The fill of a string chip. Being selected shows in its outline only.
QColor chipFill(bool selected, bool hearing, bool inTune);

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
