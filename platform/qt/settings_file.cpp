// SPDX-License-Identifier: MIT
#include "platform/qt/settings_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace corvane {
namespace {

/// Many times what the settings need; a larger file is something else.
constexpr qint64 largestFile = 64 * 1024;

/// An flock, which the system releases even if the program is killed; a lock file could be left
/// behind. Some network file systems cannot lock a folder; then the lock is never taken.
class FolderLock {
 public:
  explicit FolderLock(const QString& folder)
      : descriptor(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
        othersHoldIt(descriptor >= 0 && flock(descriptor, LOCK_EX | LOCK_NB) != 0 &&
                     errno == EWOULDBLOCK) {}
  ~FolderLock() {
    if (descriptor >= 0) close(descriptor);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  bool isTaken() const { return othersHoldIt; }

 private:
  const int descriptor;
  const bool othersHoldIt;
};

}  // namespace

std::optional<SettingsText::Values> SettingsFile::read() const {
  const QFileInfo info(path);
  if (!info.exists()) return SettingsText::Values();
  // Opening a pipe would wait for a writer.
  if (!info.isFile()) return std::nullopt;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const QByteArray text = file.read(largestFile + 1);
  if (file.error() != QFile::NoError || text.size() > largestFile) return std::nullopt;
  return SettingsText::parse(text);
}

SettingsFile::Outcome SettingsFile::change(const SettingsText::Values& values) const {
  const QString folder = QFileInfo(path).path();
  QDir().mkpath(folder);
  const FolderLock lock(folder);
  if (lock.isTaken()) return Outcome::busy;
  const auto held = read();
  if (!held) return Outcome::failed;
  auto next = values;
  next.insert(held->begin(), held->end());
  return next == *held || replace(SettingsText::format(next)) ? Outcome::done : Outcome::failed;
}

/// Through a second file with a fixed name: if a killed program leaves it behind, the next one
/// removes it, or anything else of that name, and creates its own.
bool SettingsFile::replace(const QByteArray& text) const {
  const QFileInfo old(path);
  if (old.exists() && !old.isWritable()) return false;
  const QString target = old.exists() ? old.canonicalFilePath() : path;
  QFile next(target + QStringLiteral(".new"));
  std::error_code error;
  std::filesystem::remove(next.filesystemFileName(), error);
  if (!next.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return false;
  if (old.exists()) next.setPermissions(old.permissions());
  if (next.write(text) == text.size() && next.flush() && fsync(next.handle()) == 0) {
    std::filesystem::rename(next.filesystemFileName(), QFile(target).filesystemFileName(), error);
    if (!error) return true;
  }
  // QFile::remove would first flush the data that do not fit on the disk.
  std::filesystem::remove(next.filesystemFileName(), error);
  return false;
}

}  // namespace corvane
