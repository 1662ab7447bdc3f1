#include "platform/qt/HandOver.hpp"

#include <QObject>
#include <mutex>
#include <utility>

namespace vellix {

struct HandOver::Desk {
  std::mutex mutex;
  std::unique_ptr<QObject> context = std::make_unique<QObject>();  // none once all is over
};

HandOver::HandOver() : desk_(std::make_shared<Desk>()) {}

HandOver::~HandOver() {
  std::unique_ptr<QObject> context;
  const std::scoped_lock lock(desk_->mutex);
  context = std::move(desk_->context);
}

HandOver::Door HandOver::door() const {
  return [desk = desk_](std::function<void()> work) {
    const std::scoped_lock lock(desk->mutex);
    if (!desk->context) return;
    QMetaObject::invokeMethod(desk->context.get(), std::move(work), Qt::QueuedConnection);
  };
}

}  // namespace vellix
