#pragma once

#include <QString>

namespace corvane {

// The screen's figures in words, for those who hear it read.

/// "4 cents flat", "1 cent sharp", in whole cents; "no cents off" when that is none.
QString deviationInWords(double cents);

/// What a meter shows that spans `span` cents either side of its centre: "E2, 4 cents flat", "E2,
/// more than 10 cents sharp" where its needle has come to its end, "nothing heard".
QString meterInWords(bool heard, const QString& note, double cents, double span);

/// The level (0 to 1) in tens of a percent: "60 percent"; "silent" for less than half a percent.
QString levelInWords(double signal);

}  // namespace corvane
