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

/// What the tuner shows, to the last bit.
struct Shown {
  std::uint64_t frequency;
  std::uint64_t cents;
  std::uint64_t signal;
  std::size_t texts;  ///< of the labels and the status, condensed
  std::optional<std::int64_t> string;
  bool heard;
  bool inTune;

  bool operator==(const Shown&) const = default;
};

/// One tuner and one user who plays to it, all on one thread and in time of its own, which the
/// sound moves: strings plucked and turned, pauses and noise, in changing formats, with every
/// choice that there is made in between.
class Session {
 public:
  /// Told of the state of the tuner after each buffer of sound.
  using OnBuffer = std::function<void(const Shown&)>;

  /// Begins anew and plays for at least `seconds`: the same each time, to the last bit.
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
