#pragma once

#include <QString>
#include <QUrl>

namespace corvane {

/// The page that tells what the program does with sound.
namespace PrivacyPolicy {

/// The text of the link and of the menu item.
QString title();

/// Its address, set when the program is configured: a web address, or a path from the program's
/// folder. One that does not parse stops the program.
const QUrl& url();

}  // namespace PrivacyPolicy
}  // namespace corvane
