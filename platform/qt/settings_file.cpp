#include "platform/qt/settings_file.h"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <filesystem>
#include <system_error>

namespace corvane {
namespace {

/// Many times what the settings need; whatever is larger is something else.
constexpr qint64 largestFile = 64 * 1024;

}  // namespace

std::optional<SettingsText::Values> SettingsFile::read() const {
  const QFileInfo info(path);
  if (!info.exists()) return SettingsText::Values();
  // To open a pipe would wait for somebody to write to it.
  if (!info.isFile()) return std::nullopt;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const QByteArray text = file.read(largestFile);
  if (file.error() != QFile::NoError) return std::nullopt;
  return SettingsText::parse(text);
}

SettingsFile::Outcome SettingsFile::change(const SettingsText::Values& changes) const {
  QDir().mkpath(QFileInfo(path).path());
  QLockFile lock(path + QStringLiteral(".lock"));
  if (!lock.tryLock(0)) {
    return lock.error() == QLockFile::LockFailedError ? Outcome::busy : Outcome::failed;
  }
  auto values = read();
  if (!values) return Outcome::failed;
  for (const auto& [key, value] : changes) (*values)[key] = value;
  return replace(SettingsText::format(*values)) ? Outcome::done : Outcome::failed;
}

/// By way of a second file, always of the same name: if a program that is killed leaves it behind,
/// the next one takes it.
bool SettingsFile::replace(const QByteArray& text) const {
  const QFileInfo old(path);
  if (old.exists() && !old.isWritable()) return false;
  const QString target = old.exists() ? old.canonicalFilePath() : path;
  QFile next(target + QStringLiteral(".new"));
  if (!next.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
  if (old.exists()) next.setPermissions(old.permissions());
  std::error_code error;
  if (next.write(text) == text.size() && next.flush() && fsync(next.handle()) == 0) {
    std::filesystem::rename(next.filesystemFileName(), QFile(target).filesystemFileName(), error);
    if (!error) return true;
  }
  next.remove();
  return false;
}

}  // namespace corvane
