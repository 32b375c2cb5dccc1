// SPDX-License-Identifier: MIT
#include "platform/pulse/pulse_connection.h"

#include <pulse/def.h>

#include <algorithm>
#include <utility>

namespace corvane {

PulseConnection::PulseConnection(MainQueue& queue, std::shared_ptr<const Clock> time)
    : mainQueue(queue), clock(std::move(time)), lifetime(std::make_shared<char>()), loop(*clock) {}

PulseConnection::~PulseConnection() {
  loop.async([this] {
    nextAttempt.reset();
    session.reset();
  });
}

void PulseConnection::connect(Settled settled) {
  if (currentState == State::connected) {
    return mainQueue.async([settled = std::move(settled)] { settled(State::connected); });
  }
  waiting.push_back(std::move(settled));
  if (attempt == nullptr) open();
}

void PulseConnection::open() {
  attempt = std::make_shared<char>();
  loop.async([this, watching = observer()] {
    session = std::make_unique<PulseSession>(loop.api(), loop.timers(), watching);
  });
}

/// Posts the session's reports to the main thread, which ignores them once this connection or its
/// attempt has ended.
PulseSession::Observer PulseConnection::observer() {
  const auto post = [this, &queue = mainQueue, weak = std::weak_ptr(attempt)](
                        State state, const ServerFacts& facts) {
    queue.async([this, weak, state, facts = std::make_shared<const ServerFacts>(facts)] {
      if (!weak.expired()) settle(state, *facts);
    });
  };
  return {.facts = [post](const ServerFacts& facts) { post(State::connected, facts); },
          .ended =
              [post](int error) {
                post(error == PA_ERR_ACCESS ? State::refused : State::unknown, {});
              }};
}

void PulseConnection::settle(State state, const ServerFacts& facts) {
  currentState = state;
  currentFacts = facts;
  if (state != State::connected) {
    refusedAt.reset();
    if (std::exchange(attempt, nullptr) != nullptr) loop.async([this] { session.reset(); });
  }
  if (state == State::connected) pauses.reset();
  for (const auto& settled : std::exchange(waiting, {})) settled(state);
  tellWatchers();
  if (attempt == nullptr) tryLater();
}

void PulseConnection::refuseRecording() {
  if (!std::exchange(refusedAt, now())) tellWatchers();
}

void PulseConnection::allowRecording() {
  if (std::exchange(refusedAt, std::nullopt)) tellWatchers();
}

std::shared_ptr<const void> PulseConnection::watch(std::function<void()> changed) {
  const auto watcher = std::make_shared<const std::function<void()>>(std::move(changed));
  watchers.push_back(watcher);
  if (attempt == nullptr) tryLater();
  return watcher;
}

/// A watcher may drop its handle, or others, during the call.
void PulseConnection::tellWatchers() {
  std::erase_if(watchers, [](const auto& watcher) { return watcher.expired(); });
  for (const auto& watcher : std::vector(watchers)) {
    if (const auto changed = watcher.lock()) (*changed)();
  }
}

bool PulseConnection::isWatched() const {
  return std::ranges::any_of(watchers, [](const auto& watcher) { return !watcher.expired(); });
}

void PulseConnection::tryLater() {
  if (!isWatched()) return;
  const auto again = [this, &queue = mainQueue, weak = std::weak_ptr(lifetime)] {
    queue.async([this, weak] {
      if (!weak.expired()) tryAgain();
    });
  };
  loop.async([this, again, delay = pauses.next()] {
    if (!nextAttempt) nextAttempt.emplace(loop.timers());
    nextAttempt->arm(delay, again);
  });
}

void PulseConnection::tryAgain() {
  if (attempt == nullptr && isWatched()) open();
}

void PulseConnection::async(std::function<void(PulseSession*)> job) {
  loop.async([this, job = std::move(job)] {
    const bool ready = session != nullptr && session->readyContext() != nullptr;
    job(ready ? session.get() : nullptr);
  });
}

}  // namespace corvane
