#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "engine/apply_sink.h"
#include "engine/tuner_engine.h"
#include "fuzz/bytes.h"
#include "tests/support/fake_platform.h"

namespace corvane::fuzz {

/// A user, a player and an audio server who do anything at any time to one engine, as the input
/// says. Stops the program when the engine breaks a rule.
class EngineSession {
 public:
  explicit EngineSession(Bytes input);

  /// One action, after which every invariant is looked at.
  void step();
  bool isOver() const { return input.empty(); }

 private:
  using Reading = std::optional<PitchDetector::Reading>;
  using Action = void (EngineSession::*)();

  // engine_user.cpp
  void chooseInstrument();
  void chooseTuning();
  void lockOrRelease();
  void choosePitch();
  void flipHand();
  void start();
  void stop();
  void hideOrShow();
  void openMicSettings();
  void abandonRequest();
  void pressReference();
  void restart();

  // engine_server.cpp
  void changePermission();
  void answerRequest();
  void changeDevice();
  void answerStart();
  void deliverSound();
  void changeOutput();
  void endTones();
  void deliverReading();
  void runMainThread();
  void letTimePass();

  // engine_session.cpp
  void launch();
  Reading anyReading();
  Reading detected(std::span<const float> block);
  double smoothed(double heard);
  void checkApplied(const std::vector<Reading>& applied, double expected);
  void checkPositions() const;
  void checkDisplay() const;
  void checkTexts() const;
  void checkSaved() const;

  /// Which stretch of unbroken sound the tap is in: what lies in different ones is never joined.
  float moment() const;

  static const Action actions[22];

  Bytes input;
  fakes::World world;
  std::shared_ptr<TunerEngine> engine;
  std::shared_ptr<const void> hiding;
  std::unique_ptr<ApplySink> sink;
  bool onScreen = true;
  int gaps = 0;
  int presses = 0;
  std::vector<Reading> inFlight;  ///< on their way to the main thread
  std::deque<double> raw;         ///< Hz, of the last accepted readings that smoothing may know
  Clock::Time quietUntil = Clock::Time::min();  ///< no reading counts before
};

}  // namespace corvane::fuzz
