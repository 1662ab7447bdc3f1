// Has a screen reader say an alert again that stays with other words: by itself one is said only as
// it comes into sight. Each is said once. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointer>
#include <QQuickItem>

namespace vellix {

class Announcement : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* alert READ alert WRITE setAlert NOTIFY alertChanged REQUIRED)

 public:
  using QObject::QObject;

  QQuickItem* alert() const { return alert_; }
  void setAlert(QQuickItem* alert);

  // The alert has other words now, or the same ones for another reason.
  Q_INVOKABLE void renew();

 signals:
  void alertChanged();
  void renewed();  // it has been said again

 private:
  void follow();
  void say();

  QPointer<QQuickItem> alert_;
  // In this turn of the main loop it has come into sight, which is said, or is to be said anew.
  bool said_ = false;
};

}  // namespace vellix
