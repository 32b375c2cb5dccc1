// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/mainloop-api.h>
#include <pulse/subscribe.h>

#include <chrono>
#include <functional>
#include <optional>

#include "platform/back_off.h"
#include "platform/pulse/server_facts.h"
#include "platform/pulse/timer.h"

namespace corvane {

/// How long we wait for an answer of the server: long enough for a server that is being started,
/// short enough for a user who waits.
constexpr std::chrono::milliseconds serverTimeout{3000};

/// One attempt to connect to the audio server and, if it succeeds, the connection. It ends when the
/// server exits, refuses, or does not answer within `serverTimeout`; the next attempt is a new
/// session. On the loop's thread.
class PulseSession {
 public:
  struct Observer {
    /// The first facts, and each change.
    std::function<void(const ServerFacts&)> facts;
    /// Once, with libpulse's error code; the last call.
    std::function<void(int error)> ended;
  };

  PulseSession(pa_mainloop_api& api, Timers& timers, Observer observer);
  ~PulseSession();
  PulseSession(const PulseSession&) = delete;
  PulseSession& operator=(const PulseSession&) = delete;

  Timers& timers() const { return loopTimers; }
  /// Ready for streams; null before connection and after the end.
  pa_context* readyContext() const;

 private:
  void connect();
  void contextChanged();
  void watch();
  void survey();
  void report(const ServerFacts& facts);
  void await(pa_operation* operation);
  void end(int error);

  static void onState(pa_context*, void* session);
  static void onEvent(pa_context*, pa_subscription_event_type_t, std::uint32_t, void* session);
  static void onServer(pa_context*, const pa_server_info* server, void* session);
  static void onSource(pa_context*, const pa_source_info* source, int last, void* session);

  Timers& loopTimers;
  Observer observer;
  pa_context* const context;  ///< null if creation failed
  Timer deadline;
  Timer again;  ///< repeats an inconclusive survey
  BackOff surveyBackoff{std::chrono::milliseconds(200), std::chrono::milliseconds(1000)};
  bool surveying = false;
  bool outdated = false;  ///< the server has changed since the current survey began
  std::optional<ServerSurvey> answers;
  std::optional<ServerFacts> reported;
  bool over = false;
};

}  // namespace corvane
