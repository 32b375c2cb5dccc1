// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace corvane {

// The screen's figures in words.

/// "4 cents flat", "1 cent sharp" in whole cents; "no cents off" for zero.
QString deviationInWords(double cents);

/// A meter that spans `span` cents either side of its centre: "E2, 4 cents flat", "E2, more than 10
/// cents sharp" beyond its end, or "nothing heard".
QString meterInWords(bool heard, const QString& note, double cents, double span);

/// The level (0 to 1) in tens of a percent: "60 percent"; "silent" for less than half a percent.
QString levelInWords(double signal);

}  // namespace corvane
