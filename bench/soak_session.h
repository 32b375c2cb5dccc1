// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <span>

#include "engine/tuner_engine.h"
#include "tests/support/fake_platform.h"
#include "tests/support/signals.h"

namespace corvane::soak {

/// The exact state that the tuner shows.
struct Shown {
  std::uint64_t frequency;
  std::uint64_t cents;
  std::uint64_t signal;
  std::size_t texts;  ///< hash of labels and status
  std::optional<std::int64_t> string;
  bool heard;
  bool inTune;

  bool operator==(const Shown&) const = default;
};

/// A tuner and a simulated player on one thread, with time that the sound advances: strings plucked
/// and turned, pauses and noise in changing formats, and every kind of choice.
class Session {
 public:
  /// Called with the tuner's state after each buffer.
  using OnBuffer = std::function<void(const Shown&)>;

  /// Restarts and plays for at least `seconds`, exactly the same each time.
  void play(double seconds, const OnBuffer& onBuffer);

 private:
  struct Format {
    double rate;
    std::uint32_t channels;
  };

  void beginAnew();
  void chooseSomething();
  void chooseTuning();
  double someTarget();
  signals::Samples someSound();
  void send(const signals::Samples& sound, const OnBuffer& onBuffer);
  void deliver(std::span<const float> buffer, bool afterGap);
  void passTime(double seconds);
  void forget();
  Shown shown() const;
  std::uint32_t below(std::uint32_t count) { return number() % count; }
  std::uint32_t number() { return static_cast<std::uint32_t>(chance()); }

  fakes::World world;
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  std::mt19937 chance;
  Format format{};
  double played = 0.0;  ///< s
};

}  // namespace corvane::soak
