// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/back_off.h"
#include "platform/clock.h"
#include "platform/main_queue.h"
#include "platform/pulse/pulse_loop.h"
#include "platform/pulse/pulse_session.h"
#include "platform/pulse/server_facts.h"
#include "platform/pulse/timer.h"

namespace corvane {

/// The connection to the audio server as the main thread sees it: the latest known facts. Every
/// member is called on the main thread and returns without waiting for the server.
class PulseConnection {
 public:
  enum class State {
    unknown,    ///< not connected yet, or the server did not answer or exited
    connected,  ///< `facts` are the latest of the server
    refused,    ///< the server refuses this program
  };

  using Settled = std::function<void(State)>;

  /// `mainQueue` must outlive the connection; `clock` measures every wait for the server.
  explicit PulseConnection(MainQueue& mainQueue,
                           std::shared_ptr<const Clock> clock = std::make_shared<SteadyClock>());
  ~PulseConnection();
  PulseConnection(const PulseConnection&) = delete;
  PulseConnection& operator=(const PulseConnection&) = delete;

  Clock::Time now() const { return clock->now(); }
  State state() const { return currentState; }
  /// All zero unless connected.
  const ServerFacts& facts() const { return currentFacts; }

  /// Connects unless connected or connecting. `state` does not change before the outcome is known,
  /// within `serverTimeout`; then `settled` is called with it, never within this call.
  void connect(Settled settled);

  /// While the returned handle lives, calls `changed` after each change of the state or the facts,
  /// and retries until a server that exited, or refused this program, is connected again.
  [[nodiscard]] std::shared_ptr<const void> watch(std::function<void()> changed);

  /// Records that the server refused a recording stream, until `allowRecording` is called or the
  /// connection ends. Playing is not affected.
  void refuseRecording();
  void allowRecording();
  /// When a recording was refused last; nothing if recording is not refused.
  std::optional<Clock::Time> recordingRefused() const { return refusedAt; }
  /// The server refuses this program or its recordings.
  bool isDenied() const { return currentState == State::refused || refusedAt; }
  /// The format of the device to record from; zero while recording is refused.
  AudioFormat recordable() const { return refusedAt ? AudioFormat{} : currentFacts.device; }

  /// Runs `job` on the loop's thread, with null if no server is connected.
  void async(std::function<void(PulseSession*)> job);

 private:
  void open();
  PulseSession::Observer observer();
  void settle(State state, const ServerFacts& facts);
  void tellWatchers();
  bool isWatched() const;
  void tryLater();
  void tryAgain();

  MainQueue& mainQueue;
  const std::shared_ptr<const Clock> clock;
  State currentState = State::unknown;
  ServerFacts currentFacts;
  std::vector<Settled> waiting;
  std::vector<std::weak_ptr<const std::function<void()>>> watchers;
  std::optional<Clock::Time> refusedAt;
  /// Before a retry: short enough that a restarted server is found quickly, long enough if there
  /// never is one.
  BackOff pauses{std::chrono::milliseconds(200), std::chrono::milliseconds(1000)};
  std::shared_ptr<void> attempt;          ///< from `open` until its session has ended
  std::shared_ptr<void> lifetime;         ///< of this object
  std::unique_ptr<PulseSession> session;  ///< on the loop's thread only
  std::optional<Timer> nextAttempt;       ///< on the loop's thread only
  PulseLoop loop;                         ///< last: its jobs use the other members
};

}  // namespace corvane
