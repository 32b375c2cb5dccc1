#include "platform/pulse/pulse_connection.h"

#include <pulse/def.h>

#include <utility>

namespace corvane {

PulseConnection::PulseConnection(MainQueue& queue) : mainQueue(queue) {}

PulseConnection::~PulseConnection() {
  loop.async([this] { session.reset(); });
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
    session = std::make_unique<PulseSession>(*loop.api(), watching);
  });
}

/// Carries what a session tells to the main thread, where it counts only while this connection
/// exists and waits for or uses that session.
PulseSession::Observer PulseConnection::observer() {
  const auto post = [this, &queue = mainQueue, weak = std::weak_ptr(attempt)](
                        State state, const ServerFacts& facts) {
    queue.async([this, weak, state, facts] {
      if (!weak.expired()) settle(state, facts);
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
  if (state != State::connected && std::exchange(attempt, nullptr) != nullptr) {
    loop.async([this] { session.reset(); });
  }
  for (const auto& settled : std::exchange(waiting, {})) settled(state);
}

void PulseConnection::async(std::function<void(PulseSession*)> job) {
  loop.async([this, job = std::move(job)] {
    const bool ready = session != nullptr && session->readyContext() != nullptr;
    job(ready ? session.get() : nullptr);
  });
}

}  // namespace corvane
