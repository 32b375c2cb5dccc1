// SPDX-License-Identifier: MIT
// Any bytes in the preferences file: the tuner starts with a valid selection, saves it, and
// restores it at the next start.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <bit>
#include <cstdint>
#include <memory>

#include "base/require.h"
#include "platform/qt/qt_preferences.h"
#include "tests/support/fake_platform.h"
#include "tunings/tuning_library.h"

namespace corvane::fuzz {
namespace {

/// In memory if the system has a memory file system: otherwise each save waits for the disk.
QString someFolder() {
  const QString memory = QStringLiteral("/dev/shm");
  return (QDir(memory).exists() ? memory : QDir::tempPath()) + QStringLiteral("/corvane-fuzz");
}

/// A separate file for each input.
class SettingsFile {
 public:
  SettingsFile(const std::uint8_t* data, std::size_t size) {
    static int count = 0;
    file.setFileName(folder().filePath(QString::number(++count) + QStringLiteral(".conf")));
    require(file.open(QIODevice::WriteOnly), "the file can be created");
    const auto length = static_cast<qint64>(size);
    require(file.write(reinterpret_cast<const char*>(data), length) == length,
            "the file can be written");
    file.close();
  }
  ~SettingsFile() { file.remove(); }
  SettingsFile(const SettingsFile&) = delete;
  SettingsFile& operator=(const SettingsFile&) = delete;

  QString path() const { return file.fileName(); }

 private:
  static QTemporaryDir& folder() {
    static QTemporaryDir only(someFolder());
    return only;
  }

  QFile file;
};

struct Selection {
  Instrument instrument;
  std::string tuning;
  std::uint64_t a4;
  bool leftHanded;

  bool operator==(const Selection&) const = default;
};

/// The selection after a start. Everything is saved on return.
Selection start(const QString& path) {
  const fakes::World world;
  Platform platform = world.platform();
  platform.preferences = std::make_shared<QtPreferences>(path);
  const auto engine = TunerEngine::create(std::move(platform),
                                          PitchCapture::create(std::make_unique<InlineQueue>()));
  require(TuningLibrary::find(engine->state().instrument, engine->state().tuningID) != nullptr,
          "the tuning belongs to the instrument");
  require(engine->state().a4 >= 377.0 && engine->state().a4 <= 560.0,
          "the concert pitch is in range");
  return {engine->state().instrument, engine->state().tuningID,
          std::bit_cast<std::uint64_t>(engine->state().a4), engine->state().leftHanded};
}

void checkSaved(const QString& path, const Selection& selection) {
  const QtPreferences saved(path);
  require(saved.string("tuner.instrument") == rawValue(selection.instrument),
          "the instrument is saved");
  require(saved.string("tuner.tuning") == selection.tuning, "the tuning is saved");
  require(saved.number("tuner.a4") == std::bit_cast<double>(selection.a4),
          "the concert pitch is saved");
  require(saved.boolean("tuner.left") == selection.leftHanded, "the string order is saved");
}

}  // namespace
}  // namespace corvane::fuzz

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  static QCoreApplication application(*argc, *argv);
  // Qt warns about unreadable values a thousand times a second.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvane::fuzz;
  const SettingsFile file(data, size);
  const Selection first = start(file.path());
  checkSaved(file.path(), first);
  corvane::require(start(file.path()) == first, "the next start restores the selection");
  return 0;
}
