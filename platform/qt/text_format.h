#pragma once

#include <QSettings>

namespace corvane {

/// Settings as lines of `key=value` under headings in brackets, where every value is the text that
/// stands there. The toolkit's own INI format would build whatever objects the text describes, and
/// overflow the stack on a file that describes lists within lists.
///
/// Keys under `[General]` go by their name alone, others by their heading and name, `[other]key`.
/// Lines that are neither are not kept. Any thread.
QSettings::Format textFormat();

}  // namespace corvane
