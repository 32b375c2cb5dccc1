#include "platform/qt/qt_main_queue.h"

#include <QMetaObject>
#include <utility>

namespace corvane {

void QtMainQueue::async(std::function<void()> job) {
  QMetaObject::invokeMethod(receiver.get(), std::move(job), Qt::QueuedConnection);
}

}  // namespace corvane
