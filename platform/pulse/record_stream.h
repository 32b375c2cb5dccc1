#pragma once

#include <pulse/channelmap.h>
#include <pulse/stream.h>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "platform/audio_input.h"
#include "platform/pulse/buffer_collector.h"
#include "platform/pulse/deadline.h"
#include "platform/pulse/pulse_session.h"

namespace corvane {

/// One recording from the default source, from its request until its end. Unless told otherwise,
/// on the loop's thread.
class RecordStream : public std::enable_shared_from_this<RecordStream> {
 public:
  struct Observer {
    std::function<void()> ready;
    /// Once, with libpulse's error code; not called after `close`.
    std::function<void(int error)> ended;
  };

  /// `order` says where each channel belongs. Any thread.
  RecordStream(const AudioFormat& format, const pa_channel_map& order, BufferCollector collector,
               Observer observer);

  /// Asks the server for the stream, which keeps this object alive; `server` is null when there is
  /// none.
  void open(PulseSession* server);

  /// Ends the recording; the server forgets it as soon as it can.
  void close();

  /// When it returns, the tap is not running, will not be called, and is destroyed. Any thread;
  /// waits for nothing but a tap that is running.
  void mute();

 private:
  void connect();
  void stateChanged();
  void failed();
  void read();
  void moved();
  void end(int error);
  void release();

  const AudioFormat format;
  const pa_channel_map order;
  Observer observer;

  std::mutex gate;                           ///< held while the tap runs
  std::optional<BufferCollector> collector;  ///< under `gate`; none once muted

  pa_stream* stream = nullptr;
  std::optional<Deadline> deadline;
  std::shared_ptr<RecordStream> self;  ///< while `stream` exists
  bool closing = false;
};

}  // namespace corvane
