#include "Announcement.hpp"

#include <QAccessible>
#include <QTimer>

namespace vellix {

void Announcement::setAlert(QQuickItem* alert) {
  if (alert == alert_) return;
  if (alert_) alert_->disconnect(this);
  alert_ = alert;
  if (alert_) connect(alert_, &QQuickItem::visibleChanged, this, &Announcement::follow);
  emit alertChanged();
}

void Announcement::follow() {
  said_ = alert_->isVisible();
  if (said_) QTimer::singleShot(0, this, [this] { said_ = false; });
}

// In the next turn, when all that is bound to the words has followed them.
void Announcement::renew() {
  if (said_ || !alert_ || !alert_->isVisible()) return;
  said_ = true;
  QTimer::singleShot(0, this, &Announcement::say);
}

// Only what shows itself is spoken from wherever the person is: of new words alone nothing is
// heard.
void Announcement::say() {
  said_ = false;
  if (!alert_ || !alert_->isVisible()) return;
  for (const auto type : {QAccessible::ObjectHide, QAccessible::ObjectShow}) {
    QAccessibleEvent event{alert_, type};
    QAccessible::updateAccessibility(&event);
  }
  emit renewed();
}

}  // namespace vellix
