// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "platform/pulse/microphone_feed.h"
#include "platform/pulse/pulse_stream.h"

namespace corvane {

/// Records from the default source.
class RecordStream final : public PulseStream {
 public:
  /// Both on the loop's thread.
  struct Observer {
    std::function<void()> ready;
    /// Once, with libpulse's error code; not called after `close`.
    std::function<void(int error)> ended;
  };

  /// `order` gives the position of each channel. Any thread.
  RecordStream(const AudioFormat& format, const pa_channel_map& order,
               std::shared_ptr<MicrophoneFeed> feed, Observer observer);

 private:
  bool connect() override;
  void ready() override;
  void ended(int error) override { observer.ended(error); }
  void disconnectCallbacks() override;
  void read();
  const std::shared_ptr<MicrophoneFeed> feed;
  Observer observer;
};

}  // namespace corvane
