#pragma once

#include <functional>
#include <mutex>
#include <optional>

#include "platform/pulse/buffer_collector.h"
#include "platform/pulse/pulse_stream.h"

namespace corvane {

/// One recording from the default source.
class RecordStream final : public PulseStream {
 public:
  /// Both on the loop's thread.
  struct Observer {
    std::function<void()> ready;
    /// Once, with libpulse's error code; not called after `close`.
    std::function<void(int error)> ended;
  };

  /// `order` says where each channel belongs. Any thread.
  RecordStream(const AudioFormat& format, const pa_channel_map& order, BufferCollector collector,
               Observer observer);

  /// When it returns, the tap is not running, will not be called, and is destroyed. Any thread;
  /// waits for nothing but a tap that is running.
  void mute();

 private:
  bool connect() override;
  void ready() override { observer.ready(); }
  void ended(int error) override { observer.ended(error); }
  void disconnectCallbacks() override;
  void read();
  void moved();

  Observer observer;
  std::mutex gate;                           ///< held while the tap runs
  std::optional<BufferCollector> collector;  ///< under `gate`; none once muted
};

}  // namespace corvane
