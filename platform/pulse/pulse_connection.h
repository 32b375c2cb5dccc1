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

/// This program's connection to the audio server, as the main thread sees it: what is known now.
/// Every member is called on the main thread and returns without waiting for the server.
class PulseConnection {
 public:
  enum class State {
    unknown,    ///< nobody has asked, or the server did not answer or has gone
    connected,  ///< the server answers; `facts` are its latest
    refused,    ///< the server does not let this program in
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

  /// Asks the server unless it is connected or being asked; `state` stays as it is until the
  /// outcome is known. That takes at most `serverTimeout`; then `settled` is called, never
  /// within this call, with the outcome.
  void connect(Settled settled);

  /// While the returned handle lives, calls `changed` after each change of the state or the facts,
  /// and seeks a server that has gone, or refused us, until there is one again.
  [[nodiscard]] std::shared_ptr<const void> watch(std::function<void()> changed);

  /// Takes the server's word, given to a stream, that this program may not record. It stands until
  /// `allowRecording` is called or the server has gone; whatever plays is not concerned.
  void refuseRecording();
  void allowRecording();
  /// When the last recording was refused; nothing unless that stands.
  std::optional<Clock::Time> recordingRefused() const { return refusedAt; }
  /// The server does not let this program in, or not record.
  bool isDenied() const { return currentState == State::refused || refusedAt; }
  /// The format of what there is to record from; zero when we may not.
  AudioFormat recordable() const { return refusedAt ? AudioFormat{} : currentFacts.device; }

  /// Runs `job` on the loop's thread, with null when no server is connected.
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
  /// Before an attempt that nobody asks for: soon enough that a server that was restarted is back
  /// in no time, seldom enough for one that never comes.
  BackOff pauses{std::chrono::milliseconds(200), std::chrono::milliseconds(1000)};
  std::shared_ptr<void> attempt;          ///< from `open` until its session has ended
  std::shared_ptr<void> lifetime;         ///< of this object
  std::unique_ptr<PulseSession> session;  ///< on the loop's thread only
  std::optional<Timer> nextAttempt;       ///< on the loop's thread only
  PulseLoop loop;                         ///< last, so that its jobs find the rest alive
};

}  // namespace corvane
