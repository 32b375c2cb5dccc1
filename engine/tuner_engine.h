// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/display_state.h"
#include "engine/observers.h"
#include "pitch/pitch_capture.h"
#include "pitch/pitch_detector.h"
#include "pitch/pitch_math.h"
#include "platform/audio_input.h"
#include "platform/audio_output.h"
#include "platform/clock.h"
#include "platform/main_queue.h"
#include "platform/microphone_permission.h"
#include "platform/preferences.h"
#include "platform/url_opener.h"
#include "tunings/instrument.h"
#include "tunings/tuning.h"

namespace corvane {

class ApplySink;

/// What the engine reaches the outside world through; nothing here is null.
struct Platform {
  std::shared_ptr<Clock> clock;
  std::shared_ptr<MainQueue> mainQueue;
  std::shared_ptr<AudioInput> audioInput;
  std::shared_ptr<AudioOutput> audioOutput;
  std::shared_ptr<MicrophonePermission> microphonePermission;
  std::shared_ptr<Preferences> preferences;
  std::shared_ptr<UrlOpener> urlOpener;
};

/// The tuner itself: owns the user's selection, turns readings into what the screen shows, and
/// decides when to listen and to play. One for the life of the program; main thread only.
class TunerEngine : public std::enable_shared_from_this<TunerEngine> {
 public:
  /// Reads the four preferences, replaces what is not valid in them and saves them back once.
  /// Starts nothing.
  static std::shared_ptr<TunerEngine> create(
      Platform platform, std::shared_ptr<PitchCapture> capture = PitchCapture::create());
  ~TunerEngine();
  TunerEngine(const TunerEngine&) = delete;
  TunerEngine& operator=(const TunerEngine&) = delete;

  const DisplayState& state() const { return current; }

  /// While the handle lives, `observer` is called once at the end of each call into the engine that
  /// has changed the state. It may call into the engine, but not each time: NaN counts as a change.
  [[nodiscard]] std::shared_ptr<const void> observe(Observers::Observer observer);

  /// The tuning that `tuningID` names for this instrument, or the instrument's first.
  const Tuning& tuning() const;

  // These setters save all four preferences.
  void setInstrument(Instrument next);  ///< adopts a valid tuning, clears lock and smoothing
  /// Clears the lock, and the highlight if the tuning has no such string.
  void setTuningID(const std::string& next);
  void setA4(double hertz);  ///< clamped to 377 ... 560
  void setLeftHanded(bool next);
  /// A position in the current tuning, or nothing for automatic choice. Not saved.
  void setLockedStringIndex(std::optional<std::int64_t> index);

  /// Listens if it may, and requests the microphone if nobody did yet. Safe to repeat. Unless it
  /// listens at once, a note from before fades within a second.
  void start();
  void stop();
  /// Opens the settings if the microphone is denied. Otherwise starts, and asks again even if a
  /// request is outstanding.
  void allowMicrophone();
  /// Opens the system's microphone privacy settings, where the desktop has them.
  void openMicSettings();

  /// Plays a second of the target's pitch and ignores what is heard meanwhile. No effect without
  /// an output device.
  void playReference();

 private:
  friend class ApplySink;

  /// Lives as long as a call into the engine; its end notifies the observers of what the call has
  /// changed, unless the call is part of another one.
  class Call {
   public:
    explicit Call(TunerEngine& called) : engine(called), before(called.current) { ++engine.calls; }
    ~Call() {
      if (--engine.calls > 0 || before == engine.current) return;
      engine.observers.notify(before, engine.current);
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

   private:
    TunerEngine& engine;
    const DisplayState before;
  };

  TunerEngine(Platform platform, std::shared_ptr<PitchCapture> capture);

  // reading.cpp
  void apply(const std::optional<PitchDetector::Reading>& reading);
  void suppressReading();
  void acceptReading(const PitchDetector::Reading& reading);
  void fallSilent();
  void showTarget(double frequency, const PitchMath::Note& note);
  void showVerdict();
  double smooth(double frequency);
  std::optional<std::int64_t> nearestString(double frequency) const;
  bool isString(std::int64_t index) const;
  const GuitarString& stringAt(std::int64_t index) const;

  // settings.cpp
  static DisplayState stored(const Preferences& preferences);
  void persist();
  void adoptTuningIfNeeded();
  void dropForeignHighlight();

  // listening.cpp
  void listen();
  void listenIfAllowed();
  void stopListening();
  void microphoneChanged();
  void hearSilence();
  void requestMicrophone();
  void microphoneAnswered(bool granted);
  void showMicrophoneDenied();
  void startEngine();
  void captureStarted(bool success);

  // reference_tone.cpp
  void referenceEnded();
  double referenceFrequency() const;
  bool prepareToneEngine(double sampleRate);

  Platform platform;
  std::shared_ptr<PitchCapture> capture;
  DisplayState current;
  Observers observers;
  int calls = 0;                         ///< nested calls into the engine
  std::shared_ptr<ApplySink> applySink;  ///< of the current run of capture
  bool wanted = false;                   ///< from `start` to `stop`
  bool requestingMic = false;
  bool toneReady = false;
  std::vector<double> history;  ///< Hz, raw, oldest first, at most 5
  Clock::Time suppressUntil = Clock::Time::min();
  /// One channel at the rate of the current capture. The tone has a rate of its own.
  std::optional<AudioFormat> toneFormat;
};

}  // namespace corvane
