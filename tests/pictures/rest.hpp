// Lets a size's rest be over, without waiting for it.
#pragma once

#include <QMetaObject>
#include <QTimer>

namespace vellix {

// Ends the pauses that run under this object; false when none does.
inline bool rest(QObject* object) {
  bool any = false;
  for (QTimer* timer : object->findChildren<QTimer*>()) {
    if (!timer->isActive()) continue;
    timer->stop();
    any = QMetaObject::invokeMethod(timer, "timeout");
  }
  return any;
}

}  // namespace vellix
