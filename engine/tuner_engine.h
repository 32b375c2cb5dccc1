#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

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
/// decides when to listen and to play. One for the life of the program; main thread only. Every
/// published field is read by calling it, `engine->status()`, and observed through `observe`.
class TunerEngine : public std::enable_shared_from_this<TunerEngine> {
  template <class T>
  using Value = Published<TunerEngine, T>;

  /// First, so that it is there before the fields that publish through it.
  Observers observers;

 public:
  /// Reads the four preferences, replaces what is not valid in them and saves them back once.
  /// Starts nothing.
  static std::shared_ptr<TunerEngine> create(
      Platform platform, std::shared_ptr<PitchCapture> capture = PitchCapture::create());
  ~TunerEngine();
  TunerEngine(const TunerEngine&) = delete;
  TunerEngine& operator=(const TunerEngine&) = delete;

  // The user's selection, changed by the setters below.
  Value<Instrument> instrument;
  Value<std::string> tuningID;
  Value<double> a4;  ///< Hz, 377 to 560
  Value<bool> leftHanded;
  /// The string, as a position in the current tuning, that the user has pinned.
  Value<std::optional<std::int64_t>> lockedStringIndex{observers, Field::lockedStringIndex, {}};

  // What is heard.
  Value<bool> listening{observers, Field::listening, false};
  Value<bool> micAllowed{observers, Field::micAllowed, false};
  Value<bool> heard{observers, Field::heard, false};    ///< the last reading was accepted
  Value<bool> inTune{observers, Field::inTune, false};  ///< within 5 cents of the target
  /// Deviation from the target, negative is flat. Held while nothing is heard.
  Value<double> cents{observers, Field::cents, 0.0};
  /// Hz, smoothed. Held while nothing is heard.
  Value<double> frequency{observers, Field::frequency, 0.0};
  /// The target's name: the string's label or, on the piano, the note's name.
  Value<std::string> noteLabel{observers, Field::noteLabel, "—"};
  Value<std::string> octaveLabel{observers, Field::octaveLabel, ""};
  /// Name and octave of the equal-tempered note nearest to what is heard.
  Value<std::string> heardSpelling{observers, Field::heardSpelling, ""};
  Value<double> signal{observers, Field::signal, 0.0};  ///< input level, 0 to 1
  /// The string, as a position in the current tuning, that is being tuned.
  Value<std::optional<std::int64_t>> highlightedString{observers, Field::highlightedString, {}};
  Value<std::string> status{observers, Field::status, "Play a note"};
  /// Why the microphone is not heard, in words for the user.
  Value<std::optional<std::string>> errorText{observers, Field::errorText, {}};
  Value<bool> playingReference{observers, Field::playingReference, false};

  /// `observer` is told of every assignment to a published field while the handle lives.
  [[nodiscard]] std::shared_ptr<const void> observe(Observers::Observer observer);

  /// The tuning that `tuningID` names for this instrument, or the instrument's first.
  const Tuning& tuning() const;

  // The setters save all four preferences.
  void setInstrument(Instrument next);  ///< adopts a valid tuning, clears lock and smoothing
  void setTuningID(
      const std::string& next);  ///< clears the lock, and a highlight it has no string for
  void setA4(double hertz);      ///< clamped to 377 ... 560
  void setLeftHanded(bool next);
  /// A position in the current tuning, or nothing for automatic choice. Not saved.
  void setLockedStringIndex(std::optional<std::int64_t> index);

  /// Listens if it may, asks for the microphone if nobody did yet. Safe to repeat. Unless it
  /// listens at once, a note from before is soon no longer shown as heard.
  void start();
  void stop();
  /// Forgets that a request is outstanding, so that the next `start` may ask again.
  void abandonMicRequest() { requestingMic = false; }
  /// Opens the system's microphone privacy settings, where the desktop has them.
  void openMicSettings();

  /// Plays a second of the target's pitch and ignores what is heard meanwhile. Does nothing when
  /// there is nothing to play it on.
  void playReference();

 private:
  friend class ApplySink;

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
  void persist();
  void adoptTuningIfNeeded();
  void dropForeignHighlight();

  // listening.cpp
  void listenIfAllowed();
  void hearSilence();
  void requestMicrophone();
  void microphoneAnswered(bool granted);
  void showMicrophoneDenied();
  void startEngine();
  void captureStarted(bool success);

  // reference_tone.cpp
  double referenceFrequency() const;
  bool prepareToneEngine(double sampleRate);

  Platform platform;
  std::shared_ptr<PitchCapture> capture;
  std::shared_ptr<ApplySink> applySink;  ///< of the current run of capture
  bool requestingMic = false;
  bool toneReady = false;
  std::vector<double> history;  ///< Hz, raw, oldest first, at most 5
  Clock::Time suppressUntil = Clock::Time::min();
  /// One channel at the rate of the current capture. The tone has a rate of its own.
  std::optional<AudioFormat> toneFormat;
};

}  // namespace corvane
