// SPDX-License-Identifier: MIT
#pragma once

namespace corvane {

/// False if the session bus accepts a connection but does not answer for three seconds: Qt would
/// wait for it without a limit. True if there is no bus, which Qt handles.
bool sessionBusAnswers();

}  // namespace corvane
