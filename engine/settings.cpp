#include <utility>

#include "engine/tuner_engine.h"
#include "tunings/tuning_library.h"

namespace corvane {
namespace {

constexpr double lowestA4 = 377.0;
constexpr double highestA4 = 560.0;
constexpr double defaultA4 = 440.0;

constexpr auto instrumentKey = "tuner.instrument";
constexpr auto tuningKey = "tuner.tuning";
constexpr auto a4Key = "tuner.a4";
constexpr auto leftKey = "tuner.left";

Instrument storedInstrument(const Preferences& preferences) {
  const auto text = preferences.string(instrumentKey).value_or("");
  return instrumentFromRawValue(text).value_or(Instrument::guitar);
}

std::string storedTuningID(const Preferences& preferences, Instrument instrument) {
  const auto id = preferences.string(tuningKey).value_or("");
  return TuningLibrary::resolve(instrument, id).id;
}

double storedA4(const Preferences& preferences) {
  const double hertz = preferences.number(a4Key).value_or(0.0);
  return lowestA4 <= hertz && hertz <= highestA4 ? hertz : defaultA4;
}

/// What is not a number becomes the lowest pitch, so that it cannot travel on.
double clampedA4(double hertz) {
  const double raised = hertz > lowestA4 ? hertz : lowestA4;
  return raised > highestA4 ? highestA4 : raised;
}

}  // namespace

std::shared_ptr<TunerEngine> TunerEngine::create(Platform platform,
                                                 std::shared_ptr<PitchCapture> capture) {
  return std::shared_ptr<TunerEngine>(new TunerEngine(std::move(platform), std::move(capture)));
}

TunerEngine::TunerEngine(Platform outside, std::shared_ptr<PitchCapture> pipeline)
    : instrument(observers, Field::instrument, storedInstrument(*outside.preferences)),
      tuningID(observers, Field::tuningID, storedTuningID(*outside.preferences, instrument())),
      a4(observers, Field::a4, storedA4(*outside.preferences)),
      leftHanded(observers, Field::leftHanded,
                 outside.preferences->boolean(leftKey).value_or(false)),
      platform(std::move(outside)),
      capture(std::move(pipeline)) {
  persist();
}

TunerEngine::~TunerEngine() {
  platform.audioInput->stop();
}

std::shared_ptr<const void> TunerEngine::observe(Observers::Observer observer) {
  return observers.add(std::move(observer));
}

const Tuning& TunerEngine::tuning() const {
  return TuningLibrary::resolve(instrument(), tuningID());
}

void TunerEngine::setInstrument(Instrument next) {
  instrument = next;
  persist();
  adoptTuningIfNeeded();
}

void TunerEngine::setTuningID(const std::string& next) {
  tuningID = next;
  persist();
  lockedStringIndex = std::nullopt;
  dropForeignHighlight();
}

void TunerEngine::setA4(double hertz) {
  a4 = hertz;
  const double clamped = clampedA4(hertz);
  if (clamped != hertz) return setA4(clamped);
  persist();
}

void TunerEngine::setLeftHanded(bool next) {
  leftHanded = next;
  persist();
}

void TunerEngine::setLockedStringIndex(std::optional<std::int64_t> index) {
  lockedStringIndex = index;
}

void TunerEngine::persist() {
  Preferences& preferences = *platform.preferences;
  preferences.setString(instrumentKey, rawValue(instrument()));
  preferences.setString(tuningKey, tuningID());
  preferences.setNumber(a4Key, a4());
  preferences.setBoolean(leftKey, leftHanded());
}

/// The last highlight may be of a tuning with more strings, and the reference tone reads it before
/// the next reading renews it.
void TunerEngine::dropForeignHighlight() {
  if (highlightedString() && !isString(*highlightedString())) highlightedString = std::nullopt;
}

/// The smoothing of the instrument before must not leak into this one.
void TunerEngine::adoptTuningIfNeeded() {
  if (TuningLibrary::find(instrument(), tuningID()) == nullptr) setTuningID(tuning().id);
  lockedStringIndex = std::nullopt;
  dropForeignHighlight();
  history.clear();
}

}  // namespace corvane
