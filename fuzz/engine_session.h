// SPDX-License-Identifier: MIT
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

/// A user, a player and an audio server acting on one engine as the input says. Stops the program
/// when an invariant fails.
class EngineSession {
 public:
  explicit EngineSession(Bytes input);

  /// One action, then a check of every invariant.
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
  void allowMicrophone();
  void pressReference();
  void restart();

  // engine_server.cpp
  void changePermission();
  void answerRequest();
  void changeDevice();
  void reportDevice();
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

  /// Identifies the stretch of uninterrupted sound; blocks never join two of them.
  float moment() const;

  static const Action actions[23];

  Bytes input;
  fakes::World world;
  std::shared_ptr<TunerEngine> engine;
  std::unique_ptr<ApplySink> sink;
  bool onScreen = true;
  int gaps = 0;
  int presses = 0;
  std::vector<Reading> inFlight;                ///< posted to the main thread
  std::deque<double> raw;                       ///< Hz, the smoothing history of the model
  Clock::Time quietUntil = Clock::Time::min();  ///< readings before are ignored
};

}  // namespace corvane::fuzz
