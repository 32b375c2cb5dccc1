#pragma once

#include <QObject>
#include <memory>

#include "platform/main_queue.h"

namespace corvane {

/// Qt's event loop. To be created on the main thread; may be destroyed on any.
class QtMainQueue final : public MainQueue {
 public:
  void async(std::function<void()> job) override;

 private:
  /// A job that ends on another thread may be the last owner of the queue, but only the main thread
  /// may delete what lives on it.
  struct DeleteOnItsThread {
    void operator()(QObject* object) const { object->deleteLater(); }
  };

  std::unique_ptr<QObject, DeleteOnItsThread> receiver{new QObject};
};

}  // namespace corvane
