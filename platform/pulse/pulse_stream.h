// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/channelmap.h>
#include <pulse/proplist.h>
#include <pulse/sample.h>
#include <pulse/stream.h>

#include <initializer_list>
#include <memory>
#include <optional>
#include <utility>

#include "platform/audio_input.h"
#include "platform/pulse/pulse_session.h"
#include "platform/pulse/timer.h"

namespace corvane {

/// A stream from or to the server, from request to end: the common part of recording and playing.
/// On the loop's thread; created on any thread.
class PulseStream : public std::enable_shared_from_this<PulseStream> {
 public:
  virtual ~PulseStream() = default;
  PulseStream(const PulseStream&) = delete;
  PulseStream& operator=(const PulseStream&) = delete;

  /// Requests the stream, which keeps this object alive. `server` is null if none is connected.
  void open(PulseSession* server);

  /// Ends the stream without calling `ended`; the server drops it as soon as it can.
  void close();

 protected:
  /// `order` gives the position of each channel; mixers show the `properties`.
  using Properties = std::initializer_list<std::pair<const char*, const char*>>;
  PulseStream(const AudioFormat& format, const pa_channel_map& order, Properties properties);

  pa_stream* stream() const { return current; }
  /// Once opened.
  Timers& timers() const { return *loopTimers; }
  const pa_sample_spec& spec() const { return sampleSpec; }
  /// Calls `then` unless the stream ends within `busy` plus `serverTimeout`.
  void armDeadline(std::function<void()> then, std::chrono::milliseconds busy = {});
  /// Releases the stream and calls `ended`, once.
  void end(int error);

  /// Sets the callbacks of the derived class, with this object as their data, and connects the
  /// stream. False if libpulse refuses immediately.
  virtual bool connect() = 0;
  /// The server has created the stream.
  virtual void ready() = 0;
  /// Once, with libpulse's error code; not after `close`.
  virtual void ended(int error) = 0;
  /// Unsets the callbacks that `connect` has set.
  virtual void disconnectCallbacks() = 0;

 private:
  void stateChanged();
  void failed();
  void release();

  const pa_sample_spec sampleSpec;
  const pa_channel_map order;
  std::unique_ptr<pa_proplist, decltype(&pa_proplist_free)> properties;
  Timers* loopTimers = nullptr;
  pa_stream* current = nullptr;
  std::optional<Timer> deadline;
  std::shared_ptr<PulseStream> self;  ///< while `current` exists
  bool closing = false;
};

}  // namespace corvane
