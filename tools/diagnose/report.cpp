// SPDX-License-Identifier: MIT
#include "tools/diagnose/report.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSysInfo>
#include <QThread>
#include <cmath>
#include <string>

#include "engine/tuner_engine.h"
#include "pitch/difference.h"
#include "platform/pulse/pulse_audio_input.h"
#include "platform/pulse/pulse_connection.h"
#include "platform/pulse/pulse_microphone_permission.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/qt/qt_preferences.h"
#include "tools/diagnose/counted_detector.h"
#include "tools/diagnose/server_answer.h"
#include "tools/replay/offline_platform.h"

namespace corvane::diagnose {
namespace {

/// The user's settings. The engine saves its settings when it is created; nothing is saved here.
class ReadOnlyPreferences final : public Preferences {
 public:
  std::optional<std::string> string(std::string_view key) const override {
    return stored.string(key);
  }
  std::optional<double> number(std::string_view key) const override { return stored.number(key); }
  std::optional<bool> boolean(std::string_view key) const override { return stored.boolean(key); }
  void setString(std::string_view, std::string_view) override {}
  void setNumber(std::string_view, double) override {}
  void setBoolean(std::string_view, bool) override {}

 private:
  const QtPreferences stored;
};

/// Runs the event loop until `condition` holds, for at most `longest`.
template <class Condition>
bool waitFor(std::chrono::milliseconds longest, Condition condition) {
  const QDeadlineTimer end(longest);
  while (!condition() && !end.hasExpired()) {
    QThread::msleep(10);
    QCoreApplication::processEvents();
  }
  return condition();
}

std::string inWords(RecordPermission permission) {
  switch (permission) {
    case RecordPermission::granted:
      return "granted";
    case RecordPermission::denied:
      return "denied";
    case RecordPermission::undetermined:
      return "undetermined";
    case RecordPermission::unknown:
      break;
  }
  return "unknown";
}

std::string inWords(const Counts& counts) {
  if (counts.blocks == 0) return "no blocks";
  return std::to_string(counts.blocks) + " blocks in 5 s, " + std::to_string(counts.readings) +
         " with a pitch, level " + std::to_string(std::lround(counts.softest)) + " to " +
         std::to_string(std::lround(counts.loudest)) + " dBFS";
}

std::string variable(const char* name) {
  return qEnvironmentVariable(name, "-").toStdString();
}

/// The tuner without its window.
class Report {
 public:
  explicit Report(std::ostream& lines) : out(lines) {}

  void print() {
    printSystem();
    const ServerAnswer answer = askServer();
    line("audio server", answer.server);
    line("default input", answer.input);
    engine->start();
    waitFor(longestWait, [this] { return state().listening || state().errorText; });
    line("permission", inWords(permission->recordPermission()));
    printSettings();
    line("detector", std::string(fastestDifferencePath().name));
    state().listening ? printSound() : line("sound", state().errorText.value_or("none"));
  }

 private:
  static constexpr std::chrono::seconds longestWait{30};

  const DisplayState& state() const { return engine->state(); }

  void line(const char* subject, const std::string& text) {
    out << subject << std::string(16 - std::string_view(subject).size(), ' ') << text << '\n'
        << std::flush;
  }

  void printSystem() {
    line("corvane", CORVANE_VERSION);
    line("Qt", std::string(qVersion()) + ", built with " QT_VERSION_STR);
    line("system", QSysInfo::prettyProductName().toStdString() + ", " +
                       QSysInfo::kernelType().toStdString() + ' ' +
                       QSysInfo::kernelVersion().toStdString() + ", " +
                       QSysInfo::currentCpuArchitecture().toStdString());
    line("session", variable("XDG_SESSION_TYPE") + ", " + variable("XDG_CURRENT_DESKTOP"));
  }

  void printSettings() {
    line("settings", std::string(rawValue(state().instrument)) + ", " + state().tuningID +
                         ", A4 = " + QString::number(state().a4).toStdString() + " Hz, " +
                         (state().leftHanded ? "left-handed" : "right-handed"));
  }

  /// The five seconds begin with the first block; servers take their time to start a recording.
  void printSound() {
    waitFor(longestWait, [this] { return detector->counts().blocks > 0; });
    waitFor(std::chrono::seconds(5), [] { return false; });
    line("sound", inWords(detector->counts()));
  }

  std::ostream& out;
  std::shared_ptr<CountedDetector> detector = std::make_shared<CountedDetector>();
  std::shared_ptr<QtMainQueue> mainQueue = std::make_shared<QtMainQueue>();
  PulseConnection connection{*mainQueue};
  std::shared_ptr<MicrophonePermission> permission =
      std::make_shared<PulseMicrophonePermission>(connection, *mainQueue);
  std::shared_ptr<TunerEngine> engine = TunerEngine::create(
      {std::make_shared<SteadyClock>(), mainQueue,
       std::make_shared<PulseAudioInput>(connection, *mainQueue),
       std::make_shared<replay::NoOutput>(), permission, std::make_shared<ReadOnlyPreferences>(),
       std::make_shared<replay::NoUrlOpener>()},
      PitchCapture::create(std::make_unique<SerialQueue>("corvane.pitch"),
                           [counting = detector](auto block, double rate) {
                             return counting->detect(block, rate);
                           }));
};

}  // namespace

void report(std::ostream& out) {
  Report(out).print();
}

}  // namespace corvane::diagnose
