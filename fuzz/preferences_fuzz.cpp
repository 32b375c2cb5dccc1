// Any bytes where the preferences should be: the tuner starts with a valid selection, saves it, and
// finds it again when it starts the next time.

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

/// In memory where the system offers that: each save waits for the disk otherwise.
QString someFolder() {
  const QString memory = QStringLiteral("/dev/shm");
  return (QDir(memory).exists() ? memory : QDir::tempPath()) + QStringLiteral("/corvane-fuzz");
}

/// A file of its own for each input.
class SettingsFile {
 public:
  SettingsFile(const std::uint8_t* data, std::size_t size) {
    static int count = 0;
    file.setFileName(folder().filePath(QString::number(++count) + QStringLiteral(".conf")));
    require(file.open(QIODevice::WriteOnly), "a file can be made");
    const auto length = static_cast<qint64>(size);
    require(file.write(reinterpret_cast<const char*>(data), length) == length, "and filled");
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

/// What the tuner starts with; all is saved when it has gone.
Selection start(const QString& path) {
  const fakes::World world;
  Platform platform = world.platform();
  platform.preferences = std::make_shared<QtPreferences>(path);
  const auto engine = TunerEngine::create(std::move(platform),
                                          PitchCapture::create(std::make_unique<InlineQueue>()));
  require(TuningLibrary::find(engine->state().instrument, engine->state().tuningID) != nullptr,
          "the tuning is one of the instrument's");
  require(engine->state().a4 >= 377.0 && engine->state().a4 <= 560.0,
          "the concert pitch is in range");
  return {engine->state().instrument, engine->state().tuningID,
          std::bit_cast<std::uint64_t>(engine->state().a4), engine->state().leftHanded};
}

void checkSaved(const QString& path, const Selection& selection) {
  const QtPreferences saved(path);
  require(saved.string("tuner.instrument") == rawValue(selection.instrument), "kept: instrument");
  require(saved.string("tuner.tuning") == selection.tuning, "kept: tuning");
  require(saved.number("tuner.a4") == std::bit_cast<double>(selection.a4), "kept: concert pitch");
  require(saved.boolean("tuner.left") == selection.leftHanded, "kept: hand");
}

}  // namespace
}  // namespace corvane::fuzz

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  static QCoreApplication application(*argc, *argv);
  // The toolkit tells of what it cannot read, a thousand times a second.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvane::fuzz;
  const SettingsFile file(data, size);
  const Selection first = start(file.path());
  checkSaved(file.path(), first);
  corvane::require(start(file.path()) == first, "the next start finds what was saved");
  return 0;
}
