// SPDX-License-Identifier: MIT
#include "fuzz/engine_session.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <string_view>

#include "base/require.h"
#include "tunings/tuning_library.h"

namespace corvane::fuzz {
namespace {

constexpr double usualFrequencies[] = {82.41, 109.0, 110.0, 110.5, 111.0, 196.0, 329.6, 440.0};
constexpr double usualConfidences[] = {0.99, 0.82, 0.8199, 0.9};
constexpr float usualLevels[] = {0.0031F, 0.05F, 0.1F, 1.0F, INFINITY};

constexpr std::string_view statuses[] = {"Play a note", "Microphone off", "Playing reference",
                                         "In tune",     "Flat",           "Sharp"};
constexpr std::string_view errors[] = {
    "Microphone access is off. Allow Corvane under Settings, Privacy, Microphone.",
    "Tap Allow Microphone so Corvane can hear the note.", "No microphone is available.",
    "The microphone could not start."};

bool isOneOf(std::span<const std::string_view> texts, std::string_view text) {
  return std::ranges::find(texts, text) != texts.end();
}

bool sameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

}  // namespace

const EngineSession::Action EngineSession::actions[23] = {&EngineSession::chooseInstrument,
                                                          &EngineSession::chooseTuning,
                                                          &EngineSession::lockOrRelease,
                                                          &EngineSession::choosePitch,
                                                          &EngineSession::flipHand,
                                                          &EngineSession::start,
                                                          &EngineSession::stop,
                                                          &EngineSession::hideOrShow,
                                                          &EngineSession::openMicSettings,
                                                          &EngineSession::allowMicrophone,
                                                          &EngineSession::pressReference,
                                                          &EngineSession::restart,
                                                          &EngineSession::changePermission,
                                                          &EngineSession::answerRequest,
                                                          &EngineSession::changeDevice,
                                                          &EngineSession::answerStart,
                                                          &EngineSession::deliverSound,
                                                          &EngineSession::changeOutput,
                                                          &EngineSession::endTones,
                                                          &EngineSession::deliverReading,
                                                          &EngineSession::runMainThread,
                                                          &EngineSession::letTimePass,
                                                          &EngineSession::reportDevice};

EngineSession::EngineSession(Bytes bytes) : input(bytes) {
  launch();
}

void EngineSession::step() {
  (this->*actions[input.below(std::size(actions))])();
  checkPositions();
  checkDisplay();
  checkTexts();
  checkSaved();
}

void EngineSession::launch() {
  engine = TunerEngine::create(
      world.platform(),
      PitchCapture::create(std::make_unique<InlineQueue>(),
                           [this](auto block, double) { return detected(block); }));
  sink = std::make_unique<ApplySink>(engine, world.mainQueue);
  raw.clear();
  quietUntil = Clock::Time::min();
}

float EngineSession::moment() const {
  const auto resets = std::ranges::count(world.input->calls, "reset");
  return static_cast<float>(resets + gaps);
}

/// Any frequency and confidence, and a level above the detector's gate.
EngineSession::Reading EngineSession::anyReading() {
  if (input.below(4) == 0) return std::nullopt;
  return PitchDetector::Reading{input.usualOrAny(usualFrequencies),
                                input.usualOrAny(usualConfidences),
                                usualLevels[input.below(std::size(usualLevels))]};
}

EngineSession::Reading EngineSession::detected(std::span<const float> block) {
  const float now = moment();
  require(std::ranges::all_of(block, [&](float sample) { return sample == now; }),
          "a block is from one moment");
  inFlight.push_back(anyReading());
  return inFlight.back();
}

/// A simple model: the median of the last five since the last jump.
double EngineSession::smoothed(double heard) {
  const bool jumped = !raw.empty() && raw.back() > 0.0 && heard > 0.0 &&
                      std::abs(1200.0 * std::log2(heard / raw.back())) > 80.0;
  if (jumped) raw.clear();
  raw.push_back(heard);
  if (raw.size() > 5) raw.pop_front();
  std::vector<double> sorted(raw.begin(), raw.end());
  std::ranges::sort(sorted);
  return sorted[sorted.size() / 2];
}

void EngineSession::checkApplied(const std::vector<Reading>& applied, double expected) {
  for (const Reading& reading : applied) {
    if (world.clock->time < quietUntil) continue;
    if (reading && reading->confidence >= 0.82) expected = smoothed(reading->frequency);
  }
  require(sameBits(engine->state().frequency, expected), "the frequency is smoothed or held");
}

void EngineSession::checkPositions() const {
  const auto count = static_cast<std::int64_t>(engine->tuning().strings.size());
  const auto isPosition = [&](const std::optional<std::int64_t>& position) {
    return !position || (*position >= 0 && *position < count);
  };
  require(isPosition(engine->state().lockedStringIndex), "the locked string is valid");
  require(isPosition(engine->state().highlightedString), "the highlighted string is valid");
  for (std::int64_t i = 0; i < count; ++i) {
    require(engine->tuning().strings[static_cast<std::size_t>(i)].index == i,
            "the index is the position");
  }
}

void EngineSession::checkDisplay() const {
  require(engine->state().a4 >= 377.0 && engine->state().a4 <= 560.0,
          "the concert pitch is in range");
  require(engine->state().signal >= 0.0 && engine->state().signal <= 1.0, "the level is 0 to 1");
  require(std::isfinite(engine->state().cents), "the deviation is finite");
  require(engine->state().heard || !engine->state().inTune, "only a heard note is in tune");
  require(!engine->state().inTune || std::abs(engine->state().cents) <= 5.0,
          "in tune is within 5 cents");
  require(!engine->state().listening || world.input->running,
          "listening means that the input runs");
  require(onScreen || !engine->state().listening, "a hidden window does not listen");
}

void EngineSession::checkTexts() const {
  require(isOneOf(statuses, engine->state().status), "the status is one of six");
  require(!engine->state().errorText || isOneOf(errors, *engine->state().errorText),
          "the error is one of four");
  require(!engine->state().noteLabel.empty(), "a note or a dash is shown");
}

void EngineSession::checkSaved() const {
  using Value = fakes::MemoryPreferences::Value;
  const auto& saved = world.preferences->values;
  require(saved.at("tuner.instrument") == Value(std::string(rawValue(engine->state().instrument))),
          "the instrument is saved");
  require(saved.at("tuner.tuning") == Value(engine->state().tuningID), "the tuning is saved");
  require(saved.at("tuner.a4") == Value(engine->state().a4), "the concert pitch is saved");
  require(saved.at("tuner.left") == Value(engine->state().leftHanded), "the string order is saved");
}

}  // namespace corvane::fuzz
