// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/fake_platform.h"
#include "ui/model/tuner_model.h"

namespace corvane {

/// The screen's model on a real engine with a fake platform, which tests control.
class FakeTuner : public TunerModel {
  Q_OBJECT
  Q_PROPERTY(bool listening READ listening)
  Q_PROPERTY(int opened READ opened)
  Q_PROPERTY(int tones READ tones)
  Q_PROPERTY(int lockedString READ lockedString)
  Q_PROPERTY(QString tuningID READ tuningID)

 public:
  explicit FakeTuner(QObject* parent = nullptr);

  Q_INVOKABLE void hear(double frequency);  ///< a reading of so many Hz
  Q_INVOKABLE void hearNothing();
  Q_INVOKABLE void start() { engine->start(); }
  /// Starts listening without a microphone, so that the message appears.
  Q_INVOKABLE void loseMicrophone();
  Q_INVOKABLE void findMicrophone();
  Q_INVOKABLE void endTone();

  bool listening() const { return engine->state().listening; }
  /// How many pages were opened.
  int opened() const { return static_cast<int>(world->urlOpener->opened.size()); }
  int tones() const { return static_cast<int>(world->output->played.size()); }
  int lockedString() const;  ///< -1 when none is
  QString tuningID() const { return QString::fromStdString(engine->state().tuningID); }

 private:
  FakeTuner(std::shared_ptr<fakes::World> world, QObject* parent);
  FakeTuner(std::shared_ptr<fakes::World> world, std::shared_ptr<TunerEngine> engine,
            QObject* parent);

  std::shared_ptr<fakes::World> world;
  std::shared_ptr<TunerEngine> engine;
};

}  // namespace corvane
