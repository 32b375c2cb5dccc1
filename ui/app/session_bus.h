#pragma once

namespace corvane {

/// False when the desktop's message bus takes our connection and then says nothing for three
/// seconds. The toolkit would wait for it without end. One that is not there the toolkit does
/// without.
bool sessionBusAnswers();

}  // namespace corvane
