#include "Desk.hpp"

#include <QGuiApplication>
#include <QMetaMethod>

namespace vellix::bench {

void SignalCount::watch(QObject* object) {
  const QMetaObject* all = object->metaObject();
  const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("told()"));
  for (int i = 0; i < all->methodCount(); ++i) {
    const QMetaMethod method = all->method(i);
    // A default argument makes a signal appear twice.
    if (method.methodType() != QMetaMethod::Signal || method.attributes() & QMetaMethod::Cloned) {
      continue;
    }
    QObject::connect(object, method, this, slot);
  }
}

Desk::Desk(std::string token, Board board)
    : tokens_(std::move(token)), program_(loop_, defaults_, tokens_) {
  if (board == Board::staged) {
    store().sample = true;
    // Without a good poll the column spins, and no scene comes to rest.
    store().lastOK.set(loop_.now());
  }
  if (board == Board::polled) program_.begin();
  if (!program_.show()) return;
  for (QWindow* window : QGuiApplication::topLevelWindows()) {
    if (window->property("compare").isValid()) window_ = qobject_cast<QQuickWindow*>(window);
  }
  if (window_) frames_.emplace(window_);
}

void Desk::setPictures(PictureSource& pictures) {
  window_->setProperty("pictures", QVariant::fromValue(&pictures));
}

void Desk::watchModels(SignalCount& count) {
  const std::initializer_list<QObject*> models{
      part<RootModel>("root"), &board(),     board().rows(),      board().people(),    &compare(),
      compare().panes(),       &inspector(), inspector().cards(), inspector().others()};
  for (QObject* model : models) count.watch(model);
}

RemoteImage* Desk::page() {
  return qobject_cast<RemoteImage*>(findItem(window_->contentItem(), [](QQuickItem* item) {
    const auto* image = qobject_cast<RemoteImage*>(item);
    return image && isPage(*image);
  }));
}

}  // namespace vellix::bench
