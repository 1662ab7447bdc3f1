#include "pieces/AfterFrame.hpp"

#include <QEvent>
#include <QQuickWindow>

namespace vellix {

AfterFrame::~AfterFrame() { finish(); }

void AfterFrame::finish() { delete waiting_; }

void AfterFrame::end(QQuickItem* item) {
  finish();
  if (!item || !item->window()) return;
  waiting_ = item;
  item->installEventFilter(this);
  connect(item->window(), &QQuickWindow::frameSwapped, this, &AfterFrame::finish,
          static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

// Who made it deletes it later in this turn, which would be ahead of the frame.
bool AfterFrame::eventFilter(QObject* object, QEvent* event) {
  return object == waiting_ && event->type() == QEvent::DeferredDelete;
}

}  // namespace vellix
