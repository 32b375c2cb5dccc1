// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace corvane {

/// "+3.0 ¢", "−12.3 ¢", "0.0 ¢": one decimal, the sign taken before rounding; "0.0 ¢" when nothing
/// is heard.
QString centsText(bool heard, double cents);

/// "440.0 Hz", or "— Hz" when nothing is heard.
QString frequencyText(bool heard, double hertz);

/// "Hearing A4", or empty when nothing is heard, on the piano (whose note says it already), or when
/// there is no spelling.
QString hearingText(bool heard, bool isPiano, std::string_view spelling);

/// "−50   0   +50" for a span of 50, which must be finite.
QString scaleText(double span);

}  // namespace corvane
