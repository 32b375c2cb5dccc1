// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <memory>

#include "platform/main_queue.h"

namespace corvane {

/// Runs jobs in Qt's event loop. Created on the main thread, after the application; destroyed on
/// any thread. Submitting allocates only if more jobs wait than ever before.
class QtMainQueue final : public MainQueue {
 public:
  QtMainQueue();
  ~QtMainQueue() override;

  void async(Job job) override;

 private:
  class Inbox;

  /// A job that ends on another thread may be the last owner of the queue, but only the main thread
  /// may delete a QObject of its own.
  struct DeleteOnItsThread {
    void operator()(QObject* object) const { object->deleteLater(); }
  };

  std::unique_ptr<Inbox, DeleteOnItsThread> inbox;
};

}  // namespace corvane
