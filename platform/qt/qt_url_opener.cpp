// SPDX-License-Identifier: MIT
#include "platform/qt/qt_url_opener.h"

#include <QDesktopServices>
#include <QProcess>
#include <QString>
#include <QUrl>
#include <algorithm>

namespace corvane {
namespace {

struct SoundSettings {
  const char* desktop;  ///< part of the desktop's name; empty matches all
  const char* program;
  QStringList arguments;
};

bool openSoundSettings() {
  const SoundSettings known[] = {{"GNOME", "gnome-control-center", {"sound"}},
                                 {"KDE", "systemsettings", {"kcm_pulseaudio"}},
                                 {"", "pavucontrol", {}},
                                 {"", "pavucontrol-qt", {}}};
  const QByteArray desktop = qgetenv("XDG_CURRENT_DESKTOP");
  return std::ranges::any_of(known, [&desktop](const SoundSettings& each) {
    return desktop.contains(each.desktop) && QProcess::startDetached(each.program, each.arguments);
  });
}

}  // namespace

bool QtUrlOpener::openURL(std::string_view address) {
  const QUrl url(QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size())),
                 QUrl::StrictMode);
  const QString scheme = url.scheme();
  if (scheme == u"x-apple.systempreferences") return openSoundSettings();
  const bool known = scheme == u"https" || scheme == u"http" || scheme == u"file";
  return url.isValid() && known && QDesktopServices::openUrl(url);
}

}  // namespace corvane
