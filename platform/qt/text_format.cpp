#include "platform/qt/text_format.h"

#include <QIODevice>
#include <QString>

namespace corvane {
namespace {

/// Of a heading, in brackets, or nothing for `[General]`.
QString section(const QString& heading) {
  const QString name = heading.section(u']', 0, 0) + u']';
  return name == u"[General]" ? QString() : name;
}

bool read(QIODevice& device, QSettings::SettingsMap& values) {
  const QString text = QString::fromUtf8(device.readAll());
  QString prefix;
  for (const QStringView untrimmed : QStringView(text).split(u'\n')) {
    const QString line = untrimmed.trimmed().toString();
    const qsizetype equals = line.indexOf(u'=');
    if (line.startsWith(u'[')) {
      prefix = section(line);
    } else if (equals > 0 && !line.startsWith(u';') && !line.startsWith(u'#')) {
      values.insert(prefix + line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
    }
  }
  return true;
}

bool write(QIODevice& device, const QSettings::SettingsMap& values) {
  QString general = QStringLiteral("[General]\n");
  QString others;
  QString lastSection;
  for (auto entry = values.begin(); entry != values.end(); ++entry) {
    const QString line = entry.key() + u'=' + entry->toString() + u'\n';
    if (!line.startsWith(u'[')) {
      general += line;
      continue;
    }
    const qsizetype name = line.indexOf(u']') + 1;
    if (line.first(name) != lastSection) others += u'\n' + line.first(name) + u'\n';
    lastSection = line.first(name);
    others += line.sliced(name);
  }
  const QByteArray bytes = (general + others).toUtf8();
  return device.write(bytes) == bytes.size();
}

}  // namespace

QSettings::Format textFormat() {
  static const QSettings::Format format =
      QSettings::registerFormat(QStringLiteral("conf"), read, write);
  return format;
}

}  // namespace corvane
