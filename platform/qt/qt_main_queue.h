#pragma once

#include <QObject>
#include <memory>

#include "platform/main_queue.h"

namespace corvane {

/// Qt's event loop. To be created on the main thread, after the application; may be destroyed on
/// any. Submitting allocates only when more jobs wait than ever before.
class QtMainQueue final : public MainQueue {
 public:
  QtMainQueue();
  ~QtMainQueue() override;

  void async(Job job) override;

 private:
  class Inbox;

  /// A job that ends on another thread may be the last owner of the queue, but only the main thread
  /// may delete what lives on it.
  struct DeleteOnItsThread {
    void operator()(QObject* object) const { object->deleteLater(); }
  };

  std::unique_ptr<Inbox, DeleteOnItsThread> inbox;
};

}  // namespace corvane
