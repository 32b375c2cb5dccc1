#pragma once

#include <QStringList>

#include "tests/support/fake_platform.h"
#include "ui/tuner_model.h"

namespace corvane {

/// The screen's own model on a real engine in a world of fakes, and the strings to pull in there.
class FakeTuner : public TunerModel {
  Q_OBJECT
  Q_PROPERTY(QString permission READ permission WRITE setPermission)
  Q_PROPERTY(bool listening READ listening)
  Q_PROPERTY(int requests READ requests)
  Q_PROPERTY(QStringList opened READ opened)
  Q_PROPERTY(int tones READ tones)
  Q_PROPERTY(int lockedString READ lockedString)
  Q_PROPERTY(QString tuningID READ tuningID)

 public:
  explicit FakeTuner(QObject* parent = nullptr);

  /// A reading of `frequency` (Hz), `confidence` (0 to 1) and `rms` (0 to 1).
  Q_INVOKABLE void hear(double frequency, double confidence = 0.99, double rms = 0.05);
  Q_INVOKABLE void hearNothing();
  Q_INVOKABLE void start() { engine->start(); }
  /// Listens without a microphone, which puts a message on the screen.
  Q_INVOKABLE void loseMicrophone();
  Q_INVOKABLE void findMicrophone();
  Q_INVOKABLE void endTone();
  /// Of the last tone that was played, in Hz, from its zero crossings; 0 when there was none.
  Q_INVOKABLE double toneFrequency() const;

  QString permission() const;  ///< "undetermined", "denied", "granted" or "unknown"
  void setPermission(const QString& name);
  bool listening() const { return engine->listening(); }
  int requests() const { return static_cast<int>(world->permission->requests.size()); }
  QStringList opened() const;
  int tones() const { return static_cast<int>(world->output->played.size()); }
  int lockedString() const;  ///< -1 when none is
  QString tuningID() const { return QString::fromStdString(engine->tuningID()); }

 private:
  FakeTuner(std::shared_ptr<fakes::World> world, QObject* parent);
  FakeTuner(std::shared_ptr<fakes::World> world, std::shared_ptr<TunerEngine> engine,
            QObject* parent);

  std::shared_ptr<fakes::World> world;
  std::shared_ptr<TunerEngine> engine;
};

}  // namespace corvane
