#include "platform/macos/LaunchedApplication.hpp"

#include <QCoreApplication>
#include <QFileOpenEvent>
#include <utility>

namespace vellix {

LaunchedApplication::LaunchedApplication() {
  QCoreApplication::instance()->installEventFilter(this);
}

void LaunchedApplication::listen(std::function<void(StartRequest)> told) {
  told_ = std::move(told);
  for (const auto& request : std::exchange(early_, {})) tell(request);
}

bool LaunchedApplication::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::FileOpen) return QObject::eventFilter(watched, event);
  const QUrl url = static_cast<QFileOpenEvent*>(event)->url();
  const StartRequest request{.urls = {QString::fromLatin1(url.toEncoded())}, .activationToken = {}};
  if (told_) {
    tell(request);
  } else {
    early_.push_back(request);
  }
  return true;
}

void LaunchedApplication::tell(const StartRequest& request) {
  QMetaObject::invokeMethod(this, [this, request] { told_(request); }, Qt::QueuedConnection);
}

}  // namespace vellix
