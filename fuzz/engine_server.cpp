// SPDX-License-Identifier: MIT
// Actions of the audio server, the player and time.

#include <chrono>

#include "base/require.h"
#include "fuzz/engine_session.h"

namespace corvane::fuzz {
namespace {

constexpr double usualRates[] = {48000.0, 44100.0, 0.0};

AudioFormat anyFormat(Bytes& input) {
  const double rate = input.usualOrAny(usualRates);
  return {rate, static_cast<std::uint32_t>(input.below(3))};
}

}  // namespace

void EngineSession::changePermission() {
  constexpr RecordPermission all[] = {RecordPermission::granted, RecordPermission::undetermined,
                                      RecordPermission::denied, RecordPermission::unknown};
  world.permission->permission = all[input.below(std::size(all))];
}

void EngineSession::answerRequest() {
  if (world.permission->requests.empty()) return;
  const auto completion = world.permission->requests.front();
  world.permission->requests.erase(world.permission->requests.begin());
  completion(input.flag());
}

void EngineSession::changeDevice() {
  world.input->input = anyFormat(input);
  world.input->output = anyFormat(input);
  world.input->startSucceeds = input.flag();
  world.input->answersLater = input.flag();
}

void EngineSession::reportDevice() {
  if (const auto report = world.input->changed) report();
}

void EngineSession::answerStart() {
  if (!world.input->pendingStart) return;
  const auto started = std::exchange(world.input->pendingStart, nullptr);
  world.input->running = input.flag();
  started(world.input->running);
}

void EngineSession::deliverSound() {
  if (!world.input->running || world.input->pendingStart) return;
  const bool afterGap = input.below(4) == 0;
  if (afterGap) ++gaps;
  const std::vector<float> samples(input.below(4) == 0 ? input.below(20000) : 4096, moment());
  const float* channels[] = {samples.data()};
  world.input->tap({.channels = channels,
                    .frameLength = static_cast<std::uint32_t>(samples.size()),
                    .channelCount = 1,
                    .sampleRate = 48000.0,
                    .afterGap = afterGap});
}

void EngineSession::changeOutput() {
  world.output->startSucceeds = input.flag();
  world.output->running = world.output->running && input.flag();
}

void EngineSession::endTones() {
  for (const auto& tone : world.output->played) tone.ended();
  world.output->played.clear();
}

void EngineSession::deliverReading() {
  inFlight.push_back(anyReading());
  sink->deliver(inFlight.back());
}

void EngineSession::runMainThread() {
  const double before = engine->state().frequency;
  const std::vector<Reading> applied = std::exchange(inFlight, {});
  world.mainQueue->runAll();
  checkApplied(applied, before);
}

void EngineSession::letTimePass() {
  world.clock->time += std::chrono::milliseconds(input.below(2000));
}

}  // namespace corvane::fuzz
