// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

namespace corvane {

/// The page about what the program does with sound.
namespace PrivacyPolicy {

/// The text of the link and of the menu item.
QString title();

/// Its address, set at configuration: a web address, or a path relative to the program's folder.
/// An invalid address stops the program.
const QUrl& url();

}  // namespace PrivacyPolicy
}  // namespace corvane
